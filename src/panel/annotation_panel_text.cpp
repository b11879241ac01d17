// SPDX-License-Identifier: MIT
// The rows of the text panel that other panels do not have: the font, and the macros.
#include <algorithm>

#include <wx/clrpicker.h>
#include <wx/fontenum.h>
#include <wx/fontpicker.h>
#include <wx/odcombo.h>
#include <wx/sizer.h>
#include <wx/textctrl.h>
#include <wx/tglbtn.h>
#include <wx/translation.h>

#include "framenote/annotation_panel.h"
#include "framenote/annotation_tool.h"
#include "modes/ann_text_tool_mode.h"
#include "painters/drawable.h"
#include "panel/panel_layout.h"

namespace {

constexpr char const *kSizes[] = {"8",  "9",  "10", "11", "12", "14", "16", "18",
                                  "20", "22", "24", "26", "28", "36", "48", "72"};
/// More than any font that can be drawn.
constexpr long kMaxPoints = 10000;

/// The number that a text begins with; 0 if there is none.
int NumberIn(wxString const &text) {
  long number = 0;
  wxString digits = text.Strip(wxString::both);
  digits = digits.Left(digits.find_first_not_of("0123456789"));
  if (!digits.ToLong(&number)) number = digits.empty() ? 0 : kMaxPoints;
  return static_cast<int>(std::min(number, kMaxPoints));
}

}  // namespace

void AnnotationPanel::changeFont(std::function<void(wxFont &)> const &change) {
  AnnTextProperties &record = *m_tool->GetToolModes().text->m_properties;
  wxFont font = framenote::UsableFont(record.GetFont());
  change(font);
  // A name of no font that is installed. The controls show what is kept.
  if (!font.IsOk()) return updateTextPropertiesCustomControls();
  record.SetFont(font);
  apply(Types::Text);
  m_fontPicker->SetSelectedFont(font);
}

void AnnotationPanel::addFontToggle(Page const &page, wxSizer *sizer, int id, char const *label,
                                    std::function<void(wxFont &, bool)> const &change) {
  wxToggleButton *const toggle =
      CreateToggleButtonExt(page.window, id, wxGetTranslation(label), wxDefaultPosition,
                            wxDefaultSize, 0, wxDefaultValidator, wxCheckBoxNameStr);
  toggle->Bind(wxEVT_TOGGLEBUTTON, [this, toggle, change](wxCommandEvent &) {
    bool const value = toggle->GetValue();
    changeFont([&](wxFont &font) { change(font, value); });
  });
  bool const isFirst = sizer->IsEmpty();
  sizer->Add(toggle, 0, isFirst ? wxEXPAND : wxEXPAND | wxTOP, isFirst ? 0 : framenote::kRowGap);
}

void AnnotationPanel::addFontRows(Page const &page) {
  addFontChoices(page);
  addFontStyles(page);
  addFontPickers(page);
}

void AnnotationPanel::addFontChoices(Page const &page) {
  // A name or a size can be chosen, or typed and confirmed.
  auto const onText = [](wxOwnerDrawnComboBox *combo, auto const &take) {
    auto const handler = [combo, take](wxCommandEvent &) { take(combo->GetValue()); };
    combo->Bind(wxEVT_COMBOBOX, handler);
    combo->Bind(wxEVT_TEXT_ENTER, handler);
  };
  m_fontFaceCombo = CreateOwnerDrawnComboBox(
      page.window, 21, wxString(), wxDefaultPosition, wxDefaultSize,
      wxFontEnumerator::GetFacenames(wxFONTENCODING_SYSTEM, false), wxCB_SORT | wxTE_PROCESS_ENTER,
      wxDefaultValidator, wxComboBoxNameStr);
  onText(m_fontFaceCombo, [this](wxString const &face) {
    changeFont([&](wxFont &font) { font.SetFaceName(face); });
  });
  addRow(page, wxTRANSLATE("Font"), m_fontFaceCombo);

  wxArrayString sizes;
  for (char const *size : kSizes) sizes.Add(size);
  m_fontSizeCombo =
      CreateOwnerDrawnComboBox(page.window, 25, wxString(), wxDefaultPosition, wxDefaultSize, sizes,
                               wxTE_PROCESS_ENTER, wxDefaultValidator, wxComboBoxNameStr);
  onText(m_fontSizeCombo, [this](wxString const &size) {
    changeFont([&](wxFont &font) { font.SetPointSize(NumberIn(size)); });
  });
  addRow(page, wxTRANSLATE("Size"), m_fontSizeCombo);
}

