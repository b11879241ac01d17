// SPDX-License-Identifier: MIT
// The palette: the grid of tools, the General panel, and which property panel shows.
#include "framenote/annotation_panel.h"

#include <algorithm>
#include <utility>

#include <wx/anybutton.h>
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/clrpicker.h>
#include <wx/msgdlg.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/tglbtn.h>
#include <wx/translation.h>

#include "framenote/annotation_tool.h"
#include "panel/accessible_name.h"
#include "panel/panel_layout.h"
#include "talbase/style_manager.h"

using framenote::kColumnGap;
using framenote::kPanelBorder;
using framenote::kRowGap;
using framenote::kToolGridColumns;
using framenote::kToolGridRows;

namespace {

constexpr char const *kExtendedKey = "Extended";
constexpr int kToolButtonWidth = 60;
constexpr int kScrollStep = 10;
constexpr bool kExtensionChecked = true;  ///< before a document says otherwise

/// Buttons show by their background whether they are pressed, and pickers their colour.
bool TellsByBackground(wxWindow const &window) {
  return dynamic_cast<wxAnyButton const *>(&window) ||
         dynamic_cast<wxColourPickerCtrl const *>(&window);
}

void MeasureAnew(wxWindow &window) {
  for (wxWindow *child : window.GetChildren()) MeasureAnew(*child);
  window.InvalidateBestSize();
}

}  // namespace

AnnotationPanelConfig::AnnotationPanelConfig(bool withZoomMethod, bool withHideAll,
                                             bool withExtension,
                                             AnnotationToolConfig::TextMacrosConfig const *macros)
    : showZoomMethod(withZoomMethod),
      showHideAll(withHideAll),
      extensionEnabled(withExtension),
      textMacros(macros) {}

AnnotationPanel::AnnotationPanel(AnnotationPanelConfig const &config) : m_config(config) {}

AnnotationPanel::AnnotationPanel(wxWindow *parent, std::shared_ptr<AnnotationTool> tool,
                                 AnnotationPanelConfig const &config)
    : AnnotationPanel(config) {
  AnnotationPanel::Create(parent, std::move(tool));
}

bool AnnotationPanel::Create(wxWindow *parent, std::shared_ptr<AnnotationTool> tool) {
  if (!tool || !wxScrolled<wxPanel>::Create(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                            wxTAB_TRAVERSAL | wxBORDER_NONE, wxPanelNameStr)) {
    return false;
  }
  m_tool = std::move(tool);
  // Keyboard users go through the windows in the order in which they are made: buttons first.
  wxPanel *const grid = CreatePanel(this);
  struct {
    char const *label;
    Types type;
    wxPanel *panel;
  } const tools[] = {{wxTRANSLATE("Shape"), Types::Shape, CreateShapePropertiesPanel()},
                     {wxTRANSLATE("Arrow"), Types::Arrow, CreateArrowPropertiesPanel()},
                     {wxTRANSLATE("Pencil"), Types::Pencil, CreatePencilPropertiesPanel()},
                     {wxTRANSLATE("Text"), Types::Text, CreateTextPropertiesPanel()},
                     {wxTRANSLATE("Image"), Types::Image, CreateImagePropertiesPanel()},
                     // TRANSLATORS: the tool that makes regions unrecognisable (redaction); "Hide
                     // All" is something else: it switches the showing of all annotations off.
                     {wxTRANSLATE("Hide"), Types::Hide, CreateHidePropertiesPanel()},
                     {wxTRANSLATE("Magnify"), Types::Magnify, CreateMagnifyPropertiesPanel()},
                     {wxTRANSLATE("General"), Types::General, CreateGeneralPanel()}};
  m_toolGrid =
      new wxGridSizer(kToolGridRows, kToolGridColumns, 0, 0);  // owned by the grid's window
  grid->SetSizer(m_toolGrid, true);
  m_propertySizer = new wxBoxSizer(wxVERTICAL);  // owned by the main sizer
  for (auto const &entry : tools) {
    AddTool(grid, entry.type, entry.label, entry.panel);
    entry.panel->Bind(wxEVT_PAINT, &AnnotationPanel::onPagePainted, this);
    m_propertySizer->Add(entry.panel, 1, wxEXPAND | wxBOTTOM | wxLEFT | wxRIGHT, kPanelBorder);
  }
  setExtensionColor();
  m_propertySizer->ShowItems(true);
  auto *const main = new wxBoxSizer(wxVERTICAL);  // owned by this window
  main->Add(grid, 0, wxEXPAND | wxTOP | wxLEFT | wxRIGHT, kPanelBorder);
  main->Add(m_propertySizer, 1, wxEXPAND | wxTOP, kPanelBorder);
  SetSizer(main, true);
  auto const &style = Singleton<StyleManager>::Instance();
  setBackgroundColorRecursively(this, style.GetBackgroundColor());
  setForegroundColorRecursively(this, style.GetForegroundColor());
  SetScrollRate(FromDIP(kScrollStep), FromDIP(kScrollStep));
  Layout();
  Update();
  m_propertySizer->ShowItems(false);
  layOutAnew();
  // GTK complains of scroll bars in a window that is lower than they are.
  SetSize(GetEffectiveMinSize());
  return true;
}

