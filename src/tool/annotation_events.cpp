// SPDX-License-Identifier: MIT
#include "framenote/annotation_events.h"

wxDEFINE_EVENT(wxEVT_ANN_STARTED, AnnotationStartedEvent);
wxDEFINE_EVENT(wxEVT_ANN_OBJECT_SELECTED, AnnotationObjectSelectedEvent);
wxDEFINE_EVENT(wxEVT_ANN_OBJECT_DESELECTED, AnnotationObjectDeselectedEvent);
wxDEFINE_EVENT(wxEVT_ANN_JSON_CHANGED, AnnotationJsonChangedEvent);
wxDEFINE_EVENT(wxEVT_ANN_FRAME_RANGE_CHANGED, AnnotationFrameRangeChangedEvent);
wxDEFINE_EVENT(wxEVT_ANN_GOTO_FRAME, AnnotationGoToFrameEvent);
wxDEFINE_EVENT(wxEVT_ANN_TEXT_EDITION_STARTED, AnnotationTextEditionStartedEvent);
wxDEFINE_EVENT(wxEVT_ANN_TEXT_EDITION_FINISHED, AnnotationTextEditionFinishedEvent);
wxDEFINE_EVENT(wxEVT_ANN_TOOL_SELECTED, AnnotationToolSelectedEvent);
wxDEFINE_EVENT(wxEVT_ANN_TOOL_DESELECTED, AnnotationToolDeselectedEvent);

AnnotationStartedEvent::AnnotationStartedEvent(wxEventType type, std::int64_t frame)
    : wxCommandEvent(type, 0), m_frame(frame) {}

wxEvent *AnnotationStartedEvent::Clone() const {
  return new AnnotationStartedEvent(*this);  // owned by the event queue
}

AnnotationObjectSelectedEvent::AnnotationObjectSelectedEvent(wxEventType type, std::int64_t frame,
                                                             bool isNew)
    : wxCommandEvent(type, 0), m_frame(frame), m_isNew(isNew) {}

wxEvent *AnnotationObjectSelectedEvent::Clone() const {
  return new AnnotationObjectSelectedEvent(*this);  // owned by the event queue
}

AnnotationObjectDeselectedEvent::AnnotationObjectDeselectedEvent(wxEventType type)
    : wxCommandEvent(type, 0) {}

wxEvent *AnnotationObjectDeselectedEvent::Clone() const {
  return new AnnotationObjectDeselectedEvent(*this);  // owned by the event queue
}

AnnotationJsonChangedEvent::AnnotationJsonChangedEvent(wxEventType type, wxJSONValue const &json)
    : wxCommandEvent(type, 0), m_json(json) {}

wxEvent *AnnotationJsonChangedEvent::Clone() const {
  return new AnnotationJsonChangedEvent(*this);  // owned by the event queue
}

AnnotationFrameRangeChangedEvent::AnnotationFrameRangeChangedEvent(wxEventType type,
                                                                   Ranges const &ranges,
                                                                   int selectedIndex)
    : wxCommandEvent(type, 0), m_ranges(ranges), m_selectedIndex(selectedIndex) {}

wxEvent *AnnotationFrameRangeChangedEvent::Clone() const {
  return new AnnotationFrameRangeChangedEvent(*this);  // owned by the event queue
}

AnnotationGoToFrameEvent::AnnotationGoToFrameEvent(wxEventType type, enum Direction direction,
                                                   std::int64_t frame)
    : wxCommandEvent(type, 0), m_direction(direction), m_frame(frame) {}

wxEvent *AnnotationGoToFrameEvent::Clone() const {
  return new AnnotationGoToFrameEvent(*this);  // owned by the event queue
}

AnnotationTextEditionStartedEvent::AnnotationTextEditionStartedEvent(wxEventType type)
    : wxCommandEvent(type, 0) {}

wxEvent *AnnotationTextEditionStartedEvent::Clone() const {
  return new AnnotationTextEditionStartedEvent(*this);  // owned by the event queue
}

AnnotationTextEditionFinishedEvent::AnnotationTextEditionFinishedEvent(wxEventType type)
    : wxCommandEvent(type, 0) {}

wxEvent *AnnotationTextEditionFinishedEvent::Clone() const {
  return new AnnotationTextEditionFinishedEvent(*this);  // owned by the event queue
}

AnnotationToolSelectedEvent::AnnotationToolSelectedEvent() = default;

AnnotationToolSelectedEvent::AnnotationToolSelectedEvent(wxEventType type, wxObject *eventObject,
                                                         int id, Types mode)
    : wxCommandEvent(type, id), m_mode(mode) {
  SetEventObject(eventObject);
}

wxEvent *AnnotationToolSelectedEvent::Clone() const {
  return new AnnotationToolSelectedEvent(*this);  // owned by the event queue
}

AnnotationToolDeselectedEvent::AnnotationToolDeselectedEvent() = default;

AnnotationToolDeselectedEvent::AnnotationToolDeselectedEvent(wxEventType type,
                                                             wxObject *eventObject, int id,
                                                             Types mode)
    : wxCommandEvent(type, id), m_mode(mode) {
  SetEventObject(eventObject);
}

wxEvent *AnnotationToolDeselectedEvent::Clone() const {
  return new AnnotationToolDeselectedEvent(*this);  // owned by the event queue
}
