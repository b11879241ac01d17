// SPDX-License-Identifier: MIT
#include "desktop/picture_scaler.h"

#include <string>

#include <gtest/gtest.h>

#include "support/test_pictures.h"

namespace framenote::test {

namespace {

using Enlarging = PictureScaler::Enlarging;

PictureScaler Scaler(wxImage const &picture, bool isBrief = false) {
  PictureScaler scaler;
  scaler.SetPicture(picture, isBrief);
  return scaler;
}

/// A picture of one row.
wxImage Row(std::vector<int> const &greys) {
  wxImage row(static_cast<int>(greys.size()), 1, false);
  for (int x = 0; x < row.GetWidth(); ++x) {
    auto const grey = static_cast<unsigned char>(greys[static_cast<std::size_t>(x)]);
    row.SetRGB(x, 0, grey, grey, grey);
  }
  return row;
}

std::vector<int> RedsOf(wxImage const &image) {
  std::vector<int> reds;
  for (int x = 0; x < image.GetWidth(); ++x) reds.push_back(image.GetRed(x, 0));
  return reds;
}

std::string PlaceAt(wxImage const &image, int x, int y) {
  return std::to_string(image.GetRed(x, y)) + "," + std::to_string(image.GetGreen(x, y));
}

TEST(PictureScaler, OneToOneCopiesTheVisiblePart) {
  PictureScaler scaler = Scaler(PlacePicture(100, 80));
  wxImage const part = scaler.Render({0, 0, 20, 10}, {-30, -40}, 1.0, Enlarging::Smooth);
  ASSERT_EQ(part.GetSize(), wxSize(20, 10));
  EXPECT_EQ(PlaceAt(part, 0, 0), "30,40");
  EXPECT_EQ(PlaceAt(part, 19, 9), "49,49");
}

TEST(PictureScaler, PixelsAreSquaresThatStartAtTheOrigin) {
  PictureScaler scaler = Scaler(PlacePicture(100, 80));
  // Pixel 7 begins at 7 * 4 - 30 = -2, pixel 8 at 2.
  wxImage const part = scaler.Render({0, 0, 9, 9}, {-30, 0}, 4.0, Enlarging::Pixels);
  EXPECT_EQ(RedsOf(part), (std::vector<int>{7, 7, 8, 8, 8, 8, 9, 9, 9}));
  EXPECT_EQ(PlaceAt(part, 0, 3), "7,0");
  EXPECT_EQ(PlaceAt(part, 0, 4), "7,1");
}

TEST(PictureScaler, SmoothEnlargingGoesStraightBetweenThePixelsMiddles) {
  PictureScaler scaler = Scaler(Row({0, 100}));
  // At 2 the middles are at 1 and 3; a quarter and three quarters lie between.
  wxImage const part = scaler.Render({0, 0, 4, 1}, {0, 0}, 2.0, Enlarging::Smooth);
  EXPECT_EQ(RedsOf(part), (std::vector<int>{0, 25, 75, 100}));
}

TEST(PictureScaler, ReducingTakesMeansOfAreas) {
  for (bool const isBrief : {true, false}) {
    PictureScaler scaler = Scaler(Row({0, 90, 30, 60, 100, 200}), isBrief);
    // Three pixels each.
    wxImage const third = scaler.Render({0, 0, 2, 1}, {0, 0}, 1.0 / 3.0, Enlarging::Smooth);
    EXPECT_EQ(third.GetRed(0, 0), 40) << isBrief;
    EXPECT_EQ(third.GetRed(1, 0), 120) << isBrief;
  }
  PictureScaler scaler = Scaler(Row({0, 90, 30}), true);
  // At 2/3 a pixel stands for one and a half: (0 + 45) / 1.5 and (45 + 30) / 1.5.
  wxImage const part = scaler.Render({0, 0, 2, 1}, {0, 0}, 2.0 / 3.0, Enlarging::Smooth);
  EXPECT_EQ(RedsOf(part), (std::vector<int>{30, 50}));
}

TEST(PictureScaler, APlainAreaStaysWhatItIsAtEveryZoom) {
  for (int const value : {0, 1, 127, 254, 255}) {
    PictureScaler scaler = Scaler(Row(std::vector<int>(1001, value)));
    for (double const zoom : {0.013, 0.1, 0.3, 0.7, 0.99, 1.0, 1.4, 3.3}) {
      for (bool const isBrief : {true, false}) {
        scaler.SetPicture(scaler.Picture(), isBrief);
        int const width = static_cast<int>(1001 * zoom + 0.5);
        wxImage const part = scaler.Render({0, 0, width, 1}, {0, 0}, zoom, Enlarging::Smooth);
        EXPECT_EQ(RedsOf(part), std::vector<int>(static_cast<std::size_t>(width), value)) << zoom;
      }
    }
  }
}

TEST(PictureScaler, ReducedCopiesShowWhatTheWholePictureWould) {
  wxImage const picture = PlacePicture(253, 201);
  PictureScaler kept = Scaler(picture);
  PictureScaler brief = Scaler(picture, true);
  for (double const zoom : {0.3, 0.2, 0.11}) {
    wxRect const target(0, 0, static_cast<int>(253 * zoom), static_cast<int>(201 * zoom));
    wxImage const a = kept.Render(target, {0, 0}, zoom, Enlarging::Smooth);
    wxImage const b = brief.Render(target, {0, 0}, zoom, Enlarging::Smooth);
    for (int y = 0; y < target.height; ++y) {
      for (int x = 0; x < target.width; ++x) {
        ASSERT_NEAR(a.GetRed(x, y), b.GetRed(x, y), 2) << zoom << ' ' << x << ' ' << y;
        ASSERT_NEAR(a.GetGreen(x, y), b.GetGreen(x, y), 2) << zoom << ' ' << x << ' ' << y;
      }
    }
  }
}

TEST(PictureScaler, APartIsWhatTheWholeShowsThere) {
  PictureScaler scaler = Scaler(NoisePicture(300, 200));
  for (double const zoom : {0.37, 1.0, 1.3, 2.5}) {
    wxRect const all(0, 0, static_cast<int>(300 * zoom), static_cast<int>(200 * zoom));
    wxRect const some(50, 20, 40, 30);
    wxImage const whole = scaler.Render(all, {0, 0}, zoom, Enlarging::Smooth);
    wxImage const part = scaler.Render(some, {0, 0}, zoom, Enlarging::Smooth);
    for (int y = 0; y < some.height; ++y) {
      for (int x = 0; x < some.width; ++x) {
        ASSERT_EQ(part.GetRed(x, y), whole.GetRed(x + some.x, y + some.y)) << zoom;
      }
    }
  }
}

TEST(PictureScaler, AnotherPictureReplacesTheReducedCopies) {
  PictureScaler scaler = Scaler(Row(std::vector<int>(64, 10)));
  scaler.Render({0, 0, 8, 1}, {0, 0}, 0.125, Enlarging::Smooth);
  scaler.SetPicture(Row(std::vector<int>(64, 20)), false);
  wxImage const part = scaler.Render({0, 0, 8, 1}, {0, 0}, 0.125, Enlarging::Smooth);
  EXPECT_EQ(RedsOf(part), std::vector<int>(8, 20));
}

TEST(PictureScaler, PicturesOfOnePixelScale) {
  for (double const zoom : {0.02, 0.9, 1.0, 1.7, 32.0}) {
    PictureScaler scaler = Scaler(Row({77}));
    wxImage const part = scaler.Render({0, 0, 1, 1}, {0, 0}, zoom, Enlarging::Smooth);
    EXPECT_EQ(part.GetRed(0, 0), 77) << zoom;
  }
}

}  // namespace

}  // namespace framenote::test
