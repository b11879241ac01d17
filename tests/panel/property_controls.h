// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <ostream>
#include <stdexcept>
#include <string>

#include <wx/checkbox.h>
#include <wx/clrpicker.h>
#include <wx/filepicker.h>
#include <wx/odcombo.h>
#include <wx/slider.h>

#include "modes/ann_image_tool_mode.h"
#include "objects/ann_text.h"
#include "panel/panel_fixture.h"
#include "support/test_pictures.h"
#include "talbase/json_text.h"

namespace framenote::test {

/// A control, what the test sets it to, and how the document shows that.
struct Control {
  int id;
  Types type;
  char kind;         ///< 'l'ist, 'c'olour, 'x' check, 's'lider, 't'oggle
  int value;         ///< index, position, or whether it is set
  char const *text;  ///< in the "Properties" of the object then
};

inline void PrintTo(Control const &control, std::ostream *out) {
  *out << control.id;
}

/// The panel of a tool that shows a picture, with a picture file for the image tool.
class PropertyControls : public PanelTest {
protected:
  void SetUp() override {
    PanelTest::SetUp();
    m_tool->SetImage(PlacePicture(300, 200), true);
    m_path = (std::filesystem::temp_directory_path() / "framenote_panel.png").string();
    ASSERT_TRUE(wxImage(40, 20).SaveFile(m_path, wxBITMAP_TYPE_PNG));
    AnnImageToolMode &image = *m_tool->GetToolModes().image;
    image.m_properties->SetFileName(wxFileName(m_path));
    image.SetPicture(m_path);
  }
  void TearDown() override {
    std::filesystem::remove(m_path);
    PanelTest::TearDown();
  }

  /// Draws an object of a kind, which is selected then.
  void DrawObject(Types type, wxPoint const &from, wxPoint const &to) {
    if (!Button(type).GetValue()) Toggle(type);
    if (type == Types::Pencil) {
      DrawStroke(from, to);
    } else {
      Drag(from, to);
    }
    if (auto *const text = dynamic_cast<AnnText *>(m_tool->GetSelectedObject())) {
      text->SetTextAndParse("abc", {});
    }
  }
  /// A stroke has many points, and is not selected when it is drawn.
  void DrawStroke(wxPoint const &from, wxPoint const &to) {
    constexpr int kPoints = 10;
    auto const at = [&](int i) { return from + (to - from) * i / kPoints; };
    Mouse(wxEVT_MOTION, from);
    Mouse(wxEVT_LEFT_DOWN, from);
    for (int i = 1; i <= kPoints; ++i) Mouse(wxEVT_MOTION, at(i));
    Mouse(wxEVT_LEFT_UP, to);
    for (auto const type : {wxEVT_MOTION, wxEVT_LEFT_DOWN, wxEVT_LEFT_UP}) Mouse(type, at(5));
  }
  std::string LookOf(IAnnotationObject const &object) {
    return JsonToUtf8(object.ToJSON().ItemAt("Properties"));
  }
  void Use(Control const &control) {
    wxWindow &window = *Find<wxWindow>(control.id);
    switch (control.kind) {
      case 'l':
        dynamic_cast<wxOwnerDrawnComboBox &>(window).SetSelection(control.value);
        Send(window, wxEVT_COMBOBOX);
        break;
      case 'c': {
        auto &picker = dynamic_cast<wxColourPickerCtrl &>(window);
        picker.SetColour(wxColour(0, 160, 176));
        wxColourPickerEvent event(&picker, picker.GetId(), picker.GetColour());
        picker.GetEventHandler()->ProcessEvent(event);
        break;
      }
      case 'x':
        dynamic_cast<wxCheckBox &>(window).SetValue(control.value != 0);
        Send(window, wxEVT_CHECKBOX);
        break;
      case 's':
        dynamic_cast<wxSliderBase &>(window).SetValue(control.value);
        Send(window, wxEVT_SLIDER);
        break;
      default:
        dynamic_cast<wxToggleButton &>(window).SetValue(control.value != 0);
        Send(window, wxEVT_TOGGLEBUTTON);
        break;
    }
    wxYield();
  }
  /// What the control shows, in the terms of `Control::value`; colours as their components.
  int Shown(Control const &control) {
    wxWindow &window = *Find<wxWindow>(control.id);
    switch (control.kind) {
      case 'l':
        return dynamic_cast<wxOwnerDrawnComboBox &>(window).GetSelection();
      case 'c':
        return static_cast<int>(dynamic_cast<wxColourPickerCtrl &>(window).GetColour().GetRGB());
      case 'x':
        return dynamic_cast<wxCheckBox &>(window).GetValue();
      case 's':
        return dynamic_cast<wxSliderBase &>(window).GetValue();
      default:
        return dynamic_cast<wxToggleButton &>(window).GetValue();
    }
  }

  wxFilePickerCtrl &Picker() {
    for (wxWindow *child : Find<wxWindow>(32)->GetParent()->GetChildren()) {
      if (auto *const found = dynamic_cast<wxFilePickerCtrl *>(child)) return *found;
    }
    throw std::logic_error("no file picker");
  }
  /// What choosing a file in the picker does.
  void Choose(std::string const &path) {
    Picker().SetPath(wxString::FromUTF8(path));
    wxFileDirPickerEvent event(wxEVT_FILEPICKER_CHANGED, &Picker(), Picker().GetId(),
                               wxString::FromUTF8(path));
    Picker().GetEventHandler()->ProcessEvent(event);
  }

  std::string m_path;
};

}  // namespace framenote::test
