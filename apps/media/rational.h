// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

/// A fraction, as video streams give time bases, rates and pixel shapes. 0/1 where it is unknown.
struct Rational {
  std::int64_t numerator = 0;
  std::int64_t denominator = 1;

  /// The value; 0 for a denominator of 0.
  double Value() const {
    if (denominator == 0) return 0.0;
    return static_cast<double>(numerator) / static_cast<double>(denominator);
  }
};