void AnnotationPanel::AddTool(wxWindow *parent, Types id, wxString const &label, wxPanel *panel) {
  wxToggleButton *const button = CreateToolToogleButton(
      parent, static_cast<int>(id), wxGetTranslation(label), wxDefaultPosition,
      wxSize(FromDIP(kToolButtonWidth), -1), 0, wxDefaultValidator, wxCheckBoxNameStr);
  // A translated label may need more.
  button->SetMinSize(wxSize(std::max(FromDIP(kToolButtonWidth), button->GetBestSize().x), -1));
  button->Bind(wxEVT_TOGGLEBUTTON, &AnnotationPanel::OnToolToggle, this);
  m_toolPanels[button] = panel;
  m_toolGrid->Add(button, 0, wxEXPAND, 1);
}

void AnnotationPanel::OnToolToggle(wxCommandEvent &event) {
  m_tool->Deactivate();
  DoToolToggle(dynamic_cast<wxToggleButton *>(event.GetEventObject()));
  event.Skip(true);
}

void AnnotationPanel::Deactivate() {
  if (m_activeToggle != nullptr) {
    m_tool->SendAnnotationToolDeselectedEvent(m_activeToggle,
                                              static_cast<Types>(m_activeToggle->GetId()));
    m_activeToggle->SetValue(false);
    m_propertySizer->Hide(m_toolPanels.at(m_activeToggle));
    m_activeToggle = nullptr;
  }
  layOutAnew();
}

// The panel is as high as what it shows, and as wide as the widest property panel, whichever is
// shown, with room for the scroll bar of a low window.
void AnnotationPanel::layOutAnew() {
  MeasureAnew(*this);
  int width = m_toolGrid->CalcMin().x;
  for (auto const &[button, panel] : m_toolPanels) {
    width = std::max(width, panel->GetSizer()->CalcMin().x);
  }
  int const barWidth = std::max(wxSystemSettings::GetMetric(wxSYS_VSCROLL_X, this), 0);
  SetMinSize(wxSize(width + 2 * kPanelBorder + barWidth, -1));
  FitInside();
  Layout();
}

// GTK takes a font on just before it first paints what has it; all that was measured before is of
// another font. A paint handler may not move windows.
void AnnotationPanel::onPagePainted(wxPaintEvent &event) {
  event.Skip();
  if (std::exchange(m_isMeasured, true)) return;
  CallAfter([this] { layOutAnew(); });
}

// The toolkit's own way moves the hidden panels too, which GTK complains of.
void AnnotationPanel::ScrollWindow(int, int, wxRect const *) {
  Layout();
}

