// SPDX-License-Identifier: MIT
// What the window does, in one table by menu, and the menus and keys that are made from it.
#include <wx/aboutdlg.h>
#include <wx/combobox.h>
#include <wx/menu.h>
#include <wx/textentry.h>
#include <wx/translation.h>
#include <wx/window.h>

#include "desktop/main_frame.h"
#include "desktop/object_list.h"
#include "framenote/annotation_panel.h"
#include "framenote/annotation_tool.h"

namespace {

constexpr char const *kFile = wxTRANSLATE("&File");
constexpr char const *kEdit = wxTRANSLATE("&Edit");
// TRANSLATORS: the menu of tools.
constexpr char const *kTool = wxTRANSLATE("&Tool");
constexpr char const *kTime = wxTRANSLATE("T&ime");
constexpr char const *kView = wxTRANSLATE("&View");
constexpr char const *kHelp = wxTRANSLATE("&Help");
constexpr char const *kMenus[] = {kFile, kEdit, kTool, kTime, kView, kHelp};

constexpr int kNone = wxMOD_NONE;
constexpr int kShift = wxMOD_SHIFT;

}  // namespace

// Keys without a modifier are no accelerators of the menu: these would take them from a text that
// is being typed.
std::vector<MainFrame::Command> const &MainFrame::Commands() {
  static std::vector<Command> const commands = [] {
    std::vector<Command> all;
    for (auto const commandsOfMenu :
         {&MainFrame::fileCommands, &MainFrame::editCommands, &MainFrame::toolCommands,
          &MainFrame::timeCommands, &MainFrame::viewCommands, &MainFrame::helpCommands}) {
      std::vector<Command> const own = commandsOfMenu();
      all.insert(all.end(), own.begin(), own.end());
    }
    return all;
  }();
  return commands;
}

std::vector<MainFrame::Command> MainFrame::fileCommands() {
  using F = MainFrame;
  return {
      {kFile, wxTRANSLATE("&New"), "Ctrl+N", 0, 0, &F::closeMedia, &F::hasMedia, nullptr},
      {kFile, wxTRANSLATE("&Open..."), "Ctrl+O", 0, 0, &F::openFile, &F::always, nullptr},
      {kFile, wxTRANSLATE("&Save"), "Ctrl+S", 0, 0, &F::saveCommand, &F::hasMedia, nullptr},
      {kFile, wxTRANSLATE("Save &As..."), "Ctrl+Shift+S", 0, 0, &F::saveAsCommand, &F::hasMedia,
       nullptr},
      {kFile, wxTRANSLATE("&Export..."), "Ctrl+E", 0, 0, &F::exportMedia, &F::hasMedia, nullptr},
      {kFile, wxTRANSLATE("&Close"), "Ctrl+W", 0, 0, &F::closeMedia, &F::hasMedia, nullptr},
      {kFile, wxTRANSLATE("&Quit"), "Ctrl+Q", 0, 0, &F::quit, &F::always, nullptr},
  };
}

