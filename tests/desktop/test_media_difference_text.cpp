// SPDX-License-Identifier: MIT
#include "desktop/media_difference_text.h"

#include <gtest/gtest.h>

TEST(MediaDifferenceTextTest, IsEmptyWithoutDifferences) {
  EXPECT_EQ(MediaDifferenceText({}, "/street.mkv"), "");
}

TEST(MediaDifferenceTextTest, NamesTheFileAndEachDifference) {
  wxString const text = MediaDifferenceText({MediaDifference::Sha256, MediaDifference::FrameCount},
                                            "/cases/50%d street.mkv");
  EXPECT_TRUE(text.Contains("\"/cases/50%d street.mkv\"")) << text;
  EXPECT_TRUE(text.Contains("SHA-256")) << text;
  EXPECT_TRUE(text.Contains("number of frames")) << text;
  EXPECT_FALSE(text.Contains("size")) << text;
}
