// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

#include <wx/app.h>
#include <wx/dcclient.h>
#include <wx/frame.h>
#include <wx/uiaction.h>

#include <gtest/gtest.h>

#include "support/screen_capture.h"
#include "support/tool_driver.h"

namespace framenote::test {

/// A window that does what a host does: it forwards the mouse and paints. Positions are picture
/// pixels; at first the picture is shown at twice its size, moved by (5, 10) picture pixels. Mouse
/// and keys come from the X server.
class CanvasTest : public testing::Test {
protected:
  explicit CanvasTest(std::int64_t frameCount = 1, bool withDeviceContext = false)
      : m_driver(frameCount, false, withDeviceContext) {}

  void SetUp() override {
    m_frame = new wxFrame(nullptr, wxID_ANY, "", {40, 40}, {640, 480});  // destroyed in TearDown
    m_canvas = new wxWindow(m_frame, wxID_ANY);                          // owned by the frame
    m_canvas->SetBackgroundStyle(wxBG_STYLE_PAINT);
    m_canvas->Bind(wxEVT_PAINT, [this](wxPaintEvent &) {
      wxPaintDC dc(m_canvas);
      dc.SetBackground(*wxWHITE_BRUSH);
      dc.Clear();
      m_driver.Tool().Draw(dc, m_canvas, m_offset, m_scale);
      ++m_paints;
    });
    for (auto const &type : {wxEVT_LEFT_DOWN, wxEVT_LEFT_DCLICK, wxEVT_LEFT_UP, wxEVT_MOTION,
                             wxEVT_RIGHT_DOWN, wxEVT_RIGHT_DCLICK, wxEVT_RIGHT_UP}) {
      m_canvas->Bind(type, [this](wxMouseEvent &event) { Forward(event); });
    }
    m_frame->Show();
    m_mouse.MouseMove(1000, 900);
    Settle([this] { return m_paints > 0; });
    ASSERT_GT(m_paints, 0);
  }

  void TearDown() override {
    if (m_canvas->HasCapture()) m_canvas->ReleaseMouse();
    m_driver.Tool().Reset(false);
    m_frame->Destroy();
    wxYield();
  }

  void Forward(wxMouseEvent &event) {
    wxPoint const pixel(wxRound(event.GetX() / m_scale - m_offset.m_x),
                        wxRound(event.GetY() / m_scale - m_offset.m_y));
    if ((event.LeftDown() || event.LeftDClick()) && !m_canvas->HasCapture()) {
      m_canvas->CaptureMouse();
    }
    if (event.LeftUp() && m_canvas->HasCapture()) m_canvas->ReleaseMouse();
    m_driver.Tool().ProcessMouseEvent(pixel, event, m_scale, m_offset);
    m_canvas->Refresh();
    ++m_events;
    // Of two presses at one place the second one comes as a double click.
    if (!event.LeftDClick() || m_driver.State() == ToolState::Editing) return;
    event.SetEventType(wxEVT_LEFT_DOWN);
    Forward(event);
  }

  /// Lets events run until something is so.
  template <class Condition>
  static void Settle(Condition const &isReached) {
    for (int i = 0; i < 200 && !isReached(); ++i) {
      wxYield();
      wxTheApp->ProcessPendingEvents();
      if (!isReached()) wxMilliSleep(5);
    }
  }

  /// Does something with the mouse and waits for the event that follows.
  template <class Action>
  void Do(Action const &action) {
    int const before = m_events;
    action();
    Settle([this, before] { return m_events > before; });
    ASSERT_GT(m_events, before);
  }

  wxPoint OnScreen(int x, int y) const {
    return m_canvas->ClientToScreen(
        wxPoint(wxRound((x + m_offset.m_x) * m_scale), wxRound((y + m_offset.m_y) * m_scale)));
  }

  void MoveTo(int x, int y) {
    Do([&] { m_mouse.MouseMove(OnScreen(x, y)); });
  }

  void Click(int x, int y, int button = wxMOUSE_BTN_LEFT) {
    MoveTo(x, y);
    Do([&] { m_mouse.MouseDown(button); });
    Do([&] { m_mouse.MouseUp(button); });
  }

  void Drag(std::vector<wxPoint> const &points) {
    MoveTo(points.front().x, points.front().y);
    Do([this] { m_mouse.MouseDown(); });
    for (std::size_t i = 1; i < points.size(); ++i) MoveTo(points[i].x, points[i].y);
    Do([this] { m_mouse.MouseUp(); });
  }

  /// Paints anew and waits for it.
  void Repaint() {
    int const before = m_paints;
    m_canvas->Refresh();
    Settle([this, before] { return m_paints > before; });
    ASSERT_GT(m_paints, before);
  }

  /// What the screen shows of the canvas.
  wxImage Screenshot() {
    // Twice, as what lies over the canvas is painted after it.
    Repaint();
    Repaint();
    wxYield();
    return CaptureScreen(
        wxRect(m_canvas->ClientToScreen(wxPoint(0, 0)), m_canvas->GetClientSize()));
  }

  ToolDriver m_driver;
  wxUIActionSimulator m_mouse;
  wxFrame *m_frame = nullptr;
  wxWindow *m_canvas = nullptr;
  double m_scale = 2.0;
  wxPoint2DDouble m_offset = {5.0, 10.0};
  int m_paints = 0;
  int m_events = 0;
};

}  // namespace framenote::test
