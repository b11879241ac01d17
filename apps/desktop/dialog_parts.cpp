// SPDX-License-Identifier: MIT
#include "desktop/dialog_parts.h"

#include <algorithm>
#include <cstddef>

#include <wx/control.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include "desktop/theme.h"
#include "panel/accessible_name.h"

wxStaticText *AddLabelledRow(wxFlexGridSizer &grid, wxWindow &parent, wxString const &label,
                             wxSizer *row) {
  auto *const text = new wxStaticText(&parent, wxID_ANY, label);  // owned by its parent
  grid.Add(text, wxSizerFlags().CentreVertical());
  grid.Add(row, wxSizerFlags().Expand().CentreVertical());
  return text;
}

wxStaticText *AddLabelledRow(wxFlexGridSizer &grid, wxString const &label, wxWindow &control) {
  auto *const text = new wxStaticText(control.GetParent(), wxID_ANY, label);  // owned by its parent
  // On Windows a mnemonic leads to the window behind the label.
  text->MoveBeforeInTabOrder(&control);
  grid.Add(text, wxSizerFlags().CentreVertical());
  grid.Add(&control, wxSizerFlags().CentreVertical());
  framenote::NameForScreenReaders(control, NameOfLabel(label));
  return text;
}

int WidthOfText(wxWindow const &window, int characters) {
  return window.GetTextExtent(wxString('n', static_cast<std::size_t>(characters))).x;
}

void SizeField(wxWindow &field, int characters) {
  constexpr int kFrame = 12;  // device-independent pixels, above and below the text, or beside it
  int const frame = field.FromDIP(kFrame);
  int const height = std::max(field.GetBestSize().y, field.GetTextExtent("Xg").y + frame);
  field.SetMinSize({WidthOfText(field, characters) + frame, height});
}

wxString NameOfLabel(wxString const &label) {
  wxString name = wxControl::RemoveMnemonics(label);
  if (name.EndsWith(":")) name.RemoveLast();
  return name;
}

wxColour WarningTextColour() {
  constexpr double kRedness = 0.7;
  return Mixed(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT), wxColour(220, 40, 30),
               kRedness);
}
