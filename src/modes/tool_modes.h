// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "framenote/annotation_types.h"
#include "framenote/export.h"

class AnnArrowToolMode;
class AnnGeneralToolMode;
class AnnHideToolMode;
class AnnIdleToolMode;
class AnnImageToolMode;
class AnnMagnifyToolMode;
class AnnPencilToolMode;
class AnnShapeToolMode;
class AnnTextToolMode;
class IAnnotationToolMode;

/// The modes of one tool, each by its concrete class. A plain record.
struct FRAMENOTE_API ToolModes {
  /// All null.
  ToolModes() = default;
  /// REQUIRES: none is null.
  ToolModes(std::shared_ptr<AnnIdleToolMode> idleMode, std::shared_ptr<AnnShapeToolMode> shapeMode,
            std::shared_ptr<AnnArrowToolMode> arrowMode,
            std::shared_ptr<AnnPencilToolMode> pencilMode,
            std::shared_ptr<AnnTextToolMode> textMode, std::shared_ptr<AnnImageToolMode> imageMode,
            std::shared_ptr<AnnHideToolMode> hideMode,
            std::shared_ptr<AnnMagnifyToolMode> magnifyMode,
            std::shared_ptr<AnnGeneralToolMode> generalMode);

  /// The mode of that number; null if there is none.
  std::shared_ptr<IAnnotationToolMode> Of(Types mode) const;

  ///@{
  /// The mode, with the record of the next object's look. Null only in a default-made record.
  std::shared_ptr<AnnIdleToolMode> idle;
  std::shared_ptr<AnnShapeToolMode> shape;
  std::shared_ptr<AnnArrowToolMode> arrow;
  std::shared_ptr<AnnPencilToolMode> pencil;
  std::shared_ptr<AnnTextToolMode> text;
  std::shared_ptr<AnnImageToolMode> image;
  std::shared_ptr<AnnHideToolMode> hide;
  std::shared_ptr<AnnMagnifyToolMode> magnify;
  std::shared_ptr<AnnGeneralToolMode> general;
  ///@}
};
