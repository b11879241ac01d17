// SPDX-License-Identifier: MIT
// The menu of a right click, and what its items do to the selected object.
#include <algorithm>
#include <iterator>
#include <utility>

#include <wx/menu.h>
#include <wx/window.h>

#include "coordinates/pixel_geometry.h"
#include "framenote/annotation_events.h"
#include "framenote/annotation_tool.h"
#include "modes/ann_image_tool_mode.h"
#include "objects/ann_image.h"
#include "objects/ann_magnify.h"
#include "tool/context_menu.h"

namespace {

std::int64_t LastFrameOf(AnnotationMediaInfo const &info) {
  return std::max<std::int64_t>(info.frameCount - 1, 0);
}

// What only one kind of object can do. The selected one can be of another kind than the active
// mode, for which the menu was made: then the result is false.

bool ResetToOriginal(IAnnotationObject &object, AnnImageProperties &record) {
  auto *const image = dynamic_cast<AnnImage *>(&object);
  if (image == nullptr) return false;
  image->ResetToOriginal();
  record.SetKeepAspectRatio(true);
  return true;
}

bool FitToImage(IAnnotationObject &object, wxImage const &picture) {
  auto *const image = dynamic_cast<AnnImage *>(&object);
  if (image == nullptr || !picture.IsOk()) return false;
  image->FitToImage(picture.GetSize());
  return true;
}

bool ResetCentre(IAnnotationObject &object) {
  auto *const lens = dynamic_cast<AnnMagnify *>(&object);
  if (lens == nullptr) return false;
  lens->ResetCenterPosition();
  return true;
}

/// Where a picture point is on a window, or the nearest place on it.
wxPoint PlaceInWindow(wxPoint2DDouble const &point, wxPoint2DDouble const &offset, double scale,
                      wxSize const &size) {
  wxPoint2DDouble const seen((point.m_x + offset.m_x) * scale, (point.m_y + offset.m_y) * scale);
  wxPoint const pixel = framenote::RoundToPixel(seen);
  return {std::clamp(pixel.x, 0, std::max(size.GetWidth() - 1, 0)),
          std::clamp(pixel.y, 0, std::max(size.GetHeight() - 1, 0))};
}

}  // namespace

void AnnotationTool::popupRightClickMenu(bool onObject) {
  popupMenuAt(onObject, wxDefaultPosition);
}

void AnnotationTool::popupMenuAt(bool onObject, wxPoint const &place) {
  Refresh();
  if (m_drawOn == nullptr) return;
  IAnnotationObject const *const selected = GetSelectedObject();
  std::pair<std::int64_t, std::int64_t> frames(-1, -1);
  if (selected != nullptr) frames = selected->GetFrameDuration();
  std::unique_ptr<wxMenu> const menu = framenote::MakeContextMenu(
      {onObject && selected != nullptr, m_copiedObject != nullptr, m_selected == m_objects.begin(),
       m_activeTool->GetModeId(), frames.first, frames.second});
  menu->Bind(wxEVT_MENU, &AnnotationTool::onPopupClick, this);
  m_drawOn->PopupMenu(menu.get(), place);
}

void AnnotationTool::popupRightClickMenuOnSelected() {
  auto it = m_objects.begin();
  bool const isHit = isMouseOnObject(it);
  if (isHit && !(*it)->IsSelected()) selectObject(false);
  popupRightClickMenu(isHit);
}

void AnnotationTool::PopupMenuByKey() {
  if (m_drawOn == nullptr || m_activeTool->IsEditing()) return;
  // What a command does may end the tool.
  std::shared_ptr<AnnotationTool> const self = weak_from_this().lock();
  wxSize const size = m_drawOn->GetClientSize();
  wxPoint place(size.GetWidth() / 2, size.GetHeight() / 2);
  if (hasSelection()) {
    wxPoint2DInt const corner = (*m_selected)->GetPastePoint();
    place = PlaceInWindow(wxPoint2DDouble(corner.m_x, corner.m_y), m_offset, m_scale, size);
  }
  popupMenuAt(hasSelection(), place);
}

void AnnotationTool::onCharHook(wxKeyEvent &event) {
  if (event.GetKeyCode() == WXK_DELETE && hasSelection()) {
    wxCommandEvent command(wxEVT_MENU, static_cast<int>(AnnotationCommand::Delete));
    onPopupClick(command);
    Refresh();
  }
  event.Skip(true);
}

void AnnotationTool::onPopupClick(wxCommandEvent &event) {
  auto const command = static_cast<AnnotationCommand>(event.GetId());
  if (command < AnnotationCommand::Copy || command > AnnotationCommand::GoToLastFrame) return;
  // A command acts on the text as it has been typed; Delete is the editor's.
  if (command != AnnotationCommand::Delete) commitEditing();
  if (command == AnnotationCommand::Paste) {
    onMenuPaste();
  } else if (command == AnnotationCommand::GoToFirstFrame) {
    onMenuGoToRange(false);
  } else if (command == AnnotationCommand::GoToLastFrame) {
    onMenuGoToRange(true);
  } else if (hasSelection()) {
    runOnSelected(command);
  }
}

