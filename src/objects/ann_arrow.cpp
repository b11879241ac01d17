// SPDX-License-Identifier: MIT
#include "objects/ann_arrow.h"

#include <algorithm>

#include "modes/ann_arrow_tool_mode.h"
#include "modes/ann_shape_tool_mode.h"
#include "objects/ann_shape.h"
#include "objects/arrow_geometry.h"
#include "objects/object_painting.h"
#include "objects/recorded_object_impl.h"
#include "painters/ann_painter.h"

template class framenote::RecordedObject<AnnArrow, AnnArrowToolMode, AnnArrowProperties,
                                         AnnArrowCoordinates>;

namespace {

/// Picture pixels within which an end is hit at any zoom.
constexpr double kLeastTolerance = 0.5;
/// An arrow up to this length, in thicknesses, is all head.
constexpr double kHeadOnlyLength = 3.0;

}  // namespace

AnnArrow::AnnArrow(std::shared_ptr<AnnArrowToolMode> const &mode, wxPoint2DInt const &head,
                   wxPoint2DInt const &tail, std::int64_t frame)
    : RecordedObject(mode, frame, [&](std::int64_t frameCount, AnnArrowProperties const &) {
        return AnnArrowCoordinates(frameCount, frame, framenote::ClampToPixels(head),
                                   framenote::ClampToPixels(tail));
      }) {
  deriveCurrentRecord([this](AnnArrowPoints &record) { FindHeadAndBody(record); });
  initJSONValOfNewObject();
}

AnnArrow::AnnArrow(std::shared_ptr<AnnArrowToolMode> const &mode, wxJSONValue const &json)
    : RecordedObject(mode, json, [&](std::int64_t frameCount, AnnArrowProperties const &look) {
        auto const derive = [&look](AnnArrowPoints &record) {
          framenote::FindArrowHead(record, look);
          framenote::FindArrowBody(record, look);
        };
        return AnnArrowCoordinates(json.ItemAt(coordinatesKey), frameCount, derive);
      }) {}

AnnArrow::AnnArrow(AnnArrow const &other) = default;
AnnArrow::~AnnArrow() = default;

bool AnnArrow::IsJSONValid(wxJSONValue const &json) {
  return AnnShape::IsJSONValid(json);
}

void AnnArrow::initFromJSONVal() {}

void AnnArrow::PrepareResizing() {}

bool AnnArrow::IsAtRotationPoint(wxPoint2DInt const &) {
  return false;
}

void AnnArrow::FindHead(AnnArrowPoints &record) const {
  framenote::FindArrowHead(record, m_properties);
}

void AnnArrow::FindBody(AnnArrowPoints &record) const {
  framenote::FindArrowBody(record, m_properties);
}

void AnnArrow::FindHeadAndBody(AnnArrowPoints &record) const {
  FindHead(record);
  FindBody(record);
}

std::vector<wxPoint2DDouble> AnnArrow::GetHeadPoints(AnnArrowPoints const &record,
                                                     wxPoint2DDouble const &offset) const {
  return {record.m_headWingLeft + offset, wxPoint2DDouble(record.m_head) + offset,
          record.m_headWingRight + offset};
}

std::vector<wxPoint2DDouble> AnnArrow::GetBodyPoints(AnnArrowPoints const &record,
                                                     wxPoint2DDouble const &offset) const {
  wxPoint2DDouble const tail(record.m_tail);
  double const thickness = framenote::UsableThickness(m_properties.GetThickness());
  if (wxPoint2DDouble(record.m_head).GetDistance(tail) <= kHeadOnlyLength * thickness) return {};
  wxPoint2DDouble end = record.m_headBase;
  // One pixel under the head, so that no seam shows.
  if (m_properties.GetHead() == AnnArrowProperties::Arrow) {
    end += framenote::WithLength(record.m_headBase - tail, 1.0);
  }
  return {tail + offset, end + offset};
}

void AnnArrow::Draw(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset) const {
  auto const record = currentRecord();
  if (!painter || !record) return;
  wxPoint2DDouble const shift = framenote::PaintingOffset(painter, offset);
  painter->DrawArrow(GetBodyPoints(*record, shift), GetHeadPoints(*record, shift), m_properties);
}

