// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <tuple>
#include <vector>

#include <wx/colour.h>
#include <wx/event.h>

#include "framenote/annotation_types.h"
#include "framenote/export.h"
#include "talbase/json_value.h"

class wxToggleButton;

/// The events that an AnnotationTool posts to the handler given to AnnotationTool::InitGui.
///
/// They are posted, never processed in place: a handler runs later, from the host's event loop,
/// when the tool may have moved on. So each event carries what a handler needs by value.

/// A drawing starts on a video.
class FRAMENOTE_API AnnotationStartedEvent : public wxCommandEvent {
public:
  /// Made by the tool; `type` is the event's identifier.
  AnnotationStartedEvent(wxEventType type, std::int64_t frame);
  wxEvent *Clone() const override;  ///< for event queues; the caller owns the copy
  std::int64_t FrameIndex() const { return m_frame; }  ///< the current frame when it was posted

private:
  std::int64_t m_frame;
};

/// An object became the selected one.
class FRAMENOTE_API AnnotationObjectSelectedEvent : public wxCommandEvent {
public:
  /// Made by the tool; `type` is the event's identifier.
  AnnotationObjectSelectedEvent(wxEventType type, std::int64_t frame, bool isNew);
  wxEvent *Clone() const override;  ///< for event queues; the caller owns the copy
  std::int64_t FrameIndex() const { return m_frame; }  ///< the current frame when it was posted
  /// Whether the object was made just now.
  bool IsNew() const { return m_isNew; }

private:
  std::int64_t m_frame;
  bool m_isNew;
};

/// The selection went to none.
class FRAMENOTE_API AnnotationObjectDeselectedEvent : public wxCommandEvent {
public:
  /// Made by the tool; `type` is the event's identifier.
  explicit AnnotationObjectDeselectedEvent(wxEventType type);
  wxEvent *Clone() const override;  ///< for event queues; the caller owns the copy
};

/// The document changed. A host stores Json() under Key(), and that pair is what
/// AnnotationTool::FromJSON reads.
class FRAMENOTE_API AnnotationJsonChangedEvent : public wxCommandEvent {
public:
  /// Made by the tool; `type` is the event's identifier.
  AnnotationJsonChangedEvent(wxEventType type, wxJSONValue const &json);
  wxEvent *Clone() const override;                ///< for event queues; the caller owns the copy
  wxString Key() const { return m_annotateKey; }  ///< "Annotate"
  wxJSONValue const &Json() const { return m_json; }  ///< what AnnotationTool::GetJSON gave

  static constexpr char const *m_annotateKey = "Annotate";  ///< the document's one member

private:
  wxJSONValue m_json;
};

/// The frame ranges of the objects: first and last frame, and the colour that stands best for the
/// object, front of the z-order first.
class FRAMENOTE_API AnnotationFrameRangeChangedEvent : public wxCommandEvent {
public:
  /// First frame, last frame (inclusive), colour.
  using Ranges = std::vector<std::tuple<std::int64_t, std::int64_t, wxColour>>;

  /// Made by the tool; `type` is the event's identifier.
  AnnotationFrameRangeChangedEvent(wxEventType type, Ranges const &ranges, int selectedIndex);
  wxEvent *Clone() const override;  ///< for event queues; the caller owns the copy
  /// one per object, in the order of AnnotationObjects()
  Ranges const &FrameRanges() const { return m_ranges; }
  /// Index of the selected object in FrameRanges(), or -1.
  int SelectedIndex() const { return m_selectedIndex; }

private:
  Ranges m_ranges;
  int m_selectedIndex;
};

/// The user asks for another frame; the host goes there and calls AnnotationTool::UpdateMediaInfo.
class FRAMENOTE_API AnnotationGoToFrameEvent : public wxCommandEvent {
public:
  /// ToStart is also what a jump to the previous or next object carries.
  enum Direction { ToStart = 0, ToEnd = 1 };

