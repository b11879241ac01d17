// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include <wx/frame.h>
#include <wx/tglbtn.h>

#include <gtest/gtest.h>

#include "framenote/annotation_events.h"
#include "framenote/annotation_panel.h"
#include "support/tool_driver.h"

namespace framenote::test {

/// A tool with its panel in a window.
class PanelTest : public testing::Test {
protected:
  explicit PanelTest(AnnotationToolConfig const &config = Config(true))
      : m_tool(std::make_shared<AnnotationTool>(config)) {}

  static AnnotationToolConfig Config(bool withEverything) {
    AnnotationToolConfig::TextMacrosConfig macros;
    if (withEverything) macros = {"Macro", {{"Frame", "%F%"}, {"Time", "%T%"}}, false};
    return {false, false, withEverything, withEverything, withEverything, macros};
  }

  void SetUp() override {
    m_frame = new wxFrame(nullptr, wxID_ANY, "", {40, 40}, {420, 700});  // destroyed in TearDown
    m_panel = m_tool->InitGui(m_frame, &m_sink, m_tool);
    ASSERT_NE(m_panel, nullptr);
    m_tool->UpdateMediaInfo({0, 10, false});
    m_frame->Show();
    wxYield();
  }
  void TearDown() override {
    m_tool->UnlinkGui();
    m_frame->Destroy();
    wxYield();
  }

  template <class Control>
  Control *Find(int id) {
    return dynamic_cast<Control *>(wxWindow::FindWindowById(id, m_panel));
  }
  wxToggleButton &Button(Types type) { return *Find<wxToggleButton>(static_cast<int>(type)); }
  /// What a click on a tool's button does.
  void Toggle(Types type) {
    wxToggleButton &button = Button(type);
    button.SetValue(!button.GetValue());
    Send(button, wxEVT_TOGGLEBUTTON);
  }
  static void Send(wxWindow &window, wxEventType type) {
    wxCommandEvent event(type, window.GetId());
    event.SetEventObject(&window);
    window.GetEventHandler()->ProcessEvent(event);
  }
  /// A press, motions and a release.
  void Drag(wxPoint const &from, wxPoint const &to) {
    Mouse(wxEVT_MOTION, from);
    Mouse(wxEVT_LEFT_DOWN, from);
    Mouse(wxEVT_MOTION, (from + to) / 2);
    Mouse(wxEVT_MOTION, to);
    Mouse(wxEVT_LEFT_UP, to);
  }
  void Mouse(wxEventType type, wxPoint const &at) {
    m_tool->ProcessMouseEvent(at, wxMouseEvent(type), 1.0, {0.0, 0.0});
  }
  template <class Kind>
  Kind *Front() {
    return dynamic_cast<Kind *>(m_tool->AnnotationObjects().front());
  }

  EventSink m_sink;
  std::shared_ptr<AnnotationTool> m_tool;
  wxFrame *m_frame = nullptr;
  AnnotationPanel *m_panel = nullptr;
};

}  // namespace framenote::test
