// SPDX-License-Identifier: MIT
#include "objects/shape_geometry.h"

#include <utility>

#include "coordinates/pixel_geometry.h"

namespace framenote {

namespace {

wxPoint2DDouble MiddleOf(wxPoint2DDouble const &a, wxPoint2DDouble const &b) {
  return (a + b) * 0.5;
}

bool SamePixel(wxPoint2DDouble const &a, wxPoint2DDouble const &b) {
  return RoundToPixel(a) == RoundToPixel(b);
}

std::vector<wxPoint2DDouble> Shifted(std::vector<wxPoint2DDouble> points,
                                     wxPoint2DDouble const &offset) {
  for (wxPoint2DDouble &point : points) point += offset;
  return points;
}

}  // namespace

bool IsPoint(AnnShapePoints const &record) {
  return SamePixel(record.m_topLeft, record.m_topRight) &&
         SamePixel(record.m_topLeft, record.m_bottomLeft);
}

bool IsXLine(AnnShapePoints const &record) {
  return !IsPoint(record) && SamePixel(record.m_topLeft, record.m_bottomLeft);
}

bool IsYLine(AnnShapePoints const &record) {
  return !IsPoint(record) && SamePixel(record.m_topLeft, record.m_topRight);
}

bool IsReflected(AnnShapePoints const &record) {
  wxPoint2DDouble const left = record.m_topLeft - record.m_bottomLeft;
  wxPoint2DDouble const bottom = record.m_bottomRight - record.m_bottomLeft;
  return left.GetCrossProduct(bottom) < 0.0;
}

void FindResizePoints(AnnShapePoints &record) {
  record.m_topResizePoint = MiddleOf(record.m_topLeft, record.m_topRight);
  record.m_rightResizePoint = MiddleOf(record.m_topRight, record.m_bottomRight);
  record.m_bottomResizePoint = MiddleOf(record.m_bottomLeft, record.m_bottomRight);
  record.m_leftResizePoint = MiddleOf(record.m_bottomLeft, record.m_topLeft);
}

void FindRotationPoint(AnnShapePoints &record, bool reflected, double armLength) {
  if (IsPoint(record)) {
    record.m_rotationPoint = record.m_topResizePoint;
    return;
  }
  // A collapsed width leaves no top side to stand off from, so the line itself gives the direction.
  bool const alongLine = IsYLine(record);
  wxPoint2DDouble const &from = alongLine ? record.m_bottomResizePoint : record.m_topRight;
  double const degrees = alongLine ? (reflected ? 0.0 : 180.0) : (reflected ? 90.0 : -90.0);
  record.m_rotationPoint = PointAtDistance(from, record.m_topResizePoint, armLength, degrees);
}

void CalculateInnerCoordinates(int thickness, AnnShapePoints &record, bool reflected) {
  double const width = UsableThickness(thickness);
  wxPoint2DDouble const inset = WithLength(record.m_topRight - record.m_topLeft, width) +
                                WithLength(record.m_bottomLeft - record.m_topLeft, width);
  double const turn = reflected ? -1.0 : 1.0;
  record.m_innerTopLeft = record.m_topLeft + inset;
  record.m_innerTopRight = record.m_topRight + wxPoint2DDouble(-inset.m_y, inset.m_x) * turn;
  record.m_innerBottomRight = record.m_bottomRight - inset;
  record.m_innerBottomLeft = record.m_bottomLeft + wxPoint2DDouble(inset.m_y, -inset.m_x) * turn;
}

void SwapLeftAndRight(AnnShapePoints &record) {
  std::swap(record.m_topLeft, record.m_topRight);
  std::swap(record.m_bottomLeft, record.m_bottomRight);
  std::swap(record.m_rightResizePoint, record.m_leftResizePoint);
  std::swap(record.m_innerTopLeft, record.m_innerTopRight);
  std::swap(record.m_innerBottomLeft, record.m_innerBottomRight);
}

std::vector<wxPoint2DDouble> GetCorners(AnnShapePoints const &record,
                                        wxPoint2DDouble const &offset) {
  return Shifted({record.m_topLeft, record.m_topRight, record.m_bottomRight, record.m_bottomLeft},
                 offset);
}

std::vector<wxPoint2DDouble> GetInnerCorners(AnnShapePoints const &record,
                                             wxPoint2DDouble const &offset) {
  return Shifted({record.m_innerTopLeft, record.m_innerTopRight, record.m_innerBottomRight,
                  record.m_innerBottomLeft},
                 offset);
}

std::vector<wxPoint2DDouble> GetResizePoints(AnnShapePoints const &record,
                                             wxPoint2DDouble const &offset) {
  return Shifted({record.m_topLeft, record.m_topRight, record.m_bottomRight, record.m_bottomLeft,
                  record.m_topResizePoint, record.m_rightResizePoint, record.m_bottomResizePoint,
                  record.m_leftResizePoint},
                 offset);
}

wxSize GetSize(AnnShapePoints const &record) {
  return {TruncateToInt(record.m_topLeft.GetDistance(record.m_topRight)),
          TruncateToInt(record.m_topLeft.GetDistance(record.m_bottomLeft))};
}

bool IsFillCoveredByBorder(AnnShapePoints const &record, int thickness) {
  double const halfWidth = record.m_topLeft.GetDistance(record.m_topRight) / 2.0;
  double const halfHeight = record.m_topLeft.GetDistance(record.m_bottomLeft) / 2.0;
  return !(thickness < halfWidth && thickness < halfHeight);
}

wxRect BoundsOf(AnnShapePoints const &record) {
  wxPoint const topLeft = RoundToPixel(record.m_topLeft);
  wxPoint const topRight = RoundToPixel(record.m_topRight);
  wxPoint const bottomRight = RoundToPixel(record.m_bottomRight);
  wxPoint const bottomLeft = RoundToPixel(record.m_bottomLeft);
  // Plain sums rather than Union, which would leave out empty rectangles.
  return wxRect(bottomLeft, topRight) + wxRect(topLeft, bottomRight);
}

}  // namespace framenote
