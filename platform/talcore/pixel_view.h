// SPDX-License-Identifier: MIT
#pragma once

namespace framenote {

/// Pixels of three channels of 8 bits, interleaved, rows `step` bytes apart. Not owned.
struct PixelView {
  unsigned char const *data;
  int width;
  int height;
  int step;
};

/// A part of a picture, in its pixels.
struct PixelArea {
  int x;
  int y;
  int width;
  int height;
};

}  // namespace framenote
