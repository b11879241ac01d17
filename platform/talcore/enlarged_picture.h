// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "framenote/export.h"
#include "talcore/pixel_view.h"

namespace framenote {

/// How pixels between the picture's own are found: the nearest one; straight lines; a cubic
/// B-spline; the mean of all that are overlapped.
enum class ZoomMethod : int { Nearest = 0, Bilinear = 1, Bicubic = 2, BoxAverage = 3 };

/// A picture enlarged to a size, of which only the parts that are asked for are worked out: any
/// zoom costs no more than what is seen of it.
///
/// The pixels are those that the toolkit's images have when they are scaled to that size by the
/// method of the same name, within two levels. Reading from several threads is safe.
class FRAMENOTE_API EnlargedPicture {
public:
  /// `picture` must outlive this. REQUIRES: it is not empty, and `width` and `height` are not less
  /// than its own.
  EnlargedPicture(PixelView const &picture, int width, int height, ZoomMethod method);

  /// Writes `part`, which lies in the enlarged picture, to `pixels`, rows `step` bytes apart.
  void Render(PixelArea const &part, unsigned char *pixels, std::size_t step) const;

private:
  static constexpr std::size_t kMaxTaps = 4;
  /// The pixels along one side that an enlarged pixel is joined from, and their weights in 1/65536.
  struct Taps {
    std::array<int, kMaxTaps> pixels;
    std::array<std::uint16_t, kMaxTaps> weights;
  };
  using Line = std::vector<std::uint16_t>;

  unsigned char const *row(int y) const;
  int nearest(int place, int length, int enlarged) const;
  Taps tapsAt(int place, int length, int enlarged) const;
  void renderNearest(PixelArea const &part, unsigned char *pixels, std::size_t step) const;
  void renderJoined(PixelArea const &part, unsigned char *pixels, std::size_t step) const;
  void joinRow(int y, std::vector<Taps> const &columns, Line &line) const;

  PixelView m_picture;
  int m_width;
  int m_height;
  ZoomMethod m_method;
};

}  // namespace framenote
