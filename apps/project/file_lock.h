// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

/// The lock on a file, held as long as the object lives; the system releases it when the process
/// ends, however it ends.
class FileLock {
public:
  enum class Use {
    Own,   ///< makes the file if it is not there; nobody else gets the lock then
    Probe  ///< only tells whether somebody owns it; other probes do not count
  };

  /// Tries to get the lock, without waiting.
  FileLock(std::string const &path, Use use);
  FileLock(FileLock const &) = delete;
  FileLock &operator=(FileLock const &) = delete;
  ~FileLock();

  bool IsHeld() const { return m_isHeld; }
  /// What the system said; empty if the lock is held.
  std::string const &Cause() const { return m_cause; }

private:
  std::intptr_t m_file = -1;  ///< as the system numbers open files
  bool m_isHeld = false;
  std::string m_cause;
};

/// The number of this process.
std::int64_t ProcessNumber();
