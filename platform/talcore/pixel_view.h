// SPDX-License-Identifier: MIT
#pragma once

namespace framenote {

/// Pixels of three channels of 8 bits, interleaved, rows `step` bytes apart. Not owned.
struct PixelView {
  unsigned char const *data;  ///< the top left pixel
  int width;                  ///< in pixels
  int height;                 ///< in pixels
  int step;                   ///< in bytes
};

/// A part of a picture, in its pixels.
struct PixelArea {
  int x;       ///< left
  int y;       ///< top
  int width;   ///< in pixels
  int height;  ///< in pixels
};

}  // namespace framenote
