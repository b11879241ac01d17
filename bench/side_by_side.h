// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <ctime>
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

/// The processor's, of all threads, whatever else the machine does.
template <class Work>
double ProcessorSecondsOf(Work const &work) {
  std::clock_t const start = std::clock();
  work();
  return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

/// Times `ours` as the benchmark's own time and `reference` beside it; reports "ratio", the time of
/// `ours` over that of `reference`, and "reference_ms".
template <class Ours, class Reference, class Clock>
void SideBySide(benchmark::State &state, Ours const &ours, Reference const &reference,
                Clock const &secondsOf) {
  std::vector<double> ourTimes;
  std::vector<double> referenceTimes;
  for (auto _ : state) {
    ourTimes.push_back(secondsOf(ours));
    state.SetIterationTime(ourTimes.back());
    referenceTimes.push_back(secondsOf(reference));
  }
  double const ourMedian = MedianOf(ourTimes);
  double const referenceMedian = MedianOf(referenceTimes);
  state.counters["ratio"] = ourMedian / referenceMedian;
  state.counters["reference_ms"] = referenceMedian * 1e3;
}

template <class Ours, class Reference>
void SideBySide(benchmark::State &state, Ours const &ours, Reference const &reference) {
  SideBySide(state, ours, reference, [](auto const &work) { return SecondsOf(work); });
}

/// One pass over the bytes of a vector, summed as 64-bit words.
template <class T>
void PassOver(std::vector<T> const &vector) {
  static_assert(sizeof(T) % sizeof(std::uint64_t) == 0);
  auto const *const bytes = reinterpret_cast<unsigned char const *>(vector.data());
  std::size_t const size = vector.size() * sizeof(T);
  std::uint64_t sum = 0;
  for (std::size_t at = 0; at < size; at += sizeof sum) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes + at, sizeof word);
    sum += word;
  }
  benchmark::DoNotOptimize(sum);
}

}  // namespace framenote::bench
