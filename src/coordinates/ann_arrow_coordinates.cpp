// SPDX-License-Identifier: MIT
#include "coordinates/ann_arrow_coordinates.h"

#include "coordinates/pixel_geometry.h"
#include "talbase/json_conversions.h"

namespace {

wxPoint2DInt ReadEnd(wxJSONValue const &element, char const *key) {
  return framenote::ClampToPixels(FromJson<wxPoint2DInt>(element.ItemAt(key)));
}

}  // namespace

AnnArrowCoordinates::AnnArrowCoordinates(std::int64_t frameCount, std::int64_t frame,
                                         wxPoint2DInt const &head, wxPoint2DInt const &tail)
    : IAnnotationCoordinates(frameCount, frame) {
  AnnArrowPoints &record = CoordsEditable();
  record.m_head = head;
  record.m_tail = tail;
  record.m_updatedInJson = false;
  AnnArrowCoordinates::UpdateJSONValCoordinates(frame, frame);
}

AnnArrowCoordinates::AnnArrowCoordinates(wxJSONValue const &json, std::int64_t frameCount,
                                         std::function<void(AnnArrowPoints &)> const &callback)
    : IAnnotationCoordinates(json, frameCount) {
  initFromJSONVal(callback);
}

AnnArrowCoordinates::~AnnArrowCoordinates() = default;

void AnnArrowCoordinates::SetCoordinatesNotUpdatedInJson() {
  IAnnotationCoordinates::SetCoordinatesNotUpdatedInJson();
  CoordsEditable().m_updatedInJson = false;
}

void AnnArrowCoordinates::UpdateJSONValCoordinates(std::int64_t first, std::int64_t last) {
  updateJSONVal(first, last, framenote::CurrentFragment);
}

void AnnArrowCoordinates::initFromJSONVal(std::function<void(AnnArrowPoints &)> const &callback) {
  std::lock_guard<std::mutex> const lock(m_mutex);
  readRuns(m_jsonVal, [&](wxJSONValue const &element) {
    auto record = std::make_shared<AnnArrowPoints>();
    record->m_json = element;
    record->m_head = ReadEnd(element, "Head");
    record->m_tail = ReadEnd(element, "Tail");
    if (callback) callback(*record);
    return record;
  });
}
