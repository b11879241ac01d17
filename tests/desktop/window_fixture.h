// SPDX-License-Identifier: MIT
#pragma once

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/uiaction.h>
#include <wx/utils.h>

#include <gtest/gtest.h>

#include "desktop/toolkit_settings.h"
#include "support/screen_capture.h"

namespace framenote::test {

/// One window in a frame, with a mouse and keys that come from the X server.
class WindowTest : public testing::Test {
protected:
  static constexpr int kClientWidth = 600;
  static constexpr int kClientHeight = 400;

  void SetUp() override {
    KeepScrollBarsBeside();
    m_frame = new wxFrame(nullptr, wxID_ANY, "", {40, 40});  // destroyed in TearDown
    m_frame->SetClientSize(kClientWidth, kClientHeight);
  }

  void TearDown() override {
    m_frame->Destroy();
    wxYield();
  }

  /// Shows the frame, whose only child fills it, and waits for it to be painted.
  void ShowFrame(wxWindow &window) {
    m_window = &window;
    window.Bind(wxEVT_PAINT, [this](wxPaintEvent &event) {
      ++m_paints;
      event.Skip();
    });
    m_frame->Show();
    Settle([this] { return m_paints > 0; });
    ASSERT_GT(m_paints, 0);
    m_mouse.MouseMove(1200, 1000);
    Idle();
  }

  /// Lets events run until something is so.
  template <class Condition>
  static bool Settle(Condition const &isReached) {
    for (int i = 0; i < 200 && !isReached(); ++i) {
      wxYield();
      wxTheApp->ProcessPendingEvents();
      if (!isReached()) wxMilliSleep(5);
    }
    return isReached();
  }

  /// Lets the events run that the server still has.
  static void Idle() {
    for (int i = 0; i < 8; ++i) {
      wxYield();
      wxTheApp->ProcessPendingEvents();
      wxMilliSleep(5);
    }
  }

  void MoveTo(wxPoint const &onWindow) {
    m_mouse.MouseMove(m_window->ClientToScreen(onWindow));
    Idle();
  }

  void Press(int button = wxMOUSE_BTN_LEFT) {
    m_mouse.MouseDown(button);
    Idle();
  }

  void Release(int button = wxMOUSE_BTN_LEFT) {
    m_mouse.MouseUp(button);
    Idle();
  }

  void Click(wxPoint const &onWindow) {
    MoveTo(onWindow);
    Press();
    Release();
  }

  void Drag(wxPoint const &from, wxPoint const &to, int button = wxMOUSE_BTN_LEFT) {
    MoveTo(from);
    Press(button);
    MoveTo((from + to) / 2);
    MoveTo(to);
    Release(button);
  }

  void Key(int key) {
    m_mouse.Char(key);
    Idle();
  }

  /// A turn of the wheel: the server's pointer cannot turn one.
  void Wheel(wxPoint const &at, int rotation, int modifiers = wxMOD_NONE) {
    wxMouseEvent event(wxEVT_MOUSEWHEEL);
    event.SetEventObject(m_window);
    event.SetPosition(at);
    event.m_wheelRotation = rotation;
    event.m_wheelDelta = 120;
    event.m_linesPerAction = 3;
    event.SetControlDown((modifiers & wxMOD_CONTROL) != 0);
    event.SetShiftDown((modifiers & wxMOD_SHIFT) != 0);
    m_window->ProcessWindowEvent(event);
    Idle();
  }

  /// What the screen shows of the window.
  wxImage Screenshot() {
    int const before = m_paints;
    m_window->Refresh();
    Settle([this, before] { return m_paints > before; });
    Idle();
    return CaptureScreen(
        wxRect(m_window->ClientToScreen(wxPoint(0, 0)), m_window->GetClientSize()));
  }

  wxFrame *m_frame = nullptr;
  wxWindow *m_window = nullptr;
  wxUIActionSimulator m_mouse;
  int m_paints = 0;
};

}  // namespace framenote::test
