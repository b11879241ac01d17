// SPDX-License-Identifier: MIT
#include "media/video_decoder.h"

#include <algorithm>
#include <limits>
#include <new>
#include <thread>
#include <utility>

#include "media/media_error.h"
#include "media/picture_limits.h"

namespace {

/// Beyond this more threads cost memory and gain little.
constexpr unsigned kMostThreads = 8;
constexpr std::int64_t kNoTime = AV_NOPTS_VALUE;

int ThreadCount() {
  return static_cast<int>(std::clamp(std::thread::hardware_concurrency(), 1U, kMostThreads));
}

}  // namespace

VideoDecoder::VideoDecoder(std::string const &path)
    : m_input(std::make_unique<MediaInput>(path)),
      m_packet(libav::NewPacket()),
      m_frame(libav::NewFrame()) {
  OpenCodec();
}

void VideoDecoder::OpenCodec() {
  AVCodecParameters const &parameters = *m_input->Video().codecpar;
  std::string const &path = m_input->Path();
  char const *name = avcodec_get_name(parameters.codec_id);
  AVCodec const *codec = avcodec_find_decoder(parameters.codec_id);
  if (!codec) throw MediaError(MediaProblem::Unsupported, path, name);
  if (parameters.width > 0 && !IsAcceptedSize(parameters.width, parameters.height)) {
    throw MediaError(MediaProblem::TooLarge, path);
  }
  m_codec.reset(avcodec_alloc_context3(codec));
  if (!m_codec) throw std::bad_alloc();
  int result = avcodec_parameters_to_context(m_codec.get(), &parameters);
  m_codec->pkt_timebase = m_input->Video().time_base;
  m_codec->thread_count = ThreadCount();
  m_codec->max_pixels = kMostPixels;
  m_codec->err_recognition = AV_EF_CRCCHECK;
  if (result >= 0) result = avcodec_open2(m_codec.get(), codec, nullptr);
  if (result < 0) throw MediaError(MediaProblem::Damaged, path, libav::ErrorText(result));
}

std::optional<DecodedFrame> VideoDecoder::Next() {
  while (true) {
    int const result = avcodec_receive_frame(m_codec.get(), m_frame.get());
    if (result == 0) return Taken();
    if (result == AVERROR_EOF) return std::nullopt;
    if (result == AVERROR(EAGAIN)) {
      Feed();
    } else {
      NoteDamage();
    }
  }
}

/// Sends the next packet, or at the end the word that there are no more.
void VideoDecoder::Feed() {
  bool const isPacket = m_input->ReadPacket(*m_packet);
  m_sent.push_back(isPacket ? m_packet->pts : kNoTime);
  if (m_sent.size() > static_cast<std::size_t>(m_codec->thread_count)) m_sent.pop_front();
  bool const isMarked = isPacket && (m_packet->flags & AV_PKT_FLAG_CORRUPT) != 0;
  int const result = avcodec_send_packet(m_codec.get(), isPacket ? m_packet.get() : nullptr);
  av_packet_unref(m_packet.get());
  if (result < 0 || isMarked) NoteDamage();
}

void VideoDecoder::NoteDamage() {
  // With a frame in each thread the word about a packet comes when that many more are sent.
  bool const isByFrame = (m_codec->active_thread_type & FF_THREAD_FRAME) != 0;
  std::int64_t damaged = kNoTime;
  if (!m_sent.empty()) damaged = isByFrame ? m_sent.front() : m_sent.back();
  // Without a time stamp any key frame ends it.
  if (damaged == kNoTime) damaged = std::numeric_limits<std::int64_t>::min();
  m_damagedUntil = std::max(damaged, m_damagedUntil.value_or(damaged));
}

DecodedFrame VideoDecoder::Taken() {
  std::int64_t const timeStamp = m_frame->best_effort_timestamp;
  bool const isFlagged =
      (m_frame->flags & AV_FRAME_FLAG_CORRUPT) != 0 || m_frame->decode_error_flags != 0;
  if (isFlagged) {
    m_damagedUntil = std::max(timeStamp, m_damagedUntil.value_or(timeStamp));
  } else if (m_damagedUntil && libav::IsKeyFrame(*m_frame) &&
             (timeStamp == kNoTime || timeStamp > *m_damagedUntil)) {
    m_damagedUntil.reset();
  }
  DecodedFrame taken;
  taken.isDamaged = m_damagedUntil.has_value();
  taken.frame = std::exchange(m_frame, libav::NewFrame());
  return taken;
}

bool VideoDecoder::Seek(std::int64_t timeStamp) {
  bool const isThere = m_input->Seek(timeStamp);
  avcodec_flush_buffers(m_codec.get());
  Forget();
  return isThere;
}

void VideoDecoder::Restart() {
  auto input = std::make_unique<MediaInput>(m_input->Path());
  m_codec.reset();
  m_input = std::move(input);
  Forget();
  OpenCodec();
}

void VideoDecoder::Forget() {
  m_sent.clear();
  m_damagedUntil.reset();
}
