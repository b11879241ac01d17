// SPDX-License-Identifier: MIT
#include "host/host_calls.h"

#include <cstddef>

namespace framenote::fuzz {

namespace {

constexpr HostCall kCalls[] = {
    {HostCallId::Mouse, "Mouse", CallMouse},
    {HostCallId::Drag, "Drag", CallDrag},
    {HostCallId::FarMouse, "FarMouse", CallFarMouse},
    {HostCallId::SetView, "SetView", CallSetView},
    {HostCallId::SetTool, "SetTool", CallSetTool},
    {HostCallId::SetShapeLook, "SetShapeLook", CallSetShapeLook},
    {HostCallId::SetArrowLook, "SetArrowLook", CallSetArrowLook},
    {HostCallId::SetPencilLook, "SetPencilLook", CallSetPencilLook},
    {HostCallId::SetTextLook, "SetTextLook", CallSetTextLook},
    {HostCallId::SetImageLook, "SetImageLook", CallSetImageLook},
    {HostCallId::SetHideLook, "SetHideLook", CallSetHideLook},
    {HostCallId::SetMagnifyLook, "SetMagnifyLook", CallSetMagnifyLook},
    {HostCallId::SetPastedPicture, "SetPastedPicture", CallSetPastedPicture},
    {HostCallId::GoToFrame, "GoToFrame", CallGoToFrame},
    {HostCallId::UpdateMediaInfo, "UpdateMediaInfo", CallUpdateMediaInfo},
    {HostCallId::SetImage, "SetImage", CallSetImage},
    {HostCallId::Command, "Command", CallCommand},
    {HostCallId::SelectObject, "SelectObject", CallSelectObject},
    {HostCallId::MoveSelected, "MoveSelected", CallMoveSelected},
    {HostCallId::SetMacros, "SetMacros", CallSetMacros},
    {HostCallId::AddTextMacro, "AddTextMacro", CallAddTextMacro},
    {HostCallId::Draw, "Draw", CallDraw},
    {HostCallId::DrawOnlySelected, "DrawOnlySelected", CallDrawOnlySelected},
    {HostCallId::DrawWithGraphics, "DrawWithGraphics", CallDrawWithGraphics},
    {HostCallId::GetAnnotatedFrame, "GetAnnotatedFrame", CallGetAnnotatedFrame},
    {HostCallId::KeepDocument, "KeepDocument", CallKeepDocument},
    {HostCallId::LoadDocument, "LoadDocument", CallLoadDocument},
    {HostCallId::LoadForeign, "LoadForeign", CallLoadForeign},
    {HostCallId::LoadAltered, "LoadAltered", CallLoadAltered},
    {HostCallId::CloneFrom, "CloneFrom", CallCloneFrom},
    {HostCallId::SetRange, "SetRange", CallSetRange},
    {HostCallId::Deactivate, "Deactivate", CallDeactivate},
    {HostCallId::SetVisible, "SetVisible", CallSetVisible},
    {HostCallId::EnableMouse, "EnableMouse", CallEnableMouse},
    {HostCallId::Clear, "Clear", CallClear},
    {HostCallId::GoToObject, "GoToObject", CallGoToObject},
    {HostCallId::SetExtension, "SetExtension", CallSetExtension},
    {HostCallId::Query, "Query", CallQuery},
};

constexpr std::size_t kCount = sizeof(kCalls) / sizeof(kCalls[0]);

constexpr bool IsInOrder() {
  for (std::size_t i = 0; i < kCount; ++i) {
    if (static_cast<std::size_t>(kCalls[i].id) != i) return false;
  }
  return kCount == static_cast<std::size_t>(HostCallId::Count);
}
static_assert(IsInOrder());

}  // namespace

HostCall const *FindCall(std::uint8_t id) {
  return id < kCount ? &kCalls[id] : nullptr;
}

}  // namespace framenote::fuzz
