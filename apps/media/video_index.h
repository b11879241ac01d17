// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "media/rational.h"

class VideoDecoder;

/// Where the frames of a video are in time, and which of them decoding can begin at.
struct VideoIndex {
  /// Of every frame that is shown, rising, in units of timeBase.
  std::vector<std::int64_t> timeStamps;
  /// Frames at which decoding can begin, by number, rising. Empty unless isSeekable.
  std::vector<std::uint32_t> keyFrames;
  Rational timeBase{1, 1};
  std::int64_t lastDuration = 1;  ///< of the last frame, which no other ends
  /// Whether a frame is known by its time stamp when it comes out of the decoder. If not, it is
  /// known by its place, counted from the beginning.
  bool isSeekable = false;

  std::int64_t FrameCount() const { return static_cast<std::int64_t>(timeStamps.size()); }
  std::int64_t DurationOf(std::int64_t frame) const;
  /// The place in keyFrames of the last one at or before `frame`; -1 if there is none.
  std::ptrdiff_t KeyBefore(std::int64_t frame) const;
  /// The frame of exactly this time stamp, or -1.
  std::int64_t FrameOf(std::int64_t timeStamp) const;
};

/// More frames than these are not indexed; it bounds the memory of an index. Over three days at 60
/// frames a second.
constexpr std::size_t kMostFrames = std::size_t{1} << 24;

/// Indexes the file by taking it apart without decoding more than its beginning; where its time
/// stamps cannot be relied upon, by decoding it all. `decoder` has just been opened on `path`, and
/// is left anywhere. `progress` as in MediaOptions; it may begin anew once.
/// Throws MediaError: Damaged if no frame can be decoded, TooLarge, Cancelled, ReadFailed.
VideoIndex BuildVideoIndex(std::string const &path, VideoDecoder &decoder,
                           std::function<bool(double)> const &progress);
