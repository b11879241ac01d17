// SPDX-License-Identifier: MIT
#include "coordinates/ann_image_coordinates.h"

#include <cstddef>

#include "coordinates/ann_shape_coordinates.h"

AnnImageCoordinates::AnnImageCoordinates(std::int64_t frameCount, std::int64_t frame,
                                         AnnShapeCoordinates &shape)
    : IAnnotationCoordinates(frameCount, frame), m_shapeCoordinates(shape) {
  AnnImageCoordinates::UpdateJSONValCoordinates(frame, frame);
}

AnnImageCoordinates::AnnImageCoordinates(wxJSONValue const &json, std::int64_t frameCount,
                                         AnnShapeCoordinates &shape)
    : IAnnotationCoordinates(json, frameCount), m_shapeCoordinates(shape) {
  initFromJSONVal();
}

AnnImageCoordinates::AnnImageCoordinates(AnnImageCoordinates const &other,
                                         AnnShapeCoordinates &shape)
    : IAnnotationCoordinates(other), m_shapeCoordinates(shape) {}

AnnImageCoordinates::~AnnImageCoordinates() = default;

void AnnImageCoordinates::UpdateJSONValCoordinates(std::int64_t first, std::int64_t last) {
  std::lock_guard<std::mutex> const shapeLock(m_shapeCoordinates.GetMutex());
  std::lock_guard<std::mutex> const lock(m_mutex);
  // The shape store writes its array without the flag, and its edits do not mark this store.
  if (m_jsonUpToDate && m_shapeCoordinates.ToJSON().IsSameAs(m_jsonVal)) return;
  rebuildJSONVal(first, last, [this](std::int64_t frame) { return partsAt(frame); });
  m_shapeCoordinates.JsonVal() = m_jsonVal;
}

void AnnImageCoordinates::initFromJSONVal() {
  std::lock_guard<std::mutex> const shapeLock(m_shapeCoordinates.GetMutex());
  std::lock_guard<std::mutex> const lock(m_mutex);
  readRuns(m_shapeCoordinates.ToJSON(), [](wxJSONValue const &element) {
    auto record = std::make_shared<AnnImagePoints>();
    record->m_mirrored = element.Get("Mirrored", false).AsBool();
    return record;
  });
}

AnnImageCoordinates::RunParts AnnImageCoordinates::partsAt(std::int64_t frame) const {
  auto const &shapes = m_shapeCoordinates.CoordsVec();
  if (m_shapeCoordinates.AreCoordinatesEmpty(frame)) {
    return {wxJSONValue(wxJSONTYPE_INVALID), {}};
  }
  AnnImagePoints const *image = recordAt(frame);
  return {framenote::CurrentFragment(*shapes[static_cast<std::size_t>(frame)]),
          image && image->m_mirrored};
}
