// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "framenote/annotation_events.h"
#include "modes/ann_arrow_tool_mode.h"
#include "modes/ann_general_tool_mode.h"
#include "modes/ann_idle_tool_mode.h"
#include "modes/ann_pencil_tool_mode.h"
#include "modes/ann_shape_tool_mode.h"
#include "objects/ann_arrow.h"
#include "objects/ann_shape.h"
#include "support/tool_driver.h"

void PrintTo(ToolState state, std::ostream *out) {
  *out << framenote::test::NameOf(state);
}

namespace framenote::test {

namespace {

using EventTypes = std::vector<wxEventType>;

TEST(ToolLife, NewToolIsIdleEmptyAndVisible) {
  AnnotationTool const tool(AnnotationToolConfig(true, false, true, false, true, {}));
  EXPECT_TRUE(tool.IsEmpty());
  EXPECT_TRUE(tool.IsVisible());
  EXPECT_TRUE(tool.IsIdle());
  EXPECT_TRUE(tool.IsDefaultState());
  EXPECT_FALSE(tool.HasAnnotation(0));
  EXPECT_FALSE(tool.GetImage().IsOk());
  EXPECT_TRUE(tool.GetJSON().IsNull());
  EXPECT_EQ(tool.GetExtensionColor(), *wxWHITE);
  EXPECT_TRUE(tool.GetConfig().drawWithDeviceContext);
  EXPECT_FALSE(tool.GetConfig().renderWithDeviceContext);
  EXPECT_TRUE(tool.GetConfig().showZoomMethod);
  EXPECT_FALSE(tool.GetConfig().showHideAll);
  EXPECT_TRUE(tool.GetConfig().extensionEnabled);
}

TEST(ToolLife, ModesKnowTheirKind) {
  AnnotationTool const tool(AnnotationToolConfig(true, false, true, false, true, {}));
  ToolModes const &modes = tool.GetToolModes();
  EXPECT_EQ(modes.idle->GetModeId(), Types::Idle);
  EXPECT_EQ(modes.shape->GetModeId(), Types::Shape);
  EXPECT_EQ(modes.arrow->GetModeId(), Types::Arrow);
  EXPECT_EQ(modes.pencil->GetModeId(), Types::Pencil);
  EXPECT_EQ(modes.general->GetModeId(), Types::General);
}

TEST(ToolLife, InitGuiWithoutAnOwnerThrowsAndLeavesTheToolUsable) {
  AnnotationTool tool(AnnotationToolConfig(false, false, true, true, false, {}));
  EXPECT_THROW(tool.InitGui(nullptr, nullptr, nullptr), std::bad_weak_ptr);
  tool.SetActiveTool(Types::Arrow);
  EXPECT_FALSE(tool.IsIdle());
}

TEST(ToolLife, InitGuiTakesTheToolsOwnPointer) {
  EventSink sink;
  auto tool =
      std::make_shared<AnnotationTool>(AnnotationToolConfig(false, false, true, true, false, {}));
  tool->InitGui(nullptr, &sink, nullptr);
  tool->OnJsonChanged();
  EXPECT_EQ(sink.Count(wxEVT_ANN_JSON_CHANGED), 1U);
}

TEST(ToolLife, ResetReturnsToTheDefaultsButKeepsThePicture) {
  ToolDriver driver(10);
  driver.Tool().SetImage(wxImage(30, 20), true);
  driver.DrawShape({20, 20}, {120, 80});
  driver.Tool().SetExtensionColour(*wxBLUE);
  driver.Tool().EnableMouse(false);
  driver.Tool().Reset(false);
  EXPECT_TRUE(driver.Tool().IsEmpty());
  EXPECT_TRUE(driver.Tool().IsIdle());
  EXPECT_EQ(driver.State(), ToolState::Default);
  EXPECT_EQ(driver.Selected(), nullptr);
  EXPECT_EQ(driver.Tool().GetMediaInfo().frameCount, 0);
  EXPECT_EQ(driver.Tool().GetExtensionColor(), *wxWHITE);
  EXPECT_TRUE(driver.Tool().GetJSON().IsNull());
  EXPECT_EQ(driver.Tool().GetImage().GetWidth(), 30);
  driver.GoToFrame(0);
  driver.DrawShape({20, 20}, {120, 80});
  EXPECT_EQ(driver.ObjectCount(), 1U);
}

TEST(ToolLife, ResetToTheEndLeavesNoObject) {
  ToolDriver driver;
  driver.DrawShape({20, 20}, {120, 80});
  driver.Tool().Reset(true);
  EXPECT_TRUE(driver.Tool().IsEmpty());
  EXPECT_EQ(driver.Selected(), nullptr);
}

TEST(ToolLife, DeactivateEndsSelectionAndTool) {
  ToolDriver driver;
  driver.DrawShape({20, 20}, {120, 80});
  ASSERT_NE(driver.Selected(), nullptr);
  driver.Tool().Deactivate();
  EXPECT_EQ(driver.Selected(), nullptr);
  EXPECT_TRUE(driver.Tool().IsIdle());
  EXPECT_EQ(driver.State(), ToolState::Default);
  EXPECT_EQ(driver.ObjectCount(), 1U);
  EXPECT_EQ(driver.Sink().Count(wxEVT_ANN_OBJECT_DESELECTED), 1U);
}

TEST(ToolLife, DeactivateDuringADragLeavesNothingBehind) {
  ToolDriver driver;
  driver.UseTool(Types::Pencil);
  driver.Press(10, 10);
  for (int x = 20; x < 80; x += 10) driver.Move(x, 10);
  driver.Tool().DeactivateToolAndControls();
  EXPECT_EQ(driver.State(), ToolState::Default);
  driver.UseTool(Types::Pencil);
  driver.Press(100, 100);
  driver.Move(110, 100);
  driver.Release(120, 100);
  EXPECT_TRUE(driver.Tool().IsEmpty());
}

TEST(ToolLife, ClearAllRemovesEverythingAndSaysSo) {
  ToolDriver driver(10);
  driver.DrawShape({20, 20}, {120, 80});
  driver.DrawArrow({200, 20}, {300, 80});
  driver.Tool().Deactivate();
  driver.Sink().Pump();
  driver.Sink().Clear();
  driver.Tool().ClearAllAnnotations();
  EXPECT_TRUE(driver.Tool().IsEmpty());
  EXPECT_EQ(driver.Sink().Types(),
            (EventTypes{wxEVT_ANN_OBJECT_DESELECTED, wxEVT_ANN_FRAME_RANGE_CHANGED,
                        wxEVT_ANN_JSON_CHANGED}));
}

TEST(ToolSelection, NewObjectGoesToTheFrontAndIsSelected) {
  ToolDriver driver;
  driver.DrawShape({20, 20}, {120, 80});
  IAnnotationObject *const first = driver.Object();
  EXPECT_EQ(driver.Selected(), first);
  driver.UseTool(Types::Arrow);
  driver.Drag({200, 20}, {300, 80});
  EXPECT_NE(driver.ObjectAs<AnnArrow>(0), nullptr);
  EXPECT_EQ(driver.Object(1), first);
  EXPECT_EQ(driver.Selected(), driver.Object(0));
  EXPECT_FALSE(first->IsSelected());
  EXPECT_TRUE(driver.Object(0)->IsSelected());
  EXPECT_FALSE(driver.Object(0)->IsFocused());
}

/// An arrow in front of a rectangle, on a video of ten frames; nothing is selected.
void DrawTwo(ToolDriver &driver) {
  driver.DrawShape({20, 20}, {120, 80});
  driver.DrawArrow({200, 20}, {300, 80});
  driver.Tool().Deactivate();
  driver.Sink().Pump();
  driver.Sink().Clear();
}

TEST(ToolSelection, HostSelectsAnObjectByItsPlace) {
  ToolDriver driver(10);
  DrawTwo(driver);
  std::string const text = driver.DocumentText();
  driver.Tool().SelectObject(1);
  EXPECT_EQ(driver.Selected(), driver.Object(1));
  EXPECT_TRUE(driver.Object(1)->IsSelected());
  EXPECT_EQ(driver.State(), ToolState::Selected);
  EXPECT_EQ(driver.Tool().GetActiveTool()->GetModeId(), Types::Shape);
  auto const *selected = driver.Sink().Last(wxEVT_ANN_OBJECT_SELECTED);
  ASSERT_NE(selected, nullptr);
  EXPECT_FALSE(selected->IsNew());
  auto const *ranges = driver.Sink().Last(wxEVT_ANN_FRAME_RANGE_CHANGED);
  ASSERT_NE(ranges, nullptr);
  EXPECT_EQ(ranges->SelectedIndex(), 1);
  EXPECT_EQ(driver.DocumentText(), text);
}

TEST(ToolSelection, HostSelectsAnotherObject) {
  ToolDriver driver(10);
  DrawTwo(driver);
  driver.Tool().SelectObject(1);
  driver.Tool().SelectObject(0);
  EXPECT_EQ(driver.Selected(), driver.Object(0));
  EXPECT_FALSE(driver.Object(1)->IsSelected());
  EXPECT_EQ(driver.Sink().Count(wxEVT_ANN_OBJECT_SELECTED), 2U);
  EXPECT_EQ(driver.Sink().Count(wxEVT_ANN_OBJECT_DESELECTED), 0U);
  driver.Tool().SelectObject(0);
  EXPECT_EQ(driver.Sink().Count(wxEVT_ANN_OBJECT_SELECTED), 2U);
}

TEST(ToolSelection, WhatTheHostSelectedCanBeDragged) {
  ToolDriver driver(10);
  DrawTwo(driver);
  driver.Tool().SelectObject(1);
  driver.Drag({45, 22}, {55, 32});
  EXPECT_EQ(driver.ObjectAs<AnnShape>(1)->GetCoordinates().CoordsAt(0).m_topLeft,
            wxPoint2DDouble(30, 30));
}

TEST(ToolSelection, HostCannotSelectWhatIsNotThere) {
  ToolDriver driver(10);
  driver.Tool().SelectObject(0);
  EXPECT_EQ(driver.Selected(), nullptr);
  DrawTwo(driver);
  driver.Tool().SelectObject(2);
  EXPECT_EQ(driver.Selected(), nullptr);
  driver.GoToFrame(3);  // the objects are in frame 0 alone
  driver.Tool().SelectObject(0);
  EXPECT_EQ(driver.Selected(), nullptr);
  driver.GoToFrame(0);
  driver.Tool().SetObjectsVisible(false);
  driver.Tool().SelectObject(0);
  EXPECT_EQ(driver.Selected(), nullptr);
  EXPECT_EQ(driver.Sink().Count(wxEVT_ANN_OBJECT_SELECTED), 0U);
  EXPECT_EQ(driver.State(), ToolState::Default);
}

TEST(ToolSelection, SelectingByTheHostEndsADragWithWhatItDid) {
  ToolDriver driver(10);
  DrawTwo(driver);
  driver.Tool().SelectObject(1);
  driver.Press(45, 22);
  driver.Move(55, 32);
  driver.Tool().SelectObject(0);
  EXPECT_EQ(driver.State(), ToolState::Selected);
  driver.Move(400, 400);
  EXPECT_EQ(driver.ObjectAs<AnnShape>(1)->GetCoordinates().CoordsAt(0).m_topLeft,
            wxPoint2DDouble(30, 30));
  wxJSONValue const shape = driver.Tool().GetJSON().ItemAt("Objects").ItemAt(1);
  EXPECT_EQ(shape.ItemAt("Coordinates").ItemAt(0).ItemAt("TopLeft").ItemAt(0).AsDouble(), 30.0);
}

TEST(ToolSelection, SelectingByTheHostDropsWhatIsBeingDrawn) {
  ToolDriver driver(10);
  DrawTwo(driver);
  driver.UseTool(Types::Pencil);
  driver.Press(10, 200);
  for (int x = 20; x < 80; x += 10) driver.Move(x, 200);
  driver.Tool().SelectObject(1);
  driver.Release(80, 200);
  EXPECT_EQ(driver.ObjectCount(), 2U);
  EXPECT_EQ(driver.Selected(), driver.Object(1));
}

TEST(ToolSelection, NewShapeOnAVideoPostsItsEventsInOrder) {
  ToolDriver driver(10);
  driver.GoToFrame(4);
  driver.UseTool(Types::Shape);
  driver.Drag({20, 20}, {120, 80});
  EXPECT_EQ(driver.Sink().Types(),
            (EventTypes{wxEVT_ANN_STARTED, wxEVT_ANN_OBJECT_SELECTED, wxEVT_ANN_FRAME_RANGE_CHANGED,
                        wxEVT_ANN_JSON_CHANGED}));
  EXPECT_EQ(driver.Sink().Last(wxEVT_ANN_STARTED)->FrameIndex(), 4);
  EXPECT_EQ(driver.Sink().Last(wxEVT_ANN_OBJECT_SELECTED)->FrameIndex(), 4);
  EXPECT_TRUE(driver.Sink().Last(wxEVT_ANN_OBJECT_SELECTED)->IsNew());
  auto const *ranges = driver.Sink().Last(wxEVT_ANN_FRAME_RANGE_CHANGED);
  ASSERT_EQ(ranges->FrameRanges().size(), 1U);
  EXPECT_EQ(ranges->FrameRanges()[0], std::make_tuple(std::int64_t{4}, std::int64_t{4}, *wxRED));
  EXPECT_EQ(ranges->SelectedIndex(), 0);
}

TEST(ToolSelection, StillPictureHasNoStartedEvent) {
  ToolDriver driver(1);
  driver.DrawShape({20, 20}, {120, 80});
  EXPECT_EQ(driver.ObjectCount(), 1U);
  EXPECT_EQ(driver.Sink().Count(wxEVT_ANN_STARTED), 0U);
}

/// A tool with a hollow rectangle at (20, 20) to (120, 80), nothing selected, in the idle mode.
class ToolMouse : public testing::Test {
protected:
  ToolMouse() {
    m_driver.DrawShape({20, 20}, {120, 80});
    m_driver.Tool().Deactivate();
    m_driver.Sink().Pump();
    m_driver.Sink().Clear();
  }

