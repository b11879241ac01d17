// SPDX-License-Identifier: MIT
#include "media/video_decoder.h"

#include <algorithm>
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

bool IsFlagged(AVFrame const &frame) {
  return (frame.flags & AV_FRAME_FLAG_CORRUPT) != 0 || frame.decode_error_flags != 0;
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
  AVCodec const *codec = avcodec_find_decoder(parameters.codec_id);
  if (!codec) {
    throw MediaError(MediaProblem::Unsupported, path, avcodec_get_name(parameters.codec_id));
  }
  if (parameters.width > 0 && !IsAcceptedSize(parameters.width, parameters.height)) {
    throw MediaError(MediaProblem::TooLarge, path);
  }
  m_codec.reset(avcodec_alloc_context3(codec));
  if (!m_codec) throw std::bad_alloc();
  int result = avcodec_parameters_to_context(m_codec.get(), &parameters);
  m_codec->pkt_timebase = m_input->Video().time_base;
  m_codec->max_pixels = kMostPixels;
  m_codec->err_recognition = AV_EF_CRCCHECK | AV_EF_BITSTREAM | AV_EF_BUFFER;
  // No threads for slices: H.264 would patch nothing up then, and leave what was in memory before.
  m_codec->thread_count = m_isCareful ? 1 : ThreadCount();
  m_codec->thread_type = FF_THREAD_FRAME;
  libav::CountComplaints(*m_codec, m_complaints);
  if (result >= 0) result = avcodec_open2(m_codec.get(), codec, nullptr);
  if (result < 0) throw MediaError(MediaProblem::Damaged, path, libav::ErrorText(result));
  Forget();
}

std::optional<DecodedFrame> VideoDecoder::Next() {
  while (true) {
    int const result = avcodec_receive_frame(m_codec.get(), m_frame.get());
    bool const isError = result < 0 && result != AVERROR_EOF && result != AVERROR(EAGAIN);
    if (HasComplained() || isError) NoteDamage(m_sentDecodeTime, m_sentShowTime);
    if (result == 0) return Taken();
    if (result == AVERROR_EOF) return std::nullopt;
    if (result == AVERROR(EAGAIN)) Feed();
  }
}

/// Sends the next packet, or at the end the word that there are no more.
void VideoDecoder::Feed() {
  bool const isPacket = ReadPacket();
  if (isPacket) {
    m_sentDecodeTime = m_packet->dts;
    m_sentShowTime = m_packet->pts;
  }
  bool const isMarked = isPacket && (m_packet->flags & AV_PKT_FLAG_CORRUPT) != 0;
  int const result = avcodec_send_packet(m_codec.get(), isPacket ? m_packet.get() : nullptr);
  av_packet_unref(m_packet.get());
  if (result < 0 || isMarked || HasComplained()) NoteDamage(m_sentDecodeTime, m_sentShowTime);
}

/// The next packet to decode; false at the end.
bool VideoDecoder::ReadPacket() {
  while (m_input->ReadPacket(*m_packet)) {
    if (!m_begin) return true;
    // The seek led past the place; what follows could only be decoded by guessing.
    bool const isMissed = !m_hasBegun && m_packet->pts > *m_begin;
    if (isMissed) return false;
    if (IsWanted(*m_packet)) return true;
  }
  return false;
}

/// Whether the packet is the key frame where decoding begins, or belongs to a frame after it.
/// Between them may stand frames that are shown before the key frame and made from others before.
bool VideoDecoder::IsWanted(AVPacket const &packet) {
  if (packet.pts == *m_begin && (packet.flags & AV_PKT_FLAG_KEY) != 0) m_hasBegun = true;
  return m_hasBegun && packet.pts >= *m_begin;
}

bool VideoDecoder::HasComplained() {
  return m_complaints.exchange(0) > 0;
}

void VideoDecoder::NoteDamage(std::int64_t decodeTime, std::int64_t showTime) {
  if (!m_isCareful) m_isInDoubt = true;
  // No time is the smallest number: all frames are spoilt then, and any key frame ends it.
  if (!m_damage) {
    m_damage = {decodeTime, showTime};
  } else {
    m_damage->until = std::max(m_damage->until, showTime);
  }
}

DecodedFrame VideoDecoder::Taken() {
  std::int64_t const showTime = m_frame->best_effort_timestamp;
  if (IsFlagged(*m_frame)) {
    NoteDamage(m_frame->pkt_dts, showTime);
  } else if (m_damage && libav::IsKeyFrame(*m_frame) &&
             (showTime == kNoTime || showTime > m_damage->until)) {
    m_damage.reset();
  }
  DecodedFrame taken;
  taken.isDamaged = m_damage && (m_frame->pkt_dts == kNoTime || m_frame->pkt_dts >= m_damage->from);
  taken.frame = std::exchange(m_frame, libav::NewFrame());
  return taken;
}

bool VideoDecoder::Seek(std::int64_t timeStamp) {
  bool const isThere = m_input->Seek(timeStamp);
  avcodec_flush_buffers(m_codec.get());
  Forget();
  m_begin = timeStamp;
  m_hasBegun = false;
  return isThere;
}

void VideoDecoder::Restart() {
  auto input = std::make_unique<MediaInput>(m_input->Path());
  m_codec.reset();
  m_input = std::move(input);
  OpenCodec();
}

void VideoDecoder::TakeCare() {
  m_isCareful = true;
  m_codec.reset();
  OpenCodec();
}

/// Forgets what was told of packets before.
void VideoDecoder::Forget() {
  m_complaints = 0;
  m_isInDoubt = false;
  m_begin.reset();
  m_hasBegun = true;
  m_damage.reset();
  m_sentDecodeTime = kNoTime;
  m_sentShowTime = kNoTime;
}
