// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
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
};

using FramePtr = std::unique_ptr<AVFrame, Free>;
using PacketPtr = std::unique_ptr<AVPacket, Free>;
using CodecPtr = std::unique_ptr<AVCodecContext, Free>;
using ScalerPtr = std::unique_ptr<SwsContext, Free>;

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
