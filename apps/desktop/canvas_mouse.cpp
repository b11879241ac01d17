// SPDX-License-Identifier: MIT
// Mouse, wheel and keys of the canvas.
#include <cmath>

#include <wx/cursor.h>

#include "desktop/canvas.h"
#include "framenote/annotation_tool.h"

namespace {

/// How far a line of the wheel scrolls, in device-independent pixels.
constexpr int kLine = 18;

}  // namespace

void Canvas::bindEvents() {
  Bind(wxEVT_PAINT, [this](wxPaintEvent &) { onPaint(); });
  Bind(wxEVT_SIZE, [this](wxSizeEvent &event) {
    changeView([this] { m_view.SetWindow(GetClientSize()); });
    event.Skip();
  });
  Bind(wxEVT_DPI_CHANGED, [this](wxDPIChangedEvent &event) {
    refreshPixelRatio();
    event.Skip();
  });
  Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent &event) {
    Refresh();
    event.Skip();
  });
  for (auto const &type :
       {wxEVT_LEFT_DOWN, wxEVT_LEFT_UP, wxEVT_LEFT_DCLICK, wxEVT_RIGHT_UP, wxEVT_MIDDLE_DOWN,
        wxEVT_MIDDLE_DCLICK, wxEVT_MIDDLE_UP, wxEVT_MOTION, wxEVT_LEAVE_WINDOW}) {
    Bind(type, &Canvas::onMouse, this);
  }
  Bind(wxEVT_MOUSEWHEEL, [this](wxMouseEvent &event) { onWheel(event); });
  Bind(wxEVT_MOUSE_CAPTURE_LOST, [this](wxMouseCaptureLostEvent &) { onCaptureLost(); });
  BindScrolling(*this, [this](wxScrollWinEvent const &event) { onScroll(event); });
  Bind(wxEVT_KEY_DOWN, [this](wxKeyEvent &event) { onKey(event, true); });
  Bind(wxEVT_KEY_UP, [this](wxKeyEvent &event) { onKey(event, false); });
  Bind(wxEVT_KILL_FOCUS, [this](wxFocusEvent &event) {
    ReleasePanKey();
    event.Skip();
  });
}

bool Canvas::isEditing() const {
  return m_tool && m_tool->GetState() == ToolState::Editing;
}

void Canvas::onMouse(wxMouseEvent &event) {
  if (event.Leaving()) {
    if (m_drag != Drag::None) return;
    m_pointer.reset();
    return notifyPointer();
  }
  m_pointer = event.GetPosition();
  if (event.ButtonDown() || event.ButtonDClick()) {
    press(event);
  } else if (event.LeftUp() || event.MiddleUp()) {
    release(event);
  } else if (m_drag == Drag::Pan) {
    wxPoint const way = event.GetPosition() - m_panPlace;
    m_panPlace = event.GetPosition();
    return changeView([&] { m_view.PanBy(way.x, way.y); });
  } else {
    sendToTool(event);
  }
  notifyPointer();
}

void Canvas::press(wxMouseEvent &event) {
  // A second button during a drag belongs to no gesture.
  if (m_drag != Drag::None) return;
  if (event.GetButton() == wxMOUSE_BTN_MIDDLE || m_isPanKeyHeld) return startPanning(event);
  if (!isEditing()) SetFocus();
  m_drag = Drag::Tool;
  if (!HasCapture()) CaptureMouse();
  sendToTool(event);
  // The second of two quick presses comes as a double click. It opens a text, or is a press.
  if (event.LeftDClick() && !isEditing()) {
    event.SetEventType(wxEVT_LEFT_DOWN);
    sendToTool(event);
  }
}

void Canvas::release(wxMouseEvent &event) {
  if (m_drag == Drag::Pan) {
    if (event.GetButton() == m_panButton) endPanning();
    return;
  }
  if (!event.LeftUp()) return;
  // A release without its press is of no gesture here, as after a press that closed a menu.
  if (m_drag != Drag::Tool) return;
  m_drag = Drag::None;
  if (HasCapture()) ReleaseMouse();
  sendToTool(event);
  if (!isEditing()) SetFocus();
}

void Canvas::sendToTool(wxMouseEvent &event) {
  if (!m_tool) return;
  // Positions of the tool are the corners between pixels: the nearest one is meant.
  wxPoint2DDouble const place = m_view.ToPicture(wxPoint2DDouble(event.GetPosition()));
  wxPoint const position(wxRound(place.m_x), wxRound(place.m_y));
  // A menu may run meanwhile, and its owner may then take the tool away.
  std::shared_ptr<AnnotationTool> const tool = m_tool;
  m_toolCursor = tool->ProcessMouseEvent(position, event, m_view.Scale(), m_view.Offset());
  showCursor(m_isPanKeyHeld ? wxCURSOR_HAND : m_toolCursor);
  Refresh();
}

