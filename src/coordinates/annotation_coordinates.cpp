// SPDX-License-Identifier: MIT
#include "coordinates/annotation_coordinates.h"

#include <cstddef>
#include <cstring>
#include <unordered_map>
#include <unordered_set>

#include "coordinates/ann_points.h"
#include "coordinates/coordinate_runs.h"
#include "talbase/json_conversions.h"
#include "talbase/json_sharing.h"

namespace {

std::size_t ToSize(std::int64_t frames) {
  return static_cast<std::size_t>(std::max<std::int64_t>(frames, 0));
}

}  // namespace

template <class T>
IAnnotationCoordinates<T>::IAnnotationCoordinates(std::int64_t frameCount, std::int64_t frame)
    : m_coordsVec(ToSize(frameCount)) {
  if (!makeOwnRecord(frame)) return;
  m_current = frame;
  m_recentlyUpdatedFrame = frame;
}

template <class T>
IAnnotationCoordinates<T>::IAnnotationCoordinates(wxJSONValue const &json, std::int64_t frameCount)
    : m_coordsVec(ToSize(frameCount)), m_jsonVal(json) {}

template <class T>
IAnnotationCoordinates<T>::IAnnotationCoordinates(IAnnotationCoordinates const &other) {
  std::lock_guard<std::mutex> const lock(other.m_mutex);
  m_coordsVec.resize(other.m_coordsVec.size());
  // An edit in the middle of a run leaves one record on both sides of its frame.
  std::unordered_map<T const *, std::shared_ptr<T>> clones;
  other.ForEachRun(0, size() - 1, [&](std::int64_t from, std::int64_t to, T const &record) {
    if (!other.isSharedOutside(from, to)) return fill(from, to, std::make_shared<T>(record));
    std::shared_ptr<T> &clone = clones[&record];
    if (!clone) clone = std::make_shared<T>(record);
    fill(from, to, clone);
  });
  m_current = other.m_current;
  m_recentlyUpdatedFrame = other.m_recentlyUpdatedFrame;
  m_jsonUpToDate = other.m_jsonUpToDate;
  m_jsonVal = other.m_jsonVal;
}

template <class T>
IAnnotationCoordinates<T>::IAnnotationCoordinates(IAnnotationCoordinates &&other) noexcept {
  std::lock_guard<std::mutex> const lock(other.m_mutex);
  m_coordsVec.swap(other.m_coordsVec);
  m_current = std::exchange(other.m_current, 0);
  m_recentlyUpdatedFrame = std::exchange(other.m_recentlyUpdatedFrame, -1);
  m_jsonUpToDate = std::exchange(other.m_jsonUpToDate, false);
  m_jsonVal = std::exchange(other.m_jsonVal, wxJSONValue());
  m_writtenRuns.swap(other.m_writtenRuns);
}

template <class T>
IAnnotationCoordinates<T>::~IAnnotationCoordinates() = default;

template <class T>
void IAnnotationCoordinates<T>::UpdateCoordinatesPointers(std::int64_t frame) {
  m_current = frame;
}

template <class T>
void IAnnotationCoordinates<T>::AddNewCoordinates(std::int64_t frame) {
  if (!makeOwnRecord(frame)) return;
  UpdateCoordinatesPointers(frame);
  m_recentlyUpdatedFrame = frame;
}

template <class T>
void IAnnotationCoordinates<T>::DuplicateLastCoordinates(std::int64_t frame) {
  std::lock_guard<std::mutex> const lock(m_mutex);
  if (frame == m_recentlyUpdatedFrame || frame < 1 || frame > size()) return;
  if (frame == size()) ResizeCoordsVec(frame + 1);
  m_coordsVec[ToSize(frame)] = m_coordsVec[ToSize(frame - 1)];
  m_jsonUpToDate = false;
}

