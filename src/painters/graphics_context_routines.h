// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include <wx/geometry.h>

class AnnShapeProperties;
class wxBitmap;
class wxColour;
class wxGraphicsContext;
class wxGraphicsPath;
class wxRect;

/// Drawing on a graphics context that both painters share: the device-context painter comes here
/// for what a DC cannot do. Boxes of curves are eight points, see IAnnPainter; lists with too few
/// points paint nothing. REQUIRES: coordinates within a DrawableRange.
namespace framenote {

using DrawingPoints = std::vector<wxPoint2DDouble>;

void FillRectangle(wxGraphicsContext &context, wxRect const &rect, wxColour const &colour);
void FillEllipse(wxGraphicsContext &context, wxRect const &rect, wxColour const &colour);
void FillPolygon(wxGraphicsContext &context, DrawingPoints const &points, wxColour const &colour);
/// Adds the closed curve of an eight-point box.
void AddEllipse(wxGraphicsPath &path, DrawingPoints const &points);
/// Four corners, followed by the middles of the sides.
DrawingPoints ExpandToEllipse(DrawingPoints const &corners);
void FillEllipseCurves(wxGraphicsContext &context, DrawingPoints const &points,
                       wxColour const &colour);
/// What lies between an eight-point box and the one of four inner corners.
void FillRing(wxGraphicsContext &context, DrawingPoints const &outer, DrawingPoints const &inner,
              wxColour const &colour);
void DrawEllipseWithBorderCurves(wxGraphicsContext &context, DrawingPoints const &outer,
                                 DrawingPoints const &inner, AnnShapeProperties const &properties);
/// A bitmap stretched to a size and turned about its centre by `angle` radians.
/// REQUIRES: DrawableRange::CanStretch.
void DrawImage(wxGraphicsContext &context, wxPoint2DDouble const &centre, double width,
               double height, double angle, wxBitmap const &bitmap);

}  // namespace framenote
