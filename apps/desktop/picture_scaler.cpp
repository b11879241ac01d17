// SPDX-License-Identifier: MIT
#include "desktop/picture_scaler.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace {

constexpr int kChannels = 3;
/// Weights are parts of 2^14: with the 16 bits of a half-scaled value a sum stays below 2^31.
constexpr int kWeightBits = 14;
constexpr int kOne = 1 << kWeightBits;
/// Values between the two passes: 8 bits of the value and 8 below.
constexpr int kMiddleBits = 8;
/// How far a copy is reduced for the view before the next copy is taken instead:
/// with several of its pixels for each of the view nothing is blurred.
constexpr double kLeastOfLevel = 0.25;

std::size_t Size(int number) {
  return static_cast<std::size_t>(number);
}

/// What one pixel of the target is made of, along one direction.
struct Taps {
  int first = 0;
  std::vector<std::uint16_t> weights;
};

/// Weights that stand for `shares`, and whose sum is exactly one: a plain area stays what it is.
Taps TapsOf(int first, std::vector<double> const &shares) {
  double sum = 0.0;
  for (double const share : shares) sum += share;
  Taps taps{first, {}};
  int left = kOne;
  std::size_t largest = 0;
  for (std::size_t i = 0; i < shares.size(); ++i) {
    int const weight = static_cast<int>(shares[i] / sum * kOne);
    taps.weights.push_back(static_cast<std::uint16_t>(weight));
    left -= weight;
    if (shares[i] > shares[largest]) largest = i;
  }
  taps.weights[largest] = static_cast<std::uint16_t>(taps.weights[largest] + left);
  return taps;
}

Taps NearestTap(double centre, int size) {
  int const index = static_cast<int>(std::floor(centre));
  return {std::min(std::max(index, 0), size - 1), {kOne}};
}

Taps LinearTaps(double centre, int size) {
  double const place = std::min(std::max(centre - 0.5, 0.0), size - 1.0);
  int const first = std::min(static_cast<int>(place), std::max(0, size - 2));
  if (size == 1) return {0, {kOne}};
  return TapsOf(first, {1.0 - (place - first), place - first});
}

/// The mean from `from` to `to`; the last pixel may lie partly beyond `extent`.
Taps AreaTaps(double from, double to, double extent, int size) {
  double const end = std::min(to, extent);
  int const first = std::min(std::max(static_cast<int>(std::floor(from)), 0), size - 1);
  std::vector<double> shares;
  for (int i = first; i < size && i < end; ++i) {
    shares.push_back(std::min(end, i + 1.0) - std::max(from, static_cast<double>(i)));
  }
  double sum = 0.0;
  for (double &share : shares) sum += share = std::max(share, 0.0);
  // The last pixel of a rounded size may lie past the end.
  if (sum <= 0.0) return {size - 1, {kOne}};
  return TapsOf(first, shares);
}

enum class Kernel { Nearest, Linear, Area };

/// One direction of a scaling.
struct Direction {
  int size;       ///< of the source
  double extent;  ///< what of it belongs to the picture
  int origin;     ///< of the picture in the target's coordinates
  double zoom;    ///< of the source
};

std::vector<Taps> TapsFor(Direction const &along, int from, int length, Kernel kernel) {
  std::vector<Taps> taps;
  taps.reserve(Size(length));
  for (int i = from - along.origin; i < from - along.origin + length; ++i) {
    double const centre = (i + 0.5) / along.zoom;
    if (kernel == Kernel::Nearest) {
      taps.push_back(NearestTap(centre, along.size));
    } else if (kernel == Kernel::Linear) {
      taps.push_back(LinearTaps(centre, along.size));
    } else {
      taps.push_back(AreaTaps(i / along.zoom, (i + 1) / along.zoom, along.extent, along.size));
    }
  }
  return taps;
}

// The loops below carry the time; they are plain so that the compiler makes vectors of them.
void AddRow(std::uint32_t *sums, unsigned char const *row, std::uint16_t weight,
            std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    sums[i] += static_cast<std::uint32_t>(weight) * static_cast<std::uint16_t>(row[i]);
  }
}

void StoreMiddle(std::uint16_t *middle, std::uint32_t const *sums, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    middle[i] = static_cast<std::uint16_t>(sums[i] >> (kWeightBits - kMiddleBits));
  }
}

/// The row of the target from a row that is scaled in height already; `start` is its first column.
void ScaleRow(unsigned char *out, std::uint16_t const *middle, int start,
              std::vector<Taps> const &columns) {
  constexpr int kShift = kWeightBits + kMiddleBits;
  constexpr std::uint32_t kHalf = 1U << (kShift - 1);
  for (Taps const &taps : columns) {
    std::uint16_t const *in = middle + Size((taps.first - start) * kChannels);
    std::uint32_t red = kHalf, green = kHalf, blue = kHalf;
    for (std::uint32_t const weight : taps.weights) {
      red += weight * in[0];
      green += weight * in[1];
      blue += weight * in[2];
      in += kChannels;
    }
    *out++ = static_cast<unsigned char>(red >> kShift);
    *out++ = static_cast<unsigned char>(green >> kShift);
    *out++ = static_cast<unsigned char>(blue >> kShift);
  }
}

