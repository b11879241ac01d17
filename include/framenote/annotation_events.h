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
  AnnotationStartedEvent(wxEventType type, std::int64_t frame);
  wxEvent *Clone() const override;
  std::int64_t FrameIndex() const { return m_frame; }

private:
  std::int64_t m_frame;
};

/// An object became the selected one.
class FRAMENOTE_API AnnotationObjectSelectedEvent : public wxCommandEvent {
public:
  AnnotationObjectSelectedEvent(wxEventType type, std::int64_t frame, bool isNew);
  wxEvent *Clone() const override;
  std::int64_t FrameIndex() const { return m_frame; }
  /// Whether the object was made just now.
  bool IsNew() const { return m_isNew; }

private:
  std::int64_t m_frame;
  bool m_isNew;
};

/// The selection went to none.
class FRAMENOTE_API AnnotationObjectDeselectedEvent : public wxCommandEvent {
public:
  explicit AnnotationObjectDeselectedEvent(wxEventType type);
  wxEvent *Clone() const override;
};

/// The document changed. A host stores Json() under Key(), and that pair is what
/// AnnotationTool::FromJSON reads.
class FRAMENOTE_API AnnotationJsonChangedEvent : public wxCommandEvent {
public:
  AnnotationJsonChangedEvent(wxEventType type, wxJSONValue const &json);
  wxEvent *Clone() const override;
  wxString Key() const { return m_annotateKey; }
  wxJSONValue const &Json() const { return m_json; }

  static constexpr char const *m_annotateKey = "Annotate";

private:
  wxJSONValue m_json;
};

/// The frame ranges of the objects: first and last frame, and the colour that stands best for the
/// object, front of the z-order first.
class FRAMENOTE_API AnnotationFrameRangeChangedEvent : public wxCommandEvent {
public:
  using Ranges = std::vector<std::tuple<std::int64_t, std::int64_t, wxColour>>;

  AnnotationFrameRangeChangedEvent(wxEventType type, Ranges const &ranges, int selectedIndex);
  wxEvent *Clone() const override;
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

  AnnotationGoToFrameEvent(wxEventType type, enum Direction direction, std::int64_t frame);
  wxEvent *Clone() const override;
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
  explicit AnnotationTextEditionStartedEvent(wxEventType type);
  wxEvent *Clone() const override;
};

/// The in-place text editor closed.
class FRAMENOTE_API AnnotationTextEditionFinishedEvent : public wxCommandEvent {
public:
  explicit AnnotationTextEditionFinishedEvent(wxEventType type);
  wxEvent *Clone() const override;
};

/// A tool of the palette was chosen. The event object is the palette's button, the id that of the
/// button.
class FRAMENOTE_API AnnotationToolSelectedEvent : public wxCommandEvent {
public:
  AnnotationToolSelectedEvent();
  AnnotationToolSelectedEvent(wxEventType type, wxObject *eventObject, int id, Types mode);
  wxEvent *Clone() const override;
  Types ToolModeId() const { return m_mode; }

private:
  Types m_mode = Types::Idle;
};

/// A tool of the palette was left. Event object and id as for AnnotationToolSelectedEvent.
class FRAMENOTE_API AnnotationToolDeselectedEvent : public wxCommandEvent {
public:
  AnnotationToolDeselectedEvent();
  AnnotationToolDeselectedEvent(wxEventType type, wxObject *eventObject, int id, Types mode);
  wxEvent *Clone() const override;
  Types ToolModeId() const { return m_mode; }

private:
  Types m_mode = Types::Idle;
};

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
