// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include <wx/string.h>

class TimelineLayout;

/// The time of a frame, counted from the first; does not fall from frame to frame.
using SecondsOfFrame = std::function<double(std::int64_t)>;

/// A mark of the ruler. It stands at the left side of its frame.
struct RulerMark {
  std::int64_t frame = 0;
  double seconds = 0.0;  ///< what it is labelled with
  bool isLabelled = false;
  bool isWhole = false;  ///< labelled without milliseconds
};

/// The marks that are seen, from the left: whole seconds, minutes or hours, or, where the frames
/// are wide, whole frames. Labelled ones are at least `spacing` window units apart.
/// REQUIRES: `secondsOf` is not empty; a positive spacing.
std::vector<RulerMark> RulerMarks(TimelineLayout const &layout, SecondsOfFrame const &secondsOf,
                                  int spacing);

/// As 0:00.000, or 0:00:00.000 from an hour on.
wxString TimeText(double seconds);
/// The same without milliseconds, where these are none.
wxString WholeTimeText(double seconds);
