// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "modes/annotation_tool_mode.h"

/// The mode of no tool: objects can be selected, moved and changed, and nothing is drawn.
class FRAMENOTE_API AnnIdleToolMode : public IAnnotationToolMode,
                                      public std::enable_shared_from_this<AnnIdleToolMode> {
public:
  /// Made by `tool`, which owns it.
  AnnIdleToolMode(Types modeId, AnnotationTool *tool);

  bool CanStartDrawing() const override { return false; }
  void DrawPreview(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset) override;
  void ApplyProperties() override;
  void OnMouseDrawing(wxMouseEvent const &event) override;
  void OnMouseResizing(wxMouseEvent const &event) override;
};
