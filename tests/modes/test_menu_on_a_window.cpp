// SPDX-License-Identifier: MIT
// The context menu with real clicks and keys on a real window.
#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <wx/menu.h>

#include <gtest/gtest.h>

#include "modes/ann_shape_tool_mode.h"
#include "modes/text_canvas_fixture.h"
#include "objects/ann_image.h"
#include "objects/ann_magnify.h"
#include "objects/ann_shape.h"
#include "support/keys_in_menu.h"
#include "support/objects_of_kinds.h"
#include "support/test_pictures.h"

namespace framenote::test {

namespace {

/// Keeps what the screen shows while a menu is open, and closes it.
class PictureOfMenu : public wxTimer {
public:
  PictureOfMenu(wxRect const &area, wxUIActionSimulator &simulator)
      : m_area(area), m_simulator(simulator) {
    // Once: a second Escape could close a menu that opens later.
    StartOnce(200);
  }
  void Notify() override {
    m_picture = CaptureScreen(m_area);
    m_simulator.Char(WXK_ESCAPE);
  }
  /// How many pixels of a part are not as they were.
  int Changed(wxImage const &before, wxRect const &part) const {
    if (!m_picture.IsOk()) return -1;
    int count = 0;
    for (int y = part.y; y < part.y + part.height; ++y) {
      for (int x = part.x; x < part.x + part.width; ++x) {
        if (!(pixels::ColourAt(before, x, y) == pixels::ColourAt(m_picture, x, y))) ++count;
      }
    }
    return count;
  }

private:
  wxRect m_area;
  wxUIActionSimulator &m_simulator;
  wxImage m_picture;
};

class MenuOnAWindow : public TextCanvasTest {
protected:
  MenuOnAWindow() : TextCanvasTest(10) {
    m_driver.Tool().GetToolModes().shape->m_properties->SetFillColor(*wxRED);
    m_driver.UseTool(Types::Shape);
  }

  void SetUp() override {
    TextCanvasTest::SetUp();
    m_canvas->Bind(wxEVT_MENU_OPEN, [this](wxMenuEvent &event) { OnMenuOpen(*event.GetMenu()); });
    m_canvas->Bind(wxEVT_CONTEXT_MENU, [this](wxContextMenuEvent &event) {
      // A right click has a position, and is forwarded to the tool like every other click.
      if (event.GetPosition() == wxDefaultPosition) m_driver.Tool().PopupMenuByKey();
    });
  }

  void OnMenuOpen(wxMenu const &menu) {
    m_items.clear();
    m_lines.clear();
    std::size_t steps = 0;
    for (wxMenuItem const *item : menu.GetMenuItems()) {
      std::string const label = item->GetItemLabelText().utf8_string();
      if (item->IsSeparator()) {
        m_lines.push_back("-");
        continue;
      }
      m_items.push_back(label);
      m_lines.push_back((item->IsEnabled() ? "" : "*") + label);
      // The arrow key passes over what is disabled.
      if (item->IsEnabled() && !m_stepsToChosen) ++steps;
      if (item->IsEnabled() && label == m_chosen) m_stepsToChosen = steps;
    }
    if (m_takesPicture) {
      m_picture.emplace(wxRect(0, 0, 1280, 1024), m_mouse);
      return;
    }
    // Without a key that closes it the menu would stay open for ever.
    if (m_stepsToChosen) m_keys.assign(*m_stepsToChosen, WXK_DOWN);
    m_keys.push_back(m_stepsToChosen ? WXK_RETURN : WXK_ESCAPE);
    m_pressed.emplace(std::exchange(m_keys, {}), m_mouse);
  }

  /// A right click at a place; the menu that opens is closed again.
  void RightClick(int x, int y) { Choose(x, y, ""); }

  /// A right click at a place, and with the arrow keys the item of that name.
  void Choose(int x, int y, std::string const &label) {
    m_chosen = label;
    m_stepsToChosen.reset();
    m_lines.clear();
    // A pointer that is there already would send nothing.
    MoveTo(x, y + 10);
    Click(x, y, wxMOUSE_BTN_RIGHT);
    Repaint();
    EXPECT_FALSE(m_lines.empty());
    EXPECT_EQ(m_stepsToChosen.has_value(), !label.empty()) << label;
  }

