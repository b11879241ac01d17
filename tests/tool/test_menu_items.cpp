// SPDX-License-Identifier: MIT
// What each item of the context menu does to each kind of object.
#include <iterator>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "framenote/annotation_events.h"
#include "objects/ann_image.h"
#include "objects/ann_magnify.h"
#include "support/objects_of_kinds.h"
#include "support/test_pictures.h"

namespace framenote::test {

namespace {

using Command = AnnotationCommand;
using Range = std::pair<std::int64_t, std::int64_t>;

/// A video of ten frames, at frame 4, with five objects. The third one is of the kind under test,
/// lies in (60, 20) to (100, 60) under the pointer, lasts from frame 2 to 7 and is selected.
class MenuScene {
public:
  explicit MenuScene(Types type) : m_driver(10) {
    m_driver.Tool().SetImage(PlacePicture(200, 150), true);
    m_driver.GoToFrame(4);
    AddShape(10);
    AddShape(40);
    m_object = &DrawOfKind(m_driver, type, {60, 20}, {100, 60});
    m_driver.Tool().SetSelectedsAnnotationStart(2);
    m_driver.Tool().SetSelectedsAnnotationEnd(7);
    m_driver.Tool().Deactivate();
    AddShape(70);
    AddShape(100);
    m_driver.Move(80, 40);
    m_driver.Press(80, 40);
    m_driver.Release(80, 40);
    m_driver.Sink().Pump();
    m_driver.Sink().Clear();
  }

  ToolDriver &Driver() { return m_driver; }
  IAnnotationObject *Object() const { return m_object; }
  /// From the front; -1 if the object is not there.
  int Place() {
    int place = 0;
    for (IAnnotationObject const *object : m_driver.Tool().AnnotationObjects()) {
      if (object == m_object) return place;
      ++place;
    }
    return -1;
  }
  void Run(Command command) {
    wxCommandEvent event(wxEVT_MENU, static_cast<int>(command));
    m_driver.Tool().onPopupClick(event);
  }

private:
  void AddShape(int left) {
    DrawOfKind(m_driver, Types::Shape, {left, 100}, {left + 20, 140});
    m_driver.Tool().Deactivate();
  }