  ToolDriver m_driver;
};

TEST_F(ToolMouse, ClickOnAnObjectSelectsItAndItsTool) {
  EXPECT_EQ(m_driver.Move(20, 60), wxCURSOR_SIZING);
  EXPECT_EQ(m_driver.State(), ToolState::OverObject);
  EXPECT_TRUE(m_driver.Object()->IsFocused());
  m_driver.Press(45, 22);
  EXPECT_EQ(m_driver.State(), ToolState::Moving);
  EXPECT_EQ(m_driver.Selected(), m_driver.Object());
  EXPECT_FALSE(m_driver.Object()->IsFocused());
  EXPECT_EQ(m_driver.Tool().GetActiveTool()->GetModeId(), Types::Shape);
  auto const *selected = m_driver.Sink().Last(wxEVT_ANN_OBJECT_SELECTED);
  ASSERT_NE(selected, nullptr);
  EXPECT_FALSE(selected->IsNew());
  m_driver.Release(45, 22);
  EXPECT_EQ(m_driver.State(), ToolState::Selected);
}

TEST_F(ToolMouse, MotionOffAnObjectLeavesIt) {
  m_driver.Move(20, 60);
  EXPECT_EQ(m_driver.Move(5, 5), wxCURSOR_CROSS);
  EXPECT_EQ(m_driver.State(), ToolState::Default);
  EXPECT_FALSE(m_driver.Object()->IsFocused());
}

TEST_F(ToolMouse, PressOnAHandleResizesAndReleaseStaysOnIt) {
  m_driver.Move(20, 60);
  m_driver.Press(45, 22);
  m_driver.Release(45, 22);
  ASSERT_EQ(m_driver.State(), ToolState::Selected);
  EXPECT_EQ(m_driver.Move(120, 80), wxCURSOR_SIZENWSE);
  EXPECT_EQ(m_driver.State(), ToolState::AtResizePoint);
  m_driver.Press(120, 80);
  EXPECT_EQ(m_driver.State(), ToolState::Resizing);
  m_driver.Move(220, 180);
  EXPECT_EQ(m_driver.Release(220, 180), wxCURSOR_SIZENWSE);
  EXPECT_EQ(m_driver.State(), ToolState::AtResizePoint);
  EXPECT_EQ(m_driver.Object()->GetContainingRect(), wxRect(0, 0, 220, 180));
  EXPECT_EQ(m_driver.Move(170, 130), wxCURSOR_CROSS);
  EXPECT_EQ(m_driver.State(), ToolState::Selected);
}

TEST_F(ToolMouse, RotationHandleTurnsTheShape) {
  m_driver.Move(20, 60);
  m_driver.Press(45, 22);
  m_driver.Release(45, 22);
  EXPECT_EQ(m_driver.Move(70, -10), wxCURSOR_QUESTION_ARROW);
  EXPECT_EQ(m_driver.State(), ToolState::AtRotationPoint);
  m_driver.Press(70, -10);
  EXPECT_EQ(m_driver.State(), ToolState::Rotating);
  m_driver.Move(170, 50);
  m_driver.Release(170, 50);
  EXPECT_EQ(m_driver.State(), ToolState::Selected);
  EXPECT_NEAR(m_driver.ObjectAs<AnnShape>()->GetRotationAngle(), 1.5707963267948966, 1e-12);
  wxJSONValue const run =
      m_driver.Tool().GetJSON().ItemAt("Objects").ItemAt(0).ItemAt("Coordinates").ItemAt(0);
  EXPECT_NEAR(run.ItemAt("TopLeft").ItemAt(0).AsDouble(), 100.0, 1e-9);
  EXPECT_NEAR(run.ItemAt("TopLeft").ItemAt(1).AsDouble(), 0.0, 1e-9);
}

TEST_F(ToolMouse, MotionOffTheRotationHandleReturnsToSelected) {
  m_driver.Move(20, 60);
  m_driver.Press(45, 22);
  m_driver.Release(45, 22);
  m_driver.Move(70, -10);
  m_driver.Move(300, 300);
  EXPECT_EQ(m_driver.State(), ToolState::Selected);
}

TEST_F(ToolMouse, TapOnTheRotationHandleWithoutAMotionKeepsTheForm) {
  m_driver.Move(20, 60);
  m_driver.Press(45, 22);
  m_driver.Release(45, 22);
  m_driver.Press(70, -10);
  EXPECT_EQ(m_driver.State(), ToolState::Rotating);
  m_driver.Move(170, 50);
  m_driver.Release(170, 50);
  AnnShapePoints const &record = m_driver.ObjectAs<AnnShape>()->GetCoordinates().Coords();
  EXPECT_NEAR(record.m_topLeft.GetDistance(record.m_topRight), 100.0, 1e-9);
  EXPECT_NEAR(record.m_topLeft.GetDistance(record.m_bottomLeft), 60.0, 1e-9);
}

TEST_F(ToolMouse, HiddenAnnotationsTakeNoMouse) {
  m_driver.Move(20, 60);
  m_driver.Tool().SetObjectsVisible(false);
  EXPECT_FALSE(m_driver.Tool().IsVisible());
  EXPECT_EQ(m_driver.State(), ToolState::Default);
  m_driver.SetScale(4.0);
  EXPECT_EQ(m_driver.Move(20, 60), wxCURSOR_ARROW);
  EXPECT_EQ(m_driver.Press(20, 60), wxCURSOR_ARROW);
  EXPECT_EQ(m_driver.State(), ToolState::Default);
  EXPECT_FALSE(m_driver.Object()->IsFocused());
  // The scale was taken all the same.
  EXPECT_EQ(m_driver.Tool().GetToolModes().shape->GetToolScale(), 4.0);
  m_driver.Tool().SetObjectsVisible(true);
  m_driver.Move(20, 60);
  EXPECT_EQ(m_driver.State(), ToolState::OverObject);
}

TEST_F(ToolMouse, DisabledMouseDoesNothingButKeepsTheView) {
  m_driver.Tool().EnableMouse(false);
  m_driver.SetScale(3.0);
  m_driver.Move(20, 60);
  m_driver.Press(20, 60);
  EXPECT_EQ(m_driver.State(), ToolState::Default);
  EXPECT_EQ(m_driver.Tool().GetToolModes().shape->GetToolScale(), 3.0);
  m_driver.Tool().EnableMouse(true);
  m_driver.Move(20, 60);
  EXPECT_EQ(m_driver.State(), ToolState::OverObject);
}

TEST_F(ToolMouse, PressInTheIdleModeDrawsNothing) {
  m_driver.Press(300, 300);
  EXPECT_EQ(m_driver.State(), ToolState::Default);
  m_driver.Move(400, 400);
  m_driver.Release(400, 400);
  EXPECT_EQ(m_driver.ObjectCount(), 1U);
  EXPECT_TRUE(m_driver.Sink().Types().empty());
}

TEST_F(ToolMouse, SecondObjectIsHighlightedWhileOneIsSelectedAndAPressSelectsIt) {
  m_driver.DrawArrow({200, 200}, {300, 200});
  IAnnotationObject *const arrow = m_driver.Object(0);
  IAnnotationObject *const shape = m_driver.Object(1);
  ASSERT_EQ(m_driver.Selected(), arrow);
  m_driver.Move(20, 60);
  EXPECT_EQ(m_driver.State(), ToolState::Selected);
  EXPECT_TRUE(shape->IsFocused());
  EXPECT_EQ(m_driver.Selected(), arrow);
  m_driver.Sink().Pump();
  m_driver.Sink().Clear();
  m_driver.Press(45, 22);
  EXPECT_EQ(m_driver.Selected(), shape);
  EXPECT_EQ(m_driver.State(), ToolState::Moving);
  EXPECT_EQ(m_driver.Sink().Count(wxEVT_ANN_OBJECT_SELECTED), 1U);
  EXPECT_EQ(m_driver.Sink().Count(wxEVT_ANN_OBJECT_DESELECTED), 0U);
}

TEST_F(ToolMouse, ObjectThatDisappearsIsDeletedWhenAnotherIsSelected) {
  m_driver.DrawArrow({200, 200}, {300, 200});
  m_driver.Move(300, 200);
  m_driver.Press(300, 200);
  m_driver.Move(200, 200);
  m_driver.Release(200, 200);
  ASSERT_TRUE(m_driver.Object()->WouldDisappear());
  m_driver.Move(20, 60);
  m_driver.Move(20, 61);
  m_driver.Sink().Pump();
  m_driver.Sink().Clear();
  m_driver.Press(45, 22);
  EXPECT_EQ(m_driver.ObjectCount(), 1U);
  EXPECT_NE(m_driver.ObjectAs<AnnShape>(), nullptr);
  EXPECT_EQ(m_driver.Selected(), m_driver.Object());
  EXPECT_EQ(m_driver.Sink().Count(wxEVT_ANN_OBJECT_DESELECTED), 0U);
}

TEST_F(ToolMouse, SetActiveToolIgnoresWhatIsNoDrawingTool) {
  m_driver.UseTool(Types::Arrow);
  m_driver.UseTool(Types::General);
  EXPECT_EQ(m_driver.Tool().GetActiveTool()->GetModeId(), Types::Arrow);
  m_driver.UseTool(static_cast<Types>(0));
  m_driver.UseTool(static_cast<Types>(99));
  EXPECT_EQ(m_driver.Tool().GetActiveTool()->GetModeId(), Types::Arrow);
  m_driver.Tool().SetActiveTool(m_driver.Tool().GetToolModes().general);
  EXPECT_EQ(m_driver.Tool().GetActiveTool()->GetModeId(), Types::General);
}

TEST_F(ToolMouse, RightReleaseOnAnObjectSelectsIt) {
  m_driver.Move(20, 60);
  m_driver.RightRelease(20, 60);
  EXPECT_EQ(m_driver.Selected(), m_driver.Object());
  EXPECT_EQ(m_driver.State(), ToolState::Selected);
}

TEST_F(ToolMouse, EventsOfOtherKindsChangeNothing) {
  wxMouseEvent wheel(wxEVT_MOUSEWHEEL);
  m_driver.Tool().ProcessMouseEvent({20, 60}, wheel, 1.0, {0, 0});
  EXPECT_EQ(m_driver.State(), ToolState::Default);
  wxMouseEvent middle(wxEVT_MIDDLE_DOWN);
  m_driver.Tool().ProcessMouseEvent({20, 60}, middle, 1.0, {0, 0});
  EXPECT_EQ(m_driver.State(), ToolState::Default);
}

/// The same on a video of ten frames.
class ToolMouseOnVideo : public testing::Test {
protected:
  ToolMouseOnVideo() : m_driver(10) {
    m_driver.DrawShape({20, 20}, {120, 80});
    m_driver.Tool().Deactivate();
  }

