// SPDX-License-Identifier: MIT
#include "media/frame_converter.h"

#include <algorithm>
#include <new>
#include <thread>
#include <utility>

#include <wx/translation.h>

extern "C" {
#include <libavutil/opt.h>
}

#include "media/media_error.h"

namespace {

/// From here up untagged video is taken for high definition.
constexpr int kHighDefinitionLines = 720;
constexpr unsigned kMostThreads = 4;
constexpr int kUnit = 1 << 16;  ///< of swscale's contrast and saturation

bool IsRgb(AVPixelFormat format) {
  AVPixFmtDescriptor const *descriptor = av_pix_fmt_desc_get(format);
  return descriptor && (descriptor->flags & (AV_PIX_FMT_FLAG_RGB | AV_PIX_FMT_FLAG_PAL)) != 0;
}

/// Formats that imply the full range; swscale wants their plain twins.
AVPixelFormat PlainFormat(AVPixelFormat format) {
  switch (format) {
    case AV_PIX_FMT_YUVJ420P:
      return AV_PIX_FMT_YUV420P;
    case AV_PIX_FMT_YUVJ422P:
      return AV_PIX_FMT_YUV422P;
    case AV_PIX_FMT_YUVJ444P:
      return AV_PIX_FMT_YUV444P;
    case AV_PIX_FMT_YUVJ440P:
      return AV_PIX_FMT_YUV440P;
    case AV_PIX_FMT_YUVJ411P:
      return AV_PIX_FMT_YUV411P;
    default:
      return format;
  }
}

/// swscale makes planes from YUV three times as fast as packed RGB.
AVPixelFormat TargetFormat(ColourTags const &colours) {
  return colours.matrix == AVCOL_SPC_RGB ? AV_PIX_FMT_RGB24 : AV_PIX_FMT_GBRP;
}

/// Packs the planes of green, blue and red.
void Interleave(AVFrame const &planes, Picture &picture) {
  unsigned char *out = picture.Pixels();
  for (int y = 0; y < picture.Height(); ++y) {
    auto const row = [&](int plane) {
      return planes.data[plane] + std::ptrdiff_t{y} * planes.linesize[plane];
    };
    unsigned char const *green = row(0), *blue = row(1), *red = row(2);
    for (int x = 0; x < picture.Width(); ++x, out += Picture::kChannels) {
      out[0] = red[x];
      out[1] = green[x];
      out[2] = blue[x];
    }
  }
}

/// Lets `frame` stand for the picture's pixels, which stay the picture's.
void Lend(Picture &picture, AVFrame &frame) {
  frame.data[0] = picture.Pixels();
  frame.linesize[0] = static_cast<int>(picture.RowBytes());
  frame.buf[0] = av_buffer_create(
      picture.Pixels(), picture.ByteCount(), [](void *, std::uint8_t *) {}, nullptr, 0);
  if (!frame.buf[0]) throw std::bad_alloc();
}

}  // namespace

ColourTags ResolveColours(AVColorSpace matrix, AVColorRange range, AVPixelFormat format,
                          int height) {
  bool const isRgb = IsRgb(format);
  ColourTags colours;
  colours.matrix = matrix;
  colours.isFullRange = isRgb || range == AVCOL_RANGE_JPEG || PlainFormat(format) != format;
  if (isRgb) {
    colours.matrix = AVCOL_SPC_RGB;
  } else if (matrix == AVCOL_SPC_UNSPECIFIED || matrix == AVCOL_SPC_RESERVED ||
             matrix == AVCOL_SPC_RGB) {
    colours.isGuessed = true;
    colours.matrix = height >= kHighDefinitionLines ? AVCOL_SPC_BT709 : AVCOL_SPC_SMPTE170M;
  }
  return colours;
}

std::string MatrixName(AVColorSpace matrix) {
  char const *name = av_color_space_name(matrix);
  return name ? name : "unknown";
}

FrameConverter::FrameConverter(int width, int height, PictureTurn const &turn)
    : m_width(width), m_height(height), m_turn(turn) {}

void FrameConverter::Prepare(AVFrame const &frame, std::string const &path) {
  auto const format = static_cast<AVPixelFormat>(frame.format);
  ColourTags const colours =
      ResolveColours(frame.colorspace, frame.color_range, format, frame.height);
  bool const isPrepared = m_scaler && m_format == frame.format && m_frameWidth == frame.width &&
                          m_frameHeight == frame.height && m_colours.matrix == colours.matrix &&
                          m_colours.isFullRange == colours.isFullRange;
  if (isPrepared) return;
  m_scaler.reset(sws_alloc_context());
  if (!m_scaler) throw std::bad_alloc();
  SwsContext *scaler = m_scaler.get();
  unsigned const threads = std::clamp(std::thread::hardware_concurrency(), 1U, kMostThreads);
  // Exact rounding, and colours for each pixel instead of each pair.
  int const flags = SWS_BICUBIC | SWS_ACCURATE_RND | SWS_FULL_CHR_H_INT;
  for (auto const &[name, value] : {std::pair<char const *, int>{"srcw", frame.width},
                                    {"srch", frame.height},
                                    {"src_format", PlainFormat(format)},
                                    {"src_range", colours.isFullRange},
                                    {"dstw", m_width},
                                    {"dsth", m_height},
                                    {"dst_format", TargetFormat(colours)},
                                    {"dst_range", 1},
                                    {"sws_flags", flags},
                                    {"threads", static_cast<int>(threads)}}) {
    av_opt_set_int(scaler, name, value, 0);
  }
  // swscale knows RGB by its format.
  int const matrix = colours.matrix == AVCOL_SPC_RGB ? SWS_CS_DEFAULT : colours.matrix;
  int const *coefficients = sws_getCoefficients(matrix);
  if (sws_init_context(scaler, nullptr, nullptr) < 0) {
    char const *name = av_get_pix_fmt_name(format);
    throw MediaError(MediaProblem::Unsupported, path, name ? name : wxTRANSLATE("pixel format"));
  }
  // Refused where there is no YUV to convert.
  sws_setColorspaceDetails(scaler, coefficients, colours.isFullRange,
                           sws_getCoefficients(SWS_CS_DEFAULT), 1, 0, kUnit, kUnit);
  m_target = libav::NewFrame();
  m_target->format = TargetFormat(colours);
  m_target->width = m_width;
  m_target->height = m_height;
  bool const hasPlanes = m_target->format != AV_PIX_FMT_RGB24;
  if (hasPlanes && av_frame_get_buffer(m_target.get(), 0) < 0) throw std::bad_alloc();
  m_format = frame.format;
  m_frameWidth = frame.width;
  m_frameHeight = frame.height;
  m_colours = colours;
}

Picture FrameConverter::Convert(AVFrame const &frame, std::string const &path) {
  Prepare(frame, path);
  Picture picture(m_width, m_height);
  libav::FramePtr const source = libav::NewFrame();
  if (av_frame_ref(source.get(), &frame) < 0) throw std::bad_alloc();
  source->format = PlainFormat(static_cast<AVPixelFormat>(frame.format));
  AVFrame &target = *m_target;
  bool const isPacked = target.format == AV_PIX_FMT_RGB24;
  if (isPacked) Lend(picture, target);
  int const result = sws_scale_frame(m_scaler.get(), &target, source.get());
  if (isPacked) av_buffer_unref(&target.buf[0]);
  if (result < 0) throw MediaError(MediaProblem::Unsupported, path, libav::ErrorText(result));
  if (!isPacked) Interleave(target, picture);
  return Turned(std::move(picture), m_turn);
}
