// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>
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
/// beginning or from a key frame.
///
/// It starts out fast: threads decode several frames at once, and may tell of damage too late or
/// not at all, though they never miss that there is any. Whoever reads then lets the decoder take
/// care, and reads again what has come out since: frame by frame, with the damage where it is.
class VideoDecoder {
public:
  /// Throws MediaError like MediaInput; Unsupported without a decoder; TooLarge.
  explicit VideoDecoder(std::string const &path);
  VideoDecoder(VideoDecoder const &) = delete;
  VideoDecoder &operator=(VideoDecoder const &) = delete;

  MediaInput const &Input() const { return *m_input; }

  /// The next frame; nothing at the end. Throws MediaError: ReadFailed.
  std::optional<DecodedFrame> Next();
  /// Goes on from the key frame with exactly this time stamp; frames that precede it do not come
  /// out. False where the format cannot, which leaves the position undefined; if the place turns
  /// out to be missed, no frame comes out.
  bool Seek(std::int64_t timeStamp);
  /// Goes on from the beginning, which no seek reaches in every format. Throws like MediaInput.
  void Restart();

  /// Whether there is damage, while decoding fast: the frame that came out last is not reliable.
  bool IsInDoubt() const { return m_isInDoubt; }
  /// Decodes slowly but surely from now on. Leaves the position undefined.
  void TakeCare();

private:
  void OpenCodec();
  void Forget();
  void Feed();
  bool ReadPacket();
  bool IsWanted(AVPacket const &packet);
  void NoteDamage(std::int64_t decodeTime, std::int64_t showTime);
  bool HasComplained();
  DecodedFrame Taken();

  std::unique_ptr<MediaInput> m_input;
  /// Errors that the decoder has spoken of. Declared ahead of it, since it writes here.
  std::atomic<int> m_complaints{0};
  libav::CodecPtr m_codec;
  libav::PacketPtr m_packet;
  libav::FramePtr m_frame;
  bool m_isCareful = false;
  bool m_isInDoubt = false;

  /// After a seek: the key frame where decoding begins, and whether its packet has come.
  std::optional<std::int64_t> m_begin;
  bool m_hasBegun = true;

  /// What may have spoilt frames: set while decoding with care, until a key frame ends it.
  struct Damage {
    std::int64_t from;   ///< decoding time of the first packet; frames of earlier ones are whole
    std::int64_t until;  ///< time stamp after which a key frame ends it
  };
  std::optional<Damage> m_damage;
  std::int64_t m_sentDecodeTime = AV_NOPTS_VALUE;  ///< of the packet that was sent last
  std::int64_t m_sentShowTime = AV_NOPTS_VALUE;
};
