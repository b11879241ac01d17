// SPDX-License-Identifier: MIT
#include "project/output_name.h"

#include <cstdint>
#include <string>

#include <gtest/gtest.h>

namespace framenote::test {
namespace {

TEST(OutputName, SaysWhatIsMade) {
  struct {
    char const *path;
    BurnOutput kind;
  } const rows[] = {
      {"a.png", BurnOutput::Picture},
      {"a.JPG", BurnOutput::Picture},
      {"a.jpeg", BurnOutput::Picture},
      {"a.bmp", BurnOutput::Picture},
      {"a.tif", BurnOutput::Picture},
      {"b.c/a.TIFF", BurnOutput::Picture},
      {"a%06d.png", BurnOutput::Pictures},
      {"%d.tif", BurnOutput::Pictures},
      {"100%06%03d.png", BurnOutput::Pictures},
      {"%06d/a.png", BurnOutput::Picture},  // the number's place is in the file's name
      {"a%06x.png", BurnOutput::Picture},
      {"a%0d.png", BurnOutput::Picture},
      {"a%00d.png", BurnOutput::Picture},
      {"a%6d.png", BurnOutput::Picture},
      {"a%06.png", BurnOutput::Picture},
      {"a%.png", BurnOutput::Picture},
      {"a.mkv", BurnOutput::Video},
      {"a.Mp4", BurnOutput::Video},
      {"a%06d.mov", BurnOutput::Video},
      {"a.gif", BurnOutput::Unknown},
      {"a%06d.gif", BurnOutput::Unknown},
      {"png", BurnOutput::Unknown},
      {".png", BurnOutput::Unknown},
      {"a.png/", BurnOutput::Unknown},
      {"", BurnOutput::Unknown},
  };
  for (auto const &row : rows) EXPECT_EQ(BurnOutputOf(row.path), row.kind) << row.path;
}

TEST(OutputName, GetsTheFramesNumber) {
  struct {
    char const *path;
    std::int64_t frame;
    char const *expected;
  } const rows[] = {
      {"out-%06d.png", 7, "out-000007.png"},
      {"out-%06d.png", 1234567, "out-1234567.png"},
      {"out-%d.png", 7, "out-7.png"},
      {"out-%01d.png", 12, "out-12.png"},
      {"out-%09d.png", 0, "out-000000000.png"},
      {"%02d/out-%03d.png", 5, "%02d/out-005.png"},
      {"%03d-%03d.png", 5, "005-%03d.png"},  // the first place alone
      {"50%-%02d.png", 5, "50%-05.png"},
      {"out.png", 5, "out.png"},
      {"\xFF%02d.png", 5,
       "\xFF"
       "05.png"},
  };
  for (auto const &row : rows) EXPECT_EQ(OutputPathOf(row.path, row.frame), row.expected);
}

TEST(OutputName, SaysThePicturesFormat) {
  EXPECT_EQ(PictureTypeOf("a.png"), wxBITMAP_TYPE_PNG);
  EXPECT_EQ(PictureTypeOf("a.JPEG"), wxBITMAP_TYPE_JPEG);
  EXPECT_EQ(PictureTypeOf("a.bmp"), wxBITMAP_TYPE_BMP);
  EXPECT_EQ(PictureTypeOf("a.tif"), wxBITMAP_TYPE_TIFF);
  EXPECT_EQ(PictureTypeOf("a.mkv"), wxBITMAP_TYPE_INVALID);
}

TEST(OutputName, KnowsMatroska) {
  EXPECT_TRUE(IsMatroska("a.mkv"));
  EXPECT_TRUE(IsMatroska("a.MKV"));
  EXPECT_FALSE(IsMatroska("a.mp4"));
  EXPECT_FALSE(IsMatroska("mkv"));
}

}  // namespace
}  // namespace framenote::test
