// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <iterator>
#include <random>

namespace framenote::fuzz {

/// The choices of a mutator: the same seed makes the same choices.
class Chance {
public:
  explicit Chance(unsigned int seed) : m_engine(seed) {}

  /// From 0 to `count` - 1; 0 if there is nothing to choose from.
  std::size_t Below(std::size_t count) { return count > 0 ? m_engine() % count : 0; }
  bool OneIn(std::size_t count) { return Below(count) == 0; }
  /// Both ends count.
  int Between(int least, int most) {
    return least + static_cast<int>(Below(static_cast<std::size_t>(most - least) + 1));
  }
  template <class Range>
  auto const &Pick(Range const &range) {
    return *std::next(std::begin(range), static_cast<std::ptrdiff_t>(Below(std::size(range))));
  }

private:
  std::mt19937 m_engine;
};

}  // namespace framenote::fuzz
