// SPDX-License-Identifier: MIT
#include <wx/dcclient.h>
#include <wx/dcmemory.h>
#include <wx/frame.h>

#include <gtest/gtest.h>

#include "modes/ann_shape_tool_mode.h"
#include "objects/ann_shape.h"
#include "painters/pixel_matchers.h"
#include "support/tool_driver.h"

namespace framenote::test {

namespace {

using pixels::AreaHas;
using pixels::ColourAt;
using pixels::kBlue;
using pixels::kRed;
using pixels::kWhite;

/// A video of ten frames with a filled blue rectangle at (20, 60) to (60, 90) in frame 0, selected.
/// The device-context painter paints on whatever device context a pass is given, so the pixels of
/// a pass can be asked for.
class PaintingPass : public testing::Test {
protected:
  PaintingPass() : m_driver(10, false, true) {
    auto const look = m_driver.Tool().GetToolModes().shape->m_properties;
    look->SetFillColor(*wxBLUE);
    look->SetBorderColor(wxColour(0, 0, 0, 0));
    m_driver.DrawShape({20, 60}, {60, 90});
  }

  using Pass = void (AnnotationTool::*)(wxDC &, wxWindow *, wxPoint2DDouble const &, double);

  wxImage Paint(Pass pass = &AnnotationTool::Draw, double scale = 1.0,
                wxPoint2DDouble const &offset = {0, 0}) {
    wxBitmap bitmap(wxSize(200, 200), 24);
    wxMemoryDC dc(bitmap);
    dc.SetBackground(*wxWHITE_BRUSH);
    dc.Clear();
    (m_driver.Tool().*pass)(dc, nullptr, offset, scale);
    dc.SelectObject(wxNullBitmap);
    return bitmap.ConvertToImage();
  }

  /// The rotation handle of the rectangle: 30 above the middle of its top.
  static bool HasMarkers(wxImage const &image) {
    return pixels::BoundsOfPaint(image).GetTop() < 35;
  }

