// SPDX-License-Identifier: MIT
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "modes/ann_hide_tool_mode.h"
#include "object_support.h"
#include "objects/ann_hide.h"
#include "objects/hidden_picture_cache.h"
#include "support/test_pictures.h"

namespace framenote::test {

namespace {

constexpr double kQuarterTurn = 3.141592653589793 / 2.0;

wxRect Between(wxPoint const &a, wxPoint const &b) {
  return {a, b};
}

class AnnHideTest : public ObjectTest {
protected:
  AnnHideTest() : m_picture(NoisePicture(120, 100)) {
    m_driver.Tool().SetImage(m_picture, true);
    Look().SetShape(AnnShapeProperties::Rectangle);
  }

  AnnHideToolMode &Mode() { return *Modes().hide; }
  AnnHideProperties &Look() { return *Mode().m_properties; }
  int Runs() { return Mode().WholePictures().RunCount(); }
  AnnHide Region(wxRect const &rect, std::int64_t frame = 0) {
    return {Modes().shape, Modes().hide, rect, m_driver.Tool().GetImage(), frame};
  }
  AnnHide Restored(wxJSONValue const &json) {
    return {Modes().shape, Modes().hide, json, m_driver.Tool().GetImage()};
  }
  /// The region painted on white.
  wxImage Paint(AnnHide const &region,
                IAnnPainter::AnnPainterType type = IAnnPainter::GraphicsContext) {
    return PaintedBy(type, wxSize(120, 100), 1.0,
                     [&](auto &painter) { region.Draw(painter, wxPoint2DDouble(0.0, 0.0)); });
  }
  wxImage Pixelated(int strength) {
    return AnnHide::GetPixelatedBitmapFromImage(m_picture, strength).ConvertToImage();
  }
  wxImage Blurred(int strength) {
    return AnnHide::GetBlurredBitmapFromImage(m_picture, strength).ConvertToImage();
  }
  /// Whether the region's pixels are those of `whole` in `area`, and white elsewhere.
  static testing::AssertionResult ShowsOnly(wxImage const &painted, wxImage const &whole,
                                            wxRect const &area) {
    for (int y = 0; y < painted.GetHeight(); ++y) {
      for (int x = 0; x < painted.GetWidth(); ++x) {
        pixels::Rgb const expected =
            area.Contains(x, y) ? pixels::ColourAt(whole, x, y) : pixels::kWhite;
        if (pixels::ColourAt(painted, x, y) == expected) continue;
        return testing::AssertionFailure()
               << "pixel (" << x << ", " << y << ") is " << pixels::ColourAt(painted, x, y);
      }
    }
    return testing::AssertionSuccess();
  }

