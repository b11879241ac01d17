// SPDX-License-Identifier: MIT
#include "monkey/monkey_dialogs.h"

#include <array>
#include <utility>

#include <wx/app.h>
#include <wx/display.h>
#include <wx/filedlg.h>
#include <wx/menu.h>
#include <wx/msgdlg.h>
#include <wx/utils.h>

#include "desktop/export_dialog.h"
#include "desktop/main_frame.h"
#include "monkey/monkey_home.h"
#include "monkey/monkey_invariants.h"

namespace framenote::test {

namespace {

/// Milliseconds between two keys.
constexpr int kPause = 15;
/// After so many keys something is closed without a key, which is an error if it is a menu.
constexpr int kPatience = 150;

constexpr std::array<int, 5> kMenuKeys = {WXK_DOWN, WXK_DOWN, WXK_DOWN, WXK_UP, WXK_DOWN};
// No space bar: it presses the button that has the focus, and with that exports.
constexpr std::array<int, 12> kDialogKeys = {
    '1', '7', '9', '.', ':', 'x', WXK_TAB, WXK_TAB, WXK_BACK, WXK_UP, WXK_DOWN, WXK_LEFT};

constexpr std::array<char const *, 3> kProjects = {"one.framenote", "two.framenote",
                                                   "three.framenote"};
constexpr std::array<char const *, 5> kOpened = {"clip.mkv", "picture.png", "one.framenote",
                                                 "two.framenote", "three.framenote"};
constexpr char const *kOverlay = "overlay.png";

bool IsPopup(wxEvent const &event) {
  return static_cast<wxMenuEvent const &>(event).IsPopup();
}

}  // namespace

MonkeyDialogs::MonkeyDialogs(ServerInput &input, unsigned seed) : m_input(input), m_random(seed) {
  Register();
  wxEvtHandler::AddFilter(this);
}

MonkeyDialogs::~MonkeyDialogs() {
  Stop();
  wxEvtHandler::RemoveFilter(this);
  Unregister();
}

int MonkeyDialogs::FilterEvent(wxEvent &event) {
  wxEventType const type = event.GetEventType();
  if (type == wxEVT_MENU_OPEN && IsPopup(event)) {
    if (!m_isMenuOpen) {
      m_answers += " [menu]";
      startTyping(below(16), below(4) != 0);
    }
    m_isMenuOpen = true;
  }
  if (type == wxEVT_MENU_CLOSE && IsPopup(event)) m_isMenuOpen = false;
  bool const isQuitting = type == wxEVT_CLOSE_WINDOW && !m_isQuittingAllowed &&
                          dynamic_cast<MainFrame *>(event.GetEventObject()) != nullptr;
  if (!isQuitting) return Event_Skip;
  static_cast<wxCloseEvent &>(event).Veto();
  return Event_Processed;
}

int MonkeyDialogs::Enter(wxDialog *dialog) {
  if (auto *const files = dynamic_cast<wxFileDialog *>(dialog)) return choose(*files);
  if (auto const *const question = dynamic_cast<wxMessageDialog *>(dialog)) {
    return answer(*question);
  }
  bool const mayConfirm = dynamic_cast<ExportDialog *>(dialog) == nullptr;
  if (below(2) == 0) {
    m_answers += " [dialog]";
    return mayConfirm && below(2) == 0 ? wxID_OK : wxID_CANCEL;
  }
  m_answers += " [dialog with keys]";
  m_dialog = dialog;
  startTyping(below(12), mayConfirm && below(2) == 0);
  return wxID_NONE;
}

void MonkeyDialogs::Exit(wxDialog *dialog) {
  if (m_dialog == dialog) m_dialog = nullptr;
}

int MonkeyDialogs::answer(wxMessageDialog const &question) {
  long const style = question.GetMessageDialogStyle();
  wxString const text = question.GetMessage() + " " + question.GetExtendedMessage();
  m_answers += " [" + text.BeforeFirst('\n').utf8_string() + "]";
  if ((style & wxYES_NO) == 0) {
    if (style & wxICON_ERROR) m_errors.push_back(text.utf8_string());
    return wxID_OK;
  }
  int const wanted = std::exchange(m_nextAnswer, wxID_NONE);
  if (wanted != wxID_NONE) return wanted;
  constexpr std::array<int, 3> kAnswers = {wxID_YES, wxID_NO, wxID_CANCEL};
  return kAnswers[static_cast<std::size_t>(below((style & wxCANCEL) != 0 ? 3 : 2))];
}

int MonkeyDialogs::choose(wxFileDialog &files) {
  bool const isSaving = (files.GetWindowStyle() & wxFD_SAVE) != 0;
  auto const index = static_cast<std::size_t>(below(isSaving ? 3 : 5));
  // The palette asks for a picture alone.
  bool const isAnything = files.GetWildcard().Contains("*.mkv");
  std::string const name = isSaving ? kProjects[index] : isAnything ? kOpened[index] : kOverlay;
  std::string const path = InMonkeyHome(name);
  bool const isThere = isSaving || wxFileExists(path);
  m_answers += " [file]";
  if (!isThere || below(3) == 0) return wxID_CANCEL;
  NoComplaints const quiet;
  files.SetPath(path);
  files.Show();
  // The toolkit reads the folder in the background.
  for (int i = 0; i < 400 && files.GetPath() != path; ++i) {
    wxYield();
    wxMilliSleep(5);
  }
  files.Hide();
  return files.GetPath() == path ? wxID_OK : wxID_CANCEL;
}

void MonkeyDialogs::startTyping(int keys, bool mayConfirm) {
  m_keys = keys;
  m_ticks = 0;
  m_mayConfirm = mayConfirm;
  Start(kPause);
}

void MonkeyDialogs::Notify() {
  // The toolkit holds events back until it has painted, so that a menu may open when the next step
  // already holds Shift or Control. Escape together with them closes no menu.
  m_input.LetGoOfKeys();
  if (m_dialog != nullptr) {
    typeIntoDialog();
  } else if (m_isMenuOpen) {
    typeIntoMenu();
  } else {
    Stop();
  }
}

void MonkeyDialogs::typeIntoMenu() {
  if (m_keys > 0) {
    // All at once: a menu takes keys as fast as they come.
    for (; m_keys > 0; --m_keys) m_input.Tap(kMenuKeys[static_cast<std::size_t>(below(5))]);
    if (m_mayConfirm) return m_input.Tap(WXK_RETURN);
  }
  m_input.Tap(WXK_ESCAPE);
  if (++m_ticks < kPatience) return;
  if (m_ticks == kPatience) m_errors.emplace_back("Escape closes no menu");
  clickOutside();
}

void MonkeyDialogs::clickOutside() {
  m_input.ReleaseAll();
  m_input.MoveTo(wxDisplay().GetGeometry().GetBottomRight());
  m_input.Press();
  m_input.Release();
}

void MonkeyDialogs::typeIntoDialog() {
  if (++m_ticks > kPatience) return m_dialog->EndModal(wxID_CANCEL);
  if (m_keys-- > 0) {
    m_input.Tap(kDialogKeys[static_cast<std::size_t>(below(kDialogKeys.size()))]);
  } else {
    m_input.Tap(std::exchange(m_mayConfirm, false) ? WXK_RETURN : WXK_ESCAPE);
  }
}

}  // namespace framenote::test
