// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstdlib>
#include <tuple>

#include <gtest/gtest.h>

#include "talcore/enlarged_picture.h"
#include "talcore_support.h"

namespace framenote::test {

namespace {

std::vector<unsigned char> Enlarged(wxImage const &picture, int width, int height,
                                    ZoomMethod method, PixelArea const &part) {
  std::vector<unsigned char> pixels(static_cast<std::size_t>(part.width) *
                                    static_cast<std::size_t>(part.height) * kChannels);
  EnlargedPicture const enlarged(ViewOf(picture), width, height, method);
  enlarged.Render(part, pixels.data(), static_cast<std::size_t>(part.width) * kChannels);
  return pixels;
}

class EnlargedPictureTest : public testing::TestWithParam<std::tuple<int, double>> {
protected:
  ZoomMethod Method() const { return static_cast<ZoomMethod>(std::get<0>(GetParam())); }
  /// As the toolkit scales it.
  wxImage Scaled(wxImage const &picture) const {
    return picture.Scale(Width(picture), Height(picture),
                         static_cast<wxImageResizeQuality>(std::get<0>(GetParam())));
  }
  int Width(wxImage const &picture) const {
    return static_cast<int>(picture.GetWidth() * std::get<1>(GetParam()));
  }
  int Height(wxImage const &picture) const {
    return static_cast<int>(picture.GetHeight() * std::get<1>(GetParam()));
  }
};

INSTANTIATE_TEST_SUITE_P(, EnlargedPictureTest,
                         testing::Combine(testing::Values(0, 1, 2, 3),
                                          testing::Values(1.0, 1.5, 2.0, 2.7, 8.0)));

TEST_P(EnlargedPictureTest, HasThePixelsOfAScaledImage) {
  for (wxSize const &size : {wxSize(61, 43), wxSize(1, 1), wxSize(1, 30), wxSize(200, 2),
                             wxSize(33, 37), wxSize(64, 48), wxSize(127, 90)}) {
    wxImage const picture = MixedPicture(size.x, size.y);
    std::vector<unsigned char> const expected = BytesOf(Scaled(picture));
    std::vector<unsigned char> const actual =
        Enlarged(picture, Width(picture), Height(picture), Method(),
                 {0, 0, Width(picture), Height(picture)});
    ASSERT_EQ(actual.size(), expected.size());
    int most = 0;
    for (std::size_t i = 0; i < actual.size(); ++i) {
      most = std::max(most, std::abs(int{actual[i]} - int{expected[i]}));
    }
    EXPECT_LE(most, 2) << size.x << " by " << size.y;
  }
}

TEST_P(EnlargedPictureTest, PartIsThatOfTheWhole) {
  wxImage const picture = MixedPicture(50, 40);
  int const width = Width(picture);
  int const height = Height(picture);
  std::vector<unsigned char> const whole =
      Enlarged(picture, width, height, Method(), {0, 0, width, height});
  PixelArea const part{width / 3, height / 4, width - width / 3, height / 2};
  std::vector<unsigned char> const actual = Enlarged(picture, width, height, Method(), part);
  for (int y = 0; y < part.height; ++y) {
    auto const line = static_cast<std::size_t>(part.width) * kChannels;
    auto const at = (static_cast<std::size_t>(part.y + y) * static_cast<std::size_t>(width) +
                     static_cast<std::size_t>(part.x)) *
                    kChannels;
    ASSERT_TRUE(std::equal(actual.data() + static_cast<std::size_t>(y) * line,
                           actual.data() + static_cast<std::size_t>(y + 1) * line,
                           whole.data() + at))
        << "row " << y;
  }
}

TEST(EnlargedPictureSizes, FarZoomNeedsNoMoreThanItsPart) {
  wxImage const picture = MixedPicture(64, 64);
  for (int const method : {0, 1, 2, 3}) {
    std::vector<unsigned char> const pixels =
        Enlarged(picture, 64 * 1'000'000, 64 * 1'000'000, static_cast<ZoomMethod>(method),
                 {63'999'990, 63'999'990, 10, 10});
    EXPECT_NEAR(pixels.back(), picture.GetBlue(63, 63), method == 2 ? 60 : 2) << method;
  }
}

}  // namespace

}  // namespace framenote::test
