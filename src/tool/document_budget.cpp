// SPDX-License-Identifier: MIT
#include "tool/document_budget.h"

#include <algorithm>

#include "coordinates/coordinate_runs.h"
#include "objects/ann_magnify.h"
#include "objects/ann_pencil.h"
#include "objects/ann_text.h"
#include "objects/annotation_object.h"
#include "talbase/json_value.h"

namespace framenote {

namespace {

/// How far all objects of a document together may make their stores longer than the media. To fill
/// and to clear so many entries takes a tenth of a second.
constexpr std::int64_t kMaxExtraFramesOfDocument = std::int64_t{1} << 23;
/// Points of all strokes of a document, in all their runs.
constexpr std::int64_t kMaxPathPointsOfDocument = std::int64_t{1} << 26;

/// The runs of an object; those of a kind with a box are its rectangle's.
wxJSONValue RunsOf(wxJSONValue const &element) {
  bool const hasRectangle = element.HasMember(AnnText::rectangleKey);
  wxJSONValue const &geometry = hasRectangle ? element.ItemAt(AnnText::rectangleKey) : element;
  return geometry.ItemAt(IAnnotationObject::coordinatesKey);
}

/// In both stores: a lens has one of its own for what it shows.
std::int64_t ExtraFramesOf(wxJSONValue const &element, std::int64_t frameCount) {
  constexpr std::int64_t kTooMany = kMaxExtraFrames + 1;
  wxJSONValue const centres = element.ItemAt(AnnMagnify::coordinatesCenterPointKey);
  return std::min(CountExtraFrames(RunsOf(element), frameCount), kTooMany) +
         std::min(CountExtraFrames(centres, frameCount), kTooMany);
}

std::int64_t PathPointsOf(wxJSONValue const &element) {
  std::int64_t const points = element.ItemAt(AnnPencil::pathDiffsKey).Size();
  return points * CountRuns(RunsOf(element));
}

}  // namespace

bool DocumentBudget::HasRoomFor(wxJSONValue const &element) const {
  std::int64_t const extraFrames = ExtraFramesOf(element, m_frameCount);
  return extraFrames <= kMaxExtraFrames &&
         m_extraFrames + extraFrames <= kMaxExtraFramesOfDocument &&
         m_pathPoints + PathPointsOf(element) <= kMaxPathPointsOfDocument;
}

void DocumentBudget::Spend(wxJSONValue const &element) {
  m_extraFrames += ExtraFramesOf(element, m_frameCount);
  m_pathPoints += PathPointsOf(element);
}

}  // namespace framenote
