// SPDX-License-Identifier: MIT
#include "talcore/hidden_picture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <type_traits>

namespace framenote {

namespace {

constexpr std::size_t kChannels = 3;
/// Means are kept in so many parts of a level.
constexpr int kFraction = 256;
constexpr int kSplineTaps = 4;
/// One and a half times so many rows of bytes add up to less than 2^16.
constexpr int kMaxBlockOf16Bits = 170;

/// Standard deviation of the blur, in widths of the blocks that pixelation takes at that strength:
/// at equal strengths both effects keep about as much of the picture.
constexpr double kSigma = 0.75;
/// Variances, in squared block widths: of the mean over a block, and of the cubic B-spline.
constexpr double kBlockVariance = 1.0 / 12.0;
constexpr double kSplineVariance = 1.0 / 3.0;
/// The most that one pass of the kernel (p, 1 - 2p, p) adds with no weight below that of its sides.
constexpr double kMaxPassVariance = 0.5;

/// The side of a block of blur, of the side that pixelation has at that strength.
int BlurBlock(int pixelationBlock) {
  return std::max(1, pixelationBlock * 2 / 3);
}

/// What smoothing must add so that the blur has its standard deviation, in squared blocks.
double SmoothingVariance(int pixelationBlock) {
  double const sigma = kSigma * pixelationBlock / BlurBlock(pixelationBlock);
  return std::max(0.0, sigma * sigma - kBlockVariance - kSplineVariance);
}

int SmoothingPasses(double variance) {
  return static_cast<int>(std::ceil(variance / kMaxPassVariance));
}

/// `Sum` holds 255 times the rows of a block.
template <class Sum>
void AddLine(unsigned char const *line, std::vector<Sum> &sums) {
  for (std::size_t k = 0; k < sums.size(); ++k) sums[k] = static_cast<Sum>(sums[k] + line[k]);
}

/// A mean, halves up. Twice the value is exact, as the value plus a half need not be.
std::uint16_t Rounded(float value) {
  return static_cast<std::uint16_t>((static_cast<int>(2.0F * value) + 1) / 2);
}

/// The sum of `width` pixels from `sums` on, times `factor`, rounded.
template <class Sum>
void WriteMean(Sum const *sums, int width, float factor, std::uint16_t *mean) {
  using Total = std::conditional_t<sizeof(Sum) == 2, std::uint32_t, std::uint64_t>;
  Total red = 0;
  Total green = 0;
  Total blue = 0;
  for (int x = 0; x < width; ++x, sums += kChannels) {
    red += sums[0];
    green += sums[1];
    blue += sums[2];
  }
  mean[0] = Rounded(static_cast<float>(red) * factor);
  mean[1] = Rounded(static_cast<float>(green) * factor);
  mean[2] = Rounded(static_cast<float>(blue) * factor);
}

/// One pass of (p, 1 - 2p, p) down the columns of `rows` lines; the ends are continued.
void SmoothDown(std::vector<float> const &in, std::vector<float> &out, std::size_t rows,
                std::size_t line, float p) {
  for (std::size_t j = 0; j < rows; ++j) {
    float const *const above = in.data() + (j > 0 ? j - 1 : 0) * line;
    float const *const here = in.data() + j * line;
    float const *const below = in.data() + (j + 1 < rows ? j + 1 : j) * line;
    float *const target = out.data() + j * line;
    for (std::size_t k = 0; k < line; ++k) {
      target[k] = p * (above[k] + below[k]) + (1.0F - 2.0F * p) * here[k];
    }
  }
}

/// The same along a line of pixels.
void SmoothAlong(float const *in, float *out, std::size_t line, float p) {
  auto const joined = [&](std::size_t before, std::size_t here, std::size_t after) {
    return p * (in[before] + in[after]) + (1.0F - 2.0F * p) * in[here];
  };
  if (line == kChannels) {
    std::copy_n(in, line, out);
    return;
  }
  std::size_t const last = line - kChannels;
  for (std::size_t c = 0; c < kChannels; ++c) out[c] = joined(c, c, c + kChannels);
  for (std::size_t k = kChannels; k < last; ++k) out[k] = joined(k - kChannels, k, k + kChannels);
  for (std::size_t k = last; k < line; ++k) out[k] = joined(k - kChannels, k, k);
}

}  // namespace

/// The four blocks that a pixel is joined from, and their weights in 1/65536.
struct HiddenPicture::Taps {
  int first;  ///< beyond the picture the block at its edge stands in
  std::array<std::uint16_t, kSplineTaps> weights;

