// SPDX-License-Identifier: MIT
#include "objects/ann_pencil.h"

#include <algorithm>
#include <cmath>

#include "modes/ann_pencil_tool_mode.h"
#include "objects/object_painting.h"
#include "objects/recorded_object_impl.h"
#include "painters/ann_painter.h"
#include "talbase/json_conversions.h"

template class framenote::RecordedObject<AnnPencil, AnnPencilToolMode, AnnPencilProperties,
                                         AnnPencilCoordinates>;

namespace {

wxPoint ToPixel(wxPoint2DInt const &point) {
  return {point.m_x, point.m_y};
}

std::vector<wxPoint2DInt> Clamped(std::vector<wxPoint2DInt> points) {
  for (wxPoint2DInt &point : points) point = framenote::ClampToPixels(point);
  return points;
}

std::vector<wxPoint2DInt> DiffsOf(std::vector<wxPoint2DInt> points) {
  if (points.empty()) return points;
  wxPoint2DInt const first = points.front();
  for (wxPoint2DInt &point : points) point = framenote::SubtractPixels(point, first);
  return points;
}

/// Whether `pixel` lies on the segment from `a` to `b` drawn `radius` wide to each side.
bool SegmentContains(wxPoint const &pixel, wxPoint2DInt const &a, wxPoint2DInt const &b,
                     double radius) {
  using framenote::RoundToPixel;
  wxPoint2DDouble const from(a);
  wxPoint2DDouble const to(b);
  wxPoint2DDouble const w = framenote::WithLength(framenote::Turned(to - from, -90.0), radius);
  return framenote::QuadrilateralContains(pixel, RoundToPixel(from + w), RoundToPixel(to + w),
                                          RoundToPixel(to - w), RoundToPixel(from - w));
}

}  // namespace

AnnPencil::AnnPencil(std::shared_ptr<AnnPencilToolMode> const &mode,
                     std::vector<wxPoint2DInt> const &points, std::int64_t frame)
    : RecordedObject(mode, frame,
                     [&](std::int64_t frameCount, AnnPencilProperties const &) {
                       return AnnPencilCoordinates(frameCount, frame, Clamped(points));
                     }),
      m_pathDiffs(DiffsOf(Clamped(points))) {
  setJSONValCoordinates();
  m_jsonVal.Set(pathDiffsKey, ToJson(m_pathDiffs));
  initJSONValOfNewObject();
}

AnnPencil::AnnPencil(std::shared_ptr<AnnPencilToolMode> const &mode, wxJSONValue const &json)
    : RecordedObject(
          mode, json,
          [&](std::int64_t frameCount, AnnPencilProperties const &) {
            auto const diffs = FromJson<std::vector<wxPoint2DInt>>(json.ItemAt(pathDiffsKey));
            return AnnPencilCoordinates(json.ItemAt(coordinatesKey), frameCount, Clamped(diffs));
          }),
      m_pathDiffs(Clamped(FromJson<std::vector<wxPoint2DInt>>(json.ItemAt(pathDiffsKey)))) {}

AnnPencil::AnnPencil(AnnPencil const &other) = default;
AnnPencil::~AnnPencil() = default;

bool AnnPencil::IsJSONValid(wxJSONValue const &json) {
  return json.IsValid() && json.HasMember(pathDiffsKey) && json.HasMember(coordinatesKey) &&
         json.ItemAt(coordinatesKey).IsValid();
}

void AnnPencil::initFromJSONVal() {}

void AnnPencil::PrepareResizing() {}

bool AnnPencil::IsAtResizePoint(wxPoint2DInt const &, wxStockCursor &) {
  return false;
}

bool AnnPencil::IsAtRotationPoint(wxPoint2DInt const &) {
  return false;
}

bool AnnPencil::WouldDisappear() const {
  return false;
}

wxColour AnnPencil::GetDominantColor() {
  return m_properties.GetColor();
}

