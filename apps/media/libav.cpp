// SPDX-License-Identifier: MIT
#include "media/libav.h"

#include <cstdarg>
#include <new>
#include <string_view>

extern "C" {
#include <libavutil/display.h>
#include <libavutil/log.h>
}

namespace {

/// Whether a message is about pictures that are not what was recorded.
bool IsComplaint(int level, std::string_view message) {
  // Said in passing, and never as an error, of parts that are filled up from their surroundings.
  constexpr std::string_view kConcealing = "concealing";
  // H.264's word about frames to be forgotten that are not there. It is no damage: decoding that
  // begins at a key frame never had them.
  constexpr std::string_view kForgetting = "mmco:";
  if (message.substr(0, kConcealing.size()) == kConcealing) return true;
  return level <= AV_LOG_ERROR && message.substr(0, kForgetting.size()) != kForgetting;
}

/// Stands in for libav's own, which writes to the terminal.
void CountErrors(void *source, int level, char const *format, va_list /*values*/) {
  if (!source || !IsComplaint(level, format)) return;
  // Every source begins with a pointer to its class.
  if (*static_cast<AVClass const *const *>(source) != avcodec_get_class()) return;
  // A decoder's threads work on copies, which share this pointer.
  void *const complaints = static_cast<AVCodecContext *>(source)->opaque;
  if (complaints) ++*static_cast<std::atomic<int> *>(complaints);
}

}  // namespace

namespace libav {

FramePtr NewFrame() {
  FramePtr frame(av_frame_alloc());
  if (!frame) throw std::bad_alloc();
  return frame;
}

PacketPtr NewPacket() {
  PacketPtr packet(av_packet_alloc());
  if (!packet) throw std::bad_alloc();
  return packet;
}

std::string ErrorText(int code) {
  char text[AV_ERROR_MAX_STRING_SIZE] = {};
  av_strerror(code, text, sizeof text);
  return text;
}

void Silence() {
  av_log_set_callback(&CountErrors);
}

void CountComplaints(AVCodecContext &codec, std::atomic<int> &complaints) {
  codec.opaque = &complaints;
}

Rational ToRational(AVRational const &value) {
  return {value.num, value.den};
}

AVRational ToAv(Rational const &value) {
  return {static_cast<int>(value.numerator), static_cast<int>(value.denominator)};
}

bool IsKeyFrame(AVFrame const &frame) {
#if LIBAVUTIL_VERSION_INT >= AV_VERSION_INT(58, 7, 100)
  return (frame.flags & AV_FRAME_FLAG_KEY) != 0;
#else
  return frame.key_frame != 0;
#endif
}

std::int32_t const *DisplayMatrix(AVStream const &stream) {
  constexpr std::size_t kBytes = 9 * sizeof(std::int32_t);
#if LIBAVFORMAT_VERSION_INT >= AV_VERSION_INT(60, 15, 100)
  AVPacketSideData const *data =
      av_packet_side_data_get(stream.codecpar->coded_side_data, stream.codecpar->nb_coded_side_data,
                              AV_PKT_DATA_DISPLAYMATRIX);
  if (!data || data->size < kBytes) return nullptr;
  return reinterpret_cast<std::int32_t const *>(data->data);
#else
  std::size_t size = 0;
  std::uint8_t const *data = av_stream_get_side_data(&stream, AV_PKT_DATA_DISPLAYMATRIX, &size);
  if (!data || size < kBytes) return nullptr;
  return reinterpret_cast<std::int32_t const *>(data);
#endif
}

std::int64_t DurationOf(AVFrame const &frame) {
#if LIBAVUTIL_VERSION_INT >= AV_VERSION_INT(57, 30, 100)
  return frame.duration;
#else
  return frame.pkt_duration;
#endif
}

}  // namespace libav
