// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>

#include <wx/menu.h>

#include "framenote/annotation_types.h"
#include "framenote/export.h"

namespace framenote {

/// What the menu is about.
struct FRAMENOTE_API ContextMenuState {
  bool isOnObject;          ///< there is a selected object
  bool canPaste;            ///< the clipboard holds an object
  bool isInFront;           ///< the selected object is the first
  Types mode;               ///< the active one
  std::int64_t firstFrame;  ///< of the selected object
  std::int64_t lastFrame;   ///< of the selected object
};

/// The menu of a right click, its labels translated. The items' identifiers are the values of
/// AnnotationCommand.
FRAMENOTE_API std::unique_ptr<wxMenu> MakeContextMenu(ContextMenuState const &state);

}  // namespace framenote
