// SPDX-License-Identifier: MIT
#include "desktop/timeline.h"

#include <limits>
#include <string>
#include <vector>

#include "desktop/window_fixture.h"
#include "support/processor_time.h"

namespace framenote::test {

namespace {

double At25(std::int64_t frame) {
  return static_cast<double>(frame) / 25.0;
}

/// Keeps what the timeline asks for as text.
class TimelineOnAWindow : public WindowTest {
protected:
  void SetUp() override {
    WindowTest::SetUp();
    m_timeline = new Timeline(m_frame);  // owned by the frame
    m_timeline->OnFrameWanted([this](std::int64_t frame, bool isFinished) {
      m_wanted.push_back(std::to_string(frame) + (isFinished ? "!" : ""));
    });
    m_timeline->OnRowSelected([this](int index) { m_rows.push_back(index); });
    m_timeline->OnRangeDragged([this](Timeline::RangeDrag const &drag) {
      m_drags.push_back(std::to_string(drag.index) + (drag.isStart ? " from " : " to ") +
                        std::to_string(drag.frame) + (drag.isFinished ? "!" : ""));
    });
    ShowFrame(*m_timeline);
    m_timeline->SetMedia(100, At25);
    Idle();
  }

  static Timeline::Ranges ThreeRanges() {
    return {{10, 29, *wxRED}, {40, 40, wxColour(0, 160, 0)}, {0, 99, *wxBLUE}};
  }

  /// The middle of a frame's cell in a row; -1 is the ruler.
  wxPoint At(std::int64_t frame, int row) const {
    TimelineLayout const &layout = m_timeline->Layout();
    int const y = row < 0 ? layout.Sizes().ruler / 2 : layout.RowTop(row) + layout.Sizes().row / 2;
    return {wxRound((layout.X(frame) + layout.X(frame + 1)) / 2.0), y};
  }

