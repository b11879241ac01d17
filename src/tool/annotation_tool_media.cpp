// SPDX-License-Identifier: MIT
// The picture, the position in the media, and the frame range of the selected object.
#include <algorithm>
#include <functional>
#include <map>
#include <stdexcept>
#include <vector>

#include <wx/bitmap.h>
#include <wx/translation.h>

#include <opencv2/core.hpp>

#include "framenote/annotation_tool.h"
#include "modes/ann_hide_tool_mode.h"
#include "modes/ann_text_tool_mode.h"
#include "objects/ann_hide.h"
#include "objects/ann_magnify.h"
#include "objects/ann_text.h"
#include "talbase/layout_direction.h"
#include "tool/worker_tasks.h"

namespace {

void MirrorInPlace(wxImage const &image) {
  cv::Mat pixels(image.GetHeight(), image.GetWidth(), CV_8UC3, image.GetData());
  cv::flip(pixels, pixels, 1);
}

/// The regions of one strength share the work on the whole picture, so one of them does it.
void HideWholePictures(std::vector<AnnHide *> const &regions) {
  std::map<int, AnnHide *> ofStrength;
  for (AnnHide *region : regions)
    ofStrength.emplace(region->HideProperties().GetStrength(), region);
  std::vector<std::function<void()>> tasks;
  tasks.reserve(ofStrength.size());
  for (auto const &[strength, region] : ofStrength) {
    tasks.emplace_back([region = region] { region->HideWholeImageAndStoreAsBitmap(); });
  }
  framenote::RunTasks(tasks);
}

}  // namespace

void AnnotationTool::SetImage(wxImage const &image, bool refreshCaches) {
  if (image.IsOk() && TalHasRTLLayout()) MirrorInPlace(image);
  takePicture(image);
  if (m_image.IsOk()) refreshBitmaps(refreshCaches);
  Refresh();
}

void AnnotationTool::takePicture(wxImage const &image) {
  m_image = image.IsOk() ? image : wxNullImage;
  m_toolModes.hide->SetPicture(m_image);
}

bool AnnotationTool::isShown(IAnnotationObject const &object) const {
  return object.IsPresentInFrame(m_mediaInfo.frameIndex) || object.IsSelected();
}

// Each task works on one object, and reads the picture; nothing else is shared that is not locked.
void AnnotationTool::refreshBitmaps(bool wholePictures) {
  std::vector<AnnHide *> regions;
  std::vector<AnnMagnify *> lenses;
  for (IAnnotationObject *object : m_objects) {
    if (!isShown(*object)) continue;
    if (auto *const region = dynamic_cast<AnnHide *>(object)) {
      regions.push_back(region);
    } else if (auto *const lens = dynamic_cast<AnnMagnify *>(object)) {
      lenses.push_back(lens);
    }
  }
  if (wholePictures || m_state == ToolState::Drawing) m_toolModes.hide->RefreshPreview();
  if (wholePictures) HideWholePictures(regions);
  std::vector<std::function<void()>> tasks;
  tasks.reserve(regions.size() + lenses.size());
  for (AnnHide *region : regions) {
    tasks.emplace_back([region, wholePictures] {
      if (!wholePictures) return region->UpdateSubImageAndStoreAsSubBitmap();
      region->HideWholeImageAndStoreAsBitmap();
      region->UpdateSubImageAndSubBitmap();
    });
  }
  for (AnnMagnify *lens : lenses) {
    tasks.emplace_back([lens] { lens->UpdateSubImageAndSubBitmap(false); });
  }
  framenote::RunTasks(tasks);
}

void AnnotationTool::SetImage(wxBitmap const &bitmap, bool refreshCaches) {
  if (bitmap.IsOk()) SetImage(bitmap.ConvertToImage(), refreshCaches);
}

wxImage const &AnnotationTool::GetImage() const {
  return m_image;
}

AnnotationMediaInfo const &AnnotationTool::GetMediaInfo() const {
  return m_mediaInfo;
}

void AnnotationTool::UpdateMediaInfo(AnnotationMediaInfo const &info) {
  if (info.frameCount > m_mediaInfo.frameCount) onVideoLengthIncreased(info.frameCount);
  if (info.frameIndex < 0 || info.frameIndex >= m_mediaInfo.frameCount) {
    throw std::runtime_error(wxGetTranslation("Frame index out of range.").utf8_string());
  }
  bool const wasStoppedAndRewound = info.frameIndex == 0 && m_mediaInfo.frameIndex != 0 &&
                                    !info.isPlaying && m_mediaInfo.isPlaying;
  if (wasStoppedAndRewound) rewindSelection();
  if (hasSelection()) updateSelectedForFrame(info);
  for (IAnnotationObject *object : m_objects) {
    if (object->IsSelected() || !object->IsPresentInFrame(info.frameIndex)) continue;
    object->UpdateCoordinatesPointers(info.frameIndex);
  }
  m_mediaInfo = info;
}

