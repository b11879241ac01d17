// SPDX-License-Identifier: MIT
#include "media/picture_turn.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace {

/// A whole-pixel walk over the source: where the target's first pixel lies, and how far the source
/// moves for a step to the right and for a step down. In pixels.
struct Walk {
  std::ptrdiff_t first;
  std::ptrdiff_t right;
  std::ptrdiff_t down;
};

Walk WalkOf(PictureTurn const &turn, std::ptrdiff_t width, std::ptrdiff_t height) {
  // Steps of the source for one step to the right and down in the target, before mirroring.
  static constexpr std::array<std::array<int, 4>, 4> kSteps = {{
      {1, 0, 0, 1},    //
      {0, -1, 1, 0},   // a quarter clockwise: rightward in the target is upward in the source
      {-1, 0, 0, -1},  //
      {0, 1, -1, 0},   //
  }};
  auto const &steps = kSteps[static_cast<std::size_t>(turn.quarters)];
  std::ptrdiff_t const mirror = turn.isMirrored ? -1 : 1;
  std::ptrdiff_t const rightX = steps[0] * mirror, rightY = steps[1];
  std::ptrdiff_t const downX = steps[2] * mirror, downY = steps[3];
  // Whichever axis is walked backwards starts at its end.
  std::ptrdiff_t const x = rightX + downX < 0 ? width - 1 : 0;
  std::ptrdiff_t const y = rightY + downY < 0 ? height - 1 : 0;
  return {y * width + x, rightY * width + rightX, downY * width + downX};
}

int SignOf(double value) {
  return (value > 0.0) - (value < 0.0);
}

}  // namespace

PictureTurn TurnOfExif(int orientation) {
  // EXIF 2.3, tag 0x0112.
  static constexpr std::array<PictureTurn, 9> kTurns = {{
      {0, false},
      {0, false},
      {0, true},
      {2, false},
      {2, true},
      {3, true},
      {1, false},
      {1, true},
      {3, false},
  }};
  bool const isKnown = orientation >= 1 && orientation <= 8;
  return kTurns[isKnown ? static_cast<std::size_t>(orientation) : 0];
}

PictureTurn TurnOfMatrix(double a, double b, double c, double d) {
  for (bool const isMirrored : {false, true}) {
    int const mirror = isMirrored ? -1 : 1;
    // A quarter clockwise sends (x, y) to (-y, x).
    int turned[4] = {mirror, 0, 0, 1};
    for (int quarters = 0; quarters < 4; ++quarters) {
      if (turned[0] == SignOf(a) && turned[1] == SignOf(b) && turned[2] == SignOf(c) &&
          turned[3] == SignOf(d)) {
        return {quarters, isMirrored};
      }
      std::swap(turned[0], turned[1]);
      std::swap(turned[2], turned[3]);
      turned[0] = -turned[0];
      turned[2] = -turned[2];
    }
  }
  return {};
}

Picture Turned(Picture picture, PictureTurn const &turn) {
  if (turn.IsNone()) return picture;
  int const width = turn.IsSideways() ? picture.Height() : picture.Width();
  int const height = turn.IsSideways() ? picture.Width() : picture.Height();
  Picture target(width, height);
  Walk const walk = WalkOf(turn, picture.Width(), picture.Height());
  constexpr std::ptrdiff_t kPixel = Picture::kChannels;
  unsigned char *out = target.Pixels();
  for (int y = 0; y < height; ++y) {
    unsigned char const *in = picture.Pixels() + (walk.first + y * walk.down) * kPixel;
    for (int x = 0; x < width; ++x, in += walk.right * kPixel, out += kPixel) {
      std::memcpy(out, in, kPixel);
    }
  }
  return target;
}
