// SPDX-License-Identifier: MIT
// Polygons, rectangles and ellipses.
#include "painters/painter_fixture.h"

namespace framenote::pixels {
namespace {

class PainterShapes : public BothPainters {};
FRAMENOTE_WITH_BOTH_PAINTERS(PainterShapes);

TEST_P(PainterShapes, PolygonCoversItsArea) {
  wxImage const image = painted(
      [](IAnnPainter &painter) { painter.DrawPolygon(Corners(2, 3, 12, 9), ToColour(kRed)); });
  EXPECT_EQ(BoundsOfPaint(image), wxRect(2, 3, 10, 6));
  EXPECT_TRUE(AreaHas(image, {2, 3, 10, 6}, kRed));
}

TEST_P(PainterShapes, PolygonThatCrossesItselfIsFilledByTheOddEvenRule) {
  // Two turns round the same way: the inner one is a hole.
  wxImage const image = painted([](IAnnPainter &painter) {
    Points points = Corners(0, 0, 30, 30);
    points.emplace_back(0, 0);
    for (wxPoint2DDouble const &point : Corners(10, 10, 20, 20)) points.push_back(point);
    points.emplace_back(10, 10);
    painter.DrawPolygon(points, ToColour(kRed));
  });
  EXPECT_TRUE(AreaHas(image, {11, 11, 8, 8}, kWhite));
  EXPECT_TRUE(AreaHas(image, {21, 1, 8, 28}, kRed));
}

TEST_P(PainterShapes, TranslucentColourLetsTheBackgroundThrough) {
  wxImage const image = painted(
      [](IAnnPainter &painter) { painter.DrawPolygon(Corners(2, 2, 12, 12), ToColour(kRed, 51)); });
  // 255 - 51 of the white is left in green and blue.
  EXPECT_TRUE(AreaHas(image, {2, 2, 10, 10}, {255, 204, 204}, 1));
}

TEST_P(PainterShapes, BorderedPolygonHasTheInnerOneInTheFillColour) {
  wxImage const image = painted([](IAnnPainter &painter) {
    painter.DrawPolygonWithBorder(Corners(2, 2, 18, 18), Corners(5, 5, 15, 15),
                                  Look(kRed, kBlue, 3));
  });
  EXPECT_EQ(BoundsOfPaint(image), wxRect(2, 2, 16, 16));
  EXPECT_EQ(BoundsOf(image, kBlue), wxRect(5, 5, 10, 10));
  EXPECT_EQ(CountOf(image, kBlue), 100);
  EXPECT_EQ(CountOf(image, kRed), 156);
}

TEST_P(PainterShapes, BorderOfAClosedPolygonLiesAlongItsPoints) {
  wxImage const image = painted([](IAnnPainter &painter) {
    Points points = Corners(4, 4, 16, 16);
    points.push_back(points.front());
    painter.DrawBorderOfPolygon(points, ToColour(kRed), 4);
  });
  EXPECT_EQ(BoundsOfPaint(image), wxRect(2, 2, 16, 16));
  EXPECT_EQ(CountOf(image, kRed), 16 * 16 - 8 * 8);
  EXPECT_TRUE(AreaHas(image, {6, 6, 8, 8}, kWhite));
}

TEST_P(PainterShapes, BorderOfAnOpenPolygonIsClosedOnADeviceContextOnly) {
  wxImage const image = painted([](IAnnPainter &painter) {
    painter.DrawBorderOfPolygon(Corners(4, 4, 16, 16), ToColour(kRed), 4);
  });
  EXPECT_TRUE(AreaHas(image, {14, 4, 4, 12}, kRed));
  EXPECT_EQ(ColourAt(image, 3, 10), onDeviceContext() ? kRed : kWhite);
}

TEST_P(PainterShapes, BorderOfAPolygonWithoutThicknessIsNotPainted) {
  for (int const thickness : {0, -3}) {
    wxImage const image = painted([&](IAnnPainter &painter) {
      painter.DrawBorderOfPolygon(Corners(4, 4, 16, 16), ToColour(kRed), thickness);
    });
    EXPECT_TRUE(BoundsOfPaint(image).IsEmpty()) << thickness;
  }
}

TEST_P(PainterShapes, RectangleIsFilledAndShiftedByHalfAPixelOnAGraphicsContext) {
  wxImage const image = painted([](IAnnPainter &painter) {
    painter.DrawRectangle({2, 3, 10, 6}, ToColour(kRed));
  });
  EXPECT_TRUE(AreaHas(image, {2, 3, 9, 5}, kRed));
  if (onDeviceContext()) {
    EXPECT_EQ(BoundsOfPaint(image), wxRect(2, 3, 10, 6));
    EXPECT_EQ(CountOf(image, kRed), 60);
  } else {
    EXPECT_EQ(BoundsOfPaint(image), wxRect(1, 2, 11, 7));
    EXPECT_TRUE(AreaHas(image, {1, 3, 1, 5}, {255, 127, 127}, 2));
    EXPECT_TRUE(AreaHas(image, {11, 3, 1, 5}, {255, 127, 127}, 2));
  }
}

TEST_P(PainterShapes, BorderOfARectangleWithFillLiesInside) {
  wxImage const image = painted([](IAnnPainter &painter) {
    painter.DrawRectangleWithBorder({2, 2, 16, 16}, Look(kRed, kBlue, 4));
  });
  EXPECT_TRUE(AreaHas(image, {7, 7, 6, 6}, kBlue));
  EXPECT_TRUE(AreaHas(image, {2, 2, 3, 15}, kRed));
  EXPECT_TRUE(AreaHas(image, {14, 2, 3, 15}, kRed));
  EXPECT_TRUE(AreaHas(image, {18, 0, 4, 40}, kWhite));
  EXPECT_TRUE(AreaHas(image, {0, 0, 1, 40}, kWhite));
}

TEST_P(PainterShapes, BorderOfARectangleLeavesTheInsideAlone) {
  wxImage const image = painted([](IAnnPainter &painter) {
    painter.DrawBorderOfRectangle({2, 2, 16, 16}, ToColour(kRed), 4);
  });
  EXPECT_TRUE(AreaHas(image, {6, 6, 7, 7}, kWhite));
  EXPECT_TRUE(AreaHas(image, {2, 2, 3, 15}, kRed));
  EXPECT_TRUE(AreaHas(image, {18, 0, 4, 40}, kWhite));
}

TEST_P(PainterShapes, BorderWithoutRoomInsideFillsTheRectangle) {
  auto const expectFilled = [](wxImage const &image) {
    EXPECT_TRUE(AreaHas(image, {10, 10, 9, 5}, kRed));
    EXPECT_TRUE(wxRect(9, 9, 12, 8).Contains(BoundsOfPaint(image)));
  };
  expectFilled(painted([](IAnnPainter &painter) {
    painter.DrawRectangleWithBorder({10, 10, 10, 6}, Look(kRed, kBlue, 14));
  }));
  expectFilled(painted([](IAnnPainter &painter) {
    painter.DrawBorderOfRectangle({10, 10, 10, 6}, ToColour(kRed), 6);
  }));
}

TEST_P(PainterShapes, EllipseTouchesItsRectangleAndLeavesTheCorners) {
  wxImage const image = painted([](IAnnPainter &painter) {
    painter.DrawEllipse({4, 4, 20, 10}, ToColour(kRed));
  });
  EXPECT_EQ(ColourAt(image, 13, 8), kRed);
  EXPECT_EQ(ColourAt(image, 5, 8), kRed);
  EXPECT_EQ(ColourAt(image, 22, 8), kRed);
  EXPECT_EQ(ColourAt(image, 4, 4), kWhite);
  EXPECT_EQ(ColourAt(image, 23, 13), kWhite);
  EXPECT_TRUE(wxRect(3, 3, 21, 11).Contains(BoundsOfPaint(image)));
  EXPECT_NEAR(AreaOf(image, kRed), 157.1, 3.0);  // 10 * 5 * pi
}

TEST_P(PainterShapes, EllipseWithBorderHasTheFillInside) {
  wxImage const image = painted([](IAnnPainter &painter) {
    painter.DrawEllipseWithBorder({4, 4, 30, 30}, Look(kRed, kBlue, 4));
  });
  EXPECT_EQ(ColourAt(image, 6, 19), kRed);
  EXPECT_EQ(ColourAt(image, 31, 19), kRed);
  EXPECT_EQ(ColourAt(image, 19, 6), kRed);
  EXPECT_TRUE(AreaHas(image, {13, 13, 11, 11}, kBlue));
  EXPECT_EQ(ColourAt(image, 5, 5), kWhite);
  // The inner ellipse has the area 11 * 11 * pi = 380.
  EXPECT_NEAR(CountOf(image, kBlue, 127), 380, 12);
}

TEST_P(PainterShapes, BorderOfAnEllipseIsARing) {
  wxImage const image = painted([](IAnnPainter &painter) {
    painter.DrawBorderOfEllipse({4, 4, 30, 30}, ToColour(kRed), 4);
  });
  EXPECT_TRUE(AreaHas(image, {13, 13, 11, 11}, kWhite));
  EXPECT_EQ(ColourAt(image, 6, 19), kRed);
  EXPECT_NEAR(AreaOf(image, kRed), 326.7, 3.0);  // 15 * 15 * pi - 11 * 11 * pi
}

TEST_P(PainterShapes, BorderWithoutRoomInsideFillsTheEllipse) {
  auto const expectFilled = [](wxImage const &image) {
    EXPECT_EQ(ColourAt(image, 19, 19), kRed);
    EXPECT_NEAR(AreaOf(image, kRed), 78.5, 3.0);  // 5 * 5 * pi
  };
  expectFilled(painted([](IAnnPainter &painter) {
    painter.DrawEllipseWithBorder({14, 14, 10, 10}, Look(kRed, kBlue, 12));
  }));
  expectFilled(painted([](IAnnPainter &painter) {
    painter.DrawBorderOfEllipse({14, 14, 10, 10}, ToColour(kRed), 12);
  }));
}

TEST_P(PainterShapes, CurvesFollowTheEllipseInTheBox) {
  wxImage const image = painted([](IAnnPainter &painter) {
    painter.DrawEllipseCurves(CornersAndMiddles(4, 4, 34, 24), ToColour(kRed));
  });
  EXPECT_EQ(BoundsOfPaint(image), wxRect(4, 4, 30, 20));
  EXPECT_EQ(ColourAt(image, 4, 4), kWhite);
  EXPECT_EQ(ColourAt(image, 19, 14), kRed);
  EXPECT_NEAR(AreaOf(image, kRed), 471.2, 3.0);  // 15 * 10 * pi
}

TEST_P(PainterShapes, CurvesTurnWithTheBox) {
  // A square standing on its corner: the ellipse is the circle of radius 10 about (20, 20), as the
  // distance from the centre to a side is 10 sqrt(2) / sqrt(2).
  double const d = 14.142135623730951;
  Points points = {{20, 20 - d}, {20 + d, 20}, {20, 20 + d}, {20 - d, 20}};
  for (std::size_t i = 0; i < 4; ++i) points.push_back((points[i] + points[(i + 1) % 4]) / 2.0);
  wxImage const image =
      painted([&](IAnnPainter &painter) { painter.DrawEllipseCurves(points, ToColour(kRed)); });
  EXPECT_EQ(BoundsOf(image, kRed, 127), wxRect(10, 10, 20, 20));
  EXPECT_NEAR(AreaOf(image, kRed), 314.2, 3.0);  // 10 * 10 * pi
}

TEST_P(PainterShapes, CurvesWithBorderHaveTheInnerEllipseInTheFillColour) {
  wxImage const image = painted([](IAnnPainter &painter) {
    painter.DrawEllipseWithBorderCurves(CornersAndMiddles(4, 4, 34, 34), Corners(8, 8, 30, 30),
                                        Look(kRed, kBlue, 4));
  });
  EXPECT_NEAR(CountOf(image, kBlue, 127), 380, 6);  // 11 * 11 * pi
  EXPECT_NEAR(CountOf(image, kRed, 127), 327, 12);  // 15 * 15 * pi - 380
  EXPECT_EQ(ColourAt(image, 19, 19), kBlue);
  EXPECT_EQ(ColourAt(image, 5, 19), kRed);
}

TEST_P(PainterShapes, RingOfCurvesLeavesTheInsideAlone) {
  wxImage const image = painted([](IAnnPainter &painter) {
    painter.DrawBorderOfEllipseCurves(CornersAndMiddles(4, 4, 34, 34), Corners(8, 8, 30, 30),
                                      ToColour(kRed));
  });
  EXPECT_TRUE(AreaHas(image, {13, 13, 12, 12}, kWhite));
  EXPECT_NEAR(AreaOf(image, kRed), 326.7, 3.0);  // 15 * 15 * pi - 11 * 11 * pi
}

TEST(DeviceContextPainter, OddBorderInsetsByTheSmallerHalfAtTopAndLeft) {
  wxImage const image = Painted(IAnnPainter::DeviceContext, {40, 40}, 1.0, [](IAnnPainter &p) {
    p.DrawRectangleWithBorder({2, 2, 16, 16}, Look(kRed, kBlue, 3));
  });
  // Three pixels from 2 at the left, three up to 16 at the right; column 17 stays free.
  EXPECT_EQ(BoundsOfPaint(image), wxRect(2, 2, 15, 15));
  EXPECT_EQ(BoundsOf(image, kBlue), wxRect(5, 5, 9, 9));
  EXPECT_EQ(CountOf(image, kBlue), 81);
}

TEST(DeviceContextPainter, EvenBorderLeavesTheLastColumnAndRowToo) {
  wxImage const image = Painted(IAnnPainter::DeviceContext, {40, 40}, 1.0, [](IAnnPainter &p) {
    p.DrawRectangleWithBorder({2, 2, 16, 16}, Look(kRed, kBlue, 4));
  });
  // The path of a DC's rectangle ends on its last pixel, one before its right edge.
  EXPECT_EQ(BoundsOfPaint(image), wxRect(2, 2, 15, 15));
  EXPECT_EQ(BoundsOf(image, kBlue), wxRect(6, 6, 7, 7));
  EXPECT_EQ(CountOf(image, kRed), 15 * 15 - 7 * 7);
}

TEST(DeviceContextPainter, BorderOfOnePixelShrinksTheFillByThePenWidth) {
  wxImage const image = Painted(IAnnPainter::DeviceContext, {40, 40}, 1.0, [](IAnnPainter &p) {
    p.DrawRectangleWithBorder({2, 2, 10, 10}, Look(kRed, kBlue, 1));
  });
  EXPECT_EQ(BoundsOfPaint(image), wxRect(2, 2, 9, 9));
  EXPECT_EQ(BoundsOf(image, kBlue), wxRect(3, 3, 7, 7));
}

TEST(GraphicsContextPainter, BorderOfOnePixelShrinksTheFillByOnePixelPerSide) {
  // At scale 2 the half pixel of the shift is a whole one of the surface.
  wxImage const image = Painted(IAnnPainter::GraphicsContext, {40, 40}, 2.0, [](IAnnPainter &p) {
    p.DrawRectangleWithBorder({2, 2, 10, 10}, Look(kRed, kBlue, 1));
  });
  EXPECT_EQ(BoundsOfPaint(image), wxRect(3, 3, 20, 20));
  EXPECT_EQ(BoundsOf(image, kBlue), wxRect(5, 5, 16, 16));
}

TEST(GraphicsContextPainter, TranslucentFillShowsTheBorderColourUnderIt) {
  AnnShapeProperties look = Look(kRed, kBlue, 4);
  look.SetFillColor(ToColour(kBlue, 51));
  wxImage const image = Painted(IAnnPainter::GraphicsContext, {40, 40}, 1.0, [&](IAnnPainter &p) {
    p.DrawRectangleWithBorder({2, 2, 20, 20}, look);
  });
  EXPECT_TRUE(AreaHas(image, {8, 8, 6, 6}, {204, 0, 51}, 1));
}

TEST(DeviceContextPainter, TranslucentFillShowsTheBackgroundUnderIt) {
  AnnShapeProperties look = Look(kRed, kBlue, 4);
  look.SetFillColor(ToColour(kBlue, 51));
  wxImage const image = Painted(IAnnPainter::DeviceContext, {40, 40}, 1.0, [&](IAnnPainter &p) {
    p.DrawRectangleWithBorder({2, 2, 20, 20}, look);
  });
  EXPECT_TRUE(AreaHas(image, {8, 8, 6, 6}, {204, 204, 255}, 1));
}

TEST(DeviceContextPainter, RoundsPointsHalfUp) {
  wxImage const image = Painted(IAnnPainter::DeviceContext, {40, 40}, 1.0, [](IAnnPainter &p) {
    p.DrawPolygon(Corners(2.5, 2.4, 9.49, 9.5), ToColour(kRed));
  });
  EXPECT_EQ(BoundsOfPaint(image), wxRect(3, 2, 6, 8));
  EXPECT_EQ(CountOf(image, kRed), 48);
}

TEST(GraphicsContextPainter, KeepsPositionsBetweenPixels) {
  wxImage const image = Painted(IAnnPainter::GraphicsContext, {40, 40}, 1.0, [](IAnnPainter &p) {
    p.DrawPolygon(Corners(2.5, 2, 9, 9), ToColour(kRed));
  });
  EXPECT_TRUE(AreaHas(image, {2, 2, 1, 7}, {255, 127, 127}, 2));
  EXPECT_TRUE(AreaHas(image, {3, 2, 6, 7}, kRed));
}

}  // namespace
}  // namespace framenote::pixels
