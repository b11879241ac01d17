// SPDX-License-Identifier: MIT
#include "desktop/canvas.h"

#include <vector>

#include <wx/textctrl.h>

#include "desktop/window_fixture.h"
#include "objects/ann_shape.h"
#include "objects/ann_text.h"
#include "support/test_pictures.h"
#include "support/tool_driver.h"

namespace framenote::test {

namespace {

/// The first place where two pictures differ, or (-1, -1).
wxPoint FirstDifference(wxImage const &a, wxImage const &b) {
  for (int y = 0; y < a.GetHeight(); ++y) {
    for (int x = 0; x < a.GetWidth(); ++x) {
      if (a.GetRed(x, y) != b.GetRed(x, y)) return {x, y};
    }
  }
  return {-1, -1};
}

class CanvasOnAWindow : public WindowTest {
protected:
  void SetUp() override {
    WindowTest::SetUp();
    m_canvas = new Canvas(m_frame);  // owned by the frame
    m_canvas->SetTool(m_driver.Shared());
    m_canvas->OnPointerMoved([this](auto const &pointer) { m_pointer = pointer; });
    m_canvas->OnZoomChanged([this](double zoom) { m_zooms.push_back(zoom); });
    ShowFrame(*m_canvas);
  }

  void TearDown() override {
    m_driver.Tool().Reset(false);
    WindowTest::TearDown();
  }

  void ShowPicture(wxImage const &picture) {
    m_canvas->SetPicture(picture, false);
    Idle();
  }

  ViewTransform const &View() const { return m_canvas->View(); }

  /// Where a place of the picture is on the canvas.
  wxPoint At(double x, double y) const {
    wxPoint2DDouble const place = View().ToWindow({x, y});
    return {wxRound(place.m_x), wxRound(place.m_y)};
  }

