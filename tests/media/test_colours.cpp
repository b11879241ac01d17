// SPDX-License-Identifier: MIT
// Colours come back as they went in, by what the stream says of itself.
#include <algorithm>
#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

#include "media/clips.h"

namespace framenote::test {

namespace {

constexpr int kPatch[] = {200, 50, 20};

/// How far the pixel in the middle is from the patch.
int DistanceFromPatch(Picture const &picture) {
  unsigned char const *pixel = picture.Pixels() +
                               static_cast<std::size_t>(picture.Height() / 2) * picture.RowBytes() +
                               static_cast<std::size_t>(picture.Width() / 2) * Picture::kChannels;
  int furthest = 0;
  for (int i = 0; i < 3; ++i) furthest = std::max(furthest, std::abs(pixel[i] - kPatch[i]));
  return furthest;
}

class Colours : public MediaTest {
protected:
  /// Makes a video of the patch with a matrix and a range, told in the stream if `isTagged`.
  std::unique_ptr<MediaSource> Patch(std::string const &matrix, std::string const &range,
                                     bool isTagged, std::string const &size = "64x64") {
    std::string const tags = isTagged
                                 ? " -colorspace " + (matrix == "bt601" ? "smpte170m" : matrix) +
                                       " -color_range " + range
                                 : "";
    Ffmpeg("-f lavfi -i color=0xC83214:s=" + size +
           ":d=0.2,format=gbrp -vf scale=out_color_matrix=" + matrix + ":out_range=" + range +
           ":flags=accurate_rnd,format=yuv444p" +
           (isTagged ? "" : ",setparams=colorspace=unknown:range=unknown") + " -c:v libx264 -qp 0" +
           tags + " patch.mp4");
    return OpenMedia(In("patch.mp4"));
  }
};

}  // namespace

TEST_F(Colours, TaggedMatrixAndRangeAreFollowed) {
  for (std::string const matrix : {"bt709", "bt601"}) {
    for (std::string const range : {"tv", "pc"}) {
      auto const source = Patch(matrix, range, true);
      EXPECT_LE(DistanceFromPatch(source->Read(0).picture), 2) << matrix << " " << range;
      EXPECT_EQ(source->Info().colourMatrix, matrix == "bt709" ? "bt709" : "smpte170m");
      EXPECT_EQ(source->Info().isFullRange, range == "pc");
      EXPECT_FALSE(source->Info().isColourMatrixGuessed);
    }
  }
}

TEST_F(Colours, UntaggedIsHighDefinitionFrom720Lines) {
  auto const high = Patch("bt709", "tv", false, "64x720");
  EXPECT_LE(DistanceFromPatch(high->Read(0).picture), 2);
  EXPECT_EQ(high->Info().colourMatrix, "bt709");
  EXPECT_TRUE(high->Info().isColourMatrixGuessed);

  auto const low = Patch("bt601", "tv", false, "64x718");
  EXPECT_LE(DistanceFromPatch(low->Read(0).picture), 2);
  EXPECT_EQ(low->Info().colourMatrix, "smpte170m");
  EXPECT_TRUE(low->Info().isColourMatrixGuessed);
}

TEST_F(Colours, RgbVideoIsBitExact) {
  Ffmpeg(
      "-f lavfi -i testsrc2=s=160x120:d=0.2 -vf format=rgb24,scale=161:121,format=rgb24 -f "
      "rawvideo source.rgb");
  std::string const expected = ReadAll(In("source.rgb"));
  for (std::string const codec : {"ffv1 -pix_fmt bgr0", "png -pix_fmt rgb24"}) {
    Ffmpeg("-f rawvideo -pix_fmt rgb24 -s 161x121 -i source.rgb -c:v " + codec + " rgb.mkv");
    auto const source = OpenMedia(In("rgb.mkv"));
    std::string frames;
    for (std::string const &frame : ReadLinear(*source)) frames += frame;
    EXPECT_TRUE(frames == expected) << codec;
    EXPECT_EQ(source->Info().colourMatrix, "gbr");
  }
}

TEST_F(Colours, PixelsKeepTheirShapeAlsoWhenTurned) {
  Ffmpeg(kMoving + " -vf setsar=4/3 -c:v libx264 wide.mp4");
  Ffmpeg("-i wide.mp4 -c copy -metadata:s:v rotate=90 tall.mp4");
  auto const wide = OpenMedia(In("wide.mp4"));
  EXPECT_EQ(wide->Info().pixelShape.numerator, 4);
  EXPECT_EQ(wide->Info().pixelShape.denominator, 3);
  auto const tall = OpenMedia(In("tall.mp4"));
  EXPECT_EQ(tall->Info().pixelShape.numerator, 3);
  EXPECT_EQ(tall->Info().pixelShape.denominator, 4);
  EXPECT_EQ(tall->Info().width, 120);
  EXPECT_EQ(tall->Info().height, 160);
}

}  // namespace framenote::test
