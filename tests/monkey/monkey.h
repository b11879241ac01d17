// SPDX-License-Identifier: MIT
#pragma once

#include <cstdio>
#include <deque>
#include <random>
#include <set>
#include <string>

#include <wx/gdicmn.h>

#include "monkey/key_arrival.h"
#include "monkey/monkey_dialogs.h"
#include "monkey/server_input.h"
#include "monkey/watchdog.h"

class AnnotationTool;
class Canvas;
class IAnnotationObject;
class MainFrame;
class ObjectList;
class Session;
class Timeline;
class TransportBar;
class wxWindow;

namespace framenote::test {

/// The window of the desktop host with something open, and someone at its mouse and keyboard who
/// knows nothing of it. Steps are random; a seed gives the same steps again, as far as the times at
/// which the toolkit tells of events allow.
class Monkey {
public:
  explicit Monkey(unsigned seed);
  Monkey(Monkey const &) = delete;
  Monkey &operator=(Monkey const &) = delete;
  ~Monkey();

  // --- What there is ---

  MainFrame &Frame() const { return *m_frame; }
  Canvas &Picture() const { return *m_canvas; }
  Timeline &Time() const { return *m_timeline; }
  ObjectList &Objects() const { return *m_list; }
  wxWindow &Palette() const { return *m_palette; }
  wxWindow &Transport() const { return *m_transport; }
  AnnotationTool const &Tool() const;
  Session const &Open() const;
  ServerInput &Input() { return m_input; }
  MonkeyDialogs &Dialogs() { return m_dialogs; }

  // --- Chance ---

  /// Starts a step: its choices depend on the seed and its number alone.
  void BeginStep(int number, char const *name);
  int Below(int n) { return std::uniform_int_distribution<int>(0, n - 1)(m_random); }
  bool Chance(int percent) { return Below(100) < percent; }
  template <class Array>
  auto OneOf(Array const &array) {
    return array[static_cast<std::size_t>(Below(static_cast<int>(std::size(array))))];
  }

  // --- Hands: each takes what follows from it into account ---

  void MoveTo(wxPoint const &screen);
  void Click(wxPoint const &screen, int button = 1);
  /// Over a few places in between; `modifiers` are held meanwhile.
  void Drag(wxPoint const &from, wxPoint const &to, int button = 1, int modifiers = 0);
  void Key(int key, int modifiers = 0);
  /// Runs what the toolkit has until it has no more.
  void Pump();
  /// Runs until what was typed and clicked so far has reached the window: the toolkit holds some of
  /// it back until it has painted. Not for ever: nothing may have the keyboard.
  void WaitForInput();
  /// A place of a window on the screen; of the canvas if that window is not seen.
  wxPoint PlaceOn(wxWindow const &window);
  /// The place of a point of the picture.
  wxPoint PlaceOf(double x, double y) const;
  /// An object of the document by chance, or null.
  IAnnotationObject *AnyObject();

  // --- Files ---

  /// Opens a file of the monkey's own folder; what is open is given up.
  void OpenFile(std::string const &name);
  /// Ends the window as a crash does, and starts anew.
  void Restart();
  /// Closes what covers the window and is none of ours, as dialogs that the toolkit makes itself.
  void CloseStrangers();

  // --- For the report ---

  void Say(std::string const &words);
  /// The last steps, one in a line.
  std::string LastSteps() const;

private:
  void start();
  void trace(std::string const &words);

  unsigned m_seed;
  std::mt19937 m_random;
  Watchdog m_watchdog;
  ServerInput m_input;
  MonkeyDialogs m_dialogs;
  KeyArrival m_arrival;
  MainFrame *m_frame = nullptr;  // owned by itself, like its children
  Canvas *m_canvas = nullptr;
  Timeline *m_timeline = nullptr;
  ObjectList *m_list = nullptr;
  wxWindow *m_palette = nullptr;
  wxWindow *m_transport = nullptr;
  std::set<unsigned long> m_known;  ///< windows of the screen that are always there
  std::deque<std::string> m_steps;
  std::FILE *m_trace = nullptr;
  int m_strangeSteps = 0;
};

}  // namespace framenote::test