  ToolDriver m_driver;
  Canvas *m_canvas = nullptr;
  std::optional<Canvas::Pointer> m_pointer;
  std::vector<double> m_zooms;
};

TEST_F(CanvasOnAWindow, APictureIsFittedInADarkSurround) {
  ShowPicture(wxImage(1200, 400, true));
  EXPECT_EQ(m_canvas->GetClientSize(), wxSize(600, 400));
  EXPECT_DOUBLE_EQ(View().Zoom(), 0.5);
  wxImage const shown = Screenshot();
  EXPECT_EQ(shown.GetRed(300, 99), shown.GetBlue(300, 99));
  EXPECT_GT(shown.GetRed(300, 99), 20);
  EXPECT_LT(shown.GetRed(300, 99), 100);
  EXPECT_EQ(shown.GetRed(300, 100), 0);
  EXPECT_EQ(shown.GetRed(300, 299), 0);
  EXPECT_GT(shown.GetRed(300, 300), 20);
  EXPECT_EQ(m_zooms.back(), 0.5);
}

TEST_F(CanvasOnAWindow, TheWheelWithCtrlZoomsAtThePointer) {
  ShowPicture(NoisePicture(2000, 1500));
  m_canvas->ZoomTo(1.0);
  Idle();
  wxPoint const at(217, 133);
  wxPoint2DDouble const point = View().ToPicture(wxPoint2DDouble(at));
  for (int const rotation : {120, 240, -120, 60, 60}) {
    Wheel(at, rotation, wxMOD_CONTROL);
    EXPECT_NEAR(View().ToWindow(point).m_x, at.x, 0.5);
    EXPECT_NEAR(View().ToWindow(point).m_y, at.y, 0.5);
  }
  EXPECT_DOUBLE_EQ(View().Zoom(), 3.0);
  EXPECT_EQ(m_zooms.back(), 3.0);
}

TEST_F(CanvasOnAWindow, PixelsAreShownAsPixelsFromTwoHundredPerCent) {
  ShowPicture(PlacePicture(250, 250));
  for (int const zoom : {2, 3, 8}) {
    m_canvas->ZoomTo(zoom);
    Idle();
    wxImage const shown = Screenshot();
    wxPoint const corner = View().DeviceOrigin();
    for (wxPoint const &at : {wxPoint(280, 180), wxPoint(301, 199), wxPoint(320, 217)}) {
      EXPECT_EQ(shown.GetRed(at.x, at.y), (at.x - corner.x) / zoom) << zoom;
      EXPECT_EQ(shown.GetGreen(at.x, at.y), (at.y - corner.y) / zoom) << zoom;
    }
  }
}

TEST_F(CanvasOnAWindow, PixelsCanBeSmoothed) {
  wxImage picture(2, 1, true);
  picture.SetRGB(1, 0, 255, 255, 255);
  ShowPicture(picture);
  m_canvas->ZoomTo(32.0);
  Idle();
  wxPoint const edge = At(1, 0.5);
  EXPECT_EQ(Screenshot().GetRed(edge.x - 1, edge.y), 0);
  m_canvas->SetShowPixels(false);
  wxImage const shown = Screenshot();
  // A 64th of the way beside the middle between the two: 255 * 31 / 64 = 123.5.
  EXPECT_NEAR(shown.GetRed(edge.x - 1, edge.y), 123, 1);
  EXPECT_NEAR(shown.GetRed(edge.x, edge.y), 131, 1);
}

TEST_F(CanvasOnAWindow, OneToOneIsThePictureItself) {
  ShowPicture(NoisePicture(2000, 1500));
  m_canvas->ZoomTo(1.0);
  Idle();
  wxImage const shown = Screenshot();
  wxPoint const corner = View().DeviceOrigin();
  for (wxPoint const &at : {wxPoint(0, 0), wxPoint(300, 200), wxPoint(570, 370)}) {
    EXPECT_EQ(shown.GetRed(at.x, at.y),
              m_canvas->Picture().GetRed(at.x - corner.x, at.y - corner.y));
  }
}

TEST_F(CanvasOnAWindow, ARectangleIsDrawnWhereThePointerIsInTheZoomedPicture) {
  ShowPicture(NoisePicture(1000, 1000));
  m_driver.Tool().SetImage(m_canvas->Picture(), true);
  m_canvas->ZoomTo(4.0);
  m_canvas->CentreOn({300, 200});
  Idle();
  m_driver.UseTool(Types::Shape);
  Drag(At(270, 170), At(320, 210));
  ASSERT_EQ(m_driver.ObjectCount(), 1U);
  auto const &corners = m_driver.ObjectAs<AnnShape>()->GetCoordinates().Coords();
  EXPECT_EQ(corners.m_topLeft, wxPoint2DDouble(270, 170));
  EXPECT_EQ(corners.m_bottomRight, wxPoint2DDouble(320, 210));
  EXPECT_FALSE(m_canvas->HasCapture());
  EXPECT_TRUE(m_canvas->HasFocus());
}

TEST_F(CanvasOnAWindow, TwoQuickPressesDrawAsTwo) {
  ShowPicture(NoisePicture(600, 400));
  m_driver.UseTool(Types::Shape);
  MoveTo(At(100, 100));
  m_mouse.MouseDown();
  m_mouse.MouseUp();
  m_mouse.MouseDown();
  Idle();
  MoveTo(At(150, 130));
  MoveTo(At(180, 160));
  Release();
  ASSERT_EQ(m_driver.ObjectCount(), 1U);
  EXPECT_EQ(m_driver.ObjectAs<AnnShape>()->GetCoordinates().Coords().m_topLeft,
            wxPoint2DDouble(100, 100));
}

TEST_F(CanvasOnAWindow, AnEditedTextHasTheFocusAndAClickBesideTakesItBack) {
  ShowPicture(NoisePicture(600, 400));
  m_driver.UseTool(Types::Text);
  Drag(At(100, 100), At(300, 200));
  ASSERT_EQ(m_driver.State(), ToolState::Editing);
  EXPECT_NE(dynamic_cast<wxTextCtrl *>(wxWindow::FindFocus()), nullptr);
  m_mouse.Text("hello");
  Idle();
  Click(At(450, 350));
  EXPECT_NE(m_driver.State(), ToolState::Editing);
  EXPECT_TRUE(m_canvas->HasFocus());
  ASSERT_EQ(m_driver.ObjectCount(), 1U);
  EXPECT_EQ(m_driver.ObjectAs<AnnText>()->GetText(), "hello");
}

TEST_F(CanvasOnAWindow, ALostMouseFinishesTheGestureWhereItWas) {
  ShowPicture(NoisePicture(600, 400));
  m_driver.UseTool(Types::Shape);
  MoveTo(At(100, 100));
  Press();
  MoveTo(At(150, 130));
  EXPECT_EQ(m_driver.State(), ToolState::Drawing);
  m_canvas->ReleaseMouse();
  wxMouseCaptureLostEvent lost;
  m_canvas->ProcessWindowEvent(lost);
  EXPECT_EQ(m_driver.ObjectCount(), 1U);
  EXPECT_NE(m_driver.State(), ToolState::Drawing);
  Release();
  EXPECT_EQ(m_driver.ObjectCount(), 1U);
}

TEST_F(CanvasOnAWindow, APannedViewShowsWhatAFreshOneWould) {
  ShowPicture(NoisePicture(1200, 900));
  for (double const zoom : {0.7, 1.0, 1.5, 3.0}) {
    m_canvas->ZoomTo(zoom);
    m_canvas->CentreOn({600, 450});
    Screenshot();
    for (wxPoint const &way : {wxPoint(31, 17), wxPoint(-60, 5), wxPoint(3, -80)}) {
      Drag({300, 200}, wxPoint(300, 200) + way, wxMOUSE_BTN_MIDDLE);
      wxImage const shown = Screenshot();
      m_canvas->SetPicture(m_canvas->Picture(), false);
      wxImage const fresh = Screenshot();
      EXPECT_EQ(FirstDifference(shown, fresh), wxPoint(-1, -1)) << zoom;
    }
  }
}

TEST_F(CanvasOnAWindow, TheMiddleButtonDragsThePicture) {
  ShowPicture(NoisePicture(2000, 1500));
  m_canvas->ZoomTo(1.0);
  Idle();
  wxPoint const before = View().DeviceOrigin();
  Drag({300, 200}, {340, 170}, wxMOUSE_BTN_MIDDLE);
  EXPECT_EQ(View().DeviceOrigin() - before, wxPoint(40, -30));
  EXPECT_FALSE(m_canvas->HasCapture());
  MoveTo({100, 100});
  EXPECT_EQ(View().DeviceOrigin() - before, wxPoint(40, -30));
}

TEST_F(CanvasOnAWindow, TheLeftButtonDragsThePictureWhileTheSpaceBarIsHeld) {
  ShowPicture(NoisePicture(2000, 1500));
  m_canvas->ZoomTo(1.0);
  m_driver.UseTool(Types::Shape);
  m_canvas->SetFocus();
  Idle();
  wxPoint const before = View().DeviceOrigin();
  m_mouse.KeyDown(WXK_SPACE);
  Idle();
  Drag({300, 200}, {320, 260});
  m_mouse.KeyUp(WXK_SPACE);
  Idle();
  EXPECT_EQ(View().DeviceOrigin() - before, wxPoint(20, 60));
  EXPECT_EQ(m_driver.ObjectCount(), 0U);
  Drag({100, 100}, {150, 150});
  EXPECT_EQ(m_driver.ObjectCount(), 1U);
}

TEST_F(CanvasOnAWindow, TheSpaceBarTellsWhetherItServedToDrag) {
  ShowPicture(NoisePicture(2000, 1500));
  m_canvas->HoldPanKey();
  EXPECT_FALSE(m_canvas->ReleasePanKey());
  m_canvas->HoldPanKey();
  Drag({300, 200}, {320, 260});
  EXPECT_TRUE(m_canvas->ReleasePanKey());
  EXPECT_FALSE(m_canvas->ReleasePanKey());
}

TEST_F(CanvasOnAWindow, TheWheelScrollsAndWithShiftSideways) {
  ShowPicture(NoisePicture(2000, 1500));
  m_canvas->ZoomTo(1.0);
  Idle();
  wxPoint const before = View().DeviceOrigin();
  int const way = 3 * m_canvas->FromDIP(18);
  Wheel({300, 200}, -120);
  EXPECT_EQ(View().DeviceOrigin() - before, wxPoint(0, -way));
  Wheel({300, 200}, 120, wxMOD_SHIFT);
  EXPECT_EQ(View().DeviceOrigin() - before, wxPoint(way, -way));
}

TEST_F(CanvasOnAWindow, ScrollBarsFollowAndLead) {
  ShowPicture(NoisePicture(2000, 1500));
  EXPECT_LE(m_canvas->GetScrollRange(wxVERTICAL), m_canvas->GetScrollThumb(wxVERTICAL));
  m_canvas->ZoomTo(1.0);
  Idle();
  EXPECT_EQ(m_canvas->GetScrollPos(wxVERTICAL), View().VerticalBar().position);
  EXPECT_EQ(m_canvas->GetScrollRange(wxHORIZONTAL), View().HorizontalBar().range);
  wxScrollWinEvent event(wxEVT_SCROLLWIN_THUMBTRACK, 500, wxVERTICAL);
  m_canvas->ProcessWindowEvent(event);
  EXPECT_EQ(View().VerticalBar().position, 500);
}

TEST_F(CanvasOnAWindow, ThePointerIsToldWithTheColourUnderIt) {
  ShowPicture(PlacePicture(200, 100));
  m_canvas->ZoomTo(2.0);
  Idle();
  MoveTo(At(30, 40) + wxPoint(1, 1));
  ASSERT_TRUE(m_pointer);
  EXPECT_TRUE(m_pointer->isOnPicture);
  EXPECT_EQ(m_pointer->pixel, wxPoint(30, 40));
  EXPECT_EQ(m_pointer->colour, wxColour(30, 40, 128));
  MoveTo(At(0, 0) - wxPoint(1, 1));
  ASSERT_TRUE(m_pointer);
  EXPECT_FALSE(m_pointer->isOnPicture);
  EXPECT_EQ(m_pointer->pixel, wxPoint(-1, -1));
  MoveTo({-30, 900});
  EXPECT_FALSE(m_pointer);
}

TEST_F(CanvasOnAWindow, WithoutAPictureOrAToolNothingFails) {
  m_canvas->SetTool(nullptr);
  ShowPicture(wxNullImage);
  Drag({10, 10}, {50, 50});
  Wheel({20, 20}, 120, wxMOD_CONTROL);
  ASSERT_TRUE(m_pointer);
  EXPECT_FALSE(m_pointer->isOnPicture);
  EXPECT_GT(Screenshot().GetRed(300, 200), 20);
}

TEST_F(CanvasOnAWindow, AnotherPictureKeepsTheZoom) {
  ShowPicture(NoisePicture(2000, 1500));
  m_canvas->ZoomTo(1.0);
  m_canvas->CentreOn({900, 700});
  Idle();
  wxPoint const before = View().DeviceOrigin();
  m_canvas->SetPicture(NoisePicture(2000, 1500, 2), true);
  Idle();
  EXPECT_EQ(View().DeviceOrigin(), before);
  EXPECT_EQ(Screenshot().GetRed(0, 0), m_canvas->Picture().GetRed(-before.x, -before.y));
}

}  // namespace

}  // namespace framenote::test
