// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <deque>
#include <string>

#include "media/libav.h"
#include "media/picture_converter.h"
#include "media/video_writer.h"

/// Encodes pictures in the order in which they come: no frame is coded out of order, so that each
/// packet's decoding time is its own time stamp, and its duration its own.
class VideoEncoder {
public:
  /// `path` is for messages. Throws MediaError, Unsupported.
  VideoEncoder(VideoSettings const &settings, std::string const &path);

  /// The stream's parameters and time base.
  AVCodecContext const &Context() const { return *m_context; }
  /// Throws MediaError, WriteFailed. REQUIRES: `timeStamp` rises.
  void Send(Picture const &picture, std::int64_t timeStamp, std::int64_t duration);
  /// No picture comes after this. Throws like Send.
  void SendEnd();
  /// The next packet that is done; nullptr if there is none yet, or none any more. It is good until
  /// the next call. Throws like Send.
  AVPacket *Receive();

private:
  void Configure(VideoSettings const &settings);
  void ConfigureFFV1();
  void ConfigureH264(VideoSettings const &settings);
  void ThrowIfFailed(int result) const;

  std::string m_path;
  libav::Owned<AVCodecContext> m_context;
  PictureConverter m_converter;
  libav::Owned<AVPacket> m_packet;
  std::deque<std::int64_t> m_durations;  ///< of the pictures whose packets are still to come
};
