// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include <wx/dialog.h>

struct Shortcut {
  wxString keys;   ///< as people read them: "Ctrl+Shift+S"
  wxString what;   ///< what they do
  wxString group;  ///< such as "File"; rows of one group follow each other
};

/// The keys of the host in a table, to be read with the mouse, the keyboard or a screen reader.
class ShortcutsDialog : public wxDialog {
public:
  ShortcutsDialog(wxWindow *parent, std::vector<Shortcut> const &shortcuts);
};
