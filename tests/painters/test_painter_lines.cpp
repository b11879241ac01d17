// SPDX-License-Identifier: MIT
// Lines, arrows and the handles of objects.
#include "painters/painter_fixture.h"
#include "properties/ann_arrow_properties.h"

namespace framenote::pixels {
namespace {

class PainterLines : public BothPainters {};
FRAMENOTE_WITH_BOTH_PAINTERS(PainterLines);

AnnArrowProperties ArrowLook(AnnArrowProperties::Head head, int thickness) {
  AnnArrowProperties properties;
  properties.SetColor(ToColour(kRed));
  properties.SetHead(head);
  properties.SetThickness(thickness);
  return properties;
}

Points const kBody = {{4, 20}, {24, 20}};
Points const kHead = {{24, 12}, {36, 20}, {24, 28}};

TEST_P(PainterLines, LineIsAsWideAsAsked) {
  wxImage const image = painted([](IAnnPainter &painter) {
    painter.DrawLine({5, 20}, {35, 20}, ToColour(kRed), 4);
  });
  EXPECT_TRUE(AreaHas(image, {5, 18, 30, 4}, kRed));
  EXPECT_TRUE(AreaHas(image, {0, 0, 40, 18}, kWhite));
  EXPECT_TRUE(AreaHas(image, {0, 22, 40, 18}, kWhite));
  // Round caps reach half the width beyond the ends.
  EXPECT_EQ(BoundsOfPaint(image), wxRect(3, 18, 34, 4));
}

TEST_P(PainterLines, LineWithoutWidthIsStillSeen) {
  for (int const width : {0, -7}) {
    wxImage const image = painted([&](IAnnPainter &painter) {
      painter.DrawLine({5, 20}, {35, 20}, ToColour(kRed), width);
    });
    EXPECT_TRUE(AreaHas(image, {6, 20, 28, 1}, {255, 64, 64}, 80)) << width;
    EXPECT_LE(BoundsOfPaint(image).height, 2) << width;
  }
}

TEST_P(PainterLines, PolylineIsOpenAndNotFilled) {
  wxImage const image = painted([](IAnnPainter &painter) {
    painter.DrawLines({{6, 6}, {34, 6}, {34, 34}}, ToColour(kRed), 4);
  });
  EXPECT_TRUE(AreaHas(image, {6, 4, 28, 4}, kRed));
  EXPECT_TRUE(AreaHas(image, {32, 6, 4, 28}, kRed));
  EXPECT_EQ(ColourAt(image, 20, 20), kWhite);
  EXPECT_EQ(ColourAt(image, 28, 14), kWhite);
}

TEST_P(PainterLines, ArrowHasABodyWithCutEndsAndAFilledHead) {
  for (int const thickness : {3, 4}) {
    wxImage const image = painted([&](IAnnPainter &painter) {
      painter.DrawArrow(kBody, kHead, ArrowLook(AnnArrowProperties::Arrow, thickness));
    });
    EXPECT_TRUE(AreaHas(image, {5, 19, 18, 2}, kRed)) << thickness;
    EXPECT_TRUE(AreaHas(image, {0, 0, 3, 40}, kWhite)) << thickness;
    EXPECT_TRUE(AreaHas(image, {25, 17, 6, 6}, kRed)) << thickness;
    EXPECT_EQ(ColourAt(image, 35, 13), kWhite) << thickness;
    // The head has the area 16 * 12 / 2 = 96, the body lies left of it.
    wxImage const head = image.GetSubImage({24, 0, 16, 40});
    EXPECT_NEAR(AreaOf(head, kRed), 96.0, 1.0) << thickness;
  }
}

TEST_P(PainterLines, ArrowWithALineHeadHasTheBodyOnly) {
  wxImage const image = painted([](IAnnPainter &painter) {
    painter.DrawArrow(kBody, kHead, ArrowLook(AnnArrowProperties::Line, 4));
  });
  EXPECT_EQ(BoundsOfPaint(image), wxRect(4, 18, 20, 4));
  EXPECT_EQ(CountOf(image, kRed), 80);
}

TEST_P(PainterLines, ArrowHeadOfOddAndEvenThicknessIsTheSame) {
  auto const head = [&](int thickness) {
    return painted([&](IAnnPainter &painter) {
      painter.DrawArrow({}, kHead, ArrowLook(AnnArrowProperties::Arrow, thickness));
    });
  };
  EXPECT_FALSE(BoundsOfPaint(head(3)).IsEmpty());
  EXPECT_TRUE(Alike(head(3), head(4), 1));
}

TEST_P(PainterLines, CircleHasItsFillAndABorder) {
  wxImage const image = painted([](IAnnPainter &painter) {
    painter.DrawCircle({20, 20}, 8, ToColour(kRed), ToColour(kBlue));
  });
  EXPECT_TRUE(AreaHas(image, {16, 16, 9, 9}, kRed));
  EXPECT_GE(Difference(ColourAt(image, 20, 12), kWhite), 120);
  EXPECT_GT(ColourAt(image, 20, 12).blue, ColourAt(image, 20, 12).red);
  EXPECT_TRUE(wxRect(11, 11, 19, 19).Contains(BoundsOfPaint(image)));
  EXPECT_GE(BoundsOfPaint(image).width, 17);
}

TEST_P(PainterLines, CirclesHaveThePenAndBrushThatAreSet) {
  wxImage const image = painted([](IAnnPainter &painter) {
    painter.DrawCircle({8, 8}, 3, ToColour(kGreen), ToColour(kGreen));
    painter.DrawCircles({{20, 20}, {32, 32}}, 3);
  });
  for (int const middle : {8, 20, 32}) EXPECT_EQ(ColourAt(image, middle, middle), kGreen);
  EXPECT_EQ(ColourAt(image, 14, 14), kWhite);
}

TEST_P(PainterLines, CirclesWithoutRadiusAreNotPainted) {
  for (double const radius : {0.0, -2.0}) {
    wxImage const image = painted([&](IAnnPainter &painter) {
      painter.DrawPolygon({}, ToColour(kGreen));
      painter.DrawCircles({{20, 20}}, radius);
    });
    EXPECT_TRUE(BoundsOfPaint(image).IsEmpty()) << radius;
  }
}

TEST_P(PainterLines, StickReachesFromTheFootToTheGreenCircle) {
  wxImage const image = painted([](IAnnPainter &painter) {
    painter.DrawCircleOnStick({20, 36}, {20, 10}, 5);
  });
  EXPECT_EQ(ColourAt(image, 20, 10), kGreen);
  // The stick is one dark column or two grey ones.
  for (int y = 18; y < 35; ++y) {
    int const darkness = (255 - ColourAt(image, 19, y).red) + (255 - ColourAt(image, 20, y).red);
    EXPECT_NEAR(darkness, 255, 3) << y;
  }
  EXPECT_TRUE(AreaHas(image, {0, 18, 18, 22}, kWhite));
}

TEST_P(PainterLines, SelectedOutlineHasWhiteHandlesAboveTheFrame) {
  wxImage const image = painted([](IAnnPainter &painter) {
    painter.DrawOutline(CornersAndMiddles(8, 8, 32, 32), 4, true, true);
  });
  for (wxPoint const &handle : {wxPoint(8, 8), wxPoint(20, 8), wxPoint(32, 20), wxPoint(8, 32)}) {
    EXPECT_TRUE(AreaHas(image, {handle.x - 2, handle.y - 2, 4, 4}, kWhite));
  }
  // Between the handles, where the frame crosses row 14.
  EXPECT_LT(ColourAt(image, 8, 14).red, 140);
  EXPECT_LT(ColourAt(image, 32, 14).red, 140);
  EXPECT_EQ(ColourAt(image, 14, 14), kWhite);
}

TEST_P(PainterLines, OutlineWithoutFrameHasHandlesOnly) {
  wxImage const image = painted([](IAnnPainter &painter) {
    painter.DrawOutline({{8, 20}, {32, 20}}, 4, true, false);
  });
  EXPECT_TRUE(AreaHas(image, {14, 0, 12, 40}, kWhite));
  EXPECT_FALSE(BoundsOfPaint(image).IsEmpty());
}

TEST_P(PainterLines, FocusedOutlineIsNeverFramed) {
  wxImage const image = painted([](IAnnPainter &painter) {
    painter.DrawOutline(CornersAndMiddles(8, 8, 32, 32), 4, false, true);
  });
  EXPECT_TRUE(AreaHas(image, {6, 14, 6, 1}, kWhite));
  EXPECT_GE(CountWhere(image, [](Rgb const &c) { return c.red < 200; }), 40);
}

TEST(DeviceContextPainter, FocusedHandlesAreLightGrey) {
  wxImage const image = Painted(IAnnPainter::DeviceContext, {40, 40}, 1.0, [](IAnnPainter &p) {
    p.DrawOutline({{20, 20}}, 5, false, false);
  });
  EXPECT_EQ(ColourAt(image, 20, 20), (Rgb{192, 192, 192}));
}

TEST(GraphicsContextPainter, FocusedHandlesAreTranslucentWhite) {
  wxImage const image = Painted(IAnnPainter::GraphicsContext, {40, 40}, 1.0, [](IAnnPainter &p) {
    p.DrawPolygon(Corners(0, 0, 40, 40), ToColour(kBlack));
    p.DrawOutline({{20, 20}}, 5, false, false);
  });
  EXPECT_EQ(ColourAt(image, 20, 20), (Rgb{170, 170, 170}));
}

}  // namespace
}  // namespace framenote::pixels
