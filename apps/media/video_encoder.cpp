// SPDX-License-Identifier: MIT
#include "media/video_encoder.h"

#include <algorithm>
#include <cassert>
#include <climits>
#include <stdexcept>
#include <thread>

#include <wx/translation.h>

extern "C" {
#include <libavutil/opt.h>
#include <libavutil/rational.h>
}

#include "media/media_error.h"

namespace {

/// x264's output depends on the number of its threads, so it must not follow the machine.
constexpr int kH264Threads = 8;
/// Measured at 1080p: 46 ms of processor time a frame, against 79 for "medium" and 29 for
/// "veryfast", and sizes within 7 % of each other.
constexpr char kH264Preset[] = "faster";
/// A key frame every so many frames: stepping back costs decoding from the last one.
constexpr int kH264KeyInterval = 60;
/// Slices are coded in parallel, and each has its own check sum; so one damaged spot costs as much
/// of the picture. Their number is part of the bytes and must not follow the machine either.
constexpr int kFFV1Slices = 16;
constexpr int kFFV1FewSlices = 4;
constexpr int kFFV1FewSlicesPixels = 640 * 480;
/// libav's FFV1 loses the pixels of pictures, and of slices, that are one pixel wide or high.
constexpr int kFFV1LeastSize = 2;
constexpr int kFFV1LeastSlicedSize = 16;

/// How a matrix of RGB to YUV is tagged, with the primaries and the transfer function that its
/// standard goes with.
struct MatrixTags {
  char const *name;
  AVColorSpace matrix;
  AVColorPrimaries primaries;
  AVColorTransferCharacteristic transfer;
};

constexpr MatrixTags kMatrixTags[] = {
    {"bt709", AVCOL_SPC_BT709, AVCOL_PRI_BT709, AVCOL_TRC_BT709},
    {"smpte170m", AVCOL_SPC_SMPTE170M, AVCOL_PRI_SMPTE170M, AVCOL_TRC_SMPTE170M},
    {"bt470bg", AVCOL_SPC_BT470BG, AVCOL_PRI_BT470BG, AVCOL_TRC_SMPTE170M},
    {"fcc", AVCOL_SPC_FCC, AVCOL_PRI_BT470M, AVCOL_TRC_SMPTE170M},
    {"smpte240m", AVCOL_SPC_SMPTE240M, AVCOL_PRI_SMPTE240M, AVCOL_TRC_SMPTE240M},
    // Ordinary and high dynamic range share this matrix, so that the transfer is not known.
    {"bt2020nc", AVCOL_SPC_BT2020_NCL, AVCOL_PRI_BT2020, AVCOL_TRC_UNSPECIFIED},
};

/// nullptr if there is none of that name.
MatrixTags const *FindTags(std::string const &matrix) {
  auto const *const found =
      std::find_if(std::begin(kMatrixTags), std::end(kMatrixTags),
                   [&](MatrixTags const &tags) { return matrix == tags.name; });
  return found == std::end(kMatrixTags) ? nullptr : found;
}

MatrixTags const &TagsOf(VideoSettings const &settings, std::string const &path) {
  MatrixTags const *const found = FindTags(settings.colourMatrix);
  if (found == nullptr) {
    throw MediaError(MediaProblem::Unsupported, path,
                     Message(wxTRANSLATE("colour matrix %s"), {settings.colourMatrix}));
  }
  return *found;
}

AVRational ToLibav(Rational const &value) {
  AVRational result{0, 1};
  av_reduce(&result.num, &result.den, value.numerator, value.denominator, INT_MAX);
  return result;
}

AVRational ExactTimeBase(Rational const &value, std::string const &path) {
  assert(value.numerator > 0 && value.denominator > 0);
  AVRational result{0, 1};
  if (!av_reduce(&result.num, &result.den, value.numerator, value.denominator, INT_MAX)) {
    throw MediaError(MediaProblem::Unsupported, path, wxTRANSLATE("time base"));
  }
  return result;
}

int EvenUp(int size) {
  return size + size % 2;
}

int SlicesFor(int width, int height) {
  if (std::min(width, height) < kFFV1LeastSlicedSize) return 1;
  return std::int64_t{width} * height <= kFFV1FewSlicesPixels ? kFFV1FewSlices : kFFV1Slices;
}

bool IsH264(VideoSettings const &settings) {
  return settings.codec == VideoCodec::H264;
}

libav::Owned<AVCodecContext> NewContext(VideoSettings const &settings, std::string const &path) {
  AVCodec const *const codec = IsH264(settings) ? avcodec_find_encoder_by_name("libx264")
                                                : avcodec_find_encoder(AV_CODEC_ID_FFV1);
  if (!codec) {
    throw MediaError(MediaProblem::Unsupported, path,
                     IsH264(settings) ? wxTRANSLATE("no encoder for H.264")
                                      : wxTRANSLATE("no encoder for FFV1"));
  }
  return libav::Own(avcodec_alloc_context3(codec));
}

PictureConverter NewConverter(VideoSettings const &settings, std::string const &path) {
  try {
    if (!IsH264(settings)) {
      return PictureConverter(settings.width, settings.height, AV_PIX_FMT_0RGB32, AVCOL_SPC_RGB);
    }
    return PictureConverter(EvenUp(settings.width), EvenUp(settings.height), AV_PIX_FMT_YUV420P,
                            TagsOf(settings, path).matrix);
  } catch (std::invalid_argument const &problem) {
    throw MediaError(MediaProblem::Unsupported, path, problem.what());
  }
}

}  // namespace

