// SPDX-License-Identifier: MIT
#include "coordinates/ann_magnify_coordinates.h"

#include "talbase/json_conversions.h"

AnnMagnifyCoordinates::AnnMagnifyCoordinates(std::int64_t frameCount, std::int64_t frame)
    : IAnnotationCoordinates(frameCount, frame) {
  Clear();
  AnnMagnifyCoordinates::UpdateJSONValCoordinates(frame, frame);
}

AnnMagnifyCoordinates::AnnMagnifyCoordinates(wxJSONValue const &json, std::int64_t frameCount)
    : IAnnotationCoordinates(json, frameCount) {
  initFromJSONVal();
}

AnnMagnifyCoordinates::~AnnMagnifyCoordinates() = default;

void AnnMagnifyCoordinates::Clear() {
  for (auto &entry : m_coordsVec) entry.reset();
  m_recentlyUpdatedFrame = -1;
  m_jsonUpToDate = false;
}

void AnnMagnifyCoordinates::SetCoordinatesNotUpdatedInJson() {
  IAnnotationCoordinates::SetCoordinatesNotUpdatedInJson();
  CoordsEditable().m_updatedInJson = false;
}

void AnnMagnifyCoordinates::UpdateJSONValCoordinates(std::int64_t first, std::int64_t last) {
  updateJSONVal(first, last, framenote::CurrentFragment);
}

void AnnMagnifyCoordinates::initFromJSONVal() {
  std::lock_guard<std::mutex> const lock(m_mutex);
  readRuns(m_jsonVal, [](wxJSONValue const &element) {
    auto record = std::make_shared<AnnMagnifyPoints>();
    record->m_json = element;
    record->m_centerPoint = FromJson<wxPoint2DDouble>(element.ItemAt("CenterPoint"));
    return record;
  });
}
