// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <new>
#include <string>

// C headers without linkage guards of their own.
extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/pixdesc.h>
#include <libswscale/swscale.h>
}

#include "media/rational.h"

/// Owners of libav's objects, and the one place that knows how its versions 5 to 7 differ.
namespace libav {

struct Free {
  void operator()(AVFrame *frame) const { av_frame_free(&frame); }
  void operator()(AVPacket *packet) const { av_packet_free(&packet); }
  void operator()(AVCodecContext *codec) const { avcodec_free_context(&codec); }
  void operator()(SwsContext *scaler) const { sws_freeContext(scaler); }
  /// Of an output: an input that was opened is closed in another way.
  void operator()(AVFormatContext *output) const { avformat_free_context(output); }
};

template <typename T>
using Owned = std::unique_ptr<T, Free>;
using FramePtr = Owned<AVFrame>;
using PacketPtr = Owned<AVPacket>;
using CodecPtr = Owned<AVCodecContext>;
using ScalerPtr = Owned<SwsContext>;

/// Takes over what libav has allocated. Throws std::bad_alloc if it has not.
template <typename T>
Owned<T> Own(T *allocated) {
  if (!allocated) throw std::bad_alloc();
  return Owned<T>(allocated);
}

/// Options on their way into libav, which takes out those that it knows.
class Options {
public:
  Options() = default;
  Options(Options const &) = delete;
  Options &operator=(Options const &) = delete;
  ~Options() { av_dict_free(&m_options); }

  void Set(char const *name, std::string const &value) {
    if (av_dict_set(&m_options, name, value.c_str(), 0) < 0) throw std::bad_alloc();
  }
  AVDictionary **Get() { return &m_options; }

private:
  AVDictionary *m_options = nullptr;
};

/// Throw std::bad_alloc.
FramePtr NewFrame();
PacketPtr NewPacket();

/// What libav says of one of its error codes.
std::string ErrorText(int code);
/// Keeps libav from writing to the terminal, and lets complaints be counted instead. From any
/// thread, as often as one likes.
void Silence();
/// Counts into `complaints` what the decoder complains of from now on, in all its threads. Some
/// decoders patch up damage and tell of it in no other way. REQUIRES: Silence was called; `codec`
/// is not open yet, and `complaints` outlives it.
void CountComplaints(AVCodecContext &codec, std::atomic<int> &complaints);

Rational ToRational(AVRational const &value);
AVRational ToAv(Rational const &value);

bool IsKeyFrame(AVFrame const &frame);
/// Nine numbers, or null for a stream that is stored upright.
std::int32_t const *DisplayMatrix(AVStream const &stream);
/// How long the frame stands, in the stream's time base; 0 where it does not say.
std::int64_t DurationOf(AVFrame const &frame);

}  // namespace libav
