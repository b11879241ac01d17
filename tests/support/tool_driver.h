// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <wx/event.h>

#include "framenote/annotation_tool.h"

namespace framenote::test {

/// The state's name, for messages.
std::string NameOf(ToolState state);

/// Keeps what the tool posts, in order. Pump() delivers what is pending.
class EventSink : public wxEvtHandler {
public:
  EventSink();
  void Pump();
  void Clear() { m_events.clear(); }
  std::size_t Count(wxEventType type);
  /// The last event of a type, or null.
  template <class Event>
  Event const *Last(wxEventTypeTag<Event> const &type) {
    Pump();
    for (auto it = m_events.rbegin(); it != m_events.rend(); ++it) {
      if ((*it)->GetEventType() == type) return static_cast<Event const *>(it->get());
    }
    return nullptr;
  }
  /// The types of all events so far, in order.
  std::vector<wxEventType> Types();

private:
  std::vector<std::unique_ptr<wxEvent>> m_events;
};

/// A tool with its sink and a hand on the mouse, so that a test reads as gestures. Positions are
/// picture pixels.
class ToolDriver {
public:
  /// A still picture of one frame by default, painted with the graphics-context painter.
  explicit ToolDriver(std::int64_t frameCount = 1, bool extensionEnabled = false,
                      bool withDeviceContext = false);
  ~ToolDriver();

  AnnotationTool &Tool() { return *m_tool; }
  std::shared_ptr<AnnotationTool> const &Shared() { return m_tool; }
  EventSink &Sink() { return m_sink; }
  ToolState State() const { return m_tool->GetState(); }
  IAnnotationObject *Selected() const { return m_tool->GetSelectedObject(); }
  /// The object at a place of the z-order, front first.
  IAnnotationObject *Object(std::size_t index = 0) const;
  /// The object at a place of the z-order as its kind; null if it is of another.
  template <class Kind>
  Kind *ObjectAs(std::size_t index = 0) const {
    return dynamic_cast<Kind *>(Object(index));
  }
  std::size_t ObjectCount() const { return m_tool->AnnotationObjects().size(); }

  void UseTool(Types mode) { m_tool->SetActiveTool(mode); }
  void SetScale(double scale) { m_scale = scale; }
  void SetModifiers(int modifiers) { m_modifiers = modifiers; }
  void GoToFrame(std::int64_t frame, bool isPlaying = false);

  wxStockCursor Press(int x, int y);
  wxStockCursor Move(int x, int y);
  wxStockCursor Release(int x, int y);
  wxStockCursor RightRelease(int x, int y);
  wxStockCursor DoubleClick(int x, int y);
  /// Press, two motions, release.
  void Drag(wxPoint const &from, wxPoint const &to);
  /// Chooses the shape tool and draws a rectangle whose corners are `from` and `to`.
  void DrawShape(wxPoint const &from, wxPoint const &to);
  void DrawArrow(wxPoint const &tail, wxPoint const &head);
  void DrawStroke(std::vector<wxPoint> const &points);

  /// The document as text.
  std::string DocumentText() const;

private:
  wxStockCursor send(wxEventType type, int x, int y);

  EventSink m_sink;
  std::shared_ptr<AnnotationTool> m_tool;
  std::int64_t m_frameCount;
  double m_scale = 1.0;
  int m_modifiers = wxMOD_NONE;
};

}  // namespace framenote::test
