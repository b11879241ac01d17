// SPDX-License-Identifier: MIT
#include "media/media_error_text.h"

#include <wx/intl.h>
#include <wx/strconv.h>
#include <wx/translation.h>

namespace {

wxString Shown(std::string const &bytes) {
  return wxString(bytes.c_str(), wxMBConvUTF8(wxMBConvUTF8::MAP_INVALID_UTF8_TO_OCTAL));
}

/// A sentence with a place for the file's name.
wxString Sentence(MediaProblem problem) {
  switch (problem) {
    case MediaProblem::NotFound:
      return _("There is no file \"%s\".");
    case MediaProblem::NotAFile:
      return _("\"%s\" is not a file.");
    case MediaProblem::Empty:
      return _("The file \"%s\" is empty.");
    case MediaProblem::Unrecognised:
      return _("\"%s\" holds no picture or video of a known format.");
    case MediaProblem::NoPictures:
      return _("There are no pictures in \"%s\".");
    case MediaProblem::Damaged:
      return _("\"%s\" is damaged.");
    case MediaProblem::TooLarge:
      return _("\"%s\" is too large.");
    case MediaProblem::Unsupported:
      return _("The format of \"%s\" is not supported.");
    case MediaProblem::Changed:
      return _("\"%s\" has changed since it was opened.");
    case MediaProblem::ReadFailed:
      return _("\"%s\" cannot be read.");
    case MediaProblem::WriteFailed:
      return _("\"%s\" cannot be written.");
    case MediaProblem::Cancelled:
      return _("Work on \"%s\" was stopped.");
  }
  return "%s";
}

}  // namespace

wxString MediaErrorText(MediaError const &error) {
  // Replaced rather than formatted: a translation that loses the place must not read memory.
  wxString text = Sentence(error.Problem());
  text.Replace("%s", Shown(error.Path()), false);
  if (!error.Detail().IsEmpty()) text += " (" + Shown(error.Detail().Translated()) + ")";
  return text;
}
