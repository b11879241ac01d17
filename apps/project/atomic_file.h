// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "project/new_file.h"

/// Writes a file whole or not at all: into a temporary file in the same folder, to the disk, and
/// then in the place of the target in one step. Whatever was there stays until then, also if the
/// process is killed or the disk is full. Used by one thread at a time; its functions throw
/// FileError.
class AtomicFile {
public:
  /// Makes the temporary file. The target is a file or nothing yet; a symbolic link stands for what
  /// it points to. `path` is in the bytes of the file system.
  explicit AtomicFile(std::string const &path);
  AtomicFile(AtomicFile const &) = delete;
  AtomicFile &operator=(AtomicFile const &) = delete;
  /// Removes the temporary file unless Commit has returned.
  ~AtomicFile();

  /// For writers that open files by name. They may empty the file, but not put another one in its
  /// place, and have closed it before Commit.
  std::string const &TemporaryPath() const { return m_file.Path(); }
  /// Appends to what was written this way before.
  void Write(std::string_view bytes) { m_file.Write(bytes); }
  /// Waits until what was written is on the disk, and closes the file; only Commit is left to do.
  void CloseOnDisk();
  /// Puts the file in the target's place. It has the rights of the file that was there, or else
  /// those of any new file. Where it throws, the target may be old or new, but is whole.
  void Commit();

private:
  std::string m_target;  ///< with symbolic links followed
  std::filesystem::file_status m_former;
  NewFile m_file;
  bool m_isClosed = false;
  bool m_isInPlace = false;
};

void WriteFileAtomically(std::string const &path, std::string_view bytes);
