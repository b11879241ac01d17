// SPDX-License-Identifier: MIT
// Every control is reached and used with the keyboard alone, and has a name for screen readers.
#include <algorithm>
#include <set>
#include <string>
#include <vector>

#ifdef __WXGTK__
#include <dlfcn.h>
#endif

#include <wx/checkbox.h>
#include <wx/clrpicker.h>
#include <wx/odcombo.h>
#include <wx/slider.h>
#include <wx/spinctrl.h>
#include <wx/stattext.h>
#include <wx/uiaction.h>

#include <gtest/gtest.h>

#include "modes/ann_magnify_tool_mode.h"
#include "modes/ann_text_tool_mode.h"
#include "panel/ann_slider_double_ctrl.h"
#include "panel/panel_fixture.h"

namespace framenote::test {

namespace {

template <class Condition>
bool Settle(Condition const &isReached) {
  for (int i = 0; i < 100 && !isReached(); ++i) {
    wxYield();
    wxMilliSleep(5);
  }
  return isReached();
}

class PanelKeyboard : public PanelTest {
protected:
  void SetUp() override {
    PanelTest::SetUp();
    m_frame->Raise();
    Settle([this] { return m_frame->IsShownOnScreen(); });
  }

  /// All windows of a panel that take the focus from the keyboard, from the top.
  std::vector<wxWindow *> Focusable(wxWindow &window) {
    std::vector<wxWindow *> found;
    for (wxWindow *child : window.GetChildren()) {
      if (!child->IsShown() || child->IsTopLevel()) continue;
      // A list with a text field is one stop: it hands what is typed to the field.
      bool const isList = dynamic_cast<wxOwnerDrawnComboBox *>(child) != nullptr;
      std::vector<wxWindow *> const inner = isList ? std::vector<wxWindow *>() : Focusable(*child);
      if (inner.empty() && child->CanAcceptFocusFromKeyboard()) found.push_back(child);
      found.insert(found.end(), inner.begin(), inner.end());
    }
    return found;
  }
  /// The windows that get the focus while Tab goes round.
  std::vector<wxWindow *> WalkByTab() {
    std::vector<wxWindow *> reached;
    Button(Types::Shape).SetFocus();
    EXPECT_TRUE(Settle([this] { return Button(Types::Shape).HasFocus(); }));
    constexpr int kMoreThanThereAre = 60;
    for (int i = 0; i < kMoreThanThereAre; ++i) {
      wxWindow *const focus = wxWindow::FindFocus();
      if (std::find(reached.begin(), reached.end(), focus) != reached.end()) break;
      reached.push_back(focus);
      m_keys.Char(WXK_TAB);
      if (!Settle([&] { return wxWindow::FindFocus() != focus; })) break;
    }
    return reached;
  }
  void FocusOn(wxWindow &window) {
    window.SetFocus();
    ASSERT_TRUE(Settle([&] {
      wxWindow const *const focus = wxWindow::FindFocus();
      return focus == &window || (focus != nullptr && focus->GetParent() == &window);
    }));
  }
  static std::string NameOf(wxWindow const &window) {
    return (window.GetName() + " '" + window.GetLabel() + "' " + std::to_string(window.GetId()))
        .utf8_string();
  }

