// SPDX-License-Identifier: MIT
#include "desktop/transport_bar.h"

#include <wx/bmpbuttn.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/textctrl.h>
#include <wx/translation.h>

namespace {

constexpr int kIconSide = 16;

// In a square of 16 units.
constexpr char const *kFirst = "M3 3h2v10H3z M13 3v10L6 8z";
constexpr char const *kBack = "M10 3v10L4 8z M11 3h2v10h-2z";
constexpr char const *kPlay = "M4 2v12l9-6z";
constexpr char const *kPause = "M4 2h3v12H4z M9 2h3v12H9z";
constexpr char const *kForward = "M6 3v10l6-5z M3 3h2v10H3z";
constexpr char const *kLast = "M11 3h2v10h-2z M3 3v10l7-5z";

}  // namespace

TransportBar::TransportBar(wxWindow *parent, Actions const &actions) : wxPanel(parent) {
  auto *const sizer = new wxBoxSizer(wxHORIZONTAL);  // owned by this window
  SetSizer(sizer);
  // Time runs as on the timeline below, in every language.
  SetLayoutDirection(wxLayout_LeftToRight);
  add(kFirst, _("First frame"), actions.toFirst);
  add(kBack, _("Previous frame"), actions.stepBack);
  m_play = add(kPlay, _("Play"), actions.play);
  add(kForward, _("Next frame"), actions.stepForward);
  add(kLast, _("Last frame"), actions.toLast);
  constexpr long kStyle = wxTE_READONLY | wxBORDER_NONE;
  // Owned by this window.
  m_position = new wxTextCtrl(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, kStyle);
  m_position->SetName(_("Position"));
  m_position->SetBackgroundColour(GetBackgroundColour());
  sizer->Add(m_position, 1, wxALIGN_CENTRE_VERTICAL | wxLEFT | wxRIGHT, FromDIP(8));
}

wxBitmapButton *TransportBar::add(char const *path, wxString const &name,
                                  std::function<void()> const &action) {
  auto *const button = new wxBitmapButton(this, wxID_ANY, iconOf(path));  // owned by this window
  button->SetName(name);
  button->SetToolTip(name);
  button->Bind(wxEVT_BUTTON, [action](wxCommandEvent &) { action(); });
  GetSizer()->Add(button, 0, wxALL, FromDIP(2));
  return button;
}

wxBitmapBundle TransportBar::iconOf(char const *path) const {
  wxString const colour =
      wxSystemSettings::GetColour(wxSYS_COLOUR_BTNTEXT).GetAsString(wxC2S_HTML_SYNTAX);
  wxString const svg =
      wxString::Format(R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 16 16">)"
                       R"(<path d="%s" fill="%s"/></svg>)",
                       path, colour);
  return wxBitmapBundle::FromSVG(svg.utf8_str().data(), wxSize(kIconSide, kIconSide));
}

void TransportBar::SetPlaying(bool isPlaying) {
  wxString const name = isPlaying ? _("Pause") : _("Play");
  if (m_play->GetName() == name) return;
  m_play->SetName(name);
  m_play->SetToolTip(name);
  m_play->SetBitmap(iconOf(isPlaying ? kPause : kPlay));
}

void TransportBar::SetPosition(wxString const &text) {
  if (m_position->GetValue() != text) m_position->ChangeValue(text);
}
