// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include <wx/gdicmn.h>
#include <wx/geometry.h>

#include "framenote/export.h"

/// Conversions between picture geometry and pixels, and the area tests that all kinds of objects
/// share. Free functions without state, usable on any thread.
namespace framenote {

/// The greatest pixel coordinate, in both directions. Geometry beyond it saturates: the value
/// leaves room for differences, sums and sizes of rectangles within a 32-bit int.
constexpr int kMaxPixel = 1 << 28;

///@{
/// Rounds half up, as `wxPoint2DDouble::GetRounded` does: floor(x + 0.5). Saturates at
/// `kMaxPixel`; NaN gives 0.
FRAMENOTE_API int RoundToPixel(double value);
FRAMENOTE_API wxPoint RoundToPixel(wxPoint2DDouble const &point);
FRAMENOTE_API std::vector<wxPoint> RoundToPixels(std::vector<wxPoint2DDouble> const &points);
///@}

/// Truncates toward zero, saturating like RoundToPixel.
FRAMENOTE_API int TruncateToInt(double value);

/// The point, but a coordinate that is not finite becomes the pixel that it converts to: a text has
/// no form for it.
FRAMENOTE_API wxPoint2DDouble MakeFinite(wxPoint2DDouble const &point);

/// The point with both coordinates brought within `kMaxPixel`.
FRAMENOTE_API wxPoint2DInt ClampToPixels(wxPoint2DInt const &point);
///@{
/// a + b and a - b, saturating at `kMaxPixel`.
FRAMENOTE_API wxPoint2DInt AddPixels(wxPoint2DInt const &a, wxPoint2DInt const &b);
FRAMENOTE_API wxPoint2DInt SubtractPixels(wxPoint2DInt const &a, wxPoint2DInt const &b);
///@}

/// The point at `length` from `origin`, in the direction of `from` turned by `degrees`.
/// NaN where `from` equals `origin`.
FRAMENOTE_API wxPoint2DDouble PointAtDistance(wxPoint2DDouble const &from,
                                              wxPoint2DDouble const &origin, double length,
                                              double degrees);
/// `vector` turned by `degrees`; clockwise on the screen for positive values.
FRAMENOTE_API wxPoint2DDouble Turned(wxPoint2DDouble const &vector, double degrees);
/// `vector` with its length set; a negative length reverses it.
FRAMENOTE_API wxPoint2DDouble WithLength(wxPoint2DDouble const &vector, double length);

/// Whether `q` lies in the convex quadrilateral p1 p2 p3 p4, its edge included. Exact for integer
/// input; a quadrilateral without area contains nothing.
FRAMENOTE_API bool QuadrilateralContains(wxPoint const &q, wxPoint const &p1, wxPoint const &p2,
                                         wxPoint const &p3, wxPoint const &p4);
/// The same for a triangle.
FRAMENOTE_API bool TriangleContains(wxPoint const &q, wxPoint const &p1, wxPoint const &p2,
                                    wxPoint const &p3);
/// Area of a triangle.
FRAMENOTE_API double TriangleArea(wxPoint const &p1, wxPoint const &p2, wxPoint const &p3);
/// Area of a quadrilateral by its diagonals.
FRAMENOTE_API double QuadrilateralArea(wxPoint const &p1, wxPoint const &p2, wxPoint const &p3,
                                       wxPoint const &p4);

/// A view scale that can be divided by: `scale` if it is positive and finite, else 1.
FRAMENOTE_API double UsableScale(double scale);
/// A line width that can be drawn: 0 to 4096 pixels.
FRAMENOTE_API int UsableThickness(int thickness);

}  // namespace framenote
