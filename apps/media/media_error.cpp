// SPDX-License-Identifier: MIT
#include "media/media_error.h"

#include <utility>

namespace {

char const *Cause(MediaProblem problem) {
  switch (problem) {
    case MediaProblem::NotFound:
      return "no such file";
    case MediaProblem::NotAFile:
      return "not a file";
    case MediaProblem::Empty:
      return "the file is empty";
    case MediaProblem::Unrecognised:
      return "no known picture or video format";
    case MediaProblem::NoPictures:
      return "no pictures in it";
    case MediaProblem::Damaged:
      return "damaged";
    case MediaProblem::TooLarge:
      return "too large";
    case MediaProblem::Unsupported:
      return "not supported";
    case MediaProblem::Changed:
      return "the file has changed since it was opened";
    case MediaProblem::ReadFailed:
      return "cannot be read";
    case MediaProblem::WriteFailed:
      return "cannot be written";
    case MediaProblem::Cancelled:
      return "stopped";
  }
  return "unknown problem";
}

std::string Line(MediaProblem problem, std::string const &path, Message const &detail) {
  std::string line = "'" + path + "': " + Cause(problem);
  if (!detail.IsEmpty()) line += " (" + detail.English() + ")";
  return line;
}

}  // namespace

MediaError::MediaError(MediaProblem problem, std::string const &path, Message detail)
    : std::runtime_error(Line(problem, path, detail)),
      m_problem(problem),
      m_path(path),
      m_detail(std::move(detail)) {}
