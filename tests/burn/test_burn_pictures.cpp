// SPDX-License-Identifier: MIT
// Hide regions, lenses and pasted pictures, burnt in by the command.
#include <string>

#include <wx/image.h>

#include <gtest/gtest.h>

#include "burn/burn_fixture.h"
#include "objects/ann_hide.h"
#include "painters/pixel_matchers.h"

namespace framenote::test {

namespace {

/// An object with a rectangle; `members` are those before and beside it.
std::string Boxed(std::string const &members, std::string const &runs) {
  return "{" + members + R"(,"Rectangle":{"StartFrame":0,"EndFrame":9,"Coordinates":[)" + runs +
         "]}}";
}

std::string Region(std::string const &look, std::string const &runs) {
  return Boxed(R"("Id":7,"Properties":{)" + look + "}", runs);
}

std::string Lens(std::string const &look, std::string const &runs) {
  return Boxed(R"("Id":8,"CoordinatesCenterPoint":[],"Properties":{)" + look + "}", runs);
}

std::string Picture(std::string const &path, std::string const &runs) {
  return Boxed(R"("Id":6,"Properties":{"FileName":")" + path +
                   R"(","KeepAspectRatio":false,"TransparentColor":0})",
               runs);
}

std::string const kMiddle = Span("0,9", "50", "20", "149", "79");

class BurnPictures : public Burn {
protected:
  wxImage Burnt(std::string const &objects, Arguments const &more = {}, int leftOut = 0) {
    WriteAll(In("pictures.json"), Document(objects));
    Outcome const outcome = RunProgram(Usual(more, "pictures.json"));
    EXPECT_EQ(outcome.err, LeftOutText(In("pictures.json"), leftOut));
    EXPECT_EQ(outcome.code, 0);
    EXPECT_LT(outcome.maxKilobytes, 500'000) << objects;
    return Result();
  }
  wxImage Source() { return wxImage(wxString::FromUTF8(In("in.png"))); }
  /// Whether the picture is as it was, but in `area`.
  static testing::AssertionResult IsUntouchedBeside(wxImage const &image, wxRect const &area) {
    for (int y = 0; y < kHeight; ++y) {
      for (int x = 0; x < kWidth; ++x) {
        if (area.Contains(x, y) || ColourAt(image, x, y) == GroundAt(x, y)) continue;
        return testing::AssertionFailure() << "(" << x << ", " << y << ")";
      }
    }
    return testing::AssertionSuccess();
  }
};

TEST_F(BurnPictures, RegionIsHiddenWithEitherPainterAndTheSameBytesEachTime) {
  wxImage const hidden = AnnHide::GetBlurredBitmapFromImage(Source(), 20).ConvertToImage();
  std::string const region = Region(R"("Effect":0,"Strength":20,"Shape":0)", kMiddle);
  for (char const *painter : {"gc", "dc"}) {
    wxImage const burnt = Burnt(region, {"--painter", painter});
    wxRect const area(50, 20, 100, 60);
    EXPECT_TRUE(IsUntouchedBeside(burnt, area));
    EXPECT_TRUE(pixels::Alike(burnt.GetSubImage(area), hidden.GetSubImage(area), 0)) << painter;
    std::string const bytes = ReadAll(In("out.png"));
    Burnt(region, {"--painter", painter});
    EXPECT_EQ(ReadAll(In("out.png")), bytes);
  }
}

TEST_F(BurnPictures, LensShowsThePictureEnlarged) {
  wxImage const burnt = Burnt(Lens(R"("Zoom":2.0,"ZoomMethod":0,"BorderType":0)", kMiddle));
  // 99 by 59 pixels about (98, 49): x shows (x + 98) / 2, y shows (y + 49) / 2.
  EXPECT_TRUE(IsUntouchedBeside(burnt, wxRect(50, 20, 99, 59)));
  EXPECT_EQ(ColourAt(burnt, 98, 49), GroundAt(98, 49));
  EXPECT_EQ(ColourAt(burnt, 50, 49), GroundAt(74, 49));
  EXPECT_EQ(ColourAt(burnt, 148, 77), GroundAt(123, 63));
}

TEST_F(BurnPictures, PictureIsPastedAndAMissingOneIsLeftOut) {
  wxImage red(10, 10);
  red.SetRGB(wxRect(0, 0, 10, 10), 255, 0, 0);
  ASSERT_TRUE(red.SaveFile(In("red.png"), wxBITMAP_TYPE_PNG));
  wxImage const burnt =
      Burnt(Picture(In("red.png"), kMiddle) + "," + Picture(In("gone.png"), kMiddle) + "," +
                Picture(In(""), kMiddle) + "," + Picture("/dev/zero", kMiddle),
            {}, 3);
  EXPECT_EQ(ColourAt(burnt, 100, 50), kRed);
  EXPECT_TRUE(IsUntouchedBeside(burnt, wxRect(49, 19, 102, 62)));
}

TEST_F(BurnPictures, ValuesOutsideTheirSenseLeaveTheRestPainted) {
  std::string objects = RedShape("0", "9", Span("0,9", "-0.5", "-0.5", "9.5", "9.5"));
  for (char const *strength : {"-1", "0", "51", "1000000000", "1e300", "\"a\"", "null"}) {
    objects += "," + Region(std::string(R"("Effect":1,"Strength":)") + strength, kMiddle);
    objects += "," + Region(std::string(R"("Effect":0,"Shape":0,"Strength":)") + strength, kMiddle);
  }
  for (char const *zoom : {"0", "-3", "1e9", "1e300", "null", "[]"}) {
    objects +=
        "," +
        Lens(std::string(R"("ZoomMethod":2,"BorderType":4,"Thickness":1000000000,"Zoom":)") + zoom,
             Span("0,9", "120", "60", "140", "80"));
  }
  for (char const *far : {"1e9", "1e300"}) {
    std::string const all = Span("0,9", std::string("-") + far, std::string("-") + far, far, far);
    objects += "," + Region(R"("Effect":1,"Strength":40)", all);
    objects += "," + Lens(R"("Zoom":8.0,"ZoomMethod":1)", all);
    objects += "," + Region(R"("Effect":1,"Strength":40)", Span("0,9", far, far, "2e300", "2e300"));
  }
  // The regions that are a point, far away.
  wxImage const burnt = Burnt(objects, {}, 2);
  EXPECT_EQ(ColourAt(burnt, 5, 5), kRed);
  EXPECT_NE(ColourAt(burnt, 100, 50), GroundAt(100, 50));
}

}  // namespace

}  // namespace framenote::test
