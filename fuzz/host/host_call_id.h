// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

namespace framenote::fuzz {

// An input: the header, then calls of kCallSize bytes each, the first of which tells the call. What
// the other bytes mean stands at the function of the call. Calls without a name do nothing, and a
// last call that is cut short reads zeros.

constexpr std::size_t kHeaderSize = 2;  ///< see HostSession
constexpr std::size_t kCallSize = 6;
constexpr std::size_t kMaxCalls = 200;

/// The calls. Inputs are kept by these numbers: new ones go to the end.
enum class HostCallId : std::uint8_t {
  Mouse = 0,
  Drag,
  FarMouse,
  SetView,
  SetTool,
  SetShapeLook,
  SetArrowLook,
  SetPencilLook,
  SetTextLook,
  SetImageLook,
  SetHideLook,
  SetMagnifyLook,
  SetPastedPicture,
  GoToFrame,
  UpdateMediaInfo,
  SetImage,
  Command,
  SelectObject,
  MoveSelected,
  SetMacros,
  AddTextMacro,
  Draw,
  DrawOnlySelected,
  DrawWithGraphics,
  GetAnnotatedFrame,
  KeepDocument,
  LoadDocument,
  LoadForeign,
  LoadAltered,
  CloneFrom,
  SetRange,
  Deactivate,
  SetVisible,
  EnableMouse,
  Clear,
  GoToObject,
  SetExtension,
  Query,
  Count
};

}  // namespace framenote::fuzz
