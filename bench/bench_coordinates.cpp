// SPDX-License-Identifier: MIT
#include <cstdint>

#include <benchmark/benchmark.h>
#include <wx/gdicmn.h>

#include "coordinates/ann_shape_coordinates.h"
#include "side_by_side.h"

/// What the operations of a store cost on a long video. Every figure is a ratio to one pass over
/// the bytes of the store's vector, measured beside it, so that it holds on any machine.
namespace {

constexpr std::int64_t kFrames = 1000000;
constexpr std::int64_t kEvery = 100;  ///< in the edited store, a frame with a record of its own

AnnShapeCoordinates StillStore() {
  AnnShapeCoordinates store(kFrames, 0, wxRect(10, 20, 100, 50));
  store.UpdateStartEndCoordinates(0, 0, kFrames - 1, false);
  return store;
}

AnnShapeCoordinates EditedStore() {
  AnnShapeCoordinates store = StillStore();
  for (std::int64_t frame = kEvery; frame < kFrames; frame += kEvery) {
    store.AddNewCoordinates(frame);
    store.SetCoordinatesNotUpdatedInJson();
  }
  return store;
}

/// Runs `work` and one pass in turn.
template <class F>
void ReportRatio(benchmark::State &state, AnnShapeCoordinates const &store, F const &work) {
  framenote::bench::SideBySide(state, work, [&] { framenote::bench::PassOver(store.CoordsVec()); });
}

void GetRangesOfAStillObject(benchmark::State &state) {
  AnnShapeCoordinates const store = StillStore();
  ReportRatio(state, store,
              [&] { benchmark::DoNotOptimize(store.getRanges(0, kFrames - 1).size()); });
}

void JsonOfAStillObject(benchmark::State &state) {
  AnnShapeCoordinates store = StillStore();
  ReportRatio(state, store, [&] {
    store.SetCoordinatesNotUpdatedInJson();
    store.UpdateJSONValCoordinates(0, kFrames - 1);
    benchmark::DoNotOptimize(store.ToJSON().Size());
  });
}

void MoveAllOfAStillObject(benchmark::State &state) {
  AnnShapeCoordinates store = StillStore();
  ReportRatio(state, store, [&] { store.MoveAllCoordsFor({1, 1}); });
}

void CopyOfAStillObject(benchmark::State &state) {
  AnnShapeCoordinates const store = StillStore();
  ReportRatio(state, store, [&] {
    AnnShapeCoordinates copy = store;
    benchmark::DoNotOptimize(copy);
  });
}

void GetRangesOfAnEditedObject(benchmark::State &state) {
  AnnShapeCoordinates const store = EditedStore();
  ReportRatio(state, store,
              [&] { benchmark::DoNotOptimize(store.getRanges(0, kFrames - 1).size()); });
}

void MemoryOfAStillObject(benchmark::State &state) {
  AnnShapeCoordinates const store = StillStore();
  while (state.KeepRunning()) benchmark::DoNotOptimize(store.CoordsVec().capacity());
  auto const bytes = store.CoordsVec().capacity() * sizeof(std::shared_ptr<AnnShapePoints>);
  state.counters["bytes_per_frame"] = static_cast<double>(bytes) / static_cast<double>(kFrames);
}

BENCHMARK(GetRangesOfAStillObject)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(JsonOfAStillObject)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(MoveAllOfAStillObject)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(CopyOfAStillObject)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(GetRangesOfAnEditedObject)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(MemoryOfAStillObject);

}  // namespace
