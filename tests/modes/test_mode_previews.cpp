// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "modes/ann_arrow_tool_mode.h"
#include "modes/ann_pencil_tool_mode.h"
#include "modes/ann_shape_tool_mode.h"
#include "painters/painter_fixture.h"
#include "support/tool_driver.h"

namespace framenote::test {

namespace {

using pixels::AreaHas;
using pixels::ColourAt;
using pixels::kBlue;
using pixels::kGreen;
using pixels::kRed;
using pixels::kWhite;

class ModePreview : public testing::TestWithParam<IAnnPainter::AnnPainterType> {
protected:
  AnnShapeProperties &ShapeLook() { return *m_driver.Tool().GetToolModes().shape->m_properties; }

  /// The preview of a drag from (10, 20) to (50, 40) in the shape tool.
  wxImage ShapePreview(wxPoint2DDouble const &offset = {0, 0}) {
    m_driver.UseTool(Types::Shape);
    m_driver.Press(10, 20);
    m_driver.Move(50, 40);
    return Preview(offset);
  }

  wxImage Preview(wxPoint2DDouble const &offset = {0, 0}) {
    return pixels::PaintedBy(GetParam(), {80, 80}, 1.0, [&](auto &painter) {
      m_driver.Tool().GetActiveTool()->DrawPreview(painter, offset);
    });
  }

  void Use(wxColour const &border, wxColour const &fill, int thickness,
           AnnShapeProperties::Shape form) {
    ShapeLook().SetBorderColor(border);
    ShapeLook().SetFillColor(fill);
    ShapeLook().SetThickness(thickness);
    ShapeLook().SetShape(form);
  }

