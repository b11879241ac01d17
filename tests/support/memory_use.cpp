// SPDX-License-Identifier: MIT
#include "support/memory_use.h"

#include <cstdio>
#include <fstream>
#include <string>

#include <malloc.h>

#ifdef __SANITIZE_ADDRESS__
/// As the sanitizer's own header declares it, which not every compiler's package has.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

namespace framenote::test {

namespace {

constexpr double kMebi = 1024.0 * 1024.0;

#ifndef __SANITIZE_ADDRESS__
std::size_t ResidentBytes() {
  std::ifstream file("/proc/self/smaps_rollup");
  std::string word;
  std::size_t kibibytes = 0;
  while (file >> word) {
    if (word == "Rss:" && file >> kibibytes) return kibibytes * 1024;
  }
  return 0;
}
#endif

}  // namespace

MemoryUse MemoryUse::Now() {
#ifdef __SANITIZE_ADDRESS__
  std::size_t const allocated = __sanitizer_get_current_allocated_bytes();
  return {allocated, allocated};
#else
  malloc_trim(0);
  auto const heap = mallinfo2();
  return {ResidentBytes(), heap.uordblks + heap.hblkhd};
#endif
}

void MemoryWatch::TakeLast(int steps) {
  m_last = MemoryUse::Now();
  std::printf("%s: %d; MiB resident %.1f, then %.1f (%+.2f %%); allocated %.2f, then %.2f\n",
              m_name.c_str(), steps, static_cast<double>(m_first.resident) / kMebi,
              static_cast<double>(m_last.resident) / kMebi, 100.0 * (Ratio() - 1.0),
              static_cast<double>(m_first.allocated) / kMebi,
              static_cast<double>(m_last.allocated) / kMebi);
  std::fflush(stdout);
}

double MemoryWatch::Ratio() const {
  return static_cast<double>(m_last.resident) / static_cast<double>(m_first.resident);
}

}  // namespace framenote::test
