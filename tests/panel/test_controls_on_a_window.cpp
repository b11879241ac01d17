// SPDX-License-Identifier: MIT
// Every property control used with the mouse and the keyboard of the X server.
#include <chrono>
#include <string>
#include <vector>

#include <wx/app.h>
#include <wx/spinctrl.h>
#include <wx/uiaction.h>

#include <gtest/gtest.h>

#include "modes/ann_hide_tool_mode.h"
#include "modes/ann_magnify_tool_mode.h"
#include "modes/ann_shape_tool_mode.h"
#include "modes/ann_text_tool_mode.h"
#include "panel/property_controls.h"
#include "support/screen_windows.h"

namespace framenote::test {

namespace {

/// A control, the member of "Properties" that it changes, and whether that shows in the picture.
struct UsedControl {
  int id;
  Types type;
  char kind;  ///< as Control::kind; 'f' a list that is typed in, 'm' the list of macros
  char const *member;
  bool isSeen;
};

UsedControl const kUsed[] = {{10, Types::Shape, 'l', "Shape", true},
                             {11, Types::Shape, 'c', "BorderColor", true},
                             {12, Types::Shape, 'x', "BorderColorTransparent", true},
                             {13, Types::Shape, 'c', "FillColor", true},
                             {14, Types::Shape, 'x', "FillColorTransparent", true},
                             {15, Types::Shape, 's', "Thickness", true},
                             {16, Types::Arrow, 'l', "Head", true},
                             {17, Types::Arrow, 'c', "Color", true},
                             {18, Types::Arrow, 's', "Thickness", true},
                             {19, Types::Pencil, 'c', "Color", true},
                             {20, Types::Pencil, 's', "Thickness", true},
                             {21, Types::Text, 'l', "Font", true},
                             {22, Types::Text, 't', "Font", true},
                             {23, Types::Text, 't', "Font", true},
                             {24, Types::Text, 't', "Font", true},
                             {25, Types::Text, 'f', "Font", true},
                             {26, Types::Text, 'c', "FontColor", true},
                             {27, Types::Text, 'l', "HorizontalAlignment", true},
                             {28, Types::Text, 'l', "VerticalAlignment", true},
                             {29, Types::Text, 'c', "BackgroundColor", true},
                             {30, Types::Text, 'x', "BackgroundColorTransparent", true},
                             {31, Types::Text, 'm', "TextLines", true},
                             {32, Types::Image, 'x', "KeepAspectRatio", false},
                             {33, Types::Image, 'l', "TransparentColor", true},
                             {34, Types::Hide, 'l', "Effect", true},
                             {35, Types::Hide, 's', "Strength", true},
                             {36, Types::Hide, 'l', "Shape", true},
                             {37, Types::Hide, 'c', "BorderColor", true},
                             {38, Types::Hide, 'x', "BorderColorTransparent", true},
                             {39, Types::Hide, 's', "Thickness", true},
                             {40, Types::Magnify, 's', "Zoom", true},
                             {41, Types::Magnify, 'x', "FixedSourceSize", false},
                             {42, Types::Magnify, 'l', "ZoomMethod", true},
                             {43, Types::Magnify, 'l', "Shape", true},
                             {44, Types::Magnify, 'c', "BorderColor", true},
                             {45, Types::Magnify, 'l', "BorderType", true},
                             {46, Types::Magnify, 's', "Thickness", true}};

void PrintTo(UsedControl const &control, std::ostream *out) {
  *out << control.id;
}

class ControlsOnAWindow : public PropertyControls, public testing::WithParamInterface<UsedControl> {
protected:
  template <class Condition>
  static bool Settle(Condition const &isReached) {
    auto const deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!isReached() && std::chrono::steady_clock::now() < deadline) {
      wxYield();
      wxTheApp->ProcessPendingEvents();
      if (!isReached()) wxMilliSleep(5);
    }
    return isReached();
  }
  static void Wait(int milliseconds) {
    for (int i = 0; i < milliseconds; i += 10) {
      wxYield();
      wxMilliSleep(10);
    }
  }