template <class T>
void IAnnotationCoordinates<T>::UpdateStartEndCoordinates(std::int64_t start, std::int64_t end,
                                                          std::int64_t frame, bool isStart) {
  std::lock_guard<std::mutex> const lock(m_mutex);
  m_jsonUpToDate = false;
  // The other end being pushed along: what there is was moved with the first one.
  if (start > end) return;
  std::int64_t const edge = isStart ? start : end;
  std::int64_t const otherEdge = isStart ? end : start;
  bool const grows = isStart ? frame <= start : end <= frame;
  if (grows) {
    if (!isInside(edge)) return;
    // A copy: the filling runs over the entry itself.
    std::shared_ptr<T> const record = m_coordsVec[ToSize(edge)];
    fill(std::min(edge, frame), std::max(edge, frame), record);
    return;
  }
  bool const leavesAll = isStart ? frame > end : frame < start;
  std::shared_ptr<T> const kept =
      leavesAll && isInside(otherEdge) ? m_coordsVec[ToSize(otherEdge)] : nullptr;
  if (isStart) {
    fill(start, frame - 1, nullptr);
  } else {
    fill(frame + 1, end, nullptr);
  }
  // An object that leaves its whole range must not lose its geometry.
  if (leavesAll) fill(frame, frame, kept);
}

template <class T>
void IAnnotationCoordinates<T>::SetCoordinatesNotUpdatedInJson() {
  m_jsonUpToDate = false;
}

template <class T>
T const &IAnnotationCoordinates<T>::Coords() const {
  static T const none{};
  T const *record = recordAt(m_current);
  return record ? *record : none;
}

template <class T>
T &IAnnotationCoordinates<T>::CoordsEditable() {
  if (T *record = recordAt(m_current)) return *record;
  thread_local T lost;
  lost = T{};
  return lost;
}

template <class T>
T IAnnotationCoordinates<T>::CoordsAt(std::int64_t frame) const {
  T const *record = recordAt(frame);
  return record ? *record : T{};
}

template <class T>
void IAnnotationCoordinates<T>::ResizeCoordsVec(std::int64_t size) {
  m_coordsVec.resize(ToSize(size));
}

template <class T>
void IAnnotationCoordinates<T>::MoveAllCoordsFor(wxPoint2DInt const &delta) {
  std::lock_guard<std::mutex> const lock(m_mutex);
  std::unordered_set<T const *> moved;
  forEachStretch(0, size() - 1, [&](std::int64_t from, std::int64_t to) {
    T *record = recordAt(from);
    if (!record) return;
    // An edit in the middle of a run leaves one record on both sides of its frame.
    if (isSharedOutside(from, to) && !moved.insert(record).second) return;
    framenote::MoveRecord(*record, delta);
  });
  m_jsonUpToDate = false;
}

template <class T>
auto IAnnotationCoordinates<T>::getRanges(std::int64_t first, std::int64_t last) const
    -> std::vector<FrameRange> {
  std::vector<FrameRange> ranges;
  forEachStretch(first, last,
                 [&](std::int64_t from, std::int64_t to) { ranges.emplace_back(from, to); });
  if (ranges.empty()) ranges.emplace_back(first, first);
  return ranges;
}

template <class T>
T *IAnnotationCoordinates<T>::recordAt(std::int64_t frame) const {
  return isInside(frame) ? m_coordsVec[ToSize(frame)].get() : nullptr;
}

template <class T>
bool IAnnotationCoordinates<T>::makeOwnRecord(std::int64_t frame) {
  if (frame < 0) return false;
  T const *record = recordAt(frame);
  // A frame that was emptied since its edit has no record of its own any more.
  if (frame == m_recentlyUpdatedFrame && record) return false;
  auto own = record ? std::make_shared<T>(*record) : std::make_shared<T>();
  if (!isInside(frame)) m_coordsVec.resize(ToSize(frame) + 1);
  m_coordsVec[ToSize(frame)] = std::move(own);
  return true;
}

template <class T>
void IAnnotationCoordinates<T>::updateJSONVal(std::int64_t first, std::int64_t last,
                                              wxJSONValue const &(*fragmentOf)(T &)) {
  std::lock_guard<std::mutex> const lock(m_mutex);
  if (m_jsonUpToDate) return;
  rebuildJSONVal(first, last, [&](std::int64_t frame) -> RunParts {
    T *record = recordAt(frame);
    return {record ? fragmentOf(*record) : wxJSONValue(wxJSONTYPE_INVALID), {}};
  });
}

