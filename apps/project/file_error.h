// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>
#include <string>

#include <wx/string.h>

#include "media/message.h"

/// Why a file could not be written. what() is one line of English that names the file and the
/// cause; FileErrorText gives the user's language.
class FileError : public std::runtime_error {
public:
  /// `path` is in the file system's bytes, `cause` may be what the system said.
  FileError(std::string const &path, Message cause);

  std::string const &Path() const { return m_path; }
  Message const &Cause() const { return m_cause; }

private:
  std::string m_path;
  Message m_cause;
};

/// A sentence for the user that names the file and the cause.
wxString FileErrorText(FileError const &error);
