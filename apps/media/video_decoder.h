// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>

#include "media/libav.h"
#include "media/media_input.h"

/// A frame as the decoder gave it out.
struct DecodedFrame {
  libav::FramePtr frame;
  bool isDamaged = false;  ///< itself, or what it may have been made from
};

/// Decodes the video stream of a file, in the order in which its pictures are shown, from the
/// beginning or from where a seek led. The same bytes give the same frames, however many threads
/// decode.
class VideoDecoder {
public:
  /// Throws MediaError like MediaInput; Unsupported without a decoder; TooLarge.
  explicit VideoDecoder(std::string const &path);
  VideoDecoder(VideoDecoder const &) = delete;
  VideoDecoder &operator=(VideoDecoder const &) = delete;

  MediaInput const &Input() const { return *m_input; }
  AVCodecContext const &Codec() const { return *m_codec; }

  /// The next frame; nothing at the end. Throws MediaError: ReadFailed.
  std::optional<DecodedFrame> Next();
  /// Goes on from a place at or before `timeStamp`; false where the format cannot, which leaves
  /// the position undefined.
  bool Seek(std::int64_t timeStamp);
  /// Goes on from the beginning, which no seek reaches in every format. Throws like MediaInput.
  void Restart();

private:
  void OpenCodec();
  void Feed();
  void NoteDamage();
  void Forget();
  DecodedFrame Taken();

  std::unique_ptr<MediaInput> m_input;
  libav::CodecPtr m_codec;
  libav::PacketPtr m_packet;
  libav::FramePtr m_frame;
  /// Time stamps of the packets sent last, the newest at the end.
  std::deque<std::int64_t> m_sent;
  /// Set while frames may be made from damage: the time stamp after which a key frame ends that.
  std::optional<std::int64_t> m_damagedUntil;
};
