// SPDX-License-Identifier: MIT
#include "support/screen_windows.h"

#include <functional>
#include <memory>

#include <X11/Xlib.h>

namespace framenote::test {

namespace {

struct CloseDisplay {
  void operator()(Display *display) const { XCloseDisplay(display); }
};

/// Calls `found` with each window that is seen. Helper windows of one pixel do not count.
void ForEachShown(std::function<void(Window, wxRect const &)> const &found) {
  constexpr int kLeastSize = 20;
  std::unique_ptr<Display, CloseDisplay> const display(XOpenDisplay(nullptr));
  if (!display) return;
  Window root = 0;
  Window parent = 0;
  Window *windows = nullptr;
  unsigned count = 0;
  // Windows may go while they are asked for.
  XSetErrorHandler([](Display *, XErrorEvent *) { return 0; });
  XQueryTree(display.get(), DefaultRootWindow(display.get()), &root, &parent, &windows, &count);
  for (unsigned i = 0; i < count; ++i) {
    XWindowAttributes of{};
    if (XGetWindowAttributes(display.get(), windows[i], &of) == 0) continue;
    bool const isLarge = of.width >= kLeastSize && of.height >= kLeastSize;
    if (of.map_state == IsViewable && isLarge) found(windows[i], {of.x, of.y, of.width, of.height});
  }
  if (windows != nullptr) XFree(windows);
}

}  // namespace

ScreenWindows::ScreenWindows() {
  ForEachShown([this](Window window, wxRect const &) { m_shown.insert(window); });
}

wxRect ScreenWindows::NewOne() const {
  wxRect result;
  ForEachShown([&](Window window, wxRect const &rect) {
    if (m_shown.count(window) == 0) result = rect;
  });
  return result;
}

unsigned long ScreenWindows::NewId() const {
  unsigned long result = 0;
  ForEachShown([&](Window window, wxRect const &) {
    if (m_shown.count(window) == 0) result = window;
  });
  return result;
}

}  // namespace framenote::test
