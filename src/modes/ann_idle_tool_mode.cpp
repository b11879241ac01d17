// SPDX-License-Identifier: MIT
#include "modes/ann_idle_tool_mode.h"

AnnIdleToolMode::AnnIdleToolMode(Types modeId, AnnotationTool *tool)
    : IAnnotationToolMode(modeId, tool) {}

void AnnIdleToolMode::DrawPreview(std::unique_ptr<IAnnPainter> &, wxPoint2DDouble const &) {}

void AnnIdleToolMode::ApplyProperties() {}

void AnnIdleToolMode::OnMouseDrawing(wxMouseEvent const &) {}

void AnnIdleToolMode::OnMouseResizing(wxMouseEvent const &) {}