void AnnArrow::DrawFocused(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset,
                           double scale) const {
  drawEnds(painter, offset, scale, m_outlineFocused);
}

void AnnArrow::DrawSelected(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset,
                            double scale) const {
  drawEnds(painter, offset, scale, m_outlineSelected);
}

void AnnArrow::drawEnds(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset,
                        double scale, bool selected) const {
  auto const record = currentRecord();
  if (!painter || !record) return;
  framenote::DrawEndMarkers(painter, wxPoint2DDouble(record->m_head),
                            wxPoint2DDouble(record->m_tail), offset, scale, selected);
}

bool AnnArrow::Contains(wxPoint2DInt const &point) const {
  auto const record = currentRecord();
  if (!record) return false;
  if (record->m_head == record->m_tail) return point == record->m_head;
  wxPoint const pixel(point.m_x, point.m_y);
  if (framenote::QuadrilateralContains(
          pixel, GetRounded(record->m_bodyTailLeft), GetRounded(record->m_bodyHeadLeft),
          GetRounded(record->m_bodyHeadRight), GetRounded(record->m_bodyTailRight))) {
    return true;
  }
  if (m_properties.GetHead() != AnnArrowProperties::Arrow) return false;
  return framenote::TriangleContains(pixel, wxPoint(record->m_head.m_x, record->m_head.m_y),
                                     GetRounded(record->m_headWingLeft),
                                     GetRounded(record->m_headWingRight));
}

bool AnnArrow::IsAtResizePoint(wxPoint2DInt const &point, wxStockCursor &cursor) {
  m_activeHandle = 0;
  auto const record = currentRecord();
  if (!record) return false;
  double const tolerance = handleTolerance(kLeastTolerance);
  wxPoint2DDouble const pointer(point);
  wxPoint2DDouble const head(record->m_head);
  wxPoint2DDouble const tail(record->m_tail);
  if (pointer.GetDistance(head) <= tolerance) {
    m_activeHandle = m_headHandle;
  } else if (pointer.GetDistance(tail) <= tolerance) {
    m_activeHandle = m_tailHandle;
  } else {
    return false;
  }
  double const angle = (head - tail).GetVectorAngle();
  bool const falling = (0.0 <= angle && angle < 90.0) || (180.0 <= angle && angle < 270.0);
  cursor = falling ? wxCURSOR_SIZENWSE : wxCURSOR_SIZENESW;
  return true;
}

void AnnArrow::ModifyTo(wxPoint2DInt const &position) {
  editCurrentFrame([&](AnnArrowPoints &record) {
    wxPoint2DInt const end = framenote::ClampToPixels(position);
    if (m_activeHandle == m_headHandle) record.m_head = end;
    if (m_activeHandle == m_tailHandle) record.m_tail = end;
    FindHeadAndBody(record);
  });
}

void AnnArrow::findContainingRect() {
  m_containingRect =
      sumOverRuns([](AnnArrowPoints const &record) { return framenote::BoundsOf(record); });
  if (m_containingRect != wxRect()) {
    m_containingRect.SetBottomRight(m_containingRect.GetBottomRight() - wxPoint(1, 1));
  }
}

bool AnnArrow::WouldDisappear() const {
  auto const record = currentRecord();
  return !record || record->m_head == record->m_tail;
}

wxColour AnnArrow::GetDominantColor() {
  return m_properties.GetColor();
}

wxPoint2DInt AnnArrow::GetPastePoint() {
  std::lock_guard<std::mutex> const lock(m_coordinates.GetMutex());
  return m_coordinates.CoordsAt(m_toolMode->GetToolCurrentFrame()).m_head;
}

void AnnArrow::UpdateProperties() {
  RecordedObject::UpdateProperties();
  // Only the current frame's record: others keep their cached points until an edit reaches them.
  deriveCurrentRecord([this](AnnArrowPoints &record) { FindHeadAndBody(record); });
  m_containingRectValid = false;
}