void AnnotationTool::rewindSelection() {
  if (m_activeTool->GetModeId() == Types::Text) {
    if (auto *const text = dynamic_cast<AnnText *>(GetSelectedObject())) {
      m_toolModes.text->stopEditing(*text);
    }
  }
  changeSelectedToEnd();
  leaveObject();
}

void AnnotationTool::updateSelectedForFrame(AnnotationMediaInfo const &info) {
  IAnnotationObject &object = **m_selected;
  std::int64_t const old = m_mediaInfo.frameIndex;
  growSelectedRangeTo(info.frameIndex);
  if (framenote::IsHandling(m_state)) {
    for (std::int64_t frame = old + 1; frame < info.frameIndex; ++frame) {
      object.DuplicateLastCoordinates(frame);
    }
    // Also when the position went back: the loop always ends with the new frame.
    object.DuplicateLastCoordinates(info.frameIndex);
  } else {
    for (std::int64_t frame = old + 1; frame <= info.frameIndex; ++frame) {
      if (object.AreCoordinatesEmpty(frame)) object.DuplicateLastCoordinates(frame);
    }
    // The frame edited last is the current one only until the position has changed.
    if (object.GetRecentlyUpdatedCoordsFrame() != info.frameIndex || info.frameIndex != old) {
      object.UpdateCoordinatesPointers(info.frameIndex);
    }
  }
  if (!info.isPlaying) onObjectsModified();
}

void AnnotationTool::growSelectedRangeTo(std::int64_t frame) {
  IAnnotationObject &object = **m_selected;
  if (object.IsPresentInFrame(frame)) return;
  if (object.GetStartFrame() > frame) object.SetStartFrame(frame);
  if (object.GetEndFrame() < frame) object.SetEndFrame(frame);
  SendAnnotationFrameRangeChangedEvent();
}

void AnnotationTool::onVideoLengthIncreased(std::int64_t count) {
  m_mediaInfo.frameCount = count;
  for (IAnnotationObject *object : m_objects) object->OnVideoLengthIncreased(count);
  // It may be pasted in any frame.
  if (m_copiedObject) m_copiedObject->OnVideoLengthIncreased(count);
}

void AnnotationTool::SetSelectedsAnnotationStart(std::int64_t frame) {
  if (!hasSelection()) return;
  (*m_selected)->SetStartFrame(frame);
  onSelectedRangeChanged();
}

void AnnotationTool::SetSelectedsAnnotationEnd(std::int64_t frame) {
  if (!hasSelection()) return;
  (*m_selected)->SetEndFrame(frame);
  onSelectedRangeChanged();
}

void AnnotationTool::SetSelectedsAnnotationFromFrame(std::int64_t start, std::int64_t end) {
  if (!hasSelection()) return;
  IAnnotationObject &object = **m_selected;
  bool const wasOneFrame = object.GetStartFrame() == object.GetEndFrame();
  object.SetStartFrame(start);
  if (wasOneFrame) object.SetEndFrame(end);
  onSelectedRangeChanged();
}

void AnnotationTool::onSelectedRangeChanged() {
  // A selected object is painted and hit outside its range too, there as in the nearest frame.
  IAnnotationObject &object = **m_selected;
  auto const [first, last] = object.GetFrameDuration();
  object.UpdateCoordinatesPointers(std::clamp(m_mediaInfo.frameIndex, first, last));
  Refresh();
  onObjectsModified();
}

void AnnotationTool::calculateAnnotationArea() {
  if (!m_config.extensionEnabled) return;
  if (m_objects.empty()) {
    m_annotationArea = wxRect(0, 0, 0, 0);
    return;
  }
  wxRect area = m_objects.front()->GetContainingRect();
  for (IAnnotationObject *object : m_objects) area = area + object->GetContainingRect();
  m_annotationArea = area;
}

wxRect AnnotationTool::GetAnnotationArea() {
  if (!m_image.IsOk()) return m_annotationArea;
  int const width = m_image.GetWidth();
  int const height = m_image.GetHeight();
  // One less than the picture in each direction: what hosts of this interface expect.
  if (!m_config.extensionEnabled) return wxRect(0, 0, width - 1, height - 1);
  int const left = std::min(m_annotationArea.x, 0);
  int const top = std::min(m_annotationArea.y, 0);
  int const right = std::max(m_annotationArea.x + m_annotationArea.width, width);
  int const bottom = std::max(m_annotationArea.y + m_annotationArea.height, height);
  return wxRect(wxPoint(left, top), wxPoint(right - 1, bottom - 1));
}

wxColour AnnotationTool::GetExtensionColor() const {
  return m_extensionColor;
}

void AnnotationTool::SetExtensionColour(wxColour const &colour) {
  m_extensionColor = colour;
  Refresh();
  OnJsonChanged();
}
