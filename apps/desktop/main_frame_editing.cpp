// SPDX-License-Identifier: MIT
// Editing, time and view.
#include <algorithm>

#include <wx/textdlg.h>
#include <wx/tglbtn.h>
#include <wx/translation.h>

#include "desktop/go_to_dialog.h"
#include "desktop/main_frame.h"
#include "desktop/object_list.h"
#include "desktop/pasted_picture.h"
#include "desktop/transport_bar.h"
#include "framenote/annotation_panel.h"
#include "framenote/annotation_tool.h"
#include "media/media_error.h"
#include "media/media_error_text.h"
#include "objects/annotation_object.h"
#include "project/file_error.h"
#include "project/path_text.h"

namespace {

/// Whether the mouse or the keyboard is in the middle of something.
bool IsGesture(ToolState state) {
  return framenote::IsHandling(state) || state == ToolState::Drawing || state == ToolState::Editing;
}

}  // namespace

// --- Editing ---

void MainFrame::undo() {
  changeStep([this] { return !canUndo() || m_session->Undo(); });
}

void MainFrame::redo() {
  changeStep([this] { return !canRedo() || m_session->Redo(); });
}

void MainFrame::changeStep(std::function<bool()> const &change) {
  // Playing on would take the range of the object that is selected then along, a step of its own.
  pause();
  m_session->TakeDocument();
  bool const wasAtRest = !IsGesture(m_tool->GetState());
  std::size_t const objects = m_tool->AnnotationObjects().size();
  m_tool->DeactivateToolAndControls();
  // An object that cannot be seen goes with its selection. As a step, that would be what is undone,
  // and since it is selected again then, once more each time.
  bool const hasGone = wasAtRest && m_tool->AnnotationObjects().size() < objects;
  if (!hasGone) m_session->TakeDocument();
  // Loading a document empties the tool's clipboard.
  m_hasCopied = false;
  try {
    if (!change()) showProblem(_("An object could not be restored: its picture is gone."));
  } catch (MediaError const &error) {
    showProblem(MediaErrorText(error));
  }
}

void MainFrame::runOnTool(AnnotationCommand command) {
  wxCommandEvent event(wxEVT_MENU, static_cast<int>(command));
  m_tool->onPopupClick(event);
  m_session->TakeDocument();
  m_canvas->Refresh();
}

void MainFrame::copy() {
  runOnTool(AnnotationCommand::Copy);
  m_hasCopied = true;
}

void MainFrame::paste() {
  if (!m_hasCopied && pastePicture()) return;
  runOnTool(AnnotationCommand::Paste);
}

bool MainFrame::pastePicture() {
  try {
    std::optional<std::string> const path = KeepClipboardPicture();
    if (!path) return false;
    if (!PastePictureObject(*m_tool, *path, m_canvas->SeenPart(), m_canvas->View().Scale(),
                            m_canvas->View().Offset())) {
      showProblem(_("There is no room for the picture beside the other objects."));
    }
  } catch (FileError const &error) {
    showProblem(FileErrorText(error));
  }
  m_session->TakeDocument();
  m_canvas->Refresh();
  return true;
}

void MainFrame::deleteSelected() {
  runOnTool(AnnotationCommand::Delete);
}

// The tool stays the one that the palette shows.
void MainFrame::takeEditedText() {
  if (m_tool->GetState() == ToolState::Editing) {
    m_tool->Deactivate();
    m_tool->SetActiveTool(Types::Text);
  }
  m_session->TakeDocument();
}

void MainFrame::escape() {
  m_canvas->SetFocus();
  if (m_timeline->CancelDrag()) return;
  ToolState const state = m_tool->GetState();
  if (!IsGesture(state)) return m_tool->DeactivateToolAndControls();
  if (state == ToolState::Editing) return takeEditedText();
  m_canvas->EndGesture();
}

void MainFrame::moveSelected(int dx, int dy) {
  m_tool->MoveSelected({dx, dy});
  m_canvas->Refresh();
}

void MainFrame::selectRow(int index) {
  auto const &objects = m_tool->AnnotationObjects();
  // A list can be left without a row; the selection is the tool's.
  if (index < 0 || index >= static_cast<int>(objects.size())) return showSelection();
  auto const [first, last] = (*std::next(objects.begin(), index))->GetFrameDuration();
  std::int64_t const frame = std::clamp(m_session->Frame(), first, last);
  if (frame != m_session->Frame()) showFrame(frame, false);
  m_tool->SelectObject(static_cast<std::size_t>(index));
  // Hidden annotations cannot be selected, whatever was clicked.
  showSelection();
  m_canvas->Refresh();
}

void MainFrame::pressTool(Types type) {
  auto *const button =
      dynamic_cast<wxToggleButton *>(wxWindow::FindWindowById(static_cast<long>(type), m_palette));
  if (!button) return;
  button->SetValue(!button->GetValue());
  wxCommandEvent pressed(wxEVT_TOGGLEBUTTON, button->GetId());
  pressed.SetEventObject(button);
  button->ProcessWindowEvent(pressed);
  m_canvas->SetFocus();
}

void MainFrame::toggleAnnotations() {
  m_tool->SetObjectsVisible(!m_tool->IsVisible());
  m_canvas->Refresh();
}

