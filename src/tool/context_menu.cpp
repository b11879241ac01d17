// SPDX-License-Identifier: MIT
#include "tool/context_menu.h"

#include <string>

#include <wx/translation.h>

namespace framenote {

namespace {

using Command = AnnotationCommand;

/// Items that are separated by a line from those before them.
enum class Group { Clipboard, Order, Mode, Range, Jump };

struct Item {
  Command command;
  char const *label;
  Group group;
};

// The labels are keys of catalogues, which have this form of a 64-bit number.
constexpr char const *kNumber = "%I64d";
constexpr Item kItems[] = {
    {Command::Copy, wxTRANSLATE("Copy"), Group::Clipboard},
    {Command::Paste, wxTRANSLATE("Paste"), Group::Clipboard},
    {Command::Delete, wxTRANSLATE("Delete"), Group::Clipboard},
    {Command::BringToFront, wxTRANSLATE("Bring to Front"), Group::Order},
    {Command::BringForward, wxTRANSLATE("Bring Forward"), Group::Order},
    {Command::SendBackward, wxTRANSLATE("Send Backward"), Group::Order},
    {Command::SendToBack, wxTRANSLATE("Send to Back"), Group::Order},
    // TRANSLATORS: a pasted picture gets its own size back.
    {Command::ResetToOriginal, wxTRANSLATE("Reset to Original"), Group::Mode},
    {Command::FitToImage, wxTRANSLATE("Fit to Image"), Group::Mode},
    // TRANSLATORS: a magnifier enlarges what is under it again.
    {Command::DefaultZoomPosition, wxTRANSLATE("Default Zoom Position"), Group::Mode},
    // TRANSLATORS: in which frames the selected object is there.
    {Command::SetOnlyForThisFrame, wxTRANSLATE("Set Only for This Frame"), Group::Range},
    {Command::SetFromThisFrame, wxTRANSLATE("Set From This Frame"), Group::Range},
    {Command::SetUntilThisFrame, wxTRANSLATE("Set Until This Frame"), Group::Range},
    {Command::SetForAllFrames, wxTRANSLATE("Set for All Frames"), Group::Range},
    // TRANSLATORS: "%I64d" is a number and stays as it is.
    {Command::GoToFirstFrame, wxTRANSLATE("Go to First Frame (%I64d)"), Group::Jump},
    {Command::GoToLastFrame, wxTRANSLATE("Go to Last Frame (%I64d)"), Group::Jump}};

bool IsShown(Command command, ContextMenuState const &state) {
  switch (command) {
    case Command::Paste:
      return true;
    case Command::ResetToOriginal:
    case Command::FitToImage:
      return state.isOnObject && state.mode == Types::Image;
    case Command::DefaultZoomPosition:
      return state.isOnObject && state.mode == Types::Magnify;
    default:
      return state.isOnObject;
  }
}

bool IsEnabled(Command command, ContextMenuState const &state) {
  switch (command) {
    case Command::Paste:
      return state.canPaste;
    case Command::BringToFront:
    case Command::BringForward:
      return !state.isInFront;
    default:
      return true;
  }
}

wxString LabelOf(Item const &item, ContextMenuState const &state) {
  wxString label = wxGetTranslation(item.label);
  bool const isLast = item.command == Command::GoToLastFrame;
  label.Replace(kNumber, std::to_string(isLast ? state.lastFrame : state.firstFrame));
  return label;
}

}  // namespace

std::unique_ptr<wxMenu> MakeContextMenu(ContextMenuState const &state) {
  auto menu = std::make_unique<wxMenu>();
  Group last = Group::Clipboard;
  for (Item const &item : kItems) {
    if (!IsShown(item.command, state)) continue;
    if (item.group != last) menu->AppendSeparator();
    last = item.group;
    int const id = static_cast<int>(item.command);
    menu->Append(id, LabelOf(item, state));
    menu->Enable(id, IsEnabled(item.command, state));
  }
  return menu;
}

}  // namespace framenote
