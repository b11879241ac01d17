// SPDX-License-Identifier: MIT
#pragma once

#include <random>
#include <string>
#include <vector>

#include <wx/eventfilter.h>
#include <wx/modalhook.h>
#include <wx/timer.h>
#include <wx/weakref.h>

#include "monkey/server_input.h"

class wxDialog;
class wxFileDialog;
class wxMessageDialog;

namespace framenote::test {

/// Answers dialogs and menus while they run a loop of their own. Questions and files are answered
/// without being shown, from the monkey's own folder; half of the other dialogs are shown and
/// answered with keys, and so are menus. What would leave the program is cancelled.
class MonkeyDialogs : public wxModalDialogHook, public wxEventFilter, private wxTimer {
public:
  MonkeyDialogs(ServerInput &input, unsigned seed);
  MonkeyDialogs(MonkeyDialogs const &) = delete;
  MonkeyDialogs &operator=(MonkeyDialogs const &) = delete;
  ~MonkeyDialogs() override;

  /// The choices of the next step depend on nothing that came before.
  void Seed(std::seed_seq &seed) { m_random.seed(seed); }
  /// What the next question is answered with; wxID_NONE leaves it to chance.
  void AnswerNext(int button) { m_nextAnswer = button; }
  /// Lets the window close when it is asked to.
  void AllowQuitting(bool isAllowed) { m_isQuittingAllowed = isAllowed; }
  /// What the program told of errors since the last call.
  std::vector<std::string> TakeErrors() { return std::exchange(m_errors, {}); }
  /// What was answered since the last call, for the list of steps.
  std::string TakeAnswers() { return std::exchange(m_answers, {}); }

private:
  int Enter(wxDialog *dialog) override;
  void Exit(wxDialog *dialog) override;
  int FilterEvent(wxEvent &event) override;
  void Notify() override;

  int answer(wxMessageDialog const &question);
  int choose(wxFileDialog &files);
  void startTyping(int keys, bool mayConfirm);
  void typeIntoMenu();
  void clickOutside();
  void typeIntoDialog();
  int below(int n) { return std::uniform_int_distribution<int>(0, n - 1)(m_random); }

  ServerInput &m_input;
  std::mt19937 m_random;
  int m_nextAnswer = wxID_NONE;
  bool m_isQuittingAllowed = false;
  std::vector<std::string> m_errors;
  std::string m_answers;

  wxWeakRef<wxDialog> m_dialog;  ///< that is shown
  bool m_isMenuOpen = false;
  int m_keys = 0;            ///< still to be typed
  int m_ticks = 0;           ///< since it is there
  bool m_mayConfirm = true;  ///< with the last key; otherwise it is given up
};

}  // namespace framenote::test