void AnnotationPanel::addFontStyles(Page const &page) {
  auto *const styles = new wxBoxSizer(wxVERTICAL);  // owned by the grid
  addFontToggle(page, styles, 22, wxTRANSLATE("Bold"), [](wxFont &font, bool value) {
    font.SetWeight(value ? wxFONTWEIGHT_BOLD : wxFONTWEIGHT_NORMAL);
  });
  addFontToggle(page, styles, 23, wxTRANSLATE("Italic"), [](wxFont &font, bool value) {
    font.SetStyle(value ? wxFONTSTYLE_ITALIC : wxFONTSTYLE_NORMAL);
  });
  addFontToggle(page, styles, 24, wxTRANSLATE("Underline"),
                [](wxFont &font, bool value) { font.SetUnderlined(value); });
  addRow(page, wxTRANSLATE("Style"), styles);
}

void AnnotationPanel::addFontPickers(Page const &page) {
  auto const record = m_tool->GetToolModes().text->m_properties;
  m_fontColorPicker = makeColour(page, 26, [record] { return record->GetFontColor(); });
  m_fontColorPicker->Bind(wxEVT_COLOURPICKER_CHANGED, [this, record](wxColourPickerEvent &) {
    record->SetFontColor(m_fontColorPicker->GetColour());
    apply(Types::Text);
    m_fontPicker->SetSelectedColour(record->GetFontColor());
  });
  addRow(page, wxTRANSLATE("Color"), m_fontColorPicker);

  m_fontPicker = CreateFontPicker(page.window, wxID_ANY, framenote::UsableFont(record->GetFont()),
                                  wxDefaultPosition, wxDefaultSize, wxFNTP_FONTDESC_AS_LABEL,
                                  wxDefaultValidator, wxFontPickerCtrlNameStr);
  m_fontPicker->Bind(wxEVT_FONTPICKER_CHANGED, [this, record](wxFontPickerEvent &) {
    record->SetFont(m_fontPicker->GetSelectedFont());
    record->SetFontColor(m_fontPicker->GetSelectedColour());
    apply(Types::Text);
    updateTextPropertiesCustomControls();
  });
  addRow(page, wxTRANSLATE("More Properties"), m_fontPicker);
  onUpdate(page, [this, record] {
    updateTextPropertiesCustomControls();
    m_fontPicker->SetSelectedFont(framenote::UsableFont(record->GetFont()));
    m_fontPicker->SetSelectedColour(record->GetFontColor());
  });
}

void AnnotationPanel::updateTextPropertiesCustomControls() const {
  AnnTextProperties const &record = *m_tool->GetToolModes().text->m_properties;
  wxFont const font = framenote::UsableFont(record.GetFont());
  m_fontFaceCombo->SetStringSelection(font.GetFaceName());
  m_fontSizeCombo->SetStringSelection(wxString::Format("%i", font.GetPointSize()));
  auto const press = [this](int id, bool value) {
    auto *const toggle = dynamic_cast<wxToggleButton *>(FindWindowById(id, this));
    if (toggle != nullptr) toggle->SetValue(value);
  };
  press(22, font.GetWeight() == wxFONTWEIGHT_BOLD);
  press(23, font.GetStyle() == wxFONTSTYLE_ITALIC);
  press(24, font.GetUnderlined());
  wxColour const colour = record.GetFontColor();
  if (colour.IsOk()) m_fontColorPicker->SetColour(colour);
}

void AnnotationPanel::addMacroRow(Page const &page) {
  AnnotationToolConfig::TextMacrosConfig const *const config = m_config.textMacros;
  if (config == nullptr || config->macros.empty()) return;
  wxArrayString items;
  items.Add(wxGetTranslation("--Select the Macro to Add--"));
  for (auto const &[key, value] : config->macros) {
    items.Add(config->showMacroValues ? key + ": " + value : key);
  }
  wxOwnerDrawnComboBox *const combo =
      CreateOwnerDrawnComboBox(page.window, 31, wxString(), wxDefaultPosition, wxDefaultSize, items,
                               wxCB_READONLY, wxDefaultValidator, wxComboBoxNameStr);
  framenote::FitToItems(*combo);
  combo->SetSelection(0);
  combo->Bind(wxEVT_COMBOBOX, [this, combo, config](wxCommandEvent &) {
    int const n = combo->GetSelection();
    if (n <= 0) return;
    m_tool->AddTextMacro(config->macros.at(static_cast<std::size_t>(n - 1)).second);
    combo->SetSelection(0);
  });
  addRow(page, config->macroLabel, combo);
}