  ToolDriver m_driver;
};

TEST_F(ToolMouseOnVideo, ObjectOfAnotherFrameIsNotHit) {
  m_driver.GoToFrame(3);
  EXPECT_EQ(m_driver.Move(20, 60), wxCURSOR_CROSS);
  EXPECT_EQ(m_driver.State(), ToolState::Default);
  EXPECT_FALSE(m_driver.Tool().HasAnnotation(3));
  EXPECT_TRUE(m_driver.Tool().HasAnnotation(0));
}

TEST_F(ToolMouseOnVideo, SelectedObjectStaysUsableOutsideItsRange) {
  m_driver.Move(20, 60);
  m_driver.Press(45, 22);
  m_driver.Release(45, 22);
  m_driver.GoToFrame(5);
  m_driver.Tool().SetSelectedsAnnotationEnd(2);
  ASSERT_FALSE(m_driver.Object()->IsPresentInFrame(5));
  EXPECT_EQ(m_driver.Move(45, 22), wxCURSOR_SIZING);
  m_driver.Press(45, 22);
  m_driver.Move(55, 32);
  m_driver.Release(55, 32);
  // The edit brings the object to the frame where it was made.
  EXPECT_TRUE(m_driver.Object()->IsPresentInFrame(5));
  EXPECT_EQ(m_driver.ObjectAs<AnnShape>()->GetCoordinates().CoordsAt(5).m_topLeft,
            wxPoint2DDouble(30, 30));
  EXPECT_EQ(m_driver.ObjectAs<AnnShape>()->GetCoordinates().CoordsAt(2).m_topLeft,
            wxPoint2DDouble(20, 20));
  m_driver.Tool().Deactivate();
  EXPECT_EQ(m_driver.ObjectCount(), 1U);
}

TEST_F(ToolMouseOnVideo, ObjectThatEndedUnderThePointerIsNotSelected) {
  m_driver.Move(20, 60);
  ASSERT_EQ(m_driver.State(), ToolState::OverObject);
  m_driver.GoToFrame(3);
  m_driver.Press(20, 60);
  EXPECT_EQ(m_driver.Selected(), nullptr);
  EXPECT_EQ(m_driver.State(), ToolState::Default);
}

TEST(ToolStates, MoveSelectedMovesInThisFrameAndTellsTheDocument) {
  ToolDriver driver(10);
  driver.DrawShape({20, 30}, {60, 70});
  std::string const before = driver.DocumentText();
  driver.Tool().MoveSelected({-10, 1});
  auto const corner = [&] {
    return driver.ObjectAs<AnnShape>()->GetCoordinates().Coords().m_topLeft;
  };
  EXPECT_EQ(corner(), wxPoint2DDouble(10.0, 31.0));
  EXPECT_NE(driver.DocumentText(), before);
  EXPECT_EQ(driver.State(), ToolState::Selected);
  driver.Tool().Deactivate();
  driver.Tool().MoveSelected({5, 5});
  EXPECT_EQ(corner(), wxPoint2DDouble(10.0, 31.0));
}

}  // namespace

}  // namespace framenote::test
