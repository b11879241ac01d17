// SPDX-License-Identifier: MIT
#include "modes/tool_modes.h"

#include <utility>

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
