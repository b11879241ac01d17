// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>

#include <wx/bitmap.h>
#include <wx/gdicmn.h>
#include <wx/geometry.h>

#include "coordinates/ann_points.h"
#include "framenote/export.h"
#include "properties/ann_shape_properties.h"

namespace framenote {

/// A black bitmap of `width` by `height` with a shape of `shapeWidth` by `shapeHeight` in white,
/// turned by `angle` radians about its centre, which lies at the bitmap's centre plus `offset`.
/// Pixels that the shape's edge crosses are grey. Null where there is no pixel.
FRAMENOTE_API wxBitmap RotatedMaskBitmap(wxPoint2DDouble const &offset, int width, int height,
                                         int shapeWidth, int shapeHeight, double angle,
                                         AnnShapeProperties::Shape shape);

/// Cuts bitmaps that show a part of the picture to a turned shape. The mask is kept while the shape
/// stays as it is, since following frames mostly have the same one.
///
/// Usable on any thread, by one at a time.
class FRAMENOTE_API ShapeMask {
public:
  /// What stays: what lies within the outline, as it is painted on windows; or every pixel that the
  /// outline touches, wherever within a pixel it is painted.
  enum class Edge { Painted, Covered };

  /// What a mask is drawn from: the offset of the shape's centre from that of the bitmap, the size
  /// of the bitmap, and the shape's own sides, angle and kind.
  struct Form {
    wxPoint2DDouble offset;           ///< of the shape's centre, in picture pixels
    wxSize area;                      ///< of the bitmap
    double width;                     ///< of the shape
    double height;                    ///< of the shape
    double angle;                     ///< radians
    AnnShapeProperties::Shape shape;  ///< what is cut out

    bool operator==(Form const &other) const;  ///< member by member
    bool IsFinite() const;                     ///< no member is NaN or infinite
  };

  explicit ShapeMask(Edge edge);  ///< No mask is drawn yet.
  /// A copy makes a mask of its own.
  ShapeMask(ShapeMask const &other);
  ShapeMask &operator=(ShapeMask const &) = delete;
  ~ShapeMask();

  /// `bitmap`, which must be Ok, shows `area` of the picture.
  void Cut(wxBitmap &bitmap, wxRect const &area, AnnShapePoints const &record, double angle,
           AnnShapeProperties::Shape shape);
  /// Whether the last bitmap was cut by this.
  bool IsFor(wxRect const &area, AnnShapePoints const &record, double angle,
             AnnShapeProperties::Shape shape) const;

private:
  Form formOf(wxRect const &area, AnnShapePoints const &record, double angle,
              AnnShapeProperties::Shape shape) const;

  Edge m_edge;
  std::optional<Form> m_form;
  std::unique_ptr<wxMask> m_mask;
};

}  // namespace framenote
