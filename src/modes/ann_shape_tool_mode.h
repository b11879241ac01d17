// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "modes/box_tool_mode.h"
#include "properties/ann_shape_properties.h"

/// Drags out rectangles and ellipses, and resizes and turns them.
class FRAMENOTE_API AnnShapeToolMode : public BoxToolMode,
                                       public std::enable_shared_from_this<AnnShapeToolMode> {
public:
  /// Made by `tool`, which owns it.
  AnnShapeToolMode(Types modeId, AnnotationTool *tool);

  void DrawPreview(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset) override;

  /// The look of the next shape. Never null.
  std::shared_ptr<AnnShapeProperties> m_properties;

private:
  void finishBox(wxRect const &rect) override;
  void previewRectangle(IAnnPainter &painter, wxRect const &rect) const;
  void previewEllipse(IAnnPainter &painter, wxRect const &rect) const;
};
