// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <cstddef>
#include <random>
#include <vector>

#include <wx/image.h>

#include "talcore/pixel_view.h"

namespace framenote::test {

constexpr std::size_t kChannels = 3;

/// A picture with edges, slopes and noise, the same each time.
inline wxImage MixedPicture(int width, int height) {
  wxImage picture(width, height, false);
  std::mt19937 random(7);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      auto const noise = static_cast<unsigned char>(random() % 256);
      auto const slope = static_cast<unsigned char>(255 * x / width);
      auto const edges = static_cast<unsigned char>((x / 9 + y / 7) % 2 == 0 ? 230 : 20);
      picture.SetRGB(x, y, noise, slope, edges);
    }
  }
  return picture;
}

inline PixelView ViewOf(wxImage const &picture) {
  return {picture.GetData(), picture.GetWidth(), picture.GetHeight(),
          picture.GetWidth() * static_cast<int>(kChannels)};
}

inline std::vector<unsigned char> BytesOf(wxImage const &picture) {
  std::size_t const size = static_cast<std::size_t>(picture.GetWidth()) *
                           static_cast<std::size_t>(picture.GetHeight()) * kChannels;
  return {picture.GetData(), picture.GetData() + size};
}

/// Pearson's correlation of two pictures of one size.
inline double Correlation(std::vector<unsigned char> const &a,
                          std::vector<unsigned char> const &b) {
  auto const n = static_cast<double>(a.size());
  double sumA = 0.0;
  double sumB = 0.0;
  double sumAA = 0.0;
  double sumBB = 0.0;
  double sumAB = 0.0;
  for (std::size_t i = 0; i < a.size(); ++i) {
    sumA += a[i];
    sumB += b[i];
    sumAA += double{1.0} * a[i] * a[i];
    sumBB += double{1.0} * b[i] * b[i];
    sumAB += double{1.0} * a[i] * b[i];
  }
  double const spread = (sumAA - sumA * sumA / n) * (sumBB - sumB * sumB / n);
  return (sumAB - sumA * sumB / n) / std::sqrt(spread);
}

}  // namespace framenote::test
