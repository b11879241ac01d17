// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include <wx/dialog.h>
#include <wx/stopwatch.h>
#include <wx/utils.h>

#include "project/burn_job.h"

class wxButton;
class wxGauge;
class wxStaticText;

/// Shows how far an export is, and asks whether it is to go on. While it lives all other windows
/// are disabled; whoever works calls it often, and so lets events run.
class ExportProgress : public wxDialog {
public:
  /// `name` says what is written.
  ExportProgress(wxWindow *parent, wxString const &name);

  /// Both return false once the user has cancelled. `share` is from 0 to 1.
  bool ShowPreparing(double share);
  bool ShowProgress(BurnProgress const &progress);

private:
  void makeControls(wxString const &name);
  void cancel();
  bool update(double share, wxString const &frames, wxString const &pace);
  bool isDue();
  void runEvents();

  wxStaticText *m_frames = nullptr;  // owned by the dialog, as those below
  wxStaticText *m_pace = nullptr;
  wxGauge *m_gauge = nullptr;
  wxButton *m_cancel = nullptr;
  bool m_isCancelled = false;
  wxStopWatch m_sinceUpdate;
  bool m_isFirst = true;
  std::optional<wxWindowDisabler>
      m_disabler;  ///< goes before the window, which gives the focus back
};