// REQUIRES: an object is selected.
void AnnotationTool::runOnSelected(AnnotationCommand command) {
  std::int64_t const frame = m_mediaInfo.frameIndex;
  switch (command) {
    case AnnotationCommand::Copy:
      (*m_selected)->SetCopiedObject();
      break;
    case AnnotationCommand::Delete:
      onMenuDelete();
      break;
    case AnnotationCommand::BringToFront:
      m_objects.splice(m_objects.begin(), m_objects, m_selected);
      onOrderChanged();
      break;
    case AnnotationCommand::SendToBack:
      m_objects.splice(m_objects.end(), m_objects, m_selected);
      onOrderChanged();
      break;
    case AnnotationCommand::BringForward:
      if (m_selected != m_objects.begin()) swapSelectedWith(std::prev(m_selected));
      onOrderChanged();
      break;
    case AnnotationCommand::SendBackward:
      if (std::next(m_selected) != m_objects.end()) swapSelectedWith(std::next(m_selected));
      onOrderChanged();
      break;
    case AnnotationCommand::ResetToOriginal:
      if (!ResetToOriginal(**m_selected, *m_toolModes.image->m_properties)) break;
      UpdatePanelControls(Types::Image);
      onObjectsModified();
      break;
    case AnnotationCommand::FitToImage:
      if (FitToImage(**m_selected, m_image)) onObjectsModified();
      break;
    case AnnotationCommand::DefaultZoomPosition:
      if (ResetCentre(**m_selected)) onObjectsModified();
      break;
    case AnnotationCommand::SetOnlyForThisFrame:
      (*m_selected)->SetStartFrame(frame);
      (*m_selected)->SetEndFrame(frame);
      deselectAfterRangeChange();
      break;
    case AnnotationCommand::SetFromThisFrame:
      SetSelectedsAnnotationFromFrame(frame, LastFrameOf(m_mediaInfo));
      break;
    case AnnotationCommand::SetUntilThisFrame:
      SetSelectedsAnnotationEnd(frame);
      deselectAfterRangeChange();
      break;
    case AnnotationCommand::SetForAllFrames:
      SetSelectedsAnnotationStart(0);
      SetSelectedsAnnotationEnd(LastFrameOf(m_mediaInfo));
      break;
    default:
      break;
  }
}

void AnnotationTool::onMenuPaste() {
  if (!m_copiedObject) return;
  m_activeTool->DiscardDrawing();
  m_copiedObject->Paste();
  IAnnotationObject &clone = *m_objects.front();
  std::int64_t const frame = m_mediaInfo.frameIndex;
  if (clone.GetStartFrame() > frame) clone.SetStartFrame(frame);
  if (clone.GetEndFrame() < frame) clone.SetEndFrame(frame);
  // It may have been copied in another frame.
  clone.UpdateCoordinatesPointers(frame);
  clone.MoveAllFramesFor(framenote::SubtractPixels(m_mousePosition, clone.GetPastePoint()));
  // A lens shows what lies under it at its new place.
  if (auto *const lens = dynamic_cast<AnnMagnify *>(&clone))
    lens->UpdateSubImageAndSubBitmap(false);
  clone.OnObjectModified();
  onObjectsModified();
  changeSelectedTo(m_objects.begin(), false);
  m_state = ToolState::Selected;
}

void AnnotationTool::onMenuDelete() {
  // While a text is edited, the key is the editor's.
  if (m_activeTool->IsEditing()) return;
  if (!deleteSelectedIfWouldDisappear()) {
    Iterator const doomed = m_selected;
    changeSelectedToEnd();
    delete *doomed;
    m_objects.erase(doomed);
  }
  // Where the pointer is decides what comes next.
  m_state = ToolState::OverObject;
  leaveObject();
  onObjectsModified();
}

// The pointers are swapped, not the nodes, so the selection follows.
void AnnotationTool::swapSelectedWith(Iterator neighbour) {
  changeFocusedToEnd();
  std::swap(*m_selected, *neighbour);
  m_selected = neighbour;
  (*m_selected)->OnSelection(false);
}

void AnnotationTool::onOrderChanged() {
  setNextStateOnSelected();
  // A gesture that the command has cut off stays as it is, in the document too.
  onObjectsModified();
}

void AnnotationTool::deselectAfterRangeChange() {
  onObjectsModified();
  changeSelectedTo(m_objects.end(), false);
  SendAnnotationFrameRangeChangedEvent();
  leaveObject();
}

void AnnotationTool::onMenuGoToRange(bool toEnd) {
  if (!m_mediaInfo.IsVideo()) return;
  std::int64_t frame = -1;
  if (hasSelection()) frame = toEnd ? (*m_selected)->GetEndFrame() : (*m_selected)->GetStartFrame();
  auto const direction =
      toEnd ? AnnotationGoToFrameEvent::ToEnd : AnnotationGoToFrameEvent::ToStart;
  post(AnnotationGoToFrameEvent(wxEVT_ANN_GOTO_FRAME, direction, frame));
}
