// SPDX-License-Identifier: MIT
#pragma once

#include <random>

#include <wx/image.h>

namespace framenote::test {

/// Noise: no pixel is like its neighbours. The same each time.
inline wxImage NoisePicture(int width, int height, unsigned seed = 1) {
  wxImage picture(width, height, false);
  std::mt19937 random(seed);
  unsigned char *const bytes = picture.GetData();
  for (int i = 0; i < width * height * 3; ++i) bytes[i] = static_cast<unsigned char>(random());
  return picture;
}

/// The column in red and the row in green: each pixel tells where it comes from, below 256.
inline wxImage PlacePicture(int width, int height) {
  wxImage picture(width, height, false);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      picture.SetRGB(x, y, static_cast<unsigned char>(x), static_cast<unsigned char>(y), 128);
    }
  }
  return picture;
}

}  // namespace framenote::test
