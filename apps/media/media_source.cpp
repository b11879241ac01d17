// SPDX-License-Identifier: MIT
#include "media/media_source.h"

namespace {

/// Seconds; far below any stream's tick, far above what doubles lose within a day.
constexpr double kRounding = 1e-9;

}  // namespace

double MediaSource::Seconds(std::int64_t frame) const {
  return static_cast<double>(TimeStamp(frame) - TimeStamp(0)) * Info().timeBase.Value();
}

std::int64_t MediaSource::FrameAt(double seconds) const {
  // The last frame that has begun; a time computed or typed by somebody else may fall short of its
  // beginning by rounding.
  std::int64_t first = 0;
  std::int64_t end = Info().frameCount;
  while (end - first > 1) {
    std::int64_t const middle = first + (end - first) / 2;
    if (Seconds(middle) <= seconds + kRounding) {
      first = middle;
    } else {
      end = middle;
    }
  }
  return first;
}
