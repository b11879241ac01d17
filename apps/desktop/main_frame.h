// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <wx/aui/framemanager.h>
#include <wx/filehistory.h>
#include <wx/frame.h>
#include <wx/infobar.h>  // a macro on Windows, so not declared here
#include <wx/recguard.h>
#include <wx/timer.h>

#include "desktop/canvas.h"
#include "desktop/playback.h"
#include "desktop/session.h"
#include "desktop/shortcuts_dialog.h"
#include "desktop/timeline.h"
#include "framenote/annotation_events.h"
#include "project/frame_pipeline.h"

class AnnotationPanel;
class AnnotationTool;
class ObjectList;
class TransportBar;

/// The window of the desktop host: the picture in the middle, palette and list of objects beside
/// it, the timeline below. What it does stands in one table of commands, from which menus, keys and
/// the list of shortcuts are made.
class MainFrame : public wxFrame {
public:
  /// `recoveryFolder` is empty for a window without recovery.
  explicit MainFrame(std::string const &recoveryFolder);
  ~MainFrame() override;

  /// Opens a project, a picture or a video, after the question about what is not saved. Tells the
  /// user if it cannot be opened; what was open stays then. Media gets the annotations of
  /// `document`, a file, if that is not empty.
  void OpenPath(std::string const &path, std::string const &document = {});
  /// Offers what earlier sessions left behind without saving.
  void OfferRecovery();

  // --- For those who watch the window ---

  AnnotationTool const &Tool() const { return *m_tool; }
  Session const &OpenSession() const { return *m_session; }

private:
  /// One thing that the user can have done.
  struct Command {
    char const *menu;   ///< nullptr: by keys alone
    char const *label;  ///< with the menu's mnemonic
    char const *keys;   ///< an accelerator of the menu; empty: none
    int plainKey;       ///< a key that works where no text is typed; 0: none
    int modifiers;      ///< with it
    void (MainFrame::*run)();
    bool (MainFrame::*isEnabled)() const;
    bool (MainFrame::*isChecked)() const;  ///< nullptr: no check mark
  };
  /// Of the commands of one key, the first that is enabled is run.
  static std::vector<Command> const &Commands();
  static std::vector<Command> fileCommands();
  static std::vector<Command> editCommands();
  static std::vector<Command> toolCommands();
  static std::vector<Command> timeCommands();
  static std::vector<Command> viewCommands();
  static std::vector<Command> helpCommands();
  static wxString nameOfKey(Command const &command);
  /// Whether it was run. No command is run within another one: while that asks in a dialog, what it
  /// asks about stays.
  bool runIfEnabled(Command const &command);

  // Construction
  void makeWindows();
  void addPanes(wxWindow &middle);
  void makeMenus();
  void bindEvents();
  void bindToolEvents();
  void restoreLayout();
  void saveLayout();

  // Files
  void openFile();
  void openRecent(wxCommandEvent &event);
  bool openProject(std::string const &path, Project const &project, bool isRestored);
  std::unique_ptr<MediaSource> openMedia(std::string const &path);
  std::string askForMedia(MediaLookup const &lookup);
  void closeMedia();
  bool save();
  bool saveAs();
  bool saveTo(std::string const &path);
  void saveCommand() { save(); }
  void saveAsCommand() { saveAs(); }
  /// Asks about what is not saved. False if the user wants to stay.
  bool mayLeave();
  void exportMedia();
  std::vector<wxString> warningsFor(FrameRange const &range) const;
  void quit() { Close(); }

  // Editing
  void undo();
  void redo();
  void changeStep(std::function<bool()> const &change);
  void copy();
  void paste();
  bool pastePicture();
  void deleteSelected();
  void runOnTool(AnnotationCommand command);
  /// A text that is being edited becomes part of the document.
  void takeEditedText();
  void escape();
  void moveSelected(int dx, int dy);
  void selectRow(int index);
  void pressTool(Types type);
  template <Types Type>
  void pressToolCommand() {
    pressTool(Type);
  }
  template <int Dx, int Dy>
  void moveCommand() {
    moveSelected(Dx, Dy);
  }
  void toggleAnnotations();
  void goToPreviousObject();
  void goToNextObject();

  // Time
  void showFrame(std::int64_t frame, bool isPlaying);
  void goTo();
  void play();
  void playForward();
  void playBackward();
  void pause();
  void stepBack() { stepBy(-1); }
  void stepForward() { stepBy(1); }
  void jumpBack() { jumpBy(-1.0); }
  void jumpForward() { jumpBy(1.0); }
  void goToFirst();
  void goToLast();
  void stepBy(std::int64_t frames);
  void jumpBy(double seconds);
  void dragRange(Timeline::RangeDrag const &drag);

  // View
  void zoomIn();
  void zoomOut();
  void zoomToOne();
  void zoomToFit();
  void zoomTo();
  void togglePixels();
  void toggleFullScreen();
  void togglePane(wxWindow *window);
  void togglePalette();
  void toggleObjects();
  void toggleTimeline();
  void showShortcuts();
  void showAbout();

  // Whether commands are there
  bool always() const { return true; }
  bool hasMedia() const { return m_session->HasMedia(); }
  bool hasVideo() const { return m_session->FrameCount() > 1; }
  bool hasSelection() const;
  bool canUndo() const;
  bool canRedo() const;
  bool showsAnnotations() const;
  bool showsPixels() const { return m_canvas->ShowsPixels(); }
  bool isFullScreen() const { return IsFullScreen(); }
  bool isPaneShown(wxWindow *window) const;
  bool showsPalette() const;
  bool showsObjects() const;
  bool showsTimeline() const;

  // Keeping the window up to date
  void onFrameShown();
  void onDocumentChanged();
  void onRanges();
  int selectedIndex() const;
  void refreshObjects();
  void refreshTimeline();
  void refreshStillRuns();
  void refreshTitle();
  void refreshMenus(wxUpdateUIEvent &event, Command const &command);
  void showPointer(std::optional<Canvas::Pointer> const &pointer);
  void showPosition();
  void showSelection();
  void showProblem(wxString const &text);
  wxString leftOutText() const;  ///< a line; empty: nothing was
  void warnOfOtherMedia();

  void onKey(wxKeyEvent &event);
  /// Whether a key belongs to the control that has the focus.
  bool isTyping(int key) const;
  void onClose(wxCloseEvent &event);

  std::string m_recoveryFolder;
  std::shared_ptr<AnnotationTool> m_tool;
  std::unique_ptr<Session> m_session;
  // The windows are owned by this one.
  Canvas *m_canvas = nullptr;
  Timeline *m_timeline = nullptr;
  TransportBar *m_transport = nullptr;
  wxWindow *m_timePane = nullptr;
  AnnotationPanel *m_palette = nullptr;
  ObjectList *m_objects = nullptr;
  wxInfoBar *m_problem = nullptr;
  wxAuiManager m_panes;
  wxFileHistory m_recent;
  Playback m_playback;
  wxTimer m_sumTimer;
  bool m_hasCopied = false;  ///< an object, since this window is there
  bool m_isDraggingRange = false;
  wxRecursionGuardFlag m_isRunning = 0;  ///< a command is
};
