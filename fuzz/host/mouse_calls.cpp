// SPDX-License-Identifier: MIT
// The mouse, the view, and the active mode.
#include <climits>
#include <cmath>
#include <limits>

#include "host/host_calls.h"
#include "host/host_session.h"
#include "modes/ann_general_tool_mode.h"

namespace framenote::fuzz {

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

constexpr double kScales[] = {1.0, 0.5, 2.0,  0.25,      4.0,        0.01,   16.0,  100.0,
                              0.0, -1., kNaN, kInfinity, -kInfinity, 1e-300, 1e300, 1e9};
constexpr double kOffsets[] = {0.0, 3.5,  -7.0,  20.0, -0.5, 0.5,       -100.0,     1e3,
                               1e6, -1e6, -1e18, 1e18, kNaN, kInfinity, -kInfinity, 1e308};
constexpr int kFarPlaces[] = {0,       16,    40,          INT_MIN,    INT_MAX,       -32768,
                              32767,   65536, 1000000,     -1000000,   (1 << 28) + 1, -(1 << 28),
                              1 << 28, -1,    INT_MIN + 1, INT_MAX - 1};

// Few: the first ones are what tools are made of.
constexpr int kMotions = 5;

wxEventType PickMouseEvent(ByteReader &bytes) {
  static wxEventType const kinds[] = {wxEVT_MOTION,     wxEVT_LEFT_DOWN,    wxEVT_LEFT_UP,
                                      wxEVT_RIGHT_UP,   wxEVT_LEFT_DCLICK,  wxEVT_RIGHT_DOWN,
                                      wxEVT_MOUSEWHEEL, wxEVT_LEAVE_WINDOW, wxEVT_MIDDLE_DOWN,
                                      wxEVT_MIDDLE_UP,  wxEVT_RIGHT_DCLICK, wxEVT_ENTER_WINDOW};
  return bytes.Pick(kinds);
}

wxPoint ReadPlace(ByteReader &bytes) {
  int const x = bytes.Coordinate();
  return {x, bytes.Coordinate()};
}

}  // namespace

void CallMouse(HostSession &session, ByteReader &bytes) {
  wxEventType const type = PickMouseEvent(bytes);
  wxPoint const place = ReadPlace(bytes);
  session.SendMouse(type, place, bytes.Byte());
}

void CallDrag(HostSession &session, ByteReader &bytes) {
  wxPoint const from = ReadPlace(bytes);
  wxPoint const to = ReadPlace(bytes);
  int const modifiers = bytes.Byte();
  session.SendMouse(wxEVT_MOTION, from, modifiers);
  session.SendMouse(wxEVT_LEFT_DOWN, from, modifiers);
  for (int i = 1; i <= kMotions; ++i) {
    session.SendMouse(wxEVT_MOTION, from + (to - from) * i / kMotions, modifiers);
  }
  session.SendMouse(wxEVT_LEFT_UP, to, modifiers);
}

void CallFarMouse(HostSession &session, ByteReader &bytes) {
  wxEventType const type = PickMouseEvent(bytes);
  int const x = bytes.Pick(kFarPlaces);
  int const y = bytes.Pick(kFarPlaces);
  session.SendMouse(type, {x, y}, bytes.Byte());
}

void CallSetView(HostSession &session, ByteReader &bytes) {
  double const scale = bytes.Pick(kScales);
  double const x = bytes.Pick(kOffsets);
  session.SetView(scale, {x, bytes.Pick(kOffsets)});
}

void CallSetTool(HostSession &session, ByteReader &bytes) {
  AnnotationTool &tool = session.Tool();
  auto const mode = static_cast<Types>(bytes.Below(11));
  if (bytes.Flag()) {
    tool.SetActiveTool(tool.GetToolModes().Of(mode));
  } else {
    tool.SetActiveTool(mode);
  }
}

}  // namespace framenote::fuzz
