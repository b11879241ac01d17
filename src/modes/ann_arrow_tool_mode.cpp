// SPDX-License-Identifier: MIT
#include "modes/ann_arrow_tool_mode.h"

#include "framenote/annotation_tool.h"
#include "objects/ann_arrow.h"
#include "painters/ann_painter.h"

AnnArrowToolMode::AnnArrowToolMode(Types modeId, AnnotationTool *tool)
    : IAnnotationToolMode(modeId, tool), m_properties(std::make_shared<AnnArrowProperties>()) {}

void AnnArrowToolMode::ApplyProperties() {
  applyPropertiesToSelected(true);
}

void AnnArrowToolMode::OnMouseDrawing(wxMouseEvent const &event) {
  if (event.GetEventType() != wxEVT_LEFT_UP) return;
  wxPoint2DDouble const press(m_tool->m_pressPosition);
  if (press.GetDistance(wxPoint2DDouble(m_tool->m_mousePosition)) < m_minimalLength) {
    m_tool->moveMouseDefault();
  } else {
    finishDrawing(std::make_unique<AnnArrow>(shared_from_this(), m_tool->m_mousePosition,
                                             m_tool->m_pressPosition,
                                             m_tool->GetMediaInfo().frameIndex));
  }
  forgetPositions();
}

void AnnArrowToolMode::OnMouseResizing(wxMouseEvent const &event) {
  if (event.GetEventType() == wxEVT_MOTION) {
    if (auto *const arrow = selectedAs<AnnArrow>()) arrow->ModifyTo(m_tool->m_mousePosition);
  } else if (event.GetEventType() == wxEVT_LEFT_UP) {
    finishResizing();
  }
}

void AnnArrowToolMode::DrawPreview(std::unique_ptr<IAnnPainter> &painter,
                                   wxPoint2DDouble const &offset) {
  if (!painter || !isDrawing()) return;
  AnnArrow const preview(shared_from_this(), m_tool->m_mousePosition, m_tool->m_pressPosition,
                         m_tool->GetMediaInfo().frameIndex);
  preview.Draw(painter, offset);
}
