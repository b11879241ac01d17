// SPDX-License-Identifier: MIT
// Each mode once with real events on a real window: what the X server delivers, not what a test
// makes up.
#include <gtest/gtest.h>

#include "modes/ann_arrow_tool_mode.h"
#include "modes/ann_general_tool_mode.h"
#include "modes/ann_pencil_tool_mode.h"
#include "modes/ann_shape_tool_mode.h"
#include "modes/canvas_fixture.h"
#include "objects/ann_arrow.h"
#include "objects/ann_pencil.h"
#include "objects/ann_shape.h"

namespace framenote::test {

namespace {

using ModesOnAWindow = CanvasTest;

TEST_F(ModesOnAWindow, ShapeIsDrawnResizedAndTurned) {
  m_driver.UseTool(Types::Shape);
  Drag({{40, 60}, {70, 80}, {100, 90}});
  ASSERT_EQ(m_driver.ObjectCount(), 1U);
  auto const corner = [this] {
    return m_driver.ObjectAs<AnnShape>()->GetCoordinates().Coords().m_bottomRight;
  };
  EXPECT_EQ(corner(), wxPoint2DDouble(100, 90));
  Drag({{100, 90}, {110, 95}, {120, 110}});
  EXPECT_EQ(corner(), wxPoint2DDouble(120, 110));
  // The handle is 30 screen pixels above the middle of the top: (80, 60 - 15).
  Drag({{80, 45}, {120, 60}, {130, 85}});
  EXPECT_NEAR(m_driver.ObjectAs<AnnShape>()->GetRotationAngle(), 1.5707963267948966, 1e-9);
}

TEST_F(ModesOnAWindow, ArrowIsDrawnAndItsEndDragged) {
  m_driver.UseTool(Types::Arrow);
  Drag({{40, 60}, {70, 80}, {140, 90}});
  ASSERT_EQ(m_driver.ObjectCount(), 1U);
  Drag({{40, 60}, {50, 70}, {60, 120}});
  AnnArrowPoints const &record = m_driver.ObjectAs<AnnArrow>()->GetCoordinates().Coords();
  EXPECT_EQ(record.m_head, wxPoint2DInt(140, 90));
  EXPECT_EQ(record.m_tail, wxPoint2DInt(60, 120));
}

TEST_F(ModesOnAWindow, StrokeIsDrawnAndMoved) {
  m_driver.UseTool(Types::Pencil);
  Drag({{40, 60}, {60, 60}, {80, 60}, {100, 70}, {120, 70}});
  ASSERT_EQ(m_driver.ObjectCount(), 1U);
  EXPECT_EQ(m_driver.ObjectAs<AnnPencil>()->GetCoordinates().Coords().m_path.size(), 5U);
  Drag({{60, 60}, {65, 70}, {70, 80}});
  EXPECT_EQ(m_driver.ObjectAs<AnnPencil>()->GetCoordinates().Coords().m_path.front(),
            wxPoint2DInt(50, 80));
}

TEST_F(ModesOnAWindow, IdleAndGeneralSelectAndMoveButDrawNothing) {
  m_driver.Tool().GetToolModes().shape->m_properties->SetFillColor(*wxGREEN);
  m_driver.UseTool(Types::Shape);
  Drag({{40, 60}, {70, 80}, {100, 120}});
  int left = 40;
  for (bool const isGeneral : {false, true}) {
    m_driver.Tool().Deactivate();
    if (isGeneral) m_driver.Tool().SetActiveTool(m_driver.Tool().GetToolModes().general);
    Drag({{200, 30}, {210, 40}, {220, 50}});
    EXPECT_EQ(m_driver.ObjectCount(), 1U);
    EXPECT_EQ(m_driver.Selected(), nullptr);
    Drag({{left + 30, 90}, {left + 35, 90}, {left + 50, 90}});
    left += 20;
    EXPECT_NE(m_driver.Selected(), nullptr);
    EXPECT_EQ(m_driver.ObjectAs<AnnShape>()->GetCoordinates().Coords().m_topLeft.m_x, left);
  }
}

}  // namespace

}  // namespace framenote::test
