// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "media/file_stamp.h"
#include "media/video_index.h"

/// Keeps indexes of videos between runs, one file for each in a folder. What cannot be kept or
/// read back costs the time of indexing again, and is no error.
class IndexStore {
public:
  /// Without a folder nothing is kept. The folder need not exist.
  explicit IndexStore(std::string folder);

  /// The index that was kept for this state of the file; nothing if there is none, or it is not
  /// whole.
  std::optional<VideoIndex> Load(std::string const &path, FileStamp const &stamp) const;
  /// Replaces what was kept for this path, in one step.
  void Save(std::string const &path, FileStamp const &stamp, VideoIndex const &index) const;

private:
  std::string FileFor(std::string const &path) const;

  std::string m_folder;
};
