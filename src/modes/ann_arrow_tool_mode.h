// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "modes/annotation_tool_mode.h"
#include "properties/ann_arrow_properties.h"

/// Drags out arrows, from the tail to the head, and moves their ends.
class FRAMENOTE_API AnnArrowToolMode : public IAnnotationToolMode,
                                       public std::enable_shared_from_this<AnnArrowToolMode> {
public:
  /// Made by `tool`, which owns it.
  AnnArrowToolMode(Types modeId, AnnotationTool *tool);

  void DrawPreview(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset) override;
  void ApplyProperties() override;
  void OnMouseDrawing(wxMouseEvent const &event) override;
  void OnMouseResizing(wxMouseEvent const &event) override;

  /// The look of the next arrow. Never null.
  std::shared_ptr<AnnArrowProperties> m_properties;

private:
  int m_minimalLength = 5;  ///< picture pixels
};