  /// The uniform cubic B-spline through the blocks' middles, at the pixel's middle.
  Taps(int pixel, Axis const &axis) {
    double const place = (pixel + 0.5) / axis.block - 0.5;
    double const floor = std::floor(place);
    double const t = place - floor;
    double const s = 1.0 - t;
    std::array<double, kSplineTaps> const exact = {
        s * s * s / 6.0, (3.0 * t * t * t - 6.0 * t * t + 4.0) / 6.0,
        (3.0 * s * s * s - 6.0 * s * s + 4.0) / 6.0, t * t * t / 6.0};
    first = static_cast<int>(floor) - 1;
    std::transform(exact.begin(), exact.end(), weights.begin(), [](double weight) {
      return static_cast<std::uint16_t>(std::lround(weight * 65535.0));
    });
  }
};

HiddenPicture::Axis::Axis(int lengthInPixels, int blockInPixels)
    : length(lengthInPixels), block(blockInPixels), count(0), first(0), last(0) {
  // A rest of less than half a block joins the last one.
  int const rest = length % block;
  count = std::max(1, length / block + (2 * rest >= block ? 1 : 0));
  last = count;
}

void HiddenPicture::Axis::keepFor(int from, int size, int reach) {
  first = std::max(0, blockAt(from) - reach);
  last = std::min(count, blockAt(from + size - 1) + 1 + reach);
}

int HiddenPicture::Axis::begin(int index) const {
  return index * block;
}

int HiddenPicture::Axis::end(int index) const {
  return index + 1 == count ? length : (index + 1) * block;
}

int HiddenPicture::Axis::blockAt(int pixel) const {
  return std::min(pixel / block, count - 1);
}

HiddenPicture::HiddenPicture(PixelView const &picture, HideEffect effect, int strength)
    : HiddenPicture(picture, effect, strength, {0, 0, picture.width, picture.height}) {}

HiddenPicture::HiddenPicture(PixelView const &picture, HideEffect effect, int strength,
                             PixelArea const &part)
    : m_effect(effect), m_columns(1, 1), m_rows(1, 1) {
  int const used = EffectiveStrength(picture, strength);
  // Even the least strength leaves no pixel alone.
  int const whole = used + 1;
  bool const isBlur = effect == HideEffect::Blur;
  // The greatest one leaves a picture of one colour.
  bool const isOneBlock = used >= std::max(picture.width, picture.height);
  int const block = isBlur && !isOneBlock ? BlurBlock(whole) : whole;
  double const variance = isBlur ? SmoothingVariance(whole) : 0.0;
  // The spline reaches two blocks, and each pass of the smoothing one more.
  int const reach = isBlur ? 2 + SmoothingPasses(variance) : 0;
  m_columns = Axis(picture.width, block);
  m_rows = Axis(picture.height, block);
  m_columns.keepFor(part.x, part.width, reach);
  m_rows.keepFor(part.y, part.height, reach);
  takeMeans(picture);
  if (isBlur) smooth(variance);
}

int HiddenPicture::EffectiveStrength(PixelView const &picture, int strength) {
  return std::clamp(strength, 1, std::max({picture.width, picture.height, 1}));
}

std::uint16_t const *HiddenPicture::row(int index) const {
  std::size_t const line = static_cast<std::size_t>(m_columns.kept()) * kChannels;
  return m_means.data() + static_cast<std::size_t>(index - m_rows.first) * line;
}

void HiddenPicture::takeMeans(PixelView const &picture) {
  m_means.resize(static_cast<std::size_t>(m_columns.kept()) * kChannels *
                 static_cast<std::size_t>(m_rows.kept()));
  // The last block is up to one and a half times as high as the others.
  bool const fits16 = m_rows.block <= kMaxBlockOf16Bits && m_rows.length > 2 * m_rows.block;
  for (int j = m_rows.first; j < m_rows.last; ++j) {
    if (fits16) {
      takeMeansOfRow<std::uint16_t>(picture, j);
    } else {
      takeMeansOfRow<std::uint32_t>(picture, j);
    }
  }
}

template <class Sum>
void HiddenPicture::takeMeansOfRow(PixelView const &picture, int index) {
  int const begin = m_columns.begin(m_columns.first);
  std::vector<Sum> sums(static_cast<std::size_t>(m_columns.end(m_columns.last - 1) - begin) *
                        kChannels);
  for (int y = m_rows.begin(index); y < m_rows.end(index); ++y) {
    AddLine(picture.data + static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.step) +
                static_cast<std::size_t>(begin) * kChannels,
            sums);
  }
  int const height = m_rows.end(index) - m_rows.begin(index);
  Sum const *from = sums.data();
  std::uint16_t *to = m_means.data() + static_cast<std::size_t>(index - m_rows.first) *
                                           static_cast<std::size_t>(m_columns.kept()) * kChannels;
  for (int i = m_columns.first; i < m_columns.last; ++i) {
    int const width = m_columns.end(i) - m_columns.begin(i);
    auto const pixels = static_cast<float>(width) * static_cast<float>(height);
    WriteMean(from, width, static_cast<float>(kFraction) / pixels, to);
    from += static_cast<std::size_t>(width) * kChannels;
    to += kChannels;
  }
}