  void ClickAt(wxPoint const &screen) {
    m_mouse.MouseMove(screen);
    Wait(30);
    m_mouse.MouseClick();
    Wait(30);
  }
  static wxPoint CentreOf(wxWindow const &window) {
    wxRect const rect = window.GetScreenRect();
    return rect.GetPosition() + wxPoint(rect.width / 2, rect.height / 2);
  }

  /// Uses a control as its user would; another time with another value.
  void UseByHand(UsedControl const &control, int time) {
    wxWindow &window = *Find<wxWindow>(control.id);
    switch (control.kind) {
      case 'l':
        return ChooseAnother(dynamic_cast<wxOwnerDrawnComboBox &>(window));
      case 'm':
        ClickAt(CentreOf(window));
        return Type({WXK_DOWN, WXK_RETURN});
      case 'f':
        return TypeInto(dynamic_cast<wxOwnerDrawnComboBox &>(window), time == 0 ? "36" : "28");
      case 'c':
        return PickColour(window, time);
      case 's':
        return DragThumb(window, time == 0 ? 0.6 : 0.3);
      default:
        return ClickAt(CentreOf(window));
    }
  }
  void Type(std::vector<int> const &keys) {
    for (int const key : keys) {
      m_mouse.Char(key);
      Wait(30);
    }
  }
  void ChooseAnother(wxOwnerDrawnComboBox &list) {
    bool const isLast = list.GetSelection() + 1 == static_cast<int>(list.GetCount());
    // A list takes no click within 150 ms of its closing, so that the click that closed it does not
    // open it again.
    Wait(200);
    // The arrow opens the list, also where the rest of the control is for typing.
    wxRect const rect = list.GetScreenRect();
    ClickAt(rect.GetTopRight() + wxPoint(-rect.height / 2, rect.height / 2));
    ASSERT_TRUE(Settle([&] { return list.IsPopupShown(); }));
    Type({isLast ? WXK_UP : WXK_DOWN, WXK_RETURN});
    ASSERT_TRUE(Settle([&] { return !list.IsPopupShown(); }));
  }
  void TypeInto(wxOwnerDrawnComboBox &list, char const *digits) {
    wxRect const rect = list.GetScreenRect();
    ClickAt(rect.GetPosition() + wxPoint(rect.height / 2, rect.height / 2));
    m_mouse.Char('A', wxMOD_CONTROL);
    for (; *digits != '\0'; ++digits) Type({*digits});
    Type({WXK_RETURN});
  }
  /// The dialog of the toolkit is no window of ours, but one on the screen. Its focus is on the
  /// colour that is chosen.
  void PickColour(wxWindow &picker, int time) {
    ScreenWindows const before;
    ClickAt(CentreOf(picker));
    wxRect dialog;
    ASSERT_TRUE(Settle([&] {
      dialog = before.NewOne();
      return !dialog.IsEmpty();
    }));
    Wait(200);
    // A swatch of its palette, twice as "Select".
    int const columns = time == 0 ? 2 : 3;
    m_mouse.MouseMove(dialog.GetPosition() +
                      wxPoint(dialog.width * columns / 8, dialog.height / 3));
    Wait(50);
    m_mouse.MouseDblClick();
    ASSERT_TRUE(Settle([&] { return before.NewOne().IsEmpty(); }));
    Wait(50);
  }
  void DragThumb(wxWindow &control, double to) {
    auto &slider = *dynamic_cast<wxSliderBase *>(&control);
    wxWindow &trough = *control.GetChildren().front();
    wxRect const rect = trough.GetScreenRect();
    auto const at = [&](double share) {
      return rect.GetPosition() + wxPoint(8 + wxRound(share * (rect.width - 16)), rect.height / 2);
    };
    double const share =
        double(slider.GetValue() - slider.GetMin()) / (slider.GetMax() - slider.GetMin());
    m_mouse.MouseMove(at(share));
    Wait(50);
    m_mouse.MouseDown();
    Wait(30);
    for (double step = 0.0; step <= 1.0; step += 0.25) {
      m_mouse.MouseMove(at(share + (to - share) * step));
      Wait(20);
    }
    m_mouse.MouseUp();
    Wait(50);
  }

