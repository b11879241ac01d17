// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include <wx/dialog.h>

class MediaSource;
class wxStaticText;
class wxTextCtrl;

/// Asks for a position, as a frame number or a time, and shows where the current one is.
class GoToDialog : public wxDialog {
public:
  /// `frame` is the current one. REQUIRES: `source` outlives the dialog, and has the frame.
  GoToDialog(wxWindow *parent, MediaSource const &source, std::int64_t frame);

  /// The frame that was asked for, when the dialog was closed with OK; before, the current one.
  std::int64_t Frame() const { return m_frame; }

  /// Takes what was typed; says beside it what is wrong, and gives false.
  bool TransferDataFromWindow() override;

private:
  wxString problemText() const;
  void showProblem(wxString const &text);

  MediaSource const &m_source;
  std::int64_t m_frame;
  wxTextCtrl *m_position = nullptr;  // owned by the dialog
  wxStaticText *m_problem = nullptr;
};
