// SPDX-License-Identifier: MIT
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include <benchmark/benchmark.h>
#include <wx/gdicmn.h>

#include "coordinates/ann_shape_coordinates.h"

/// What the operations of a store cost on a long video. Every figure is a ratio to one pass over
/// the bytes of the store's vector, measured beside it, so that it holds on any machine.
namespace {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

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

/// Sums the bytes of the vector as 64-bit words.
std::uint64_t PassOver(AnnShapeCoordinates const &store) {
  auto const *bytes = reinterpret_cast<unsigned char const *>(store.CoordsVec().data());
  std::size_t const size = store.CoordsVec().size() * sizeof(std::shared_ptr<AnnShapePoints>);
  std::uint64_t sum = 0;
  for (std::size_t at = 0; at < size; at += sizeof sum) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes + at, sizeof word);
    sum += word;
  }
  return sum;
}

template <class F>
double TimeOf(F work) {
  auto const start = Clock::now();
  work();
  return Seconds(Clock::now() - start).count();
}

/// Runs `work` and one pass in turn and reports the ratio of their total times.
template <class F>
void ReportRatio(benchmark::State &state, AnnShapeCoordinates const &store, F work) {
  double worked = 0.0;
  double passed = 0.0;
  for (auto _ : state) {
    double const seconds = TimeOf(work);
    state.SetIterationTime(seconds);
    worked += seconds;
    passed += TimeOf([&] { benchmark::DoNotOptimize(PassOver(store)); });
  }
  state.counters["ratio"] = worked / passed;
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
    AnnShapeCoordinates const copy = store;
    benchmark::DoNotOptimize(copy.CoordsVec().data());
  });
}

void GetRangesOfAnEditedObject(benchmark::State &state) {
  AnnShapeCoordinates const store = EditedStore();
  ReportRatio(state, store,
              [&] { benchmark::DoNotOptimize(store.getRanges(0, kFrames - 1).size()); });
}

void MemoryOfAStillObject(benchmark::State &state) {
  AnnShapeCoordinates const store = StillStore();
  for (auto _ : state) benchmark::DoNotOptimize(store.CoordsVec().capacity());
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
