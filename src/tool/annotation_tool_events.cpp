// SPDX-License-Identifier: MIT
// What the host is told. Everything is posted, nothing processed in place.
#include <iterator>

#include <wx/tglbtn.h>

#include "framenote/annotation_events.h"
#include "framenote/annotation_tool.h"
#include "objects/annotation_object.h"

namespace {

/// 0 for a tool that was chosen without a button.
int IdOf(wxToggleButton const *button) {
  return button != nullptr ? button->GetId() : 0;
}

}  // namespace

void AnnotationTool::post(wxEvent const &event) {
  if (m_eventSink != nullptr) m_eventSink->AddPendingEvent(event);
}

void AnnotationTool::OnObjectSelected(bool isNew) {
  post(AnnotationObjectSelectedEvent(wxEVT_ANN_OBJECT_SELECTED, m_mediaInfo.frameIndex, isNew));
}

void AnnotationTool::SendAnnotationFrameRangeChangedEvent() {
  m_startFrames.clear();
  AnnotationFrameRangeChangedEvent::Ranges ranges;
  ranges.reserve(m_objects.size());
  for (IAnnotationObject *object : m_objects) {
    m_startFrames.insert(object->GetStartFrame());
    ranges.emplace_back(object->GetStartFrame(), object->GetEndFrame(), object->GetDominantColor());
  }
  if (m_eventSink == nullptr) return;
  int selected = -1;
  if (hasSelection()) {
    selected = static_cast<int>(std::distance(m_objects.begin(), m_selected));
  }
  post(AnnotationFrameRangeChangedEvent(wxEVT_ANN_FRAME_RANGE_CHANGED, ranges, selected));
}

void AnnotationTool::SendAnnotationTextEditionStartedEvent() {
  post(AnnotationTextEditionStartedEvent(wxEVT_ANN_TEXT_EDITION_STARTED));
}

void AnnotationTool::SendAnnotationTextEditionFinishedEvent() {
  post(AnnotationTextEditionFinishedEvent(wxEVT_ANN_TEXT_EDITION_FINISHED));
}

void AnnotationTool::SendAnnotationToolSelectedEvent(wxToggleButton *button, Types mode) {
  post(AnnotationToolSelectedEvent(wxEVT_ANN_TOOL_SELECTED, button, IdOf(button), mode));
}

void AnnotationTool::SendAnnotationToolDeselectedEvent(wxToggleButton *button, Types mode) {
  post(AnnotationToolDeselectedEvent(wxEVT_ANN_TOOL_DESELECTED, button, IdOf(button), mode));
}

void AnnotationTool::GoToObject(GoToObjectDirection direction) {
  if (m_objects.empty() || m_startFrames.empty()) return;
  auto it = m_startFrames.lower_bound(m_mediaInfo.frameIndex);
  if (direction == GoToObjectDirection::Previous) {
    if (it == m_startFrames.begin()) return;
    --it;
  } else {
    if (it != m_startFrames.end() && *it == m_mediaInfo.frameIndex) ++it;
    if (it == m_startFrames.end()) return;
  }
  if (!m_mediaInfo.IsVideo()) return;
  post(AnnotationGoToFrameEvent(wxEVT_ANN_GOTO_FRAME, AnnotationGoToFrameEvent::ToStart, *it));
}
