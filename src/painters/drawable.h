// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include <wx/gdicmn.h>
#include <wx/geometry.h>

#include "framenote/export.h"

class wxBitmap;
class wxFont;

/// Brings geometry from documents within what surfaces can hold. What is cut off lies far outside
/// any picture.
namespace framenote {

/// Coordinates that a surface under a scale can hold: surfaces count in fixed point, to about
/// eight million device pixels.
class FRAMENOTE_API DrawableRange {
public:
  explicit DrawableRange(double scale);

  /// The value within the range; NaN gives 0.
  double Coordinate(double value) const;
  wxPoint2DDouble Point(wxPoint2DDouble const &point) const;
  std::vector<wxPoint2DDouble> Points(std::vector<wxPoint2DDouble> points) const;
  /// Each edge on its own: a rectangle that reaches beyond the range is cut, not moved.
  wxRect Rect(wxRect const &rect) const;
  /// The font at a size that the text system can lay out and render.
  wxFont Font(wxFont const &font) const;
  /// Whether there is a bitmap, and a size in picture pixels that it can be stretched to. What is
  /// reduced further would not be seen, and the surface would stop painting for good.
  bool CanStretch(wxBitmap const &bitmap, double width, double height) const;

private:
  bool canReduce(int pixels, double size) const;

  double m_scale;
  double m_limit;
};

/// A scale that a surface can take and undo: 0.001 to 1000; 1 for one that is not positive and
/// finite.
FRAMENOTE_API double DrawableScale(double scale);

}  // namespace framenote
