// SPDX-License-Identifier: MIT
// The rows that property panels are made of.
#include <algorithm>

#include <wx/checkbox.h>
#include <wx/clrpicker.h>
#include <wx/odcombo.h>
#include <wx/sizer.h>
#include <wx/slider.h>
#include <wx/spinbutt.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/translation.h>

#include "coordinates/pixel_geometry.h"
#include "framenote/annotation_panel.h"
#include "framenote/annotation_tool.h"
#include "modes/annotation_tool_mode.h"
#include "panel/accessible_name.h"
#include "panel/panel_layout.h"

namespace {

/// What an owner-drawn item is painted from the edges of its field.
constexpr int kItemMargin = 4;

/// `colour` with another alpha.
wxColour ChangeOpacity(int alpha, wxColour const &colour) {
  wxColour const known = colour.IsOk() ? colour : *wxBLACK;
  return {known.Red(), known.Green(), known.Blue(), static_cast<unsigned char>(alpha)};
}

bool IsTransparent(wxColour const &colour) {
  return !colour.IsOk() || colour.Alpha() == 0;
}

/// A document may bring any number.
void ShowSelection(wxOwnerDrawnComboBox &combo, int index) {
  bool const isKnown = index >= 0 && index < static_cast<int>(combo.GetCount());
  combo.SetSelection(isKnown ? index : wxNOT_FOUND);
}

void ShowColour(wxColourPickerCtrl &picker, wxColour const &colour) {
  picker.SetColour(colour.IsOk() ? colour : *wxBLACK);
}

}  // namespace

int framenote::CheckFlags(wxWindow const &check) {
  bool const isMirrored = check.GetLayoutDirection() == wxLayout_RightToLeft;
  return isMirrored ? wxTOP : wxTOP | wxEXPAND;
}

void framenote::FitToItems(wxOwnerDrawnComboBox &combo) {
  int widest = 0;
  for (unsigned i = 0; i < combo.GetCount(); ++i) {
    widest = std::max(widest, combo.GetTextExtent(combo.GetString(i)).x);
  }
  combo.InvalidateBestSize();
  int const needed = combo.GetSizeFromTextSize(widest + 2 * combo.FromDIP(kItemMargin)).x;
  combo.SetMinSize(wxSize(std::max(needed, combo.GetBestSize().x), -1));
}

void AnnotationPanel::UpdateControls(int type) const {
  auto const updates = m_updates.find(static_cast<Types>(type));
  if (updates == m_updates.end()) return;
  for (auto const &show : updates->second) show();
}

void AnnotationPanel::onUpdate(Page const &page, std::function<void()> const &show) {
  m_updates[page.type].push_back(show);
}

void AnnotationPanel::apply(Types type) {
  m_tool->GetToolModes().Of(type)->ApplyProperties();
}

AnnotationPanel::Page AnnotationPanel::startPage(Types type, int rows) {
  wxPanel *const panel = CreatePanel(this);
  wxSize const gap(framenote::kColumnGap, framenote::kRowGap);
  auto *const grid = new wxFlexGridSizer(rows, 2, gap.y, gap.x);  // owned by the panel
  grid->AddGrowableCol(1, 0);
  grid->SetFlexibleDirection(wxBOTH);
  grid->SetNonFlexibleGrowMode(wxFLEX_GROWMODE_SPECIFIED);
  return {type, panel, grid};
}

wxPanel *AnnotationPanel::finishPage(Page const &page) {
  page.window->SetSizer(page.grid, true);
  page.window->Hide();
  UpdateControls(static_cast<int>(page.type));
  return page.window;
}

// The label goes before its control in the order of windows too: where the toolkit has no names for
// screen readers, they take the text that stands before.
wxStaticText *AnnotationPanel::makeLabel(Page const &page, wxString const &label,
                                         std::vector<wxWindow *> const &controls) {
  wxString const text = wxGetTranslation(label);
  wxStaticText *const made = CreateStaticText(page.window, wxID_ANY, text, wxDefaultPosition,
                                              wxDefaultSize, 0, wxStaticTextNameStr);
  // GTK measures a font that it was given just now as the one before. The pixel is for rounding.
  made->SetMinSize(made->GetTextExtent(text) + wxSize(1, 0));
  if (!controls.empty()) made->MoveBeforeInTabOrder(controls.front());
  for (wxWindow *control : controls) framenote::NameForScreenReaders(*control, text);
  return made;
}

void AnnotationPanel::addRow(Page const &page, wxString const &label, wxWindow *control) {
  page.grid->Add(makeLabel(page, label, {control}), 0, wxALIGN_CENTER_VERTICAL, 0);
  page.grid->Add(control, 0, wxEXPAND, 0);
}

void AnnotationPanel::addRow(Page const &page, wxString const &label, wxSizer *controls) {
  std::vector<wxWindow *> windows;
  for (wxSizerItem const *item : controls->GetChildren()) {
    if (item->IsWindow()) windows.push_back(item->GetWindow());
  }
  page.grid->Add(makeLabel(page, label, windows), 0, wxALIGN_CENTER_VERTICAL, 0);
  page.grid->Add(controls, 0, wxEXPAND, 0);
}

