// SPDX-License-Identifier: MIT
#include "modes/box_tool_mode.h"

#include <algorithm>
#include <mutex>

#include "coordinates/pixel_geometry.h"
#include "framenote/annotation_tool.h"
#include "objects/ann_shape.h"
#include "objects/object_painting.h"
#include "objects/picture_pixels.h"
#include "objects/shape_mask.h"
#include "painters/ann_painter.h"

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
  return AnnShape::GetRectOrSquare(pressPixel(), mousePixel(), isSquareKey(event));
}

wxPoint BoxToolMode::pressPixel() const {
  return ToPoint(m_tool->m_pressPosition);
}

wxPoint BoxToolMode::mousePixel() const {
  return ToPoint(m_tool->m_mousePosition);
}

wxRect BoxToolMode::onSurface(std::unique_ptr<IAnnPainter> const &painter,
                              wxPoint2DDouble const &offset) const {
  wxPoint2DDouble const shift = framenote::PaintingOffset(painter, offset);
  return wxRect(IAnnotationObject::GetRounded(wxPoint2DDouble(m_rect.GetTopLeft()) + shift),
                IAnnotationObject::GetRounded(wxPoint2DDouble(m_rect.GetBottomRight()) + shift));
}

bool BoxToolMode::hasRoom(wxRect const &rect, int thickness) {
  return rect.width / 2.0 > thickness && rect.height / 2.0 > thickness;
}

void BoxToolMode::previewBorder(IAnnPainter &painter, wxRect const &rect,
                                AnnShapeProperties::Shape shape, wxColour const &colour,
                                int thickness) {
  bool const isHollow = hasRoom(rect, thickness);
  switch (shape) {
    case AnnShapeProperties::Rectangle:
      if (isHollow) {
        painter.DrawBorderOfRectangle(rect, colour, thickness);
      } else {
        painter.DrawRectangle(rect, colour);
      }
      break;
    case AnnShapeProperties::Ellipse:
      if (isHollow) {
        painter.DrawBorderOfEllipse(rect, colour, thickness);
      } else {
        painter.DrawEllipse(rect, colour);
      }
      break;
  }
}

void BoxToolMode::previewCut(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset,
                             wxBitmap bitmap, wxRect const &area,
                             AnnShapeProperties::Shape shape) const {
  if (!bitmap.IsOk()) return;
  if (shape == AnnShapeProperties::Ellipse) {
    wxPoint const shift = framenote::CentreOf(m_rect) - framenote::CentreOf(area);
    wxBitmap const mask = framenote::RotatedMaskBitmap(
        wxPoint2DDouble(shift), area.width, area.height, m_rect.width, m_rect.height, 0.0, shape);
    bitmap.SetMask(new wxMask(mask, *wxBLACK));  // owned by the bitmap
  }
  wxPoint const corner(std::max(area.x, 0), std::max(area.y, 0));
  painter->DrawBitmap(wxPoint2DDouble(corner) + framenote::PaintingOffset(painter, offset), bitmap);
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
    if (auto *const selected = selectedObject()) selected->PrepareResizing();
    m_tool->m_state = ToolState::Rotating;
  } else if (event.GetEventType() == wxEVT_MOTION &&
             !selectedObject()->IsAtRotationPoint(m_tool->m_mousePosition)) {
    m_tool->leaveObject();
    m_tool->m_state = ToolState::Selected;
  } else if (event.GetEventType() == wxEVT_RIGHT_UP) {
    m_tool->popupRightClickMenuOnSelected();
  }
}

void BoxToolMode::OnMouseRotating(wxMouseEvent const &event) {
  if (event.GetEventType() == wxEVT_LEFT_UP) {
    m_tool->setNextStateOnSelected();
    m_tool->onObjectsModified();
  } else if (event.GetEventType() == wxEVT_MOTION) {
    if (auto *const shape = selectedAs<AnnShape>()) shape->Rotate(mousePixel());
  }
}