  ToolDriver m_driver;
};

TEST_F(PaintingPass, PaintsObjectsAndTheMarkersOfTheSelectedOne) {
  wxImage const image = Paint();
  EXPECT_EQ(ColourAt(image, 30, 70), kBlue);
  EXPECT_TRUE(HasMarkers(image));
  m_driver.Tool().Deactivate();
  EXPECT_FALSE(HasMarkers(Paint()));
}

TEST_F(PaintingPass, HiddenAnnotationsPaintNothingButTheViewIsTaken) {
  m_driver.Tool().SetObjectsVisible(false);
  EXPECT_TRUE(AreaHas(Paint(&AnnotationTool::Draw, 2.5), {0, 0, 200, 200}, kWhite));
  EXPECT_EQ(m_driver.Tool().GetToolModes().shape->GetToolScale(), 2.5);
}

TEST_F(PaintingPass, ScaleAndOffsetReachObjectsAndMarkers) {
  wxImage const image = Paint(&AnnotationTool::Draw, 2.0, {0, -40});
  // The device-context painter takes no negative offset: (20, 60) to (60, 90), doubled.
  EXPECT_EQ(ColourAt(image, 60, 140), kBlue);
  wxImage const moved = Paint(&AnnotationTool::Draw, 2.0, {10, 0});
  EXPECT_EQ(ColourAt(moved, 62, 140), kBlue);
  EXPECT_EQ(ColourAt(moved, 50, 150), kWhite);
}

TEST_F(PaintingPass, SelectedObjectIsPaintedOutsideItsRangeByDrawAlone) {
  m_driver.GoToFrame(5);
  m_driver.Tool().SetSelectedsAnnotationEnd(2);
  ASSERT_FALSE(m_driver.Object()->IsPresentInFrame(5));
  wxImage const all = Paint();
  EXPECT_EQ(ColourAt(all, 30, 70), kBlue);
  EXPECT_TRUE(HasMarkers(all));
  wxImage const selected = Paint(&AnnotationTool::DrawOnlySelected);
  EXPECT_EQ(ColourAt(selected, 30, 70), kWhite);
  EXPECT_TRUE(HasMarkers(selected));
}

TEST_F(PaintingPass, DrawOnlySelectedLeavesTheOthersOut) {
  m_driver.Tool().GetToolModes().shape->m_properties->SetFillColor(*wxRED);
  m_driver.DrawShape({120, 60}, {160, 90});
  wxImage const image = Paint(&AnnotationTool::DrawOnlySelected);
  EXPECT_EQ(ColourAt(image, 130, 70), kRed);
  EXPECT_EQ(ColourAt(image, 30, 70), kWhite);
  m_driver.Tool().Deactivate();
  EXPECT_TRUE(AreaHas(Paint(&AnnotationTool::DrawOnlySelected), {0, 0, 200, 200}, kWhite));
}

TEST_F(PaintingPass, ObjectsOfOtherFramesAreNotPainted) {
  m_driver.Tool().Deactivate();
  m_driver.GoToFrame(3);
  EXPECT_TRUE(AreaHas(Paint(), {0, 0, 200, 200}, kWhite));
}

TEST_F(PaintingPass, FocusedObjectHasAnOutlineInItsFramesAlone) {
  m_driver.Tool().Deactivate();
  wxRect const plain = pixels::BoundsOfPaint(Paint());
  m_driver.Move(30, 70);
  ASSERT_TRUE(m_driver.Object()->IsFocused());
  wxRect const hovered = pixels::BoundsOfPaint(Paint());
  EXPECT_LT(hovered.GetLeft(), plain.GetLeft() - 2);
  m_driver.GoToFrame(4);
  ASSERT_TRUE(m_driver.Object()->IsFocused());
  EXPECT_TRUE(AreaHas(Paint(), {0, 0, 200, 200}, kWhite));
}

TEST_F(PaintingPass, PreviewLiesAboveTheObjects) {
  m_driver.Tool().Deactivate();
  m_driver.UseTool(Types::Shape);
  m_driver.Tool().GetToolModes().shape->m_properties->SetFillColor(*wxRED);
  m_driver.Press(100, 120);
  m_driver.Move(40, 40);
  wxImage const image = Paint();
  EXPECT_EQ(ColourAt(image, 50, 80), kRed);
  EXPECT_EQ(ColourAt(image, 30, 70), kBlue);
  m_driver.Release(40, 40);
}

TEST_F(PaintingPass, FrontObjectIsPaintedLast) {
  m_driver.Tool().GetToolModes().shape->m_properties->SetFillColor(*wxRED);
  m_driver.Tool().Deactivate();
  m_driver.DrawShape({150, 150}, {50, 80});
  EXPECT_EQ(ColourAt(Paint(), 55, 85), kRed);
}

TEST(PaintingOnAWindow, RefreshGoesToTheWindowLastPaintedOn) {
  ToolDriver driver(1, false, true);
  auto *const frame = new wxFrame(nullptr, wxID_ANY, "", {0, 0}, {100, 100});  // destroyed below
  bool isPainted = false;
  frame->Bind(wxEVT_PAINT, [&](wxPaintEvent &) {
    wxPaintDC dc(frame);
    driver.Tool().Draw(dc, frame, {0, 0}, 1.0);
    isPainted = true;
  });
  frame->Show();
  for (int i = 0; i < 100 && !isPainted; ++i) wxYield();
  ASSERT_TRUE(isPainted);
  isPainted = false;
  driver.Tool().Refresh();
  for (int i = 0; i < 100 && !isPainted; ++i) {
    wxMilliSleep(10);
    wxYield();
  }
  EXPECT_TRUE(isPainted);
  driver.Tool().Reset(false);
  frame->Destroy();
  wxYield();
}

// Each document that was loaded took a hook off the window, and what is taken off may not be
// cleared away by an event within another event.
TEST(PaintingOnAWindow, DocumentsLeaveNothingBehindAtTheWindow) {
  ToolDriver driver(1, false, true);
  auto *const frame = new wxFrame(nullptr, wxID_ANY, "", {0, 0}, {100, 100});  // destroyed below
  auto const paint = [&] {
    wxClientDC dc(frame);
    driver.Tool().Draw(dc, frame, {0, 0}, 1.0);
  };
  int inner = 0;
  frame->Bind(wxEVT_SIZE, [&](wxSizeEvent &event) {
    wxCommandEvent another(wxEVT_MENU);
    frame->GetEventHandler()->ProcessEvent(another);
    ++inner;
    event.Skip();
  });
  paint();
  driver.Tool().Reset(false);
  paint();
  // An assertion of wxWidgets fails the test.
  wxSizeEvent event(frame->GetSize());
  frame->GetEventHandler()->ProcessEvent(event);
  EXPECT_EQ(inner, 1);
  frame->Destroy();
  wxYield();
}

}  // namespace

}  // namespace framenote::test
