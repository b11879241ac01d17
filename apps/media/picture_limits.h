// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

/// What drawing accepts on either side; device contexts count in 16 bits.
constexpr int kLongestSide = 32766;
/// Three bytes each make three quarters of a gigabyte.
constexpr std::int64_t kMostPixels = std::int64_t{1} << 28;

/// Whether pictures of this size are decoded at all.
constexpr bool IsAcceptedSize(std::int64_t width, std::int64_t height) {
  return width > 0 && height > 0 && width <= kLongestSide && height <= kLongestSide &&
         width * height <= kMostPixels;
}
