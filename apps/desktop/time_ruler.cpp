// SPDX-License-Identifier: MIT
#include "desktop/time_ruler.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "desktop/timeline_layout.h"

namespace {

/// Marks without a label are not nearer than this, in window units.
constexpr double kLeastGap = 5.0;
/// Between labels nearer than this there are no whole seconds often enough: frames are counted.
constexpr double kLeastSeconds = 0.5;
constexpr double kHour = 3600.0;
constexpr double kMostHours = 1e6;
constexpr std::int64_t kMillisecondsOfMinute = 60000;

/// The steps of labels in seconds, and how many parts each has.
struct Step {
  double seconds;
  int parts;
};
constexpr std::array kSteps = {Step{1, 5},    Step{2, 4},    Step{5, 5},     Step{10, 5},
                               Step{15, 3},   Step{30, 3},   Step{60, 6},    Step{120, 4},
                               Step{300, 5},  Step{600, 5},  Step{900, 3},   Step{1800, 6},
                               Step{3600, 6}, Step{7200, 4}, Step{18000, 5}, Step{36000, 5}};

/// What is seen: frames, and the times where they begin and where the last one ends.
struct View {
  std::int64_t first = 0;
  std::int64_t last = 0;
  double from = 0.0;
  double to = 0.0;
  double secondsPerUnit = 0.0;
};

View ViewOf(TimelineLayout const &layout, SecondsOfFrame const &secondsOf) {
  View view;
  ScrollBar const bar = layout.HorizontalBar();
  view.first = layout.FrameAt(0);
  view.last = layout.FrameAt(bar.page);
  view.from = secondsOf(view.first);
  // The length of the last frame of all is not known; its beginning must do.
  std::int64_t const behind = std::min(view.last + 1, layout.FrameCount() - 1);
  view.to = secondsOf(behind);
  double const width = layout.X(behind) - layout.X(view.first);
  if (width > 0.0) view.secondsPerUnit = (view.to - view.from) / width;
  return view;
}

std::int64_t RoundStepOfFrames(double least) {
  std::int64_t step = 1;
  for (int i = 0; static_cast<double>(step) < least; ++i) {
    // 1, 2, 5, 10, 20, 50, ...
    step = i % 3 == 1 ? step / 2 * 5 : step * 2;
  }
  return step;
}

std::vector<RulerMark> MarksOfFrames(TimelineLayout const &layout, SecondsOfFrame const &secondsOf,
                                     View const &view, int spacing) {
  std::int64_t const labelled = RoundStepOfFrames(spacing / layout.FrameWidth());
  std::int64_t const small = std::min(labelled, RoundStepOfFrames(kLeastGap / layout.FrameWidth()));
  std::int64_t const step = labelled % small == 0 ? small : labelled;
  std::vector<RulerMark> marks;
  for (std::int64_t frame = view.first / labelled * labelled; frame <= view.last; frame += step) {
    marks.push_back({frame, secondsOf(frame), frame % labelled == 0, false});
  }
  return marks;
}

/// The first frame of the view that begins at `seconds` or later.
std::int64_t FrameFrom(double seconds, SecondsOfFrame const &secondsOf, View const &view) {
  // Sums of frame lengths miss whole seconds by a rounding.
  constexpr double kNearly = 1e-6;
  std::int64_t low = view.first, high = view.last + 1;
  while (low < high) {
    std::int64_t const middle = low + (high - low) / 2;
    if (secondsOf(middle) < seconds - kNearly) {
      low = middle + 1;
    } else {
      high = middle;
    }
  }
  return low;
}

Step StepOfSeconds(double least) {
  for (Step const &step : kSteps) {
    if (step.seconds >= least) return step;
  }
  double const tens = std::min(std::ceil(least / kSteps.back().seconds), kMostHours);
  return {tens * kSteps.back().seconds, kSteps.back().parts};
}

std::vector<RulerMark> MarksOfSeconds(TimelineLayout const &layout, SecondsOfFrame const &secondsOf,
                                      View const &view, int spacing) {
  Step const step = StepOfSeconds(spacing * view.secondsPerUnit);
  double const part = step.seconds / step.parts;
  int const parts = part / view.secondsPerUnit < kLeastGap ? 1 : step.parts;
  double const length = step.seconds / parts;
  std::vector<RulerMark> marks;
  // Where the rate varies, labels that would lie upon each other are left out.
  double labelledAt = -2.0 * spacing;
  for (double i = std::floor(view.from / length); i * length <= view.to; ++i) {
    double const seconds = i * length;
    std::int64_t const frame = FrameFrom(seconds, secondsOf, view);
    if (frame > view.last || (seconds < view.from && frame == view.first)) continue;
    bool const isWhole = std::fmod(i, parts) == 0.0;
    bool const hasRoom = layout.X(frame) - labelledAt >= 0.9 * spacing;
    if (isWhole && hasRoom) labelledAt = layout.X(frame);
    if (!marks.empty() && marks.back().frame == frame && !isWhole) continue;
    marks.push_back({frame, seconds, isWhole && hasRoom, true});
  }
  return marks;
}

}  // namespace

std::vector<RulerMark> RulerMarks(TimelineLayout const &layout, SecondsOfFrame const &secondsOf,
                                  int spacing) {
  View const view = ViewOf(layout, secondsOf);
  bool const areFramesWide = spacing * view.secondsPerUnit < kLeastSeconds;
  return areFramesWide ? MarksOfFrames(layout, secondsOf, view, spacing)
                       : MarksOfSeconds(layout, secondsOf, view, spacing);
}

wxString TimeText(double seconds) {
  double const bounded = std::min(std::max(seconds, 0.0), kMostHours * kHour);
  auto const all = static_cast<std::int64_t>(std::llround(bounded * 1000.0));
  int const milliseconds = static_cast<int>(all % kMillisecondsOfMinute);
  int const minutes = static_cast<int>(all / kMillisecondsOfMinute);
  wxString const rest = wxString::Format("%02d.%03d", milliseconds / 1000, milliseconds % 1000);
  if (minutes < 60) return wxString::Format("%d:%s", minutes, rest);
  return wxString::Format("%d:%02d:%s", minutes / 60, minutes % 60, rest);
}

wxString WholeTimeText(double seconds) {
  return TimeText(seconds).BeforeLast('.');
}