bool IsWrittenMatrix(std::string const &colourMatrix) {
  return FindTags(colourMatrix) != nullptr;
}

VideoEncoder::VideoEncoder(VideoSettings const &settings, std::string const &path)
    : m_path(path),
      m_context(NewContext(settings, path)),
      m_converter(NewConverter(settings, path)),
      m_packet(libav::Own(av_packet_alloc())) {
  Configure(settings);
  int const result = avcodec_open2(m_context.get(), nullptr, nullptr);
  if (result < 0) throw MediaError(MediaProblem::Unsupported, path, libav::ErrorText(result));
}

void VideoEncoder::Configure(VideoSettings const &settings) {
  m_context->time_base = ExactTimeBase(settings.timeBase, m_path);
  m_context->sample_aspect_ratio = ToLibav(settings.pixelShape);
  // Each container that is written keeps the stream's header apart from its packets.
  m_context->flags |= AV_CODEC_FLAG_GLOBAL_HEADER | AV_CODEC_FLAG_BITEXACT;
  m_context->width = settings.width;
  m_context->height = settings.height;
  m_context->framerate = ToLibav(settings.frameRate);
  if (IsH264(settings)) {
    ConfigureH264(settings);
  } else {
    ConfigureFFV1();
  }
}

void VideoEncoder::ConfigureFFV1() {
  if (std::min(m_context->width, m_context->height) < kFFV1LeastSize) {
    throw MediaError(MediaProblem::Unsupported, m_path,
                     wxTRANSLATE("FFV1 of less than 2 x 2 pixels"));
  }
  m_context->pix_fmt = AV_PIX_FMT_0RGB32;
  m_context->colorspace = AVCOL_SPC_RGB;
  m_context->color_range = AVCOL_RANGE_JPEG;
  m_context->level = 3;
  m_context->gop_size = 1;
  m_context->slices = SlicesFor(m_context->width, m_context->height);
  m_context->thread_type = FF_THREAD_SLICE;
  m_context->thread_count =
      std::clamp(static_cast<int>(std::thread::hardware_concurrency()), 1, m_context->slices);
  ThrowIfFailed(av_opt_set_int(m_context->priv_data, "slicecrc", 1, 0));
}

void VideoEncoder::ConfigureH264(VideoSettings const &settings) {
  MatrixTags const &tags = TagsOf(settings, m_path);
  m_context->width = EvenUp(settings.width);
  m_context->height = EvenUp(settings.height);
  m_context->pix_fmt = AV_PIX_FMT_YUV420P;
  m_context->colorspace = tags.matrix;
  m_context->color_primaries = tags.primaries;
  m_context->color_trc = tags.transfer;
  m_context->color_range = AVCOL_RANGE_MPEG;
  m_context->chroma_sample_location = AVCHROMA_LOC_LEFT;
  // Without a rate x264 takes the time base for it, and claims a level that few can play.
  if (m_context->framerate.num <= 0) m_context->framerate = AVRational{25, 1};
  m_context->gop_size = kH264KeyInterval;
  m_context->max_b_frames = 0;
  m_context->thread_count = kH264Threads;
  m_context->thread_type = FF_THREAD_FRAME;
  ThrowIfFailed(av_opt_set(m_context->priv_data, "preset", kH264Preset, 0));
  ThrowIfFailed(av_opt_set_double(m_context->priv_data, "crf", settings.quality, 0));
}

void VideoEncoder::Send(Picture const &picture, std::int64_t timeStamp, std::int64_t duration) {
  AVFrame &frame = m_converter.Convert(picture);
  frame.pts = timeStamp;
  m_durations.push_back(duration);
  ThrowIfFailed(avcodec_send_frame(m_context.get(), &frame));
}

void VideoEncoder::SendEnd() {
  ThrowIfFailed(avcodec_send_frame(m_context.get(), nullptr));
}

AVPacket *VideoEncoder::Receive() {
  int const result = avcodec_receive_packet(m_context.get(), m_packet.get());
  if (result == AVERROR(EAGAIN) || result == AVERROR_EOF) return nullptr;
  ThrowIfFailed(result);
  assert(!m_durations.empty());
  m_packet->duration = m_durations.front();
  m_packet->dts = m_packet->pts;
  m_durations.pop_front();
  return m_packet.get();
}

void VideoEncoder::ThrowIfFailed(int result) const {
  if (result >= 0) return;
  if (result == AVERROR(ENOMEM)) throw std::bad_alloc();
  throw MediaError(MediaProblem::WriteFailed, m_path, libav::ErrorText(result));
}
