// SPDX-License-Identifier: MIT
#include <cstring>
#include <random>
#include <vector>

#include "side_by_side.h"
#include "talbase/picture.h"
#include "talcore/hide_selection.h"

/// What hiding a whole frame costs beside copying its bytes.
namespace {

constexpr int kChannels = 3;
constexpr int kBytes = 8;

void HideWholeFrame(benchmark::State &state) {
  wxSize const size(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
  auto const effect = static_cast<int>(state.range(2));
  auto const strength = static_cast<int>(state.range(3));
  auto const bytes =
      static_cast<std::size_t>(size.x) * static_cast<std::size_t>(size.y) * kChannels;
  std::vector<unsigned char> frame(bytes);
  std::mt19937 random(1);
  for (unsigned char &value : frame) value = static_cast<unsigned char>(random());
  std::vector<unsigned char> hidden(bytes);
  std::vector<unsigned char> copy(bytes);
  Image source(size, kBytes, kChannels, frame.data(), 0);
  Image target(size, kBytes, kChannels, hidden.data(), 0);
  framenote::bench::SideBySide(
      state, [&] { tcvHideSelection(source, target, effect, strength); },
      [&] {
        std::memcpy(copy.data(), frame.data(), bytes);
        benchmark::DoNotOptimize(copy.data());
        benchmark::ClobberMemory();
      });
}

BENCHMARK(HideWholeFrame)
    ->ArgNames({"width", "height", "pixelation", "strength"})
    ->ArgsProduct({{1920}, {1080}, {0, 1}, {5, 20, 50}})
    ->ArgsProduct({{3840}, {2160}, {0, 1}, {5, 20, 50}})
    ->UseManualTime()
    ->Iterations(21);

}  // namespace