bool MainFrame::hasSelection() const {
  return m_tool->GetSelectedObject() != nullptr;
}
bool MainFrame::canUndo() const {
  return hasMedia() && m_session->Steps().CanUndo();
}
bool MainFrame::canRedo() const {
  return hasMedia() && m_session->Steps().CanRedo();
}
bool MainFrame::showsAnnotations() const {
  return m_tool->IsVisible();
}

// --- Time ---

void MainFrame::showFrame(std::int64_t frame, bool isPlaying) {
  if (!isPlaying) pause();
  try {
    m_session->ShowFrame(frame, isPlaying);
    if (m_session->IsDamaged()) return showProblem(_("This frame is damaged."));
  } catch (MediaError const &error) {
    pause();
    showProblem(MediaErrorText(error));
  }
}

void MainFrame::stepBy(std::int64_t frames) {
  showFrame(m_session->Frame() + frames, false);
}

void MainFrame::jumpBy(double seconds) {
  MediaSource const &source = m_session->Source();
  showFrame(source.FrameAt(source.Seconds(m_session->Frame()) + seconds), false);
}

void MainFrame::goToFirst() {
  showFrame(0, false);
}

void MainFrame::goToLast() {
  showFrame(m_session->FrameCount() - 1, false);
}

void MainFrame::goTo() {
  GoToDialog dialog(this, m_session->Source(), m_session->Frame());
  if (dialog.ShowModal() == wxID_OK) showFrame(dialog.Frame(), false);
}

void MainFrame::play() {
  if (m_playback.IsPlaying()) return pause();
  if (!hasVideo()) return;
  bool const isAtEnd = m_session->Frame() + 1 == m_session->FrameCount();
  m_playback.Start(m_session->Source(), isAtEnd ? 0 : m_session->Frame(), 1.0);
  m_transport->SetPlaying(true);
}

void MainFrame::playForward() {
  constexpr double kFastest = 8.0;
  double const rate = m_playback.Rate() > 0.0 ? std::min(2.0 * m_playback.Rate(), kFastest) : 1.0;
  m_playback.Start(m_session->Source(), m_session->Frame(), rate);
  m_transport->SetPlaying(true);
}

void MainFrame::playBackward() {
  m_playback.Start(m_session->Source(), m_session->Frame(), -1.0);
  m_transport->SetPlaying(true);
}

void MainFrame::pause() {
  bool const wasPlaying = m_playback.IsPlaying();
  m_playback.Stop();
  m_transport->SetPlaying(false);
  // What was left out while the frames went by.
  if (wasPlaying) showFrame(m_session->Frame(), false);
}

void MainFrame::goToPreviousObject() {
  m_tool->GoToObject(GoToObjectDirection::Previous);
}

void MainFrame::goToNextObject() {
  m_tool->GoToObject(GoToObjectDirection::Next);
}

void MainFrame::dragRange(Timeline::RangeDrag const &drag) {
  if (!m_isDraggingRange) m_session->BeginGesture();
  m_isDraggingRange = !drag.isFinished;
  if (drag.isStart) {
    m_tool->SetSelectedsAnnotationStart(drag.frame);
  } else {
    m_tool->SetSelectedsAnnotationEnd(drag.frame);
  }
  if (drag.isFinished) {
    m_session->EndGesture();
    // The end may be where the tool did not take it to.
    refreshTimeline();
  }
  m_canvas->Refresh();
}

// --- View ---

void MainFrame::zoomIn() {
  m_canvas->ZoomIn();
}
void MainFrame::zoomOut() {
  m_canvas->ZoomOut();
}
void MainFrame::zoomToOne() {
  m_canvas->ZoomTo(1.0);
}
void MainFrame::zoomToFit() {
  m_canvas->ZoomToFit();
}

void MainFrame::zoomTo() {
  double const now = 100.0 * m_canvas->View().Zoom();
  wxString const typed =
      wxGetTextFromUser(_("Zoom in percent:"), _("Zoom To"), wxString::FromCDouble(now, 1), this);
  double percent = 0.0;
  if (typed.BeforeFirst('%').Strip(wxString::both).ToCDouble(&percent) && percent > 0.0) {
    m_canvas->ZoomTo(percent / 100.0);
  }
}

void MainFrame::togglePixels() {
  m_canvas->SetShowPixels(!m_canvas->ShowsPixels());
}

void MainFrame::toggleFullScreen() {
  ShowFullScreen(!IsFullScreen());
}

void MainFrame::togglePane(wxWindow *window) {
  wxAuiPaneInfo &pane = m_panes.GetPane(window);
  pane.Show(!pane.IsShown());
  m_panes.Update();
}

void MainFrame::togglePalette() {
  togglePane(m_palette);
}
void MainFrame::toggleObjects() {
  togglePane(m_objects);
}
void MainFrame::toggleTimeline() {
  togglePane(m_timePane);
}

bool MainFrame::isPaneShown(wxWindow *window) const {
  // Asking changes nothing, but the manager knows no constant panes.
  return const_cast<wxAuiManager &>(m_panes).GetPane(window).IsShown();
}
bool MainFrame::showsPalette() const {
  return isPaneShown(m_palette);
}
bool MainFrame::showsObjects() const {
  return isPaneShown(m_objects);
}
bool MainFrame::showsTimeline() const {
  return isPaneShown(m_timePane);
}
