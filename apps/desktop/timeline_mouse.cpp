// SPDX-License-Identifier: MIT
// Mouse, wheel and keys of the timeline.
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include <wx/cursor.h>
#include <wx/intl.h>

#include "desktop/timeline.h"

namespace {

/// How far a line of the wheel scrolls, in device-independent pixels.
constexpr int kLine = 20;
constexpr double kZoomStep = 1.25;
/// How far from the playhead's line it can be taken, in device-independent pixels.
constexpr int kLineReach = 3;

}  // namespace

void Timeline::bindEvents() {
  Bind(wxEVT_PAINT, [this](wxPaintEvent &) { onPaint(); });
  Bind(wxEVT_SIZE, [this](wxSizeEvent &event) {
    changeView([this] { m_layout.SetSize(GetClientSize()); });
    event.Skip();
  });
  Bind(wxEVT_DPI_CHANGED, [this](wxDPIChangedEvent &event) {
    useMetrics();
    event.Skip();
  });
  Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent &event) {
    useMetrics();
    event.Skip();
  });
  for (auto const &type : {wxEVT_SET_FOCUS, wxEVT_KILL_FOCUS}) {
    Bind(type, [this](wxFocusEvent &event) {
      Refresh();
      event.Skip();
    });
  }
  for (auto const &type : {wxEVT_LEFT_DOWN, wxEVT_LEFT_DCLICK, wxEVT_LEFT_UP, wxEVT_MOTION}) {
    Bind(type, &Timeline::onMouse, this);
  }
  Bind(wxEVT_MOUSE_CAPTURE_LOST, [this](wxMouseCaptureLostEvent &) { CancelDrag(); });
  Bind(wxEVT_MOUSEWHEEL, [this](wxMouseEvent &event) { onWheel(event); });
  BindScrolling(*this, [this](wxScrollWinEvent const &event) { onScroll(event); });
  Bind(wxEVT_KEY_DOWN, &Timeline::onKey, this);
}

Timeline::Hit Timeline::hitAt(wxPoint const &at) const {
  using Kind = Hit::Kind;
  if (at.y < m_layout.Sizes().ruler) return {Kind::Playhead, -1};
  int const index = m_layout.RowAt(at.y);
  auto part = TimelineLayout::Part::None;
  if (index >= 0) part = m_layout.PartAt(at.x, row(index).first, row(index).last);
  if (part == TimelineLayout::Part::Start) return {Kind::Start, index};
  if (part == TimelineLayout::Part::End) return {Kind::End, index};
  // Bars lie over the playhead's line for the mouse: they can be clicked all along.
  bool const isOnLine = std::abs(at.x - playheadX()) <= FromDIP(kLineReach);
  if (part == TimelineLayout::Part::None && isOnLine) return {Kind::Playhead, index};
  return {index >= 0 ? Kind::Row : Kind::Nothing, index};
}

void Timeline::onMouse(wxMouseEvent &event) {
  wxPoint const at = event.GetPosition();
  if (event.LeftDown() || event.LeftDClick()) {
    SetFocus();
    press(at);
  } else if (event.LeftUp()) {
    finishDrag();
  } else if (m_drag != Drag::None) {
    drag(at);
  } else {
    hover(at);
  }
}

void Timeline::press(wxPoint const &at) {
  if (m_drag != Drag::None) return;
  Hit const hit = hitAt(at);
  if (hit.kind == Hit::Kind::Nothing) return;
  if (hit.kind != Hit::Kind::Playhead && hit.row != m_selected) selectRow(hit.row);
  if (hit.kind == Hit::Kind::Row) return;
  // The owner may have refused the row.
  if (hit.kind != Hit::Kind::Playhead && hit.row != m_selected) return;
  CaptureMouse();
  if (hit.kind == Hit::Kind::Playhead) {
    m_drag = Drag::Playhead;
    m_before = m_frame;
    return drag(at);
  }
  m_drag = Drag::RangeEnd;
  m_range = {hit.row, hit.kind == Hit::Kind::Start, 0, false};
  m_before = m_range.frame = draggedEnd();
}

void Timeline::drag(wxPoint const &at) {
  std::int64_t const frame = m_layout.FrameAt(at.x);
  if (m_drag == Drag::Playhead) {
    if (frame != m_frame) wantFrame(frame, false);
  } else {
    dragRangeTo(frame);
  }
  changeView([&] { m_layout.RevealFrame(frame, false); });
}

void Timeline::finishDrag() {
  Drag const finished = m_drag;
  m_drag = Drag::None;
  if (HasCapture()) ReleaseMouse();
  if (finished == Drag::Playhead) wantFrame(m_frame, true);
  if (finished == Drag::RangeEnd) tellRange(true);
}

