// SPDX-License-Identifier: MIT
// The image panel, and the choice of the picture to paste.
#include <algorithm>
#include <array>

#include <wx/checkbox.h>
#include <wx/filedlg.h>
#include <wx/filename.h>
#include <wx/filepicker.h>
#include <wx/log.h>
#include <wx/odcombo.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/translation.h>

#include "framenote/annotation_panel.h"
#include "framenote/annotation_tool.h"
#include "modes/ann_image_tool_mode.h"
#include "panel/accessible_name.h"
#include "panel/panel_layout.h"

namespace {

constexpr char const *kWildcard = wxTRANSLATE(
    "Image files (*.bmp, *.jpg, *.jpeg, *.png, *.gif)|*.bmp;*.jpg;*.jpeg;*.png;*.gif|"
    "BMP (*.bmp)|*.bmp|JPEG (*.jpg, *.jpeg)|*.jpg;*.jpeg|PNG (*.png)|*.png|GIF (*.gif)|*.gif");

/// By the extension, in small letters.
bool IsPictureName(wxFileName const &name) {
  constexpr std::array<char const *, 5> kExtensions = {"bmp", "jpg", "jpeg", "png", "gif"};
  return std::any_of(kExtensions.begin(), kExtensions.end(),
                     [&](char const *extension) { return name.GetExt() == extension; });
}

}  // namespace

wxPanel *AnnotationPanel::CreateImagePropertiesPanel() {
  using framenote::kColumnGap;
  using framenote::kRowGap;
  auto const record = m_tool->GetToolModes().image->m_properties;
  wxPanel *const panel = CreatePanel(this);
  // One column, and no labels but one.
  auto *const grid = new wxFlexGridSizer(3, 1, kRowGap, kColumnGap);  // owned by the panel
  grid->AddGrowableCol(0, 0);
  grid->SetFlexibleDirection(wxBOTH);
  grid->SetNonFlexibleGrowMode(wxFLEX_GROWMODE_SPECIFIED);
  Page const page = {Types::Image, panel, grid};
  m_filePicker = CreateFilePicker(
      panel, wxID_ANY, wxString(), wxGetTranslation(wxFileSelectorPromptStr),
      wxGetTranslation(kWildcard), wxDefaultPosition, wxDefaultSize,
      wxFLP_SMALL | wxFLP_CHANGE_DIR | wxFLP_FILE_MUST_EXIST | wxFLP_OPEN | wxFLP_USE_TEXTCTRL,
      wxDefaultValidator, wxFilePickerCtrlNameStr);
  framenote::NameForScreenReaders(*m_filePicker, wxGetTranslation(wxFileSelectorPromptStr));
  // The control tries to make each typed name the current folder, and complains that it is none.
  m_filePicker->GetTextCtrl()->Bind(wxEVT_TEXT, [this](wxCommandEvent &) {
    wxLogNull const quiet;
    m_filePicker->UpdatePickerFromTextCtrl();
  });
  m_filePicker->Bind(wxEVT_FILEPICKER_CHANGED, [this](wxFileDirPickerEvent &) {
    wxFileName const name = m_filePicker->GetFileName();
    if (name.FileExists() && IsPictureName(name)) choosePicture(name.GetFullPath());
  });
  onUpdate(page, [this, record] { m_filePicker->SetFileName(record->GetFileName()); });
  wxCheckBox *const keep = makeCheck(
      page, 32, wxTRANSLATE("Keep Aspect Ratio"), [record] { return record->GetKeepAspectRatio(); },
      [record](bool value) { record->SetKeepAspectRatio(value); });
  wxOwnerDrawnComboBox *const colours =
      // TRANSLATORS: the colour of a pasted picture that is treated as transparent.
      makeList(page, 33, {wxTRANSLATE("None"), wxTRANSLATE("White"), wxTRANSLATE("Black")},
               [record] { return record->GetTransparentColor(); });
  colours->Bind(wxEVT_COMBOBOX, [this, colours, record](wxCommandEvent &) {
    record->SetTransparentColor(
        static_cast<AnnImageProperties::TransparentColor>(colours->GetSelection()));
    apply(Types::Image);
    m_tool->GetToolModes().image->UpdatePictureBitmap();
  });
  auto *const row = new wxBoxSizer(wxHORIZONTAL);  // owned by the grid
  row->Add(makeLabel(page, wxTRANSLATE("Color Treated as Transparent"), {colours}), 0,
           wxALIGN_CENTER_VERTICAL, 0);
  row->AddSpacer(kColumnGap);
  row->Add(colours, 0, 0, 0);
  grid->Add(m_filePicker, 0, wxEXPAND, 0);
  grid->Add(keep, 0, 0, 0);
  grid->Add(row, 0, 0, 0);
  return finishPage(page);
}

void AnnotationPanel::choosePicture(wxString const &path) {
  AnnImageToolMode &mode = *m_tool->GetToolModes().image;
  mode.m_properties->SetFileName(wxFileName(path));
  mode.ApplyProperties();
  mode.SetPicture(path);
}

void AnnotationPanel::OnAnnImageNotSet() {
  wxFileDialog dialog(this, wxGetTranslation(wxFileSelectorPromptStr), wxString(), wxString(),
                      wxGetTranslation(kWildcard),
                      wxFD_OPEN | wxFD_FILE_MUST_EXIST | wxFD_CHANGE_DIR);
  dialog.CentreOnParent();
  if (dialog.ShowModal() != wxID_OK) return;
  m_filePicker->SetPath(dialog.GetPath());
  choosePicture(m_filePicker->GetFileName().GetFullPath());
}
