// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include <wx/gdicmn.h>
#include <wx/geometry.h>

#include "coordinates/ann_points.h"
#include "framenote/export.h"

/// The geometry of a quadrilateral record that needs nothing but the record. Picture pixels, y
/// downward; angles in radians where not said otherwise.
namespace framenote {

constexpr double kPi = 3.141592653589793;  ///< half a turn

/// 180 for kPi.
inline double DegreesFromRadians(double radians) {
  return radians * 180.0 / kPi;
}

///@{
/// Whether all corners round to one pixel (IsPoint), or the height (IsXLine) or the width (IsYLine)
/// has collapsed.
FRAMENOTE_API bool IsPoint(AnnShapePoints const &record);
FRAMENOTE_API bool IsXLine(AnnShapePoints const &record);
FRAMENOTE_API bool IsYLine(AnnShapePoints const &record);
///@}
/// Whether the corners run counter-clockwise: a handle was pulled past the opposite side.
FRAMENOTE_API bool IsReflected(AnnShapePoints const &record);

/// The middles of the four sides.
FRAMENOTE_API void FindResizePoints(AnnShapePoints &record);
/// The rotation handle, `armLength` off the top side on its outer side.
FRAMENOTE_API void FindRotationPoint(AnnShapePoints &record, bool reflected, double armLength);
/// The outline inset by the border's width, corner by corner.
FRAMENOTE_API void CalculateInnerCoordinates(int thickness, AnnShapePoints &record, bool reflected);
/// Names the corners of a reflected record by their order again.
FRAMENOTE_API void SwapLeftAndRight(AnnShapePoints &record);

///@{
/// The four corners of the outline, or of what the border leaves, each plus `offset`.
FRAMENOTE_API std::vector<wxPoint2DDouble> GetCorners(AnnShapePoints const &record,
                                                      wxPoint2DDouble const &offset);
FRAMENOTE_API std::vector<wxPoint2DDouble> GetInnerCorners(AnnShapePoints const &record,
                                                           wxPoint2DDouble const &offset);
///@}
/// The corners, then the middles of the top, right, bottom and left side.
FRAMENOTE_API std::vector<wxPoint2DDouble> GetResizePoints(AnnShapePoints const &record,
                                                           wxPoint2DDouble const &offset);
/// Width and height, truncated toward zero.
FRAMENOTE_API wxSize GetSize(AnnShapePoints const &record);
/// Whether a border of `thickness` leaves no inside.
FRAMENOTE_API bool IsFillCoveredByBorder(AnnShapePoints const &record, int thickness);
/// The sum of the two rectangles of opposite rounded corners.
FRAMENOTE_API wxRect BoundsOf(AnnShapePoints const &record);

}  // namespace framenote
