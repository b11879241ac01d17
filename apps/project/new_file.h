// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

/// A file that did not exist before and is written from the beginning on: what writing safely takes
/// of the operating system. Its functions throw FileError, which names `target`.
class NewFile {
public:
  /// Makes an empty file in the folder of `target`, named after it. Others get the rights to it
  /// that `rights` and the process's mask give them.
  NewFile(std::string const &target, std::filesystem::perms rights);
  NewFile(NewFile const &) = delete;
  NewFile &operator=(NewFile const &) = delete;
  /// Closes the file and leaves it where it is.
  ~NewFile();

  std::string const &Path() const { return m_path; }
  void Write(std::string_view bytes);
  /// Waits until everything written to the file, by whatever way, is on the disk, and closes it.
  void CloseOnDisk();

private:
  bool open(int rights);
  [[noreturn]] void fail(int error) const;

  std::string m_target;
  std::string m_path;
  int m_file = -1;
};

/// Waits until the names in a folder are on the disk, where the system can do that.
/// Throws FileError if the disk fails.
void SyncFolder(std::string const &folder);
