// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>
#include <string>

/// Why a file could not be written; what() is one line that names the file and the cause.
class FileError : public std::runtime_error {
public:
  /// `path` is in the file system's bytes, `cause` what the system said.
  FileError(std::string const &path, std::string const &cause)
      : std::runtime_error("'" + path + "': " + cause), m_path(path), m_cause(cause) {}

  std::string const &Path() const { return m_path; }
  std::string const &Cause() const { return m_cause; }

private:
  std::string m_path;
  std::string m_cause;
};
