// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>
#include <string>

#include "media/message.h"

/// What is wrong with a media file.
enum class MediaProblem {
  NotFound,      ///< no file of that name
  NotAFile,      ///< a folder, a device or a pipe
  Empty,         ///< no bytes in it
  Unrecognised,  ///< no known picture or video format
  NoPictures,    ///< a media file without a video stream, such as a sound
  Damaged,       ///< a known format that cannot be decoded, or not there
  TooLarge,      ///< more pixels or bytes than are accepted
  Unsupported,   ///< a format for which there is no decoder or encoder here
  Changed,       ///< not the file any more that was opened
  ReadFailed,    ///< the system cannot read it
  WriteFailed,   ///< the system cannot write it; for example a full disk
  Cancelled      ///< the caller asked to stop
};

/// Why media could not be read or written. what() is one line of English that names the file and
/// the cause; MediaErrorText gives the user's language.
class MediaError : public std::runtime_error {
public:
  /// `path` and `detail` are UTF-8 or the bytes of the file system; `detail` may be empty.
  MediaError(MediaProblem problem, std::string const &path, Message detail = {});

  MediaProblem Problem() const { return m_problem; }
  std::string const &Path() const { return m_path; }
  /// More about the cause, or what the system or a decoder said, in its words.
  Message const &Detail() const { return m_detail; }

private:
  MediaProblem m_problem;
  std::string m_path;
  Message m_detail;
};