std::vector<MainFrame::Command> MainFrame::editCommands() {
  using F = MainFrame;
  return {
      {kEdit, wxTRANSLATE("&Undo"), "Ctrl+Z", 0, 0, &F::undo, &F::canUndo, nullptr},
      {kEdit, wxTRANSLATE("&Redo"), "Ctrl+Y", 0, 0, &F::redo, &F::canRedo, nullptr},
      {nullptr, wxTRANSLATE("Redo"), "", 'Z', wxMOD_CONTROL | kShift, &F::redo, &F::canRedo,
       nullptr},
      {kEdit, wxTRANSLATE("&Copy"), "", 'C', wxMOD_CONTROL, &F::copy, &F::hasSelection, nullptr},
      {kEdit, wxTRANSLATE("&Paste"), "", 'V', wxMOD_CONTROL, &F::paste, &F::hasMedia, nullptr},
      {kEdit, wxTRANSLATE("&Delete"), "", WXK_DELETE, kNone, &F::deleteSelected, &F::hasSelection,
       nullptr},
      {nullptr, wxTRANSLATE("End the gesture, the tool, the selection"), "", WXK_ESCAPE, kNone,
       &F::escape, &F::hasMedia, nullptr},
      {nullptr, wxTRANSLATE("Move left by a pixel"), "", WXK_LEFT, kNone, &F::moveCommand<-1, 0>,
       &F::hasSelection, nullptr},
      {nullptr, wxTRANSLATE("Move right by a pixel"), "", WXK_RIGHT, kNone, &F::moveCommand<1, 0>,
       &F::hasSelection, nullptr},
      {nullptr, wxTRANSLATE("Move up by a pixel"), "", WXK_UP, kNone, &F::moveCommand<0, -1>,
       &F::hasSelection, nullptr},
      {nullptr, wxTRANSLATE("Move down by a pixel"), "", WXK_DOWN, kNone, &F::moveCommand<0, 1>,
       &F::hasSelection, nullptr},
      {nullptr, wxTRANSLATE("Move left by ten pixels"), "", WXK_LEFT, kShift,
       &F::moveCommand<-10, 0>, &F::hasSelection, nullptr},
      {nullptr, wxTRANSLATE("Move right by ten pixels"), "", WXK_RIGHT, kShift,
       &F::moveCommand<10, 0>, &F::hasSelection, nullptr},
      {nullptr, wxTRANSLATE("Move up by ten pixels"), "", WXK_UP, kShift, &F::moveCommand<0, -10>,
       &F::hasSelection, nullptr},
      {nullptr, wxTRANSLATE("Move down by ten pixels"), "", WXK_DOWN, kShift,
       &F::moveCommand<0, 10>, &F::hasSelection, nullptr},
  };
}

std::vector<MainFrame::Command> MainFrame::toolCommands() {
  using F = MainFrame;
  return {
      {kTool, wxTRANSLATE("&Shape"), "", 'S', kNone, &F::pressToolCommand<Types::Shape>,
       &F::hasMedia, nullptr},
      {kTool, wxTRANSLATE("&Arrow"), "", 'A', kNone, &F::pressToolCommand<Types::Arrow>,
       &F::hasMedia, nullptr},
      {kTool, wxTRANSLATE("&Pencil"), "", 'P', kNone, &F::pressToolCommand<Types::Pencil>,
       &F::hasMedia, nullptr},
      {kTool, wxTRANSLATE("&Text"), "", 'T', kNone, &F::pressToolCommand<Types::Text>, &F::hasMedia,
       nullptr},
      {kTool, wxTRANSLATE("&Image"), "", 'I', kNone, &F::pressToolCommand<Types::Image>,
       &F::hasMedia, nullptr},
      {kTool, wxTRANSLATE("&Hide"), "", 'H', kNone, &F::pressToolCommand<Types::Hide>, &F::hasMedia,
       nullptr},
      {kTool, wxTRANSLATE("&Magnify"), "", 'M', kNone, &F::pressToolCommand<Types::Magnify>,
       &F::hasMedia, nullptr},
      {kTool, wxTRANSLATE("&General"), "", 'G', kNone, &F::pressToolCommand<Types::General>,
       &F::hasMedia, nullptr},
  };
}

std::vector<MainFrame::Command> MainFrame::timeCommands() {
  using F = MainFrame;
  return {
      {kTime, wxTRANSLATE("&Play or Pause"), "", WXK_SPACE, kNone, &F::play, &F::hasVideo, nullptr},
      {nullptr, wxTRANSLATE("Play backward"), "", 'J', kNone, &F::playBackward, &F::hasVideo,
       nullptr},
      {nullptr, wxTRANSLATE("Pause"), "", 'K', kNone, &F::pause, &F::hasVideo, nullptr},
      {nullptr, wxTRANSLATE("Play forward, and faster"), "", 'L', kNone, &F::playForward,
       &F::hasVideo, nullptr},
      {kTime, wxTRANSLATE("&Next Frame"), "", '.', kNone, &F::stepForward, &F::hasVideo, nullptr},
      {kTime, wxTRANSLATE("P&revious Frame"), "", ',', kNone, &F::stepBack, &F::hasVideo, nullptr},
      {nullptr, wxTRANSLATE("Next frame, without a selection"), "", WXK_RIGHT, kNone,
       &F::stepForward, &F::hasVideo, nullptr},
      {nullptr, wxTRANSLATE("Previous frame, without a selection"), "", WXK_LEFT, kNone,
       &F::stepBack, &F::hasVideo, nullptr},
      {kTime, wxTRANSLATE("A Second &Forward"), "", WXK_PAGEDOWN, kNone, &F::jumpForward,
       &F::hasVideo, nullptr},
      {kTime, wxTRANSLATE("A Second &Back"), "", WXK_PAGEUP, kNone, &F::jumpBack, &F::hasVideo,
       nullptr},
      {kTime, wxTRANSLATE("F&irst Frame"), "", WXK_HOME, kNone, &F::goToFirst, &F::hasVideo,
       nullptr},
      {kTime, wxTRANSLATE("&Last Frame"), "", WXK_END, kNone, &F::goToLast, &F::hasVideo, nullptr},
      {kTime, wxTRANSLATE("Pre&vious Object Start"), "", WXK_LEFT, wxMOD_CONTROL,
       &F::goToPreviousObject, &F::hasVideo, nullptr},
      {kTime, wxTRANSLATE("Ne&xt Object Start"), "", WXK_RIGHT, wxMOD_CONTROL, &F::goToNextObject,
       &F::hasVideo, nullptr},
      {kTime, wxTRANSLATE("&Go To..."), "Ctrl+G", 0, 0, &F::goTo, &F::hasVideo, nullptr},
  };
}

