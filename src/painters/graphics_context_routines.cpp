// SPDX-License-Identifier: MIT
#include "painters/graphics_context_routines.h"

#include <algorithm>
#include <cmath>

#include <wx/bitmap.h>
#include <wx/graphics.h>

#include "painters/drawing_tools.h"
#include "properties/ann_shape_properties.h"
#include "talbase/layout_direction.h"

namespace framenote {

namespace {

/// The control points of a cubic curve that follows a quarter circle: 4/3 (sqrt(2) - 1).
constexpr double kArc = 0.5522847498307933;
/// Rectangles cover whole pixels, whose centres the coordinates name.
constexpr double kHalfPixel = 0.5;

/// The greatest side of a stretched bitmap, in picture pixels.
constexpr double kMaxImageSize = 1e6;

constexpr std::size_t kBoxCorners = 4;
constexpr std::size_t kBoxPoints = 8;

void SetFill(wxGraphicsContext &context, wxColour const &colour) {
  context.SetPen(NoPen());
  context.SetBrush(SolidBrush(colour));
}

bool IsBox(DrawingPoints const &points) {
  return points.size() >= kBoxPoints;
}
bool HasCorners(DrawingPoints const &points) {
  return points.size() >= kBoxCorners;
}

wxPoint2DDouble Towards(wxPoint2DDouble const &from, wxPoint2DDouble const &corner) {
  return from + (corner - from) * kArc;
}

}  // namespace

void FillRectangle(wxGraphicsContext &context, wxRect const &rect, wxColour const &colour) {
  SetFill(context, colour);
  context.DrawRectangle(rect.x - kHalfPixel, rect.y - kHalfPixel, rect.width, rect.height);
}

void FillEllipse(wxGraphicsContext &context, wxRect const &rect, wxColour const &colour) {
  SetFill(context, colour);
  context.DrawEllipse(rect.x - kHalfPixel, rect.y - kHalfPixel, rect.width, rect.height);
}

void FillPolygon(wxGraphicsContext &context, DrawingPoints const &points, wxColour const &colour) {
  if (points.size() < 2) return;
  SetFill(context, colour);
  context.DrawLines(points.size(), points.data(), wxODDEVEN_RULE);
}

void AddEllipse(wxGraphicsPath &path, DrawingPoints const &points) {
  if (!IsBox(points)) return;
  DrawingPoints const &p = points;
  path.MoveToPoint(p[7]);
  for (std::size_t corner = 0; corner < kBoxCorners; ++corner) {
    wxPoint2DDouble const from = p[corner == 0 ? 7 : corner + 3];
    wxPoint2DDouble const to = p[corner + 4];
    path.AddCurveToPoint(Towards(from, p[corner]), Towards(to, p[corner]), to);
  }
  path.CloseSubpath();
}

DrawingPoints ExpandToEllipse(DrawingPoints const &corners) {
  if (!HasCorners(corners)) return {};
  DrawingPoints points(corners.begin(), corners.begin() + kBoxCorners);
  for (std::size_t i = 0; i < kBoxCorners; ++i) {
    points.push_back((corners[i] + corners[(i + 1) % kBoxCorners]) / 2.0);
  }
  return points;
}

void FillEllipseCurves(wxGraphicsContext &context, DrawingPoints const &points,
                       wxColour const &colour) {
  SetFill(context, colour);
  wxGraphicsPath path = context.CreatePath();
  AddEllipse(path, points);
  context.FillPath(path, wxODDEVEN_RULE);
}

void FillRing(wxGraphicsContext &context, DrawingPoints const &outer, DrawingPoints const &inner,
              wxColour const &colour) {
  if (!IsBox(outer) || !HasCorners(inner)) return;
  SetFill(context, colour);
  wxGraphicsPath path = context.CreatePath();
  AddEllipse(path, outer);
  AddEllipse(path, ExpandToEllipse(inner));
  context.FillPath(path, wxODDEVEN_RULE);
}

void DrawEllipseWithBorderCurves(wxGraphicsContext &context, DrawingPoints const &outer,
                                 DrawingPoints const &inner, AnnShapeProperties const &properties) {
  if (!IsBox(outer) || !HasCorners(inner)) return;
  FillEllipseCurves(context, outer, properties.GetBorderColor());
  FillEllipseCurves(context, ExpandToEllipse(inner), properties.GetFillColor());
}

void DrawImage(wxGraphicsContext &context, wxPoint2DDouble const &centre, double width,
               double height, double angle, wxBitmap const &bitmap) {
  double const drawnWidth = std::min(width, kMaxImageSize);
  double const drawnHeight = std::min(height, kMaxImageSize);
  context.PushState();
  context.Translate(centre.m_x, centre.m_y);
  context.Rotate(std::isfinite(angle) ? angle : 0.0);
  // The host mirrors the pictures of a mirrored interface; the image goes along.
  if (TalHasRTLLayout()) context.Scale(-1.0, 1.0);
  context.DrawBitmap(bitmap, -0.5 * drawnWidth, -0.5 * drawnHeight, drawnWidth, drawnHeight);
  context.PopState();
}

}  // namespace framenote
