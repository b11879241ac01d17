// SPDX-License-Identifier: MIT
#include "project/new_file.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <random>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#ifdef _WIN32
#include <io.h>
#include <share.h>
#else
#include <unistd.h>
#endif

#include "project/file_error.h"

namespace {

namespace fs = std::filesystem;

/// A write of more than about two gigabytes is cut short by some systems, refused by others.
constexpr std::size_t kMaxWrite = std::size_t{1} << 30;
/// File systems allow 255 bytes; this leaves room for what is added.
constexpr std::size_t kMaxStem = 200;
constexpr int kMaxAttempts = 100;

std::string TextOf(int error) {
  return std::generic_category().message(error);
}

/// A name that nothing else has, as far as chance goes; creating the file proves it.
std::string TemporaryName(fs::path const &target) {
  std::random_device random;
  char suffix[32];
  std::snprintf(suffix, sizeof suffix, ".part-%08x%08x", random(), random());
  std::string const stem = target.filename().string().substr(0, kMaxStem);
  return (target.parent_path() / (stem + suffix)).string();
}

#ifdef _WIN32

int OpenNew(std::string const &path, int) {
  int file = -1;
  _wsopen_s(&file, fs::path(path).c_str(), _O_CREAT | _O_EXCL | _O_WRONLY | _O_BINARY, _SH_DENYNO,
            _S_IREAD | _S_IWRITE);
  return file;
}

std::ptrdiff_t WriteSome(int file, char const *bytes, std::size_t count) {
  return _write(file, bytes, static_cast<unsigned int>(count));
}

int Sync(int file) {
  return _commit(file);
}

int Close(int file) {
  return _close(file);
}

#else

int OpenNew(std::string const &path, int rights) {
  return open(path.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, rights);
}

std::ptrdiff_t WriteSome(int file, char const *bytes, std::size_t count) {
  return write(file, bytes, count);
}

int Sync(int file) {
  return fsync(file);
}

int Close(int file) {
  return close(file);
}

#endif

}  // namespace

NewFile::NewFile(std::string const &target, fs::perms rights) : m_target(target) {
  for (int attempt = 0; attempt < kMaxAttempts; ++attempt) {
    m_path = TemporaryName(target);
    if (open(static_cast<int>(rights & fs::perms::all))) return;
    if (errno != EEXIST && errno != EINTR) break;
  }
  fail(errno);
}

NewFile::~NewFile() {
  if (m_file >= 0) Close(m_file);
}

bool NewFile::open(int rights) {
  m_file = OpenNew(m_path, rights);
  return m_file >= 0;
}

void NewFile::Write(std::string_view bytes) {
  while (!bytes.empty()) {
    auto const count = WriteSome(m_file, bytes.data(), std::min(bytes.size(), kMaxWrite));
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) fail(count == 0 ? EIO : errno);
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
}

void NewFile::CloseOnDisk() {
  if (Sync(m_file) != 0) fail(errno);
  // Whatever close says, the file is closed.
  int const file = m_file;
  m_file = -1;
  if (Close(file) != 0) fail(errno);
}

void NewFile::fail(int error) const {
  throw FileError(m_target, TextOf(error));
}

#ifdef _WIN32

// The system writes names on its own, in the order in which they were given.
void SyncFolder(std::string const &) {}

#else

void SyncFolder(std::string const &folder) {
  std::string const path = folder.empty() ? "." : folder;
  // A folder that can be written to need not be readable; then its names are left to the system.
  int const file = open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (file < 0) return;
  bool const hasFailed = Sync(file) != 0;
  int const error = errno;
  Close(file);
  // Some file systems cannot do it for folders.
  if (hasFailed && error != EINVAL && error != ENOTSUP) throw FileError(path, TextOf(error));
}

#endif
