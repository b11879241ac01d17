// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <utility>

#include "media/media_source.h"

namespace framenote::test {

/// A video whose frames are made when they are read, each in a grey of its own; the file at `path`
/// is there to be summed up.
class RepeatedMedia : public MediaSource {
public:
  RepeatedMedia(std::string path, std::int64_t frameCount, int width, int height)
      : m_path(std::move(path)) {
    m_info.kind = MediaInfo::Kind::Video;
    m_info.width = width;
    m_info.height = height;
    m_info.frameCount = frameCount;
    m_info.timeBase = {1, 25};
    m_info.frameRate = {25, 1};
  }

  std::string const &Path() const override { return m_path; }
  MediaInfo const &Info() const override { return m_info; }
  std::int64_t TimeStamp(std::int64_t frame) const override { return frame; }
  std::int64_t Duration(std::int64_t) const override { return 1; }
  MediaFrame Read(std::int64_t frame) override {
    MediaFrame read;
    read.picture = Picture(m_info.width, m_info.height);
    std::memset(read.picture.Pixels(), static_cast<int>(frame % 256), read.picture.ByteCount());
    return read;
  }

private:
  std::string m_path;
  MediaInfo m_info;
};

}  // namespace framenote::test
