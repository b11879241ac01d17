// SPDX-License-Identifier: MIT
#include "monkey/server_input.h"

#include <array>
#include <cstdlib>
#include <stdexcept>

#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

namespace framenote::test {

namespace {

constexpr int kWheelUp = 4;
constexpr int kWheelDown = 5;

struct SymbolOfKey {
  int key;
  KeySym symbol;
};

constexpr std::array<SymbolOfKey, 23> kSymbols = {{{WXK_RETURN, XK_Return},
                                                   {WXK_ESCAPE, XK_Escape},
                                                   {WXK_TAB, XK_Tab},
                                                   {WXK_BACK, XK_BackSpace},
                                                   {WXK_DELETE, XK_Delete},
                                                   {WXK_LEFT, XK_Left},
                                                   {WXK_RIGHT, XK_Right},
                                                   {WXK_UP, XK_Up},
                                                   {WXK_DOWN, XK_Down},
                                                   {WXK_HOME, XK_Home},
                                                   {WXK_END, XK_End},
                                                   {WXK_PAGEUP, XK_Page_Up},
                                                   {WXK_PAGEDOWN, XK_Page_Down},
                                                   {WXK_MENU, XK_Menu},
                                                   {WXK_F1, XK_F1},
                                                   {WXK_F4, XK_F4},
                                                   {WXK_F7, XK_F7},
                                                   {WXK_F8, XK_F8},
                                                   {WXK_F9, XK_F9},
                                                   {WXK_F10, XK_F10},
                                                   {WXK_F11, XK_F11},
                                                   {WXK_F12, XK_F12},
                                                   {WXK_INSERT, XK_Insert}}};

/// Characters are their own symbols.
KeySym SymbolOf(int key) {
  for (SymbolOfKey const &row : kSymbols) {
    if (row.key == key) return row.symbol;
  }
  return static_cast<KeySym>(key);
}

}  // namespace

void ServerInput::CloseDisplay::operator()(_XDisplay *display) const {
  XCloseDisplay(display);
}

ServerInput::ServerInput() : m_display(XOpenDisplay(nullptr)) {
  if (!m_display) throw std::runtime_error("no display");
}

// What is still down would stay so for the next client of the server.
ServerInput::~ServerInput() {
  ReleaseAll();
  LetGoOfKeys();
}

void ServerInput::sync() {
  XSync(m_display.get(), False);
}

void ServerInput::MoveTo(wxPoint const &screen) {
  XTestFakeMotionEvent(m_display.get(), -1, screen.x, screen.y, CurrentTime);
  sync();
}

void ServerInput::Press(int button) {
  if (!m_pressed.insert(button).second) return;
  XTestFakeButtonEvent(m_display.get(), static_cast<unsigned>(button), True, CurrentTime);
  sync();
}

void ServerInput::Release(int button) {
  if (m_pressed.erase(button) == 0) return;
  XTestFakeButtonEvent(m_display.get(), static_cast<unsigned>(button), False, CurrentTime);
  sync();
}

void ServerInput::ReleaseAll() {
  while (!m_pressed.empty()) Release(*m_pressed.begin());
}

void ServerInput::Turn(int steps) {
  int const button = steps > 0 ? kWheelUp : kWheelDown;
  for (int i = 0; i < std::abs(steps); ++i) {
    Press(button);
    Release(button);
  }
}

void ServerInput::sendKey(unsigned long symbol, bool isDown) {
  int const code = XKeysymToKeycode(m_display.get(), symbol);
  if (code != 0) sendCode(code, isDown);
}

void ServerInput::sendCode(int code, bool isDown) {
  if (isDown) m_held.insert(code);
  if (!isDown && m_held.erase(code) == 0) return;
  XTestFakeKeyEvent(m_display.get(), static_cast<unsigned>(code), isDown ? True : False,
                    CurrentTime);
}

void ServerInput::LetGoOfKeys() {
  while (!m_held.empty()) sendCode(*m_held.begin(), false);
  sync();
}

void ServerInput::SetModifiers(int modifiers, bool isDown) {
  if (modifiers & wxMOD_CONTROL) sendKey(XK_Control_L, isDown);
  if (modifiers & wxMOD_SHIFT) sendKey(XK_Shift_L, isDown);
  if (modifiers & wxMOD_ALT) sendKey(XK_Alt_L, isDown);
  sync();
}

void ServerInput::Hold(int key) {
  sendKey(SymbolOf(key), true);
  sync();
}

void ServerInput::LetGo(int key) {
  sendKey(SymbolOf(key), false);
  sync();
}

void ServerInput::Tap(int key, int modifiers) {
  KeySym const symbol = SymbolOf(key);
  KeyCode const code = XKeysymToKeycode(m_display.get(), symbol);
  bool const isShifted = XkbKeycodeToKeysym(m_display.get(), code, 0, 0) != symbol;
  int const held = isShifted ? modifiers | wxMOD_SHIFT : modifiers;
  SetModifiers(held, true);
  Hold(key);
  LetGo(key);
  SetModifiers(held, false);
}

std::vector<ServerInput::Top> ServerInput::ShownTops() const {
  constexpr int kLeastSize = 20;
  Display *const display = m_display.get();
  Window root = 0;
  Window parent = 0;
  Window *windows = nullptr;
  unsigned count = 0;
  // Windows may go while they are asked for.
  auto *const before = XSetErrorHandler([](Display *, XErrorEvent *) { return 0; });
  XQueryTree(display, DefaultRootWindow(display), &root, &parent, &windows, &count);
  std::vector<Top> tops;
  for (unsigned i = 0; i < count; ++i) {
    XWindowAttributes of{};
    if (XGetWindowAttributes(display, windows[i], &of) == 0) continue;
    bool const isLarge = of.width >= kLeastSize && of.height >= kLeastSize;
    if (of.map_state != IsViewable || !isLarge) continue;
    tops.push_back({windows[i], {of.x, of.y, of.width, of.height}, of.override_redirect != 0});
  }
  if (windows != nullptr) XFree(windows);
  XSetErrorHandler(before);
  return tops;
}

void ServerInput::AskToClose(unsigned long id) {
  Display *const display = m_display.get();
  XEvent event{};
  event.xclient.type = ClientMessage;
  event.xclient.window = id;
  event.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
  event.xclient.format = 32;
  event.xclient.data.l[0] = static_cast<long>(XInternAtom(display, "WM_DELETE_WINDOW", False));
  auto *const before = XSetErrorHandler([](Display *, XErrorEvent *) { return 0; });
  XSendEvent(display, id, False, NoEventMask, &event);
  sync();
  XSetErrorHandler(before);
}

}  // namespace framenote::test
