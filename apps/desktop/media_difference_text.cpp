// SPDX-License-Identifier: MIT
#include "desktop/media_difference_text.h"

#include <wx/intl.h>

#include "project/path_text.h"

namespace {

wxString LineOf(MediaDifference difference) {
  switch (difference) {
    case MediaDifference::Size:
      return wxGetTranslation("The file has another size.");
    case MediaDifference::Sha256:
      return wxGetTranslation("The content of the file is another one (its SHA-256 differs).");
    case MediaDifference::FrameCount:
      return wxGetTranslation("The number of frames is another one.");
  }
  return {};
}

}  // namespace

wxString MediaDifferenceText(std::vector<MediaDifference> const &differences,
                             std::string const &path) {
  if (differences.empty()) return {};
  wxString text = wxGetTranslation("\"%s\" is not the file that the project was made on:");
  text.Replace("%s", TextOfPath(path), false);
  for (MediaDifference const difference : differences) text += "\n\u2022 " + LineOf(difference);
  return text + "\n\n" +
         wxGetTranslation("The annotations may stand in other places, or on other frames.");
}
