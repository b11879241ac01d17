// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <chrono>
#include <vector>

#include <benchmark/benchmark.h>

/// Ratios that hold on any machine: both sides are timed in turn, in one run, and the medians are
/// compared, so that what else the machine does touches both alike.
namespace framenote::bench {

template <class Work>
double SecondsOf(Work const &work) {
  auto const start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

inline double MedianOf(std::vector<double> values) {
  auto const middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

/// Times `ours` as the benchmark's own time and `reference` beside it; reports "ratio", the time of
/// `ours` over that of `reference`, and "reference_ms".
template <class Ours, class Reference>
void SideBySide(benchmark::State &state, Ours const &ours, Reference const &reference) {
  std::vector<double> ourTimes;
  std::vector<double> referenceTimes;
  for (auto _ : state) {
    ourTimes.push_back(SecondsOf(ours));
    state.SetIterationTime(ourTimes.back());
    referenceTimes.push_back(SecondsOf(reference));
  }
  double const ourMedian = MedianOf(ourTimes);
  double const referenceMedian = MedianOf(referenceTimes);
  state.counters["ratio"] = ourMedian / referenceMedian;
  state.counters["reference_ms"] = referenceMedian * 1e3;
}

}  // namespace framenote::bench