  ToolDriver m_driver;
  IAnnotationObject *m_object = nullptr;
};

class MenuItems : public testing::TestWithParam<Kind> {};

INSTANTIATE_TEST_SUITE_P(, MenuItems, testing::ValuesIn(kKinds),
                         [](auto const &kind) { return kind.param.name; });

TEST_P(MenuItems, EachOneChangesOrderRangeAndSelectionAsItSays) {
  struct {
    Command command;
    int place;
    Range range;
    bool isSelected;
    ToolState state;
  } const rows[] = {
      {Command::Copy, 2, {2, 7}, true, ToolState::Selected},
      {Command::BringToFront, 0, {2, 7}, true, ToolState::Selected},
      {Command::BringForward, 1, {2, 7}, true, ToolState::Selected},
      {Command::SendBackward, 3, {2, 7}, true, ToolState::Selected},
      {Command::SendToBack, 4, {2, 7}, true, ToolState::Selected},
      {Command::ResetToOriginal, 2, {2, 7}, true, ToolState::Selected},
      {Command::FitToImage, 2, {2, 7}, true, ToolState::Selected},
      {Command::DefaultZoomPosition, 2, {2, 7}, true, ToolState::Selected},
      {Command::SetOnlyForThisFrame, 2, {4, 4}, false, ToolState::OverObject},
      {Command::SetFromThisFrame, 2, {4, 7}, true, ToolState::Selected},
      {Command::SetUntilThisFrame, 2, {2, 4}, false, ToolState::OverObject},
      {Command::SetForAllFrames, 2, {0, 9}, true, ToolState::Selected},
      {Command::GoToFirstFrame, 2, {2, 7}, true, ToolState::Selected},
      {Command::GoToLastFrame, 2, {2, 7}, true, ToolState::Selected},
  };
  for (auto const &row : rows) {
    SCOPED_TRACE(static_cast<int>(row.command));
    MenuScene scene(GetParam().type);
    ASSERT_EQ(scene.Driver().Selected(), scene.Object());
    ASSERT_EQ(scene.Place(), 2);
    scene.Run(row.command);
    EXPECT_EQ(scene.Driver().ObjectCount(), 5U);
    EXPECT_EQ(scene.Place(), row.place);
    EXPECT_EQ(scene.Object()->GetFrameDuration(), row.range);
    EXPECT_EQ(scene.Object()->IsSelected(), row.isSelected);
    EXPECT_EQ(scene.Driver().Selected(), row.isSelected ? scene.Object() : nullptr);
    EXPECT_EQ(NameOf(scene.Driver().State()), NameOf(row.state));
  }
}

TEST_P(MenuItems, CopyLeavesTheDocumentAndPastePutsOneMoreOfTheKindAtThePointer) {
  MenuScene scene(GetParam().type);
  std::string const before = scene.Driver().DocumentText();
  scene.Run(Command::Copy);
  EXPECT_EQ(scene.Driver().DocumentText(), before);
  for (wxPoint const &pointer : {wxPoint(120, 70), wxPoint(130, 90)}) {
    scene.Driver().Move(pointer.x, pointer.y);
    scene.Run(Command::Paste);
    IAnnotationObject *const pasted = scene.Driver().Object();
    EXPECT_EQ(pasted->GetPastePoint().m_x, pointer.x);
    EXPECT_EQ(pasted->GetPastePoint().m_y, pointer.y);
    EXPECT_EQ(pasted->GetFrameDuration(), Range(2, 7));
    EXPECT_EQ(pasted->ToJSON().ItemAt("Id").AsInt(), static_cast<int>(GetParam().type));
    EXPECT_EQ(scene.Driver().Selected(), pasted);
    EXPECT_FALSE(scene.Object()->IsSelected());
    EXPECT_EQ(NameOf(scene.Driver().State()), "Selected");
  }
  EXPECT_EQ(scene.Driver().ObjectCount(), 7U);
}

TEST_P(MenuItems, PasteReachesTheCurrentFrameFromBothSides) {
  MenuScene scene(GetParam().type);
  scene.Run(Command::Copy);
  scene.Driver().Tool().Deactivate();
  for (auto const &[frame, range] :
       {std::pair<std::int64_t, Range>(0, {0, 7}), std::pair<std::int64_t, Range>(9, {2, 9})}) {
    scene.Driver().GoToFrame(frame);
    scene.Driver().Move(150, 80);
    scene.Run(Command::Paste);
    EXPECT_EQ(scene.Driver().Object()->GetFrameDuration(), range);
    EXPECT_EQ(scene.Driver().Object()->GetPastePoint().m_x, 150);
    EXPECT_EQ(scene.Driver().Object()->GetPastePoint().m_y, 80);
    scene.Driver().Tool().Deactivate();
  }
}

TEST_P(MenuItems, DeleteTakesTheObjectAlone) {
  MenuScene scene(GetParam().type);
  scene.Run(Command::Delete);
  EXPECT_EQ(scene.Place(), -1);
  EXPECT_EQ(scene.Driver().ObjectCount(), 4U);
  EXPECT_EQ(scene.Driver().Selected(), nullptr);
  EXPECT_EQ(NameOf(scene.Driver().State()), "Default");
  EXPECT_EQ(scene.Driver().Tool().GetJSON().ItemAt("Objects").Size(), 4);
}

TEST_P(MenuItems, JumpsNameTheEndsOfTheRange) {
  MenuScene scene(GetParam().type);
  for (auto const &[command, frame] :
       {std::pair(Command::GoToFirstFrame, 2), std::pair(Command::GoToLastFrame, 7)}) {
    scene.Run(command);
    auto const *const jump = scene.Driver().Sink().Last(wxEVT_ANN_GOTO_FRAME);
    ASSERT_NE(jump, nullptr);
    EXPECT_EQ(jump->FrameIndex(), frame);
  }
}

TEST_P(MenuItems, ItemsOfOneKindLeaveTheOthersAlone) {
  struct {
    Command command;
    Types kind;
  } const rows[] = {{Command::ResetToOriginal, Types::Image},
                    {Command::FitToImage, Types::Image},
                    {Command::DefaultZoomPosition, Types::Magnify}};
  for (auto const &row : rows) {
    if (row.kind == GetParam().type) continue;
    MenuScene scene(GetParam().type);
    std::string const before = scene.Driver().DocumentText();
    scene.Run(row.command);
    EXPECT_EQ(scene.Driver().DocumentText(), before) << static_cast<int>(row.command);
  }
}

TEST_P(MenuItems, WithoutASelectionNoneOfThemChangesTheDocument) {
  MenuScene scene(GetParam().type);
  scene.Driver().Tool().Deactivate();
  std::string const before = scene.Driver().DocumentText();
  for (int id = 49; id <= 64; ++id) scene.Run(static_cast<Command>(id));
  EXPECT_EQ(scene.Driver().DocumentText(), before);
  EXPECT_EQ(scene.Driver().ObjectCount(), 5U);
}

TEST_P(MenuItems, OtherIdentifiersDoNothing) {
  MenuScene scene(GetParam().type);
  std::string const before = scene.Driver().DocumentText();
  for (int const id : {0, 48, 65, 127, -1}) scene.Run(static_cast<Command>(id));
  EXPECT_EQ(scene.Driver().DocumentText(), before);
  EXPECT_EQ(scene.Driver().Selected(), scene.Object());
}

TEST_P(MenuItems, LoadingADocumentEmptiesTheClipboard) {
  MenuScene scene(GetParam().type);
  scene.Run(Command::Copy);
  wxJSONValue document(wxJSONTYPE_OBJECT);
  document.Set("Annotate", scene.Driver().Tool().GetJSON());
  scene.Driver().Tool().FromJSON(document, 10);
  std::size_t const count = scene.Driver().ObjectCount();
  scene.Run(Command::Paste);
  EXPECT_EQ(scene.Driver().ObjectCount(), count);
}

TEST(MenuItemsOfPictures, PictureIsFittedAndReset) {
  MenuScene scene(Types::Image);
  auto &image = dynamic_cast<AnnImage &>(*scene.Object());
  AnnShapePoints const &record = image.GetCoordinates().Coords();
  scene.Run(Command::FitToImage);
  EXPECT_EQ(record.m_topLeft, wxPoint2DDouble(0.0, 0.0));
  EXPECT_EQ(record.m_bottomRight, wxPoint2DDouble(200.0, 150.0));
  scene.Run(Command::ResetToOriginal);
  // 30 by 20 about (100, 75).
  EXPECT_EQ(record.m_topLeft, wxPoint2DDouble(85.0, 65.0));
  EXPECT_EQ(record.m_bottomRight, wxPoint2DDouble(115.0, 85.0));
  EXPECT_TRUE(scene.Driver().Tool().GetToolModes().image->m_properties->GetKeepAspectRatio());
  // The ratio is kept now: 200 by 133 1/3 about (100, 75).
  scene.Run(Command::FitToImage);
  EXPECT_DOUBLE_EQ(record.m_topLeft.m_x, 0.0);
  EXPECT_DOUBLE_EQ(record.m_topLeft.m_y, 25.0 / 3.0);
  EXPECT_DOUBLE_EQ(record.m_bottomRight.m_x, 200.0);
  EXPECT_DOUBLE_EQ(record.m_bottomRight.m_y, 425.0 / 3.0);
}

TEST(MenuItemsOfLenses, LensShowsItsOwnPlaceAgain) {
  MenuScene scene(Types::Magnify);
  auto &lens = dynamic_cast<AnnMagnify &>(*scene.Object());
  // Takes hold of the centre point, which then moves.
  ASSERT_TRUE(lens.IsAtCenterPoint({80, 40}));
  lens.MoveFor({50, 30});
  ASSERT_TRUE(lens.IsAtCenterPoint({130, 70}));
  scene.Run(Command::DefaultZoomPosition);
  EXPECT_TRUE(lens.IsAtCenterPoint({80, 40}));
}

}  // namespace

}  // namespace framenote::test