template <class T>
void IAnnotationCoordinates<T>::rebuildJSONVal(
    std::int64_t first, std::int64_t last, std::function<RunParts(std::int64_t)> const &partsAt) {
  wxJSONValue array(wxJSONTYPE_ARRAY);
  std::vector<WrittenRun> written;
  auto former = m_writtenRuns.begin();
  for (FrameRange const &range : getRanges(first, last)) {
    RunParts parts = partsAt(range.first);
    if (!parts.fragment.IsValid()) continue;
    while (former != m_writtenRuns.end() && former->range < range) ++former;
    if (former != m_writtenRuns.end() && former->IsOf(range, parts)) {
      written.push_back(std::move(*former));
    } else {
      written.push_back({range, parts, elementOf(range, parts)});
    }
    array.Append(written.back().element);
  }
  m_writtenRuns = std::move(written);
  m_jsonVal = std::move(array);
  m_jsonUpToDate = true;
}

template <class T>
bool IAnnotationCoordinates<T>::WrittenRun::IsOf(FrameRange const &otherRange,
                                                 RunParts const &others) const {
  return range == otherRange && parts.mirrored == others.mirrored &&
         framenote::AreShared(parts.fragment, others.fragment);
}

template <class T>
wxJSONValue IAnnotationCoordinates<T>::elementOf(FrameRange const &range, RunParts const &parts) {
  wxJSONValue element = parts.fragment;
  if (parts.mirrored) element.Set("Mirrored", *parts.mirrored);
  wxJSONValue frames = ToJson(std::vector<std::int64_t>{range.first, range.second});
  // A fragment that a document gave has its range; as long as that is right, one element serves.
  if (element.ItemAt(coordinatesRangeKey).IsSameAs(frames)) return element;
  element.Set(coordinatesRangeKey, std::move(frames));
  return element;
}

template <class T>
void IAnnotationCoordinates<T>::readRuns(
    wxJSONValue const &runs,
    std::function<std::shared_ptr<T>(wxJSONValue const &)> const &makeRecord) {
  auto const readable = framenote::ReadRuns(runs, size());
  std::int64_t entries = size();
  for (auto const &run : readable) entries = std::max(entries, run.last + 1);
  // Once for all runs: growing step by step would leave room for twice as many.
  m_coordsVec.reserve(ToSize(entries));
  for (auto const &run : readable) {
    std::shared_ptr<T> const record = makeRecord(runs.ItemAt(run.element));
    if (!record) continue;
    fill(run.first, run.last, record);
    // Entries that are new get the record at once: long runs are filled in one pass.
    if (run.first > size()) ResizeCoordsVec(run.first);
    if (run.last >= size()) m_coordsVec.resize(ToSize(run.last + 1), record);
    m_current = run.last;
  }
  ResizeCoordsVec(entries);
}

template <class T>
void IAnnotationCoordinates<T>::fill(std::int64_t first, std::int64_t last,
                                     std::shared_ptr<T> const &record) {
  last = std::min(last, size() - 1);
  for (auto frame = std::max<std::int64_t>(first, 0); frame <= last; ++frame) {
    m_coordsVec[ToSize(frame)] = record;
  }
}

template <class T>
std::int64_t IAnnotationCoordinates<T>::findRunEnd(std::int64_t first, std::int64_t last) const {
  // The array against itself, one entry on: equal bytes are equal pointers, and most of a long
  // video is compared at the speed of memory. Only the block that differs is walked.
  constexpr std::int64_t kBlock = 4096;
  std::shared_ptr<T> const *entries = m_coordsVec.data();
  while (last - first >= kBlock && std::memcmp(static_cast<void const *>(entries + first),
                                               static_cast<void const *>(entries + first + 1),
                                               sizeof(std::shared_ptr<T>) * kBlock) == 0) {
    first += kBlock;
  }
  while (first < last && entries[first].get() == entries[first + 1].get()) ++first;
  return first;
}

/// Whether the record of this stretch may be that of another one too: somebody else holds it.
template <class T>
bool IAnnotationCoordinates<T>::isSharedOutside(std::int64_t first, std::int64_t last) const {
  return m_coordsVec[ToSize(first)].use_count() != last - first + 1;
}

template class IAnnotationCoordinates<AnnShapePoints>;
template class IAnnotationCoordinates<AnnArrowPoints>;
template class IAnnotationCoordinates<AnnPencilPoints>;
template class IAnnotationCoordinates<AnnImagePoints>;
template class IAnnotationCoordinates<AnnMagnifyPoints>;