  /// Lets each control show what it does: what is transparent at first hides its colour.
  void PrepareLooks() {
    ToolModes const &modes = m_tool->GetToolModes();
    AnnShapeProperties &shape = *modes.shape->m_properties;
    shape.SetFillColor(GetParam().id == 14 ? wxColour(0, 255, 0, 0) : *wxGREEN);
    modes.text->m_properties->SetBackgroundColor(GetParam().id == 30 ? wxColour(0, 255, 0, 0)
                                                                     : *wxGREEN);
    modes.hide->m_properties->SetBorderColor(GetParam().id == 38 ? wxColour(0, 255, 0, 0)
                                                                 : *wxGREEN);
    modes.magnify->m_properties->SetBorderType(
        GetParam().id == 45 ? AnnMagnifyProperties::Transparent : AnnMagnifyProperties::ShapeOnly);
    modes.image->m_properties->SetTransparentColor(AnnImageProperties::White);
    for (Types const type : {Types::Shape, Types::Text, Types::Hide, Types::Magnify}) {
      m_tool->UpdatePanelControls(type);
    }
  }

  /// What the control shows, in words.
  std::string ShownIn(UsedControl const &control) {
    wxWindow &window = *Find<wxWindow>(control.id);
    if (auto *const list = dynamic_cast<wxOwnerDrawnComboBox *>(&window)) {
      return list->GetValue().utf8_string();
    }
    return std::to_string(Shown({control.id, control.type, control.kind, 0, ""}));
  }

  std::string MemberOf(IAnnotationObject const &object, char const *member) const {
    wxJSONValue const json = object.ToJSON();
    wxJSONValue const look = json.ItemAt("Properties").ItemAt(member);
    return JsonToUtf8(look.IsValid() ? look : json.ItemAt(member));
  }
  wxImage Burnt() { return m_tool->GetAnnotatedFrame(NoisePicture(300, 200), {0, 10, false}, {}); }
  static bool AreSame(wxImage const &one, wxImage const &other) {
    return std::equal(one.GetData(), one.GetData() + one.GetWidth() * one.GetHeight() * 3,
                      other.GetData());
  }

  wxUIActionSimulator m_mouse;
};

INSTANTIATE_TEST_SUITE_P(, ControlsOnAWindow, testing::ValuesIn(kUsed), [](auto const &control) {
  return "Id" + std::to_string(control.param.id);
});

TEST_P(ControlsOnAWindow, ChangesObjectsDocumentAndPictureByHand) {
  UsedControl const &control = GetParam();
  m_tool->SetImage(NoisePicture(300, 200), true);
  PrepareLooks();
  DrawObject(control.type, {20, 20}, {60, 50});
  Wait(100);
  IAnnotationObject *const first = m_tool->GetSelectedObject();
  ASSERT_NE(first, nullptr);
  std::string const before = MemberOf(*first, control.member);
  wxImage const without = Burnt();
  ASSERT_NO_FATAL_FAILURE(UseByHand(control, 0));
  ASSERT_TRUE(Settle([&] { return MemberOf(*first, control.member) != before; })) << before;
  std::string const after = MemberOf(*first, control.member);
  EXPECT_NE(JsonToUtf8(m_tool->GetJSON()).find("\"" + std::string(control.member) + "\":" + after),
            std::string::npos);
  EXPECT_EQ(AreSame(without, Burnt()), !control.isSeen);
  if (control.kind == 'm') return;
  // The next object is made with it, and each object shows its own.
  m_tool->Deactivate();
  m_tool->SetActiveTool(control.type);
  Mouse(wxEVT_MOTION, {240, 150});
  DrawObject(control.type, {240, 150}, {280, 180});
  IAnnotationObject *const second = m_tool->GetSelectedObject();
  ASSERT_NE(second, first);
  EXPECT_EQ(MemberOf(*second, control.member), after);
  std::string const shown = ShownIn(control);
  ASSERT_NO_FATAL_FAILURE(UseByHand(control, 1));
  ASSERT_TRUE(Settle([&] { return MemberOf(*second, control.member) != after; })) << after;
  EXPECT_NE(ShownIn(control), shown);
  EXPECT_EQ(MemberOf(*first, control.member), after);
  m_tool->Deactivate();
  first->OnSelection(false);
  EXPECT_EQ(ShownIn(control), shown);
}

}  // namespace

}  // namespace framenote::test
