// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>

#include "media/media_source.h"

/// Frames of a media source, from `first` to `last`, both included.
struct FrameRange {
  std::int64_t first = 0;
  std::int64_t last = 0;

  std::int64_t Count() const { return last - first + 1; }
};

/// What is done with each frame.
struct FrameSteps {
  /// Changes the picture; called by the thread that runs the pipeline.
  std::function<Picture(std::int64_t frame, MediaFrame &&)> burn;
  /// Takes what became of it, in order; called by a thread of its own.
  std::function<void(std::int64_t frame, Picture const &)> write;
  /// After each burnt frame, on the thread that runs the pipeline: how many are done. False stops.
  std::function<bool(std::int64_t done)> progress;
};

/// Reads, burns and writes the frames of a range, in order. The three go on side by side, so that
/// the slowest alone says how long it takes, and only a few pictures are held at a time.
/// Returns false if it was stopped. Throws what a step threw; when it returns or throws, no thread
/// is left. REQUIRES: the range is within the source.
bool RunFramePipeline(MediaSource &source, FrameRange const &range, FrameSteps const &steps);
