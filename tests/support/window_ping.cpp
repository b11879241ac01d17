// SPDX-License-Identifier: MIT
#include "support/window_ping.h"

#include <thread>

#include <X11/Xlib.h>

namespace framenote::test {

struct WindowPing::Server {
  Server() : display(XOpenDisplay(nullptr)) {
    if (display == nullptr) return;
    protocols = XInternAtom(display, "WM_PROTOCOLS", False);
    ping = XInternAtom(display, "_NET_WM_PING", False);
    // A window answers to the root window.
    XSelectInput(display, DefaultRootWindow(display), SubstructureNotifyMask);
  }
  ~Server() {
    if (display != nullptr) XCloseDisplay(display);
  }

  Display *display;
  Atom protocols = None;
  Atom ping = None;
};

WindowPing::WindowPing(unsigned long window)
    : m_server(std::make_unique<Server>()), m_window(window) {}

WindowPing::~WindowPing() = default;

bool WindowPing::IsAnswered(std::chrono::milliseconds patience) {
  if (m_server->display == nullptr) return false;
  ++m_number;
  XEvent event{};
  event.xclient.type = ClientMessage;
  event.xclient.window = m_window;
  event.xclient.message_type = m_server->protocols;
  event.xclient.format = 32;
  event.xclient.data.l[0] = static_cast<long>(m_server->ping);
  event.xclient.data.l[1] = m_number;
  event.xclient.data.l[2] = static_cast<long>(m_window);
  XSendEvent(m_server->display, m_window, False, NoEventMask, &event);
  XFlush(m_server->display);
  auto const deadline = std::chrono::steady_clock::now() + patience;
  while (!isAnswerThere()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  return true;
}

bool WindowPing::isAnswerThere() const {
  while (XPending(m_server->display) > 0) {
    XEvent event;
    XNextEvent(m_server->display, &event);
    if (event.type == ClientMessage && event.xclient.message_type == m_server->protocols &&
        event.xclient.data.l[0] == static_cast<long>(m_server->ping) &&
        event.xclient.data.l[1] == m_number) {
      return true;
    }
  }
  return false;
}

}  // namespace framenote::test