void HiddenPicture::smooth(double variance) {
  int const passes = SmoothingPasses(variance);
  if (passes == 0) return;
  auto const p = static_cast<float>(variance / passes / 2.0);
  auto const rows = static_cast<std::size_t>(m_rows.kept());
  std::size_t const line = static_cast<std::size_t>(m_columns.kept()) * kChannels;
  std::vector<float> values(m_means.begin(), m_means.end());
  std::vector<float> next(values.size());
  for (int pass = 0; pass < passes; ++pass) {
    SmoothDown(values, next, rows, line, p);
    for (std::size_t j = 0; j < rows; ++j) {
      SmoothAlong(next.data() + j * line, values.data() + j * line, line, p);
    }
  }
  std::transform(values.begin(), values.end(), m_means.begin(), Rounded);
}

void HiddenPicture::Render(PixelArea const &part, unsigned char *pixels, std::size_t step) const {
  if (part.width <= 0 || part.height <= 0) return;
  if (m_effect == HideEffect::Blur) {
    renderSpline(part, pixels, step);
  } else {
    renderBlocks(part, pixels, step);
  }
}

void HiddenPicture::renderBlocks(PixelArea const &part, unsigned char *pixels,
                                 std::size_t step) const {
  std::size_t const samples = static_cast<std::size_t>(part.width) * kChannels;
  int lastBlock = -1;
  for (int y = 0; y < part.height; ++y) {
    unsigned char *const line = pixels + static_cast<std::size_t>(y) * step;
    int const block = m_rows.blockAt(part.y + y);
    if (block == lastBlock) {
      std::copy_n(line - step, samples, line);
    } else {
      fillLine(row(block), part, line);
    }
    lastBlock = block;
  }
}

void HiddenPicture::fillLine(std::uint16_t const *means, PixelArea const &part,
                             unsigned char *line) const {
  int const end = part.x + part.width;
  for (int x = part.x; x < end;) {
    int const block = m_columns.blockAt(x);
    auto const at = static_cast<std::size_t>(block - m_columns.first) * kChannels;
    auto const level = [&](std::size_t c) {
      return static_cast<unsigned char>((means[at + c] + kFraction / 2) / kFraction);
    };
    unsigned char const red = level(0);
    unsigned char const green = level(1);
    unsigned char const blue = level(2);
    for (int const stop = std::min(m_columns.end(block), end); x < stop; ++x) {
      *line++ = red;
      *line++ = green;
      *line++ = blue;
    }
  }
}

