// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <set>
#include <string>
#include <vector>

#include <wx/defs.h>
#include <wx/gdicmn.h>

struct _XDisplay;

namespace framenote::test {

/// The X server's pointer and keyboard, over a connection of its own. When a call returns, the
/// server has handed the events out: whoever then empties the toolkit's queue has them all.
class ServerInput {
public:
  /// A window that lies on the root of the screen.
  struct Top {
    unsigned long id = 0;
    wxRect rect;
    bool isPopup = false;  ///< of a kind that no window manager sees: menus, lists, tips
  };

  ServerInput();
  ServerInput(ServerInput const &) = delete;
  ServerInput &operator=(ServerInput const &) = delete;
  ~ServerInput();

  void MoveTo(wxPoint const &screen);
  void Press(int button = 1);
  void Release(int button = 1);
  /// Whether a button is down.
  bool IsPressed() const { return !m_pressed.empty(); }
  /// Lets go of every button that is down.
  void ReleaseAll();
  /// Turns the wheel by steps, away from the user for positive ones.
  void Turn(int steps);
  /// Presses keys and lets them go: a character, or one of wxKeyCode; `modifiers` of wxMOD_*.
  void Tap(int key, int modifiers = wxMOD_NONE);
  void Hold(int key);
  void LetGo(int key);
  void SetModifiers(int modifiers, bool isDown);
  /// Lets go of every key that is held.
  void LetGoOfKeys();

  /// What is seen now; helper windows of a few pixels do not count.
  std::vector<Top> ShownTops() const;
  /// Asks a window to close, as the button of its title bar does.
  void AskToClose(unsigned long id);

private:
  struct CloseDisplay {
    void operator()(_XDisplay *display) const;
  };

  void sendKey(unsigned long symbol, bool isDown);
  void sendCode(int code, bool isDown);
  void sync();

  std::unique_ptr<_XDisplay, CloseDisplay> m_display;
  std::set<int> m_pressed;  ///< buttons
  std::set<int> m_held;     ///< codes of keys
};

}  // namespace framenote::test
