// SPDX-License-Identifier: MIT
#include "project/atomic_file.h"

#include <system_error>

#include <wx/translation.h>

#include "project/file_error.h"

namespace {

namespace fs = std::filesystem;

constexpr int kMaxLinks = 40;  // as Linux follows
/// The file's own rights, without the bits that let it run as another user.
constexpr fs::perms kKeptRights = fs::perms::all;
constexpr fs::perms kRightsOfNewFiles = fs::perms::owner_read | fs::perms::owner_write |
                                        fs::perms::group_read | fs::perms::group_write |
                                        fs::perms::others_read | fs::perms::others_write;

/// The path behind symbolic links, also where the last one points to nothing yet.
std::string WithoutLinks(std::string const &path) {
  fs::path target = path;
  for (int i = 0; i < kMaxLinks; ++i) {
    std::error_code error;
    if (!fs::is_symlink(target, error)) return target.string();
    fs::path const next = fs::read_symlink(target, error);
    if (error) throw FileError(path, error.message());
    target = target.parent_path() / next;  // an absolute path replaces what is before it
  }
  throw FileError(path, wxTRANSLATE("too many symbolic links"));
}

fs::file_status StatusOf(std::string const &path) {
  std::error_code error;
  fs::file_status const status = fs::status(path, error);
  if (fs::exists(status) && !fs::is_regular_file(status))
    throw FileError(path, wxTRANSLATE("not a file"));
  if (!fs::status_known(status)) throw FileError(path, error.message());
  return status;
}

fs::perms RightsFor(fs::file_status const &former) {
  return fs::exists(former) ? former.permissions() & kKeptRights : kRightsOfNewFiles;
}

}  // namespace

AtomicFile::AtomicFile(std::string const &path)
    : m_target(WithoutLinks(path)),
      m_former(StatusOf(m_target)),
      m_file(m_target, RightsFor(m_former)) {}

AtomicFile::~AtomicFile() {
  std::error_code ignored;  // there is nobody to tell, and the target is as it was
  if (!m_isInPlace) fs::remove(TemporaryPath(), ignored);
}

void AtomicFile::CloseOnDisk() {
  std::error_code error;
  if (fs::exists(m_former)) {
    // The process's mask has taken rights away that the former file had.
    fs::permissions(TemporaryPath(), RightsFor(m_former), error);
    if (error) throw FileError(m_target, error.message());
  }
  m_file.CloseOnDisk();
  m_isClosed = true;
}

void AtomicFile::Commit() {
  if (!m_isClosed) CloseOnDisk();
  std::error_code error;
  fs::rename(TemporaryPath(), m_target, error);
  if (error) throw FileError(m_target, error.message());
  m_isInPlace = true;
  SyncFolder(fs::path(m_target).parent_path().string());
}

void WriteFileAtomically(std::string const &path, std::string_view bytes) {
  AtomicFile file(path);
  file.Write(bytes);
  file.Commit();
}
