// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "modes/ann_shape_tool_mode.h"
#include "objects/ann_shape.h"
#include "painters/pixel_matchers.h"
#include "support/tool_driver.h"

namespace framenote::test {

namespace {

using pixels::AreaHas;
using pixels::ColourAt;
using pixels::kBlue;
using pixels::kGreen;
using pixels::kRed;
using pixels::kWhite;

wxImage Grey(int width, int height) {
  wxImage image(width, height);
  image.SetRGB(wxRect(0, 0, width, height), 128, 128, 128);
  return image;
}

constexpr pixels::Rgb kGrey{128, 128, 128};

/// A filled rectangle of blue without a border, in frame 0 of ten, with either painter.
class AnnotatedFrame : public testing::TestWithParam<bool> {
protected:
  AnnotatedFrame() : m_driver(10, true, GetParam()) {
    auto const look = m_driver.Tool().GetToolModes().shape->m_properties;
    look->SetFillColor(*wxBLUE);
    look->SetBorderColor(wxColour(0, 0, 0, 0));
  }

  /// The tool with a rectangle of those corners.
  ToolDriver &Driver(wxPoint const &from, wxPoint const &to) {
    m_driver.DrawShape(from, to);
    return m_driver;
  }

  static wxImage Burn(ToolDriver &driver, wxImage const &frame, std::int64_t index = 0) {
    return driver.Tool().GetAnnotatedFrame(frame, {index, 10, false}, {});
  }

