// SPDX-License-Identifier: MIT
// Hide regions, lenses and pasted pictures with real events on a real window, beside the burnt-in
// picture.
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "modes/ann_hide_tool_mode.h"
#include "modes/ann_image_tool_mode.h"
#include "modes/ann_magnify_tool_mode.h"
#include "modes/canvas_fixture.h"
#include "objects/ann_hide.h"
#include "objects/ann_image.h"
#include "objects/ann_magnify.h"
#include "painters/pixel_matchers.h"
#include "support/test_pictures.h"

namespace framenote::test {

namespace {

namespace fs = std::filesystem;

constexpr int kWidth = 280;
constexpr int kHeight = 200;

/// A window that shows a picture under the annotations, as hosts do.
class PicturesOnAWindow : public CanvasTest, public testing::WithParamInterface<bool> {
protected:
  PicturesOnAWindow() : CanvasTest(1, GetParam()), m_picture(NoisePicture(kWidth, kHeight)) {
    m_driver.Tool().SetExtensionColour(wxNullColour);
  }

  void SetUp() override {
    CanvasTest::SetUp();
    // Bound later, so it comes first.
    m_canvas->Bind(wxEVT_PAINT, [this](wxPaintEvent &) {
      wxPaintDC dc(m_canvas);
      dc.SetBackground(*wxWHITE_BRUSH);
      dc.Clear();
      dc.SetUserScale(m_scale, m_scale);
      dc.DrawBitmap(wxBitmap(m_picture), static_cast<int>(m_offset.m_x),
                    static_cast<int>(m_offset.m_y));
      dc.SetUserScale(1.0, 1.0);
      m_driver.Tool().Draw(dc, m_canvas, m_offset, m_scale);
      ++m_paints;
    });
    m_driver.Tool().SetImage(m_picture, true);
    m_scale = 1.0;
    Repaint();
  }

  ToolModes const &Modes() { return m_driver.Tool().GetToolModes(); }
  wxImage Burnt() {
    return m_driver.Tool().GetAnnotatedFrame(m_picture, m_driver.Tool().GetMediaInfo(), {});
  }
  /// What the window shows of the picture, at scale 1.
  wxImage Shown() {
    m_driver.Tool().Deactivate();
    return Screenshot().GetSubImage(
        wxRect(static_cast<int>(m_offset.m_x), static_cast<int>(m_offset.m_y), kWidth, kHeight));
  }
  static testing::AssertionResult AlikeIn(wxImage const &a, wxImage const &b, wxRect const &area) {
    return pixels::Alike(a.GetSubImage(area), b.GetSubImage(area), 0);
  }
  /// How many pixels of an area are not those of the picture.
  int Changed(wxImage const &shown, wxRect const &area) const {
    int count = 0;
    for (int y = area.y; y < area.y + area.height; ++y) {
      for (int x = area.x; x < area.x + area.width; ++x) {
        if (!(pixels::ColourAt(shown, x, y) == pixels::ColourAt(m_picture, x, y))) ++count;
      }
    }
    return count;
  }