  wxUIActionSimulator m_keys;
};

class EachTool : public PanelKeyboard, public testing::WithParamInterface<int> {};

INSTANTIATE_TEST_SUITE_P(, EachTool, testing::Range(2, 10));

TEST_P(EachTool, TabReachesAllControlsFromTopToBottom) {
  Toggle(static_cast<Types>(GetParam()));
  wxYield();
  std::vector<wxWindow *> const reached = WalkByTab();
  for (wxWindow *window : Focusable(*m_panel)) {
    EXPECT_NE(std::find(reached.begin(), reached.end(), window), reached.end()) << NameOf(*window);
  }
  for (std::size_t i = 1; i < reached.size(); ++i) {
    wxRect const last = reached[i - 1]->GetScreenRect();
    wxRect const next = reached[i]->GetScreenRect();
    EXPECT_TRUE(next.y > last.y + last.height / 2 || next.x > last.x)
        << NameOf(*reached[i - 1]) << " and then " << NameOf(*reached[i]);
    EXPECT_EQ(dynamic_cast<AnnSliderDoubleCtrl *>(reached[i]), nullptr);
  }
}

#ifdef __WXGTK__
/// What a screen reader is told.
std::string AccessibleName(wxWindow const &window) {
  auto const accessibleOf =
      reinterpret_cast<void *(*)(void *)>(dlsym(RTLD_DEFAULT, "gtk_widget_get_accessible"));
  auto const nameOf =
      reinterpret_cast<char const *(*)(void *)>(dlsym(RTLD_DEFAULT, "atk_object_get_name"));
  char const *const name = nameOf(accessibleOf(window.GetHandle()));
  return name == nullptr ? "" : name;
}

TEST_P(EachTool, HasANameForEveryControl) {
  Toggle(static_cast<Types>(GetParam()));
  for (wxWindow *window : Focusable(*m_panel)) {
    EXPECT_NE(AccessibleName(*window), "") << NameOf(*window);
  }
}

TEST_F(PanelKeyboard, NamesAreThoseOfTheRows) {
  EXPECT_EQ(AccessibleName(*Find<wxWindow>(10)), "Shape");
  EXPECT_EQ(AccessibleName(*Find<wxWindow>(12)), "Border Color, Transparent");
  EXPECT_EQ(AccessibleName(*Find<wxWindow>(14)), "Fill Color, Transparent");
  EXPECT_EQ(AccessibleName(*Find<wxWindow>(11)->GetChildren()[0]), "Border Color");
  EXPECT_EQ(AccessibleName(*Find<wxWindow>(15)->GetChildren()[1]), "Border Thickness");
  EXPECT_EQ(AccessibleName(*Find<wxWindow>(33)), "Color Treated as Transparent");
  EXPECT_EQ(AccessibleName(*Find<wxWindow>(22)), "Style, Bold");
}
#endif

TEST_F(PanelKeyboard, SpaceChoosesAToolAndReleasesIt) {
  FocusOn(Button(Types::Arrow));
  m_keys.Char(WXK_SPACE);
  EXPECT_TRUE(Settle([this] { return m_tool->GetActiveTool()->GetModeId() == Types::Arrow; }));
  m_keys.Char(WXK_SPACE);
  EXPECT_TRUE(Settle([this] { return m_tool->IsIdle(); }));
}

TEST_F(PanelKeyboard, SpaceChecksAndArrowsChooseAndCount) {
  Toggle(Types::Magnify);
  AnnMagnifyProperties const &record = *m_tool->GetToolModes().magnify->m_properties;
  bool const wasFixed = record.GetFixedSourceSize();
  FocusOn(*Find<wxWindow>(41));
  m_keys.Char(WXK_SPACE);
  EXPECT_TRUE(Settle([&] { return record.GetFixedSourceSize() != wasFixed; }));
  ASSERT_EQ(record.GetZoom(), 2.0);
  FocusOn(*Find<wxWindow>(40)->GetChildren()[1]);
  m_keys.Char(WXK_UP);
  EXPECT_TRUE(Settle([&] { return record.GetZoom() == 2.5; })) << record.GetZoom();
  int const type = record.GetBorderType();
  FocusOn(*Find<wxWindow>(45));
  m_keys.Char(WXK_DOWN);
  EXPECT_TRUE(Settle([&] { return record.GetBorderType() == type + 1; }));
}

TEST_F(PanelKeyboard, SizeOfAFontIsTypedWhereTabHasGone) {
  Toggle(Types::Text);
  wxYield();
  AnnTextProperties const &record = *m_tool->GetToolModes().text->m_properties;
  Button(Types::General).SetFocus();
  ASSERT_TRUE(Settle([this] { return Button(Types::General).HasFocus(); }));
  for (int const id : {21, 25}) {
    m_keys.Char(WXK_TAB);
    ASSERT_TRUE(Settle([&] { return wxWindow::FindFocus() == Find<wxWindow>(id); })) << id;
  }
  m_keys.Char('A', wxMOD_CONTROL);
  m_keys.Text("33");
  m_keys.Char(WXK_RETURN);
  EXPECT_TRUE(Settle([&] { return record.GetFont().GetPointSize() == 33; }))
      << record.GetFont().GetPointSize() << Find<wxOwnerDrawnComboBox>(25)->GetValue();
}

TEST_F(PanelKeyboard, ClickOnASliderLeavesTheFocusWhereItIs) {
  Toggle(Types::Shape);
  FocusOn(*Find<wxWindow>(12));
  wxWindow &slider = *Find<wxWindow>(15)->GetChildren()[0];
  Settle([&] { return slider.IsShownOnScreen() && slider.GetSize().x > 20; });
  int const before = Find<wxSliderBase>(15)->GetValue();
  m_keys.MouseMove(slider.ClientToScreen(wxPoint(slider.GetSize().x * 3 / 4, 10)));
  m_keys.MouseClick();
  EXPECT_TRUE(Settle([&] { return Find<wxSliderBase>(15)->GetValue() > before; }));
  EXPECT_EQ(wxWindow::FindFocus(), Find<wxWindow>(12));
}

}  // namespace

}  // namespace framenote::test
