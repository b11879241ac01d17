// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <vector>

#include <wx/panel.h>
#include <wx/string.h>

class wxBitmapButton;
class wxBitmapBundle;
class wxTextCtrl;

/// The buttons that play and step, and the position in words, which can be copied.
class TransportBar : public wxPanel {
public:
  /// What the buttons do; none is empty.
  struct Actions {
    std::function<void()> toFirst, stepBack, play, stepForward, toLast;
  };

  TransportBar(wxWindow *parent, Actions const &actions);

  void SetPlaying(bool isPlaying);
  void SetPosition(wxString const &text);

private:
  wxBitmapButton *add(char const *path, wxString const &name, std::function<void()> const &action);
  wxBitmapBundle iconOf(char const *path) const;

  wxBitmapButton *m_play;  // owned by this window, like the next one
  wxTextCtrl *m_position;
};
