// SPDX-License-Identifier: MIT
#include "project/time_code.h"

#include <cstdint>
#include <limits>
#include <optional>

#include <gtest/gtest.h>

#include "project/fake_media.h"

namespace framenote::test {
namespace {

using Frame = std::optional<std::int64_t>;

// Frames that begin 0, 40, 1000, 1033, 61500 and 3723004 ms after the first, whose stamp is not 0;
// the last one lasts until 3723104 ms.
FakeMedia VariableRate() {
  return FakeMedia({500, 540, 1500, 1533, 62000, 3723504, 3723604}, {1, 1000});
}

TEST(FormatTimeCode, SaysWhenTheFrameBegins) {
  FakeMedia const media = VariableRate();
  EXPECT_EQ(FormatTimeCode(media, 0), "00:00:00.000");
  EXPECT_EQ(FormatTimeCode(media, 1), "00:00:00.040");
  EXPECT_EQ(FormatTimeCode(media, 3), "00:00:01.033");
  EXPECT_EQ(FormatTimeCode(media, 4), "00:01:01.500");
  EXPECT_EQ(FormatTimeCode(media, 5), "01:02:03.004");
}

TEST(FormatTimeCode, CutsOffBelowMilliseconds) {
  // 29.97 frames a second: frame 1 at 33.366 ms, frame 2 at 66.733 ms, frame 30 at 1.001 s.
  FakeMedia const media(EvenTimes(40, 1001), {1, 30000});
  EXPECT_EQ(FormatTimeCode(media, 1), "00:00:00.033");
  EXPECT_EQ(FormatTimeCode(media, 2), "00:00:00.066");
  EXPECT_EQ(FormatTimeCode(media, 30), "00:00:01.001");
}

TEST(FormatTimeCode, HoldsForExtremeTimes) {
  constexpr auto kMax = std::numeric_limits<std::int64_t>::max();
  EXPECT_EQ(FormatTimeCode(FakeMedia({0, 360000, 360001}, {1, 1}), 1), "100:00:00.000");
  EXPECT_EQ(FormatTimeCode(FakeMedia({0, kMax - 1, kMax}, {1, kMax}), 1), "00:00:00.999");
  EXPECT_EQ(FormatTimeCode(FakeMedia({0, 5, 10}, {1, 0}), 1), "00:00:00.000");
  // 2^63 - 1 = 9223372036854775807 seconds.
  EXPECT_EQ(FormatTimeCode(FakeMedia({0, kMax - 1, kMax}, {kMax, 1}), 1),
            "2562047788015215:30:07.000");
}

TEST(ParsePosition, TakesFrameNumbers) {
  FakeMedia const media = VariableRate();
  EXPECT_EQ(ParsePosition("0", media), Frame(0));
  EXPECT_EQ(ParsePosition("  5 ", media), Frame(5));
  EXPECT_EQ(ParsePosition("6", media), std::nullopt);
  EXPECT_EQ(ParsePosition("-1", media), std::nullopt);
  EXPECT_EQ(ParsePosition("99999999999999999999", media), std::nullopt);
}

TEST(ParsePosition, TakesTimesAndFindsTheFrameThatStandsThen) {
  FakeMedia const media = VariableRate();
  struct {
    char const *text;
    std::int64_t frame;
  } const rows[] = {{"0.0", 0},         {"0.039", 0},       {"0.04", 1},        {"0.999", 1},
                    {"1.0", 2},         {"0:01", 2},        {"00:00:01", 2},    {"1.032", 2},
                    {"1.033", 3},       {"1:01.499", 3},    {"1:01.5", 4},      {"61.5", 4},
                    {"0:61:00.0", -1},  {"62:03.003", 4},   {"62:03.004", 5},   {"1:2:3.004", 5},
                    {"01:02:03,05", 5}, {"1:02:03.103", 5}, {"1:02:03.104", -1}};
  for (auto const &row : rows) {
    Frame const expected = row.frame < 0 ? std::nullopt : Frame(row.frame);
    EXPECT_EQ(ParsePosition(row.text, media), expected) << row.text;
  }
}

TEST(ParsePosition, TakesNothingElse) {
  FakeMedia const media = VariableRate();
  for (char const *text :
       {"",      " ",    ".",    ":",  "x",    "1x",      "1.",
        ".5",    "1.x",  "1:",   ":1", "1::2", "1:2:3:4", "0:60.0",
        "1.0.0", "-1.0", "0:-1", "+1", "1e1",  "1.-5",    "9999999999999999:00:00",
        "0x1",   "1 000"}) {
    EXPECT_EQ(ParsePosition(text, media), std::nullopt) << text;
  }
}

TEST(ParsePosition, FindsEachFrameByTheTimeThatIsShown) {
  FakeMedia const media(EvenTimes(2000, 1001), {1, 30000});
  for (std::int64_t frame = 0; frame < 2000; ++frame) {
    ASSERT_EQ(ParsePosition(FormatTimeCode(media, frame), media), Frame(frame));
  }
}

TEST(ParsePosition, TakesFinerTimesWhereFramesAreFiner) {
  FakeMedia const media(EvenTimes(100, 1), {1, 10000});  // 10,000 frames a second
  EXPECT_EQ(ParsePosition("0.0042", media), Frame(42));
  EXPECT_EQ(ParsePosition("0.00429999999999", media), Frame(42));
}

TEST(ParsePosition, IsNowhereInMediaWithoutFrames) {
  EXPECT_EQ(ParsePosition("0", FakeMedia({0}, {1, 25})), std::nullopt);
  EXPECT_EQ(ParsePosition("0.0", FakeMedia({0}, {1, 25})), std::nullopt);
}

}  // namespace
}  // namespace framenote::test