  /// Made by the tool; `type` is the event's identifier.
  AnnotationGoToFrameEvent(wxEventType type, enum Direction direction, std::int64_t frame);
  wxEvent *Clone() const override;  ///< for event queues; the caller owns the copy
  /// which end was asked for
  enum Direction Direction() const { return m_direction; }
  /// The wanted frame; -1 when there was no selected object to go to.
  std::int64_t FrameIndex() const { return m_frame; }

private:
  enum Direction m_direction;
  std::int64_t m_frame;
};

/// The in-place text editor opened.
class FRAMENOTE_API AnnotationTextEditionStartedEvent : public wxCommandEvent {
public:
  /// Made by the tool; `type` is the event's identifier.
  explicit AnnotationTextEditionStartedEvent(wxEventType type);
  wxEvent *Clone() const override;  ///< for event queues; the caller owns the copy
};

/// The in-place text editor closed.
class FRAMENOTE_API AnnotationTextEditionFinishedEvent : public wxCommandEvent {
public:
  /// Made by the tool; `type` is the event's identifier.
  explicit AnnotationTextEditionFinishedEvent(wxEventType type);
  wxEvent *Clone() const override;  ///< for event queues; the caller owns the copy
};

/// A tool of the palette was chosen. The event object is the palette's button, the id that of the
/// button.
class FRAMENOTE_API AnnotationToolSelectedEvent : public wxCommandEvent {
public:
  AnnotationToolSelectedEvent();  ///< of no tool: the palette fills in nothing
  /// Made by the tool; `type` is the event's identifier.
  AnnotationToolSelectedEvent(wxEventType type, wxObject *eventObject, int id, Types mode);
  wxEvent *Clone() const override;             ///< for event queues; the caller owns the copy
  Types ToolModeId() const { return m_mode; }  ///< the tool of the button

private:
  Types m_mode = Types::Idle;
};

/// A tool of the palette was left. Event object and id as for AnnotationToolSelectedEvent.
class FRAMENOTE_API AnnotationToolDeselectedEvent : public wxCommandEvent {
public:
  AnnotationToolDeselectedEvent();  ///< of no tool: the palette fills in nothing
  /// Made by the tool; `type` is the event's identifier.
  AnnotationToolDeselectedEvent(wxEventType type, wxObject *eventObject, int id, Types mode);
  wxEvent *Clone() const override;             ///< for event queues; the caller owns the copy
  Types ToolModeId() const { return m_mode; }  ///< the tool of the button

private:
  Types m_mode = Types::Idle;
};

/// The identifiers to bind; each is posted as the event that it is declared with.
wxDECLARE_EXPORTED_EVENT(FRAMENOTE_API, wxEVT_ANN_STARTED, AnnotationStartedEvent);
wxDECLARE_EXPORTED_EVENT(FRAMENOTE_API, wxEVT_ANN_OBJECT_SELECTED, AnnotationObjectSelectedEvent);
wxDECLARE_EXPORTED_EVENT(FRAMENOTE_API, wxEVT_ANN_OBJECT_DESELECTED,
                         AnnotationObjectDeselectedEvent);
wxDECLARE_EXPORTED_EVENT(FRAMENOTE_API, wxEVT_ANN_JSON_CHANGED, AnnotationJsonChangedEvent);
wxDECLARE_EXPORTED_EVENT(FRAMENOTE_API, wxEVT_ANN_FRAME_RANGE_CHANGED,
                         AnnotationFrameRangeChangedEvent);
wxDECLARE_EXPORTED_EVENT(FRAMENOTE_API, wxEVT_ANN_GOTO_FRAME, AnnotationGoToFrameEvent);
wxDECLARE_EXPORTED_EVENT(FRAMENOTE_API, wxEVT_ANN_TEXT_EDITION_STARTED,
                         AnnotationTextEditionStartedEvent);
wxDECLARE_EXPORTED_EVENT(FRAMENOTE_API, wxEVT_ANN_TEXT_EDITION_FINISHED,
                         AnnotationTextEditionFinishedEvent);
wxDECLARE_EXPORTED_EVENT(FRAMENOTE_API, wxEVT_ANN_TOOL_SELECTED, AnnotationToolSelectedEvent);
wxDECLARE_EXPORTED_EVENT(FRAMENOTE_API, wxEVT_ANN_TOOL_DESELECTED, AnnotationToolDeselectedEvent);
