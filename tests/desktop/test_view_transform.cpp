// SPDX-License-Identifier: MIT
#include "desktop/view_transform.h"

#include <gtest/gtest.h>

namespace framenote::test {

namespace {

ViewTransform View(wxSize const &picture, wxSize const &window) {
  ViewTransform view;
  view.SetPicture(picture);
  view.SetWindow(window);
  return view;
}

TEST(ViewTransform, FitShowsTheWholePictureInTheMiddle) {
  ViewTransform const view = View({2000, 1000}, {1000, 800});
  EXPECT_TRUE(view.IsFitted());
  EXPECT_DOUBLE_EQ(view.Scale(), 0.5);
  // 500 of 800 units high: 150 are left above.
  EXPECT_EQ(view.DeviceArea(), wxRect(0, 150, 1000, 500));
  EXPECT_DOUBLE_EQ(view.Offset().m_y, 300.0);
}

TEST(ViewTransform, FitFollowsTheSizesUntilAZoomIsChosen) {
  ViewTransform view = View({2000, 1000}, {1000, 800});
  view.SetWindow({500, 800});
  EXPECT_DOUBLE_EQ(view.Zoom(), 0.25);
  view.SetPicture({250, 100});
  EXPECT_DOUBLE_EQ(view.Zoom(), 2.0);
  view.ZoomTo(1.0, view.Centre());
  view.SetWindow({1000, 800});
  EXPECT_FALSE(view.IsFitted());
  EXPECT_DOUBLE_EQ(view.Zoom(), 1.0);
}

TEST(ViewTransform, ZoomKeepsThePointUnderThePointer) {
  ViewTransform view = View({4000, 4000}, {1000, 1000});
  view.ZoomTo(1.0, {500, 500});
  wxPoint2DDouble const at(300, 700);
  wxPoint2DDouble const point = view.ToPicture(at);
  EXPECT_EQ(point, wxPoint2DDouble(1800, 2200));
  for (int const step : {1, 3, 2, -1, -4, -1}) {
    view.ZoomBySteps(step, at);
    // Half a screen pixel, as the picture's corner is put on one.
    EXPECT_NEAR(view.ToWindow(point).m_x, at.m_x, 0.5) << view.Zoom();
    EXPECT_NEAR(view.ToWindow(point).m_y, at.m_y, 0.5) << view.Zoom();
  }
  EXPECT_DOUBLE_EQ(view.Zoom(), 1.0);
  EXPECT_NEAR(view.ToPicture(at).m_x, 1800.0, 1e-9);
}

TEST(ViewTransform, ThePointThatIsSeenAtThePointerStaysThere) {
  // In a window of odd sides the corner lies between pixels: at (292.5 - 1000, 192.5 - 750).
  ViewTransform view = View({2000, 1500}, {585, 385});
  view.ZoomTo(1.0, view.Centre());
  EXPECT_EQ(view.DeviceOrigin(), wxPoint(-707, -557));
  for (wxPoint2DDouble const &at : {wxPoint2DDouble(217, 133), wxPoint2DDouble(400, 12)}) {
    wxPoint2DDouble const point = view.ToPicture(at);
    for (int const steps : {1, 2, 3, -4, 5, -7, 1, -1}) {
      view.ZoomBySteps(steps, at);
      EXPECT_NEAR(view.ToWindow(point).m_x, at.m_x, 0.5 + 1e-9) << view.Zoom();
      EXPECT_NEAR(view.ToWindow(point).m_y, at.m_y, 0.5 + 1e-9) << view.Zoom();
    }
  }
}

TEST(ViewTransform, ZoomStaysWithinItsBounds) {
  ViewTransform view = View({1000, 1000}, {500, 500});
  view.ZoomTo(1000.0, view.Centre());
  EXPECT_DOUBLE_EQ(view.Zoom(), 32.0);
  view.ZoomTo(1e-9, view.Centre());
  EXPECT_DOUBLE_EQ(view.Zoom(), 0.02);
  view.ZoomTo(-1.0, view.Centre());
  EXPECT_DOUBLE_EQ(view.Zoom(), 0.02);
}

TEST(ViewTransform, AHugePictureMayBeSmallerThanTheLeastZoom) {
  ViewTransform view = View({100000, 1000}, {1000, 1000});
  EXPECT_DOUBLE_EQ(view.Zoom(), 0.01);
  view.ZoomBySteps(-1, view.Centre());
  EXPECT_DOUBLE_EQ(view.Zoom(), 0.01);
  view.ZoomBySteps(1, view.Centre());
  EXPECT_DOUBLE_EQ(view.Zoom(), 0.02);
}

TEST(ViewTransform, StepsGoThroughTheUsualZooms) {
  ViewTransform view = View({1000, 1000}, {800, 800});
  view.ZoomBySteps(1, view.Centre());
  EXPECT_DOUBLE_EQ(view.Zoom(), 1.0);
  view.ZoomBySteps(2, view.Centre());
  EXPECT_DOUBLE_EQ(view.Zoom(), 2.0);
  view.ZoomBySteps(-3, view.Centre());
  EXPECT_DOUBLE_EQ(view.Zoom(), 2.0 / 3.0);
  view.ZoomBySteps(100, view.Centre());
  EXPECT_DOUBLE_EQ(view.Zoom(), 32.0);
  view.ZoomBySteps(-100, view.Centre());
  EXPECT_DOUBLE_EQ(view.Zoom(), 0.02);
}

TEST(ViewTransform, ASmallPictureStaysInTheMiddle) {
  ViewTransform view = View({100, 50}, {400, 301});
  view.ZoomTo(1.0, {0, 0});
  view.PanBy(1000, -1000);
  EXPECT_EQ(view.DeviceOrigin(), wxPoint(150, 126));  // (301 - 50) / 2 = 125.5, rounded up
  EXPECT_EQ(view.HorizontalBar().range, view.HorizontalBar().page);
}

TEST(ViewTransform, ALargePictureIsPulledFromTheEdgeByAQuarterOfTheWindow) {
  ViewTransform view = View({4000, 1100}, {800, 1000});
  view.ZoomTo(1.0, {0, 0});
  view.PanBy(1e6, 1e6);
  EXPECT_EQ(view.DeviceOrigin(), wxPoint(200, 50));  // half of what is too long where that is less
  view.PanBy(-1e6, -1e6);
  EXPECT_EQ(view.DeviceOrigin(), wxPoint(800 - 4000 - 200, 1000 - 1100 - 50));
}

TEST(ViewTransform, ScrollBarsCoverThePictureAndItsMargins) {
  ViewTransform view = View({4000, 500}, {800, 1000});
  view.ZoomTo(1.0, {0, 0});
  view.PanBy(1e6, 0);
  EXPECT_EQ(view.HorizontalBar().range, 4400);
  EXPECT_EQ(view.HorizontalBar().page, 800);
  EXPECT_EQ(view.HorizontalBar().position, 0);
  view.ScrollTo(3600, 0);
  EXPECT_EQ(view.HorizontalBar().position, 3600);
  EXPECT_EQ(view.DeviceOrigin(), wxPoint(-3400, 250));
  view.ScrollTo(99999, 99999);
  EXPECT_EQ(view.HorizontalBar().position, 3600);
}

TEST(ViewTransform, AGrowingWindowKeepsItsMiddle) {
  ViewTransform view = View({4000, 4000}, {1000, 1000});
  view.ZoomTo(1.0, view.Centre());
  wxPoint2DDouble const middle = view.ToPicture(view.Centre());
  view.SetWindow({600, 1200});
  EXPECT_EQ(view.ToPicture(view.Centre()), middle);
}

TEST(ViewTransform, AtWholeZoomsPixelsLieOnPixels) {
  ViewTransform view = View({1000, 1000}, {301, 303});
  view.ZoomTo(3.0, {17, 31});
  view.PanBy(0.4, -7.3);
  for (int const x : {0, 1, 499, 1000}) {
    double const onWindow = view.ToWindow(wxPoint2DDouble(x, x)).m_x;
    EXPECT_NEAR(onWindow, view.DeviceOrigin().x + 3 * x, 1e-9);
  }
}

TEST(ViewTransform, OnADenseScreenOneHundredPerCentIsAScreenPixel) {
  ViewTransform view;
  view.SetPicture({1000, 1000});
  view.SetWindow({400, 400});
  view.SetPixelRatio(2.0);
  EXPECT_DOUBLE_EQ(view.Zoom(), 0.8);
  EXPECT_DOUBLE_EQ(view.Scale(), 0.4);
  view.ZoomTo(1.0, view.Centre());
  EXPECT_DOUBLE_EQ(view.Scale(), 0.5);
  EXPECT_EQ(view.DeviceArea(), wxRect(-100, -100, 1000, 1000));
  EXPECT_EQ(view.Offset(), wxPoint2DDouble(-100, -100));
  view.PanBy(0.3, 0.2);  // 0.6 and 0.4 screen pixels
  EXPECT_EQ(view.DeviceOrigin(), wxPoint(-99, -100));
}

TEST(ViewTransform, WithoutSizesNothingIsDividedByZero) {
  ViewTransform const view = View({0, 0}, {0, -3});
  EXPECT_DOUBLE_EQ(view.Zoom(), 1.0);
  EXPECT_EQ(view.DeviceArea(), wxRect(0, 0, 1, 1));
}

}  // namespace

}  // namespace framenote::test
