// SPDX-License-Identifier: MIT
#include "talbase/picture.h"

#include <array>

#include <gtest/gtest.h>
#include <opencv2/core/core_c.h>

namespace {

using Byte = unsigned char;

IplImage const *Header(Image const &picture) {
  return picture;
}

Byte At(Image const &picture, int x, int y, int channel) {
  IplImage const *const header = picture;
  return static_cast<Byte>(
      header->imageData[y * header->widthStep + x * header->nChannels + channel]);
}

/// Three pixels wide, so that its rows of 9 bytes need padding.
wxImage SmallImage() {
  wxImage image(3, 2);
  image.SetRGB(0, 0, 11, 12, 13);
  image.SetRGB(1, 0, 21, 22, 23);
  image.SetRGB(2, 0, 31, 32, 33);
  image.SetRGB(0, 1, 41, 42, 43);
  image.SetRGB(1, 1, 51, 52, 53);
  image.SetRGB(2, 1, 61, 62, 63);
  return image;
}

void ExpectEmpty(Image const &picture) {
  EXPECT_EQ(picture.Size(), wxSize(0, 0));
  EXPECT_EQ(picture.Depth(), 0);
  EXPECT_EQ(picture.Channels(), 0);
  EXPECT_EQ(Header(picture), nullptr);
}

TEST(Picture, HasTheSizeDepthAndChannelsThatItWasMadeWith) {
  Image const picture(wxSize(5, 4), 8, 3, nullptr, 0);
  EXPECT_EQ(picture.Size(), wxSize(5, 4));
  EXPECT_EQ(picture.Depth(), 8);
  EXPECT_EQ(picture.Channels(), 3);
  ASSERT_NE(Header(picture), nullptr);
  EXPECT_EQ(Header(picture)->width, 5);
  EXPECT_EQ(Header(picture)->height, 4);
}

TEST(Picture, NewPixelsAreZero) {
  Image const picture(wxSize(3, 2), 8, 3, nullptr, 0);
  for (int y = 0; y < 2; ++y) {
    for (int x = 0; x < 3; ++x) {
      for (int channel = 0; channel < 3; ++channel) EXPECT_EQ(At(picture, x, y, channel), 0);
    }
  }
}

TEST(Picture, WorksOnTheCallersPixels) {
  std::array<Byte, 8> pixels = {1, 2, 3, 99, 4, 5, 6, 99};
  Image picture(wxSize(3, 2), 8, 1, pixels.data(), 4);
  EXPECT_EQ(At(picture, 2, 0, 0), 3);
  EXPECT_EQ(At(picture, 0, 1, 0), 4);
  IplImage *const writable = picture;
  writable->imageData[0] = 77;
  EXPECT_EQ(pixels[0], 77);
}

TEST(Picture, AStepOfZeroMeansRowsWithoutPadding) {
  std::array<Byte, 6> pixels = {1, 2, 3, 4, 5, 6};
  Image const picture(wxSize(3, 2), 8, 1, pixels.data(), 0);
  EXPECT_EQ(At(picture, 0, 1, 0), 4);
  EXPECT_EQ(At(picture, 2, 1, 0), 6);
}

TEST(Picture, ACopySharesThePixels) {
  Image picture(wxSize(3, 2), 8, 3, nullptr, 0);
  Image const copy(picture);
  IplImage *const writable = picture;
  writable->imageData[1] = 42;
  EXPECT_EQ(At(copy, 0, 0, 1), 42);
}

TEST(Picture, ACopyOutlivesItsSource) {
  Image copy(wxSize(0, 0), 8, 3, nullptr, 0);
  {
    Image const picture = WxImageToImage(SmallImage());
    copy = picture;
  }
  EXPECT_EQ(At(copy, 2, 1, 2), 63);
}

TEST(Picture, ASizeDepthOrChannelCountWithoutSenseGivesAnEmptyPicture) {
  ExpectEmpty(Image(wxSize(0, 4), 8, 3, nullptr, 0));
  ExpectEmpty(Image(wxSize(4, -1), 8, 3, nullptr, 0));
  ExpectEmpty(Image(wxSize(4, 4), 8, 0, nullptr, 0));
  ExpectEmpty(Image(wxSize(4, 4), 8, 100000, nullptr, 0));
  ExpectEmpty(Image(wxSize(4, 4), 7, 3, nullptr, 0));
}

TEST(Picture, AStepShorterThanARowGivesAnEmptyPicture) {
  std::array<Byte, 64> pixels = {};
  ExpectEmpty(Image(wxSize(4, 2), 8, 3, pixels.data(), 11));
  ExpectEmpty(Image(wxSize(4, 2), 8, 3, pixels.data(), -12));
  EXPECT_EQ(Image(wxSize(4, 2), 8, 3, pixels.data(), 12).Size(), wxSize(4, 2));
}

// The header counts bytes in an int; a wrapped count once made a buffer far too small.
TEST(Picture, APictureBeyondTwoGibibytesIsEmpty) {
  ExpectEmpty(Image(wxSize(100000, 100000), 8, 3, nullptr, 0));
  ExpectEmpty(Image(wxSize(2000000000, 1), 8, 3, nullptr, 0));
  std::array<Byte, 64> pixels = {};
  ExpectEmpty(Image(wxSize(4, 2), 8, 3, pixels.data(), 2000000000));
}

TEST(PictureConversion, ChannelsAreRedGreenBlueWhateverThePaddingOfARow) {
  Image const picture = WxImageToImage(SmallImage());
  EXPECT_EQ(picture.Size(), wxSize(3, 2));
  EXPECT_EQ(picture.Depth(), 8);
  EXPECT_EQ(picture.Channels(), 3);
  EXPECT_EQ(Header(picture)->widthStep, 12);
  EXPECT_EQ(At(picture, 0, 0, 0), 11);
  EXPECT_EQ(At(picture, 0, 0, 1), 12);
  EXPECT_EQ(At(picture, 0, 0, 2), 13);
  EXPECT_EQ(At(picture, 2, 0, 2), 33);
  EXPECT_EQ(At(picture, 0, 1, 0), 41);
  EXPECT_EQ(At(picture, 2, 1, 2), 63);
}

TEST(PictureConversion, ThePixelsAreACopy) {
  wxImage image = SmallImage();
  Image const picture = WxImageToImage(image);
  image.SetRGB(0, 0, 200, 201, 202);
  EXPECT_EQ(At(picture, 0, 0, 0), 11);
}

TEST(PictureConversion, ComesBackAsItWas) {
  Image const picture = WxImageToImage(SmallImage());
  wxImage const back = IplImageToWxImage(picture);
  ASSERT_TRUE(back.IsOk());
  EXPECT_EQ(back.GetSize(), wxSize(3, 2));
  EXPECT_EQ(back.GetRed(0, 0), 11);
  EXPECT_EQ(back.GetGreen(2, 0), 32);
  EXPECT_EQ(back.GetBlue(0, 1), 43);
  EXPECT_EQ(back.GetRed(2, 1), 61);
  EXPECT_FALSE(back.HasAlpha());
}

TEST(PictureConversion, RowsOfTheCallersStepAreRead) {
  std::array<Byte, 16> pixels = {1, 2, 3, 4, 5, 6, 90, 90, 7, 8, 9, 10, 11, 12, 90, 90};
  Image picture(wxSize(2, 2), 8, 3, pixels.data(), 8);
  wxImage const image = IplImageToWxImage(picture);
  ASSERT_TRUE(image.IsOk());
  EXPECT_EQ(image.GetRed(0, 1), 7);
  EXPECT_EQ(image.GetBlue(1, 1), 12);
}

TEST(PictureConversion, AnInvalidImageGivesAnEmptyPictureAndBack) {
  Image const picture = WxImageToImage(wxImage());
  ExpectEmpty(picture);
  EXPECT_FALSE(IplImageToWxImage(picture).IsOk());
  EXPECT_FALSE(IplImageToWxImage(nullptr).IsOk());
}

TEST(PictureConversion, OtherThanThreeChannelsGivesAnInvalidImage) {
  EXPECT_FALSE(IplImageToWxImage(Image(wxSize(2, 2), 8, 1, nullptr, 0)).IsOk());
  EXPECT_FALSE(IplImageToWxImage(Image(wxSize(2, 2), 8, 4, nullptr, 0)).IsOk());
}

}  // namespace
