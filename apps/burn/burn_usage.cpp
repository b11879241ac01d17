// SPDX-License-Identifier: MIT
#include "burn/burn_usage.h"

#include <wx/translation.h>

#include "burn/burn_options.h"

namespace {

std::string Translated(char const *key) {
  return wxGetTranslation(wxString::FromUTF8(key)).utf8_string();
}

}  // namespace

std::string BurnUsage() {
  // The names of options and their words are the same in every language.
  std::string text =
      Translated(wxTRANSLATE("Usage:")) +
      " framenote-burn --document DOC [--input MEDIA] --output OUT [OPTION]...\n\n" +
      Translated(wxTRANSLATE("Burns the annotations of a document into a picture or a video.")) +
      "\n\n";
  text += BurnOptionLines() + "\n";
  text += Translated(
      wxTRANSLATE("The source is never written to. The output appears when it is whole; a run "
                  "that fails or is\ninterrupted leaves none."));
  text += "\n\n";
  text += Translated(
      wxTRANSLATE("Exit codes: 0 done, 1 an input cannot be read, 2 wrong arguments, 3 the output "
                  "cannot be\nwritten, 130 interrupted."));
  return text + "\n";
}
