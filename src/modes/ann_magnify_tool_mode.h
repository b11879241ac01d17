// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "modes/box_tool_mode.h"
#include "properties/ann_magnify_properties.h"

/// Drags out lenses, showing what they enlarge while they are dragged. The centre of what a lens
/// shows can be dragged alone.
class FRAMENOTE_API AnnMagnifyToolMode : public BoxToolMode,
                                         public std::enable_shared_from_this<AnnMagnifyToolMode> {
public:
  /// Made by `tool`, which owns it.
  AnnMagnifyToolMode(Types modeId, AnnotationTool *tool);

  void DrawPreview(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset) override;
  void OnMouseSelected(wxMouseEvent const &event) override;

  /// The look of the next lens. Never null.
  std::shared_ptr<AnnMagnifyProperties> m_properties;

private:
  void finishBox(wxRect const &rect) override;
  /// Whether the pointer holds the centre of what the selected lens shows; it is then the place
  /// that a move starts from.
  bool takeCenterPoint();
};
