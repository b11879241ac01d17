// SPDX-License-Identifier: MIT
#include <limits>

#include <wx/font.h>

#include "painters/painter_fixture.h"
#include "talbase/layout_direction.h"

namespace framenote::pixels {
namespace {

constexpr double kQuarterTurn = 1.5707963267948966;

class PainterText : public BothPainters {};
FRAMENOTE_WITH_BOTH_PAINTERS(PainterText);

class PainterBitmaps : public BothPainters {};
FRAMENOTE_WITH_BOTH_PAINTERS(PainterBitmaps);

wxFont Sans(int points) {
  return wxFont(wxFontInfo(points).Family(wxFONTFAMILY_SWISS));
}

struct Extent {
  double width = -1;
  double height = -1;
  double leading = -1;
};

Extent Measured(IAnnPainter &painter, wxString const &text, wxFont const &font) {
  Extent extent;
  painter.GetTextExtent(text, font, extent.width, extent.height, extent.leading);
  return extent;
}

TEST_P(PainterText, LiesRightOfAndBelowItsPosition) {
  Extent extent;
  wxImage const image = Painted(GetParam(), {120, 80}, 1.0, [&](IAnnPainter &painter) {
    painter.DrawText({30, 20}, 0.0, "HHH", Sans(12), ToColour(kRed));
    extent = Measured(painter, "HHH", Sans(12));
  });
  wxRect const bounds = BoundsOfPaint(image);
  ASSERT_FALSE(bounds.IsEmpty());
  wxRect const box(30, 20, static_cast<int>(extent.width) + 1, static_cast<int>(extent.height) + 1);
  EXPECT_TRUE(box.Contains(bounds));
  EXPECT_GT(bounds.width * 10, extent.width * 7);
  EXPECT_GT(CountOf(image, kRed, 100), 20);
}

TEST_P(PainterText, TurnsCounterClockwiseAboutItsPosition) {
  Extent extent;
  wxImage const image = Painted(GetParam(), {120, 120}, 1.0, [&](IAnnPainter &painter) {
    painter.DrawText({30, 100}, kQuarterTurn, "HHHHH", Sans(12), ToColour(kRed));
    extent = Measured(painter, "HHHHH", Sans(12));
  });
  // The text runs upward from (30, 100), its lower edge to the right.
  wxRect const bounds = BoundsOfPaint(image);
  ASSERT_FALSE(bounds.IsEmpty());
  wxRect const box(29, 99 - static_cast<int>(extent.width), static_cast<int>(extent.height) + 2,
                   static_cast<int>(extent.width) + 2);
  EXPECT_TRUE(box.Contains(bounds));
  EXPECT_GT(bounds.height, bounds.width);
}

TEST_P(PainterText, ExtentGrowsWithTheTextAndItsLines) {
  painted([](IAnnPainter &painter) {
    Extent const one = Measured(painter, "Hxg", Sans(12));
    Extent const twice = Measured(painter, "HxgHxg", Sans(12));
    Extent const lines = Measured(painter, "Hxg\nHxg", Sans(12));
    EXPECT_GT(one.width, 10);
    EXPECT_NEAR(twice.width, 2 * one.width, 2);
    EXPECT_NEAR(twice.height, one.height, 1);
    EXPECT_NEAR(lines.width, one.width, 1);
    EXPECT_NEAR(lines.height, 2 * one.height, 2);
    EXPECT_GE(one.leading, 0);
  });
}

TEST_P(PainterText, ExtentIsInPicturePixelsAtAnyScale) {
  auto const measuredAt = [&](double scale) {
    Extent extent;
    Painted(GetParam(), {10, 10}, scale,
            [&](IAnnPainter &painter) { extent = Measured(painter, "Hxg Hxg", Sans(20)); });
    return extent;
  };
  Extent const plain = measuredAt(1.0);
  for (double const scale : {0.5, 3.0}) {
    EXPECT_NEAR(measuredAt(scale).width, plain.width, plain.width * 0.05) << scale;
    EXPECT_NEAR(measuredAt(scale).height, plain.height, plain.height * 0.05) << scale;
  }
}

TEST_P(PainterText, GrowsWithTheScale) {
  auto const boundsAt = [&](double scale, double points) {
    wxFont font = Sans(12);
    font.SetFractionalPointSize(points);
    return BoundsOfPaint(Painted(GetParam(), {400, 300}, scale, [&](IAnnPainter &painter) {
      painter.DrawText({0, 0}, 0.0, "H", font, ToColour(kRed));
    }));
  };
  wxRect const plain = boundsAt(1.0, 96.0);
  ASSERT_FALSE(plain.IsEmpty());
  for (double const scale : {0.5, 3.0, 8.0}) {
    wxRect const scaled = boundsAt(scale, 96.0 / scale);
    EXPECT_NEAR(scaled.x, plain.x, 4) << scale;
    EXPECT_NEAR(scaled.y, plain.y, 8) << scale;
    EXPECT_NEAR(scaled.width, plain.width, 8) << scale;
    EXPECT_NEAR(scaled.height, plain.height, 8) << scale;
  }
}

TEST_P(PainterText, IsPaintedAtAStrongZoom) {
  // 12 points and 64 times are ordinary, and the whole picture is lost if the text fails.
  wxImage const image = Painted(GetParam(), {900, 1300}, 64.0, [](IAnnPainter &painter) {
    painter.DrawText({0, 0}, 0.0, "H", Sans(12), ToColour(kRed));
    Extent const extent = Measured(painter, "H", Sans(12));
    EXPECT_GT(extent.width, 5);
    EXPECT_LT(extent.width, 25);
    painter.ResetScale();
    painter.DrawPolygon(Corners(0, 0, 9, 9), ToColour(kGreen));
  });
  EXPECT_EQ(BoundsOf(image, kGreen), wxRect(0, 0, 9, 9));
  wxRect const bounds = BoundsOf(image, kRed);
  EXPECT_GT(bounds.height, 600);  // a capital is some 12 pixels high
  EXPECT_LT(bounds.height, 1000);
}

TEST_P(PainterText, MeasuringPaintsNothing) {
  wxImage const image = painted([](IAnnPainter &painter) { Measured(painter, "Hxg", Sans(12)); });
  EXPECT_TRUE(BoundsOfPaint(image).IsEmpty());
}

TEST_P(PainterText, WithoutAFontOrColourIsNotPainted) {
  wxImage const image = painted([](IAnnPainter &painter) {
    painter.DrawText({5, 5}, 0.0, "H", wxNullFont, ToColour(kRed));
    painter.DrawText({5, 5}, 0.0, "H", Sans(12), wxNullColour);
    painter.DrawText({5, 5}, 0.0, "", Sans(12), ToColour(kRed));
    Extent const extent = Measured(painter, "H", wxNullFont);
    EXPECT_EQ(extent.width, 0);
    EXPECT_EQ(extent.height, 0);
    EXPECT_EQ(extent.leading, 0);
  });
  EXPECT_TRUE(BoundsOfPaint(image).IsEmpty());
}

/// `width` by `height`, the left half red and the right half blue.
wxBitmap RedAndBlue(int width, int height) {
  wxImage image(width, height);
  image.SetRGB({0, 0, width / 2, height}, 255, 0, 0);
  image.SetRGB({width / 2, 0, width - width / 2, height}, 0, 0, 255);
  return wxBitmap(image);
}

TEST_P(PainterBitmaps, BitmapKeepsItsSize) {
  wxImage const image = painted([](IAnnPainter &painter) {
    painter.DrawBitmap({3, 5}, RedAndBlue(8, 6));
  });
  EXPECT_EQ(BoundsOf(image, kRed), wxRect(3, 5, 4, 6));
  EXPECT_EQ(BoundsOf(image, kBlue), wxRect(7, 5, 4, 6));
  EXPECT_EQ(BoundsOfPaint(image), wxRect(3, 5, 8, 6));
}

TEST_P(PainterBitmaps, BitmapIsPaintedThroughItsMask) {
  wxBitmap bitmap = RedAndBlue(8, 6);
  bitmap.SetMask(new wxMask(bitmap, *wxBLUE));  // owned by the bitmap
  wxImage const image = painted([&](IAnnPainter &painter) { painter.DrawBitmap({3, 5}, bitmap); });
  EXPECT_EQ(BoundsOfPaint(image), wxRect(3, 5, 4, 6));
  EXPECT_EQ(CountOf(image, kRed), 24);
}

TEST_P(PainterBitmaps, ImageIsStretchedAboutItsCentre) {
  wxImage const image = painted([](IAnnPainter &painter) {
    painter.DrawImage({20, 20}, 20, 10, 0.0, RedAndBlue(10, 10));
  });
  EXPECT_TRUE(AreaHas(image, {11, 16, 7, 8}, kRed, 2));
  EXPECT_TRUE(AreaHas(image, {22, 16, 7, 8}, kBlue, 2));
  EXPECT_TRUE(wxRect(9, 14, 22, 12).Contains(BoundsOfPaint(image)));
}

TEST_P(PainterBitmaps, ImageTurnsClockwise) {
  wxImage const image = painted([](IAnnPainter &painter) {
    painter.DrawImage({20, 20}, 20, 10, kQuarterTurn, RedAndBlue(20, 10));
  });
  // What was left is on top.
  EXPECT_TRUE(AreaHas(image, {16, 11, 8, 7}, kRed, 2));
  EXPECT_TRUE(AreaHas(image, {16, 22, 8, 7}, kBlue, 2));
}

TEST_P(PainterBitmaps, ImageIsMirroredInAMirroredInterface) {
  TalSetLayoutDirection(wxLayout_RightToLeft);
  wxImage const image = painted([](IAnnPainter &painter) {
    painter.DrawImage({20, 20}, 20, 10, 0.0, RedAndBlue(20, 10));
  });
  TalSetLayoutDirection(wxLayout_Default);
  EXPECT_TRUE(AreaHas(image, {11, 16, 7, 8}, kBlue, 2));
  EXPECT_TRUE(AreaHas(image, {22, 16, 7, 8}, kRed, 2));
}

TEST_P(PainterBitmaps, ImageLeavesTheSurfaceAsItWas) {
  wxImage const image = painted([](IAnnPainter &painter) {
    painter.DrawImage({20, 20}, 20, 10, 1.0, RedAndBlue(20, 10));
    painter.DrawPolygon(Corners(0, 0, 5, 5), ToColour(kGreen));
  });
  EXPECT_EQ(BoundsOf(image, kGreen), wxRect(0, 0, 5, 5));
}

TEST_P(PainterBitmaps, InvalidBitmapsAndSizesPaintNothing) {
  double const nan = std::numeric_limits<double>::quiet_NaN();
  double const infinity = std::numeric_limits<double>::infinity();
  wxImage const image = painted([&](IAnnPainter &painter) {
    painter.DrawBitmap({3, 5}, wxNullBitmap);
    painter.DrawImage({20, 20}, 20, 10, 0.0, wxNullBitmap);
    for (double const size : {0.0, -4.0, nan, infinity, -infinity}) {
      painter.DrawImage({20, 20}, size, 10, 0.0, RedAndBlue(20, 10));
      painter.DrawImage({20, 20}, 10, size, 0.0, RedAndBlue(20, 10));
    }
  });
  EXPECT_TRUE(BoundsOfPaint(image).IsEmpty());
}

}  // namespace
}  // namespace framenote::pixels
