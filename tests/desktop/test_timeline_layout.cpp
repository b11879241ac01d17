// SPDX-License-Identifier: MIT
#include "desktop/timeline_layout.h"

#include <string>

#include <gtest/gtest.h>

#include "desktop/time_ruler.h"

namespace framenote::test {

namespace {

using Part = TimelineLayout::Part;

/// 8 units of padding at each side: 600 are left for the frames of a window of 616.
TimelineLayout Layout(std::int64_t frames, int rows = 0, wxSize const &size = {616, 224}) {
  TimelineLayout layout;
  layout.SetSize(size);
  layout.SetFrameCount(frames);
  layout.SetRowCount(rows);
  return layout;
}

TEST(TimelineLayout, AllFramesFillTheWidth) {
  TimelineLayout const layout = Layout(100);
  EXPECT_TRUE(layout.ShowsAll());
  EXPECT_DOUBLE_EQ(layout.FrameWidth(), 6.0);
  EXPECT_DOUBLE_EQ(layout.X(0), 8.0);
  EXPECT_DOUBLE_EQ(layout.X(100), 608.0);
  EXPECT_EQ(layout.HorizontalBar().range, layout.HorizontalBar().page);
}

TEST(TimelineLayout, AFrameIsItsWholeCell) {
  TimelineLayout const layout = Layout(100);
  EXPECT_EQ(layout.FrameAt(8), 0);
  EXPECT_EQ(layout.FrameAt(13.9), 0);
  EXPECT_EQ(layout.FrameAt(14), 1);
  EXPECT_EQ(layout.FrameAt(607.9), 99);
  EXPECT_EQ(layout.FrameAt(-500), 0);
  EXPECT_EQ(layout.FrameAt(5000), 99);
}

TEST(TimelineLayout, ABarCoversTheCellOfItsLastFrame) {
  TimelineLayout const layout = Layout(100, 3);
  EXPECT_EQ(layout.Bar(1, 10, 12), wxRect(68, 44, 18, 20));
  EXPECT_EQ(layout.Bar(0, 0, 99), wxRect(8, 24, 600, 20));
  EXPECT_EQ(layout.Bar(2, 5, 5).width, 6);
}

TEST(TimelineLayout, AShortRangeIsStillSeen) {
  TimelineLayout const layout = Layout(1000000, 1);
  EXPECT_EQ(layout.Bar(0, 500000, 500000), wxRect(308, 24, 3, 20));
}

TEST(TimelineLayout, OneFrameFillsTheWidth) {
  TimelineLayout layout = Layout(1, 1);
  EXPECT_EQ(layout.Bar(0, 0, 0), wxRect(8, 24, 600, 20));
  layout.ZoomBy(4.0, 300);
  EXPECT_DOUBLE_EQ(layout.FrameWidth(), 600.0);
  EXPECT_EQ(layout.FrameAt(300), 0);
}

TEST(TimelineLayout, ZoomKeepsTheTimeUnderThePointer) {
  TimelineLayout layout = Layout(1000000);
  double const x = 308;
  ASSERT_EQ(layout.FrameAt(x), 500000);
  for (double const factor : {2.0, 8.0, 100.0, 0.5, 1000.0}) {
    layout.ZoomBy(factor, x);
    EXPECT_NEAR(layout.X(500000), x, 1e-3) << factor;
  }
  EXPECT_FALSE(layout.ShowsAll());
}

TEST(TimelineLayout, ZoomEndsAtTheWidestFrameAndAtTheWhole) {
  TimelineLayout layout = Layout(1000);
  layout.ZoomBy(1e9, 100);
  EXPECT_DOUBLE_EQ(layout.FrameWidth(), 64.0);
  layout.ZoomBy(1e-9, 100);
  EXPECT_DOUBLE_EQ(layout.FrameWidth(), 0.6);
  EXPECT_TRUE(layout.ShowsAll());
}

TEST(TimelineLayout, AnImmenseMediaStaysWithinAScrollBar) {
  TimelineLayout layout = Layout(std::int64_t{1} << 40);
  layout.ZoomBy(1e30, 300);
  EXPECT_LE(layout.HorizontalBar().range, 1000000100);
  EXPECT_GT(layout.HorizontalBar().range, 999999000);
  layout.ScrollTo(1e12, 0);
  EXPECT_EQ(layout.FrameAt(1e9), (std::int64_t{1} << 40) - 1);
}

TEST(TimelineLayout, AWiderWindowKeepsShowingAll) {
  TimelineLayout layout = Layout(100);
  layout.SetSize({1216, 224});
  EXPECT_DOUBLE_EQ(layout.FrameWidth(), 12.0);
  layout.ZoomBy(2.0, 8);
  layout.SetSize({616, 224});
  EXPECT_DOUBLE_EQ(layout.FrameWidth(), 24.0);
}

TEST(TimelineLayout, RowsAreFoundBelowTheRuler) {
  TimelineLayout layout = Layout(100, 3);
  EXPECT_EQ(layout.RowAt(23), -1);
  EXPECT_EQ(layout.RowAt(24), 0);
  EXPECT_EQ(layout.RowAt(63), 1);
  EXPECT_EQ(layout.RowAt(84), -1);
}

TEST(TimelineLayout, OnlyTheRowsInTheWindowAreVisible) {
  TimelineLayout layout = Layout(100, 10000);
  EXPECT_EQ(layout.VisibleRows(), std::make_pair(0, 10));
  layout.ScrollTo(0, 50);
  EXPECT_EQ(layout.VisibleRows(), std::make_pair(2, 13));
  EXPECT_EQ(layout.RowTop(2), 14);
  layout.ScrollTo(0, 1e9);
  EXPECT_EQ(layout.VisibleRows(), std::make_pair(9990, 10000));
  EXPECT_EQ(layout.VerticalBar().range, 200000);
  layout.SetRowCount(2);
  EXPECT_EQ(layout.VisibleRows(), std::make_pair(0, 2));
}

TEST(TimelineLayout, ARowIsRevealedWithTheLeastScrolling) {
  TimelineLayout layout = Layout(100, 100);
  layout.RevealRow(9);
  EXPECT_EQ(layout.VerticalBar().position, 0);
  layout.RevealRow(12);
  EXPECT_EQ(layout.VerticalBar().position, 60);
  layout.RevealRow(1);
  EXPECT_EQ(layout.VerticalBar().position, 20);
}

TEST(TimelineLayout, AFrameIsRevealedByPagesOrByTheLeast) {
  TimelineLayout layout = Layout(1000);
  layout.ZoomBy(10.0 / 0.6, 0);  // 10 units a frame
  layout.ScrollTo(0, 0);
  layout.RevealFrame(60, true);  // from 608 to 618, of 616
  EXPECT_NEAR(layout.X(60), 61.6, 1e-9);
  layout.ScrollTo(5000, 0);
  layout.RevealFrame(480, true);
  EXPECT_NEAR(layout.X(481), 616 - 61.6, 1e-9);
  layout.ScrollTo(0, 0);
  layout.RevealFrame(60, false);
  EXPECT_NEAR(layout.X(61), 608, 1e-9);
  layout.RevealFrame(40, false);
  EXPECT_NEAR(layout.X(61), 608, 1e-9);
}

TEST(TimelineLayout, EndsOfARangeWinOverItsBar) {
  TimelineLayout const layout = Layout(100);
  // From 68 to 188.
  EXPECT_EQ(layout.PartAt(62, 10, 29), Part::None);
  EXPECT_EQ(layout.PartAt(63, 10, 29), Part::Start);
  EXPECT_EQ(layout.PartAt(73, 10, 29), Part::Start);
  EXPECT_EQ(layout.PartAt(74, 10, 29), Part::Bar);
  EXPECT_EQ(layout.PartAt(183, 10, 29), Part::End);
  EXPECT_EQ(layout.PartAt(193, 10, 29), Part::End);
  EXPECT_EQ(layout.PartAt(194, 10, 29), Part::None);
  // One frame, from 68 to 74: each end has its half.
  EXPECT_EQ(layout.PartAt(70.9, 10, 10), Part::Start);
  EXPECT_EQ(layout.PartAt(71, 10, 10), Part::End);
}

/// The labels as text, as "frame=time".
std::string Labels(std::vector<RulerMark> const &marks) {
  std::string text;
  for (RulerMark const &mark : marks) {
    if (!mark.isLabelled) continue;
    auto const textOf = mark.isWhole ? WholeTimeText : TimeText;
    text += std::to_string(mark.frame) + "=" + textOf(mark.seconds).utf8_string() + " ";
  }
  return text;
}

double At25(std::int64_t frame) {
  return static_cast<double>(frame) / 25.0;
}

TEST(TimeRuler, LabelsWholeSecondsOrMinutes) {
  // 100 s on 600 units: 80 units are 13.3 s, so every 15 s.
  EXPECT_EQ(Labels(RulerMarks(Layout(2500), At25, 80)),
            "0=0:00 375=0:15 750=0:30 1125=0:45 1500=1:00 1875=1:15 "
            "2250=1:30 ");
  // 11 hours and 6 minutes: every two hours.
  EXPECT_EQ(Labels(RulerMarks(Layout(999000), At25, 80)),
            "0=0:00 180000=2:00:00 360000=4:00:00 540000=6:00:00 "
            "720000=8:00:00 900000=10:00:00 ");
}

TEST(TimeRuler, LabelsFramesWhereTheyAreWide) {
  // 8 units a frame: 80 units are 10 frames.
  EXPECT_EQ(Labels(RulerMarks(Layout(75), At25, 80)),
            "0=0:00.000 10=0:00.400 20=0:00.800 30=0:01.200 40=0:01.600 50=0:02.000 "
            "60=0:02.400 70=0:02.800 ");
  EXPECT_EQ(RulerMarks(Layout(75), At25, 80).size(), 75U);
  EXPECT_EQ(Labels(RulerMarks(Layout(1), At25, 80)), "0=0:00.000 ");
}

TEST(TimeRuler, OnlyWhatIsSeenIsMarked) {
  TimelineLayout layout = Layout(1000000);
  layout.ZoomBy(1e9, 0);
  layout.ScrollTo(64 * 500000, 0);
  std::vector<RulerMark> const marks = RulerMarks(layout, At25, 80);
  ASSERT_FALSE(marks.empty());
  EXPECT_LT(marks.size(), 14U);
  EXPECT_GE(marks.front().frame, 499998);
}

TEST(TimeRuler, AMarkStandsAtTheFirstFrameOfItsTime) {
  // Of 23.976 frames a second the 24th is the first behind the first second.
  auto const secondsOf = [](std::int64_t frame) {
    return static_cast<double>(frame) * 1001 / 24000;
  };
  std::vector<RulerMark> const marks = RulerMarks(Layout(150), secondsOf, 60);
  EXPECT_EQ(Labels(marks),
            "0=0:00 24=0:01 48=0:02 72=0:03 96=0:04 120=0:05 "
            "144=0:06 ");
}

TEST(TimeRuler, LabelsOfAVaryingRateKeepApart) {
  // Nine tenths of the frames last a hundredth of the others.
  auto const secondsOf = [](std::int64_t frame) {
    double const slow = static_cast<double>(std::min<std::int64_t>(frame, 100));
    return slow + static_cast<double>(frame - static_cast<std::int64_t>(slow)) / 100.0;
  };
  TimelineLayout const layout = Layout(1000);
  double before = -1000.0;
  for (RulerMark const &mark : RulerMarks(layout, secondsOf, 80)) {
    if (!mark.isLabelled) continue;
    EXPECT_GE(layout.X(mark.frame) - before, 72.0);
    before = layout.X(mark.frame);
  }
  EXPECT_GT(before, 0.0);
}

TEST(TimeRuler, FramesWithoutTimesAreMarkedOnce) {
  EXPECT_EQ(Labels(RulerMarks(
                Layout(5), [](std::int64_t) { return 0.0; }, 700)),
            "0=0:00.000 ");
}

TEST(TimeRuler, TimesAreTexts) {
  EXPECT_EQ(TimeText(0.0), "0:00.000");
  EXPECT_EQ(TimeText(61.5), "1:01.500");
  EXPECT_EQ(TimeText(3599.9996), "1:00:00.000");
  EXPECT_EQ(TimeText(36061.04), "10:01:01.040");
  EXPECT_EQ(TimeText(-1.0), "0:00.000");
  EXPECT_EQ(WholeTimeText(61.0), "1:01");
}

}  // namespace

}  // namespace framenote::test
