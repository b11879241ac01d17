// SPDX-License-Identifier: MIT
#include "modes/ann_general_tool_mode.h"

#include "framenote/annotation_tool.h"

AnnGeneralToolMode::AnnGeneralToolMode(Types modeId, AnnotationTool *tool)
    : IAnnotationToolMode(modeId, tool) {}

void AnnGeneralToolMode::DrawPreview(std::unique_ptr<IAnnPainter> &, wxPoint2DDouble const &) {}

void AnnGeneralToolMode::ApplyProperties() {}

void AnnGeneralToolMode::OnMouseDrawing(wxMouseEvent const &) {}

void AnnGeneralToolMode::OnMouseResizing(wxMouseEvent const &) {}
