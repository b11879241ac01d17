// SPDX-License-Identifier: MIT
// Each mode once with real events on a real window: what the X server delivers, not what a test
// makes up.
#include <wx/app.h>
#include <wx/dcclient.h>
#include <wx/frame.h>
#include <wx/uiaction.h>

#include <gtest/gtest.h>

#include "modes/ann_arrow_tool_mode.h"
#include "modes/ann_general_tool_mode.h"
#include "modes/ann_pencil_tool_mode.h"
#include "modes/ann_shape_tool_mode.h"
#include "objects/ann_arrow.h"
#include "objects/ann_pencil.h"
#include "objects/ann_shape.h"
#include "support/tool_driver.h"

namespace framenote::test {

namespace {

/// A window that does what a host does: it forwards the mouse and paints. It shows the picture at
/// twice its size, moved by (5, 10) picture pixels.
class ModesOnAWindow : public testing::Test {
protected:
  static constexpr double kScale = 2.0;

  void SetUp() override {
    m_frame = new wxFrame(nullptr, wxID_ANY, "", {40, 40}, {640, 480});  // destroyed in TearDown
    m_canvas = new wxWindow(m_frame, wxID_ANY);                          // owned by the frame
    m_canvas->SetBackgroundStyle(wxBG_STYLE_PAINT);
    m_canvas->Bind(wxEVT_PAINT, [this](wxPaintEvent &) {
      wxPaintDC dc(m_canvas);
      dc.SetBackground(*wxWHITE_BRUSH);
      dc.Clear();
      m_driver.Tool().Draw(dc, m_canvas, m_offset, kScale);
      ++m_paints;
    });
    for (auto const &type : {wxEVT_LEFT_DOWN, wxEVT_LEFT_DCLICK, wxEVT_LEFT_UP, wxEVT_MOTION}) {
      m_canvas->Bind(type, [this](wxMouseEvent &event) {
        // Of two presses at one place the second one comes as a double click.
        if (event.LeftDClick()) event.SetEventType(wxEVT_LEFT_DOWN);
        wxPoint const pixel(event.GetX() / 2 - 5, event.GetY() / 2 - 10);
        m_driver.Tool().ProcessMouseEvent(pixel, event, kScale, m_offset);
        m_canvas->Refresh();
        ++m_events;
      });
    }
    m_frame->Show();
    m_mouse.MouseMove(1000, 900);
    Settle([this] { return m_paints > 0; });
    ASSERT_GT(m_paints, 0);
  }

  void TearDown() override {
    m_driver.Tool().Reset(false);
    m_frame->Destroy();
    wxYield();
  }

  /// Lets events run until something is so.
  template <class Condition>
  static void Settle(Condition const &isReached) {
    for (int i = 0; i < 200 && !isReached(); ++i) {
      wxYield();
      wxTheApp->ProcessPendingEvents();
      if (!isReached()) wxMilliSleep(5);
    }
  }

  /// Does something with the mouse and waits for the event that follows.
  template <class Action>
  void Do(Action const &action) {
    int const before = m_events;
    action();
    Settle([this, before] { return m_events > before; });
    ASSERT_GT(m_events, before);
  }

  void MoveTo(int x, int y) {
    Do([&] { m_mouse.MouseMove(m_canvas->ClientToScreen(wxPoint((x + 5) * 2, (y + 10) * 2))); });
  }

  void Drag(std::vector<wxPoint> const &points) {
    MoveTo(points.front().x, points.front().y);
    Do([this] { m_mouse.MouseDown(); });
    for (std::size_t i = 1; i < points.size(); ++i) MoveTo(points[i].x, points[i].y);
    Do([this] { m_mouse.MouseUp(); });
  }

  ToolDriver m_driver;
  wxUIActionSimulator m_mouse;
  wxFrame *m_frame = nullptr;
  wxWindow *m_canvas = nullptr;
  wxPoint2DDouble m_offset = {5.0, 10.0};
  int m_paints = 0;
  int m_events = 0;
};

TEST_F(ModesOnAWindow, ShapeIsDrawnResizedAndTurned) {
  m_driver.UseTool(Types::Shape);
  Drag({{40, 60}, {70, 80}, {100, 90}});
  ASSERT_EQ(m_driver.ObjectCount(), 1U);
  auto const corner = [this] {
    return m_driver.ObjectAs<AnnShape>()->GetCoordinates().Coords().m_bottomRight;
  };
  EXPECT_EQ(corner(), wxPoint2DDouble(100, 90));
  Drag({{100, 90}, {110, 95}, {120, 110}});
  EXPECT_EQ(corner(), wxPoint2DDouble(120, 110));
  // The handle is 30 screen pixels above the middle of the top: (80, 60 - 15).
  Drag({{80, 45}, {120, 60}, {130, 85}});
  EXPECT_NEAR(m_driver.ObjectAs<AnnShape>()->GetRotationAngle(), 1.5707963267948966, 1e-9);
}

TEST_F(ModesOnAWindow, ArrowIsDrawnAndItsEndDragged) {
  m_driver.UseTool(Types::Arrow);
  Drag({{40, 60}, {70, 80}, {140, 90}});
  ASSERT_EQ(m_driver.ObjectCount(), 1U);
  Drag({{40, 60}, {50, 70}, {60, 120}});
  AnnArrowPoints const &record = m_driver.ObjectAs<AnnArrow>()->GetCoordinates().Coords();
  EXPECT_EQ(record.m_head, wxPoint2DInt(140, 90));
  EXPECT_EQ(record.m_tail, wxPoint2DInt(60, 120));
}

TEST_F(ModesOnAWindow, StrokeIsDrawnAndMoved) {
  m_driver.UseTool(Types::Pencil);
  Drag({{40, 60}, {60, 60}, {80, 60}, {100, 70}, {120, 70}});
  ASSERT_EQ(m_driver.ObjectCount(), 1U);
  EXPECT_EQ(m_driver.ObjectAs<AnnPencil>()->GetCoordinates().Coords().m_path.size(), 5U);
  Drag({{60, 60}, {65, 70}, {70, 80}});
  EXPECT_EQ(m_driver.ObjectAs<AnnPencil>()->GetCoordinates().Coords().m_path.front(),
            wxPoint2DInt(50, 80));
}

TEST_F(ModesOnAWindow, IdleAndGeneralSelectAndMoveButDrawNothing) {
  m_driver.Tool().GetToolModes().shape->m_properties->SetFillColor(*wxGREEN);
  m_driver.UseTool(Types::Shape);
  Drag({{40, 60}, {70, 80}, {100, 120}});
  int left = 40;
  for (bool const isGeneral : {false, true}) {
    m_driver.Tool().Deactivate();
    if (isGeneral) m_driver.Tool().SetActiveTool(m_driver.Tool().GetToolModes().general);
    Drag({{200, 30}, {210, 40}, {220, 50}});
    EXPECT_EQ(m_driver.ObjectCount(), 1U);
    EXPECT_EQ(m_driver.Selected(), nullptr);
    Drag({{left + 30, 90}, {left + 35, 90}, {left + 50, 90}});
    left += 20;
    EXPECT_NE(m_driver.Selected(), nullptr);
    EXPECT_EQ(m_driver.ObjectAs<AnnShape>()->GetCoordinates().Coords().m_topLeft.m_x, left);
  }
}

}  // namespace

}  // namespace framenote::test
