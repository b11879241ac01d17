// SPDX-License-Identifier: MIT
#include "coordinates/ann_pencil_coordinates.h"

#include "coordinates/coordinate_runs.h"
#include "coordinates/pixel_geometry.h"
#include "talbase/json_conversions.h"

namespace {

std::vector<wxPoint2DInt> MakePath(wxPoint2DInt const &start,
                                   std::vector<wxPoint2DInt> const &pathDiffs) {
  std::vector<wxPoint2DInt> path;
  path.reserve(pathDiffs.size());
  for (wxPoint2DInt const &diff : pathDiffs) path.push_back(framenote::AddPixels(start, diff));
  return path;
}

}  // namespace

AnnPencilCoordinates::AnnPencilCoordinates(std::int64_t frameCount, std::int64_t frame,
                                           std::vector<wxPoint2DInt> const &points)
    : IAnnotationCoordinates(frameCount, frame) {
  AnnPencilPoints &record = CoordsEditable();
  record.m_path = points;
  record.m_updatedInJson = false;
  AnnPencilCoordinates::UpdateJSONValCoordinates(frame, frame);
}

AnnPencilCoordinates::AnnPencilCoordinates(wxJSONValue const &json, std::int64_t frameCount,
                                           std::vector<wxPoint2DInt> const &pathDiffs)
    : IAnnotationCoordinates(json, frameCount) {
  initFromJSONVal(pathDiffs);
}

AnnPencilCoordinates::~AnnPencilCoordinates() = default;

void AnnPencilCoordinates::SetCoordinatesNotUpdatedInJson() {
  IAnnotationCoordinates::SetCoordinatesNotUpdatedInJson();
  CoordsEditable().m_updatedInJson = false;
}

void AnnPencilCoordinates::UpdateJSONValCoordinates(std::int64_t first, std::int64_t last) {
  updateJSONVal(first, last, framenote::CurrentFragment);
}

void AnnPencilCoordinates::initFromJSONVal(std::vector<wxPoint2DInt> const &pathDiffs) {
  std::lock_guard<std::mutex> const lock(m_mutex);
  auto const length = static_cast<std::int64_t>(pathDiffs.size());
  // Every run has a path of its own, so a document could ask for the product of both numbers.
  std::int64_t budget = framenote::kMaxPathPoints;
  readRuns(m_jsonVal, [&](wxJSONValue const &element) -> std::shared_ptr<AnnPencilPoints> {
    if (length > budget) return nullptr;
    budget -= length;
    auto record = std::make_shared<AnnPencilPoints>();
    record->m_json = element;
    auto const start = FromJson<wxPoint2DInt>(element.ItemAt("StartPoint"));
    record->m_path = MakePath(framenote::ClampToPixels(start), pathDiffs);
    return record;
  });
}