std::vector<wxPoint2DDouble> AnnPencil::GetPath(AnnPencilPoints const &record,
                                                wxPoint2DDouble const &offset) const {
  std::vector<wxPoint2DDouble> path;
  path.reserve(record.m_path.size());
  for (wxPoint2DInt const &point : record.m_path) path.push_back(wxPoint2DDouble(point) + offset);
  return path;
}

void AnnPencil::Draw(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset) const {
  auto const record = currentRecord();
  if (!painter || !record) return;
  painter->DrawLines(GetPath(*record, framenote::PaintingOffset(painter, offset)),
                     m_properties.GetColor(), m_properties.GetThickness());
}

void AnnPencil::DrawFocused(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset,
                            double scale) const {
  drawEnds(painter, offset, scale, m_outlineFocused);
}

void AnnPencil::DrawSelected(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset,
                             double scale) const {
  drawEnds(painter, offset, scale, m_outlineSelected);
}

void AnnPencil::drawEnds(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset,
                         double scale, bool selected) const {
  auto const record = currentRecord();
  if (!painter || !record || record->m_path.empty()) return;
  framenote::DrawEndMarkers(painter, wxPoint2DDouble(record->m_path.front()),
                            wxPoint2DDouble(record->m_path.back()), offset, scale, selected);
}

bool AnnPencil::Contains(wxPoint2DInt const &point) const {
  std::lock_guard<std::mutex> const lock(m_coordinates.GetMutex());
  std::vector<wxPoint2DInt> const &path = m_coordinates.Coords().m_path;
  if (path.empty()) return false;
  double const radius =
      std::max(framenote::UsableThickness(m_properties.GetThickness()) * 0.5, 1.0);
  wxPoint2DDouble const pointer(point);
  if (pointer.GetDistance(wxPoint2DDouble(path.front())) <= radius ||
      pointer.GetDistance(wxPoint2DDouble(path.back())) <= radius) {
    return true;
  }
  // The last segment is left out: it is hit at the stroke's last point alone.
  for (std::size_t i = 1; i + 1 < path.size(); ++i) {
    if (SegmentContains(ToPixel(point), path[i - 1], path[i], radius)) return true;
  }
  return false;
}

void AnnPencil::findContainingRect() {
  wxRect bounds;
  {
    std::lock_guard<std::mutex> const lock(m_coordinates.GetMutex());
    // All records have the same form, so the first one is walked and the others only shift it.
    wxRect form;
    wxPoint start;
    bool isFirst = true;
    m_coordinates.ForEachRun(m_startFrame, m_endFrame,
                             [&](std::int64_t, std::int64_t, AnnPencilPoints const &record) {
                               if (record.m_path.empty()) return;
                               wxPoint const first = ToPixel(record.m_path.front());
                               if (isFirst) {
                                 form = wxRect(first, first);
                                 for (wxPoint2DInt const &p : record.m_path)
                                   form = form + wxRect(first, ToPixel(p));
                                 bounds = form;
                                 start = first;
                                 isFirst = false;
                                 return;
                               }
                               wxRect shifted = form;
                               shifted.Offset(first - start);
                               bounds = bounds + shifted;
                             });
  }
  int const thickness = framenote::UsableThickness(m_properties.GetThickness());
  int const margin = std::max(static_cast<int>(std::ceil(thickness * 0.5)), 1);
  bounds.Inflate(margin, margin);
  bounds += wxRect();
  bounds.SetBottomRight(bounds.GetBottomRight() - wxPoint(1, 1));
  m_containingRect = bounds;
}

wxPoint2DInt AnnPencil::GetPastePoint() {
  std::lock_guard<std::mutex> const lock(m_coordinates.GetMutex());
  auto const record = m_coordinates.CoordsAt(m_toolMode->GetToolCurrentFrame());
  return record.m_path.empty() ? wxPoint2DInt() : record.m_path.front();
}

void AnnPencil::UpdateProperties() {
  RecordedObject::UpdateProperties();
  m_containingRectValid = false;
}
