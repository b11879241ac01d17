// SPDX-License-Identifier: MIT
#include "media/picture_converter.h"

#include <algorithm>
#include <cassert>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <thread>

#include <wx/translation.h>

extern "C" {
#include <libavutil/opt.h>
}

namespace {

/// Beyond this the conversion is far faster than any encoder.
constexpr unsigned int kMostThreads = 4;

/// 16.16 fixed point, as swscale counts contrast and saturation.
constexpr int kUnchanged = 1 << 16;

libav::Owned<AVFrame> NewFrame(int width, int height, AVPixelFormat format) {
  libav::Owned<AVFrame> frame = libav::Own(av_frame_alloc());
  frame->width = width;
  frame->height = height;
  frame->format = format;
  if (av_frame_get_buffer(frame.get(), 0) < 0) throw std::bad_alloc();
  return frame;
}

unsigned char const *RowOf(Picture const &picture, int y) {
  return picture.Pixels() + static_cast<std::size_t>(y) * picture.RowBytes();
}

unsigned char *RowOf(AVFrame const &frame, int y) {
  return frame.data[0] + std::ptrdiff_t{y} * frame.linesize[0];
}

bool SetOptions(SwsContext &scaler, int width, int height, AVPixelFormat format) {
  unsigned int const threads = std::clamp(std::thread::hardware_concurrency(), 1U, kMostThreads);
  // Bilinear reduction of chroma with its left siting weighs three columns 1:2:1.
  int const flags =
      SWS_BILINEAR | SWS_ACCURATE_RND | SWS_FULL_CHR_H_INP | SWS_FULL_CHR_H_INT | SWS_BITEXACT;
  struct Option {
    char const *name;
    int value;
  };
  Option const options[] = {
      {"srcw", width},
      {"srch", height},
      {"src_format", AV_PIX_FMT_RGB24},
      {"dstw", width},
      {"dsth", height},
      {"dst_format", format},
      {"sws_flags", flags},
      {"threads", static_cast<int>(threads)},
      // In 256th of a pixel from the first one.
      {"dst_h_chr_pos", 0},
      {"dst_v_chr_pos", 128},
  };
  return std::all_of(std::begin(options), std::end(options), [&scaler](Option const &option) {
    return av_opt_set_int(&scaler, option.name, option.value, 0) >= 0;
  });
}

libav::Owned<SwsContext> NewScaler(int width, int height, AVPixelFormat format,
                                   AVColorSpace matrix) {
  libav::Owned<SwsContext> scaler = libav::Own(sws_alloc_context());
  if (!SetOptions(*scaler, width, height, format) ||
      sws_init_context(scaler.get(), nullptr, nullptr) < 0) {
    throw std::invalid_argument(wxTRANSLATE("no conversion of this size"));
  }
  int const *const coefficients = sws_getCoefficients(matrix);
  if (sws_setColorspaceDetails(scaler.get(), coefficients, 1, coefficients, 0, 0, kUnchanged,
                               kUnchanged) < 0) {
    throw std::invalid_argument(wxTRANSLATE("no conversion with this matrix"));
  }
  return scaler;
}

}  // namespace

PictureConverter::PictureConverter(int width, int height, AVPixelFormat format, AVColorSpace matrix)
    : m_to(NewFrame(width, height, format)) {
  if (format == AV_PIX_FMT_0RGB32) return;
  m_scaler = NewScaler(width, height, format, matrix);
  m_from = NewFrame(width, height, AV_PIX_FMT_RGB24);
}

AVFrame &PictureConverter::Convert(Picture const &picture) {
  // Who encodes may still hold the last result.
  if (av_frame_make_writable(m_to.get()) < 0) throw std::bad_alloc();
  if (m_scaler) {
    TakeIn(picture);
    if (sws_scale_frame(m_scaler.get(), m_to.get(), m_from.get()) < 0) throw std::bad_alloc();
  } else {
    Spread(picture);
  }
  return *m_to;
}

// swscale's fast routines may read past the end of a row, which the frame has room for and the
// picture has not.
void PictureConverter::TakeIn(Picture const &picture) {
  assert(picture.Width() <= m_from->width && picture.Height() <= m_from->height);
  if (av_frame_make_writable(m_from.get()) < 0) throw std::bad_alloc();
  std::size_t const fullBytes = static_cast<std::size_t>(m_from->width) * Picture::kChannels;
  for (int y = 0; y < m_from->height; ++y) {
    unsigned char const *const from = RowOf(picture, std::min(y, picture.Height() - 1));
    unsigned char *const to = RowOf(*m_from, y);
    std::memcpy(to, from, picture.RowBytes());
    for (std::size_t i = picture.RowBytes(); i < fullBytes; ++i) to[i] = to[i - Picture::kChannels];
  }
}

// swscale takes the long way from 24 to 32 bits, at a quarter of this speed.
void PictureConverter::Spread(Picture const &picture) {
  assert(picture.Width() == m_to->width && picture.Height() == m_to->height);
  for (int y = 0; y < m_to->height; ++y) {
    unsigned char const *from = RowOf(picture, y);
    auto *const to = reinterpret_cast<std::uint32_t *>(RowOf(*m_to, y));
    for (int x = 0; x < m_to->width; ++x, from += Picture::kChannels) {
      to[x] = std::uint32_t{from[0]} << 16 | std::uint32_t{from[1]} << 8 | from[2];
    }
  }
}
