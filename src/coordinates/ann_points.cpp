// SPDX-License-Identifier: MIT
#include "coordinates/ann_points.h"

#include "coordinates/pixel_geometry.h"
#include "talbase/json_conversions.h"

namespace framenote {
namespace {

void Move(wxPoint2DDouble &point, wxPoint2DInt const &delta) {
  point = wxPoint2DDouble(point.m_x + delta.m_x, point.m_y + delta.m_y);
}

void Move(wxPoint2DInt &point, wxPoint2DInt const &delta) {
  point = AddPixels(point, delta);
}

template <class... Points>
void MoveAll(wxPoint2DInt const &delta, Points &...points) {
  (Move(points, delta), ...);
}

void WriteKeys(AnnShapePoints const &record, wxJSONValue &fragment) {
  fragment.Set("TopLeft", ToJson(record.m_topLeft));
  fragment.Set("TopRight", ToJson(record.m_topRight));
  fragment.Set("BottomRight", ToJson(record.m_bottomRight));
  fragment.Set("BottomLeft", ToJson(record.m_bottomLeft));
}

void WriteKeys(AnnArrowPoints const &record, wxJSONValue &fragment) {
  fragment.Set("Head", ToJson(record.m_head));
  fragment.Set("Tail", ToJson(record.m_tail));
}

void WriteKeys(AnnPencilPoints const &record, wxJSONValue &fragment) {
  if (!record.m_path.empty()) fragment.Set("StartPoint", ToJson(record.m_path.front()));
}

void WriteKeys(AnnMagnifyPoints const &record, wxJSONValue &fragment) {
  fragment.Set("CenterPoint", ToJson(record.m_centerPoint));
}

template <class T>
wxJSONValue const &WriteIfStale(T &record) {
  if (!record.m_updatedInJson) {
    WriteKeys(record, record.m_json);
    record.m_updatedInJson = true;
  }
  return record.m_json;
}

}  // namespace

void MoveRecord(AnnShapePoints &record, wxPoint2DInt const &delta) {
  MoveAll(delta, record.m_topLeft, record.m_topRight, record.m_bottomRight, record.m_bottomLeft,
          record.m_topResizePoint, record.m_rightResizePoint, record.m_bottomResizePoint,
          record.m_leftResizePoint, record.m_rotationPoint, record.m_innerTopLeft,
          record.m_innerTopRight, record.m_innerBottomRight, record.m_innerBottomLeft);
}

void MoveRecord(AnnArrowPoints &record, wxPoint2DInt const &delta) {
  MoveAll(delta, record.m_head, record.m_tail, record.m_bodyTailLeft, record.m_bodyHeadLeft,
          record.m_bodyHeadRight, record.m_bodyTailRight, record.m_headBase, record.m_headWingLeft,
          record.m_headWingRight);
}

void MoveRecord(AnnPencilPoints &record, wxPoint2DInt const &delta) {
  for (auto &point : record.m_path) Move(point, delta);
}

// A mirrored flag has no place, so there is nothing to move.
void MoveRecord(AnnImagePoints &, wxPoint2DInt const &) {}

void MoveRecord(AnnMagnifyPoints &record, wxPoint2DInt const &delta) {
  Move(record.m_centerPoint, delta);
}

wxJSONValue const &CurrentFragment(AnnShapePoints &record) {
  return WriteIfStale(record);
}
wxJSONValue const &CurrentFragment(AnnArrowPoints &record) {
  return WriteIfStale(record);
}
wxJSONValue const &CurrentFragment(AnnPencilPoints &record) {
  return WriteIfStale(record);
}
wxJSONValue const &CurrentFragment(AnnMagnifyPoints &record) {
  return WriteIfStale(record);
}

}  // namespace framenote
