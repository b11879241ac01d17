// SPDX-License-Identifier: MIT
#include "coordinates/coordinate_runs.h"

#include <algorithm>
#include <limits>

#include "talbase/json_value.h"

namespace framenote {
namespace {

constexpr std::int64_t kMaxInt64 = std::numeric_limits<std::int64_t>::max();

/// Calls `visit` with every well-formed run of the array, in order.
template <class F>
void VisitRuns(wxJSONValue const &coordinates, F visit) {
  if (!coordinates.IsArray()) return;
  int const count = coordinates.Size();
  for (int i = 0; i < count; ++i) {
    wxJSONValue const range = coordinates.ItemAt(i).ItemAt("Range");
    if (!range.IsArray() || range.Size() != 2) continue;
    wxJSONValue const first = range.ItemAt(0);
    wxJSONValue const last = range.ItemAt(1);
    if (!first.IsInt() || !last.IsInt()) continue;
    CoordinateRun const run{i, first.AsInt64(), last.AsInt64()};
    if (0 <= run.first && run.first <= run.last) visit(run);
  }
}

/// The most entries that a store of `frameCount` frames may get from a document.
std::int64_t MaxEntries(std::int64_t frameCount) {
  std::int64_t const count = std::max<std::int64_t>(frameCount, 0);
  return count > kMaxInt64 - kMaxExtraFrames ? kMaxInt64 : count + kMaxExtraFrames;
}

}  // namespace

std::vector<CoordinateRun> ReadRuns(wxJSONValue const &coordinates, std::int64_t frameCount) {
  std::vector<CoordinateRun> runs;
  std::int64_t const end = MaxEntries(frameCount);
  std::int64_t budget = end;
  VisitRuns(coordinates, [&](CoordinateRun const &run) {
    if (run.last >= end || run.last - run.first >= budget) return;
    budget -= run.last - run.first + 1;
    runs.push_back(run);
  });
  return runs;
}

std::int64_t CountExtraFrames(wxJSONValue const &coordinates, std::int64_t frameCount) {
  std::int64_t const count = std::max<std::int64_t>(frameCount, 0);
  std::int64_t extra = 0;
  VisitRuns(coordinates, [&](CoordinateRun const &run) {
    if (run.last < count) return;
    std::int64_t const beyond = run.last - count;
    extra = std::max(extra, beyond == kMaxInt64 ? kMaxInt64 : beyond + 1);
  });
  return extra;
}

std::int64_t CountRuns(wxJSONValue const &coordinates) {
  std::int64_t runs = 0;
  VisitRuns(coordinates, [&](CoordinateRun const &) { ++runs; });
  return runs;
}

}  // namespace framenote
