// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

/// What tells one state of a file from another without reading it.
struct FileStamp {
  std::uint64_t size = 0;
  std::int64_t modified = 0;  ///< in the file clock's own units, at best nanoseconds

  bool operator==(FileStamp const &other) const {
    return size == other.size && modified == other.modified;
  }
  bool operator!=(FileStamp const &other) const { return !(*this == other); }
};

/// Of the regular file at `path`. Throws MediaError: NotFound, NotAFile, ReadFailed.
FileStamp StampOf(std::string const &path);
/// Throws MediaError unless the file at `path` still is the one that had `stamp`: Changed, or what
/// StampOf throws.
void RequireUnchanged(std::string const &path, FileStamp const &stamp);
