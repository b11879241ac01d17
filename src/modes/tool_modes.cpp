// SPDX-License-Identifier: MIT
#include "modes/tool_modes.h"

#include <utility>

#include "modes/ann_arrow_tool_mode.h"
#include "modes/ann_general_tool_mode.h"
#include "modes/ann_hide_tool_mode.h"
#include "modes/ann_idle_tool_mode.h"
#include "modes/ann_image_tool_mode.h"
#include "modes/ann_magnify_tool_mode.h"
#include "modes/ann_pencil_tool_mode.h"
#include "modes/ann_shape_tool_mode.h"
#include "modes/ann_text_tool_mode.h"

ToolModes::ToolModes(
    std::shared_ptr<AnnIdleToolMode> idleMode, std::shared_ptr<AnnShapeToolMode> shapeMode,
    std::shared_ptr<AnnArrowToolMode> arrowMode, std::shared_ptr<AnnPencilToolMode> pencilMode,
    std::shared_ptr<AnnTextToolMode> textMode, std::shared_ptr<AnnImageToolMode> imageMode,
    std::shared_ptr<AnnHideToolMode> hideMode, std::shared_ptr<AnnMagnifyToolMode> magnifyMode,
    std::shared_ptr<AnnGeneralToolMode> generalMode)
    : idle(std::move(idleMode)),
      shape(std::move(shapeMode)),
      arrow(std::move(arrowMode)),
      pencil(std::move(pencilMode)),
      text(std::move(textMode)),
      image(std::move(imageMode)),
      hide(std::move(hideMode)),
      magnify(std::move(magnifyMode)),
      general(std::move(generalMode)) {}

std::shared_ptr<IAnnotationToolMode> ToolModes::Of(Types mode) const {
  switch (mode) {
    case Types::Idle:
      return idle;
    case Types::Shape:
      return shape;
    case Types::Arrow:
      return arrow;
    case Types::Pencil:
      return pencil;
    case Types::Text:
      return text;
    case Types::Image:
      return image;
    case Types::Hide:
      return hide;
    case Types::Magnify:
      return magnify;
    case Types::General:
      return general;
  }
  return nullptr;
}
