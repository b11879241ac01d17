// SPDX-License-Identifier: MIT
#include "modes/ann_shape_tool_mode.h"

#include "framenote/annotation_tool.h"
#include "objects/ann_shape.h"
#include "objects/object_painting.h"
#include "painters/ann_painter.h"
#include "painters/drawing_tools.h"

using framenote::IsVisible;

AnnShapeToolMode::AnnShapeToolMode(Types modeId, AnnotationTool *tool)
    : BoxToolMode(modeId, tool), m_properties(std::make_shared<AnnShapeProperties>()) {}

void AnnShapeToolMode::finishBox(wxRect const &rect) {
  finishDrawing(
      std::make_unique<AnnShape>(shared_from_this(), rect, m_tool->GetMediaInfo().frameIndex));
}

void AnnShapeToolMode::DrawPreview(std::unique_ptr<IAnnPainter> &painter,
                                   wxPoint2DDouble const &offset) {
  if (!hasPreview(painter)) return;
  wxRect const box = onSurface(painter, offset);
  switch (m_properties->GetShape()) {
    case AnnShapeProperties::Rectangle:
      previewRectangle(*painter, box);
      break;
    case AnnShapeProperties::Ellipse:
      previewEllipse(*painter, box);
      break;
  }
}

void AnnShapeToolMode::previewRectangle(IAnnPainter &painter, wxRect const &rect) const {
  bool const fill = IsVisible(m_properties->GetFillColor());
  wxColour const border = m_properties->GetBorderColor();
  int const thickness = m_properties->GetThickness();
  if (!IsVisible(border)) {
    if (fill) painter.DrawRectangle(rect, m_properties->GetFillColor());
  } else if (fill && hasRoom(rect, thickness)) {
    painter.DrawRectangleWithBorder(rect, *m_properties);
  } else {
    previewBorder(painter, rect, AnnShapeProperties::Rectangle, border, thickness);
  }
}

void AnnShapeToolMode::previewEllipse(IAnnPainter &painter, wxRect const &rect) const {
  bool const fill = IsVisible(m_properties->GetFillColor());
  wxColour const border = m_properties->GetBorderColor();
  int const thickness = m_properties->GetThickness();
  if (!IsVisible(border)) {
    if (fill) painter.DrawEllipse(rect, m_properties->GetFillColor());
  } else if (fill && hasRoom(rect, thickness)) {
    painter.DrawEllipseWithBorder(rect, *m_properties);
  } else {
    previewBorder(painter, rect, AnnShapeProperties::Ellipse, border, thickness);
  }
}
