// SPDX-License-Identifier: MIT
#pragma once

#include <ctime>

namespace framenote::fuzz {

/// Takes the processor time of one input, of all threads, as a loaded machine makes any other time
/// mean little. More than a second under sanitizers is a defect. When the process ends, the longest
/// time is printed.
class InputClock {
public:
  InputClock();
  InputClock(InputClock const &) = delete;
  InputClock &operator=(InputClock const &) = delete;
  ~InputClock();

private:
  std::clock_t m_start;
};

}  // namespace framenote::fuzz
