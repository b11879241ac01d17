// SPDX-License-Identifier: MIT
// Documents hold any number. After each of them the surface must still paint what is good.
#include <cmath>
#include <limits>

#include <wx/font.h>

#include "painters/drawable.h"
#include "painters/painter_fixture.h"
#include "properties/ann_arrow_properties.h"

namespace framenote::pixels {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr int kMaxInt = std::numeric_limits<int>::max();
constexpr int kMinInt = std::numeric_limits<int>::min();

double const kBadNumbers[] = {kNan, kInfinity, -kInfinity, 1e300, -1e300, 4e9, -4e9, 1e7, 5e-324};

class PainterBadInput : public BothPainters {
protected:
  /// Runs `paint` at several scales, then looks whether a good polygon still comes out right.
  template <typename Paint>
  static void expectUsableAfter(Paint paint) {
    for (double const scale : {0.5, 1.0, 16.0}) {
      wxImage const image = Painted(GetParam(), {40, 40}, scale, [&](IAnnPainter &painter) {
        paint(painter);
        painter.ResetScale();
        painter.DrawPolygon(Corners(0, 0, 40, 40), ToColour(kBlack));
        painter.DrawPolygon(Corners(2, 3, 12, 9), ToColour(kGreen));
      });
      EXPECT_EQ(BoundsOf(image, kGreen), wxRect(2, 3, 10, 6)) << "at scale " << scale;
      EXPECT_EQ(CountOf(image, kBlack), 40 * 40 - 60) << "at scale " << scale;
    }
  }
};
FRAMENOTE_WITH_BOTH_PAINTERS(PainterBadInput);

TEST_P(PainterBadInput, PointsOfAnyValueAreSafe) {
  for (double const bad : kBadNumbers) {
    SCOPED_TRACE(bad);
    Points const points = {{bad, 3}, {3, bad}, {bad, bad}, {-bad, 9}};
    Points box = points;
    box.insert(box.end(), points.begin(), points.end());
    AnnShapeProperties const look = Look(kRed, kBlue, 3);
    expectUsableAfter([&](IAnnPainter &painter) {
      painter.DrawPolygon(points, ToColour(kRed));
      painter.DrawPolygonWithBorder(points, points, look);
      painter.DrawBorderOfPolygon(points, ToColour(kRed), 5);
      painter.DrawEllipseCurves(box, ToColour(kRed));
      painter.DrawEllipseWithBorderCurves(box, points, look);
      painter.DrawBorderOfEllipseCurves(box, points, ToColour(kRed));
      painter.DrawLines(points, ToColour(kRed), 3);
      painter.DrawLine(points[0], points[2], ToColour(kRed), 3);
      painter.DrawArrow(points, points, AnnArrowProperties());
      painter.DrawOutline(box, 5.0, true, true);
      painter.DrawOutline(box, bad, false, true);
    });
  }
}

TEST_P(PainterBadInput, CirclesTextsAndImagesOfAnyValueAreSafe) {
  wxBitmap const bitmap(wxImage(20, 10));
  for (double const bad : kBadNumbers) {
    SCOPED_TRACE(bad);
    expectUsableAfter([&](IAnnPainter &painter) {
      painter.DrawCircle({bad, 5}, 5, ToColour(kRed), ToColour(kRed));
      painter.DrawCircle({5, 5}, bad, ToColour(kRed), ToColour(kRed));
      painter.DrawCircles({{bad, bad}, {5, bad}}, bad);
      painter.DrawCircleOnStick({5, bad}, {bad, bad}, bad);
      painter.DrawText({bad, bad}, 0.0, "H", *wxNORMAL_FONT, ToColour(kRed));
      painter.DrawText({5, 5}, bad, "H", *wxNORMAL_FONT, ToColour(kRed));
      painter.DrawBitmap({bad, 5}, bitmap);
      painter.DrawImage({bad, bad}, 10, 10, 0.0, bitmap);
      painter.DrawImage({5, 5}, 10, 10, bad, bitmap);
      painter.DrawImage({5, 5}, bad, 10, 0.0, bitmap);
      painter.DrawImage({5, 5}, bad, bad, 1.0, bitmap);
    });
  }
}

TEST_P(PainterBadInput, ImagesTooThinToBeSeenAreSafe) {
  wxBitmap const bitmap(wxImage(2000, 10));
  for (double const size : {5e-324, 1e-200, 1e-9, 1e-3, 0.1}) {
    SCOPED_TRACE(size);
    expectUsableAfter([&](IAnnPainter &painter) {
      painter.DrawImage({5, 5}, size, 10, 0.5, bitmap);
      painter.DrawImage({5, 5}, size, size, 0.5, bitmap);
    });
  }
}

TEST_P(PainterBadInput, RectanglesOfAnyValueAreSafe) {
  AnnShapeProperties const look = Look(kRed, kBlue, 3);
  wxRect const rects[] = {{kMinInt, kMinInt, kMaxInt, kMaxInt},
                          {kMaxInt, 2, kMaxInt, 5},
                          {2, 2, kMaxInt, kMaxInt},
                          {2, 2, -5, -5},
                          {5, 5, kMinInt, kMinInt},
                          {2, 2, 0, 9},
                          {2, 2, 9, 0},
                          {2, 2, 0, 0},
                          {2, 2, 1, 1},
                          {2, 2, 4, 4}};
  for (wxRect const &rect : rects) {
    SCOPED_TRACE(testing::PrintToString(rect));
    expectUsableAfter([&](IAnnPainter &painter) {
      painter.DrawRectangle(rect, ToColour(kRed));
      painter.DrawRectangleWithBorder(rect, look);
      painter.DrawBorderOfRectangle(rect, ToColour(kRed), 3);
      painter.DrawEllipse(rect, ToColour(kRed));
      painter.DrawEllipseWithBorder(rect, look);
      painter.DrawBorderOfEllipse(rect, ToColour(kRed), 3);
    });
  }
}

TEST_P(PainterBadInput, ThicknessOfAnyValueIsSafe) {
  for (int const thickness : {kMinInt, -1, 0, 5000, kMaxInt}) {
    SCOPED_TRACE(thickness);
    AnnShapeProperties const look = Look(kRed, kBlue, thickness);
    AnnArrowProperties arrow;
    arrow.SetThickness(thickness);
    expectUsableAfter([&](IAnnPainter &painter) {
      painter.DrawRectangleWithBorder({2, 2, 30, 30}, look);
      painter.DrawEllipseWithBorder({2, 2, 30, 30}, look);
      painter.DrawBorderOfRectangle({2, 2, 30, 30}, ToColour(kRed), thickness);
      painter.DrawBorderOfEllipse({2, 2, 30, 30}, ToColour(kRed), thickness);
      painter.DrawBorderOfPolygon(Corners(2, 2, 30, 30), ToColour(kRed), thickness);
      painter.DrawLine({2, 2}, {30, 30}, ToColour(kRed), thickness);
      painter.DrawLines({{2, 2}, {30, 30}}, ToColour(kRed), thickness);
      painter.DrawArrow({{2, 2}, {30, 30}}, {{2, 2}, {30, 30}, {9, 9}}, arrow);
    });
  }
}

TEST_P(PainterBadInput, ScaleOfAnyValueIsSafe) {
  for (double const bad : {kNan, kInfinity, -kInfinity, 0.0, -2.0, 1e300, 1e-300, 5e-324}) {
    SCOPED_TRACE(bad);
    wxImage const image = Painted(GetParam(), {40, 40}, bad, [](IAnnPainter &painter) {
      painter.DrawPolygon({{0, 0}, {1e9, 0}, {0, 1e9}}, ToColour(kRed));
      painter.DrawEllipseCurves(CornersAndMiddles(0, 0, 9, 9), ToColour(kRed));
      painter.ResetScale();
      painter.DrawPolygon(Corners(2, 3, 12, 9), ToColour(kGreen));
    });
    EXPECT_EQ(BoundsOf(image, kGreen), wxRect(2, 3, 10, 6));
  }
}

TEST_P(PainterBadInput, FontsOfAnySizeAreSafe) {
  for (double const points : {1e-3, 0.2, 1e5, 1e6}) {
    SCOPED_TRACE(points);
    wxFont font = *wxNORMAL_FONT;
    font.SetFractionalPointSize(points);
    expectUsableAfter([&](IAnnPainter &painter) {
      painter.DrawText({2, 2}, 0.3, "Hxg", font, ToColour(kRed));
      double width = kNan;
      double height = kNan;
      double leading = kNan;
      painter.GetTextExtent("Hxg", font, width, height, leading);
      EXPECT_TRUE(std::isfinite(width) && width >= 0);
      EXPECT_TRUE(std::isfinite(height) && height >= 0);
    });
  }
}

TEST_P(PainterBadInput, NullColoursPaintNothing) {
  AnnShapeProperties look = Look(kRed, kBlue, 3);
  look.SetBorderColor(wxNullColour);
  look.SetFillColor(wxNullColour);
  AnnArrowProperties arrow;
  arrow.SetColor(wxNullColour);
  wxColour const none;
  wxImage const image = painted([&](IAnnPainter &painter) {
    painter.DrawCircle({9, 9}, 5, none, none);
    painter.DrawPolygon(Corners(2, 2, 9, 9), none);
    painter.DrawPolygonWithBorder(Corners(2, 2, 30, 30), Corners(9, 9, 20, 20), look);
    painter.DrawBorderOfPolygon(Corners(2, 2, 9, 9), none, 3);
    painter.DrawRectangle({2, 2, 9, 9}, none);
    painter.DrawRectangleWithBorder({2, 2, 9, 9}, look);
    painter.DrawRectangleWithBorder({2, 2, 3, 3}, look);
    painter.DrawBorderOfRectangle({2, 2, 9, 9}, none, 3);
    painter.DrawEllipse({2, 2, 9, 9}, none);
    painter.DrawEllipseWithBorder({2, 2, 9, 9}, look);
    painter.DrawBorderOfEllipse({2, 2, 9, 9}, none, 3);
    painter.DrawEllipseCurves(CornersAndMiddles(2, 2, 30, 30), none);
    painter.DrawEllipseWithBorderCurves(CornersAndMiddles(2, 2, 30, 30), Corners(9, 9, 20, 20),
                                        look);
    painter.DrawBorderOfEllipseCurves(CornersAndMiddles(2, 2, 30, 30), Corners(9, 9, 20, 20), none);
    painter.DrawArrow({{2, 2}, {30, 30}}, {{2, 2}, {30, 30}, {9, 9}}, arrow);
    painter.DrawLine({2, 2}, {30, 30}, none, 3);
    painter.DrawLines({{2, 2}, {30, 30}}, none, 3);
  });
  EXPECT_TRUE(BoundsOfPaint(image).IsEmpty());
}

TEST_P(PainterBadInput, TooFewPointsPaintNothing) {
  AnnShapeProperties const look = Look(kRed, kBlue, 3);
  Points const box = CornersAndMiddles(2, 2, 30, 30);
  Points const three(box.begin(), box.begin() + 3);
  Points const seven(box.begin(), box.begin() + 7);
  wxImage const image = painted([&](IAnnPainter &painter) {
    for (Points const &points : {Points(), Points{{9, 9}}}) {
      painter.DrawPolygon(points, ToColour(kRed));
      painter.DrawPolygonWithBorder(points, points, look);
      painter.DrawBorderOfPolygon(points, ToColour(kRed), 3);
      painter.DrawLines(points, ToColour(kRed), 3);
      painter.DrawArrow(points, points, AnnArrowProperties());
    }
    painter.DrawCircles({}, 5);
    painter.DrawOutline({}, 5, true, true);
    painter.DrawOutline({}, 5, false, true);
    painter.DrawEllipseCurves(seven, ToColour(kRed));
    painter.DrawEllipseWithBorderCurves(seven, box, look);
    painter.DrawEllipseWithBorderCurves(box, three, look);
    painter.DrawBorderOfEllipseCurves(seven, box, ToColour(kRed));
    painter.DrawBorderOfEllipseCurves(box, three, ToColour(kRed));
  });
  EXPECT_TRUE(BoundsOfPaint(image).IsEmpty());
}

TEST_P(PainterBadInput, FramedOutlineOfFewerThanFourPointsHasNoFrame) {
  wxImage const image = painted([](IAnnPainter &painter) {
    painter.DrawOutline({{8, 20}, {32, 20}, {32, 8}}, 4, true, true);
  });
  EXPECT_TRUE(AreaHas(image, {14, 0, 12, 40}, kWhite));
  EXPECT_FALSE(BoundsOfPaint(image).IsEmpty());
}

TEST(DrawableRange, SaturatesAndTakesNanAsZero) {
  DrawableRange const range(1.0);
  EXPECT_EQ(range.Coordinate(kNan), 0.0);
  EXPECT_EQ(range.Coordinate(1234.5), 1234.5);
  EXPECT_EQ(range.Coordinate(kInfinity), 1e6);
  EXPECT_EQ(range.Coordinate(-1e300), -1e6);
}

TEST(DrawableRange, KeepsAPictureReachableAtStrongZoom) {
  DrawableRange const range(32.0);
  EXPECT_EQ(range.Coordinate(20000.0), 20000.0);
  // Surfaces count to 2^23 = 8,388,608 pixels.
  EXPECT_LT(range.Coordinate(kInfinity) * 32.0, 8388608.0);
}

TEST(DrawableRange, CutsARectangleRatherThanMovingIt) {
  DrawableRange const range(1.0);
  EXPECT_EQ(range.Rect({-3000000, 5, 3000100, 7}), wxRect(-1000000, 5, 1000100, 7));
  EXPECT_EQ(range.Rect({2, 3, kMaxInt, 4}), wxRect(2, 3, 999998, 4));
  EXPECT_EQ(range.Rect({5000000, 3, 10, 4}).width, 0);
}

TEST(DrawableRange, FontsAreHeldToWhatCanBeRendered) {
  auto const heldAt = [](double scale, double points) {
    wxFont font = *wxNORMAL_FONT;
    font.SetFractionalPointSize(points);
    return DrawableRange(scale).Font(font, 1.0).GetFractionalPointSize();
  };
  EXPECT_NEAR(heldAt(1.0, 12.5), 12.5, 0.01);
  EXPECT_NEAR(heldAt(1.0, 5000.0), 2000.0, 0.1);
  EXPECT_NEAR(heldAt(16.0, 5000.0), 1500.0, 0.1);
  EXPECT_NEAR(heldAt(1000.0, 5000.0), 24.0, 0.1);
  EXPECT_NEAR(heldAt(1.0, 0.25), 1.0, 0.01);
}

TEST(DrawableRange, TextIsEnlargedWhereTheScaleIsTooStrongForIt) {
  wxFont font = *wxNORMAL_FONT;
  font.SetFractionalPointSize(60.0);
  EXPECT_EQ(DrawableRange(1.0).TextEnlargement(font), 1.0);
  EXPECT_EQ(DrawableRange(20.0).TextEnlargement(font), 1.0);  // 60 * 20 * 20 = 24,000
  EXPECT_EQ(DrawableRange(21.0).TextEnlargement(font), 21.0);
  EXPECT_NEAR(DrawableRange(21.0).Font(font, 21.0).GetFractionalPointSize(), 1260.0, 0.1);
}

TEST(DrawableRange, ImagesAreStretchedUnlessTheyCouldNotBeSeen) {
  wxBitmap const bitmap(3000, 30, 24);
  EXPECT_TRUE(DrawableRange(1.0).CanStretch(bitmap, 1.0, 1.0));
  EXPECT_TRUE(DrawableRange(1.0).CanStretch(bitmap, 0.1, 0.001));
  EXPECT_FALSE(DrawableRange(0.5).CanStretch(bitmap, 0.1, 1.0));
  EXPECT_FALSE(DrawableRange(1.0).CanStretch(bitmap, 1.0, 0.0));
  EXPECT_FALSE(DrawableRange(1.0).CanStretch(bitmap, kNan, 1.0));
  EXPECT_FALSE(DrawableRange(1.0).CanStretch(bitmap, 1.0, kInfinity));
  EXPECT_FALSE(DrawableRange(1.0).CanStretch(wxNullBitmap, 1.0, 1.0));
}

TEST(DrawableScale, IsWithinWhatCanBeScaledBack) {
  EXPECT_EQ(DrawableScale(2.5), 2.5);
  EXPECT_EQ(DrawableScale(kNan), 1.0);
  EXPECT_EQ(DrawableScale(-3.0), 1.0);
  EXPECT_EQ(DrawableScale(0.0), 1.0);
  EXPECT_EQ(DrawableScale(1e300), 1000.0);
  EXPECT_EQ(DrawableScale(1e-300), 0.001);
}

}  // namespace
}  // namespace framenote::pixels
