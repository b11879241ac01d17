// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <wx/dialog.h>
#include <wx/timer.h>

#include "desktop/export_names.h"
#include "project/burn_job.h"

class MediaSource;
class wxBoxSizer;
class wxCheckBox;
class wxChoice;
class wxConfigBase;
class wxFlexGridSizer;
class wxListBox;
class wxRadioButton;
class wxSpinCtrl;
class wxStaticText;
class wxTextCtrl;

/// Asks what is to be exported and where to. Warns of places where hide regions may leave bare what
/// they are to hide, refuses the source as output, and asks before it replaces files.
///
/// Folder and format are kept in the configuration (wxConfigBase::Get), for pictures, sequences and
/// videos apart.
class ExportDialog : public wxDialog {
public:
  using WarningsOf = std::function<std::vector<wxString>(FrameRange)>;

  /// `frame` is the current one. `warningsOf` gives a line for each place to look at; it may be
  /// empty. REQUIRES: `source` outlives the dialog, which asks it for names and times only.
  ExportDialog(wxWindow *parent, MediaSource const &source, std::int64_t frame,
               WarningsOf warningsOf);

  /// What was chosen; the look is that of a new BurnSettings but for the extension.
  /// REQUIRES: the dialog was closed with OK, or TransferDataFromWindow has returned true.
  BurnSettings Settings() const;

  /// Checks what was chosen and tells what is wrong with it; false if it cannot be done so, or is
  /// not wanted after all.
  bool TransferDataFromWindow() override;

private:
  bool isStill() const;

  // Making
  void makeFrames(wxFlexGridSizer &grid);
  void makeFormat(wxFlexGridSizer &grid);
  void makeOptions(wxFlexGridSizer &grid);
  void makePath(wxFlexGridSizer &grid);
  void makeWarnings(wxBoxSizer &sizer);
  void bindEvents();
  void restore();
  void keep() const;

  // What is chosen
  std::optional<FrameRange> range() const;
  BurnOutput output() const;
  ExportFormat const &format() const;
  wxString path() const;

  // What follows from a change
  void onFramesChanged();
  void onOutputChanged();
  void onFormatChanged();
  void onPathTyped();
  void browse();
  void showOutputs();
  void showFormats();
  void showPath();
  void enableOptions();
  void showRangeProblem();
  bool showWarnings();
  void fit();
  wxString suggestedPath() const;

  // Checking
  bool checkRange();
  bool checkPath();
  bool checkWarnings();
  bool refuse(wxString const &text);
  bool isSource(std::string const &output) const;
  wxString firstExisting() const;
  bool confirmReplacing();

  MediaSource const &m_source;
  std::int64_t const m_frame;
  WarningsOf m_warningsOf;
  wxString m_suggestion;              ///< the path that was last put in by the dialog itself
  std::vector<BurnOutput> m_outputs;  ///< as m_output lists them
  std::vector<wxString> m_warnings;
  wxSize m_fitted;   ///< as the dialog made itself
  wxTimer m_typing;  ///< runs while warnings for a typed range are due

  // Owned by the dialog; those of frames are null for a still.
  wxRadioButton *m_thisFrame = nullptr;
  wxRadioButton *m_everything = nullptr;
  wxRadioButton *m_someFrames = nullptr;
  wxTextCtrl *m_first = nullptr;
  wxTextCtrl *m_last = nullptr;
  wxStaticText *m_rangeProblem = nullptr;
  wxChoice *m_output = nullptr;
  wxChoice *m_format = nullptr;
  wxSpinCtrl *m_quality = nullptr;
  wxCheckBox *m_audio = nullptr;
  wxCheckBox *m_report = nullptr;
  wxCheckBox *m_extend = nullptr;
  wxTextCtrl *m_path = nullptr;
  wxStaticText *m_warningsLabel = nullptr;
  wxListBox *m_warningsList = nullptr;
};