  Timeline *m_timeline = nullptr;
  std::vector<std::string> m_wanted;
  std::vector<int> m_rows;
  std::vector<std::string> m_drags;
};

using Texts = std::vector<std::string>;

TEST_F(TimelineOnAWindow, AClickInTheRulerGoesThere) {
  Click(At(30, -1));
  EXPECT_EQ(m_wanted, (Texts{"30", "30!"}));
  EXPECT_EQ(m_timeline->Frame(), 30);
}

TEST_F(TimelineOnAWindow, ThePlayheadIsDraggedInTheRulerAndOnItsLine) {
  m_timeline->SetFrame(20);
  Drag(At(20, -1), At(60, -1));
  EXPECT_EQ(m_wanted, (Texts{"40", "60", "60!"}));
  m_wanted.clear();
  Drag(At(60, 5), At(70, 5));
  EXPECT_EQ(m_wanted, (Texts{"65", "70", "70!"}));
  EXPECT_FALSE(m_timeline->HasCapture());
}

TEST_F(TimelineOnAWindow, WhatIsToldDuringADragDoesNotMoveThePlayhead) {
  MoveTo(At(20, -1));
  Press();
  m_timeline->SetFrame(3);
  EXPECT_EQ(m_timeline->Frame(), 20);
  Release();
  m_timeline->SetFrame(3);
  EXPECT_EQ(m_timeline->Frame(), 3);
}

TEST_F(TimelineOnAWindow, AClickSelectsTheRow) {
  m_timeline->SetRanges(ThreeRanges(), -1);
  Click(At(20, 0));
  Click(At(70, 1));  // beside its bar
  Click(At(50, 2));
  Click(At(50, 2));
  EXPECT_EQ(m_rows, (std::vector<int>{0, 1, 2}));
  EXPECT_TRUE(m_drags.empty());
  EXPECT_TRUE(m_wanted.empty());
}

TEST_F(TimelineOnAWindow, TheEndsOfABarAreDragged) {
  m_timeline->SetRanges(ThreeRanges(), 0);
  TimelineLayout const &layout = m_timeline->Layout();
  int const y = At(0, 0).y;
  Drag({wxRound(layout.X(30)), y}, At(50, 0));
  ASSERT_FALSE(m_drags.empty());
  EXPECT_EQ(m_drags.back(), "0 to 50!");
  EXPECT_EQ(m_drags[m_drags.size() - 2], "0 to 50");
  m_drags.clear();
  Drag({wxRound(layout.X(10)), y}, At(4, 0));
  EXPECT_EQ(m_drags.back(), "0 from 4!");
  EXPECT_TRUE(m_rows.empty());
}

TEST_F(TimelineOnAWindow, ADraggedRangeKeepsAFrame) {
  m_timeline->SetRanges(ThreeRanges(), -1);
  int const y = At(0, 0).y;
  Drag({wxRound(m_timeline->Layout().X(30)), y}, At(2, 0));
  EXPECT_EQ(m_drags.back(), "0 to 10!");
  EXPECT_EQ(m_rows, std::vector<int>{0});
}

TEST_F(TimelineOnAWindow, EscapeGivesADragUp) {
  m_timeline->SetRanges(ThreeRanges(), 0);
  MoveTo({wxRound(m_timeline->Layout().X(30)), At(0, 0).y});
  Press();
  MoveTo(At(60, 0));
  EXPECT_EQ(m_drags.back(), "0 to 60");
  Key(WXK_ESCAPE);
  EXPECT_EQ(m_drags.back(), "0 to 29!");
  std::size_t const told = m_drags.size();
  Release();
  EXPECT_EQ(m_drags.size(), told);
  EXPECT_FALSE(m_timeline->CancelDrag());
}

TEST_F(TimelineOnAWindow, ARangeThatIsToldDuringItsDragStaysWithTheMouse) {
  m_timeline->SetRanges(ThreeRanges(), 0);
  MoveTo({wxRound(m_timeline->Layout().X(30)), At(0, 0).y});
  Press();
  MoveTo(At(60, 0));
  m_timeline->SetRanges(ThreeRanges(), 0);
  Release();
  EXPECT_EQ(m_drags.back(), "0 to 60!");
  // Another number of objects ends it.
  MoveTo({wxRound(m_timeline->Layout().X(61)), At(0, 0).y});
  Press();
  m_timeline->SetRanges({}, -1);
  EXPECT_EQ(m_drags.back(), "0 to 60!");
  Release();
}

TEST_F(TimelineOnAWindow, UpAndDownSelectRowsAndOtherKeysPass) {
  m_timeline->SetRanges(ThreeRanges(), -1);
  m_timeline->SetFocus();
  int passed = 0;
  m_timeline->Bind(wxEVT_CHAR, [&](wxKeyEvent &) { ++passed; });
  Idle();
  for (int const key : {WXK_DOWN, WXK_DOWN, WXK_DOWN, WXK_DOWN, WXK_UP}) Key(key);
  EXPECT_EQ(m_rows, (std::vector<int>{0, 1, 2, 1}));
  EXPECT_EQ(passed, 0);
  Key(WXK_LEFT);
  EXPECT_EQ(passed, 1);
}

TEST_F(TimelineOnAWindow, TheWheelZoomsAtThePointerAndScrolls) {
  m_timeline->SetMedia(10000, At25);
  wxPoint const at = At(5000, -1);
  for (int i = 0; i < 10; ++i) Wheel(at, 120, wxMOD_CONTROL);
  TimelineLayout const &layout = m_timeline->Layout();
  EXPECT_NEAR(layout.X(5000), at.x, layout.FrameWidth());
  int const before = layout.HorizontalBar().position;
  Wheel(at, -120);  // there are no rows to scroll
  EXPECT_EQ(layout.HorizontalBar().position, before + 3 * m_timeline->FromDIP(20));
  m_timeline->ShowAll();
  EXPECT_EQ(layout.HorizontalBar().position, 0);
}

TEST_F(TimelineOnAWindow, ManyRowsScrollAndTheSelectedOneIsSeen) {
  Timeline::Ranges ranges;
  for (int i = 0; i < 10000; ++i) ranges.emplace_back(i % 90, i % 90 + 5, *wxRED);
  m_timeline->SetRanges(ranges, 5000);
  auto const [first, behind] = m_timeline->Layout().VisibleRows();
  EXPECT_LE(first, 5000);
  EXPECT_GT(behind, 5000);
  Wheel({100, 100}, 120);
  EXPECT_LT(m_timeline->Layout().VisibleRows().first, first);
  wxScrollWinEvent event(wxEVT_SCROLLWIN_BOTTOM, 0, wxVERTICAL);
  m_timeline->ProcessWindowEvent(event);
  EXPECT_EQ(m_timeline->Layout().VisibleRows().second, 10000);
}

TEST_F(TimelineOnAWindow, ABarHasItsColourUpToTheEndOfItsLastFrame) {
  m_timeline->SetRanges(ThreeRanges(), -1);
  m_timeline->SetFrame(90);
  wxImage const shown = Screenshot();
  int const y = At(0, 0).y;
  int const right = wxRound(m_timeline->Layout().X(30));
  auto const isRed = [&](int x) { return shown.GetRed(x, y) > 200 && shown.GetBlue(x, y) < 50; };
  EXPECT_TRUE(isRed(At(10, 0).x));
  EXPECT_TRUE(isRed(right - 2));  // one of outline
  EXPECT_FALSE(isRed(right));
}

TEST_F(TimelineOnAWindow, TicksStandWhereTheObjectMoves) {
  m_timeline->SetRanges({{0, 99, *wxRED}}, -1);
  m_timeline->SetFrame(99);
  m_timeline->SetStillRuns(0, {{0, 49}, {50, 99}});
  m_timeline->SetStillRuns(7, {{0, 1}});
  wxImage const shown = Screenshot();
  int const x = wxRound(m_timeline->Layout().X(50));
  int const y = At(0, 0).y;
  EXPECT_GT(shown.GetRed(x - 2, y), 200);
  EXPECT_EQ(shown.GetGreen(x - 2, y), 0);
  EXPECT_EQ(shown.GetGreen(x, y), shown.GetRed(x, y));  // black or white
}

TEST_F(TimelineOnAWindow, TheToolTipTellsFramesAndTimes) {
  m_timeline->SetRanges(ThreeRanges(), -1);
  MoveTo(At(20, 0));
  EXPECT_EQ(m_timeline->GetToolTipText(), "Frames 10 to 29, 0:00.400 to 0:01.160");
  MoveTo(At(20, -1));
  EXPECT_EQ(m_timeline->GetToolTipText(), "");
}

TEST_F(TimelineOnAWindow, MillionsOfFramesAndRunsArePaintedAtOnce) {
  m_timeline->SetMedia(1000000, At25);
  std::vector<Timeline::Run> runs;
  for (std::int64_t frame = 0; frame < 1000000; ++frame) runs.emplace_back(frame, frame);
  Timeline::Ranges const ranges(10000, {0, 999999, wxColour(200, 120, 0)});
  m_timeline->SetRanges(ranges, 0);
  for (int i = 0; i < 20; ++i) m_timeline->SetStillRuns(i, runs);
  Screenshot();
  ProcessorTime const watch;
  m_timeline->Refresh();
  m_timeline->Update();
  // Far more than it takes; one look at each run of each row that is seen would not do.
  EXPECT_LT(watch.Seconds(), 1.0);
}

TEST_F(TimelineOnAWindow, BadRangesAreHarmless) {
  std::int64_t const most = std::numeric_limits<std::int64_t>::max();
  m_timeline->SetRanges({{-most, most, wxColour()}, {most, -5, *wxRED}, {500, 600, *wxRED}}, 17);
  m_timeline->SetStillRuns(0, {{-most, 3}, {most, most}});
  wxImage const shown = Screenshot();
  EXPECT_TRUE(shown.IsOk());
  Click(At(50, 0));
  EXPECT_EQ(m_rows, std::vector<int>{0});
}

}  // namespace

}  // namespace framenote::test
