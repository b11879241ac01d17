// SPDX-License-Identifier: MIT
#include "project/file_error.h"

#include <utility>

#include <wx/translation.h>

#include "project/path_text.h"

FileError::FileError(std::string const &path, Message cause)
    : std::runtime_error("'" + path + "': " + cause.English()),
      m_path(path),
      m_cause(std::move(cause)) {}

wxString FileErrorText(FileError const &error) {
  wxString text = wxGetTranslation("\"%s\" cannot be written.");
  text.Replace("%s", TextOfPath(error.Path()), false);
  return text + " (" + TextOfPath(error.Cause().Translated()) + ")";
}
