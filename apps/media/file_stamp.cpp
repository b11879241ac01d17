// SPDX-License-Identifier: MIT
#include "media/file_stamp.h"

#include <filesystem>
#include <system_error>

#include "media/media_error.h"

namespace fs = std::filesystem;

FileStamp StampOf(std::string const &path) {
  std::error_code error;
  fs::file_status const status = fs::status(path, error);
  if (status.type() == fs::file_type::not_found) throw MediaError(MediaProblem::NotFound, path);
  if (error) throw MediaError(MediaProblem::ReadFailed, path, error.message());
  if (!fs::is_regular_file(status)) throw MediaError(MediaProblem::NotAFile, path);
  FileStamp stamp;
  stamp.size = fs::file_size(path, error);
  if (!error) stamp.modified = fs::last_write_time(path, error).time_since_epoch().count();
  if (error) throw MediaError(MediaProblem::ReadFailed, path, error.message());
  return stamp;
}

void RequireUnchanged(std::string const &path, FileStamp const &stamp) {
  if (StampOf(path) != stamp) throw MediaError(MediaProblem::Changed, path);
}
