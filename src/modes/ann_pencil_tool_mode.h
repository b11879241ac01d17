// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "modes/annotation_tool_mode.h"
#include "properties/ann_pencil_properties.h"

/// Draws freehand strokes.
class FRAMENOTE_API AnnPencilToolMode : public IAnnotationToolMode,
                                        public std::enable_shared_from_this<AnnPencilToolMode> {
public:
  /// Made by `tool`, which owns it.
  AnnPencilToolMode(Types modeId, AnnotationTool *tool);

  void DrawPreview(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset) override;
  void ApplyProperties() override;
  void DiscardDrawing() override;
  void OnMouseDrawing(wxMouseEvent const &event) override;
  /// A stroke has no handles.
  void OnMouseResizing(wxMouseEvent const &event) override;

  /// The look of the next stroke. Never null.
  std::shared_ptr<AnnPencilProperties> m_properties;

private:
  std::size_t m_minimalPointCount = 5;
  std::vector<wxPoint2DInt> m_points;  ///< the stroke so far; empty between drags
};