// A scrolled window would name the least that it can be scrolled in.
wxSize AnnotationPanel::DoGetBestSize() const {
  if (GetSizer() != nullptr) return GetSizer()->CalcMin();
  return wxPanel::DoGetBestSize();  // NOLINT(bugprone-parent-virtual-call): as above
}

void AnnotationPanel::DoToolToggle(wxToggleButton *button) {
  wxToggleButton *const last = m_activeToggle;
  auto id = static_cast<Types>(0);
  Deactivate();
  if (button == last || button == nullptr) {
    m_tool->SetActiveTool(Types::Idle);
  } else {
    m_activeToggle = button;
    button->SetValue(true);
    m_propertySizer->Show(m_toolPanels.at(button));
    m_isMeasured = false;
    id = static_cast<Types>(button->GetId());
    m_tool->SetActiveTool(m_tool->GetToolModes().Of(id));
  }
  // Releasing a tool selects the tool 0.
  m_tool->SendAnnotationToolSelectedEvent(button, id);
  layOutAnew();
}

void AnnotationPanel::DoToolToggle(Types id) {
  if (m_activeToggle != nullptr && m_activeToggle->GetId() == static_cast<int>(id)) return;
  auto *const button = dynamic_cast<wxToggleButton *>(FindWindowById(static_cast<long>(id), this));
  if (button != nullptr) DoToolToggle(button);
}

wxPanel *AnnotationPanel::CreateGeneralPanel() {
  wxPanel *const panel = CreatePanel(this);
  auto *const sizer = new wxBoxSizer(wxVERTICAL);  // owned by the panel
  sizer->Add(CreateHideClearSizer(panel), 0, wxEXPAND, 0);
  sizer->Add(CreatePreviousNextSizer(panel), 0, wxEXPAND | wxTOP, kRowGap);
  if (m_config.extensionEnabled) {
    sizer->AddSpacer(2);
    sizer->Add(CreateExportSizer(panel), 0, wxEXPAND | wxTOP, kRowGap);
  }
  panel->SetSizer(sizer, true);
  panel->Hide();
  return panel;
}

wxBoxSizer *AnnotationPanel::CreateHideClearSizer(wxPanel *panel) {
  auto *const sizer = new wxBoxSizer(wxVERTICAL);  // owned by the panel's sizer
  if (m_config.showHideAll) {
    m_hideAllToggle =
        CreateToggleButtonExt(panel, wxID_ANY, wxGetTranslation("Hide All"), wxDefaultPosition,
                              wxDefaultSize, 0, wxDefaultValidator, wxCheckBoxNameStr);
    m_hideAllToggle->SetValue(!m_tool->IsVisible());
    m_hideAllToggle->Bind(wxEVT_TOGGLEBUTTON, [this](wxCommandEvent &) {
      m_tool->SetObjectsVisible(!m_hideAllToggle->GetValue());
    });
    sizer->Add(m_hideAllToggle, 0, wxEXPAND, 0);
  }
  wxButton *const clear =
      CreateButton(panel, wxID_ANY, wxGetTranslation("Clear All"), wxDefaultPosition, wxDefaultSize,
                   0, wxDefaultValidator, wxButtonNameStr);
  clear->Bind(wxEVT_BUTTON, [this, panel](wxCommandEvent &) { askAndClear(panel); });
  sizer->Add(clear, 0, wxEXPAND | wxTOP, kRowGap);
  return sizer;
}

void AnnotationPanel::askAndClear(wxWindow *parent) {
  wxMessageDialog dialog(parent, wxGetTranslation("Delete all annotations?"),
                         wxGetTranslation("Confirm"),
                         wxYES_NO | wxNO_DEFAULT | wxICON_QUESTION | wxCENTRE, wxDefaultPosition);
  if (dialog.ShowModal() != wxID_YES) return;
  m_tool->ClearAllAnnotations();
  m_tool->SetObjectsVisible(true);
}

