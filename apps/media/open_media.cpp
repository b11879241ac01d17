// SPDX-License-Identifier: MIT
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <string>

#include "media/file_stamp.h"
#include "media/media_error.h"
#include "media/media_source.h"
#include "media/still_format.h"
#include "media/still_source.h"
#include "media/video_source.h"

namespace {

/// No still picture within the limits of its pixels is larger: 16 bits of four channels.
constexpr std::uint64_t kLargestStill = std::uint64_t{1} << 31;

/// The first `count` bytes, or what there is of them.
std::string ReadBytes(std::string const &path, std::uint64_t count) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw MediaError(MediaProblem::ReadFailed, path, std::strerror(errno));
  std::string bytes(static_cast<std::size_t>(count), '\0');
  file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (file.bad()) throw MediaError(MediaProblem::ReadFailed, path, std::strerror(errno));
  bytes.resize(static_cast<std::size_t>(file.gcount()));
  return bytes;
}

}  // namespace

std::unique_ptr<MediaSource> OpenMedia(std::string const &path, MediaOptions const &options) {
  FileStamp const stamp = StampOf(path);
  if (stamp.size == 0) throw MediaError(MediaProblem::Empty, path);
  if (!IsStill(ReadBytes(path, kStillSignature))) return OpenVideo(path, stamp, options);
  if (stamp.size > kLargestStill) throw MediaError(MediaProblem::TooLarge, path);
  return OpenStill(path, ReadBytes(path, stamp.size));
}
