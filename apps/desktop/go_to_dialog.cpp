// SPDX-License-Identifier: MIT
#include "desktop/go_to_dialog.h"

#include <string>

#include <wx/button.h>
#include <wx/intl.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "desktop/dialog_parts.h"
#include "media/media_source.h"
#include "panel/accessible_name.h"
#include "project/time_code.h"

namespace {

constexpr int kGap = 6;  ///< device-independent pixels
// Widths in characters.
constexpr int kFieldWidth = 20;
constexpr int kTextWidth = 44;

constexpr int kRateDecimals = 3;

wxString PositionLabel() {
  return wxGetTranslation("&Go to frame or time:");
}

wxString NumberText(std::int64_t number) {
  return wxString::FromUTF8(std::to_string(number));
}

wxString PositionText(MediaSource const &source, std::int64_t frame) {
  return wxString::Format(wxGetTranslation("frame %s, %s"), NumberText(frame),
                          wxString::FromUTF8(FormatTimeCode(source, frame)));
}

/// "25", "29.97"; as in times the point is the same in every language.
wxString RateText(MediaInfo const &info) {
  if (info.frameRate.Value() <= 0.0) return wxGetTranslation("not known");
  wxString rate = wxString::FromCDouble(info.frameRate.Value(), kRateDecimals);
  while (rate.EndsWith("0")) rate.RemoveLast();
  if (rate.EndsWith(".")) rate.RemoveLast();
  return wxString::Format(info.hasVariableRate
                              ? wxGetTranslation("%s frames a second on average; it varies")
                              : wxGetTranslation("%s frames a second"),
                          rate);
}

void AddFact(wxFlexGridSizer &grid, wxWindow &dialog, wxString const &label, wxString const &text) {
  grid.Add(new wxStaticText(&dialog, wxID_ANY, label));  // owned by the dialog
  grid.Add(new wxStaticText(&dialog, wxID_ANY, text));   // owned by the dialog
}

}  // namespace

GoToDialog::GoToDialog(wxWindow *parent, MediaSource const &source, std::int64_t frame)
    : wxDialog(parent, wxID_ANY, wxGetTranslation("Go To")), m_source(source), m_frame(frame) {
  m_position = new wxTextCtrl(this, wxID_ANY, NumberText(frame));  // owned by the dialog
  m_position->SetName("position");
  SizeField(*m_position, kFieldWidth);
  m_problem = new wxStaticText(this, wxID_ANY, "");  // owned by the dialog
  m_problem->SetName("problem");
  m_problem->SetForegroundColour(WarningTextColour());

  auto *const grid =
      new wxFlexGridSizer(2, FromDIP(wxSize(2 * kGap, kGap)));  // owned by the dialog
  AddLabelledRow(*grid, PositionLabel(), *m_position);
  MediaInfo const &info = source.Info();
  // TRANSLATORS: the position now, and the last one.
  AddFact(*grid, *this, wxGetTranslation("Now:"), PositionText(source, frame));
  AddFact(*grid, *this, wxGetTranslation("Last:"), PositionText(source, info.frameCount - 1));
  AddFact(*grid, *this, wxGetTranslation("Frames:"), NumberText(info.frameCount));
  AddFact(*grid, *this, wxGetTranslation("Rate:"), RateText(info));

  auto *const sizer = new wxBoxSizer(wxVERTICAL);  // owned by the dialog
  sizer->Add(grid, wxSizerFlags().DoubleBorder(wxALL & ~wxBOTTOM));
  sizer->Add(m_problem, wxSizerFlags().Expand().DoubleBorder(wxALL & ~wxBOTTOM));
  sizer->Add(CreateStdDialogButtonSizer(wxOK | wxCANCEL), wxSizerFlags().Expand().DoubleBorder());
  m_problem->Hide();
  SetSizerAndFit(sizer);
  m_position->Bind(wxEVT_TEXT, [this](wxCommandEvent &) { showProblem({}); });
  m_position->SelectAll();
  m_position->SetFocus();
  CentreOnParent();
}

bool GoToDialog::TransferDataFromWindow() {
  auto const frame = ParsePosition(m_position->GetValue().utf8_string(), m_source);
  if (frame) {
    m_frame = *frame;
    return true;
  }
  showProblem(problemText());
  m_position->SelectAll();
  m_position->SetFocus();
  return false;
}

wxString GoToDialog::problemText() const {
  std::int64_t const last = m_source.Info().frameCount - 1;
  return wxString::Format(
      wxGetTranslation("There is no such position. Frames go from 0 to %s, as 25; times, as 1:02.5 "
                       "or 10.0, to %s."),
      NumberText(last), wxString::FromUTF8(FormatTimeCode(m_source, last)));
}

/// Also as part of the field's name: screen readers say it when the focus comes back there.
void GoToDialog::showProblem(wxString const &text) {
  if (text == m_problem->GetLabel() && text.empty()) return;
  m_problem->SetLabel(text);
  m_problem->Wrap(WidthOfText(*this, kTextWidth));
  m_problem->Show(!text.empty());
  wxString const name = NameOfLabel(PositionLabel());
  framenote::NameForScreenReaders(*m_position, text.empty() ? name : name + ". " + text);
  GetSizer()->SetSizeHints(this);
}