std::vector<MainFrame::Command> MainFrame::viewCommands() {
  using F = MainFrame;
  return {
      {kView, wxTRANSLATE("Zoom &In"), "Ctrl++", 0, 0, &F::zoomIn, &F::hasMedia, nullptr},
      {nullptr, wxTRANSLATE("Zoom in"), "", '=', wxMOD_CONTROL, &F::zoomIn, &F::hasMedia, nullptr},
      {kView, wxTRANSLATE("Zoom &Out"), "Ctrl+-", 0, 0, &F::zoomOut, &F::hasMedia, nullptr},
      {kView, wxTRANSLATE("&100 %"), "Ctrl+0", 0, 0, &F::zoomToOne, &F::hasMedia, nullptr},
      // TRANSLATORS: the zoom at which the whole picture is seen.
      {kView, wxTRANSLATE("&Fit"), "Ctrl+1", 0, 0, &F::zoomToFit, &F::hasMedia, nullptr},
      {kView, wxTRANSLATE("&Zoom To..."), "Ctrl+2", 0, 0, &F::zoomTo, &F::hasMedia, nullptr},
      {kView, wxTRANSLATE("Show &Pixels as Squares"), "", 0, 0, &F::togglePixels, &F::always,
       &F::showsPixels},
      {kView, wxTRANSLATE("Show &Annotations"), "Ctrl+H", 0, 0, &F::toggleAnnotations, &F::hasMedia,
       &F::showsAnnotations},
      {kView, wxTRANSLATE("Pa&lette"), "F7", 0, 0, &F::togglePalette, &F::always, &F::showsPalette},
      {kView, wxTRANSLATE("O&bjects"), "F8", 0, 0, &F::toggleObjects, &F::always, &F::showsObjects},
      {kView, wxTRANSLATE("&Timeline"), "F9", 0, 0, &F::toggleTimeline, &F::always,
       &F::showsTimeline},
      {kView, wxTRANSLATE("F&ull Screen"), "F11", 0, 0, &F::toggleFullScreen, &F::always,
       &F::isFullScreen},
  };
}

std::vector<MainFrame::Command> MainFrame::helpCommands() {
  using F = MainFrame;
  return {
      {kHelp, wxTRANSLATE("&Keyboard Shortcuts"), "F1", 0, 0, &F::showShortcuts, &F::always,
       nullptr},
      {kHelp, wxTRANSLATE("&About Framenote"), "", 0, 0, &F::showAbout, &F::always, nullptr},
  };
}

wxString MainFrame::nameOfKey(Command const &command) {
  int flags = wxACCEL_NORMAL;
  if (command.modifiers & wxMOD_CONTROL) flags |= wxACCEL_CTRL;
  if (command.modifiers & wxMOD_SHIFT) flags |= wxACCEL_SHIFT;
  return wxAcceleratorEntry(flags, command.plainKey).ToString();
}

