// SPDX-License-Identifier: MIT
#include "modes/ann_shape_tool_mode.h"

#include <mutex>

#include "coordinates/pixel_geometry.h"
#include "framenote/annotation_tool.h"
#include "objects/ann_shape.h"
#include "objects/object_painting.h"
#include "painters/ann_painter.h"
#include "painters/drawing_tools.h"

using framenote::IsVisible;

namespace {

/// Whether a border of `thickness` leaves an inside.
bool HasRoom(wxRect const &rect, int thickness) {
  return rect.width / 2.0 > thickness && rect.height / 2.0 > thickness;
}

wxPoint ToPoint(wxPoint2DInt const &point) {
  wxPoint2DInt const clamped = framenote::ClampToPixels(point);
  return {clamped.m_x, clamped.m_y};
}

}  // namespace

AnnShapeToolMode::AnnShapeToolMode(Types modeId, AnnotationTool *tool)
    : IAnnotationToolMode(modeId, tool),
      m_properties(std::make_shared<AnnShapeProperties>()),
      m_minimalSize(5, 5) {}

void AnnShapeToolMode::ApplyProperties() {
  applyPropertiesToSelected(false);
}

void AnnShapeToolMode::DiscardDrawing() {
  m_rect = wxRect();
}

wxRect AnnShapeToolMode::rectOfDrag(wxMouseEvent const &event) const {
  return AnnShape::GetRectOrSquare(ToPoint(m_tool->m_pressPosition),
                                   ToPoint(m_tool->m_mousePosition), isSquareKey(event));
}

bool AnnShapeToolMode::isTooSmall() const {
  return m_rect.width < m_minimalSize.x || m_rect.height < m_minimalSize.y;
}

void AnnShapeToolMode::OnMouseDrawing(wxMouseEvent const &event) {
  if (event.GetEventType() == wxEVT_MOTION) {
    m_rect = rectOfDrag(event);
    return;
  }
  if (event.GetEventType() != wxEVT_LEFT_UP) return;
  // The last motion decides whether there is an object, the release what it spans.
  if (isTooSmall()) {
    m_tool->moveMouseDefault();
  } else {
    finishDrawing(std::make_unique<AnnShape>(shared_from_this(), rectOfDrag(event),
                                             m_tool->GetMediaInfo().frameIndex));
  }
  DiscardDrawing();
}

void AnnShapeToolMode::OnMouseResizing(wxMouseEvent const &event) {
  bool const isMotion = event.GetEventType() == wxEVT_MOTION;
  if (!isMotion && event.GetEventType() != wxEVT_LEFT_UP) return;
  auto *const shape = selectedAs<AnnShape>();
  if (shape == nullptr) return;
  if (isMotion) shape->ResizeTo(m_tool->m_mousePosition, isSquareKey(event));
  {
    std::lock_guard<std::mutex> const lock(shape->GetCoordinatesMutex());
    shape->CheckIfReflectedAlongAxis(lock, !isMotion);
  }
  if (!isMotion) finishResizing();
}

void AnnShapeToolMode::OnMouseAtRotationPoint(wxMouseEvent const &event) {
  onShapeMouseAtRotationPoint(event);
}

void AnnShapeToolMode::OnMouseRotating(wxMouseEvent const &event) {
  onShapeMouseRotating(event);
}

void AnnShapeToolMode::DrawPreview(std::unique_ptr<IAnnPainter> &painter,
                                   wxPoint2DDouble const &offset) {
  if (!painter || !isDrawing() || m_rect == wxRect()) return;
  wxRect const rect = onSurface(painter, offset);
  switch (m_properties->GetShape()) {
    case AnnShapeProperties::Rectangle:
      previewRectangle(*painter, rect);
      break;
    case AnnShapeProperties::Ellipse:
      previewEllipse(*painter, rect);
      break;
  }
}

wxRect AnnShapeToolMode::onSurface(std::unique_ptr<IAnnPainter> const &painter,
                                   wxPoint2DDouble const &offset) const {
  wxPoint2DDouble const shift = framenote::PaintingOffset(painter, offset);
  return wxRect(IAnnotationObject::GetRounded(wxPoint2DDouble(m_rect.GetTopLeft()) + shift),
                IAnnotationObject::GetRounded(wxPoint2DDouble(m_rect.GetBottomRight()) + shift));
}

void AnnShapeToolMode::previewRectangle(IAnnPainter &painter, wxRect const &rect) const {
  bool const fill = IsVisible(m_properties->GetFillColor());
  wxColour const border = m_properties->GetBorderColor();
  int const thickness = m_properties->GetThickness();
  if (!IsVisible(border)) {
    if (fill) painter.DrawRectangle(rect, m_properties->GetFillColor());
  } else if (!HasRoom(rect, thickness)) {
    painter.DrawRectangle(rect, border);
  } else if (fill) {
    painter.DrawRectangleWithBorder(rect, *m_properties);
  } else {
    painter.DrawBorderOfRectangle(rect, border, thickness);
  }
}

void AnnShapeToolMode::previewEllipse(IAnnPainter &painter, wxRect const &rect) const {
  bool const fill = IsVisible(m_properties->GetFillColor());
  wxColour const border = m_properties->GetBorderColor();
  int const thickness = m_properties->GetThickness();
  if (!IsVisible(border)) {
    if (fill) painter.DrawEllipse(rect, m_properties->GetFillColor());
  } else if (!HasRoom(rect, thickness)) {
    painter.DrawEllipse(rect, border);
  } else if (fill) {
    painter.DrawEllipseWithBorder(rect, *m_properties);
  } else {
    painter.DrawBorderOfEllipse(rect, border, thickness);
  }
}
