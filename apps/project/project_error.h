// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>
#include <string>

#include <wx/string.h>

#include "media/message.h"

/// What is wrong with a project or a document.
enum class ProjectProblem {
  NotFound,      ///< no file of that name
  NotAFile,      ///< a folder, a device or a pipe
  TooLarge,      ///< beyond 2 GiB
  ReadFailed,    ///< the system cannot read it
  NotJson,       ///< no JSON text
  NotAProject,   ///< JSON of another kind
  NoDocument,    ///< no object "Annotate" in it
  NewerVersion,  ///< of a format that this program does not know yet
  WriteFailed    ///< the system cannot write it; for example a full disk
};

/// Why a project or a document could not be read or written. what() is one line of English that
/// names the file and the cause; ProjectErrorText gives the user's language.
class ProjectError : public std::runtime_error {
public:
  /// `path` is in the bytes of the file system; `detail` may be empty.
  ProjectError(ProjectProblem problem, std::string const &path, Message detail = {});

  ProjectProblem Problem() const { return m_problem; }
  std::string const &Path() const { return m_path; }
  /// More about the cause, or what the system said, in its words.
  Message const &Detail() const { return m_detail; }

private:
  ProjectProblem m_problem;
  std::string m_path;
  Message m_detail;
};

/// A sentence for the user that names the file and the cause.
wxString ProjectErrorText(ProjectError const &error);
