// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "modes/ann_general_tool_mode.h"
#include "modes/ann_idle_tool_mode.h"
#include "modes/ann_pencil_tool_mode.h"
#include "modes/ann_shape_tool_mode.h"
#include "objects/ann_shape.h"
#include "painters/pixel_matchers.h"
#include "support/tool_driver.h"

namespace framenote::test {

namespace {

/// A filled rectangle at (20, 20) to (120, 80), and over its right half a second one at (70, 20) to
/// (170, 80); nothing is selected.
class OverlappingObjects : public testing::Test {
protected:
  OverlappingObjects() {
    m_driver.Tool().GetToolModes().shape->m_properties->SetFillColor(*wxGREEN);
    m_driver.DrawShape({20, 20}, {120, 80});
    m_driver.Tool().Deactivate();
    m_driver.DrawShape({170, 80}, {70, 20});
    m_driver.Tool().Deactivate();
    m_driver.Sink().Pump();
    m_driver.Sink().Clear();
  }

  IAnnotationObject &Upper() { return *m_driver.Object(0); }
  IAnnotationObject &Lower() { return *m_driver.Object(1); }

  ToolDriver m_driver;
};

/// With the idle or the general mode, which behave alike.
class ModeWithoutDrawing : public OverlappingObjects, public testing::WithParamInterface<Types> {
protected:
  ModeWithoutDrawing() {
    ToolModes const &modes = m_driver.Tool().GetToolModes();
    if (GetParam() == Types::General) m_driver.Tool().SetActiveTool(modes.general);
  }
};

INSTANTIATE_TEST_SUITE_P(, ModeWithoutDrawing, testing::Values(Types::Idle, Types::General),
                         [](auto const &mode) {
                           return mode.param == Types::Idle ? "Idle" : "General";
                         });

TEST_P(ModeWithoutDrawing, PressOnNothingChangesNothing) {
  m_driver.Press(300, 300);
  m_driver.Move(350, 350);
  m_driver.Release(350, 350);
  EXPECT_EQ(m_driver.State(), ToolState::Default);
  EXPECT_EQ(m_driver.ObjectCount(), 2U);
  EXPECT_EQ(m_driver.Tool().GetActiveTool()->GetModeId(), GetParam());
  EXPECT_TRUE(m_driver.Sink().Types().empty());
}

TEST_P(ModeWithoutDrawing, PressOnNothingEndsASelectionThatOutlivedItsMode) {
  // A host may change the mode while an object is selected.
  m_driver.DrawShape({220, 200}, {260, 240});
  ToolModes const &modes = m_driver.Tool().GetToolModes();
  m_driver.UseTool(Types::Idle);
  if (GetParam() == Types::General) m_driver.Tool().SetActiveTool(modes.general);
  ASSERT_NE(m_driver.Selected(), nullptr);
  m_driver.Press(300, 300);
  EXPECT_EQ(m_driver.Selected(), nullptr);
  EXPECT_EQ(m_driver.State(), ToolState::Default);
  m_driver.Move(350, 350);
  m_driver.Release(350, 350);
  m_driver.Press(300, 300);
  EXPECT_EQ(m_driver.State(), ToolState::Default);
  EXPECT_EQ(m_driver.ObjectCount(), 3U);
}

TEST_P(ModeWithoutDrawing, ObjectsAreHoveredSelectedAndMoved) {
  m_driver.Move(45, 50);
  EXPECT_TRUE(Lower().IsFocused());
  m_driver.Press(45, 50);
  m_driver.Move(45, 60);
  m_driver.Release(45, 60);
  EXPECT_TRUE(Lower().IsSelected());
  EXPECT_EQ(m_driver.ObjectAs<AnnShape>(1)->GetCoordinates().Coords().m_topLeft,
            wxPoint2DDouble(20, 30));
}

TEST_P(ModeWithoutDrawing, DragThatAnotherModeBeganMakesNothing) {
  ToolModes const &modes = m_driver.Tool().GetToolModes();
  m_driver.UseTool(Types::Shape);
  m_driver.Press(220, 200);
  m_driver.Move(260, 240);
  m_driver.UseTool(Types::Idle);
  if (GetParam() == Types::General) m_driver.Tool().SetActiveTool(modes.general);
  m_driver.Move(270, 250);
  m_driver.Release(270, 250);
  EXPECT_EQ(m_driver.ObjectCount(), 2U);
  EXPECT_EQ(m_driver.Selected(), nullptr);
}

TEST_P(ModeWithoutDrawing, HandleOfAnObjectThatIsStillSelectedResizesNothing) {
  m_driver.DrawShape({220, 200}, {260, 240});
  ToolModes const &modes = m_driver.Tool().GetToolModes();
  m_driver.UseTool(Types::Idle);
  if (GetParam() == Types::General) m_driver.Tool().SetActiveTool(modes.general);
  m_driver.Move(260, 240);
  m_driver.Press(260, 240);
  ASSERT_EQ(m_driver.State(), ToolState::Resizing);
  m_driver.Move(300, 300);
  EXPECT_EQ(m_driver.ObjectAs<AnnShape>()->GetCoordinates().Coords().m_bottomRight,
            wxPoint2DDouble(260, 240));
}

TEST_P(ModeWithoutDrawing, ApplyingPropertiesAndPreviewDoNothing) {
  std::unique_ptr<IAnnPainter> none;
  m_driver.Tool().GetActiveTool()->ApplyProperties();
  m_driver.Tool().GetActiveTool()->DrawPreview(none, {0, 0});
  EXPECT_FALSE(m_driver.Tool().GetActiveTool()->IsEditing());
  EXPECT_TRUE(m_driver.Sink().Types().empty());
}

TEST_F(OverlappingObjects, TopObjectGetsTheFocusWhicheverWasEnteredFirst) {
  m_driver.Move(45, 50);
  EXPECT_TRUE(Lower().IsFocused());
  m_driver.Move(95, 50);
  EXPECT_TRUE(Upper().IsFocused());
  EXPECT_FALSE(Lower().IsFocused());
  EXPECT_EQ(m_driver.State(), ToolState::OverObject);
  m_driver.Move(145, 50);
  EXPECT_TRUE(Upper().IsFocused());
  m_driver.Move(95, 50);
  EXPECT_TRUE(Upper().IsFocused());
}

TEST_F(OverlappingObjects, PressOnAnObjectReachedWithoutAMotionMovesTheSelectedOne) {
  m_driver.Move(45, 50);
  m_driver.Press(45, 50);
  m_driver.Release(45, 50);
  ASSERT_TRUE(Lower().IsSelected());
  m_driver.Press(145, 50);
  EXPECT_TRUE(Lower().IsSelected());
  EXPECT_EQ(m_driver.State(), ToolState::Moving);
  m_driver.Move(145, 60);
  m_driver.Release(145, 60);
  EXPECT_EQ(m_driver.ObjectAs<AnnShape>(1)->GetCoordinates().Coords().m_topLeft,
            wxPoint2DDouble(20, 30));
  EXPECT_EQ(m_driver.ObjectAs<AnnShape>(0)->GetCoordinates().Coords().m_topLeft,
            wxPoint2DDouble(70, 20));
}

TEST_F(OverlappingObjects, PressBesideTheSelectionStartsTheNextObjectAtOnce) {
  m_driver.Move(45, 50);
  m_driver.Press(45, 50);
  m_driver.Release(45, 50);
  m_driver.UseTool(Types::Shape);
  m_driver.Press(300, 300);
  EXPECT_EQ(m_driver.Selected(), nullptr);
  EXPECT_EQ(m_driver.State(), ToolState::Drawing);
  m_driver.Move(350, 350);
  m_driver.Release(350, 350);
  EXPECT_EQ(m_driver.ObjectCount(), 3U);
}

TEST_F(OverlappingObjects, MoveIsRelativeToTheLastMotion) {
  m_driver.Move(45, 50);
  m_driver.Press(45, 50);
  for (wxPoint const &p : {wxPoint(60, 70), wxPoint(0, 0), wxPoint(47, 55)})
    m_driver.Move(p.x, p.y);
  m_driver.Release(200, 200);
  EXPECT_EQ(m_driver.ObjectAs<AnnShape>(1)->GetCoordinates().Coords().m_topLeft,
            wxPoint2DDouble(22, 25));
}

TEST_F(OverlappingObjects, HoverOfTheSelectedObjectGivesItNoFocus) {
  m_driver.Move(45, 50);
  m_driver.Press(45, 50);
  m_driver.Release(45, 50);
  m_driver.Move(46, 50);
  EXPECT_FALSE(Lower().IsFocused());
  EXPECT_EQ(m_driver.State(), ToolState::Selected);
}

TEST_F(OverlappingObjects, SelectionIsKeptByItsToolsModeWithTheObjectsLook) {
  auto const look = m_driver.Tool().GetToolModes().shape->m_properties;
  look->SetThickness(33);
  m_driver.Move(45, 50);
  m_driver.Press(45, 50);
  m_driver.Release(45, 50);
  EXPECT_EQ(m_driver.Tool().GetActiveTool()->GetModeId(), Types::Shape);
  EXPECT_EQ(look->GetThickness(), 5);
}

TEST(ModeHelpers, FrameIsTheLowThirtyTwoBits) {
  ToolDriver driver;
  driver.Tool().UpdateMediaInfo({4294967298, 5000000000, false});
  EXPECT_EQ(driver.Tool().GetActiveTool()->GetToolCurrentFrame(), 2);
  EXPECT_EQ(driver.Tool().GetActiveTool()->GetToolFrameCount(), 5000000000);
}

}  // namespace

}  // namespace framenote::test
