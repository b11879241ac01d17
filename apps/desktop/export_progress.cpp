// SPDX-License-Identifier: MIT
#include "desktop/export_progress.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>

#include <wx/button.h>
#include <wx/dcclient.h>
#include <wx/evtloop.h>
#include <wx/gauge.h>
#include <wx/intl.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include "desktop/dialog_parts.h"
#include "panel/accessible_name.h"

namespace {

constexpr int kWidth = 56;  ///< characters
constexpr int kSteps = 1000;
/// Milliseconds between looks at events: often enough for a button to feel alive, and seldom enough
/// to cost nothing beside small frames.
constexpr long kPause = 40;
constexpr double kLongestWait = 359999.0;  ///< seconds: below a hundred hours
constexpr int kPerMinute = 60;
constexpr int kPerHour = 3600;

wxString NumberText(std::int64_t number) {
  return wxString::FromUTF8(std::to_string(number));
}

/// "0:05", "1:02:03".
wxString DurationText(double seconds) {
  int const whole = static_cast<int>(std::ceil(std::min(std::max(seconds, 0.0), kLongestWait)));
  int const hours = whole / kPerHour;
  int const minutes = whole / kPerMinute % kPerMinute;
  if (hours == 0) return wxString::Format("%d:%02d", minutes, whole % kPerMinute);
  return wxString::Format("%d:%02d:%02d", hours, minutes, whole % kPerMinute);
}

int PerCent(double share) {
  return static_cast<int>(100.0 * share);
}

}  // namespace

ExportProgress::ExportProgress(wxWindow *parent, wxString const &name)
    : wxDialog(parent, wxID_ANY, wxGetTranslation("Exporting")) {
  makeControls(name);
  m_cancel->Bind(wxEVT_BUTTON, [this](wxCommandEvent &) { cancel(); });
  Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent &event) {
    // Destroyed by whoever works; closing it is a wish.
    event.Veto();
    cancel();
  });
  CentreOnParent();
  Show();
  m_disabler.emplace(this);
}

void ExportProgress::makeControls(wxString const &name) {
  int const width = WidthOfText(*this, kWidth);
  auto *const what = new wxStaticText(this, wxID_ANY, "");  // owned by the dialog
  what->SetLabelText(wxControl::Ellipsize(name, wxClientDC(this), wxELLIPSIZE_MIDDLE, width));
  what->SetToolTip(name);
  m_frames =
      new wxStaticText(this, wxID_ANY, wxGetTranslation("Preparing..."));  // owned by the dialog
  m_pace = new wxStaticText(this, wxID_ANY, "");                           // owned by the dialog
  m_gauge = new wxGauge(this, wxID_ANY, kSteps);                           // owned by the dialog
  m_cancel = new wxButton(this, wxID_CANCEL);                              // owned by the dialog
  m_gauge->SetMinSize({width, -1});
  framenote::NameForScreenReaders(*m_gauge, wxGetTranslation("Progress"));
  auto *const sizer = new wxBoxSizer(wxVERTICAL);  // owned by the dialog
  wxSizerFlags const row = wxSizerFlags().Expand().DoubleBorder(wxALL & ~wxBOTTOM);
  sizer->Add(what, row);
  sizer->Add(m_gauge, row);
  sizer->Add(m_frames, row);
  sizer->Add(m_pace, row);
  sizer->Add(m_cancel, wxSizerFlags().Right().DoubleBorder());
  SetSizerAndFit(sizer);
  m_cancel->SetFocus();
}

void ExportProgress::cancel() {
  m_isCancelled = true;
  m_cancel->Disable();
  m_frames->SetLabel(wxGetTranslation("Stopping..."));
}

bool ExportProgress::ShowPreparing(double share) {
  if (!isDue()) return !m_isCancelled;
  wxString const text = wxGetTranslation("Preparing... (%s %%)");
  return update(share, wxString::Format(text, NumberText(PerCent(share))), "");
}

bool ExportProgress::ShowProgress(BurnProgress const &progress) {
  bool const isLast = progress.done == progress.frames;
  if (!isLast && !isDue()) return !m_isCancelled;
  double const share = static_cast<double>(progress.done) /
                       static_cast<double>(std::max<std::int64_t>(progress.frames, 1));
  wxString const frames =
      wxString::Format(wxGetTranslation("Frame %s of %s (%s %%)"), NumberText(progress.done),
                       NumberText(progress.frames), NumberText(PerCent(share)));
  wxString const pace = isLast
                            ? wxGetTranslation("Finishing the file...")
                            : wxString::Format(wxGetTranslation("%s frames a second, %s left"),
                                               wxString::FromCDouble(progress.framesPerSecond, 1),
                                               DurationText(progress.secondsLeft));
  bool const isWanted = update(share, frames, pace);
  // What is left is closing the file, which nothing asks whether to go on with.
  if (isLast) m_cancel->Disable();
  return isWanted;
}

bool ExportProgress::isDue() {
  return m_isFirst || m_sinceUpdate.Time() >= kPause;
}

bool ExportProgress::update(double share, wxString const &frames, wxString const &pace) {
  m_isFirst = false;
  if (!m_isCancelled) {
    m_frames->SetLabel(frames);
    m_pace->SetLabel(pace);
    m_gauge->SetValue(static_cast<int>(kSteps * share));
  }
  runEvents();
  m_sinceUpdate.Start();
  return !m_isCancelled;
}

void ExportProgress::runEvents() {
  wxEventLoopBase *const loop = wxEventLoopBase::GetActive();
  if (loop != nullptr) loop->YieldFor(wxEVT_CATEGORY_UI | wxEVT_CATEGORY_USER_INPUT);
}