  /// Top left and bottom right of a box in the current frame.
  static std::pair<wxPoint, wxPoint> CornersOf(IAnnotationObject *object) {
    AnnShapePoints const &record = dynamic_cast<AnnShape &>(*object).GetCoordinates().Coords();
    return {IAnnotationObject::GetRounded(record.m_topLeft),
            IAnnotationObject::GetRounded(record.m_bottomRight)};
  }

  /// The place from the front; -1 if it is not there.
  int PlaceOf(IAnnotationObject const *sought) {
    int place = 0;
    for (IAnnotationObject const *object : m_driver.Tool().AnnotationObjects()) {
      if (object == sought) return place;
      ++place;
    }
    return -1;
  }

  std::vector<std::string> m_items;
  /// The same with "-" for each separator, and a star before what is disabled.
  std::vector<std::string> m_lines;
  std::string m_chosen;
  std::optional<std::size_t> m_stepsToChosen;
  std::vector<int> m_keys;
  std::optional<KeysInMenu> m_pressed;
  bool m_takesPicture = false;
  std::optional<PictureOfMenu> m_picture;
};

TEST_F(MenuOnAWindow, RightClickOffersAndDoesWhatFitsThePlace) {
  Drag({{40, 40}, {60, 60}, {100, 90}});
  m_driver.Tool().Deactivate();
  RightClick(200, 150);
  EXPECT_EQ(m_items, std::vector<std::string>{"Paste"});
  Choose(70, 60, "Copy");
  ASSERT_EQ(m_items.size(), 13U);
  EXPECT_EQ(m_items[0], "Copy");
  EXPECT_EQ(m_items[11], "Go to First Frame (0)");
  ASSERT_NE(m_driver.Selected(), nullptr);
  // What was copied is pasted where the next click is.
  m_driver.Tool().Deactivate();
  Choose(180, 120, "Paste");
  ASSERT_EQ(m_driver.ObjectCount(), 2U);
  EXPECT_EQ(m_driver.ObjectAs<AnnShape>()->GetCoordinates().Coords().m_topLeft.m_x, 180.0);
  EXPECT_EQ(m_driver.State(), ToolState::Selected);
}

TEST_F(MenuOnAWindow, SelectedObjectHasItsItemsOnItAndOnItsHandlesButNotOnTheOneThatTurnsIt) {
  m_driver.SetScale(m_scale);
  m_driver.DrawShape({60, 60}, {140, 120});
  struct {
    wxPoint place;
    ToolState state;
    std::size_t items;
  } const places[] = {{{100, 90}, ToolState::Selected, 13},
                      {{140, 120}, ToolState::AtResizePoint, 13},
                      {{100, 45}, ToolState::AtRotationPoint, 1},
                      {{200, 180}, ToolState::Selected, 1}};
  for (auto const &at : places) {
    m_driver.Tool().Deactivate();
    m_driver.UseTool(Types::Shape);
    m_driver.Tool().SelectObject(0);
    m_driver.Move(at.place.x, at.place.y);
    ASSERT_EQ(m_driver.State(), at.state);
    m_driver.RightRelease(at.place.x, at.place.y);
    EXPECT_EQ(m_items.size(), at.items) << at.place.x;
    EXPECT_EQ(m_driver.Selected(), m_driver.Object());
  }
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

TEST_F(MenuOnAWindow, EachKindIsOfferedItsItems) {
  m_driver.Tool().SetImage(PlacePicture(200, 150), true);
  for (Kind const &kind : kKinds) {
    SCOPED_TRACE(kind.name);
    m_driver.Tool().ClearAllAnnotations();
    m_driver.GoToFrame(4);
    DrawOfKind(m_driver, kind.type, {60, 20}, {100, 60}).SetEndFrame(7);
    m_driver.Tool().Deactivate();
    RightClick(80, 40);
    // Alone, it is in front; nothing has been copied.
    std::vector<std::string> expected = {
        "Copy",           "*Paste",        "Delete",      "-", "*Bring to Front",
        "*Bring Forward", "Send Backward", "Send to Back"};
    if (kind.type == Types::Image) {
      expected.insert(expected.end(), {"-", "Reset to Original", "Fit to Image"});
    } else if (kind.type == Types::Magnify) {
      expected.insert(expected.end(), {"-", "Default Zoom Position"});
    }
    expected.insert(expected.end(),
                    {"-", "Set Only for This Frame", "Set From This Frame", "Set Until This Frame",
                     "Set for All Frames", "-", "Go to First Frame (4)", "Go to Last Frame (7)"});
    EXPECT_EQ(m_lines, expected);
  }
}

TEST_F(MenuOnAWindow, OnNothingPasteIsOfferedOnceSomethingWasCopied) {
  DrawOfKind(m_driver, Types::Shape, {60, 20}, {100, 60});
  m_driver.Tool().Deactivate();
  RightClick(200, 150);
  EXPECT_EQ(m_lines, std::vector<std::string>{"*Paste"});
  Choose(80, 40, "Copy");
  m_driver.Tool().Deactivate();
  RightClick(200, 150);
  EXPECT_EQ(m_lines, std::vector<std::string>{"Paste"});
  EXPECT_EQ(m_driver.ObjectCount(), 1U);
}

TEST_F(MenuOnAWindow, EachItemDoesWhatItSaysWhenItIsChosen) {
  using Range = std::pair<std::int64_t, std::int64_t>;
  struct Row {
    char const *label;
    Types type;
    int place;
    Range range;
  } const rows[] = {{"Copy", Types::Text, 1, {2, 7}},
                    {"Delete", Types::Arrow, -1, {}},
                    {"Bring to Front", Types::Pencil, 0, {2, 7}},
                    {"Bring Forward", Types::Hide, 0, {2, 7}},
                    {"Send Backward", Types::Shape, 2, {2, 7}},
                    {"Send to Back", Types::Text, 2, {2, 7}},
                    {"Reset to Original", Types::Image, 1, {2, 7}},
                    {"Fit to Image", Types::Image, 1, {2, 7}},
                    {"Default Zoom Position", Types::Magnify, 1, {2, 7}},
                    {"Set Only for This Frame", Types::Shape, 1, {4, 4}},
                    {"Set From This Frame", Types::Arrow, 1, {4, 7}},
                    {"Set Until This Frame", Types::Pencil, 1, {2, 4}},
                    {"Set for All Frames", Types::Hide, 1, {0, 9}},
                    {"Go to First Frame (2)", Types::Text, 1, {2, 7}},
                    {"Go to Last Frame (7)", Types::Magnify, 1, {2, 7}}};
  m_driver.Tool().SetImage(PlacePicture(200, 150), true);
  for (Row const &row : rows) {
    SCOPED_TRACE(row.label);
    m_driver.Tool().ClearAllAnnotations();
    m_driver.GoToFrame(4);
    DrawOfKind(m_driver, Types::Shape, {10, 100}, {30, 140});
    m_driver.Tool().Deactivate();
    IAnnotationObject *const object = &DrawOfKind(m_driver, row.type, {60, 20}, {100, 60});
    m_driver.Tool().SetSelectedsAnnotationStart(2);
    m_driver.Tool().SetSelectedsAnnotationEnd(7);
    m_driver.Tool().Deactivate();
    DrawOfKind(m_driver, Types::Shape, {50, 100}, {70, 140});
    m_driver.Tool().Deactivate();
    m_driver.Sink().Clear();
    Choose(80, 40, row.label);
    EXPECT_EQ(PlaceOf(object), row.place);
    // A deleted object is not asked.
    Range const range = row.place < 0 ? Range() : object->GetFrameDuration();
    EXPECT_EQ(range, row.range);
    std::string const label = row.label;
    bool const isJump = label.find("Go to") == 0;
    EXPECT_EQ(m_driver.Sink().Count(wxEVT_ANN_GOTO_FRAME), isJump ? 1U : 0U);
    if (label == "Copy") {
      Choose(150, 90, "Paste");
      EXPECT_EQ(m_driver.ObjectCount(), 4U);
      EXPECT_EQ(m_driver.Object()->GetPastePoint().m_x, 150);
      EXPECT_EQ(m_driver.Object()->GetPastePoint().m_y, 90);
    } else if (label == "Fit to Image") {
      EXPECT_EQ(CornersOf(object), std::pair(wxPoint(0, 0), wxPoint(200, 150)));
    } else if (label == "Reset to Original") {
      // 30 by 20 about (80, 40).
      EXPECT_EQ(CornersOf(object), std::pair(wxPoint(65, 30), wxPoint(95, 50)));
    } else if (label == "Default Zoom Position") {
      EXPECT_TRUE(dynamic_cast<AnnMagnify *>(object)->IsAtCenterPoint({80, 40}));
    }
  }
}

TEST_F(MenuOnAWindow, CommandOfAHostActsOnTheTextAsItHasBeenTyped) {
  auto const run = [this](AnnotationCommand command) {
    wxCommandEvent event(wxEVT_MENU, static_cast<int>(command));
    m_driver.Tool().onPopupClick(event);
  };
  m_driver.UseTool(Types::Text);
  DrawBox({60, 20}, {220, 60});
  Type("ab");
  // It is no command of the menu.
  run(static_cast<AnnotationCommand>(65));
  EXPECT_EQ(m_driver.State(), ToolState::Editing);
  run(AnnotationCommand::Copy);
  EXPECT_EQ(Editor(), nullptr);
  EXPECT_EQ(Text(), "ab");
  EXPECT_EQ(m_driver.State(), ToolState::Selected);
  run(AnnotationCommand::Paste);
  ASSERT_EQ(m_driver.ObjectCount(), 2U);
  EXPECT_EQ(Text(), "ab");
  EXPECT_EQ(m_driver.Selected(), m_driver.Object());
  EXPECT_EQ(m_driver.State(), ToolState::Selected);
}

TEST_F(MenuOnAWindow, KeysOpenTheMenuBesideTheSelectedObjectWhereverThePointerIs) {
  DrawOfKind(m_driver, Types::Shape, {60, 20}, {100, 60});
  m_canvas->SetFocus();
  Settle([this] { return m_canvas->HasFocus(); });
  // Without a window manager the window under the pointer has the keys.
  MoveTo(250, 180);
  Repaint();
  wxImage const before = CaptureScreen(wxRect(0, 0, 1280, 1024));
  m_takesPicture = true;
  std::pair<int, int> const keys[] = {{WXK_MENU, wxMOD_NONE}, {WXK_F10, wxMOD_SHIFT}};
  for (auto const &[key, modifiers] : keys) {
    m_items.clear();
    m_mouse.Char(key, modifiers);
    Settle([this] { return !m_items.empty(); });
    ASSERT_EQ(m_items.size(), 13U) << key;
    EXPECT_EQ(m_items[0], "Copy");
    // Its corner is the paste point's, and nothing opens at the pointer.
    wxPoint const corner = OnScreen(60, 20);
    EXPECT_GT(m_picture->Changed(before, wxRect(corner, wxSize(100, 100))), 300);
    EXPECT_EQ(m_picture->Changed(before, wxRect(corner.x - 20, corner.y - 20, 15, 100)), 0);
    EXPECT_EQ(m_picture->Changed(before, wxRect(OnScreen(250, 180), wxSize(60, 60))), 0);
  }
  ASSERT_NE(m_driver.Selected(), nullptr);
}

TEST_F(MenuOnAWindow, KeysOpenPasteAloneWithoutASelectionAndNothingOverAnEditor) {
  m_items.clear();
  m_driver.Tool().PopupMenuByKey();
  EXPECT_EQ(m_lines, std::vector<std::string>{"*Paste"});
  // The same for a menu on an object that is asked for with nothing selected.
  m_lines.clear();
  m_driver.Tool().popupRightClickMenu(true);
  EXPECT_EQ(m_lines, std::vector<std::string>{"*Paste"});
  m_lines.clear();
  m_driver.UseTool(Types::Text);
  DrawBox({60, 20}, {220, 100});
  m_driver.Tool().PopupMenuByKey();
  EXPECT_TRUE(m_lines.empty());
  EXPECT_EQ(m_driver.State(), ToolState::Editing);
}

TEST_F(MenuOnAWindow, DeletingAWindowsObjectWorksAfterTheWindowCameBack) {
  wxWindow *const other = new wxWindow(m_frame, wxID_ANY);  // owned by the frame
  DrawOfKind(m_driver, Types::Shape, {60, 20}, {100, 60});
  m_driver.Tool().Deactivate();
  DrawOfKind(m_driver, Types::Shape, {110, 20}, {150, 60});
  {
    wxClientDC dc(other);
    m_driver.Tool().Draw(dc, other, m_offset, m_scale);
  }
  MoveTo(250, 180);
  Repaint();
  m_canvas->SetFocus();
  Settle([this] { return m_canvas->HasFocus(); });
  m_mouse.Char(WXK_DELETE);
  Settle([this] { return m_driver.ObjectCount() < 2; });
  // The window's second handler finds nothing selected.
  EXPECT_EQ(m_driver.ObjectCount(), 1U);
}

}  // namespace

}  // namespace framenote::test
