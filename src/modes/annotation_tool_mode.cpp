// SPDX-License-Identifier: MIT
#include "modes/annotation_tool_mode.h"

#include <utility>

#include "coordinates/pixel_geometry.h"
#include "framenote/annotation_tool.h"
#include "objects/annotation_object.h"

IAnnotationToolMode::IAnnotationToolMode(Types modeId, AnnotationTool *tool)
    : m_modeId(modeId),
      m_modeName(wxString::Format("%i", static_cast<int>(modeId))),
      m_tool(tool) {}

IAnnotationToolMode::~IAnnotationToolMode() = default;

void IAnnotationToolMode::FinishEditing() {}

bool IAnnotationToolMode::IsEditing() const {
  return false;
}

bool IAnnotationToolMode::CanStartDrawing() const {
  return true;
}

void IAnnotationToolMode::OnDrawingRefused() {}

void IAnnotationToolMode::startDrawing() {}

void IAnnotationToolMode::DiscardDrawing() {}

void IAnnotationToolMode::OnMouseDefault(wxMouseEvent const &event) {
  if (event.GetEventType() == wxEVT_LEFT_DOWN) {
    m_tool->startDrawingObject();
  } else if (event.GetEventType() == wxEVT_MOTION) {
    m_tool->moveMouseDefault();
  } else if (event.GetEventType() == wxEVT_RIGHT_UP) {
    m_tool->popupRightClickMenu(false);
  }
}

void IAnnotationToolMode::OnMouseSelected(wxMouseEvent const &event) {
  if (event.GetEventType() == wxEVT_RIGHT_UP) {
    m_tool->popupRightClickMenuOnSelected();
    return;
  }
  if (event.GetEventType() == wxEVT_MOTION) {
    m_tool->changeFocusedToEnd();
    m_tool->setNextStateOnSelected();
    return;
  }
  if (event.GetEventType() != wxEVT_LEFT_DOWN) return;
  IAnnotationObject *const selected = selectedObject();
  if (selected->Contains(m_tool->m_mousePosition)) {
    m_tool->startMovingOrResizingObject();
    return;
  }
  if (selected->IsAtRotationPoint(m_tool->m_mousePosition)) {
    // A press without a motion before it, as from a touch screen, starts from here.
    selected->PrepareResizing();
    m_tool->m_cursor = wxCURSOR_QUESTION_ARROW;
    m_tool->m_state = ToolState::Rotating;
    return;
  }
  auto it = m_tool->m_objects.begin();
  if (m_tool->isMouseOnObject(it)) {
    // Selects the focused object: one that the pointer reached without a motion is not focused,
    // and then the selected object is the one that moves.
    m_tool->selectObject(false);
    m_tool->startMovingOrResizingObject();
    return;
  }
  m_tool->deselectAndStartDrawing();
}

void IAnnotationToolMode::OnMouseAtRotationPoint(wxMouseEvent const &) {}

void IAnnotationToolMode::OnMouseRotating(wxMouseEvent const &) {}

void IAnnotationToolMode::OnMouseEditing(wxMouseEvent const &) {}

void IAnnotationToolMode::OnMouseOverObject(wxMouseEvent const &event) {
  if (!(*m_tool->m_focused)->IsPresentInFrame(m_tool->m_mediaInfo.frameIndex)) {
    m_tool->leaveObject();
    if (m_tool->m_state != ToolState::OverObject) return;
  }
  if (event.GetEventType() == wxEVT_LEFT_DOWN) {
    m_tool->selectObject(false);
    m_tool->startMovingOrResizingObject();
  } else if (event.GetEventType() == wxEVT_MOTION) {
    m_tool->leaveObject();
  } else if (event.GetEventType() == wxEVT_RIGHT_UP) {
    m_tool->selectObject(false);
    m_tool->popupRightClickMenu(true);
  }
}