bool Timeline::CancelDrag() {
  if (m_drag == Drag::None) return false;
  if (m_drag == Drag::Playhead) m_frame = m_before;
  if (m_drag == Drag::RangeEnd) draggedEnd() = m_range.frame = m_before;
  finishDrag();
  Refresh();
  return true;
}

std::int64_t &Timeline::draggedEnd() {
  Row &dragged = row(m_range.index);
  return m_range.isStart ? dragged.first : dragged.last;
}

void Timeline::dragRangeTo(std::int64_t frame) {
  Row const &dragged = row(m_range.index);
  // A range keeps at least one frame.
  std::int64_t const wanted =
      m_range.isStart ? std::min(frame, dragged.last) : std::max(frame, dragged.first);
  if (wanted == m_range.frame) return;
  m_range.frame = draggedEnd() = wanted;
  m_toolTipRow = -1;
  tellRange(false);
}

void Timeline::tellRange(bool isFinished) {
  m_range.isFinished = isFinished;
  // A copy: the handler may end the drag.
  RangeDrag const told = m_range;
  if (m_onRange) m_onRange(told);
}

void Timeline::wantFrame(std::int64_t frame, bool isFinished) {
  m_frame = frame;
  Refresh();
  if (m_onFrame) m_onFrame(frame, isFinished);
}

void Timeline::selectRow(int index) {
  m_selected = index;
  changeView([&] { m_layout.RevealRow(index); });
  if (m_onRow) m_onRow(index);
}

void Timeline::hover(wxPoint const &at) {
  Hit const hit = hitAt(at);
  bool const isOnEnd = hit.kind == Hit::Kind::Start || hit.kind == Hit::Kind::End;
  bool const isOnLine = hit.kind == Hit::Kind::Playhead && at.y >= m_layout.Sizes().ruler;
  SetCursor(isOnEnd || isOnLine ? wxCursor(wxCURSOR_SIZEWE) : wxNullCursor);
  showToolTip(hit.row);
}

void Timeline::showToolTip(int index) {
  if (index == m_toolTipRow) return;
  m_toolTipRow = index;
  if (index < 0) return UnsetToolTip();
  Row const &shown = row(index);
  auto const secondsOf = [this](std::int64_t frame) {
    std::int64_t const last = m_layout.FrameCount() - 1;
    return TimeText(m_secondsOf(std::min(std::max<std::int64_t>(frame, 0), last)));
  };
  // TRANSLATORS: first and last frame, first and last time.
  SetToolTip(wxString::Format(wxGetTranslation("Frames %s to %s, %s to %s"),
                              std::to_string(shown.first), std::to_string(shown.last),
                              secondsOf(shown.first), secondsOf(shown.last)));
}

void Timeline::onWheel(wxMouseEvent const &event) {
  int const delta = event.GetWheelDelta();
  if (delta <= 0) return;
  double const turns = static_cast<double>(event.GetWheelRotation()) / delta;
  if (event.ControlDown()) {
    return changeView([&] { m_layout.ZoomBy(std::pow(kZoomStep, turns), event.GetX()); });
  }
  double const way = turns * event.GetLinesPerAction() * FromDIP(kLine);
  ScrollBar const down = m_layout.VerticalBar();
  changeView([&] {
    // A wheel that turns sideways counts to the right.
    if (event.GetWheelAxis() == wxMOUSE_WHEEL_HORIZONTAL) return m_layout.ScrollBy(way, 0.0);
    bool const isSideways = event.ShiftDown() || down.range <= down.page;
    isSideways ? m_layout.ScrollBy(-way, 0.0) : m_layout.ScrollBy(0.0, -way);
  });
}

void Timeline::onScroll(wxScrollWinEvent const &event) {
  ScrollBar const across = m_layout.HorizontalBar();
  ScrollBar const down = m_layout.VerticalBar();
  changeView([&] {
    if (event.GetOrientation() == wxHORIZONTAL) {
      m_layout.ScrollTo(WantedPosition(event, across, FromDIP(kLine)), down.position);
    } else {
      m_layout.ScrollTo(across.position, WantedPosition(event, down, FromDIP(kLine)));
    }
  });
}

void Timeline::onKey(wxKeyEvent &event) {
  int const key = event.GetKeyCode();
  if (key == WXK_ESCAPE && CancelDrag()) return;
  bool const isRowKey = (key == WXK_UP || key == WXK_DOWN) && !event.HasAnyModifiers();
  if (!isRowKey || m_drag != Drag::None) {
    // Tab comes here like any key, as the arrows are wanted.
    if (key != WXK_TAB || !HandleAsNavigationKey(event)) event.Skip();
    return;
  }
  if (rowCount() == 0) return;
  int const wanted = m_selected < 0 ? 0 : m_selected + (key == WXK_DOWN ? 1 : -1);
  if (wanted >= 0 && wanted < rowCount() && wanted != m_selected) selectRow(wanted);
}
