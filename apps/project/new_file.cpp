// SPDX-License-Identifier: MIT
#include "project/new_file.h"

#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <random>
#include <system_error>

#include "media/system_file.h"
#include "project/file_error.h"

namespace {

namespace fs = std::filesystem;

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
  if (m_file >= 0) system_file::Close(m_file);
}

bool NewFile::open(int rights) {
  m_file = system_file::OpenToWrite(m_path, system_file::Creation::New, rights);
  return m_file >= 0;
}

void NewFile::Write(std::string_view bytes) {
  while (!bytes.empty()) {
    auto const count = system_file::WriteSome(m_file, bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) fail(count == 0 ? EIO : errno);
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
}

void NewFile::CloseOnDisk() {
  if (system_file::Sync(m_file) != 0) fail(errno);
  // Whatever close says, the file is closed.
  int const file = m_file;
  m_file = -1;
  if (system_file::Close(file) != 0) fail(errno);
}

void NewFile::fail(int error) const {
  throw FileError(m_target, TextOf(error));
}

void SyncFolder(std::string const &folder) {
  std::string const path = folder.empty() ? "." : folder;
  int const error = system_file::SyncNames(path);
  if (error != 0) throw FileError(path, TextOf(error));
}
