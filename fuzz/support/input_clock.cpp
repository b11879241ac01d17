// SPDX-License-Identifier: MIT
#include "support/input_clock.h"

#include <algorithm>
#include <cstdio>
#include <string>

#include "support/session.h"

namespace framenote::fuzz {
namespace {

constexpr double kLimit = 1.0;  ///< seconds

class Longest {
public:
  Longest() = default;
  Longest(Longest const &) = delete;
  Longest &operator=(Longest const &) = delete;
  ~Longest() { std::fprintf(stderr, "slowest input: %.3f s of processor time\n", m_seconds); }

  void Take(double seconds) { m_seconds = std::max(m_seconds, seconds); }

private:
  double m_seconds = 0.0;
};

}  // namespace

InputClock::InputClock() : m_start(std::clock()) {}

InputClock::~InputClock() {
  static Longest longest;
  static bool isFirst = true;
  double const seconds = static_cast<double>(std::clock() - m_start) / CLOCKS_PER_SEC;
  // The first input pays for what is loaded once: fonts above all.
  if (isFirst) {
    isFirst = false;
    return;
  }
  longest.Take(seconds);
  if (seconds > kLimit) Fail("an input took " + std::to_string(seconds) + " s of processor time");
}

}  // namespace framenote::fuzz
