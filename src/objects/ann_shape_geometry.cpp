// SPDX-License-Identifier: MIT
#include <cstdlib>

#include "coordinates/pixel_geometry.h"
#include "modes/ann_shape_tool_mode.h"
#include "objects/ann_shape.h"
#include "objects/recorded_object_impl.h"
#include "objects/shape_geometry.h"

bool AnnShape::IsPoint(AnnShapePoints const &record) const {
  return framenote::IsPoint(record);
}

bool AnnShape::IsXLine(AnnShapePoints const &record) const {
  return framenote::IsXLine(record);
}

bool AnnShape::IsYLine(AnnShapePoints const &record) const {
  return framenote::IsYLine(record);
}

bool AnnShape::IsLine(AnnShapePoints const &record) const {
  return IsXLine(record) || IsYLine(record);
}

bool AnnShape::IsReflected(AnnShapePoints const &record) const {
  return framenote::IsReflected(record);
}

bool AnnShape::IsRotatedByReflection(AnnShapePoints const &record) const {
  wxPoint2DDouble const &top = record.m_topLeft;
  wxPoint2DDouble const &bottom = record.m_bottomLeft;
  return (top - bottom).GetDotProduct(m_rememberedTopLeft - bottom) < 0.0 ||
         (bottom - top).GetDotProduct(m_rememberedBottomLeft - top) < 0.0;
}

bool AnnShape::IsFillCoveredByBorder(AnnShapePoints const &record) const {
  return framenote::IsFillCoveredByBorder(record, m_properties.GetThickness());
}

wxSize AnnShape::GetSize(AnnShapePoints const &record) const {
  return framenote::GetSize(record);
}

std::vector<wxPoint2DDouble> AnnShape::GetCorners(AnnShapePoints const &record,
                                                  wxPoint2DDouble const &offset) const {
  return framenote::GetCorners(record, offset);
}

std::vector<wxPoint2DDouble> AnnShape::GetInnerCorners(AnnShapePoints const &record,
                                                       wxPoint2DDouble const &offset) const {
  return framenote::GetInnerCorners(record, offset);
}

std::vector<wxPoint2DDouble> AnnShape::GetResizePoints(AnnShapePoints const &record,
                                                       wxPoint2DDouble const &offset) const {
  return framenote::GetResizePoints(record, offset);
}

void AnnShape::FindResizePoints(AnnShapePoints &record) const {
  framenote::FindResizePoints(record);
}

double AnnShape::rotationArm() const {
  return m_rotationArmLength / framenote::UsableScale(m_toolMode->GetToolScale());
}

void AnnShape::FindRotationPoint(AnnShapePoints &record, bool reflected) const {
  framenote::FindRotationPoint(record, reflected, rotationArm());
}

void AnnShape::CalculateInnerCoordinates(int thickness, AnnShapePoints &record,
                                         bool reflected) const {
  framenote::CalculateInnerCoordinates(thickness, record, reflected);
}

void AnnShape::settleAfterEdit(AnnShapePoints &record) const {
  // Corners as far out as a document may have them overflow in sums and lengths.
  for (auto const corner : {&AnnShapePoints::m_topLeft, &AnnShapePoints::m_topRight,
                            &AnnShapePoints::m_bottomRight, &AnnShapePoints::m_bottomLeft}) {
    record.*corner = framenote::MakeFinite(record.*corner);
  }
  FindResizePoints(record);
  FindRotationPoint(record, false);
  CalculateInnerCoordinates(m_properties.GetThickness(), record, false);
}

double AnnShape::getAngleFromPosition(AnnShapePoints const &record) const {
  double const angle =
      (record.m_topRight - record.m_topLeft).GetVectorAngle() * framenote::kPi / 180.0;
  if (!IsReflected(record)) return angle;
  return IsRotatedByReflection(record) ? angle + framenote::kPi : angle - framenote::kPi;
}

void AnnShape::UpdateRotationState(double angle) {
  // Octants, the first centred on -pi; each moves the cursors by one place.
  constexpr double kOctant = framenote::kPi / 4.0;
  constexpr double kFirstOctant = 9.0 * framenote::kPi / 8.0;
  m_rotationAngle = angle;
  m_rotationState = framenote::TruncateToInt((angle + kFirstOctant) / kOctant) % 4;
}

void AnnShape::UpdateCoordinatesPointers(std::int64_t frame) {
  RecordedObject::UpdateCoordinatesPointers(frame);
  if (AreCoordinatesEmpty(frame)) return;
  // Only the corners are saved, so each frame's angle is derived from them.
  deriveCurrentRecord(
      [this](AnnShapePoints &record) { UpdateRotationState(getAngleFromPosition(record)); });
}

void AnnShape::findContainingRect() {
  m_containingRect =
      sumOverRuns([](AnnShapePoints const &record) { return framenote::BoundsOf(record); });
  if (m_containingRect != wxRect()) {
    m_containingRect.SetBottomRight(m_containingRect.GetBottomRight() - wxPoint(1, 1));
  }
}

wxRect AnnShape::GetContainingRect(std::int64_t) const {
  auto const record = currentRecord();
  if (!record) return {};
  wxRect rect = framenote::BoundsOf(*record);
  rect.SetBottomRight(rect.GetBottomRight() - wxPoint(1, 1));
  return rect;
}

wxRect AnnShape::GetRectOrSquare(wxPoint const &first, wxPoint const &second, bool square) {
  if (!square) return wxRect(first, second);
  int dx = second.x - first.x;
  int dy = second.y - first.y;
  bool const opposite = (dx < 0 && dy > 0) || (dx > 0 && dy < 0);
  if (std::abs(dx) < std::abs(dy)) {
    dy = opposite ? -dx : dx;
  } else {
    dx = opposite ? -dy : dy;
  }
  return wxRect(first, wxPoint(first.x + dx, first.y + dy));
}