wxBoxSizer *AnnotationPanel::CreatePreviousNextSizer(wxPanel *panel) {
  auto *const sizer = new wxBoxSizer(wxHORIZONTAL);  // owned by the panel's sizer
  int const gap = std::max(kColumnGap / 2, 1);
  auto const add = [&](char const *label, GoToObjectDirection direction, int side) {
    wxButton *const button =
        CreateButton(panel, wxID_ANY, wxGetTranslation(label), wxDefaultPosition, wxDefaultSize, 0,
                     wxDefaultValidator, wxButtonNameStr);
    button->Bind(wxEVT_BUTTON,
                 [this, direction](wxCommandEvent &) { m_tool->GoToObject(direction); });
    sizer->Add(button, 1, wxEXPAND | side, gap);
  };
  add(wxTRANSLATE("Previous"), GoToObjectDirection::Previous, wxRIGHT);
  add(wxTRANSLATE("Next"), GoToObjectDirection::Next, wxLEFT);
  return sizer;
}

wxBoxSizer *AnnotationPanel::CreateExportSizer(wxPanel *panel) {
  m_extensionCheck =
      CreateCheckBox(panel, wxID_ANY, wxGetTranslation("Extension With Color:"), wxDefaultPosition,
                     wxDefaultSize, 0, wxDefaultValidator, wxCheckBoxNameStr);
  m_extensionCheck->SetValue(kExtensionChecked);
  wxColour const first = m_tool->GetExtensionColor();
  m_extensionPicker =
      CreateColourPicker(panel, wxID_ANY, first.IsOk() ? first : *wxWHITE, wxDefaultPosition,
                         wxDefaultSize, 0, wxDefaultValidator, wxColourPickerCtrlNameStr);
  framenote::NameForScreenReaders(*m_extensionPicker, m_extensionCheck->GetLabel());
  auto const changed = [this](wxCommandEvent &) {
    m_tool->SetExtensionColour(getExtensionColor());
  };
  m_extensionCheck->Bind(wxEVT_CHECKBOX, changed);
  m_extensionPicker->Bind(wxEVT_COLOURPICKER_CHANGED, changed);
  auto *const row = new wxBoxSizer(wxHORIZONTAL);  // owned by the outer sizer
  row->Add(m_extensionCheck, 0, wxEXPAND | wxRIGHT, 2);
  row->Add(m_extensionPicker, 1, wxEXPAND, 0);
  auto *const sizer = new wxBoxSizer(wxVERTICAL);  // owned by the panel's sizer
  sizer->Add(row, 0, wxEXPAND, 0);
  return sizer;
}

void AnnotationPanel::SetHideAllToggleValue(bool value) {
  if (m_hideAllToggle != nullptr) m_hideAllToggle->SetValue(value);
}

wxColour AnnotationPanel::getExtensionColor() const {
  return m_extensionCheck->GetValue() ? m_extensionPicker->GetColour() : wxNullColour;
}

void AnnotationPanel::setExtensionColor() {
  if (!m_config.extensionEnabled) return;
  wxColour const colour = m_tool->GetExtensionColor();
  if (colour != wxNullColour) m_extensionPicker->SetColour(colour);
  m_extensionCheck->SetValue(colour != wxNullColour);
}

void AnnotationPanel::ToJSON(wxJSONValue &value) const {
  value.Set(kExtendedKey, m_config.extensionEnabled && m_extensionCheck->GetValue());
}

void AnnotationPanel::FromJSON(wxJSONValue const &value) {
  if (!m_config.extensionEnabled) return;
  m_extensionCheck->SetValue(value.Get(kExtendedKey, kExtensionChecked).AsBool());
  setExtensionColor();
}

void AnnotationPanel::setBackgroundColorRecursively(wxWindow *window, wxColour const &colour) {
  if (TellsByBackground(*window)) return;
  window->SetBackgroundColour(colour);
  for (wxWindow *child : window->GetChildren()) setBackgroundColorRecursively(child, colour);
}

void AnnotationPanel::setForegroundColorRecursively(wxWindow *window, wxColour const &colour) {
  window->SetForegroundColour(colour);
  for (wxWindow *child : window->GetChildren()) setForegroundColorRecursively(child, colour);
}
