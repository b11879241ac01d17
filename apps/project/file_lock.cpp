// SPDX-License-Identifier: MIT
#include "project/file_lock.h"

#include <system_error>

#ifdef _WIN32
#include <filesystem>

#include <windows.h>
#else
#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#endif

#ifdef _WIN32

// A file that is open without sharing is locked. Its owner may remove it while it is.
FileLock::FileLock(std::string const &path, Use use) {
  DWORD const creation = use == Use::Own ? OPEN_ALWAYS : OPEN_EXISTING;
  DWORD const sharing =
      FILE_SHARE_DELETE | (use == Use::Own ? 0 : FILE_SHARE_READ | FILE_SHARE_WRITE);
  HANDLE const file = CreateFileW(std::filesystem::u8path(path).c_str(), GENERIC_WRITE, sharing,
                                  nullptr, creation, FILE_ATTRIBUTE_NORMAL, nullptr);
  m_isHeld = file != INVALID_HANDLE_VALUE;
  m_file = reinterpret_cast<std::intptr_t>(file);
  if (!m_isHeld) {
    m_cause = std::system_category().message(static_cast<int>(GetLastError()));
  }
}

FileLock::~FileLock() {
  if (m_isHeld) CloseHandle(reinterpret_cast<HANDLE>(m_file));
}

std::int64_t ProcessNumber() {
  return GetCurrentProcessId();
}

#else

FileLock::FileLock(std::string const &path, Use use) {
  constexpr int kMode = 0600;
  int const creation = use == Use::Own ? O_CREAT : 0;
  int const kind = use == Use::Own ? LOCK_EX : LOCK_SH;
  int const file = open(path.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | creation, kMode);
  m_file = file;
  m_isHeld = file >= 0 && flock(file, kind | LOCK_NB) == 0;
  if (!m_isHeld) m_cause = std::generic_category().message(errno);
}

FileLock::~FileLock() {
  if (m_file >= 0) close(static_cast<int>(m_file));
}

std::int64_t ProcessNumber() {
  return getpid();
}

#endif
