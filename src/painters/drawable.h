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
  /// REQUIRES: a scale as DrawableScale gives it.
  explicit DrawableRange(double scale);

  /// The value within the range; NaN gives 0.
  double Coordinate(double value) const;
  ///@{
  /// Both coordinates within the range.
  wxPoint2DDouble Point(wxPoint2DDouble const &point) const;
  std::vector<wxPoint2DDouble> Points(std::vector<wxPoint2DDouble> points) const;
  ///@}
  /// Each edge on its own: a rectangle that reaches beyond the range is cut, not moved.
  wxRect Rect(wxRect const &rect) const;
  double Scale() const { return m_scale; }  ///< the scale that acts
  /// How many times larger text must be set on a surface whose scale is taken back as many times,
  /// as it cannot be rendered under the whole scale: 1 where it can. REQUIRES: the font is Ok.
  double TextEnlargement(wxFont const &font) const;
  /// The font so many times larger, at a size that can be rendered. REQUIRES: the font is Ok.
  wxFont Font(wxFont const &font, double enlargement) const;
  /// Whether there is a bitmap, and a size in picture pixels that it can be stretched to. What is
  /// reduced further would not be seen, and the surface would stop painting for good.
  bool CanStretch(wxBitmap const &bitmap, double width, double height) const;

private:
  double heldPoints(wxFont const &font) const;
  bool canReduce(int pixels, double size) const;

  double m_scale;
  double m_limit;
};

/// The font, or the stock one where it is not Ok: a font that cannot be read must not hide a text.
FRAMENOTE_API wxFont UsableFont(wxFont const &font);

/// A scale that a surface can take and undo: 0.001 to 1000; 1 for one that is not positive and
/// finite.
FRAMENOTE_API double DrawableScale(double scale);

}  // namespace framenote
