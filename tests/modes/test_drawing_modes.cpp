// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "framenote/annotation_events.h"
#include "modes/ann_arrow_tool_mode.h"
#include "modes/ann_pencil_tool_mode.h"
#include "modes/ann_shape_tool_mode.h"
#include "objects/ann_arrow.h"
#include "objects/ann_pencil.h"
#include "objects/ann_shape.h"
#include "support/tool_driver.h"

namespace framenote::test {

namespace {

class DrawingMode : public testing::Test {
protected:
  AnnShapePoints const &ShapeRecord() {
    return m_driver.ObjectAs<AnnShape>()->GetCoordinates().Coords();
  }

  ToolDriver m_driver;
};

TEST_F(DrawingMode, RecordsStartWithTheirDefaults) {
  ToolModes const &modes = m_driver.Tool().GetToolModes();
  EXPECT_EQ(modes.shape->m_properties->GetShape(), AnnShapeProperties::Rectangle);
  EXPECT_EQ(modes.shape->m_properties->GetBorderColor(), *wxRED);
  EXPECT_EQ(modes.shape->m_properties->GetFillColor(), wxColour(255, 255, 255, 0));
  EXPECT_EQ(modes.shape->m_properties->GetThickness(), 5);
  EXPECT_EQ(modes.arrow->m_properties->GetHead(), AnnArrowProperties::Arrow);
  EXPECT_EQ(modes.arrow->m_properties->GetColor(), *wxRED);
  EXPECT_EQ(modes.arrow->m_properties->GetThickness(), 3);
  EXPECT_EQ(modes.pencil->m_properties->GetColor(), *wxRED);
  EXPECT_EQ(modes.pencil->m_properties->GetThickness(), 3);
}

TEST_F(DrawingMode, ShapeSpansThePressAndTheRelease) {
  m_driver.DrawShape({120, 20}, {20, 80});
  EXPECT_EQ(ShapeRecord().m_topLeft, wxPoint2DDouble(20, 20));
  EXPECT_EQ(ShapeRecord().m_bottomRight, wxPoint2DDouble(120, 80));
  EXPECT_EQ(m_driver.State(), ToolState::Selected);
}

TEST_F(DrawingMode, ClickMakesNoShape) {
  m_driver.UseTool(Types::Shape);
  m_driver.Press(50, 50);
  EXPECT_EQ(m_driver.State(), ToolState::Drawing);
  m_driver.Release(90, 90);
  EXPECT_TRUE(m_driver.Tool().IsEmpty());
  EXPECT_EQ(m_driver.State(), ToolState::Default);
}

TEST_F(DrawingMode, ShapeIsMeasuredAtTheLastMotion) {
  m_driver.UseTool(Types::Shape);
  m_driver.Press(50, 50);
  m_driver.Move(52, 89);
  m_driver.Release(200, 200);
  EXPECT_TRUE(m_driver.Tool().IsEmpty());
  // Four pixels on make five with both ends.
  m_driver.Press(50, 50);
  m_driver.Move(54, 54);
  m_driver.Release(52, 51);
  ASSERT_EQ(m_driver.ObjectCount(), 1U);
  EXPECT_EQ(ShapeRecord().m_topLeft, wxPoint2DDouble(50, 50));
  EXPECT_EQ(ShapeRecord().m_bottomRight, wxPoint2DDouble(52, 51));
}

TEST_F(DrawingMode, ShiftAloneMakesASquare) {
  m_driver.SetModifiers(wxMOD_SHIFT);
  m_driver.DrawShape({20, 20}, {120, 80});
  EXPECT_EQ(ShapeRecord().m_bottomRight, wxPoint2DDouble(80, 80));
  m_driver.Tool().ClearAllAnnotations();
  m_driver.SetModifiers(wxMOD_SHIFT | wxMOD_CONTROL);
  m_driver.DrawShape({20, 20}, {120, 80});
  EXPECT_EQ(ShapeRecord().m_bottomRight, wxPoint2DDouble(120, 80));
  m_driver.Tool().ClearAllAnnotations();
  m_driver.SetModifiers(wxMOD_SHIFT | wxMOD_ALT);
  m_driver.DrawShape({20, 20}, {120, 80});
  EXPECT_EQ(ShapeRecord().m_bottomRight, wxPoint2DDouble(120, 80));
}

TEST_F(DrawingMode, ShiftKeepsTheRatioOfAResize) {
  m_driver.DrawShape({20, 20}, {120, 70});
  m_driver.Move(120, 70);
  m_driver.SetModifiers(wxMOD_SHIFT);
  m_driver.Press(120, 70);
  m_driver.Move(125, 120);
  m_driver.Release(125, 120);
  EXPECT_EQ(ShapeRecord().m_bottomRight, wxPoint2DDouble(220, 120));
}

TEST_F(DrawingMode, ResizePastTheOtherSideIsPutInOrderAtTheRelease) {
  m_driver.DrawShape({20, 20}, {120, 80});
  m_driver.Move(120, 50);
  m_driver.Press(120, 50);
  m_driver.Move(-80, 50);
  EXPECT_EQ(ShapeRecord().m_topRight.m_x, -80.0);
  m_driver.Release(-80, 50);
  EXPECT_NEAR(ShapeRecord().m_topLeft.m_x, -80.0, 1e-9);
  EXPECT_NEAR(ShapeRecord().m_topLeft.m_y, 20.0, 1e-9);
  EXPECT_NEAR(ShapeRecord().m_topRight.m_x, 20.0, 1e-9);
  EXPECT_EQ(m_driver.State(), ToolState::AtResizePoint);
}

TEST_F(DrawingMode, ModeOfPicturesResizesAShapeThatIsStillSelected) {
  m_driver.DrawShape({20, 60}, {120, 120});
  m_driver.UseTool(Types::Image);
  m_driver.Move(120, 120);
  m_driver.Press(120, 120);
  ASSERT_EQ(m_driver.State(), ToolState::Resizing);
  m_driver.Move(140, 150);
  m_driver.Release(140, 150);
  EXPECT_EQ(ShapeRecord().m_topLeft, wxPoint2DDouble(20, 60));
  EXPECT_EQ(ShapeRecord().m_bottomRight, wxPoint2DDouble(140, 150));
  EXPECT_EQ(m_driver.State(), ToolState::AtResizePoint);
}

TEST_F(DrawingMode, ModeOfStrokesResizesNothing) {
  m_driver.DrawShape({20, 60}, {120, 120});
  m_driver.UseTool(Types::Pencil);
  m_driver.Move(120, 120);
  m_driver.Press(120, 120);
  ASSERT_EQ(m_driver.State(), ToolState::Resizing);
  m_driver.Move(140, 150);
  EXPECT_EQ(ShapeRecord().m_bottomRight, wxPoint2DDouble(120, 120));
}

TEST_F(DrawingMode, ModesOfLinesTurnNothing) {
  for (Types const mode : {Types::Arrow, Types::Pencil}) {
    m_driver.Tool().ClearAllAnnotations();
    m_driver.DrawShape({20, 60}, {120, 120});
    m_driver.UseTool(mode);
    // 30 above the middle of the top side; a press that a motion goes before does not take it.
    m_driver.Move(70, 30);
    ASSERT_EQ(m_driver.State(), ToolState::AtRotationPoint);
    m_driver.Press(70, 30);
    EXPECT_EQ(m_driver.State(), ToolState::AtRotationPoint);
    // One that comes without a motion does, and nothing turns.
    m_driver.Tool().Deactivate();
    m_driver.Tool().SelectObject(0);
    m_driver.UseTool(mode);
    m_driver.Press(70, 30);
    ASSERT_EQ(m_driver.State(), ToolState::Rotating);
    m_driver.Move(200, 90);
    EXPECT_EQ(ShapeRecord().m_topLeft, wxPoint2DDouble(20, 60));
  }
}

TEST_F(DrawingMode, ShapeLooksAsItsToolDid) {
  auto const look = m_driver.Tool().GetToolModes().shape->m_properties;
  look->SetShape(AnnShapeProperties::Ellipse);
  look->SetThickness(2);
  m_driver.DrawShape({20, 20}, {120, 80});
  EXPECT_EQ(m_driver.ObjectAs<AnnShape>()->GetProperties().GetShape(), AnnShapeProperties::Ellipse);
  EXPECT_EQ(m_driver.ObjectAs<AnnShape>()->GetProperties().GetThickness(), 2);
}

TEST_F(DrawingMode, ArrowRunsFromThePressToTheRelease) {
  m_driver.DrawArrow({20, 30}, {120, 80});
  AnnArrowPoints const &record = m_driver.ObjectAs<AnnArrow>()->GetCoordinates().Coords();
  EXPECT_EQ(record.m_tail, wxPoint2DInt(20, 30));
  EXPECT_EQ(record.m_head, wxPoint2DInt(120, 80));
  EXPECT_EQ(m_driver.State(), ToolState::Selected);
}

TEST_F(DrawingMode, ArrowIsAtLeastFivePixelsLong) {
  m_driver.DrawArrow({20, 30}, {24, 32});  // sqrt(20), about 4.47
  EXPECT_TRUE(m_driver.Tool().IsEmpty());
  EXPECT_EQ(m_driver.State(), ToolState::Default);
  m_driver.DrawArrow({20, 30}, {23, 34});  // exactly 5
  EXPECT_EQ(m_driver.ObjectCount(), 1U);
}

TEST_F(DrawingMode, ArrowNeedsNoMotion) {
  m_driver.UseTool(Types::Arrow);
  m_driver.Press(20, 30);
  m_driver.Release(120, 30);
  EXPECT_EQ(m_driver.ObjectCount(), 1U);
}

TEST_F(DrawingMode, ArrowsEndIsDragged) {
  m_driver.DrawArrow({20, 30}, {120, 30});
  m_driver.Move(20, 30);
  EXPECT_EQ(m_driver.State(), ToolState::AtResizePoint);
  m_driver.Press(20, 30);
  m_driver.Move(40, 90);
  m_driver.Release(40, 90);
  EXPECT_EQ(m_driver.State(), ToolState::AtResizePoint);
  EXPECT_EQ(m_driver.ObjectAs<AnnArrow>()->GetCoordinates().Coords().m_tail, wxPoint2DInt(40, 90));
  wxJSONValue const run =
      m_driver.Tool().GetJSON().ItemAt("Objects").ItemAt(0).ItemAt("Coordinates").ItemAt(0);
  EXPECT_EQ(run.ItemAt("Tail").ItemAt(1).AsInt(), 90);
}

TEST_F(DrawingMode, StrokeHasThePressAndTheMotionsButNotTheRelease) {
  m_driver.UseTool(Types::Pencil);
  m_driver.Press(10, 10);
  for (int x : {20, 30, 30, 50}) m_driver.Move(x, 12);
  m_driver.Release(99, 99);
  auto const &path = m_driver.ObjectAs<AnnPencil>()->GetCoordinates().Coords().m_path;
  ASSERT_EQ(path.size(), 5U);
  EXPECT_EQ(path[0], wxPoint2DInt(10, 10));
  EXPECT_EQ(path[2], wxPoint2DInt(30, 12));
  EXPECT_EQ(path[3], wxPoint2DInt(30, 12));
  EXPECT_EQ(path[4], wxPoint2DInt(50, 12));
}

TEST_F(DrawingMode, StrokeNeedsFivePointsAndNoLength) {
  m_driver.DrawStroke({{10, 10}, {20, 10}, {30, 10}, {40, 10}});
  EXPECT_TRUE(m_driver.Tool().IsEmpty());
  m_driver.DrawStroke({{10, 10}, {10, 10}, {10, 10}, {10, 10}, {10, 10}});
  EXPECT_EQ(m_driver.ObjectCount(), 1U);
}

TEST_F(DrawingMode, DroppedStrokeLeavesNoPointsForTheNext) {
  m_driver.DrawStroke({{10, 10}, {20, 10}, {30, 10}, {40, 10}});
  m_driver.DrawStroke({{100, 10}, {120, 10}, {130, 10}, {140, 10}});
  EXPECT_TRUE(m_driver.Tool().IsEmpty());
  m_driver.DrawStroke({{100, 10}, {120, 10}, {130, 10}, {140, 10}, {150, 10}});
  EXPECT_EQ(m_driver.ObjectAs<AnnPencil>()->GetCoordinates().Coords().m_path.size(), 5U);
}

TEST_F(DrawingMode, DroppedDragOverAnObjectHoversIt) {
  m_driver.Tool().GetToolModes().shape->m_properties->SetFillColor(*wxGREEN);
  m_driver.DrawShape({20, 20}, {120, 80});
  m_driver.Tool().Deactivate();
  m_driver.UseTool(Types::Arrow);
  m_driver.Press(200, 200);
  m_driver.Release(203, 200);
  EXPECT_EQ(m_driver.State(), ToolState::Default);
  m_driver.UseTool(Types::Shape);
  m_driver.Press(70, 50);
  m_driver.Move(71, 51);
  m_driver.Release(71, 51);
  EXPECT_EQ(m_driver.State(), ToolState::OverObject);
  EXPECT_EQ(m_driver.ObjectCount(), 1U);
}

TEST_F(DrawingMode, PropertiesReachTheSelectedObjectAndTheDocument) {
  m_driver.DrawArrow({20, 30}, {120, 30});
  m_driver.Sink().Pump();
  m_driver.Sink().Clear();
  ToolModes const &modes = m_driver.Tool().GetToolModes();
  modes.arrow->m_properties->SetThickness(12);
  modes.arrow->ApplyProperties();
  EXPECT_EQ(m_driver.ObjectAs<AnnArrow>()->GetProperties().GetThickness(), 12);
  EXPECT_EQ(m_driver.Sink().Count(wxEVT_ANN_JSON_CHANGED), 1U);
  wxJSONValue const object = m_driver.Tool().GetJSON().ItemAt("Objects").ItemAt(0);
  EXPECT_EQ(object.ItemAt("Properties").ItemAt("Thickness").AsInt(), 12);
}

TEST_F(DrawingMode, PropertiesWithoutASelectionWaitForTheNextObject) {
  m_driver.DrawStroke({{10, 10}, {20, 10}, {30, 10}, {40, 10}, {50, 10}});
  m_driver.Tool().Deactivate();
  m_driver.Sink().Pump();
  m_driver.Sink().Clear();
  ToolModes const &modes = m_driver.Tool().GetToolModes();
  modes.pencil->m_properties->SetThickness(12);
  modes.pencil->ApplyProperties();
  EXPECT_TRUE(m_driver.Sink().Types().empty());
  EXPECT_EQ(m_driver.ObjectAs<AnnPencil>()->GetProperties().GetThickness(), 3);
  m_driver.DrawStroke({{10, 50}, {20, 50}, {30, 50}, {40, 50}, {50, 50}});
  EXPECT_EQ(m_driver.ObjectAs<AnnPencil>()->GetProperties().GetThickness(), 12);
}

TEST(DrawingModeArea, ArrowsAndStrokesGrowItWithTheirLookAndShapesDoNot) {
  ToolDriver driver(1, true);
  driver.DrawArrow({20, 30}, {120, 30});
  EXPECT_EQ(driver.Tool().GetAnnotationArea(), wxRect(0, 0, 120, 35));
  auto const &modes = driver.Tool().GetToolModes();
  modes.arrow->m_properties->SetThickness(20);
  modes.arrow->ApplyProperties();
  EXPECT_EQ(driver.Tool().GetAnnotationArea(), wxRect(0, 0, 120, 60));
}

TEST_F(DrawingMode, ToolChosenWhileAnotherKindIsSelectedLeavesTheSelectionAlone) {
  m_driver.DrawArrow({20, 30}, {120, 30});
  m_driver.Move(120, 30);
  ASSERT_EQ(m_driver.State(), ToolState::AtResizePoint);
  m_driver.UseTool(Types::Shape);
  m_driver.Press(120, 30);
  m_driver.Move(150, 90);
  m_driver.Release(150, 90);
  EXPECT_EQ(m_driver.ObjectAs<AnnArrow>()->GetCoordinates().Coords().m_head, wxPoint2DInt(120, 30));
  m_driver.Tool().Deactivate();
  EXPECT_EQ(m_driver.State(), ToolState::Default);
}

}  // namespace

}  // namespace framenote::test
