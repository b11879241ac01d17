// SPDX-License-Identifier: MIT
#include "talcore/enlarged_picture.h"

#include <algorithm>
#include <cmath>

namespace framenote {

namespace {

constexpr std::size_t kChannels = 3;
/// All weights of a pixel together.
constexpr double kWhole = 65535.0;
/// Lines are kept in 1/256 of a level.
constexpr int kFraction = 256;

/// Weights of the uniform cubic B-spline, `t` past the second of the four pixels.
std::array<double, 4> SplineWeights(double t) {
  double const s = 1.0 - t;
  return {s * s * s / 6.0, (3.0 * t * t * t - 6.0 * t * t + 4.0) / 6.0,
          (3.0 * s * s * s - 6.0 * s * s + 4.0) / 6.0, t * t * t / 6.0};
}

/// One row of the enlarged picture from `N` lines.
template <std::size_t N>
void JoinLines(std::array<std::uint16_t const *, N> const &lines,
               std::array<std::uint16_t, 4> const &weights, unsigned char *out,
               std::size_t samples) {
  for (std::size_t k = 0; k < samples; ++k) {
    // Each product keeps its upper half, so that the row is worked on in 16-bit lanes.
    unsigned sum = kFraction / 2;
    for (std::size_t n = 0; n < N; ++n) sum += unsigned{lines[n][k]} * weights[n] >> 16;
    out[k] = static_cast<unsigned char>(sum >> 8);
  }
}

}  // namespace

EnlargedPicture::EnlargedPicture(PixelView const &picture, int width, int height, ZoomMethod method)
    : m_picture(picture), m_width(width), m_height(height), m_method(method) {
  // At its own size a picture is left as it is, whatever the method.
  if (width == picture.width && height == picture.height) m_method = ZoomMethod::Nearest;
}

unsigned char const *EnlargedPicture::row(int y) const {
  return m_picture.data + static_cast<std::size_t>(y) * static_cast<std::size_t>(m_picture.step);
}

/// The step from one enlarged pixel to the next is rounded down to 1/65536 of a pixel.
int EnlargedPicture::nearest(int place, int length, int enlarged) const {
  std::int64_t const step = (std::int64_t{length} << 16) / enlarged;
  return static_cast<int>(place * step >> 16);
}

EnlargedPicture::Taps EnlargedPicture::tapsAt(int place, int length, int enlarged) const {
  Taps taps{};
  auto const set = [&](std::size_t n, int pixel, double weight) {
    taps.pixels[n] = std::clamp(pixel, 0, length - 1);
    taps.weights[n] = static_cast<std::uint16_t>(std::lround(weight * kWhole));
  };
  if (m_method == ZoomMethod::BoxAverage) {
    // All pixels that the enlarged one overlaps, however little: one or two.
    auto const first = std::int64_t{place} * length / enlarged;
    auto const last = ((std::int64_t{place} + 1) * length - 1) / enlarged;
    set(0, static_cast<int>(first), 0.5);
    set(1, static_cast<int>(last), 0.5);
    return taps;
  }
  // The first and the last pixels of both pictures lie on each other.
  double const at = enlarged > 1 ? place * (length - 1.0) / (enlarged - 1.0) : 0.0;
  auto const first = static_cast<int>(at);
  double const t = at - first;
  if (m_method == ZoomMethod::Bilinear) {
    set(0, first, 1.0 - t);
    set(1, first + 1, t);
    return taps;
  }
  std::array<double, 4> const weights = SplineWeights(t);
  for (std::size_t n = 0; n < kMaxTaps; ++n) set(n, first + static_cast<int>(n) - 1, weights[n]);
  return taps;
}

void EnlargedPicture::Render(PixelArea const &part, unsigned char *pixels, std::size_t step) const {
  if (part.width <= 0 || part.height <= 0) return;
  if (m_method == ZoomMethod::Nearest) {
    renderNearest(part, pixels, step);
  } else {
    renderJoined(part, pixels, step);
  }
}

void EnlargedPicture::renderNearest(PixelArea const &part, unsigned char *pixels,
                                    std::size_t step) const {
  std::size_t const samples = static_cast<std::size_t>(part.width) * kChannels;
  std::vector<std::size_t> columns(static_cast<std::size_t>(part.width));
  for (int i = 0; i < part.width; ++i) {
    columns[static_cast<std::size_t>(i)] =
        static_cast<std::size_t>(nearest(part.x + i, m_picture.width, m_width)) * kChannels;
  }
  int lastRow = -1;
  for (int j = 0; j < part.height; ++j) {
    unsigned char *const line = pixels + static_cast<std::size_t>(j) * step;
    int const y = nearest(part.y + j, m_picture.height, m_height);
    if (y == lastRow) {
      std::copy_n(line - step, samples, line);
      continue;
    }
    unsigned char const *const from = row(y);
    unsigned char *to = line;
    for (std::size_t const column : columns) {
      *to++ = from[column];
      *to++ = from[column + 1];
      *to++ = from[column + 2];
    }
    lastRow = y;
  }
}

void EnlargedPicture::joinRow(int y, std::vector<Taps> const &columns, Line &line) const {
  unsigned char const *const from = row(y);
  std::size_t const count = m_method == ZoomMethod::Bicubic ? kMaxTaps : 2;
  line.resize(columns.size() * kChannels);
  std::uint16_t *to = line.data();
  for (Taps const &taps : columns) {
    std::uint32_t red = 0;
    std::uint32_t green = 0;
    std::uint32_t blue = 0;
    for (std::size_t n = 0; n < count; ++n) {
      unsigned char const *const pixel =
          from + static_cast<std::size_t>(taps.pixels[n]) * kChannels;
      red += std::uint32_t{pixel[0]} * taps.weights[n];
      green += std::uint32_t{pixel[1]} * taps.weights[n];
      blue += std::uint32_t{pixel[2]} * taps.weights[n];
    }
    *to++ = static_cast<std::uint16_t>(red >> 8);
    *to++ = static_cast<std::uint16_t>(green >> 8);
    *to++ = static_cast<std::uint16_t>(blue >> 8);
  }
}

// Along its rows each row of the picture is joined once; the lines are kept in the places of their
// numbers while rows of the enlarged picture are joined from them.
void EnlargedPicture::renderJoined(PixelArea const &part, unsigned char *pixels,
                                   std::size_t step) const {
  std::vector<Taps> columns;
  columns.reserve(static_cast<std::size_t>(part.width));
  for (int i = 0; i < part.width; ++i) {
    columns.push_back(tapsAt(part.x + i, m_picture.width, m_width));
  }
  std::size_t const samples = columns.size() * kChannels;
  std::array<Line, kMaxTaps> lines;
  std::array<int, kMaxTaps> numbers;
  numbers.fill(-1);
  auto const lineOf = [&](int y) {
    auto const place = static_cast<std::size_t>(y) % kMaxTaps;
    if (numbers[place] != y) joinRow(y, columns, lines[place]);
    numbers[place] = y;
    return static_cast<std::uint16_t const *>(lines[place].data());
  };
  for (int j = 0; j < part.height; ++j) {
    Taps const taps = tapsAt(part.y + j, m_picture.height, m_height);
    unsigned char *const out = pixels + static_cast<std::size_t>(j) * step;
    auto const at = [&](std::size_t n) { return lineOf(taps.pixels[n]); };
    if (m_method == ZoomMethod::Bicubic) {
      JoinLines<4>({at(0), at(1), at(2), at(3)}, taps.weights, out, samples);
    } else {
      JoinLines<2>({at(0), at(1)}, taps.weights, out, samples);
    }
  }
}

}  // namespace framenote
