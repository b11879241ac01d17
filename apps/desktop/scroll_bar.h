// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

class wxScrollWinEvent;
class wxWindow;

/// What a scroll bar shows, in window units; without anything to scroll `range` is `page`.
struct ScrollBar {
  int position = 0;
  int page = 1;
  int range = 1;
};

/// Shows both bars on a window made with wxHSCROLL and wxVSCROLL; none in one that is squeezed to
/// less than the bars need.
void ShowScrollBars(wxWindow &window, ScrollBar const &across, ScrollBar const &down);
/// Where the bar `bar` is asked to go; may lie past its ends. `line` is the way of one step.
int WantedPosition(wxScrollWinEvent const &event, ScrollBar const &bar, int line);
/// Calls `handler` for all that the window's scroll bars send.
void BindScrolling(wxWindow &window, std::function<void(wxScrollWinEvent const &)> const &handler);
