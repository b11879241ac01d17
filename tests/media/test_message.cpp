// SPDX-License-Identifier: MIT
#include "media/message.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace framenote::test {

namespace {

std::string Filled(std::string const &text, std::vector<std::string> const &values) {
  return FilledText(text, values);
}

TEST(FilledText, ValuesGoInTurn) {
  EXPECT_EQ(Filled("frames %s to %s of '%s'", {"4", "20", "a.mp4"}), "frames 4 to 20 of 'a.mp4'");
}

TEST(FilledText, NumbersOrderThemAnew) {
  EXPECT_EQ(Filled("%3$s: %1$s-%2$s", {"4", "20", "a.mp4"}), "a.mp4: 4-20");
}

TEST(FilledText, TwoPerCentSignsAreOne) {
  EXPECT_EQ(Filled("%s %% of 100 %", {"50"}), "50 % of 100 %");
}

TEST(FilledText, ValuesAreNotFilledAgain) {
  EXPECT_EQ(Filled("%s and %s", {"%s", "%2$s"}), "%s and %2$s");
}

TEST(FilledText, PlacesWithoutAValueStay) {
  EXPECT_EQ(Filled("%s %s %9$s %d %", {"one"}), "one %s %9$s %d %");
}

TEST(FilledText, BytesThatAreNoTextStay) {
  EXPECT_EQ(Filled("'%s'", {"\xff\xfe"}), "'\xff\xfe'");
}

TEST(Message, WithoutATranslationIsEnglish) {
  Message const message("frame %s cannot be decoded", {"12"});
  EXPECT_EQ(message.English(), "frame 12 cannot be decoded");
  EXPECT_EQ(message.Translated(), "frame 12 cannot be decoded");
}

TEST(Message, WordsOfTheSystemStayAsTheyAre) {
  EXPECT_EQ(Message("50 %% full \xff").English(), "50 %% full \xff");
  EXPECT_EQ(Message("50 %% full \xff").Translated(), "50 %% full \xff");
}

TEST(Message, MayBeEmpty) {
  EXPECT_TRUE(Message().IsEmpty());
  EXPECT_EQ(Message().Translated(), "");
  EXPECT_FALSE(Message("its end is missing").IsEmpty());
}

}  // namespace

}  // namespace framenote::test
