// SPDX-License-Identifier: MIT
#include "modes/ann_pencil_tool_mode.h"

#include "framenote/annotation_tool.h"
#include "objects/ann_pencil.h"
#include "painters/ann_painter.h"

AnnPencilToolMode::AnnPencilToolMode(Types modeId, AnnotationTool *tool)
    : IAnnotationToolMode(modeId, tool), m_properties(std::make_shared<AnnPencilProperties>()) {}

void AnnPencilToolMode::ApplyProperties() {
  applyPropertiesToSelected(true);
}

void AnnPencilToolMode::DiscardDrawing() {
  m_points.clear();
}

void AnnPencilToolMode::OnMouseDrawing(wxMouseEvent const &event) {
  if (m_points.empty()) m_points.assign(1, m_tool->m_pressPosition);
  if (event.GetEventType() == wxEVT_MOTION) {
    m_points.push_back(m_tool->m_mousePosition);
    return;
  }
  if (event.GetEventType() != wxEVT_LEFT_UP) return;
  // The release adds no point of its own.
  if (m_points.size() < m_minimalPointCount) {
    m_tool->moveMouseDefault();
  } else {
    finishDrawing(std::make_unique<AnnPencil>(shared_from_this(), m_points,
                                              m_tool->GetMediaInfo().frameIndex));
  }
  forgetPositions();
  DiscardDrawing();
}

void AnnPencilToolMode::OnMouseResizing(wxMouseEvent const &) {}

void AnnPencilToolMode::DrawPreview(std::unique_ptr<IAnnPainter> &painter,
                                    wxPoint2DDouble const &offset) {
  if (!painter || !isDrawing() || m_points.empty()) return;
  AnnPencil const preview(shared_from_this(), m_points, m_tool->GetMediaInfo().frameIndex);
  preview.Draw(painter, offset);
}
