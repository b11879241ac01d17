// SPDX-License-Identifier: MIT
// The commands of the context menu.
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "framenote/annotation_events.h"
#include "modes/ann_image_tool_mode.h"
#include "modes/ann_magnify_tool_mode.h"
#include "modes/ann_shape_tool_mode.h"
#include "objects/ann_image.h"
#include "objects/ann_magnify.h"
#include "objects/ann_shape.h"
#include "objects/ann_text.h"
#include "support/test_pictures.h"
#include "support/tool_driver.h"
#include "talbase/json_text.h"
#include "tool/context_menu.h"

namespace framenote::test {

namespace {

/// The items by their labels, a line for each separator, and a star before those that are disabled.
std::vector<std::string> LabelsOf(wxMenu const &menu) {
  std::vector<std::string> labels;
  for (wxMenuItem const *item : menu.GetMenuItems()) {
    std::string const label = item->IsSeparator() ? "-" : item->GetItemLabelText().utf8_string();
    labels.push_back((item->IsEnabled() || item->IsSeparator() ? "" : "*") + label);
  }
  return labels;
}

TEST(ContextMenu, OnNothingThereIsPasteAlone) {
  ContextMenuState state{false, false, true, Types::Image, -1, -1};
  EXPECT_EQ(LabelsOf(*MakeContextMenu(state)), std::vector<std::string>{"*Paste"});
  state.canPaste = true;
  EXPECT_EQ(LabelsOf(*MakeContextMenu(state)), std::vector<std::string>{"Paste"});
}

TEST(ContextMenu, OnAnObjectThereIsEverythingInOrder) {
  std::vector<std::string> const expected = {"Copy",
                                             "Paste",
                                             "Delete",
                                             "-",
                                             "Bring to Front",
                                             "Bring Forward",
                                             "Send Backward",
                                             "Send to Back",
                                             "-",
                                             "Set Only for This Frame",
                                             "Set From This Frame",
                                             "Set Until This Frame",
                                             "Set for All Frames",
                                             "-",
                                             "Go to First Frame (3)",
                                             "Go to Last Frame (5000000000)"};
  auto const menu = MakeContextMenu({true, true, false, Types::Shape, 3, 5'000'000'000});
  EXPECT_EQ(LabelsOf(*menu), expected);
  EXPECT_EQ(menu->FindItemByPosition(0)->GetId(), 49);
  EXPECT_EQ(menu->FindItemByPosition(6)->GetId(), 55);
  EXPECT_EQ(menu->FindItemByPosition(7)->GetId(), 54);
  EXPECT_EQ(menu->FindItemByPosition(15)->GetId(), 64);
}

TEST(ContextMenu, ModesHaveItemsOfTheirOwn) {
  auto const modeItems = [](Types mode) {
    std::vector<std::string> const labels =
        LabelsOf(*MakeContextMenu({true, false, true, mode, 0, 0}));
    return std::vector<std::string>(labels.begin() + 8, labels.end() - 8);
  };
  EXPECT_EQ(modeItems(Types::Image),
            (std::vector<std::string>{"-", "Reset to Original", "Fit to Image"}));
  EXPECT_EQ(modeItems(Types::Magnify), (std::vector<std::string>{"-", "Default Zoom Position"}));
  EXPECT_EQ(modeItems(Types::Hide), std::vector<std::string>{});
}

TEST(ContextMenu, ObjectInFrontIsNotBroughtForward) {
  std::vector<std::string> const labels =
      LabelsOf(*MakeContextMenu({true, false, true, Types::Shape, 0, 0}));
  EXPECT_EQ(labels[1], "*Paste");
  EXPECT_EQ(labels[4], "*Bring to Front");
  EXPECT_EQ(labels[5], "*Bring Forward");
  EXPECT_EQ(labels[6], "Send Backward");
}

/// A video of ten frames with three shapes, 40 by 40, of which the first drawn, at the back, begins
/// at 10, the second at 60 and the front one at 110.
class ToolMenu : public testing::Test {
protected:
  ToolMenu() : m_driver(10) {
    Tool().GetToolModes().shape->m_properties->SetFillColor(*wxRED);
    for (int const left : {10, 60, 110}) {
      m_driver.DrawShape({left, 20}, {left + 40, 60});
      Tool().Deactivate();
    }
    m_driver.Sink().Pump();
    m_driver.Sink().Clear();
  }

  AnnotationTool &Tool() { return m_driver.Tool(); }
  void Run(AnnotationCommand command) {
    wxCommandEvent event(wxEVT_MENU, static_cast<int>(command));
    Tool().onPopupClick(event);
  }
  void Select(int x, int y = 40) {
    m_driver.Move(x, y);
    m_driver.Press(x, y);
    m_driver.Release(x, y);
    ASSERT_NE(m_driver.Selected(), nullptr);
  }
  static int LeftOf(IAnnotationObject *object) {
    return static_cast<int>(
        dynamic_cast<AnnShape *>(object)->GetCoordinates().Coords().m_topLeft.m_x);
  }
  /// The left sides of the shapes, front first.
  std::vector<int> Order() {
    std::vector<int> order;
    for (IAnnotationObject *object : Tool().AnnotationObjects()) order.push_back(LeftOf(object));
    return order;
  }
  using Lefts = std::vector<int>;

  ToolDriver m_driver;
};

TEST_F(ToolMenu, PastingTwicePutsACopyAtEachPointer) {
  Select(80);
  Run(AnnotationCommand::Copy);
  m_driver.Move(150, 100);
  Run(AnnotationCommand::Paste);
  m_driver.Move(170, 120);
  Run(AnnotationCommand::Paste);
  EXPECT_EQ(Order(), (Lefts{170, 150, 110, 60, 10}));
  EXPECT_EQ(LeftOf(m_driver.Selected()), 170);
  EXPECT_EQ(m_driver.State(), ToolState::Selected);
  EXPECT_NE(m_driver.DocumentText().find("[170.0,120.0]"), std::string::npos);
  int selected = 0;
  for (IAnnotationObject *object : Tool().AnnotationObjects()) selected += object->IsSelected();
  EXPECT_EQ(selected, 1);
}

TEST_F(ToolMenu, NothingIsPastedBeforeACopy) {
  Run(AnnotationCommand::Paste);
  EXPECT_EQ(m_driver.ObjectCount(), 3U);
}

TEST_F(ToolMenu, CopyOutlivesItsObject) {
  Select(80);
  Run(AnnotationCommand::Copy);
  Run(AnnotationCommand::Delete);
  EXPECT_EQ(m_driver.ObjectCount(), 2U);
  Run(AnnotationCommand::Paste);
  EXPECT_EQ(m_driver.ObjectCount(), 3U);
}

TEST_F(ToolMenu, CopyFromAnotherFrameAppearsInTheCurrentOneAsItWas) {
  Select(80);
  m_driver.GoToFrame(5);
  m_driver.Selected()->MoveFor({0, 40});
  Tool().SetSelectedsAnnotationStart(5);
  Run(AnnotationCommand::Copy);
  Tool().Deactivate();
  m_driver.GoToFrame(2);
  m_driver.Move(150, 100);
  Run(AnnotationCommand::Paste);
  EXPECT_EQ(m_driver.Object()->GetFrameDuration(), (std::pair<std::int64_t, std::int64_t>(2, 5)));
  EXPECT_EQ(LeftOf(m_driver.Object()), 150);
  m_driver.GoToFrame(8);
  Tool().Deactivate();
  Run(AnnotationCommand::Paste);
  EXPECT_EQ(m_driver.Object()->GetFrameDuration(), (std::pair<std::int64_t, std::int64_t>(5, 8)));
}

TEST_F(ToolMenu, CopyReachesFramesThatTheMediaGotLater) {
  Select(80);
  Run(AnnotationCommand::Copy);
  Tool().Deactivate();
  Tool().UpdateMediaInfo({30, 40, false});
  m_driver.Move(150, 100);
  Run(AnnotationCommand::Paste);
  EXPECT_EQ(LeftOf(m_driver.Object()), 150);
  wxJSONValue const runs = m_driver.Object()->ToJSON().ItemAt("Coordinates");
  ASSERT_EQ(runs.Size(), 1);
  EXPECT_EQ(JsonToUtf8(runs.ItemAt(0).ItemAt("Range")), "[0,30]");
}

TEST_F(ToolMenu, DeletingLeavesTheOthersAndTellsTheHost) {
  Select(80);
  Run(AnnotationCommand::Delete);
  EXPECT_EQ(Order(), (Lefts{110, 10}));
  EXPECT_EQ(m_driver.Selected(), nullptr);
  EXPECT_EQ(m_driver.State(), ToolState::Default);
  EXPECT_EQ(m_driver.Sink().Count(wxEVT_ANN_OBJECT_DESELECTED), 1U);
  EXPECT_EQ(m_driver.DocumentText().find("[60.0"), std::string::npos);
  // Without a selection there is nothing to delete.
  Run(AnnotationCommand::Delete);
  EXPECT_EQ(m_driver.ObjectCount(), 2U);
}

TEST_F(ToolMenu, PointerOverAnotherObjectIsOverItAfterADeletion) {
  m_driver.DrawShape({60, 20}, {100, 60});
  Tool().Deactivate();
  Select(80);
  Run(AnnotationCommand::Delete);
  EXPECT_EQ(m_driver.State(), ToolState::OverObject);
  EXPECT_EQ(Order(), (Lefts{110, 60, 10}));
}

TEST_F(ToolMenu, EndsOfTheOrderAreReachedAtOnce) {
  Select(30);
  Run(AnnotationCommand::BringToFront);
  EXPECT_EQ(Order(), (Lefts{10, 110, 60}));
  EXPECT_EQ(LeftOf(m_driver.Selected()), 10);
  Run(AnnotationCommand::BringToFront);
  EXPECT_EQ(Order(), (Lefts{10, 110, 60}));
  Run(AnnotationCommand::SendToBack);
  EXPECT_EQ(Order(), (Lefts{110, 60, 10}));
  EXPECT_EQ(m_driver.State(), ToolState::Selected);
  std::string const text = m_driver.DocumentText();
  EXPECT_LT(text.find("[110.0"), text.find("[10.0"));
}

TEST_F(ToolMenu, OrderChangesByOnePlace) {
  Select(80);
  Run(AnnotationCommand::BringForward);
  EXPECT_EQ(Order(), (Lefts{60, 110, 10}));
  EXPECT_EQ(LeftOf(m_driver.Selected()), 60);
  Run(AnnotationCommand::BringForward);
  EXPECT_EQ(Order(), (Lefts{60, 110, 10}));
  Run(AnnotationCommand::SendBackward);
  Run(AnnotationCommand::SendBackward);
  EXPECT_EQ(Order(), (Lefts{110, 10, 60}));
  EXPECT_EQ(LeftOf(m_driver.Selected()), 60);
  // On the last one it changes nothing but the state.
  Run(AnnotationCommand::SendBackward);
  EXPECT_EQ(Order(), (Lefts{110, 10, 60}));
  EXPECT_EQ(m_driver.State(), ToolState::Selected);
  int selected = 0;
  for (IAnnotationObject *object : Tool().AnnotationObjects()) selected += object->IsSelected();
  EXPECT_EQ(selected, 1);
}

TEST_F(ToolMenu, RangeCommandsSetTheRangeAndTwoOfThemDeselect) {
  using Range = std::pair<std::int64_t, std::int64_t>;
  struct {
    AnnotationCommand command;
    Range range;
    bool deselects;
  } const rows[] = {{AnnotationCommand::SetForAllFrames, {0, 9}, false},
                    {AnnotationCommand::SetUntilThisFrame, {0, 4}, true},
                    {AnnotationCommand::SetForAllFrames, {0, 9}, false},
                    {AnnotationCommand::SetFromThisFrame, {4, 9}, false},
                    {AnnotationCommand::SetOnlyForThisFrame, {4, 4}, true},
                    {AnnotationCommand::SetFromThisFrame, {4, 9}, false}};
  Select(80);
  m_driver.GoToFrame(4);
  IAnnotationObject *const object = m_driver.Selected();
  for (auto const &row : rows) {
    if (m_driver.Selected() == nullptr) Select(80);
    Run(row.command);
    EXPECT_EQ(object->GetFrameDuration(), row.range) << static_cast<int>(row.command);
    EXPECT_EQ(m_driver.Selected() == nullptr, row.deselects) << static_cast<int>(row.command);
    EXPECT_EQ(object->IsSelected(), !row.deselects);
  }
}

TEST_F(ToolMenu, JumpsAskTheHostForTheEndsOfTheRange) {
  Select(80);
  Tool().SetSelectedsAnnotationStart(2);
  Tool().SetSelectedsAnnotationEnd(7);
  Run(AnnotationCommand::GoToFirstFrame);
  auto const *jump = m_driver.Sink().Last(wxEVT_ANN_GOTO_FRAME);
  ASSERT_NE(jump, nullptr);
  EXPECT_EQ(jump->FrameIndex(), 2);
  EXPECT_EQ(jump->Direction(), AnnotationGoToFrameEvent::ToStart);
  Run(AnnotationCommand::GoToLastFrame);
  jump = m_driver.Sink().Last(wxEVT_ANN_GOTO_FRAME);
  EXPECT_EQ(jump->FrameIndex(), 7);
  EXPECT_EQ(jump->Direction(), AnnotationGoToFrameEvent::ToEnd);
  Tool().Deactivate();
  Run(AnnotationCommand::GoToLastFrame);
  EXPECT_EQ(m_driver.Sink().Last(wxEVT_ANN_GOTO_FRAME)->FrameIndex(), -1);
}

TEST_F(ToolMenu, CommandsOfOtherKindsDoNothing) {
  Select(80);
  std::string const before = m_driver.DocumentText();
  for (auto const command :
       {AnnotationCommand::ResetToOriginal, AnnotationCommand::FitToImage,
        AnnotationCommand::DefaultZoomPosition, static_cast<AnnotationCommand>(65)}) {
    Run(command);
  }
  EXPECT_EQ(m_driver.DocumentText(), before);
}

TEST_F(ToolMenu, CommandsWithoutASelectionDoNothing) {
  for (int id = 40; id < 70; ++id) Run(static_cast<AnnotationCommand>(id));
  EXPECT_EQ(Order(), (Lefts{110, 60, 10}));
}

TEST_F(ToolMenu, StillPictureHasOneFrameAndNoJumps) {
  ToolDriver still;
  still.DrawShape({10, 10}, {40, 40});
  auto const run = [&](AnnotationCommand command) {
    wxCommandEvent event(wxEVT_MENU, static_cast<int>(command));
    still.Tool().onPopupClick(event);
  };
  run(AnnotationCommand::SetForAllFrames);
  run(AnnotationCommand::SetFromThisFrame);
  run(AnnotationCommand::GoToLastFrame);
  EXPECT_EQ(still.Object()->GetFrameDuration(), (std::pair<std::int64_t, std::int64_t>(0, 0)));
  EXPECT_EQ(still.Sink().Count(wxEVT_ANN_GOTO_FRAME), 0U);
}

TEST_F(ToolMenu, LensShowsItsOwnPlaceAgain) {
  Tool().SetImage(PlacePicture(200, 150), true);
  m_driver.UseTool(Types::Magnify);
  m_driver.Drag({20, 70}, {80, 130});
  auto &lens = *m_driver.ObjectAs<AnnMagnify>();
  ASSERT_TRUE(lens.IsAtCenterPoint({50, 100}));
  lens.MoveFor({60, 0});
  Run(AnnotationCommand::DefaultZoomPosition);
  EXPECT_TRUE(lens.IsAtCenterPoint({50, 100}));
  EXPECT_EQ(m_driver.DocumentText().find("\"CenterPoint\":["), std::string::npos);
}

TEST_F(ToolMenu, PastedPictureIsFittedAndReset) {
  std::string const path = (std::filesystem::temp_directory_path() / "framenote_menu.png").string();
  ASSERT_TRUE(wxImage(40, 20).SaveFile(path, wxBITMAP_TYPE_PNG));
  Tool().SetImage(PlacePicture(200, 150), true);
  AnnImageToolMode &mode = *Tool().GetToolModes().image;
  mode.m_properties->SetKeepAspectRatio(false);
  mode.m_properties->SetFileName(wxFileName(path));
  mode.SetPicture(path);
  m_driver.UseTool(Types::Image);
  m_driver.Drag({20, 70}, {80, 130});
  std::filesystem::remove(path);
  auto &image = *m_driver.ObjectAs<AnnImage>();
  AnnShapePoints const &record = image.GetCoordinates().Coords();
  Run(AnnotationCommand::FitToImage);
  EXPECT_EQ(record.m_topLeft.m_x, 0.0);
  EXPECT_EQ(record.m_bottomRight.m_y, 150.0);
  EXPECT_NE(m_driver.DocumentText().find("[200.0,150.0]"), std::string::npos);
  Run(AnnotationCommand::ResetToOriginal);
  EXPECT_EQ(record.m_bottomRight.m_x - record.m_topLeft.m_x, 40.0);
  EXPECT_TRUE(mode.m_properties->GetKeepAspectRatio());
  EXPECT_NE(m_driver.DocumentText().find("[120.0,85.0]"), std::string::npos);
}

}  // namespace

}  // namespace framenote::test
