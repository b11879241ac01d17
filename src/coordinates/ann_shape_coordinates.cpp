// SPDX-License-Identifier: MIT
#include "coordinates/ann_shape_coordinates.h"

#include <wx/gdicmn.h>

#include "talbase/json_conversions.h"

namespace {

wxPoint2DDouble ReadCorner(wxJSONValue const &element, char const *key) {
  return FromJson<wxPoint2DDouble>(element.ItemAt(key));
}

}  // namespace

AnnShapeCoordinates::AnnShapeCoordinates(std::int64_t frameCount, std::int64_t frame,
                                         wxRect const &rect)
    : IAnnotationCoordinates(frameCount, frame) {
  // In doubles, as the far side of an extreme rectangle is beyond an int.
  double const left = rect.x;
  double const top = rect.y;
  double const right = left + rect.width - 1.0;
  double const bottom = top + rect.height - 1.0;
  AnnShapePoints &record = CoordsEditable();
  record.m_topLeft = wxPoint2DDouble(left, top);
  record.m_topRight = wxPoint2DDouble(right, top);
  record.m_bottomRight = wxPoint2DDouble(right, bottom);
  record.m_bottomLeft = wxPoint2DDouble(left, bottom);
  record.m_updatedInJson = false;
  AnnShapeCoordinates::UpdateJSONValCoordinates(frame, frame);
}

AnnShapeCoordinates::AnnShapeCoordinates(wxJSONValue const &json, std::int64_t frameCount,
                                         std::function<void(AnnShapePoints &, int)> const &callback,
                                         int thickness)
    : IAnnotationCoordinates(json, frameCount) {
  initFromJSONVal(callback, thickness);
}

AnnShapeCoordinates::~AnnShapeCoordinates() = default;

void AnnShapeCoordinates::SetCoordinatesNotUpdatedInJson() {
  IAnnotationCoordinates::SetCoordinatesNotUpdatedInJson();
  CoordsEditable().m_updatedInJson = false;
}

void AnnShapeCoordinates::UpdateJSONValCoordinates(std::int64_t first, std::int64_t last) {
  updateJSONVal(first, last, framenote::CurrentFragment);
}

void AnnShapeCoordinates::initFromJSONVal(
    std::function<void(AnnShapePoints &, int)> const &callback, int thickness) {
  std::lock_guard<std::mutex> const lock(m_mutex);
  readRuns(m_jsonVal, [&](wxJSONValue const &element) {
    auto record = std::make_shared<AnnShapePoints>();
    record->m_json = element;
    record->m_topLeft = ReadCorner(element, "TopLeft");
    record->m_topRight = ReadCorner(element, "TopRight");
    record->m_bottomRight = ReadCorner(element, "BottomRight");
    record->m_bottomLeft = ReadCorner(element, "BottomLeft");
    if (callback) callback(*record, thickness);
    return record;
  });
}
