// SPDX-License-Identifier: MIT
#include "burn/burn_usage.h"

#include <cstddef>

#include <wx/translation.h>

namespace {

/// Where descriptions begin.
constexpr std::size_t kIndent = 20;

struct Row {
  char const *option;
  char const *description;  ///< lines of at most 78 columns, a key of the catalogue
};

// TRANSLATORS: descriptions of options. Lines break where you break them; keep them below 78
// columns. Words of options, such as gc, ffv1 and keep, stay as they are.
constexpr Row kRows[] = {
    {"--document DOC",
     wxTRANSLATE("a project, or a text file with the JSON object that holds \"Annotate\"")},
    {"--input MEDIA",
     wxTRANSLATE("the picture or video; if it is left out, the one that the project names")},
    {"--output OUT",
     wxTRANSLATE("the result, by its name: .png, .jpg, .bmp or .tif for a picture; the same\n"
                 "with %06d in its name for a picture of each frame; .mkv, .mp4 or .mov")},
    {"--frame N",
     wxTRANSLATE("the one frame to burn; of a picture, the frame of the document that it\n"
                 "stands for; 0 if not given")},
    {"--frames A-B",
     wxTRANSLATE("burn the frames A to B of a video, both included; all if not given")},
    {"--painter gc|dc", wxTRANSLATE("anti-aliased (gc, as if not given) or in whole pixels (dc)")},
    {"--extend", wxTRANSLATE("let annotations beyond the picture enlarge the result")},
    {"--macro NAME=VALUE",
     wxTRANSLATE("replace NAME in texts by VALUE; may be given many times. Known without it:\n"
                 "%frame%, %time%, %date%, %file% and %size%")},
    {"--codec h264|ffv1",
     wxTRANSLATE("of a video: ffv1 keeps every pixel (.mkv alone; there it is as if given),\n"
                 "h264 makes small files (as if given for .mp4 and .mov)")},
    {"--quality N", wxTRANSLATE("of h264: 0 (best) to 51; 17 if not given")},
    {"--audio keep|drop", wxTRANSLATE("copy the sound as it is (as if given), or leave it out")},
    {"--metadata keep|drop",
     wxTRANSLATE("copy title, date, device and the like, or leave them out (as if given)")},
    {"--report FILE",
     wxTRANSLATE("write a report: hashes of the source, the document, the output and each\n"
                 "frame, the settings, and what each hide region covers")},
    {"--progress line|json",
     wxTRANSLATE("a line on a terminal (as if given), or JSON objects, a line each, on\n"
                 "standard output")},
    {"--quiet", wxTRANSLATE("no progress")},
    {"--help", wxTRANSLATE("show this text")},
    {"--version", wxTRANSLATE("show the version")},
};

std::string Translated(char const *key) {
  return wxGetTranslation(wxString::FromUTF8(key)).utf8_string();
}

std::string LinesOf(Row const &row) {
  std::string const gap(kIndent, ' ');
  std::string option = std::string("  ") + row.option;
  option += option.size() < kIndent ? std::string(kIndent - option.size(), ' ') : "\n" + gap;
  std::string description = Translated(row.description);
  for (std::size_t at = description.find('\n'); at != std::string::npos;
       at = description.find('\n', at + 1)) {
    description.insert(at + 1, gap);
  }
  return option + description + "\n";
}

}  // namespace

std::string BurnUsage() {
  // The names of options and their words are the same in every language.
  std::string text =
      Translated(wxTRANSLATE("Usage:")) +
      " framenote-burn --document DOC [--input MEDIA] --output OUT [OPTION]...\n\n" +
      Translated(wxTRANSLATE("Burns the annotations of a document into a picture or a video.")) +
      "\n\n";
  for (Row const &row : kRows) text += LinesOf(row);
  text += "\n";
  text += Translated(
      wxTRANSLATE("The source is never written to. The output appears when it is whole; a run "
                  "that fails or is\ninterrupted leaves none."));
  text += "\n\n";
  text += Translated(
      wxTRANSLATE("Exit codes: 0 done, 1 an input cannot be read, 2 wrong arguments, 3 the output "
                  "cannot be\nwritten, 130 interrupted."));
  return text + "\n";
}
