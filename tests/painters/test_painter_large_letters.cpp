// SPDX-License-Identifier: MIT
#include <wx/font.h>

#include "painters/painter_fixture.h"
#include "support/memory_use.h"

namespace framenote::pixels {
namespace {

/// Letters above some 128 device pixels are painted another way, which must not be seen.
class PainterLargeLetters : public BothPainters {
protected:
  static wxImage paintedText(wxString const &text, double points, double scale, double angle,
                             wxFontInfo const &info = wxFontInfo().Family(wxFONTFAMILY_SWISS)) {
    wxFont font(info);
    font.SetFractionalPointSize(points);
    wxPoint2DDouble const start(angle == 0.0 ? 20 / scale : 200 / scale, 200 / scale);
    return Painted(GetParam(), {700, 900}, scale, [&](IAnnPainter &painter) {
      painter.DrawText(start, angle, text, font, ToColour(kRed));
    });
  }

  /// Paints one letter after another, each on a surface of its own.
  static std::size_t growthByLetters(wxUniChar::value_type first, unsigned count,
                                     char const *face) {
    auto const paintAll = [&](wxUniChar::value_type from, unsigned letters) {
      for (unsigned i = 0; i < letters; ++i) {
        paintedText(wxUniChar(from + i), 300, 1.0, 0.0, wxFontInfo().FaceName(face));
      }
    };
    paintAll(first, 2);
    test::MemoryUse const before = test::MemoryUse::Now();
    paintAll(first + 2, count);
    return test::MemoryUse::Now().GrowthSince(before);
  }
};
FRAMENOTE_WITH_BOTH_PAINTERS(PainterLargeLetters);

/// Text is laid out in whole units of a surface's scale: so many pixels it may be off.
void ExpectTwiceTheBounds(wxImage const &larger, wxImage const &smaller, wxPoint const &start,
                          int tolerance = 5) {
  wxRect const large = BoundsOf(larger, kRed, 100);
  wxRect const small = BoundsOf(smaller, kRed, 100);
  ASSERT_FALSE(small.IsEmpty());
  EXPECT_NEAR(large.width, 2 * small.width, tolerance);
  EXPECT_NEAR(large.height, 2 * small.height, tolerance);
  EXPECT_NEAR(large.x - start.x, 2 * (small.x - start.x), tolerance);
  EXPECT_NEAR(large.y - start.y, 2 * (small.y - start.y), tolerance);
}

void ExpectFourTimesTheInk(wxImage const &larger, wxImage const &smaller) {
  int const ink = CountOf(smaller, kRed, 100);
  EXPECT_NEAR(CountOf(larger, kRed, 100), 4 * ink, 0.12 * ink);
}

TEST_P(PainterLargeLetters, LookLikeSmallerOnesEnlarged) {
  wxImage const smaller = paintedText("Hg", 90, 1.0, 0.0);
  wxImage const larger = paintedText("Hg", 180, 1.0, 0.0);
  ExpectTwiceTheBounds(larger, smaller, {20, 200});
  ExpectFourTimesTheInk(larger, smaller);
}

TEST_P(PainterLargeLetters, LookTheSameWhereTheScaleEnlargesThem) {
  wxImage const smaller = paintedText("Hg", 30, 3.0, 0.0);
  wxImage const larger = paintedText("Hg", 60, 3.0, 0.0);
  ExpectTwiceTheBounds(larger, smaller, {20, 200}, 9);
  ExpectFourTimesTheInk(larger, smaller);
}

TEST_P(PainterLargeLetters, TurnAboutTheSamePlace) {
  for (double const angle : {0.6, -0.9}) {
    wxImage const smaller = paintedText("Hg", 90, 1.0, angle);
    wxImage const larger = paintedText("Hg", 180, 1.0, angle);
    ExpectTwiceTheBounds(larger, smaller, {200, 200});
    ExpectFourTimesTheInk(larger, smaller);
  }
}

TEST_P(PainterLargeLetters, AreUnderlinedAndStruckThrough) {
  wxFontInfo const plain = wxFontInfo().Family(wxFONTFAMILY_SWISS);
  wxFontInfo const lined = wxFontInfo(plain).Underlined().Strikethrough();
  wxImage const larger = paintedText("l l", 180, 1.0, 0.0, lined);
  ExpectTwiceTheBounds(larger, paintedText("l l", 90, 1.0, 0.0, lined), {20, 200});
  EXPECT_GT(CountOf(larger, kRed, 100),
            CountOf(paintedText("l l", 180, 1.0, 0.0, plain), kRed, 100) + 2000);
}

TEST_P(PainterLargeLetters, TakeTheTransparencyOfTheColourOnce) {
  wxFont font(wxFontInfo(300).Family(wxFONTFAMILY_SWISS));
  wxImage const image = Painted(GetParam(), {400, 500}, 1.0, [&](IAnnPainter &painter) {
    painter.DrawText({0, 0}, 0.0, "H", font, ToColour(kRed, 102));
  });
  // 102 of 255 are 0.4: white gives 255 of red and 153 of the others.
  EXPECT_GT(CountOf(image, {255, 153, 153}, 2), 10000);
  EXPECT_EQ(CountOf(image, kRed, 100), 0);
}

TEST_P(PainterLargeLetters, WithColoursOfTheirOwnKeepThem) {
  // A round yellow face with dark eyes, as high as the letters beside it.
  wxImage const image = paintedText(wxUniChar(0x1F600), 200, 1.0, 0.0);
  wxRect const bounds = BoundsOfPaint(image);
  EXPECT_GT(bounds.width, 200);
  EXPECT_NEAR(bounds.width, bounds.height, 12);
  Rgb const cheek = ColourAt(image, bounds.x + bounds.width / 2, bounds.y + bounds.height / 8);
  EXPECT_GT(cheek.red, 200);
  EXPECT_GT(cheek.green, 150);
  EXPECT_LT(cheek.blue, 120);
}

TEST_P(PainterLargeLetters, AreNotKept) {
  // 400 x 400 pixels for each of 300 would be 46 MiB.
  EXPECT_LT(growthByLetters(0x4E00, 300, "Droid Sans Fallback"), 12U << 20);
}

TEST_P(PainterLargeLetters, WithColoursOfTheirOwnAreKeptSmall) {
  // 400 x 400 pixels of four bytes for each of 60 would be 37 MiB.
  EXPECT_LT(growthByLetters(0x1F601, 60, "Noto Color Emoji"), 12U << 20);
}

}  // namespace
}  // namespace framenote::pixels
