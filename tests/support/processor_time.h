// SPDX-License-Identifier: MIT
#pragma once

#include <ctime>

namespace framenote::test {

/// The time that this process has worked since the watch was made. Other programs of a busy machine
/// do not count.
class ProcessorTime {
public:
  double Seconds() const { return double(std::clock() - m_start) / CLOCKS_PER_SEC; }

private:
  std::clock_t m_start = std::clock();
};

}  // namespace framenote::test
