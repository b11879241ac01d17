// SPDX-License-Identifier: MIT
#include "modes/box_tool_mode.h"

#include <mutex>

#include "coordinates/pixel_geometry.h"
#include "framenote/annotation_tool.h"
#include "objects/ann_shape.h"

namespace {

wxPoint ToPoint(wxPoint2DInt const &point) {
  wxPoint2DInt const clamped = framenote::ClampToPixels(point);
  return {clamped.m_x, clamped.m_y};
}

}  // namespace

BoxToolMode::BoxToolMode(Types modeId, AnnotationTool *tool)
    : IAnnotationToolMode(modeId, tool), m_minimalSize(5, 5) {}

void BoxToolMode::ApplyProperties() {
  applyPropertiesToSelected(false);
}

void BoxToolMode::DiscardDrawing() {
  m_rect = wxRect();
}

wxRect BoxToolMode::rectOfDrag(wxMouseEvent const &event) const {
  return AnnShape::GetRectOrSquare(ToPoint(m_tool->m_pressPosition),
                                   ToPoint(m_tool->m_mousePosition), isSquareKey(event));
}

bool BoxToolMode::hasPreview(std::unique_ptr<IAnnPainter> const &painter) const {
  return painter && isDrawing() && m_rect != wxRect();
}

void BoxToolMode::OnMouseDrawing(wxMouseEvent const &event) {
  if (event.GetEventType() == wxEVT_MOTION) {
    m_rect = rectOfDrag(event);
    return;
  }
  if (event.GetEventType() != wxEVT_LEFT_UP) return;
  // The last motion decides whether there is an object, the release what it spans.
  if (m_rect.width < m_minimalSize.x || m_rect.height < m_minimalSize.y) {
    m_tool->moveMouseDefault();
  } else {
    finishBox(rectOfDrag(event));
  }
  m_rect = wxRect();
}

void BoxToolMode::OnMouseResizing(wxMouseEvent const &event) {
  bool const isMotion = event.GetEventType() == wxEVT_MOTION;
  if (!isMotion && event.GetEventType() != wxEVT_LEFT_UP) return;
  if (auto *const shape = selectedAs<AnnShape>()) {
    if (isMotion) shape->ResizeTo(m_tool->m_mousePosition, isSquareKey(event));
    std::lock_guard<std::mutex> const lock(shape->GetCoordinatesMutex());
    shape->CheckIfReflectedAlongAxis(lock, !isMotion);
  }
  if (!isMotion) finishResizing();
}

void BoxToolMode::OnMouseAtRotationPoint(wxMouseEvent const &event) {
  if (event.GetEventType() == wxEVT_LEFT_DOWN) {
    if (auto *const shape = selectedAs<AnnShape>()) shape->RememberCurrentPosition();
    m_tool->m_state = ToolState::Rotating;
  } else if (event.GetEventType() == wxEVT_MOTION &&
             !selectedObject()->IsAtRotationPoint(m_tool->m_mousePosition)) {
    m_tool->leaveObject();
    m_tool->m_state = ToolState::Selected;
  }
}

void BoxToolMode::OnMouseRotating(wxMouseEvent const &event) {
  if (event.GetEventType() == wxEVT_LEFT_UP) {
    m_tool->setNextStateOnSelected();
    m_tool->onObjectsModified();
  } else if (event.GetEventType() == wxEVT_MOTION) {
    if (auto *const shape = selectedAs<AnnShape>()) shape->Rotate(ToPoint(m_tool->m_mousePosition));
  }
}
