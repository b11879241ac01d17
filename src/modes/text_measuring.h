// SPDX-License-Identifier: MIT
#pragma once

#include <wx/gdicmn.h>

class wxFont;
class wxString;
class wxWindow;

/// The sizes of texts and of the control that edits them, on a window at scale 1.
namespace framenote {

/// `text` followed by a blank, which gives an empty text and an empty last line a height. A single
/// line has the external leading on top. `addDescent` adds the font's descent to both sides.
wxSize MeasureText(wxWindow &window, wxString const &text, wxFont const &font, bool addDescent);

/// The size of a text control whose text takes `textSize`, asked of one that is never shown.
wxSize SizeOfHiddenTextCtrl(wxWindow &parent, long style, wxSize const &textSize);

}  // namespace framenote
