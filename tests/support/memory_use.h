// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <utility>

namespace framenote::test {

/// What the process has of memory, measured after the allocator has given back what it holds free.
/// Address sanitizer keeps freed memory back and has an allocator of its own: there both figures
/// are the bytes that are allocated.
struct MemoryUse {
  std::size_t resident = 0;   ///< in bytes; "Rss" of /proc/self/smaps_rollup
  std::size_t allocated = 0;  ///< in bytes, of the C++ heap

  static MemoryUse Now();
  /// Of the allocated memory, in bytes; 0 where it has shrunk.
  std::size_t GrowthSince(MemoryUse const &before) const {
    return allocated > before.allocated ? allocated - before.allocated : 0;
  }
};

/// Of a long piece of work: the memory after a first part, when all that is kept once is kept, and
/// at the end. Prints both.
class MemoryWatch {
public:
  /// `name` says what was done.
  explicit MemoryWatch(std::string name) : m_name(std::move(name)) {}

  void TakeFirst() { m_first = MemoryUse::Now(); }
  void TakeLast(int steps);
  /// Of the resident memory, the last figure as a part of the first; 1 is no growth.
  double Ratio() const;
  std::size_t Growth() const { return m_last.GrowthSince(m_first); }

private:
  std::string m_name;
  MemoryUse m_first;
  MemoryUse m_last;
};

}  // namespace framenote::test