  wxImage m_picture;
};

INSTANTIATE_TEST_SUITE_P(, PicturesOnAWindow, testing::Bool(), [](auto const &painter) {
  return painter.param ? "DeviceContext" : "GraphicsContext";
});

TEST_P(PicturesOnAWindow, TurnedEllipseHidesOnTheScreenWhatItHidesInTheBurntPicture) {
  m_driver.UseTool(Types::Hide);
  Drag({{80, 60}, {120, 90}, {180, 120}});
  auto *const region = m_driver.ObjectAs<AnnHide>();
  ASSERT_NE(region, nullptr);
  // The handle stands 30 pixels above the top side; it is dragged a quarter of a turn.
  Drag({{130, 30}, {170, 50}, {220, 90}});
  EXPECT_NEAR(region->GetRotationAngle(), 3.141592653589793 / 2.0, 1e-6);
  wxImage const shown = Shown();
  wxImage const burnt = Burnt();
  // 60 wide and 100 high about (130, 90) now.
  EXPECT_TRUE(AlikeIn(shown, burnt, wxRect(0, 0, kWidth, kHeight)));
  EXPECT_EQ(Changed(shown, wxRect(115, 50, 30, 80)), 30 * 80);
  EXPECT_EQ(Changed(shown, wxRect(80, 60, 15, 60)), 0);
  // At twice the size the same place is hidden.
  m_scale = 2.0;
  wxImage const large = Screenshot();
  pixels::Rgb const middle = pixels::ColourAt(burnt, 130, 90);
  wxPoint const at((130 + static_cast<int>(m_offset.m_x)) * 2,
                   (90 + static_cast<int>(m_offset.m_y)) * 2);
  EXPECT_LE(pixels::Difference(pixels::ColourAt(large, at.x, at.y), middle), 2);
}

TEST_P(PicturesOnAWindow, LensShowsAnotherPlaceWithFourLinesToIt) {
  Modes().magnify->m_properties->SetBorderType(AnnMagnifyProperties::PointToZoomedArea4Lines);
  Modes().magnify->m_properties->SetBorderColor(*wxRED);
  m_driver.UseTool(Types::Magnify);
  Drag({{20, 20}, {60, 60}, {100, 100}});
  auto *const lens = m_driver.ObjectAs<AnnMagnify>();
  ASSERT_NE(lens, nullptr);
  // By its centre, which lies under the pointer.
  Drag({{60, 60}, {120, 100}, {200, 140}});
  EXPECT_TRUE(lens->IsAtCenterPoint({200, 140}));
  wxImage const shown = Shown();
  wxImage const burnt = Burnt();
  EXPECT_TRUE(AlikeIn(shown, burnt, wxRect(26, 26, 68, 68)));
  // The source area is centred on (199.5, 139.5); at zoom 2 its middle is in the lens's middle.
  EXPECT_EQ(pixels::ColourAt(shown, 59, 59), pixels::ColourAt(m_picture, 199, 139));
  // Red outline of the source, 40 by 40, and four lines.
  EXPECT_GT(pixels::CountOf(burnt, pixels::kRed, 40), 2 * 4 * 40);
  int crossings = 0;
  bool wasRed = false;
  for (int i = -60; i <= 60; ++i) {
    pixels::Rgb const colour = pixels::ColourAt(burnt, 150 + i, 107 - i);
    bool const isRed = pixels::Difference(colour, pixels::kRed) < 60;
    if (isRed && !wasRed) ++crossings;
    wasRed = isRed;
  }
  EXPECT_GE(crossings, 3);
}

TEST_P(PicturesOnAWindow, PictureIsPastedMirroredFittedAndReset) {
  std::string const path = (fs::temp_directory_path() / "framenote_pasted.png").string();
  wxImage halves(60, 40);
  halves.SetRGB(wxRect(0, 0, 30, 40), 255, 0, 0);
  halves.SetRGB(wxRect(30, 0, 30, 40), 0, 0, 255);
  ASSERT_TRUE(halves.SaveFile(path, wxBITMAP_TYPE_PNG));
  Modes().image->m_properties->SetKeepAspectRatio(false);
  Modes().image->m_properties->SetFileName(wxFileName(path));
  Modes().image->SetPicture(path);
  fs::remove(path);
  ASSERT_TRUE(halves.SaveFile(path, wxBITMAP_TYPE_PNG));
  m_driver.UseTool(Types::Image);
  Drag({{120, 60}, {160, 90}, {180, 120}});
  auto *const image = m_driver.ObjectAs<AnnImage>();
  ASSERT_NE(image, nullptr);
  EXPECT_EQ(pixels::ColourAt(Burnt(), 130, 90), pixels::kRed);
  // The right side across the left one.
  Drag({{180, 90}, {130, 90}, {50, 90}});
  EXPECT_EQ(pixels::ColourAt(Burnt(), 60, 90), pixels::kBlue);
  EXPECT_EQ(pixels::ColourAt(Burnt(), 110, 90), pixels::kRed);
  image->FitToImage(m_picture.GetSize());
  EXPECT_EQ(Changed(Burnt(), wxRect(2, 2, kWidth - 4, kHeight - 4)), (kWidth - 4) * (kHeight - 4));
  image->ResetToOriginal();
  wxImage const burnt = Burnt();
  // 60 by 40 about (140, 100), unmirrored.
  EXPECT_EQ(pixels::ColourAt(burnt, 120, 100), pixels::kRed);
  EXPECT_EQ(pixels::ColourAt(burnt, 160, 100), pixels::kBlue);
  EXPECT_EQ(Changed(burnt, wxRect(2, 2, 100, kHeight - 4)), 0);
  wxImage const shown = Shown();
  EXPECT_EQ(pixels::ColourAt(shown, 120, 100), pixels::kRed);
  EXPECT_EQ(pixels::ColourAt(shown, 160, 100), pixels::kBlue);
  fs::remove(path);
}

}  // namespace

}  // namespace framenote::test