  wxImage m_picture;
};

TEST_F(AnnHideTest, ShowsItsPartOfTheHiddenPictureUpToItsLastPixel) {
  Look().SetStrength(7);
  for (auto const type : {IAnnPainter::GraphicsContext, IAnnPainter::DeviceContext}) {
    Look().SetEffect(AnnHideProperties::Pixelation);
    EXPECT_TRUE(ShowsOnly(Paint(Region(Between({10, 20}, {60, 50})), type), Pixelated(7),
                          wxRect(10, 20, 51, 31)));
    Look().SetEffect(AnnHideProperties::Blur);
    EXPECT_TRUE(ShowsOnly(Paint(Region(Between({10, 20}, {60, 50})), type), Blurred(7),
                          wxRect(10, 20, 51, 31)));
  }
}

TEST_F(AnnHideTest, BothWaysToTheBitmapGiveTheSamePixels) {
  for (auto const effect : {AnnHideProperties::Blur, AnnHideProperties::Pixelation}) {
    for (int const strength : {1, 5, 13, 50}) {
      Look().SetEffect(effect);
      Look().SetStrength(strength);
      AnnHide region = Region(Between({33, 21}, {77, 68}));
      wxImage const fromWhole = Paint(region);
      region.UpdateSubImageAndStoreAsSubBitmap();
      EXPECT_TRUE(pixels::Alike(Paint(region), fromWhole, 0)) << strength;
    }
  }
}

TEST_F(AnnHideTest, EllipseIsCutOutOfItsRectangle) {
  Look().SetShape(AnnShapeProperties::Ellipse);
  wxImage const painted = Paint(Region(Between({20, 20}, {80, 60})));
  EXPECT_EQ(pixels::BoundsOfPaint(painted), wxRect(20, 20, 61, 41));
  // The corners of its rectangle stay free: outside (x - 50)^2 / 30^2 + (y - 40)^2 / 20^2 = 1.
  EXPECT_EQ(pixels::ColourAt(painted, 24, 24), pixels::kWhite);
  EXPECT_EQ(pixels::ColourAt(painted, 76, 56), pixels::kWhite);
  EXPECT_EQ(pixels::ColourAt(painted, 50, 21), pixels::ColourAt(Pixelated(40), 50, 21));
}

TEST_F(AnnHideTest, RegionThatOverhangsIsCutByItsTrueShape) {
  Look().SetShape(AnnShapeProperties::Ellipse);
  // An ellipse about (0, 50), of which the right half lies in the picture.
  wxImage const painted = Paint(Region(Between({-40, 30}, {40, 70})));
  EXPECT_EQ(pixels::BoundsOfPaint(painted), wxRect(0, 30, 41, 41));
  EXPECT_EQ(pixels::ColourAt(painted, 0, 31), pixels::ColourAt(Pixelated(40), 0, 31));
  EXPECT_EQ(pixels::ColourAt(painted, 38, 50), pixels::ColourAt(Pixelated(40), 38, 50));
  // At (30, 35) the ellipse is (30 / 40)^2 + (15 / 20)^2 > 1.
  EXPECT_EQ(pixels::ColourAt(painted, 30, 35), pixels::kWhite);
}

TEST_F(AnnHideTest, RegionOutsideThePicturePaintsItsBorderOnly) {
  Look().SetBorderColor(*wxRED);
  AnnHide region = Region(Between({200, 200}, {250, 250}));
  EXPECT_FALSE(region.WouldDisappear());
  EXPECT_EQ(pixels::BoundsOfPaint(Paint(region)), wxRect());
  wxImage const beside =
      PaintedBy(IAnnPainter::GraphicsContext, wxSize(300, 300), 1.0, [&](auto &painter) {
        region.Draw(painter, {0.0, 0.0});
      });
  EXPECT_TRUE(pixels::AreaHas(beside, wxRect(205, 205, 40, 40), pixels::kWhite));
  EXPECT_GT(pixels::CountOf(beside, pixels::kRed, 10), 300);
}

TEST_F(AnnHideTest, TransparentBorderIsTheDefaultAndPaintsNoOutline) {
  EXPECT_EQ(Look().GetBorderColor().Alpha(), 0);
  EXPECT_TRUE(
      ShowsOnly(Paint(Region(Between({10, 20}, {60, 50}))), Pixelated(40), wxRect(10, 20, 51, 31)));
  Look().SetBorderColor(*wxRED);
  Look().SetThickness(4);
  wxImage const painted = Paint(Region(Between({10, 20}, {60, 50})));
  EXPECT_EQ(pixels::ColourAt(painted, 35, 21), pixels::kRed);
  EXPECT_EQ(pixels::ColourAt(painted, 35, 35), pixels::ColourAt(Pixelated(40), 35, 35));
}

TEST_F(AnnHideTest, BorderThatLeavesNoInsideCoversAll) {
  Look().SetBorderColor(*wxRED);
  Look().SetThickness(30);
  for (auto const shape : {AnnShapeProperties::Rectangle, AnnShapeProperties::Ellipse}) {
    Look().SetShape(shape);
    EXPECT_EQ(pixels::ColourAt(Paint(Region(Between({10, 20}, {60, 50}))), 35, 35), pixels::kRed);
  }
}

TEST_F(AnnHideTest, StrengthBeyondItsSenseActsAsTheNearestOne) {
  auto const painted = [&](int strength) {
    Look().SetStrength(strength);
    return Paint(Region(Between({10, 20}, {60, 50})));
  };
  wxImage const least = painted(1);
  EXPECT_TRUE(pixels::Alike(painted(0), least, 0));
  EXPECT_TRUE(pixels::Alike(painted(-1), least, 0));
  EXPECT_FALSE(pixels::Alike(painted(51), painted(50), 0));
  wxImage const most = painted(1'000'000'000);
  EXPECT_EQ(pixels::CountOf(most, pixels::ColourAt(most, 35, 35)), 51 * 31);
}

TEST_F(AnnHideTest, UnknownEffectAndShapePaintNothing) {
  AnnHide const region = Region(Between({10, 20}, {60, 50}));
  wxJSONValue json = region.ToJSON();
  wxJSONValue look = json.ItemAt("Properties");
  look.Set("Effect", 7);
  json.Set("Properties", look);
  EXPECT_EQ(pixels::BoundsOfPaint(Paint(Restored(json))), wxRect());
  look.Set("Effect", 0);
  look.Set("Shape", 7);
  json.Set("Properties", look);
  EXPECT_EQ(pixels::BoundsOfPaint(Paint(Restored(json))), wxRect());
}

TEST_F(AnnHideTest, RegionIsHitAllOver) {
  AnnHide const region = Region(Between({10, 20}, {60, 50}));
  EXPECT_TRUE(region.Contains({35, 35}));
  EXPECT_TRUE(region.Contains({10, 20}));
  EXPECT_FALSE(region.Contains({61, 35}));
}

TEST_F(AnnHideTest, DocumentHasItsMembersInOrder) {
  AnnHide const region = Region(Between({1, 2}, {30, 40}));
  wxJSONValue const look = region.ToJSON().ItemAt("Properties");
  EXPECT_EQ(JsonToUtf8(region.ToJSON()),
            R"({"Id":7,"Properties":)" + JsonToUtf8(look) +
                R"(,"Rectangle":{"StartFrame":0,"EndFrame":0,"Coordinates":[{"TopLeft":[1.0,2.0],)"
                R"("TopRight":[30.0,2.0],"BottomRight":[30.0,40.0],"BottomLeft":[1.0,40.0],)"
                R"("Range":[0,0]}],"Id":2,"Properties":{"Shape":0,"BorderColor":"#FF0000FF",)"
                R"("BorderColorTransparent":true,"FillColor":"#000000FF",)"
                R"("FillColorTransparent":false,"Thickness":3}}})");
}

TEST_F(AnnHideTest, RestoredRegionShowsTheSame) {
  Look().SetEffect(AnnHideProperties::Blur);
  Look().SetStrength(9);
  AnnHide const region = Region(Between({10, 20}, {60, 50}));
  AnnHide const restored = Restored(region.ToJSON());
  EXPECT_TRUE(pixels::Alike(Paint(restored), Paint(region), 0));
  EXPECT_EQ(JsonToUtf8(restored.ToJSON()), JsonToUtf8(region.ToJSON()));
}

TEST_F(AnnHideTest, ValidatorAsksForTheRectangleOnly) {
  wxJSONValue json = Region(Between({1, 2}, {30, 40})).ToJSON();
  EXPECT_TRUE(AnnHide::IsJSONValid(json));
  wxJSONValue without(wxJSONTYPE_OBJECT);
  without.Set("Id", 7);
  EXPECT_FALSE(AnnHide::IsJSONValid(without));
  without.Set("Rectangle", json.ItemAt("Rectangle"));
  EXPECT_TRUE(AnnHide::IsJSONValid(without));
}

TEST_F(AnnHideTest, MovingCutsAnewAndRunsNoEffect) {
  AnnHide region = Region(Between({10, 20}, {40, 50}));
  int const runs = Runs();
  region.MoveFor({30, 20});
  EXPECT_TRUE(ShowsOnly(Paint(region), Pixelated(40), wxRect(40, 40, 31, 31)));
  region.MoveAllFramesFor({-10, -10});
  EXPECT_TRUE(ShowsOnly(Paint(region), Pixelated(40), wxRect(30, 30, 31, 31)));
  wxStockCursor cursor = wxCURSOR_ARROW;
  ASSERT_TRUE(region.IsAtResizePoint({66, 66}, cursor));
  region.PrepareResizing();
  region.ResizeTo({90, 80}, false);
  EXPECT_TRUE(ShowsOnly(Paint(region), Pixelated(40), wxRect(30, 30, 61, 51)));
  EXPECT_EQ(Runs(), runs);
}

TEST_F(AnnHideTest, TurnedRegionCoversItsTurnedShape) {
  AnnHide region = Region(Between({40, 30}, {80, 50}));
  region.RememberCurrentPosition();
  region.Rotate({110, 40});
  ASSERT_NEAR(region.GetRotationAngle(), kQuarterTurn, 1e-9);
  // 40 by 20 about (60, 40) became 20 by 40.
  EXPECT_TRUE(ShowsOnly(Paint(region), Pixelated(40), wxRect(50, 20, 21, 41)));
}

TEST_F(AnnHideTest, ChangeOfTheBorderRunsNoEffect) {
  AnnHide region = Region(Between({10, 20}, {60, 50}));
  int const runs = Runs();
  Look().SetBorderColor(*wxBLUE);
  region.UpdateProperties();
  EXPECT_EQ(Runs(), runs);
  EXPECT_EQ(pixels::ColourAt(Paint(region), 35, 20), pixels::kBlue);
  EXPECT_EQ(pixels::ColourAt(Paint(region), 35, 35), pixels::ColourAt(Pixelated(40), 35, 35));
}

TEST_F(AnnHideTest, ChangeOfTheEffectFindsTheOtherOneReady) {
  AnnHide region = Region(Between({10, 20}, {60, 50}));
  int const runs = Runs();
  Look().SetEffect(AnnHideProperties::Blur);
  region.UpdateProperties();
  EXPECT_EQ(Runs(), runs);
  EXPECT_TRUE(ShowsOnly(Paint(region), Blurred(40), wxRect(10, 20, 51, 31)));
}

TEST_F(AnnHideTest, ChangeOfTheStrengthShowsAtOnceAndRunsAtTheNextMove) {
  AnnHide region = Region(Between({10, 20}, {60, 50}));
  int const runs = Runs();
  Look().SetStrength(11);
  region.UpdateProperties();
  EXPECT_TRUE(ShowsOnly(Paint(region), Pixelated(11), wxRect(10, 20, 51, 31)));
  EXPECT_EQ(Runs(), runs);
  region.MoveFor({1, 0});
  EXPECT_EQ(Runs(), runs + 1);
  EXPECT_TRUE(ShowsOnly(Paint(region), Pixelated(11), wxRect(11, 20, 51, 31)));
}

TEST_F(AnnHideTest, ChangeOfTheShapeIsPaintedAndTheHitTestKeepsTheOldOne) {
  Look().SetShape(AnnShapeProperties::Ellipse);
  AnnHide region = Region(Between({20, 20}, {80, 60}));
  Look().SetShape(AnnShapeProperties::Rectangle);
  region.UpdateProperties();
  EXPECT_TRUE(ShowsOnly(Paint(region), Pixelated(40), wxRect(20, 20, 61, 41)));
  EXPECT_FALSE(region.Contains({22, 22}));
  EXPECT_TRUE(region.Contains({50, 40}));
}

TEST_F(AnnHideTest, CopyShowsTheSameAndIsItsOwn) {
  AnnHide region = Region(Between({10, 20}, {60, 50}));
  wxImage const before = Paint(region);
  AnnHide const copy(region);
  EXPECT_TRUE(pixels::Alike(Paint(copy), before, 0));
  region.MoveFor({20, 20});
  EXPECT_TRUE(pixels::Alike(Paint(copy), before, 0));
}

TEST_F(AnnHideTest, DisappearsWhenItHasCollapsed) {
  EXPECT_FALSE(Region(Between({10, 20}, {60, 50})).WouldDisappear());
  EXPECT_TRUE(Region(Between({10, 20}, {10, 20})).WouldDisappear());
  EXPECT_TRUE(Region(Between({10, 20}, {60, 20})).WouldDisappear());
  EXPECT_TRUE(Region(Between({10, 20}, {10, 50})).WouldDisappear());
}

TEST_F(AnnHideTest, DominantColourIsThatOfAVisibleBorder) {
  AnnHide region = Region(Between({10, 20}, {60, 50}));
  EXPECT_EQ(region.GetDominantColor(), *wxBLACK);
  Look().SetBorderColor(*wxGREEN);
  region.UpdateProperties();
  EXPECT_EQ(region.GetDominantColor(), *wxGREEN);
}

/// A region whose document has these corners: top left, top right, bottom right, bottom left.
std::string WithCorners(wxJSONValue const &json, std::string const &topLeft,
                        std::string const &topRight, std::string const &bottomRight,
                        std::string const &bottomLeft) {
  std::string text = JsonToUtf8(json);
  std::string const from = R"("TopLeft":[10.0,20.0],"TopRight":[60.0,20.0],)"
                           R"("BottomRight":[60.0,50.0],"BottomLeft":[10.0,50.0])";
  return text.replace(text.find(from), from.size(),
                      R"("TopLeft":[)" + topLeft + R"(],"TopRight":[)" + topRight +
                          R"(],"BottomRight":[)" + bottomRight + R"(],"BottomLeft":[)" +
                          bottomLeft + "]");
}

TEST_F(AnnHideTest, RegionOfHugeCoordinatesCoversThePicture) {
  wxJSONValue const json = Region(Between({10, 20}, {60, 50})).ToJSON();
  for (auto const &[low, high] :
       {std::pair("-1e9", "1e9"), {"-1e300", "1e300"}, {"-8e8", "1e3"}, {"-1e12", "1e3"}}) {
    std::string const a = low;
    std::string const b = high;
    for (auto const shape : {AnnShapeProperties::Rectangle, AnnShapeProperties::Ellipse}) {
      wxJSONValue changed = JsonFromText(wxString::FromUTF8(
          WithCorners(json, a + "," + a, b + "," + a, b + "," + b, a + "," + b)));
      wxJSONValue look = changed.ItemAt("Properties");
      look.Set("Shape", static_cast<int>(shape));
      changed.Set("Properties", look);
      wxImage const painted = Paint(Restored(changed));
      // The ellipses that do not reach round the picture have their middle in it.
      if (shape == AnnShapeProperties::Ellipse && b == "1e3") continue;
      EXPECT_TRUE(ShowsOnly(painted, Pixelated(40), wxRect(0, 0, 120, 100))) << a << " " << b;
    }
  }
}

TEST_F(AnnHideTest, CornersThatAreNoRectangleAreCoveredWithAllBetweenThem) {
  wxJSONValue const json = Region(Between({10, 20}, {60, 50})).ToJSON();
  AnnHide const kite = Restored(
      JsonFromText(wxString::FromUTF8(WithCorners(json, "10,10", "20,10", "100,90", "10,90"))));
  EXPECT_TRUE(ShowsOnly(Paint(kite), Pixelated(40), wxRect(10, 10, 91, 81)));
}

TEST_F(AnnHideTest, StrengthsThatActAlikeShareTheWholePicture) {
  int const runs = Runs();
  std::vector<AnnHide> regions;
  for (int strength = -9; strength <= 1; ++strength) {
    Look().SetStrength(strength);
    regions.push_back(Region(Between({10, 20}, {60, 50})));
  }
  EXPECT_EQ(Runs(), runs + 1);
}

TEST_F(AnnHideTest, WithoutAPictureNothingIsPaintedAndNothingFails) {
  m_driver.Tool().SetImage(wxNullImage, true);
  AnnHide region = Region(Between({10, 20}, {60, 50}));
  region.HideWholeImageAndStoreAsBitmap();
  region.UpdateSubImageAndSubBitmap();
  region.UpdateSubImageAndStoreAsSubBitmap();
  region.MoveFor({5, 5});
  EXPECT_EQ(pixels::BoundsOfPaint(Paint(region)), wxRect());
  EXPECT_FALSE(AnnHide::GetBlurredBitmapFromImage(wxNullImage, 5).IsOk());
}

TEST(RotatedMask, RectangleIsWhiteOnBlack) {
  wxImage const mask =
      AnnHide::GetRotatedMaskBitmap({0.0, 0.0}, 60, 40, 30, 20, 0.0, AnnShapeProperties::Rectangle)
          .ConvertToImage();
  EXPECT_EQ(pixels::BoundsOf(mask, pixels::kWhite), wxRect(15, 10, 30, 20));
  EXPECT_EQ(pixels::CountOf(mask, pixels::kWhite), 600);
  EXPECT_EQ(pixels::CountOf(mask, pixels::kBlack), 60 * 40 - 600);
}

TEST(RotatedMask, ShapeIsTurnedAndMoved) {
  wxImage const mask = AnnHide::GetRotatedMaskBitmap({5.0, -3.0}, 60, 60, 40, 20, kQuarterTurn,
                                                     AnnShapeProperties::Rectangle)
                           .ConvertToImage();
  EXPECT_EQ(pixels::BoundsOf(mask, pixels::kWhite, 1), wxRect(25, 7, 20, 40));
}

TEST(RotatedMask, EllipseHasItsArea) {
  wxImage const mask =
      AnnHide::GetRotatedMaskBitmap({0.0, 0.0}, 100, 60, 80, 40, 0.3, AnnShapeProperties::Ellipse)
          .ConvertToImage();
  double const area = 3.141592653589793 * 40 * 20;
  EXPECT_NEAR(pixels::CountOf(mask, pixels::kWhite, 127), area, area * 0.02);
}

TEST(RotatedMask, UnknownShapeIsBlackAndNoSizeIsNoBitmap) {
  wxImage const mask = AnnHide::GetRotatedMaskBitmap({0.0, 0.0}, 20, 20, 10, 10, 0.0,
                                                     static_cast<AnnShapeProperties::Shape>(7))
                           .ConvertToImage();
  EXPECT_EQ(pixels::CountOf(mask, pixels::kBlack), 400);
  EXPECT_FALSE(
      AnnHide::GetRotatedMaskBitmap({0.0, 0.0}, 0, 20, 10, 10, 0.0, AnnShapeProperties::Ellipse)
          .IsOk());
}

TEST(RotatedMask, ShapeBeyondTheSurfacesIsTheSameShape) {
  // The bottom right quarter of a shape of a million pixels, about the bitmap's top left corner.
  for (auto const shape : {AnnShapeProperties::Rectangle, AnnShapeProperties::Ellipse}) {
    wxImage const mask =
        AnnHide::GetRotatedMaskBitmap({500'000.0, 0.0}, 20, 20, 1'000'000, 1'000'000, 0.0, shape)
            .ConvertToImage();
    // Its left edge lies at the bitmap's middle.
    EXPECT_EQ(pixels::ColourAt(mask, 9, 10), pixels::kBlack);
    EXPECT_EQ(pixels::ColourAt(mask, 10, 10), pixels::kWhite);
    EXPECT_EQ(pixels::ColourAt(mask, 19, 19), pixels::kWhite);
  }
}

class AnnHideInAVideo : public VideoObjectTest {
protected:
  AnnHideInAVideo() { m_driver.Tool().SetImage(NoisePicture(60, 60), true); }
};

TEST_F(AnnHideInAVideo, RestoredRegionThatStartsLaterHasNothingToShow) {
  AnnHide region(Modes().shape, Modes().hide, wxRect(10, 10, 20, 20), m_driver.Tool().GetImage(),
                 0);
  region.SetEndFrame(5);
  region.SetStartFrame(3);
  region.OnObjectModified();
  int const runs = Modes().hide->WholePictures().RunCount();
  AnnHide restored(Modes().shape, Modes().hide, region.ToJSON(), m_driver.Tool().GetImage());
  auto const bounds = [&] {
    return pixels::BoundsOfPaint(
        PaintedBy(IAnnPainter::GraphicsContext, wxSize(60, 60), 1.0, [&](auto &painter) {
          restored.Draw(painter, {0.0, 0.0});
        }));
  };
  EXPECT_EQ(bounds(), wxRect());
  EXPECT_EQ(Modes().hide->WholePictures().RunCount(), runs);
  GoTo(restored, 3);
  restored.UpdateSubImageAndStoreAsSubBitmap();
  EXPECT_FALSE(bounds().IsEmpty());
}

TEST_F(AnnHideInAVideo, WholePictureIsWorkedOutOncePerFrame) {
  AnnHide region(Modes().shape, Modes().hide, wxRect(10, 10, 20, 20), m_driver.Tool().GetImage(),
                 0);
  region.SetEndFrame(5);
  auto const runs = [this] { return Modes().hide->WholePictures().RunCount(); };
  int const before = runs();
  region.UpdateSubImageAndSubBitmap();
  EXPECT_EQ(runs(), before);
  // Another frame is another picture, though the region holds this one.
  m_driver.Tool().SetImage(NoisePicture(60, 60, 2), false);
  GoTo(region, 1);
  region.UpdateSubImageAndSubBitmap();
  EXPECT_EQ(runs(), before + 1);
  region.MoveFor({1, 1});
  EXPECT_EQ(runs(), before + 1);
}

TEST_F(AnnHideTest, RegionOfALargePictureIsHiddenUpToItsLastPixel) {
  // More than a thread keeps memory for.
  m_picture = NoisePicture(1300, 1200);
  m_driver.Tool().SetImage(m_picture, true);
  Look().SetEffect(AnnHideProperties::Pixelation);
  Look().SetStrength(9);
  AnnHide const region = Region(Between({0, 0}, {1299, 1199}));
  wxImage const painted =
      PaintedBy(IAnnPainter::GraphicsContext, wxSize(1300, 1200), 1.0,
                [&](auto &painter) { region.Draw(painter, wxPoint2DDouble(0.0, 0.0)); });
  wxImage const expected = Pixelated(9);
  for (wxRect const &part : {wxRect(0, 0, 20, 20), wxRect(1280, 1180, 20, 20)}) {
    EXPECT_TRUE(pixels::Alike(painted.GetSubImage(part), expected.GetSubImage(part), 0));
  }
}

}  // namespace

}  // namespace framenote::test
