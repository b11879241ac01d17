// SPDX-License-Identifier: MIT
// Focus, selection, and the steps of the mouse's states that the modes share.
#include <cstddef>
#include <iterator>

#include "framenote/annotation_events.h"
#include "framenote/annotation_tool.h"
#include "modes/annotation_tool_mode.h"
#include "objects/annotation_object.h"

bool AnnotationTool::isMouseOnObject(Iterator &it) const {
  for (; it != m_objects.end(); ++it) {
    IAnnotationObject const &object = **it;
    if (isShown(object) && object.Contains(m_mousePosition)) return true;
  }
  return false;
}

void AnnotationTool::changeFocusedTo(Iterator it) {
  if (it == m_focused) return;
  if (m_focused != m_objects.end()) (*m_focused)->SetFocused(false);
  m_focused = it != m_objects.end() && (*it)->IsSelected() ? m_objects.end() : it;
  if (m_focused != m_objects.end()) (*m_focused)->SetFocused(true);
}

void AnnotationTool::changeFocusedToEnd() {
  changeFocusedTo(m_objects.end());
}

void AnnotationTool::enterObject(Iterator it) {
  changeFocusedTo(it);
  m_state = ToolState::OverObject;
  m_cursor = wxCURSOR_SIZING;
}

void AnnotationTool::leaveObject() {
  auto it = m_objects.begin();
  if (isMouseOnObject(it)) {
    enterObject(it);
    return;
  }
  m_cursor = wxCURSOR_CROSS;
  changeFocusedToEnd();
  m_state = ToolState::Default;
}

void AnnotationTool::moveMouseDefault() {
  m_state = ToolState::Default;
  auto it = m_objects.begin();
  if (isMouseOnObject(it)) {
    enterObject(it);
  } else {
    m_cursor = wxCURSOR_CROSS;
  }
}

void AnnotationTool::selectObject(bool isNew) {
  if (m_focused != m_objects.end()) {
    // What an object has grown by while playing is written before it is left.
    if (m_mediaInfo.isPlaying) onObjectsModified();
    changeSelectedTo(m_focused, isNew);
    changeFocusedToEnd();
  }
  if (hasSelection()) m_state = ToolState::Selected;
}

void AnnotationTool::changeSelectedTo(Iterator it, bool isNew) {
  if (it == m_selected) return;
  if (hasSelection()) {
    (*m_selected)->SetSelected(false);
    deleteSelectedIfWouldDisappear();
    if (it == m_objects.end()) {
      post(AnnotationObjectDeselectedEvent(wxEVT_ANN_OBJECT_DESELECTED));
    }
  }
  m_selected = it;
  if (hasSelection()) (*m_selected)->OnSelection(isNew);
}

void AnnotationTool::changeSelectedToEnd() {
  onObjectsModified();
  changeSelectedTo(m_objects.end(), false);
  SendAnnotationFrameRangeChangedEvent();
}

void AnnotationTool::SelectObject(std::size_t index) {
  if (!m_visible || index >= m_objects.size()) return;
  Iterator const chosen = std::next(m_objects.begin(), static_cast<std::ptrdiff_t>(index));
  if (chosen == m_selected || !(*chosen)->IsPresentInFrame(m_mediaInfo.frameIndex)) return;
  bool const wasEditing = m_activeTool->IsEditing();
  commitEditing();
  if (wasEditing) SendAnnotationTextEditionFinishedEvent();
  // What a gesture has done so far stays, as when the selection ends.
  m_activeTool->DiscardDrawing();
  onObjectsModified();
  changeFocusedToEnd();
  changeSelectedTo(chosen, false);
  m_state = ToolState::Selected;
  SendAnnotationFrameRangeChangedEvent();
  Refresh();
}

void AnnotationTool::MoveSelected(wxPoint2DInt const &delta) {
  bool const isAtRest = m_state == ToolState::Selected || m_state == ToolState::AtResizePoint ||
                        m_state == ToolState::AtRotationPoint;
  if (!hasSelection() || !isAtRest) return;
  (*m_selected)->MoveFor(delta);
  onObjectsModified();
  Refresh();
}

bool AnnotationTool::hasSelection() const {
  return m_selected != m_objects.end();
}

void AnnotationTool::setNextStateOnSelected() {
  IAnnotationObject &selected = **m_selected;
  if (selected.IsAtResizePoint(m_mousePosition, m_cursor)) {
    m_state = ToolState::AtResizePoint;
  } else if (selected.Contains(m_mousePosition)) {
    m_cursor = wxCURSOR_SIZING;
    m_state = ToolState::Selected;
  } else if (selected.IsAtRotationPoint(m_mousePosition)) {
    m_cursor = wxCURSOR_QUESTION_ARROW;
    m_state = ToolState::AtRotationPoint;
  } else {
    // A second object may become the focused one; the state stays with the selected one.
    leaveObject();
    m_state = ToolState::Selected;
  }
}

void AnnotationTool::startDrawingObject() {
  if (!m_activeTool->CanStartDrawing()) {
    m_activeTool->OnDrawingRefused();
    return;
  }
  m_activeTool->DiscardDrawing();
  m_activeTool->startDrawing();
  if (m_mediaInfo.IsVideo()) {
    post(AnnotationStartedEvent(wxEVT_ANN_STARTED, m_mediaInfo.frameIndex));
  }
  m_pressPosition = m_mousePosition;
  m_state = ToolState::Drawing;
}

void AnnotationTool::deselectAndStartDrawing() {
  changeSelectedToEnd();
  // A mode that draws nothing must not stay in a state that has a selection.
  m_state = ToolState::Default;
  startDrawingObject();
}

void AnnotationTool::startMovingOrResizingObject() {
  m_pressPosition = m_mousePosition;
  if ((*m_selected)->IsAtResizePoint(m_mousePosition, m_cursor)) {
    startResizingObject();
  } else {
    m_state = ToolState::Moving;
  }
}

void AnnotationTool::startResizingObject() {
  // Arms the handle under the pointer.
  (*m_selected)->IsAtResizePoint(m_mousePosition, m_cursor);
  (*m_selected)->PrepareResizing();
  m_state = ToolState::Resizing;
}

bool AnnotationTool::deleteSelectedIfWouldDisappear() {
  if (!(*m_selected)->WouldDisappear()) return false;
  delete *m_selected;
  m_objects.erase(m_selected);
  m_selected = m_objects.end();
  calculateAnnotationArea();
  OnJsonChanged();
  return true;
}

void AnnotationTool::onObjectsModified() {
  calculateAnnotationArea();
  if (hasSelection()) (*m_selected)->OnObjectModified();
  OnJsonChanged();
}
