// SPDX-License-Identifier: MIT
#include "output_file.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

std::string LastError() {
  return std::generic_category().message(errno);
}

bool WriteAll(int file, std::string const &bytes) {
  std::size_t written = 0;
  while (written < bytes.size()) {
    ssize_t const count = write(file, bytes.data() + written, bytes.size() - written);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return false;
    written += static_cast<std::size_t>(count);
  }
  return true;
}

/// Gives the file the rights that a new file gets here: a temporary one starts out private.
bool TakeDefaultRights(int file) {
  mode_t const mask = umask(0);
  umask(mask);
  return fchmod(file, 0666 & ~mask) == 0;
}

/// Fills the new file and closes it. Returns why that failed, or "".
std::string FillAndClose(int file, std::string const &bytes) {
  std::string failure;
  bool const isOnDisk = WriteAll(file, bytes) && TakeDefaultRights(file) && fsync(file) == 0;
  if (!isOnDisk) failure = LastError();
  if (close(file) != 0 && failure.empty()) failure = LastError();
  return failure;
}

}  // namespace

// Paths stay bytes throughout: what a path is called need not be text in the user's locale.
std::string WriteWhole(std::string const &path, std::string const &bytes) {
  std::error_code error;
  if (fs::exists(path, error) && !fs::is_regular_file(path, error)) return "not a file";
  std::string temporary = path + ".part-XXXXXX";
  int const file = mkstemp(temporary.data());
  if (file < 0) return LastError();
  std::string failure = FillAndClose(file, bytes);
  if (failure.empty() && std::rename(temporary.c_str(), path.c_str()) != 0) failure = LastError();
  if (!failure.empty()) fs::remove(temporary, error);
  return failure;
}
