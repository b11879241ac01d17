// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <unordered_map>

#include <wx/font.h>
#include <wx/gdicmn.h>
#include <wx/string.h>

class wxGraphicsContext;
class wxWindow;

namespace framenote {

/// The sizes of texts on a window at scale 1. Each line is measured once and remembered as long as
/// the font stays, so that a key press in a long text costs one line.
class TextMeasurer {
public:
  /// The size of `text` followed by a blank, which gives an empty text and an empty last line a
  /// height. A single line has the external leading on top. `addDescent` adds the font's descent to
  /// both sides.
  wxSize Measure(wxWindow &window, wxString const &text, wxFont const &font, bool addDescent);

private:
  struct Extent {
    double width = 0.0;
    double height = 0.0;
    double descent = 0.0;
    double leading = 0.0;
  };

  void useFont(wxFont const &font);
  Extent extentOf(wxWindow &window, wxString const &line);
  Extent measured(wxWindow &window, wxString const &line) const;

  wxFont m_font;
  std::unordered_map<wxString, Extent> m_lines;
  std::size_t m_remembered = 0;  ///< letters in all remembered lines
};

/// The size of a text control whose text takes `textSize`, asked of one that is never shown.
wxSize SizeOfHiddenTextCtrl(wxWindow &parent, long style, wxSize const &textSize);

}  // namespace framenote