void MainFrame::makeMenus() {
  auto *const bar = new wxMenuBar;  // owned by this window
  for (char const *title : kMenus) {
    auto *const menu = new wxMenu;  // owned by the bar
    for (Command const &command : Commands()) {
      if (command.menu != title) continue;
      wxString label = wxGetTranslation(command.label);
      if (*command.keys != '\0') label += wxString("\t") + command.keys;
      if (command.plainKey != 0) label += "   (" + nameOfKey(command) + ")";
      wxMenuItem *const item = menu->Append(wxID_ANY, label, wxString(),
                                            command.isChecked ? wxITEM_CHECK : wxITEM_NORMAL);
      Bind(
          wxEVT_MENU,
          [this, &command](wxCommandEvent &) {
            // Items are disabled when there is time for it; a key may come before that.
            runIfEnabled(command);
          },
          item->GetId());
      Bind(
          wxEVT_UPDATE_UI,
          [this, &command](wxUpdateUIEvent &event) { refreshMenus(event, command); },
          item->GetId());
    }
    bar->Append(menu, wxGetTranslation(title));
  }
  auto *const recent = new wxMenu;  // owned by the menu
  constexpr int kAfterOpen = 2;
  bar->GetMenu(0)->Insert(kAfterOpen, wxID_ANY, _("Open &Recent"), recent);
  m_recent.UseMenu(recent);
  Bind(wxEVT_MENU, &MainFrame::openRecent, this, wxID_FILE1, wxID_FILE9);
  SetMenuBar(bar);
}

bool MainFrame::runIfEnabled(Command const &command) {
  wxRecursionGuard const guard(m_isRunning);
  if (guard.IsInside() || !(this->*command.isEnabled)()) return false;
  (this->*command.run)();
  return true;
}

void MainFrame::refreshMenus(wxUpdateUIEvent &event, Command const &command) {
  event.Enable((this->*command.isEnabled)());
  if (command.isChecked) event.Check((this->*command.isChecked)());
  if (command.run == &MainFrame::undo) {
    wxString const name = canUndo() ? m_session->Steps().UndoName() : _("Undo");
    event.SetText(name + "\tCtrl+Z");
  }
  if (command.run == &MainFrame::redo) {
    wxString const name = canRedo() ? m_session->Steps().RedoName() : _("Redo");
    event.SetText(name + "\tCtrl+Y");
  }
}

bool MainFrame::isTyping(int key) const {
  if (m_tool->GetState() == ToolState::Editing) return true;
  wxWindow *const focus = wxWindow::FindFocus();
  if (!focus) return false;
  if (dynamic_cast<wxTextEntry *>(focus)) return true;
  // In the palette the keys that its controls are used with are theirs.
  constexpr int kLastPlainKey = 126;
  bool const isPlain = key > WXK_SPACE && key <= kLastPlainKey;
  return m_palette->IsDescendant(focus) && !isPlain;
}

void MainFrame::onKey(wxKeyEvent &event) {
  int const key = event.GetKeyCode();
  if (isTyping(key) && key != WXK_ESCAPE) return event.Skip();
  bool const isOnCanvas = m_canvas->HasFocus();
  // Lists and the timeline go from row to row with these.
  if (!isOnCanvas && (key == WXK_UP || key == WXK_DOWN)) return event.Skip();
  // While it is held it drags the picture; let go, it plays.
  if (key == WXK_SPACE && isOnCanvas) return event.Skip();
  for (Command const &command : Commands()) {
    if (command.plainKey != key || command.modifiers != event.GetModifiers()) continue;
    if (runIfEnabled(command)) return;
  }
  event.Skip();
}

void MainFrame::showShortcuts() {
  std::vector<Shortcut> rows;
  for (Command const &command : Commands()) {
    wxString const keys = command.plainKey != 0 ? nameOfKey(command) : wxString(command.keys);
    if (keys.empty()) continue;
    wxString const group = command.menu ? wxGetTranslation(command.menu) : wxString();
    rows.push_back({keys, wxMenuItem::GetLabelText(wxGetTranslation(command.label)),
                    wxMenuItem::GetLabelText(group)});
  }
  ShortcutsDialog(this, rows).ShowModal();
}

void MainFrame::showAbout() {
  wxAboutDialogInfo info;
  info.SetName("Framenote");
  info.SetVersion(FRAMENOTE_VERSION);
  info.SetDescription(_("Marks up still pictures and video frames."));
  wxAboutBox(info, this);
}
