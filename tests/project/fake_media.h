// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "media/media_source.h"

namespace framenote::test {

/// Media of which nothing but the times is real: each frame stands until the next one begins.
class FakeMedia : public MediaSource {
public:
  /// `timeStamps` has one more than there are frames: the end of the last one.
  FakeMedia(std::vector<std::int64_t> timeStamps, Rational timeBase, std::string path = "film.mp4")
      : m_timeStamps(std::move(timeStamps)), m_path(std::move(path)) {
    m_info.kind = MediaInfo::Kind::Video;
    m_info.width = 1920;
    m_info.height = 1080;
    m_info.frameCount = static_cast<std::int64_t>(m_timeStamps.size()) - 1;
    m_info.timeBase = timeBase;
  }

  std::string const &Path() const override { return m_path; }
  MediaInfo const &Info() const override { return m_info; }
  std::int64_t TimeStamp(std::int64_t frame) const override { return At(frame); }
  std::int64_t Duration(std::int64_t frame) const override { return At(frame + 1) - At(frame); }
  MediaFrame Read(std::int64_t) override { return {}; }

private:
  std::int64_t At(std::int64_t frame) const {
    return m_timeStamps.at(static_cast<std::size_t>(frame));
  }

  std::vector<std::int64_t> m_timeStamps;
  std::string m_path;
  MediaInfo m_info;
};

/// Frames of `ticks` each.
inline std::vector<std::int64_t> EvenTimes(std::int64_t frames, std::int64_t ticks) {
  std::vector<std::int64_t> timeStamps;
  for (std::int64_t frame = 0; frame <= frames; ++frame) timeStamps.push_back(frame * ticks);
  return timeStamps;
}

}  // namespace framenote::test
