// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "media/file_io.h"
#include "media/libav.h"

/// One media file, taken apart into the packets of its video stream. It opens nothing but that
/// file: play lists and references to other files or to the net do not work.
class MediaInput {
public:
  /// Throws MediaError: Unrecognised, NoPictures, Damaged, Unsupported, ReadFailed.
  explicit MediaInput(std::string const &path);
  MediaInput(MediaInput const &) = delete;
  MediaInput &operator=(MediaInput const &) = delete;

  std::string const &Path() const { return m_path; }
  AVFormatContext &Format() const { return *m_format; }
  AVStream &Video() const { return *m_format->streams[m_video]; }
  bool HasAudio() const;

  /// The next packet of the video stream. False at the end, which is also where a file was cut
  /// off. Throws MediaError: ReadFailed.
  bool ReadPacket(AVPacket &packet);
  /// Goes to a place at or before `timeStamp` from which decoding can begin, as far as the format
  /// knows. False where it cannot.
  bool Seek(std::int64_t timeStamp);
  /// How much of the file has been read, 0 to 1.
  double Progress() const;

private:
  void Open(AVInputFormat const *format);
  void SelectVideo();

  struct Close {
    void operator()(AVFormatContext *format) const { avformat_close_input(&format); }
  };

  std::string m_path;
  FileIo m_io;
  std::unique_ptr<AVFormatContext, Close> m_format;
  std::size_t m_video = 0;
};