/// The mean of each two by two pixels; the last of an odd number stands alone.
wxImage Halved(unsigned char const *data, int width, int height) {
  wxImage half((width + 1) / 2, (height + 1) / 2, false);
  unsigned char *out = half.GetData();
  std::size_t const rowBytes = Size(width) * kChannels;
  for (int y = 0; y < height; y += 2) {
    unsigned char const *const upper = data + Size(y) * rowBytes;
    unsigned char const *const lower = y + 1 < height ? upper + rowBytes : upper;
    for (int x = 0; x < width; x += 2) {
      std::size_t const left = Size(x) * kChannels;
      std::size_t const right = x + 1 < width ? left + kChannels : left;
      for (std::size_t c = 0; c < kChannels; ++c) {
        int const sum = upper[left + c] + upper[right + c] + lower[left + c] + lower[right + c];
        *out++ = static_cast<unsigned char>((sum + 2) / 4);
      }
    }
  }
  return half;
}

/// Copies pixels; nothing is computed.
void RenderNearest(wxImage &image, unsigned char const *data, int width,
                   std::vector<Taps> const &columns, std::vector<Taps> const &rows) {
  std::size_t const rowBytes = columns.size() * kChannels;
  unsigned char *out = image.GetData();
  for (std::size_t y = 0; y < rows.size(); ++y, out += rowBytes) {
    if (y > 0 && rows[y].first == rows[y - 1].first) {
      std::memcpy(out, out - rowBytes, rowBytes);
      continue;
    }
    unsigned char const *const row = data + Size(rows[y].first) * Size(width) * kChannels;
    unsigned char *pixel = out;
    for (Taps const &taps : columns) {
      std::memcpy(pixel, row + Size(taps.first) * kChannels, kChannels);
      pixel += kChannels;
    }
  }
}

/// First in height, over whole rows, then in width.
void RenderWeighted(wxImage &image, unsigned char const *data, int width,
                    std::vector<Taps> const &columns, std::vector<Taps> const &rows) {
  int const start = columns.front().first;
  int end = start;
  for (Taps const &taps : columns) {
    end = std::max(end, taps.first + static_cast<int>(taps.weights.size()));
  }
  std::size_t const count = Size(end - start) * kChannels;
  std::vector<std::uint32_t> sums(count);
  std::vector<std::uint16_t> middle(count);
  unsigned char *out = image.GetData();
  for (Taps const &taps : rows) {
    std::fill(sums.begin(), sums.end(), 0U);
    for (std::size_t i = 0; i < taps.weights.size(); ++i) {
      std::size_t const pixel = (Size(taps.first) + i) * Size(width) + Size(start);
      AddRow(sums.data(), data + pixel * kChannels, taps.weights[i], count);
    }
    StoreMiddle(middle.data(), sums.data(), count);
    ScaleRow(out, middle.data(), start, columns);
    out += columns.size() * kChannels;
  }
}

}  // namespace

void PictureScaler::SetPicture(wxImage const &picture, bool isBrief) {
  // The same pixels again, now to stay: what was made of them holds.
  bool const isSame = picture.IsOk() && m_picture.IsOk() && picture.IsSameAs(m_picture);
  if (!isSame) m_levels.clear();
  m_picture = picture;
  m_isBrief = isBrief;
}

PictureScaler::Pixels PictureScaler::level(int index) const {
  wxImage const &image = index == 0 ? m_picture : m_levels[Size(index - 1)];
  return {image.GetData(), image.GetWidth(), image.GetHeight()};
}

void PictureScaler::makeLevels(int count) {
  for (int made = static_cast<int>(m_levels.size()); made < count; ++made) {
    Pixels const larger = level(made);
    m_levels.push_back(Halved(larger.data, larger.width, larger.height));
  }
}

wxImage PictureScaler::Render(wxRect const &target, wxPoint const &origin, double zoom,
                              Enlarging enlarging) {
  wxASSERT(m_picture.IsOk() && zoom > 0.0 && !target.IsEmpty());
  Kernel kernel = Kernel::Area;
  if (zoom == 1.0 || (zoom > 1.0 && enlarging == Enlarging::Pixels)) {
    kernel = Kernel::Nearest;
  } else if (zoom > 1.0) {
    kernel = Kernel::Linear;
  }
  int index = 0;
  double levelZoom = zoom;
  for (; !m_isBrief && levelZoom < kLeastOfLevel; ++index) levelZoom *= 2.0;
  makeLevels(index);
  Pixels const source = level(index);
  double const parts = std::ldexp(1.0, index);
  std::vector<Taps> const columns =
      TapsFor({source.width, m_picture.GetWidth() / parts, origin.x, levelZoom}, target.x,
              target.width, kernel);
  std::vector<Taps> const rows =
      TapsFor({source.height, m_picture.GetHeight() / parts, origin.y, levelZoom}, target.y,
              target.height, kernel);
  wxImage image(target.width, target.height, false);
  auto const render = kernel == Kernel::Nearest ? RenderNearest : RenderWeighted;
  render(image, source.data, source.width, columns, rows);
  return image;
}