  ToolDriver m_driver;
};

INSTANTIATE_TEST_SUITE_P(, AnnotatedFrame, testing::Bool(), [](auto const &painter) {
  return painter.param ? "DeviceContext" : "GraphicsContext";
});

TEST_P(AnnotatedFrame, HasTheObjectsOfItsFrame) {
  ToolDriver &driver = Driver({10, 10}, {40, 30});
  driver.Tool().SetExtensionColour(wxNullColour);
  wxImage const frame = Burn(driver, Grey(80, 60));
  ASSERT_EQ(frame.GetSize(), wxSize(80, 60));
  EXPECT_TRUE(AreaHas(frame, {11, 11, 29, 19}, kBlue));
  EXPECT_TRUE(AreaHas(frame, {0, 0, 80, 9}, kGrey));
  EXPECT_TRUE(AreaHas(frame, {42, 0, 38, 60}, kGrey));
}

TEST_P(AnnotatedFrame, HasNeitherHandlesNorFocusNorPreview) {
  ToolDriver &driver = Driver({10, 30}, {40, 50});
  driver.Tool().SetExtensionColour(wxNullColour);
  ASSERT_NE(driver.Selected(), nullptr);
  // The rotation handle of the selected object would be at (25, 0).
  wxImage const frame = Burn(driver, Grey(80, 60));
  EXPECT_TRUE(AreaHas(frame, {0, 0, 80, 29}, kGrey));
  driver.Tool().Deactivate();
  driver.UseTool(Types::Shape);
  driver.Press(60, 5);
  driver.Move(75, 20);
  EXPECT_TRUE(AreaHas(Burn(driver, Grey(80, 60)), {0, 0, 80, 29}, kGrey));
}

TEST_P(AnnotatedFrame, ObjectsOfOtherFramesAndSelectedOnesOutsideTheirRangeAreLeftOut) {
  ToolDriver &driver = Driver({10, 10}, {40, 30});
  driver.Tool().SetExtensionColour(wxNullColour);
  EXPECT_TRUE(AreaHas(Burn(driver, Grey(80, 60), 3), {0, 0, 80, 60}, kGrey));
  ASSERT_NE(driver.Selected(), nullptr);
}

TEST_P(AnnotatedFrame, IsPaintedAlthoughAnnotationsAreHidden) {
  ToolDriver &driver = Driver({10, 10}, {40, 30});
  driver.Tool().SetExtensionColour(wxNullColour);
  driver.Tool().SetObjectsVisible(false);
  EXPECT_EQ(ColourAt(Burn(driver, Grey(80, 60)), 20, 20), kBlue);
}

TEST_P(AnnotatedFrame, PutsTheFrontObjectOnTop) {
  ToolDriver &driver = Driver({10, 10}, {40, 30});
  driver.Tool().SetExtensionColour(wxNullColour);
  driver.Tool().Deactivate();
  driver.Tool().GetToolModes().shape->m_properties->SetFillColor(*wxGREEN);
  driver.DrawShape({50, 40}, {20, 20});
  wxImage const frame = Burn(driver, Grey(80, 60));
  EXPECT_EQ(ColourAt(frame, 30, 25), kGreen);
  EXPECT_EQ(ColourAt(frame, 15, 15), kBlue);
}

TEST_P(AnnotatedFrame, WithoutAnExtensionColourObjectsAreCutOff) {
  ToolDriver &driver = Driver({-10, -20}, {40, 30});
  driver.Tool().SetExtensionColour(wxNullColour);
  wxImage const frame = Burn(driver, Grey(80, 60));
  ASSERT_EQ(frame.GetSize(), wxSize(80, 60));
  EXPECT_TRUE(AreaHas(frame, {0, 0, 39, 29}, kBlue));
}

TEST_P(AnnotatedFrame, WithAnExtensionColourThePictureMovesAndTheRestHasTheColour) {
  ToolDriver &driver = Driver({-10, -20}, {40, 30});
  driver.Tool().SetExtensionColour(*wxGREEN);
  wxImage const frame = Burn(driver, Grey(80, 60));
  // The area is (-10, -20) to (80, 60).
  ASSERT_EQ(frame.GetSize(), wxSize(90, 80));
  EXPECT_TRUE(AreaHas(frame, {1, 1, 49, 49}, kBlue));
  EXPECT_TRUE(AreaHas(frame, {52, 0, 38, 20}, kGreen));
  EXPECT_TRUE(AreaHas(frame, {0, 52, 10, 28}, kGreen));
  EXPECT_TRUE(AreaHas(frame, {52, 20, 38, 60}, kGrey));
  EXPECT_TRUE(AreaHas(frame, {10, 52, 80, 28}, kGrey));
}

TEST_P(AnnotatedFrame, PictureStaysOnWholePixels) {
  ToolDriver &driver = Driver({-10, -20}, {-2, -2});
  driver.Tool().SetExtensionColour(*wxGREEN);
  wxImage picture = Grey(80, 60);
  picture.SetRGB(0, 0, 255, 0, 0);
  picture.SetRGB(79, 59, 255, 0, 0);
  wxImage const frame = Burn(driver, picture);
  EXPECT_EQ(ColourAt(frame, 10, 20), kRed);
  EXPECT_EQ(ColourAt(frame, 89, 79), kRed);
  EXPECT_EQ(ColourAt(frame, 11, 20), kGrey);
}

TEST_P(AnnotatedFrame, LeavesPositionAndMacrosAndKeepsTheFrameAsThePicture) {
  ToolDriver &driver = Driver({10, 10}, {40, 30});
  driver.GoToFrame(4);
  driver.Tool().SetImage(Grey(20, 20), false);
  driver.Tool().GetAnnotatedFrame(Grey(80, 60), {7, 10, false}, {{"a", "b"}});
  EXPECT_EQ(driver.Tool().GetMediaInfo().frameIndex, 4);
  EXPECT_EQ(driver.Tool().GetMediaInfo().frameCount, 10);
  EXPECT_EQ(driver.Tool().GetImage().GetWidth(), 80);
}

TEST_P(AnnotatedFrame, ShowsEachFramesOwnPlace) {
  ToolDriver &driver = Driver({10, 10}, {60, 50});
  driver.Tool().SetExtensionColour(wxNullColour);
  driver.GoToFrame(1);
  driver.Press(35, 30);
  driver.Move(115, 30);
  driver.Release(115, 30);
  EXPECT_EQ(ColourAt(Burn(driver, Grey(160, 60), 0), 35, 30), kBlue);
  EXPECT_EQ(ColourAt(Burn(driver, Grey(160, 60), 1), 35, 30), kGrey);
  EXPECT_EQ(ColourAt(Burn(driver, Grey(160, 60), 1), 115, 30), kBlue);
}

TEST_P(AnnotatedFrame, OfAnInvalidFrameIsInvalid) {
  ToolDriver &driver = Driver({10, 10}, {40, 30});
  EXPECT_FALSE(Burn(driver, wxNullImage).IsOk());
  EXPECT_FALSE(driver.Tool().GetImage().IsOk());
}

TEST_P(AnnotatedFrame, ObjectsTooFarOutDoNotExtendIt) {
  ToolDriver &driver = Driver({-2000000, 10}, {40, 30});
  driver.Tool().SetExtensionColour(*wxGREEN);
  wxImage const frame = Burn(driver, Grey(80, 60));
  EXPECT_EQ(frame.GetSize(), wxSize(80, 60));
  EXPECT_EQ(ColourAt(frame, 20, 20), kBlue);
}

TEST_P(AnnotatedFrame, IsExtendedWithinBoundsOfItsOwnSize) {
  // 3080 by 3060 pixels in place of 80 by 60 are few enough to be free.
  ToolDriver &driver = Driver({-3000, -3000}, {40, 30});
  driver.Tool().SetExtensionColour(*wxGREEN);
  EXPECT_EQ(Burn(driver, Grey(80, 60)).GetSize(), wxSize(3080, 3060));
}

TEST_P(AnnotatedFrame, IsNotExtendedToManyTimesItsSize) {
  // 25 million pixels would be 5355 times those of the one, 45 million 15 times those of the other.
  ToolDriver &driver = Driver({-5000, -5000}, {40, 30});
  driver.Tool().SetExtensionColour(*wxGREEN);
  wxImage const frame = Burn(driver, Grey(80, 60));
  EXPECT_EQ(frame.GetSize(), wxSize(80, 60));
  EXPECT_EQ(ColourAt(frame, 20, 20), kBlue);
  EXPECT_EQ(Burn(driver, Grey(2000, 1500)).GetSize(), wxSize(7000, 6500));
}

TEST(AnnotatedFramePosition, BeyondThirtyTwoBitsDoesNotComeBackUnchanged) {
  ToolDriver driver;
  driver.Tool().UpdateMediaInfo({4294967298, 5000000000, false});
  driver.Tool().GetAnnotatedFrame(Grey(8, 8), {0, 5000000000, false}, {});
  EXPECT_EQ(driver.Tool().GetMediaInfo().frameIndex, 2);
}

}  // namespace

}  // namespace framenote::test