  ToolDriver m_driver;
  wxColour m_none = wxColour(0, 0, 0, 0);
};

FRAMENOTE_WITH_BOTH_PAINTERS(ModePreview);

TEST_P(ModePreview, RectangleWithBorderAndFill) {
  Use(*wxRED, *wxGREEN, 4, AnnShapeProperties::Rectangle);
  wxImage const image = ShapePreview();
  EXPECT_TRUE(AreaHas(image, {16, 26, 28, 8}, kGreen));
  EXPECT_TRUE(AreaHas(image, {11, 21, 38, 2}, kRed));
  EXPECT_TRUE(AreaHas(image, {0, 0, 80, 19}, kWhite));
}

TEST_P(ModePreview, RectangleWithABorderAlone) {
  Use(*wxRED, m_none, 4, AnnShapeProperties::Rectangle);
  wxImage const image = ShapePreview();
  EXPECT_TRUE(AreaHas(image, {16, 26, 28, 8}, kWhite));
  EXPECT_TRUE(AreaHas(image, {11, 21, 38, 2}, kRed));
}

TEST_P(ModePreview, ShapeWithoutRoomForItsBorderIsASolidBlock) {
  Use(*wxRED, *wxGREEN, 11, AnnShapeProperties::Rectangle);
  EXPECT_TRUE(AreaHas(ShapePreview(), {11, 21, 38, 18}, kRed));
}

TEST_P(ModePreview, SolidEllipseOfItsBorder) {
  Use(*wxRED, *wxGREEN, 11, AnnShapeProperties::Ellipse);
  wxImage const image = ShapePreview();
  EXPECT_EQ(ColourAt(image, 30, 30), kRed);
  EXPECT_EQ(ColourAt(image, 11, 21), kWhite);
}

TEST_P(ModePreview, FillWithoutABorder) {
  Use(m_none, *wxBLUE, 4, AnnShapeProperties::Rectangle);
  EXPECT_TRUE(AreaHas(ShapePreview(), {11, 21, 38, 18}, kBlue));
}

TEST_P(ModePreview, EllipseInItsForms) {
  Use(*wxRED, *wxGREEN, 4, AnnShapeProperties::Ellipse);
  wxImage image = ShapePreview();
  EXPECT_EQ(ColourAt(image, 30, 30), kGreen);
  EXPECT_EQ(ColourAt(image, 12, 30), kRed);
  EXPECT_EQ(ColourAt(image, 11, 21), kWhite);
  Use(*wxRED, m_none, 4, AnnShapeProperties::Ellipse);
  image = Preview();
  EXPECT_EQ(ColourAt(image, 30, 30), kWhite);
  EXPECT_EQ(ColourAt(image, 12, 30), kRed);
  Use(m_none, *wxGREEN, 4, AnnShapeProperties::Ellipse);
  EXPECT_EQ(ColourAt(Preview(), 30, 30), kGreen);
}

TEST_P(ModePreview, WithoutColoursOrWithAnUnknownFormIsNothing) {
  Use(m_none, m_none, 4, AnnShapeProperties::Rectangle);
  EXPECT_TRUE(AreaHas(ShapePreview(), {0, 0, 80, 80}, kWhite));
  m_driver.Release(50, 40);
  EXPECT_EQ(m_driver.ObjectCount(), 1U);
  m_driver.Tool().ClearAllAnnotations();
  Use(*wxRED, *wxGREEN, 4, static_cast<AnnShapeProperties::Shape>(9));
  EXPECT_TRUE(AreaHas(ShapePreview(), {0, 0, 80, 80}, kWhite));
}

TEST_P(ModePreview, NegativeOffsetIsTakenByGraphicsContextsAlone) {
  Use(m_none, *wxBLUE, 4, AnnShapeProperties::Rectangle);
  wxImage const image = ShapePreview({-3, 7});
  bool const isClamped = GetParam() == IAnnPainter::DeviceContext;
  EXPECT_EQ(ColourAt(image, 8, 35), isClamped ? kWhite : kBlue);
  EXPECT_EQ(ColourAt(image, 49, 35), isClamped ? kBlue : kWhite);
  EXPECT_TRUE(AreaHas(image, {0, 0, 80, 26}, kWhite));
}

TEST_P(ModePreview, IsPaintedWhileDrawingAlone) {
  Use(m_none, *wxBLUE, 4, AnnShapeProperties::Rectangle);
  EXPECT_EQ(ColourAt(ShapePreview(), 30, 30), kBlue);
  m_driver.Release(50, 40);
  EXPECT_TRUE(AreaHas(Preview(), {0, 0, 80, 80}, kWhite));
}

TEST_P(ModePreview, BeforeTheFirstMotionIsNothing) {
  Use(m_none, *wxBLUE, 4, AnnShapeProperties::Rectangle);
  m_driver.UseTool(Types::Shape);
  m_driver.Press(10, 20);
  EXPECT_TRUE(AreaHas(Preview(), {0, 0, 80, 80}, kWhite));
}

TEST_P(ModePreview, ArrowIsPaintedWithItsHead) {
  m_driver.UseTool(Types::Arrow);
  m_driver.Press(10, 30);
  m_driver.Move(70, 30);
  wxImage const image = Preview();
  EXPECT_EQ(ColourAt(image, 30, 30), kRed);
  EXPECT_EQ(ColourAt(image, 62, 28), kRed);
  EXPECT_EQ(ColourAt(image, 30, 26), kWhite);
  EXPECT_TRUE(m_driver.Tool().IsEmpty());
}

TEST_P(ModePreview, StrokeIsPaintedAsFarAsItGoes) {
  m_driver.UseTool(Types::Pencil);
  m_driver.Press(10, 30);
  EXPECT_TRUE(AreaHas(Preview(), {0, 0, 80, 80}, kWhite));
  m_driver.Move(40, 30);
  m_driver.Move(60, 30);
  wxImage const image = Preview();
  EXPECT_EQ(ColourAt(image, 30, 30), kRed);
  EXPECT_EQ(ColourAt(image, 70, 30), kWhite);
  EXPECT_TRUE(m_driver.Tool().IsEmpty());
}

TEST_P(ModePreview, WithoutAPainterIsNothing) {
  ShapePreview();
  std::unique_ptr<IAnnPainter> none;
  m_driver.Tool().GetActiveTool()->DrawPreview(none, {0, 0});
  EXPECT_EQ(m_driver.State(), ToolState::Drawing);
}

}  // namespace

}  // namespace framenote::test
