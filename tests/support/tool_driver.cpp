// SPDX-License-Identifier: MIT
#include "support/tool_driver.h"

#include <iterator>

#include <wx/app.h>

#include "framenote/annotation_events.h"
#include "objects/annotation_object.h"
#include "talbase/json_text.h"

namespace framenote::test {

std::string NameOf(ToolState state) {
  static char const *const kNames[] = {"Default",  "Drawing",       "OverObject", "Selected",
                                       "Moving",   "AtResizePoint", "Resizing",   "AtRotationPoint",
                                       "Rotating", "Editing"};
  return kNames[static_cast<int>(state)];
}

EventSink::EventSink() {
  auto const keep = [this](wxEvent &event) { m_events.emplace_back(event.Clone()); };
  Bind(wxEVT_ANN_STARTED, keep);
  Bind(wxEVT_ANN_OBJECT_SELECTED, keep);
  Bind(wxEVT_ANN_OBJECT_DESELECTED, keep);
  Bind(wxEVT_ANN_JSON_CHANGED, keep);
  Bind(wxEVT_ANN_FRAME_RANGE_CHANGED, keep);
  Bind(wxEVT_ANN_GOTO_FRAME, keep);
  Bind(wxEVT_ANN_TEXT_EDITION_STARTED, keep);
  Bind(wxEVT_ANN_TEXT_EDITION_FINISHED, keep);
  Bind(wxEVT_ANN_TOOL_SELECTED, keep);
  Bind(wxEVT_ANN_TOOL_DESELECTED, keep);
}

void EventSink::Pump() {
  wxTheApp->ProcessPendingEvents();
}

std::size_t EventSink::Count(wxEventType type) {
  Pump();
  std::size_t count = 0;
  for (auto const &event : m_events) count += event->GetEventType() == type ? 1 : 0;
  return count;
}

std::vector<wxEventType> EventSink::Types() {
  Pump();
  std::vector<wxEventType> types;
  for (auto const &event : m_events) types.push_back(event->GetEventType());
  return types;
}

ToolDriver::ToolDriver(std::int64_t frameCount, bool extensionEnabled, bool withDeviceContext)
    : m_tool(std::make_shared<AnnotationTool>(AnnotationToolConfig(
          withDeviceContext, withDeviceContext, true, true, extensionEnabled, {}))),
      m_frameCount(frameCount) {
  m_tool->InitGui(nullptr, &m_sink, m_tool);
  GoToFrame(0);
}

ToolDriver::~ToolDriver() {
  wxTheApp->ProcessPendingEvents();
}

IAnnotationObject *ToolDriver::Object(std::size_t index) const {
  return *std::next(m_tool->AnnotationObjects().begin(), static_cast<std::ptrdiff_t>(index));
}

void ToolDriver::GoToFrame(std::int64_t frame, bool isPlaying) {
  m_tool->UpdateMediaInfo({frame, m_frameCount, isPlaying});
}

wxStockCursor ToolDriver::send(wxEventType type, int x, int y) {
  wxMouseEvent event(type);
  event.SetShiftDown((m_modifiers & wxMOD_SHIFT) != 0);
  event.SetControlDown((m_modifiers & wxMOD_CONTROL) != 0);
  event.SetAltDown((m_modifiers & wxMOD_ALT) != 0);
  return m_tool->ProcessMouseEvent(wxPoint(x, y), event, m_scale, wxPoint2DDouble(0.0, 0.0));
}

wxStockCursor ToolDriver::Press(int x, int y) {
  return send(wxEVT_LEFT_DOWN, x, y);
}

wxStockCursor ToolDriver::Move(int x, int y) {
  return send(wxEVT_MOTION, x, y);
}

wxStockCursor ToolDriver::Release(int x, int y) {
  return send(wxEVT_LEFT_UP, x, y);
}

wxStockCursor ToolDriver::RightRelease(int x, int y) {
  return send(wxEVT_RIGHT_UP, x, y);
}

wxStockCursor ToolDriver::DoubleClick(int x, int y) {
  return send(wxEVT_LEFT_DCLICK, x, y);
}

void ToolDriver::Drag(wxPoint const &from, wxPoint const &to) {
  Press(from.x, from.y);
  Move((from.x + to.x) / 2, (from.y + to.y) / 2);
  Move(to.x, to.y);
  Release(to.x, to.y);
}

void ToolDriver::DrawShape(wxPoint const &from, wxPoint const &to) {
  UseTool(Types::Shape);
  Drag(from, to);
}

void ToolDriver::DrawArrow(wxPoint const &tail, wxPoint const &head) {
  UseTool(Types::Arrow);
  Drag(tail, head);
}

void ToolDriver::DrawStroke(std::vector<wxPoint> const &points) {
  UseTool(Types::Pencil);
  Press(points.front().x, points.front().y);
  for (std::size_t i = 1; i < points.size(); ++i) Move(points[i].x, points[i].y);
  Release(points.back().x, points.back().y);
}

std::string ToolDriver::DocumentText() const {
  return JsonToUtf8(m_tool->GetJSON());
}

}  // namespace framenote::test