wxOwnerDrawnComboBox *AnnotationPanel::makeList(Page const &page, int id, Labels const &labels,
                                                std::function<int()> const &get) {
  std::vector<wxString> items;
  for (char const *label : labels) items.push_back(wxGetTranslation(label));
  wxOwnerDrawnComboBox *const combo = CreateOwnerDrawnComboBox(
      page.window, id, wxString(), wxDefaultPosition, wxDefaultSize, static_cast<int>(items.size()),
      items.data(), wxCB_READONLY, wxDefaultValidator, wxComboBoxNameStr);
  framenote::FitToItems(*combo);
  onUpdate(page, [combo, get] { ShowSelection(*combo, get()); });
  return combo;
}

void AnnotationPanel::addChoice(Page const &page, int id, char const *label, Labels const &labels,
                                std::function<int()> const &get,
                                std::function<void(int)> const &set) {
  wxOwnerDrawnComboBox *const combo = makeList(page, id, labels, get);
  combo->Bind(wxEVT_COMBOBOX, [this, combo, set, type = page.type](wxCommandEvent &) {
    set(combo->GetSelection());
    apply(type);
  });
  addRow(page, label, combo);
}

wxColourPickerCtrl *AnnotationPanel::makeColour(Page const &page, int id,
                                                std::function<wxColour()> const &get) {
  wxColour const first = get();
  wxColourPickerCtrl *const picker =
      CreateColourPicker(page.window, id, first.IsOk() ? first : *wxBLACK, wxDefaultPosition,
                         wxDefaultSize, 0, wxDefaultValidator, wxColourPickerCtrlNameStr);
  onUpdate(page, [picker, get] { ShowColour(*picker, get()); });
  return picker;
}

void AnnotationPanel::addColour(Page const &page, int id, char const *label,
                                std::function<wxColour()> const &get,
                                std::function<void(wxColour const &)> const &set) {
  wxColourPickerCtrl *const picker = makeColour(page, id, get);
  picker->Bind(wxEVT_COLOURPICKER_CHANGED,
               [this, picker, set, type = page.type](wxColourPickerEvent &) {
                 set(picker->GetColour());
                 apply(type);
               });
  addRow(page, label, picker);
}

void AnnotationPanel::addColourWithCheck(Page const &page, int pickerId, int checkId,
                                         char const *label, std::function<wxColour()> const &get,
                                         std::function<void(wxColour const &)> const &set,
                                         std::function<void(int alpha)> const &alsoChecked) {
  wxColourPickerCtrl *const picker = makeColour(page, pickerId, get);
  wxCheckBox *const check =
      CreateCheckBox(page.window, checkId, wxGetTranslation("Transparent"), wxDefaultPosition,
                     wxDefaultSize, 0, wxDefaultValidator, wxCheckBoxNameStr);
  auto const alpha = [check] { return check->GetValue() ? 0 : 255; };
  picker->Bind(wxEVT_COLOURPICKER_CHANGED,
               [this, picker, alpha, set, type = page.type](wxColourPickerEvent &) {
                 // Picking a colour does not make it visible.
                 set(ChangeOpacity(alpha(), picker->GetColour()));
                 apply(type);
               });
  check->Bind(wxEVT_CHECKBOX,
              [this, alpha, get, set, alsoChecked, type = page.type](wxCommandEvent &) {
                set(ChangeOpacity(alpha(), get()));
                apply(type);
                if (alsoChecked) alsoChecked(alpha());
              });
  onUpdate(page, [check, get] { check->SetValue(IsTransparent(get())); });
  auto *const sizer = new wxBoxSizer(wxVERTICAL);  // owned by the grid
  sizer->Add(picker, 0, wxEXPAND, 0);
  sizer->Add(check, 0, framenote::CheckFlags(*check), framenote::kRowGap);
  addRow(page, label, sizer);
}

wxWindow *AnnotationPanel::makeSlider(Page const &page, int id, Range const &range,
                                      std::function<double()> const &get,
                                      std::function<void(int)> const &set) {
  wxSliderBase *const slider = CreateSpinSliderDouble(
      page.window, id, get(), range.min, range.max, range.step, wxDefaultPosition, wxDefaultSize,
      wxHORIZONTAL, wxSP_ARROW_KEYS | wxTE_PROCESS_ENTER, wxDefaultValidator,
      "AnnSpinSliderDoubleCtrl");
  slider->Bind(wxEVT_SLIDER, [this, slider, set, type = page.type](wxCommandEvent &) {
    set(slider->GetValue());
    apply(type);
  });
  double const step = range.step;
  onUpdate(page, [slider, get, step] { slider->SetValue(framenote::TruncateToInt(get() / step)); });
  return slider;
}

void AnnotationPanel::addSlider(Page const &page, int id, char const *label, Range const &range,
                                std::function<double()> const &get,
                                std::function<void(int)> const &set) {
  addRow(page, label, makeSlider(page, id, range, get, set));
}

wxCheckBox *AnnotationPanel::makeCheck(Page const &page, int id, char const *label,
                                       std::function<bool()> const &get,
                                       std::function<void(bool)> const &set) {
  wxCheckBox *const check =
      CreateCheckBox(page.window, id, wxGetTranslation(label), wxDefaultPosition, wxDefaultSize, 0,
                     wxDefaultValidator, wxCheckBoxNameStr);
  check->Bind(wxEVT_CHECKBOX, [this, check, set, type = page.type](wxCommandEvent &) {
    set(check->GetValue());
    apply(type);
  });
  onUpdate(page, [check, get] { check->SetValue(get()); });
  return check;
}
