// SPDX-License-Identifier: MIT
// The palette: its buttons, its General panel, and its life.
#include <string>
#include <vector>

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/clrpicker.h>
#include <wx/modalhook.h>
#include <wx/stattext.h>

#include <gtest/gtest.h>

#include "modes/ann_shape_tool_mode.h"
#include "objects/ann_shape.h"
#include "panel/panel_fixture.h"
#include "talbase/json_text.h"

namespace framenote::test {

namespace {

/// Answers every dialog alike, and counts them.
class AnswerDialogs : public wxModalDialogHook {
public:
  explicit AnswerDialogs(int answer) : m_answer(answer) { Register(); }
  ~AnswerDialogs() override { Unregister(); }
  int Count() const { return m_count; }

private:
  int Enter(wxDialog *) override {
    ++m_count;
    return m_answer;
  }

  int m_answer;
  int m_count = 0;
};

class Palette : public PanelTest {
protected:
  using PanelTest::PanelTest;

  /// A child of the General panel by its label.
  wxWindow *Labelled(std::string const &label) {
    wxWindow *const found = wxWindow::FindWindowByLabel(label, m_panel);
    EXPECT_NE(found, nullptr) << label;
    return found;
  }
  /// The panel below the buttons, or null.
  wxWindow *ShownPanel() {
    wxWindow *shown = nullptr;
    for (wxWindow *child : m_panel->GetChildren()) {
      if (child->IsShown() && wxWindow::FindWindowById(2, child) == nullptr) shown = child;
    }
    return shown;
  }
  void ExpectShown(int idOfControl) {
    ASSERT_NE(ShownPanel(), nullptr);
    EXPECT_NE(wxWindow::FindWindowById(idOfControl, ShownPanel()), nullptr);
  }
};

TEST_F(Palette, OpensWithoutAToolAndWithoutAProperty) {
  EXPECT_EQ(ShownPanel(), nullptr);
  for (int id = 2; id <= 9; ++id) EXPECT_FALSE(Button(static_cast<Types>(id)).GetValue()) << id;
  EXPECT_TRUE(m_tool->IsIdle());
}

TEST_F(Palette, PressedToolShowsItsPanelAndReleasedItIsIdle) {
  Toggle(Types::Shape);
  ExpectShown(10);
  EXPECT_EQ(m_tool->GetActiveTool()->GetModeId(), Types::Shape);
  ASSERT_NE(m_sink.Last(wxEVT_ANN_TOOL_SELECTED), nullptr);
  EXPECT_EQ(m_sink.Count(wxEVT_ANN_TOOL_DESELECTED), 0U);
  m_sink.Clear();
  Toggle(Types::Shape);
  EXPECT_EQ(ShownPanel(), nullptr);
  EXPECT_TRUE(m_tool->IsIdle());
  EXPECT_EQ(m_sink.Types(),
            (std::vector<wxEventType>{wxEVT_ANN_FRAME_RANGE_CHANGED, wxEVT_ANN_FRAME_RANGE_CHANGED,
                                      wxEVT_ANN_TOOL_DESELECTED, wxEVT_ANN_TOOL_SELECTED}));
  EXPECT_EQ(m_sink.Last(wxEVT_ANN_TOOL_DESELECTED)->ToolModeId(), Types::Shape);
  EXPECT_EQ(static_cast<int>(m_sink.Last(wxEVT_ANN_TOOL_SELECTED)->ToolModeId()), 0);
}

TEST_F(Palette, AnotherToolTakesThePlaceOfThePressedOne) {
  Toggle(Types::Shape);
  m_sink.Clear();
  Toggle(Types::Magnify);
  ExpectShown(40);
  EXPECT_FALSE(Button(Types::Shape).GetValue());
  EXPECT_TRUE(Button(Types::Magnify).GetValue());
  EXPECT_EQ(m_sink.Last(wxEVT_ANN_TOOL_DESELECTED)->ToolModeId(), Types::Shape);
  EXPECT_EQ(m_sink.Last(wxEVT_ANN_TOOL_SELECTED)->ToolModeId(), Types::Magnify);
  Toggle(Types::General);
  EXPECT_EQ(m_tool->GetActiveTool()->GetModeId(), Types::General);
}

TEST_F(Palette, SelectedObjectShowsItsTool) {
  Toggle(Types::Shape);
  m_tool->GetToolModes().shape->m_properties->SetFillColor(*wxRED);
  Drag({20, 20}, {80, 60});
  Toggle(Types::Arrow);
  ExpectShown(16);
  Mouse(wxEVT_MOTION, {50, 40});
  Mouse(wxEVT_LEFT_DOWN, {50, 40});
  Mouse(wxEVT_LEFT_UP, {50, 40});
  ASSERT_NE(m_tool->GetSelectedObject(), nullptr);
  ExpectShown(10);
  EXPECT_TRUE(Button(Types::Shape).GetValue());
  EXPECT_FALSE(Button(Types::Arrow).GetValue());
  m_tool->DeactivateToolAndControls();
  EXPECT_EQ(ShownPanel(), nullptr);
}

TEST_F(Palette, ObjectThatTheHostSelectsShowsItsTool) {
  Toggle(Types::Shape);
  Drag({20, 20}, {80, 60});
  m_tool->DeactivateToolAndControls();
  Toggle(Types::Arrow);
  ExpectShown(16);
  m_tool->SelectObject(0);
  ExpectShown(10);
  EXPECT_TRUE(Button(Types::Shape).GetValue());
  EXPECT_FALSE(Button(Types::Arrow).GetValue());
}

TEST_F(Palette, HideAllHidesAndShowsAndFollowsTheTool) {
  Drag({20, 20}, {80, 60});
  auto *const hide = dynamic_cast<wxToggleButton *>(Labelled("Hide All"));
  hide->SetValue(true);
  Send(*hide, wxEVT_TOGGLEBUTTON);
  EXPECT_FALSE(m_tool->IsVisible());
  m_tool->SetObjectsVisible(true);
  EXPECT_FALSE(hide->GetValue());
  m_tool->SetObjectsVisible(false);
  EXPECT_TRUE(hide->GetValue());
}

TEST_F(Palette, ClearAllAsksFirst) {
  Toggle(Types::Shape);
  Drag({20, 20}, {80, 60});
  m_tool->SetObjectsVisible(false);
  {
    AnswerDialogs const no(wxID_NO);
    Send(*Labelled("Clear All"), wxEVT_BUTTON);
    EXPECT_EQ(no.Count(), 1);
  }
  EXPECT_FALSE(m_tool->IsEmpty());
  EXPECT_FALSE(m_tool->IsVisible());
  AnswerDialogs const yes(wxID_YES);
  Send(*Labelled("Clear All"), wxEVT_BUTTON);
  EXPECT_TRUE(m_tool->IsEmpty());
  EXPECT_TRUE(m_tool->IsVisible());
}

TEST_F(Palette, PreviousAndNextAskForFrames) {
  Toggle(Types::Shape);
  Drag({20, 20}, {80, 60});
  m_tool->SetSelectedsAnnotationStart(0);
  m_tool->SetSelectedsAnnotationEnd(3);
  m_tool->Deactivate();
  m_tool->UpdateMediaInfo({3, 10, false});
  Send(*Labelled("Next"), wxEVT_BUTTON);
  EXPECT_EQ(m_sink.Last(wxEVT_ANN_GOTO_FRAME), nullptr);
  Send(*Labelled("Previous"), wxEVT_BUTTON);
  ASSERT_NE(m_sink.Last(wxEVT_ANN_GOTO_FRAME), nullptr);
  EXPECT_EQ(m_sink.Last(wxEVT_ANN_GOTO_FRAME)->FrameIndex(), 0);
}

TEST_F(Palette, ExtensionColourGoesBothWays) {
  auto *const check = dynamic_cast<wxCheckBox *>(Labelled("Extension With Color:"));
  EXPECT_TRUE(check->GetValue());
  check->SetValue(false);
  Send(*check, wxEVT_CHECKBOX);
  EXPECT_FALSE(m_tool->GetExtensionColor().IsOk());
  EXPECT_FALSE(m_tool->GetJSON().ItemAt("Extended").AsBool());
  check->SetValue(true);
  Send(*check, wxEVT_CHECKBOX);
  EXPECT_EQ(m_tool->GetExtensionColor(), *wxWHITE);
  EXPECT_TRUE(m_tool->GetJSON().ItemAt("Extended").AsBool());
  auto const *const picker = dynamic_cast<wxColourPickerCtrl *>(check->GetNextSibling());
  ASSERT_NE(picker, nullptr);
  m_tool->FromJSON(JsonFromText(R"({"Annotate":{"Extended":true,"ExtensionColor":null}})"), 10);
  EXPECT_FALSE(check->GetValue());
  EXPECT_EQ(picker->GetColour(), *wxWHITE);
  m_tool->FromJSON(JsonFromText(R"({"Annotate":{"ExtensionColor":"#00FF00FF"}})"), 10);
  EXPECT_TRUE(check->GetValue());
  EXPECT_EQ(picker->GetColour(), wxColour(0, 255, 0));
}

TEST_F(Palette, NoLabelIsCutOff) {
  for (int id = 2; id <= 9; ++id) {
    Toggle(static_cast<Types>(id));
    m_panel->SetSize(m_panel->GetBestSize());
    m_panel->Layout();
    std::vector<wxWindow *> windows = {m_panel};
    while (!windows.empty()) {
      wxWindow *const window = windows.back();
      windows.pop_back();
      for (wxWindow *child : window->GetChildren()) {
        if (child->IsShown()) windows.push_back(child);
      }
      if (dynamic_cast<wxStaticText *>(window) == nullptr &&
          dynamic_cast<wxAnyButton *>(window) == nullptr) {
        continue;
      }
      EXPECT_GE(window->GetSize().x, window->GetBestSize().x) << window->GetLabel();
      EXPECT_TRUE(m_panel->GetScreenRect().Contains(window->GetScreenRect())) << window->GetLabel();
    }
  }
}

TEST_F(Palette, MayGoBeforeTheToolWithoutAWord) {
  m_panel->Destroy();
  wxYield();
  m_tool->SetObjectsVisible(false);
  m_tool->DeactivateToolAndControls();
  m_tool->UpdatePanelControls(Types::Shape);
  EXPECT_FALSE(m_tool->GetJSON().HasMember("Extended"));
  m_tool->UnlinkGui();
  m_tool->UnlinkGui();
}

TEST_F(Palette, KeepsItsToolAlive) {
  std::weak_ptr<AnnotationTool> const weak = m_tool;
  AnnotationTool *const tool = m_tool.get();
  m_tool.reset();
  EXPECT_FALSE(weak.expired());
  Toggle(Types::Shape);
  EXPECT_EQ(tool->GetActiveTool()->GetModeId(), Types::Shape);
  m_tool = weak.lock();
}

TEST(PaletteWithoutATool, IsNotMade) {
  auto *const frame = new wxFrame(nullptr, wxID_ANY, "");  // destroyed below
  AnnotationPanel panel(AnnotationPanelConfig(true, true, true, nullptr));
  EXPECT_FALSE(panel.Create(frame, nullptr));
  frame->Destroy();
}

/// Without what a configuration can leave out.
class PlainPalette : public Palette {
protected:
  PlainPalette() : Palette(Config(false)) {}
};

TEST_F(PlainPalette, LacksWhatTheHostDoesNotWant) {
  EXPECT_EQ(wxWindow::FindWindowByLabel("Hide All", m_panel), nullptr);
  EXPECT_EQ(wxWindow::FindWindowByLabel("Extension With Color:", m_panel), nullptr);
  EXPECT_EQ(wxWindow::FindWindowByLabel("Zoom Method", m_panel), nullptr);
  EXPECT_EQ(Find<wxWindow>(42), nullptr);
  EXPECT_EQ(Find<wxWindow>(31), nullptr);
  m_tool->SetObjectsVisible(false);
  m_tool->OnJsonChanged();
  EXPECT_TRUE(m_tool->GetJSON().HasMember("Extended"));
  EXPECT_FALSE(m_tool->GetJSON().ItemAt("Extended").AsBool());
  m_tool->FromJSON(JsonFromText(R"({"Annotate":{"Extended":true,"Objects":[]}})"), 10);
  m_tool->OnJsonChanged();
  EXPECT_FALSE(m_tool->GetJSON().ItemAt("Extended").AsBool());
}

}  // namespace

}  // namespace framenote::test
