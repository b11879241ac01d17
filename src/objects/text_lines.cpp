// SPDX-License-Identifier: MIT
#include "objects/text_lines.h"

namespace framenote {

namespace {

/// How much of `text` fits into what is left of both limits, which it uses up; the end of the text
/// uses up a line.
std::size_t TakeFrom(wxString const &text, std::size_t &lines, std::size_t &length) {
  std::size_t taken = 0;
  for (wxUniChar const letter : text) {
    if (taken == length || (letter == '\n' && lines == 1)) break;
    if (letter == '\n') --lines;
    ++taken;
  }
  length -= taken;
  --lines;
  return taken;
}

}  // namespace

wxString JoinLines(std::vector<wxString> const &lines) {
  wxString text;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (i > 0) text += '\n';
    text += lines[i];
  }
  return text;
}

wxString FirstLines(wxString const &text, std::size_t maxLines, std::size_t maxLength) {
  return text.Left(TakeFrom(text, maxLines, maxLength));
}

std::vector<wxString> FirstLines(std::vector<wxString> lines, std::size_t maxLines,
                                 std::size_t maxLength) {
  std::size_t kept = 0;
  while (kept < lines.size() && maxLines > 0) {
    std::size_t const taken = TakeFrom(lines[kept], maxLines, maxLength);
    bool const isCut = taken < lines[kept].length();
    if (isCut) lines[kept].Truncate(taken);
    ++kept;
    if (isCut) break;
  }
  lines.resize(kept);
  return lines;
}

}  // namespace framenote
