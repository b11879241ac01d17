// SPDX-License-Identifier: MIT
#pragma once

#include "modes/annotation_tool_mode.h"

/// The mode of the general panel: objects can be selected and moved, and a press on nothing does
/// nothing.
class FRAMENOTE_API AnnGeneralToolMode : public IAnnotationToolMode {
public:
  /// Made by `tool`, which owns it.
  AnnGeneralToolMode(Types modeId, AnnotationTool *tool);

  bool CanStartDrawing() const override { return false; }
  void DrawPreview(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset) override;
  void ApplyProperties() override;
  void OnMouseDrawing(wxMouseEvent const &event) override;
  void OnMouseResizing(wxMouseEvent const &event) override;
};