// All pixels at one place within their blocks have the same weights, so that their line is joined
// from four shifted copies of the means, and then put into its places.
void HiddenPicture::spreadRow(int index, PixelArea const &part, Line &line) const {
  std::uint16_t const *const means = row(index);
  Line joined(static_cast<std::size_t>(m_columns.kept()) * kChannels);
  line.resize(static_cast<std::size_t>(part.width) * kChannels);
  int const end = part.x + part.width;
  for (int phase = 0; phase < m_columns.block && phase < part.width; ++phase) {
    int const x = part.x + phase;
    Taps const taps(x, m_columns);
    int const first = taps.first - m_columns.first;
    // Where the block of the first tap runs off the kept blocks, its neighbours stand in.
    int const count = (end - x + m_columns.block - 1) / m_columns.block;
    joinShifted(means, first, count, taps, joined);
    std::uint16_t const *from = joined.data();
    std::uint16_t *to = line.data() + static_cast<std::size_t>(phase) * kChannels;
    for (int i = 0; i < count; ++i) {
      to[0] = from[0];
      to[1] = from[1];
      to[2] = from[2];
      from += kChannels;
      to += static_cast<std::size_t>(m_columns.block) * kChannels;
    }
  }
}

void HiddenPicture::joinShifted(std::uint16_t const *means, int first, int count, Taps const &taps,
                                Line &joined) const {
  int const kept = m_columns.kept();
  joined.resize(static_cast<std::size_t>(count) * kChannels);
  auto const join = [&](std::uint16_t const *m0, std::uint16_t const *m1, std::uint16_t const *m2,
                        std::uint16_t const *m3, std::uint16_t *out, std::size_t samples) {
    auto const [w0, w1, w2, w3] = taps.weights;
    for (std::size_t k = 0; k < samples; ++k) {
      out[k] =
          static_cast<std::uint16_t>((unsigned{m0[k]} * w0 >> 16) + (unsigned{m1[k]} * w1 >> 16) +
                                     (unsigned{m2[k]} * w2 >> 16) + (unsigned{m3[k]} * w3 >> 16));
    }
  };
  auto const block = [&](int i) {
    return means + static_cast<std::size_t>(std::clamp(i, 0, kept - 1)) * kChannels;
  };
  for (int i = 0; i < count;) {
    int const at = first + i;
    // Inside, all four taps move on together.
    int const run = at >= 0 ? std::min(count - i, kept - 3 - at) : 0;
    int const step = std::max(run, 1);
    join(block(at), block(at + 1), block(at + 2), block(at + 3),
         joined.data() + static_cast<std::size_t>(i) * kChannels,
         static_cast<std::size_t>(step) * kChannels);
    i += step;
  }
}

void HiddenPicture::renderSpline(PixelArea const &part, unsigned char *pixels,
                                 std::size_t step) const {
  std::size_t const samples = static_cast<std::size_t>(part.width) * kChannels;
  // The lines of the blocks that a row is joined from, each kept in the place of its number.
  std::array<Line, kSplineTaps> lines;
  std::array<int, kSplineTaps> numbers;
  numbers.fill(-1);
  for (int y = 0; y < part.height; ++y) {
    Taps const taps(part.y + y, m_rows);
    std::array<std::uint16_t const *, kSplineTaps> in{};
    for (int k = 0; k < kSplineTaps; ++k) {
      int const block = std::clamp(taps.first + k, 0, m_rows.count - 1);
      auto const place = static_cast<std::size_t>(block % kSplineTaps);
      if (numbers[place] != block) spreadRow(block, part, lines[place]);
      numbers[place] = block;
      in[static_cast<std::size_t>(k)] = lines[place].data();
    }
    auto const [w0, w1, w2, w3] = taps.weights;
    unsigned char *const out = pixels + static_cast<std::size_t>(y) * step;
    for (std::size_t k = 0; k < samples; ++k) {
      // Each product keeps its upper half, so that the row is worked on in 16-bit lanes.
      unsigned const sum = (unsigned{in[0][k]} * w0 >> 16) + (unsigned{in[1][k]} * w1 >> 16) +
                           (unsigned{in[2][k]} * w2 >> 16) + (unsigned{in[3][k]} * w3 >> 16);
      out[k] = static_cast<unsigned char>((sum + kFraction / 2) >> 8);
    }
  }
}

}  // namespace framenote
