// SPDX-License-Identifier: MIT
#include "desktop/app_icon.h"

#include <wx/image.h>

#include <gtest/gtest.h>

namespace framenote::test {

namespace {

TEST(AppIcon, IsDrawnInTheSizesThatDesktopsShow) {
  wxIconBundle const icons = AppIcons();
  ASSERT_EQ(icons.GetIconCount(), 6U);
  for (int const pixels : {16, 24, 32, 48, 64, 128}) {
    wxIcon const icon = icons.GetIcon(wxSize(pixels, pixels), wxIconBundle::FALLBACK_NONE);
    ASSERT_TRUE(icon.IsOk()) << pixels;
    EXPECT_EQ(icon.GetWidth(), pixels);
  }
}

TEST(AppIcon, ShowsAFrameWithTransparentCorners) {
  wxIcon const icon = AppIcons().GetIcon(wxSize(128, 128), wxIconBundle::FALLBACK_NONE);
  wxImage const image = wxBitmap(icon).ConvertToImage();
  ASSERT_TRUE(image.HasAlpha());
  EXPECT_EQ(image.GetAlpha(1, 1), 0);
  EXPECT_EQ(image.GetAlpha(64, 64), 255);
  // The film's edge: #26323f.
  EXPECT_EQ(image.GetRed(12, 64), 0x26);
  EXPECT_EQ(image.GetGreen(12, 64), 0x32);
  EXPECT_EQ(image.GetBlue(12, 64), 0x3f);
}

}  // namespace

}  // namespace framenote::test
