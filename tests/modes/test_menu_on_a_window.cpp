// SPDX-License-Identifier: MIT
// The context menu with real clicks and keys on a real window.
#include <string>
#include <vector>

#include <wx/menu.h>

#include <gtest/gtest.h>

#include "modes/ann_shape_tool_mode.h"
#include "modes/text_canvas_fixture.h"
#include "objects/ann_shape.h"
#include "support/keys_in_menu.h"

namespace framenote::test {

namespace {

class MenuOnAWindow : public TextCanvasTest {
protected:
  MenuOnAWindow() : TextCanvasTest(10) {
    m_driver.Tool().GetToolModes().shape->m_properties->SetFillColor(*wxRED);
    m_driver.UseTool(Types::Shape);
  }

  void SetUp() override {
    TextCanvasTest::SetUp();
    m_canvas->Bind(wxEVT_MENU_OPEN, [this](wxMenuEvent &event) {
      m_items.clear();
      for (wxMenuItem const *item : event.GetMenu()->GetMenuItems()) {
        if (!item->IsSeparator()) m_items.push_back(item->GetItemLabelText().utf8_string());
      }
    });
  }

  /// A right click at a place, and keys in the menu that opens.
  void RightClick(int x, int y, std::vector<int> keys) {
    MoveTo(x, y);
    KeysInMenu const pressed(std::move(keys), m_mouse);
    Click(x, y, wxMOUSE_BTN_RIGHT);
    Repaint();
  }

  std::vector<std::string> m_items;
};

TEST_F(MenuOnAWindow, RightClickOffersAndDoesWhatFitsThePlace) {
  Drag({{40, 40}, {60, 60}, {100, 90}});
  m_driver.Tool().Deactivate();
  RightClick(200, 150, {WXK_ESCAPE});
  EXPECT_EQ(m_items, std::vector<std::string>{"Paste"});
  RightClick(70, 60, {WXK_DOWN, WXK_RETURN});
  ASSERT_EQ(m_items.size(), 13U);
  EXPECT_EQ(m_items[0], "Copy");
  EXPECT_EQ(m_items[11], "Go to First Frame (0)");
  ASSERT_NE(m_driver.Selected(), nullptr);
  // What was copied is pasted where the next click is.
  m_driver.Tool().Deactivate();
  RightClick(180, 120, {WXK_DOWN, WXK_RETURN});
  ASSERT_EQ(m_driver.ObjectCount(), 2U);
  EXPECT_EQ(m_driver.ObjectAs<AnnShape>()->GetCoordinates().Coords().m_topLeft.m_x, 180.0);
  EXPECT_EQ(m_driver.State(), ToolState::Selected);
}

TEST_F(MenuOnAWindow, DeleteKeyDeletesTheSelectedObjectButNotAnEditedText) {
  Drag({{40, 40}, {60, 60}, {100, 90}});
  m_canvas->SetFocus();
  Settle([this] { return m_canvas->HasFocus(); });
  m_mouse.Char(WXK_DELETE);
  Settle([this] { return m_driver.ObjectCount() == 0; });
  EXPECT_EQ(m_driver.ObjectCount(), 0U);
  m_driver.UseTool(Types::Text);
  DrawBox({60, 20}, {220, 100});
  Type("ab");
  m_mouse.Char(WXK_DELETE);
  for (int i = 0; i < 20; ++i) {
    wxYield();
    wxMilliSleep(5);
  }
  EXPECT_EQ(m_driver.ObjectCount(), 1U);
  EXPECT_EQ(m_driver.State(), ToolState::Editing);
}

}  // namespace

}  // namespace framenote::test