void Canvas::startPanning(wxMouseEvent const &event) {
  m_drag = Drag::Pan;
  m_panButton = event.GetButton();
  m_panPlace = event.GetPosition();
  m_hasPanned = true;
  if (!HasCapture()) CaptureMouse();
  showCursor(wxCURSOR_HAND);
}

void Canvas::endPanning() {
  m_drag = Drag::None;
  if (HasCapture()) ReleaseMouse();
  showCursor(m_isPanKeyHeld ? wxCURSOR_HAND : m_toolCursor);
}

// What was dragged stays where it was last seen, as if the button had been let go there.
void Canvas::onCaptureLost() {
  Drag const drag = m_drag;
  m_drag = Drag::None;
  if (drag == Drag::Pan) return endPanning();
  if (drag != Drag::Tool || !m_pointer) return;
  wxMouseEvent released(wxEVT_LEFT_UP);
  released.SetEventObject(this);
  released.SetPosition(*m_pointer);
  sendToTool(released);
}

void Canvas::EndGesture() {
  if (HasCapture()) ReleaseMouse();
  onCaptureLost();
}

wxRect Canvas::SeenPart() const {
  wxPoint2DDouble const from = m_view.ToPicture({0.0, 0.0});
  wxPoint2DDouble const to = m_view.ToPicture(
      {static_cast<double>(m_view.Window().x), static_cast<double>(m_view.Window().y)});
  wxRect seen(wxPoint(wxRound(from.m_x), wxRound(from.m_y)),
              wxPoint(wxRound(to.m_x), wxRound(to.m_y)));
  return seen.Intersect(wxRect(m_view.Picture()));
}

void Canvas::showCursor(wxStockCursor cursor) {
  if (cursor == m_cursor) return;
  m_cursor = cursor;
  SetCursor(wxCursor(cursor));
}

void Canvas::onWheel(wxMouseEvent const &event) {
  int const delta = event.GetWheelDelta();
  if (delta <= 0) return;
  if (event.ControlDown()) {
    // Fine wheels send parts of a step; they are saved up.
    m_zoomRotation += event.GetWheelRotation();
    int const steps = m_zoomRotation / delta;
    m_zoomRotation -= steps * delta;
    wxPoint2DDouble const at(event.GetPosition());
    if (steps != 0) changeView([&] { m_view.ZoomBySteps(steps, at); });
    return;
  }
  double const way = static_cast<double>(event.GetWheelRotation()) / delta *
                     event.GetLinesPerAction() * FromDIP(kLine);
  bool const isSideways = event.GetWheelAxis() == wxMOUSE_WHEEL_HORIZONTAL;
  changeView([&] {
    // A wheel that turns sideways counts to the right.
    if (isSideways) return m_view.PanBy(-way, 0.0);
    event.ShiftDown() ? m_view.PanBy(way, 0.0) : m_view.PanBy(0.0, way);
  });
}

void Canvas::onScroll(wxScrollWinEvent const &event) {
  ScrollBar const across = m_view.HorizontalBar();
  ScrollBar const down = m_view.VerticalBar();
  changeView([&] {
    if (event.GetOrientation() == wxHORIZONTAL) {
      m_view.ScrollTo(WantedPosition(event, across, FromDIP(kLine)), down.position);
    } else {
      m_view.ScrollTo(across.position, WantedPosition(event, down, FromDIP(kLine)));
    }
  });
}

void Canvas::onKey(wxKeyEvent &event, bool isDown) {
  if (event.GetKeyCode() == WXK_SPACE && !event.HasAnyModifiers()) {
    if (isDown) {
      HoldPanKey();
    } else if (ReleasePanKey()) {
      return;
    }
  }
  event.Skip();
}

void Canvas::HoldPanKey() {
  if (m_isPanKeyHeld) return;  // the key repeats
  m_isPanKeyHeld = true;
  m_hasPanned = false;
  if (m_drag == Drag::None) showCursor(wxCURSOR_HAND);
}

bool Canvas::ReleasePanKey() {
  if (!m_isPanKeyHeld) return false;
  m_isPanKeyHeld = false;
  if (m_drag != Drag::Pan) showCursor(m_toolCursor);
  return m_hasPanned;
}
