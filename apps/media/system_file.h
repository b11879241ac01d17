// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <optional>
#include <string>

/// What reading and writing files takes of the operating system beyond standard C++. Paths are the
/// system's bytes, on Windows UTF-8. Files are not passed on to programs that this one starts. What
/// fails says why in errno.
namespace system_file {

/// Null if it fails.
std::FILE *OpenToRead(std::string const &path);
/// `origin` as std::fseek takes it.
bool Seek(std::FILE &file, std::int64_t offset, int origin);
/// Below 0 if it fails.
std::int64_t Position(std::FILE &file);

enum class Creation {
  New,     ///< fails with EEXIST if the file is there
  Emptied  ///< empties the file if it is there
};

/// The number of the file; below 0 if it fails. A file that is made gets `rights`, which only POSIX
/// systems have, as far as the process's mask lets it. It may be removed while it is open.
int OpenToWrite(std::string const &path, Creation creation, int rights);
/// How many of the bytes were written; below 0 if it fails. A limit on the size of files is a
/// failure like any other: it does not end the program.
std::ptrdiff_t WriteSome(int file, void const *bytes, std::size_t count);
/// The new position; below 0 if it fails.
std::int64_t Move(int file, std::int64_t offset, int origin);
/// Below 0 if it fails.
std::int64_t Size(int file);
/// Waits until what was written is on the disk. 0, or below 0 if it fails.
int Sync(int file);
/// 0, or below 0 if it fails; the file is closed in both cases.
int Close(int file);

/// Waits until the names in a folder are on the disk, where the system can do that. 0, or the
/// number of the error.
int SyncNames(std::string const &folder);
/// When the file was last written to; nothing if the system does not tell.
std::optional<std::time_t> ChangedAt(std::string const &path);

}  // namespace system_file