void IAnnotationToolMode::OnMouseMoving(wxMouseEvent const &event) {
  if (event.GetEventType() == wxEVT_LEFT_UP) {
    m_tool->m_state = ToolState::Selected;
    m_tool->onObjectsModified();
  } else if (event.GetEventType() == wxEVT_MOTION) {
    wxPoint2DInt const step =
        framenote::SubtractPixels(m_tool->m_mousePosition, m_tool->m_pressPosition);
    selectedObject()->MoveFor(step);
    m_tool->m_pressPosition = m_tool->m_mousePosition;
  }
}

void IAnnotationToolMode::OnMouseAtResizePoint(wxMouseEvent const &event) {
  if (event.GetEventType() == wxEVT_LEFT_DOWN) {
    m_tool->startResizingObject();
  } else if (event.GetEventType() == wxEVT_MOTION) {
    if (selectedObject()->IsAtResizePoint(m_tool->m_mousePosition, m_tool->m_cursor)) return;
    // leaveObject may change the state, so it comes first.
    m_tool->leaveObject();
    m_tool->m_state = ToolState::Selected;
  } else if (event.GetEventType() == wxEVT_RIGHT_UP) {
    m_tool->popupRightClickMenu(true);
  }
}

std::int64_t IAnnotationToolMode::GetToolFrameCount() const {
  return m_tool->m_mediaInfo.frameCount;
}

int IAnnotationToolMode::GetToolCurrentFrame() const {
  return static_cast<int>(m_tool->m_mediaInfo.frameIndex);
}

double IAnnotationToolMode::GetToolScale() const {
  return m_tool->m_scale;
}

void IAnnotationToolMode::NotifyObjectSelected(bool isNew) {
  m_tool->OnObjectSelected(isNew);
  m_tool->SetActiveTool(m_modeId);
  m_tool->UpdatePanelOnObjectSelected(m_modeId);
}

void IAnnotationToolMode::InsertPastedObject(std::unique_ptr<IAnnotationObject> object) {
  m_tool->m_objects.push_front(object.release());  // owned by the list
}

void IAnnotationToolMode::StoreCopiedObject(std::unique_ptr<IAnnotationObject> object) {
  m_tool->m_copiedObject = std::move(object);
}

IAnnotationObject *IAnnotationToolMode::selectedObject() const {
  return m_tool->hasSelection() ? *m_tool->m_selected : nullptr;
}

bool IAnnotationToolMode::isDrawing() const {
  return m_tool->m_state == ToolState::Drawing;
}

void IAnnotationToolMode::insertAndSelect(std::unique_ptr<IAnnotationObject> object) {
  InsertPastedObject(std::move(object));
  m_tool->enterObject(m_tool->m_objects.begin());
  m_tool->selectObject(true);
}

void IAnnotationToolMode::finishDrawing(std::unique_ptr<IAnnotationObject> object) {
  insertAndSelect(std::move(object));
  m_tool->onObjectsModified();
}

void IAnnotationToolMode::forgetPositions() {
  m_tool->m_pressPosition = wxPoint2DInt(wxDefaultPosition);
  m_tool->m_mousePosition = wxPoint2DInt(wxDefaultPosition);
}

void IAnnotationToolMode::finishResizing() {
  selectedObject()->IsAtResizePoint(m_tool->m_mousePosition, m_tool->m_cursor);
  m_tool->m_state = ToolState::AtResizePoint;
  m_tool->onObjectsModified();
}

void IAnnotationToolMode::applyPropertiesToSelected(bool updatesArea) {
  if (!m_tool->hasSelection()) return;
  selectedObject()->UpdateProperties();
  if (updatesArea) m_tool->calculateAnnotationArea();
  m_tool->Refresh();
  m_tool->OnJsonChanged();
}

bool IAnnotationToolMode::isSquareKey(wxMouseEvent const &event) {
  return event.GetModifiers() == wxMOD_SHIFT;
}
