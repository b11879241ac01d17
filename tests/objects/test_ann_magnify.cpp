// SPDX-License-Identifier: MIT
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "objects/magnify_support.h"

namespace framenote::test {

namespace {

TEST_F(AnnMagnifyTest, ShowsWhatLiesUnderItEnlargedAboutItsCentre) {
  for (auto const type : {IAnnPainter::GraphicsContext, IAnnPainter::DeviceContext}) {
    wxImage const painted = Paint(Lens({40, 40}, {80, 80}), type);
    // Zoom 2 about pixel 59: x shows (x + 59) / 2.
    EXPECT_EQ(pixels::BoundsOfPaint(painted), wxRect(40, 40, 40, 40));
    EXPECT_EQ(Shown(painted, 59, 59), wxPoint(59, 59));
    EXPECT_EQ(Shown(painted, 40, 40), wxPoint(49, 49));
    EXPECT_EQ(Shown(painted, 79, 60), wxPoint(69, 59));
  }
}

TEST_F(AnnMagnifyTest, LowestZoomStaysCentred) {
  Look().SetZoom(1.5);
  wxImage const painted = Paint(Lens({40, 40}, {80, 80}));
  // The origin of the enlarged picture is truncate(59 * -0.5) = -29: x shows (x + 29) / 1.5.
  EXPECT_EQ(Shown(painted, 59, 59), wxPoint(58, 58));
  EXPECT_EQ(Shown(painted, 41, 59), wxPoint(46, 58));
  EXPECT_EQ(Shown(painted, 78, 59), wxPoint(71, 58));
}

TEST_F(AnnMagnifyTest, AllMethodsHaveThePixelsOfAScaledPicture) {
  m_driver.Tool().SetImage(NoisePicture(kCanvas.x, kCanvas.y), true);
  wxImage const &picture = m_driver.Tool().GetImage();
  for (auto const method :
       {wxIMAGE_QUALITY_NEAREST, wxIMAGE_QUALITY_BILINEAR, wxIMAGE_QUALITY_BICUBIC,
        wxIMAGE_QUALITY_BOX_AVERAGE, wxIMAGE_QUALITY_HIGH}) {
    Look().SetZoomMethod(method);
    Look().SetZoom(3.0);
    wxImage const painted = Paint(Lens({40, 40}, {80, 80})).GetSubImage(wxRect(40, 40, 40, 40));
    // The origin of the enlarged picture is 59 * -2 = -118.
    wxImage const expected = picture.Scale(600, 480, method).GetSubImage(wxRect(158, 158, 40, 40));
    EXPECT_TRUE(pixels::Alike(painted, expected, 2)) << static_cast<int>(method);
  }
}

TEST_F(AnnMagnifyTest, EllipseIsCutOutOfItsRectangle) {
  Look().SetShape(AnnShapeProperties::Ellipse);
  wxImage const painted = Paint(Lens({40, 40}, {100, 80}));
  EXPECT_EQ(pixels::ColourAt(painted, 43, 43), pixels::kWhite);
  EXPECT_EQ(Shown(painted, 69, 59), wxPoint(69, 59));
}

TEST_F(AnnMagnifyTest, LensThatOverhangsIsClippedToThePicture) {
  // The visible part is columns 0 to 19, and is enlarged about column 9: x shows (x + 9) / 2.
  wxImage const painted = Paint(Lens({-20, 40}, {20, 80}));
  EXPECT_EQ(Shown(painted, 9, 59), wxPoint(9, 59));
  EXPECT_EQ(Shown(painted, 0, 59), wxPoint(4, 59));
  EXPECT_EQ(Shown(painted, 19, 59), wxPoint(14, 59));
}

TEST_F(AnnMagnifyTest, LensOutsideThePicturePaintsItsBorderOnly) {
  Look().SetBorderType(AnnMagnifyProperties::ShapeOnly);
  Look().SetBorderColor(*wxRED);
  AnnMagnify const lens = Lens({210, 20}, {250, 60});
  EXPECT_FALSE(lens.WouldDisappear());
  wxImage const painted =
      PaintedBy(IAnnPainter::GraphicsContext, wxSize(300, 160), 1.0, [&](auto &painter) {
        lens.Draw(painter, {0.0, 0.0});
      });
  EXPECT_TRUE(pixels::AreaHas(painted, wxRect(216, 26, 28, 28), pixels::kWhite));
  EXPECT_GT(pixels::CountOf(painted, pixels::kRed, 10), 100);
  Look().SetBorderType(AnnMagnifyProperties::Transparent);
  EXPECT_TRUE(Lens({210, 20}, {250, 60}).WouldDisappear());
}

TEST_F(AnnMagnifyTest, BorderTypeZeroHasNoOutlineWhateverTheColour) {
  Look().SetBorderColor(*wxRED);
  Look().SetBorderType(AnnMagnifyProperties::Transparent);
  EXPECT_EQ(pixels::CountOf(Paint(Lens({40, 40}, {80, 80})), pixels::kRed), 0);
  Look().SetBorderType(AnnMagnifyProperties::ShapeOnly);
  EXPECT_GT(pixels::CountOf(Paint(Lens({40, 40}, {80, 80})), pixels::kRed), 100);
}

TEST_F(AnnMagnifyTest, CentreThatWasDraggedAwayIsShownInTheLensThatStays) {
  AnnMagnify lens = Lens({40, 40}, {80, 80});
  DragCentre(lens, {60, 30});
  EXPECT_EQ(SizeOf(lens), wxRect(wxPoint(40, 40), wxPoint(80, 80)));
  wxImage const painted = Paint(lens);
  EXPECT_EQ(pixels::BoundsOfPaint(painted), wxRect(40, 40, 40, 40));
  // The source area is columns 100 to 139 with 119 in its middle, rows 70 to 109 with 89.
  EXPECT_EQ(Shown(painted, 59, 59), wxPoint(119, 89));
  EXPECT_EQ(Shown(painted, 40, 40), wxPoint(109, 79));
}

TEST_F(AnnMagnifyTest, LensWithACentreOfItsOwnMovesWithoutIt) {
  AnnMagnify lens = Lens({40, 40}, {80, 80});
  DragCentre(lens, {60, 30});
  ASSERT_FALSE(lens.IsAtCenterPoint({42, 42}));
  lens.MoveFor({10, -20});
  wxImage const painted = Paint(lens);
  EXPECT_EQ(pixels::BoundsOfPaint(painted), wxRect(50, 20, 40, 40));
  EXPECT_EQ(Shown(painted, 69, 39), wxPoint(119, 89));
}

TEST_F(AnnMagnifyTest, LensWithoutACentreOfItsOwnTakesItAlong) {
  AnnMagnify lens = Lens({40, 40}, {80, 80});
  lens.MoveFor({10, 20});
  EXPECT_EQ(Shown(Paint(lens), 69, 79), wxPoint(69, 79));
}

TEST_F(AnnMagnifyTest, MovingAllFramesMovesTheViewAlone) {
  AnnMagnify lens = Lens({40, 40}, {80, 80});
  lens.MoveAllFramesFor({10, 20});
  EXPECT_EQ(pixels::BoundsOfPaint(Paint(lens)), wxRect(50, 60, 40, 40));
  // Until it is refreshed the lens shows what it showed before.
  EXPECT_EQ(Shown(Paint(lens), 69, 79), wxPoint(59, 59));
  lens.UpdateSubImageAndSubBitmap(false);
  EXPECT_EQ(Shown(Paint(lens), 69, 79), wxPoint(69, 79));
}

TEST_F(AnnMagnifyTest, ResettingBringsTheCentreBack) {
  AnnMagnify lens = Lens({40, 40}, {80, 80});
  wxImage const before = Paint(lens);
  DragCentre(lens, {60, 30});
  EXPECT_EQ(lens.ToJSON().ItemAt("CoordinatesCenterPoint").Size(), 0);
  lens.OnObjectModified();
  EXPECT_EQ(JsonToUtf8(lens.ToJSON().ItemAt("CoordinatesCenterPoint")),
            R"([{"CenterPoint":[120.0,90.0],"Range":[0,0]}])");
  lens.ResetCenterPosition();
  EXPECT_TRUE(pixels::Alike(Paint(lens), before, 0));
  EXPECT_EQ(JsonToUtf8(lens.ToJSON().ItemAt("CoordinatesCenterPoint")), "[]");
}

TEST_F(AnnMagnifyTest, CentreIsHeldWithinFifteenScreenPixels) {
  AnnMagnify lens = Lens({40, 40}, {80, 80});
  EXPECT_TRUE(lens.IsAtCenterPoint({75, 60}));
  EXPECT_FALSE(lens.IsAtCenterPoint({76, 60}));
  SetZoom(3.0);
  EXPECT_TRUE(lens.IsAtCenterPoint({65, 60}));
  EXPECT_FALSE(lens.IsAtCenterPoint({66, 60}));
}

TEST_F(AnnMagnifyTest, FixedSourceSizeGrowsTheLensWithTheZoom) {
  Look().SetFixedSourceSize(true);
  AnnMagnify lens = Lens({60, 60}, {100, 80});
  Look().SetZoom(4.0);
  lens.UpdateProperties();
  // Each corner moved away from (80, 70) by once its distance.
  EXPECT_TRUE(At(RecordOf(lens).m_topLeft, 40, 50));
  EXPECT_TRUE(At(RecordOf(lens).m_topRight, 120, 50));
  EXPECT_TRUE(At(RecordOf(lens).m_bottomRight, 120, 90));
  EXPECT_TRUE(At(RecordOf(lens).m_bottomLeft, 40, 90));
  EXPECT_NE(JsonToUtf8(lens.ToJSON()).find("[40.0,50.0]"), std::string::npos);
  Look().SetZoom(2.0);
  lens.UpdateProperties();
  EXPECT_TRUE(At(RecordOf(lens).m_topLeft, 60, 60));
}

TEST_F(AnnMagnifyTest, LensOfAnyZoomKeepsItsSizeOtherwise) {
  Look().SetFixedSourceSize(false);
  AnnMagnify lens = Lens({40, 40}, {80, 80});
  Look().SetZoom(4.0);
  lens.UpdateProperties();
  EXPECT_TRUE(At(RecordOf(lens).m_topLeft, 40, 40));
  wxImage const painted = Paint(lens);
  // The origin is 59 * -3 = -177: x shows (x + 177) / 4.
  EXPECT_EQ(Shown(painted, 40, 59), wxPoint(54, 59));
  EXPECT_EQ(Shown(painted, 79, 59), wxPoint(64, 59));
}

TEST_F(AnnMagnifyTest, ZoomBeforeTheFirstRefreshLeavesTheLens) {
  m_driver.Tool().SetImage(wxNullImage, true);
  AnnMagnify lens = Lens({40, 40}, {80, 80});
  lens.ResizeOnZoom(4.0);
  EXPECT_TRUE(At(RecordOf(lens).m_topLeft, 40, 40));
  EXPECT_EQ(pixels::BoundsOfPaint(Paint(lens)), wxRect());
}

TEST_F(AnnMagnifyTest, ZoomsWithoutAPictureAreEachMeasuredFromTheLast) {
  AnnMagnify lens = Lens({60, 60}, {80, 80});
  m_driver.Tool().SetImage(wxNullImage, true);
  for (double const zoom : {3.0, 4.0, 5.0, 2.0}) {
    Look().SetZoom(zoom);
    lens.UpdateProperties();
    // 20 wide at zoom 2.
    EXPECT_NEAR(RecordOf(lens).m_bottomRight.m_x - RecordOf(lens).m_topLeft.m_x, 10.0 * zoom, 1e-9);
  }
}

TEST_F(AnnMagnifyTest, ZoomOutsideItsSenseShowsSomething) {
  wxImage plain = [&] {
    Look().SetZoom(1.0);
    return Paint(Lens({40, 40}, {80, 80}));
  }();
  for (double const zoom : {0.0, -2.0, std::numeric_limits<double>::quiet_NaN()}) {
    Look().SetZoom(zoom);
    EXPECT_TRUE(pixels::Alike(Paint(Lens({40, 40}, {80, 80})), plain, 0)) << zoom;
  }
  Look().SetZoom(1e9);
  wxImage const far = Paint(Lens({40, 40}, {80, 80}));
  EXPECT_EQ(pixels::BoundsOfPaint(far), wxRect(40, 40, 40, 40));
  Look().SetFixedSourceSize(false);
  AnnMagnify lens = Lens({40, 40}, {80, 80});
  Look().SetZoom(std::numeric_limits<double>::quiet_NaN());
  lens.UpdateProperties();
  lens.UpdateProperties();
  EXPECT_FALSE(pixels::BoundsOfPaint(Paint(lens)).IsEmpty());
}

TEST_F(AnnMagnifyTest, FromThePartOnlyItsPixelsTakePart) {
  AnnMagnify lens = Lens({40, 40}, {80, 80});
  lens.UpdateSubImageAndSubBitmap(true);
  wxImage const painted = Paint(lens);
  // The part begins at 40; its centre is 19 from there, and x shows 40 + (x - 40 + 19) / 2.
  EXPECT_EQ(Shown(painted, 59, 59), wxPoint(59, 59));
  EXPECT_EQ(Shown(painted, 40, 40), wxPoint(49, 49));
}

TEST_F(AnnMagnifyTest, ResizedLensShowsItsNewPlace) {
  AnnMagnify lens = Lens({40, 40}, {80, 80});
  wxStockCursor cursor = wxCURSOR_ARROW;
  ASSERT_TRUE(lens.IsAtResizePoint({80, 80}, cursor));
  lens.PrepareResizing();
  lens.ResizeTo({100, 80}, false);
  // Columns 40 to 99 with 69 in their middle: x shows (x + 69) / 2.
  wxImage const painted = Paint(lens);
  EXPECT_EQ(Shown(painted, 69, 59), wxPoint(69, 59));
  EXPECT_EQ(Shown(painted, 41, 59), wxPoint(55, 59));
  EXPECT_EQ(Shown(painted, 99, 59), wxPoint(84, 59));
}

TEST_F(AnnMagnifyTest, AnotherMethodReachesALensThatIsThere) {
  m_driver.Tool().SetImage(NoisePicture(kCanvas.x, kCanvas.y), true);
  Look().SetZoom(3.0);
  AnnMagnify lens = Lens({40, 40}, {80, 80});
  Look().SetZoomMethod(wxIMAGE_QUALITY_BICUBIC);
  lens.UpdateProperties();
  // The origin of the enlarged picture is 59 * -2 = -118.
  wxImage const expected = m_driver.Tool()
                               .GetImage()
                               .Scale(600, 480, wxIMAGE_QUALITY_BICUBIC)
                               .GetSubImage(wxRect(158, 158, 40, 40));
  EXPECT_TRUE(pixels::Alike(Paint(lens).GetSubImage(wxRect(40, 40, 40, 40)), expected, 2));
}

TEST_F(AnnMagnifyTest, AnotherShapeReachesALensThatIsThere) {
  AnnMagnify lens = Lens({40, 40}, {100, 80});
  EXPECT_EQ(Shown(Paint(lens), 43, 43), wxPoint(56, 51));  // (43 + 69) / 2, (43 + 59) / 2
  Look().SetShape(AnnShapeProperties::Ellipse);
  lens.UpdateProperties();
  EXPECT_EQ(pixels::ColourAt(Paint(lens), 43, 43), pixels::kWhite);
  EXPECT_EQ(Shown(Paint(lens), 69, 59), wxPoint(69, 59));
  Look().SetShape(AnnShapeProperties::Rectangle);
  lens.UpdateProperties();
  EXPECT_EQ(Shown(Paint(lens), 43, 43), wxPoint(56, 51));
}

TEST_F(AnnMagnifyTest, LensMuchLargerThanThePictureShowsItWithinThePicture) {
  // 4,001 by 4,001 pixels. All of the picture is its source, with (99, 79) in the middle.
  AnnMagnify lens = Lens({-2000, -2000}, {2000, 2000});
  wxImage const painted = Paint(lens);
  EXPECT_EQ(Shown(painted, 99, 79), wxPoint(99, 79));
  EXPECT_EQ(Shown(painted, 1, 79), wxPoint(50, 79));
  EXPECT_EQ(Shown(painted, 199, 159), wxPoint(149, 119));
  // What is shown lies 50 pixels to the right: x shows (x + 50 + 99) / 2.
  DragCentre(lens, {50, 0});
  EXPECT_EQ(Shown(Paint(lens), 49, 79), wxPoint(99, 79));
  EXPECT_EQ(Shown(Paint(lens), 99, 79), wxPoint(124, 79));
}

TEST_F(AnnMagnifyTest, DocumentHasItsMembersInOrder) {
  AnnMagnify const lens = Lens({40, 40}, {80, 80});
  std::string const text = JsonToUtf8(lens.ToJSON());
  std::vector<std::string> const members = {R"({"Id":8,"Properties":{)", R"(,"Rectangle":{)",
                                            R"(,"CoordinatesCenterPoint":[]})"};
  std::size_t at = 0;
  for (std::string const &member : members) {
    at = text.find(member, at);
    ASSERT_NE(at, std::string::npos) << member << " in " << text;
  }
}

TEST_F(AnnMagnifyTest, RestoredLensShowsTheSame) {
  AnnMagnify lens = Lens({40, 40}, {80, 80});
  DragCentre(lens, {60, 30});
  lens.OnObjectModified();
  AnnMagnify const restored = Restored(lens.ToJSON());
  EXPECT_TRUE(pixels::Alike(Paint(restored), Paint(lens), 0));
  EXPECT_EQ(JsonToUtf8(restored.ToJSON()), JsonToUtf8(lens.ToJSON()));
}

TEST_F(AnnMagnifyTest, ValidatorAsksForTheRectangleAndTheCentres) {
  wxJSONValue const whole = Lens({40, 40}, {80, 80}).ToJSON();
  EXPECT_TRUE(AnnMagnify::IsJSONValid(whole));
  wxJSONValue json(wxJSONTYPE_OBJECT);
  json.Set("Rectangle", whole.ItemAt("Rectangle"));
  EXPECT_FALSE(AnnMagnify::IsJSONValid(json));
  json.Set("CoordinatesCenterPoint", wxJSONValue(wxJSONTYPE_ARRAY));
  EXPECT_TRUE(AnnMagnify::IsJSONValid(json));
}

TEST_F(AnnMagnifyTest, CopyShowsTheSameAndIsItsOwn) {
  AnnMagnify lens = Lens({40, 40}, {80, 80});
  DragCentre(lens, {60, 30});
  AnnMagnify const copy(lens);
  wxImage const before = Paint(lens);
  EXPECT_TRUE(pixels::Alike(Paint(copy), before, 0));
  lens.ResetCenterPosition();
  lens.MoveFor({30, 30});
  EXPECT_TRUE(pixels::Alike(Paint(copy), before, 0));
}

TEST_F(AnnMagnifyTest, SelectedLensHasAMarkerOnItsCentreAlways) {
  AnnMagnify lens = Lens({40, 40}, {100, 100});
  auto const marker = [&] {
    wxImage const painted =
        PaintedBy(IAnnPainter::GraphicsContext, kCanvas, 1.0, [&](auto &painter) {
          lens.DrawSelected(painter, {0.0, 0.0}, 1.0);
        });
    return pixels::BoundsOf(painted, {0, 255, 255}, 10);
  };
  wxRect const atHome = marker();
  EXPECT_TRUE(atHome.Contains(70, 70));
  EXPECT_LT(atHome.width, 12);
  DragCentre(lens, {60, 30});
  EXPECT_TRUE(marker().Contains(130, 100));
}

TEST_F(AnnMagnifyTest, DominantColourIsThatOfTheBorder) {
  AnnMagnify lens = Lens({40, 40}, {80, 80});
  EXPECT_EQ(lens.GetDominantColor(), *wxBLACK);
  Look().SetBorderType(AnnMagnifyProperties::ShapeOnly);
  Look().SetBorderColor(*wxBLUE);
  lens.UpdateProperties();
  EXPECT_EQ(lens.GetDominantColor(), *wxBLUE);
}

class AnnMagnifyInAVideo : public AnnMagnifyTest {
protected:
  AnnMagnifyInAVideo() : AnnMagnifyTest(10) {}
};

TEST_F(AnnMagnifyInAVideo, EachFrameHasItsCentre) {
  AnnMagnify lens = Lens({40, 40}, {80, 80});
  lens.SetEndFrame(9);
  GoTo(lens, 4);
  DragCentre(lens, {60, 30});
  EXPECT_EQ(Shown(Paint(lens), 59, 59), wxPoint(119, 89));
  GoTo(lens, 2);
  lens.UpdateSubImageAndSubBitmap(false);
  EXPECT_EQ(Shown(Paint(lens), 59, 59), wxPoint(59, 59));
  GoTo(lens, 4);
  lens.UpdateSubImageAndSubBitmap(false);
  EXPECT_EQ(Shown(Paint(lens), 59, 59), wxPoint(119, 89));
  lens.OnObjectModified();
  EXPECT_EQ(JsonToUtf8(lens.ToJSON().ItemAt("CoordinatesCenterPoint")),
            R"([{"CenterPoint":[120.0,90.0],"Range":[4,4]}])");
}

TEST_F(AnnMagnifyInAVideo, FirstDragOfACentreStartsFromTheLens) {
  AnnMagnify lens = Lens({40, 40}, {80, 80});
  lens.SetEndFrame(9);
  GoTo(lens, 8);
  DragCentre(lens, {60, 30});
  lens.OnObjectModified();
  AnnMagnify restored = Restored(lens.ToJSON());
  m_driver.GoToFrame(0);
  ASSERT_TRUE(restored.IsAtCenterPoint({60, 60}));
  restored.MoveFor({10, 0});
  EXPECT_TRUE(restored.IsAtCenterPoint({70, 60}));
}

TEST_F(AnnMagnifyInAVideo, CentreOfFarCornersIsTheLastPixel) {
  AnnMagnify lens = Restored(JsonFromUtf8(R"({"CoordinatesCenterPoint":[],
      "Rectangle":{"StartFrame":0,"EndFrame":1,"Coordinates":[
      {"Range":[0,0],"TopLeft":[40,40],"TopRight":[80,40],"BottomRight":[80,80],
       "BottomLeft":[40,80]},
      {"Range":[1,1],"TopLeft":[1e308,1e308],"TopRight":[1.5e308,1e308],
       "BottomRight":[1.5e308,1.5e308],"BottomLeft":[1e308,1.5e308]}]}})"));
  GoTo(lens, 0);
  ASSERT_TRUE(lens.IsAtCenterPoint({60, 60}));
  // The drag goes on in the next frame.
  GoTo(lens, 1);
  lens.MoveFor({1, 1});
  lens.OnObjectModified();
  wxJSONValue const runs = lens.ToJSON().ItemAt("CoordinatesCenterPoint");
  ASSERT_EQ(runs.Size(), 1);
  EXPECT_EQ(JsonToUtf8(runs.ItemAt(0).ItemAt("CenterPoint")), "[268435456.0,268435456.0]");
}

TEST_F(AnnMagnifyInAVideo, ResettingDropsTheCentresOfAllFrames) {
  AnnMagnify lens = Lens({40, 40}, {80, 80});
  lens.SetEndFrame(9);
  for (int const frame : {1, 4}) {
    GoTo(lens, frame);
    DragCentre(lens, {10 * frame, 0});
  }
  lens.ResetCenterPosition();
  GoTo(lens, 1);
  lens.UpdateSubImageAndSubBitmap(false);
  EXPECT_EQ(Shown(Paint(lens), 59, 59), wxPoint(59, 59));
}

TEST_F(AnnMagnifyInAVideo, RestoredLensThatStartsLaterHasNothingToShow) {
  AnnMagnify lens = Lens({40, 40}, {80, 80});
  lens.SetEndFrame(5);
  lens.SetStartFrame(3);
  lens.OnObjectModified();
  AnnMagnify restored = Restored(lens.ToJSON());
  EXPECT_EQ(pixels::BoundsOfPaint(Paint(restored)), wxRect());
  GoTo(restored, 3);
  restored.ResizeOnZoom(8.0);
  EXPECT_TRUE(At(RecordOf(restored).m_topLeft, 40, 40));
  restored.UpdateSubImageAndSubBitmap(false);
  EXPECT_FALSE(pixels::BoundsOfPaint(Paint(restored)).IsEmpty());
}

TEST_F(AnnMagnifyInAVideo, LongerVideoAndLaterFramesTakeTheCentre) {
  AnnMagnify lens = Lens({40, 40}, {80, 80}, 2);
  GoTo(lens, 2);
  DragCentre(lens, {20, 0});
  // While the centre is held, it is what a running video copies.
  lens.DuplicateLastCoordinates(3);
  lens.DuplicateLastCoordinates(2);
  lens.SetEndFrame(3);
  GoTo(lens, 3);
  lens.UpdateSubImageAndSubBitmap(false);
  EXPECT_EQ(Shown(Paint(lens), 59, 59), wxPoint(79, 59));
}

TEST_F(AnnMagnifyInAVideo, RunningVideoTakesTheLensAlong) {
  AnnMagnify lens = Lens({40, 40}, {80, 80}, 2);
  GoTo(lens, 2);
  EXPECT_TRUE(lens.AreCoordinatesEmpty(3));
  lens.DuplicateLastCoordinates(3);
  GoTo(lens, 3);
  EXPECT_EQ(SizeOf(lens), wxRect(wxPoint(40, 40), wxPoint(80, 80)));
  lens.UpdateSubImageAndSubBitmap(false);
  EXPECT_EQ(Shown(Paint(lens), 79, 59), wxPoint(69, 59));
}

}  // namespace

}  // namespace framenote::test
