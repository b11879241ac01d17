// SPDX-License-Identifier: MIT
#include "project/project_error.h"

#include <utility>

#include <wx/translation.h>

#include "project/path_text.h"

namespace {

char const *Cause(ProjectProblem problem) {
  switch (problem) {
    case ProjectProblem::NotFound:
      return "no such file";
    case ProjectProblem::NotAFile:
      return "not a file";
    case ProjectProblem::TooLarge:
      return "too large";
    case ProjectProblem::ReadFailed:
      return "cannot be read";
    case ProjectProblem::NotJson:
      return "not JSON";
    case ProjectProblem::NotAProject:
      return "not a project";
    case ProjectProblem::NoDocument:
      return "holds no \"Annotate\" object";
    case ProjectProblem::NewerVersion:
      return "made by a newer version";
    case ProjectProblem::WriteFailed:
      return "cannot be written";
  }
  return "unknown problem";
}

std::string Line(ProjectProblem problem, std::string const &path, Message const &detail) {
  std::string line = "'" + path + "': " + Cause(problem);
  if (!detail.IsEmpty()) line += " (" + detail.English() + ")";
  return line;
}

/// The sentence, with "%s" for the file.
wxString Sentence(ProjectProblem problem) {
  switch (problem) {
    case ProjectProblem::NotFound:
      return wxGetTranslation("There is no file \"%s\".");
    case ProjectProblem::NotAFile:
      return wxGetTranslation("\"%s\" is not a file.");
    case ProjectProblem::TooLarge:
      return wxGetTranslation("\"%s\" is too large for a project.");
    case ProjectProblem::ReadFailed:
      return wxGetTranslation("\"%s\" cannot be read.");
    case ProjectProblem::NotJson:
      return wxGetTranslation("\"%s\" is not a project, or it is damaged.");
    case ProjectProblem::NotAProject:
      return wxGetTranslation("\"%s\" is not a project of this program.");
    case ProjectProblem::NoDocument:
      return wxGetTranslation("\"%s\" holds no annotations.");
    case ProjectProblem::NewerVersion:
      return wxGetTranslation("\"%s\" was made by a newer version of this program.");
    case ProjectProblem::WriteFailed:
      return wxGetTranslation("\"%s\" cannot be written.");
  }
  return "\"%s\"";
}

}  // namespace

ProjectError::ProjectError(ProjectProblem problem, std::string const &path, Message detail)
    : std::runtime_error(Line(problem, path, detail)),
      m_problem(problem),
      m_path(path),
      m_detail(std::move(detail)) {}

wxString ProjectErrorText(ProjectError const &error) {
  wxString const text = wxString::Format(Sentence(error.Problem()), TextOfPath(error.Path()));
  if (error.Detail().IsEmpty()) return text;
  return text + " (" + TextOfPath(error.Detail().Translated()) + ")";
}
