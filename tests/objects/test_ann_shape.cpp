// SPDX-License-Identifier: MIT
#include "framenote/annotation_events.h"
#include "objects/object_support.h"

namespace framenote::test {

namespace {

wxColour const kNone(255, 255, 255, 0);

class AnnShapeHit : public ObjectTest {};

TEST_F(AnnShapeHit, HollowRectangleIsItsBorder) {
  AnnShape const shape = Shape(0, 0, 100, 50);
  EXPECT_FALSE(shape.Contains({50, 25}));
  EXPECT_TRUE(shape.Contains({0, 0}));
  EXPECT_TRUE(shape.Contains({100, 50}));
  EXPECT_TRUE(shape.Contains({4, 25}));
  EXPECT_FALSE(shape.Contains({5, 25}));
  EXPECT_TRUE(shape.Contains({50, 46}));
  EXPECT_FALSE(shape.Contains({101, 25}));
  EXPECT_FALSE(shape.Contains({-1, 0}));
}

TEST_F(AnnShapeHit, HollowRectangleThatItsBorderCoversIsHitEverywhere) {
  AnnShape const shape = Shape(0, 0, 10, 50);
  EXPECT_TRUE(shape.Contains({5, 25}));
  EXPECT_FALSE(shape.Contains({11, 25}));
}

TEST_F(AnnShapeHit, FilledRectangleIsHitInside) {
  ShapeLook().SetFillColor(*wxGREEN);
  AnnShape const shape = Shape(0, 0, 100, 50);
  EXPECT_TRUE(shape.Contains({50, 25}));
  EXPECT_FALSE(shape.Contains({50, 51}));
}

TEST_F(AnnShapeHit, TurnedRectangleIsHitWhereItIsSeen) {
  ShapeLook().SetFillColor(*wxGREEN);
  AnnShape shape = Shape(0, 0, 100, 50);
  shape.RememberCurrentPosition();
  shape.Rotate({150, 25});
  EXPECT_TRUE(shape.Contains({50, -20}));
  EXPECT_FALSE(shape.Contains({10, 25}));
}

TEST_F(AnnShapeHit, HollowEllipseIsTheRing) {
  ShapeLook().SetShape(AnnShapeProperties::Ellipse);
  AnnShape const shape = Shape(0, 0, 100, 50);
  EXPECT_FALSE(shape.Contains({50, 25}));
  EXPECT_TRUE(shape.Contains({2, 25}));
  EXPECT_TRUE(shape.Contains({50, 2}));
  EXPECT_FALSE(shape.Contains({10, 25}));
  EXPECT_FALSE(shape.Contains({0, 0}));
}

// A pointer may be anywhere: the differences to it are beyond an int.
TEST_F(AnnShapeHit, EllipseIsNotHitAtTheEndsOfThePlane) {
  ShapeLook().SetShape(AnnShapeProperties::Ellipse);
  AnnShape const ellipse = Shape(10, 10, 100, 50);
  constexpr int kLeast = std::numeric_limits<int>::min();
  constexpr int kGreatest = std::numeric_limits<int>::max();
  for (int const x : {kLeast, kGreatest}) {
    for (int const y : {kLeast, kGreatest}) EXPECT_FALSE(ellipse.Contains({x, y}));
  }
  AnnShape const leftOfTheOrigin = Shape(-100, -50, 50, 20);
  EXPECT_FALSE(leftOfTheOrigin.Contains({kGreatest, kGreatest}));
}

TEST_F(AnnShapeHit, HollowEllipseThatItsBorderCoversIsHitEverywhere) {
  ShapeLook().SetShape(AnnShapeProperties::Ellipse);
  AnnShape const shape = Shape(0, 0, 10, 50);
  EXPECT_TRUE(shape.Contains({5, 25}));
  EXPECT_FALSE(shape.Contains({0, 0}));
}

TEST_F(AnnShapeHit, FilledEllipseTurnsWithTheShape) {
  ShapeLook().SetShape(AnnShapeProperties::Ellipse);
  ShapeLook().SetFillColor(*wxGREEN);
  AnnShape shape = Shape(0, 0, 100, 50);
  EXPECT_TRUE(shape.Contains({3, 25}));
  EXPECT_FALSE(shape.Contains({50, 60}));
  shape.RememberCurrentPosition();
  shape.Rotate({150, 25});
  EXPECT_FALSE(shape.Contains({3, 25}));
  EXPECT_TRUE(shape.Contains({50, 60}));
}

TEST_F(AnnShapeHit, UnknownFormIsNeverHit) {
  ShapeLook().SetFillColor(*wxGREEN);
  ShapeLook().SetShape(static_cast<AnnShapeProperties::Shape>(7));
  AnnShape const shape = Shape(0, 0, 100, 50);
  EXPECT_FALSE(shape.Contains({50, 25}));
}

TEST_F(AnnShapeHit, PointIsHitAtItsPixelOnly) {
  AnnShape const shape = Shape(7, 8, 7, 8);
  EXPECT_TRUE(shape.Contains({7, 8}));
  EXPECT_FALSE(shape.Contains({8, 8}));
}

TEST_F(AnnShapeHit, HandleToleranceIs15ScreenPixels) {
  AnnShape shape = Shape(0, 0, 100, 60);
  wxStockCursor cursor = wxCURSOR_ARROW;
  EXPECT_TRUE(shape.IsAtResizePoint({-15, 0}, cursor));
  EXPECT_FALSE(shape.IsAtResizePoint({-16, 0}, cursor));
  SetZoom(3.0);
  EXPECT_TRUE(shape.IsAtResizePoint({-5, 0}, cursor));
  EXPECT_FALSE(shape.IsAtResizePoint({-6, 0}, cursor));
}

TEST_F(AnnShapeHit, TolerancesHaveALowerLimit) {
  SetZoom(100.0);
  AnnShape shape = Shape(0, 0, 101, 60);
  wxStockCursor cursor = wxCURSOR_ARROW;
  // The top middle is at (50.5, 0): half a pixel away is still hit, though 15 screen pixels are
  // 0.15 picture pixels here.
  EXPECT_TRUE(shape.IsAtResizePoint({50, 0}, cursor));
  EXPECT_FALSE(shape.IsAtResizePoint({49, 0}, cursor));
  // The rotation handle is at (50.5, -0.3), with a limit of a whole pixel.
  EXPECT_TRUE(shape.IsAtRotationPoint({51, -1}));
  EXPECT_FALSE(shape.IsAtRotationPoint({50, -2}));
}

TEST_F(AnnShapeHit, RotationHandleFollowsTheZoom) {
  AnnShape shape = Shape(0, 0, 100, 60);
  EXPECT_TRUE(shape.IsAtRotationPoint({50, -45}));
  EXPECT_FALSE(shape.IsAtRotationPoint({50, -46}));
  SetZoom(3.0);
  EXPECT_TRUE(shape.IsAtRotationPoint({50, -15}));
  EXPECT_FALSE(shape.IsAtRotationPoint({50, -30}));
}

TEST_F(AnnShapeHit, MissedHandleLeavesTheCursor) {
  AnnShape shape = Shape(0, 0, 100, 60);
  wxStockCursor cursor = wxCURSOR_BULLSEYE;
  EXPECT_FALSE(shape.IsAtResizePoint({40, 30}, cursor));
  EXPECT_EQ(cursor, wxCURSOR_BULLSEYE);
}

TEST_F(AnnShapeHit, FirstOfHandlesThatLieTogetherWins) {
  AnnShape shape = Shape(0, 0, 4, 4);
  wxStockCursor cursor = wxCURSOR_ARROW;
  ASSERT_TRUE(shape.IsAtResizePoint({4, 4}, cursor));
  EXPECT_EQ(cursor, wxCURSOR_SIZENWSE);
  shape.PrepareResizing();
  shape.ResizeTo({-10, -10}, false);
  EXPECT_TRUE(At(RecordOf(shape).m_topLeft, -10, -10));
  EXPECT_TRUE(At(RecordOf(shape).m_bottomRight, 4, 4));
}

class AnnShapeState : public VideoObjectTest {};

TEST_F(AnnShapeState, DisappearsWithoutAreaOrColour) {
  EXPECT_FALSE(Shape(0, 0, 10, 10).WouldDisappear());
  EXPECT_TRUE(Shape(5, 5, 5, 5).WouldDisappear());
  EXPECT_TRUE(Shape(0, 5, 50, 5).WouldDisappear());
  EXPECT_TRUE(Shape(5, 0, 5, 50).WouldDisappear());
  ShapeLook().SetBorderColor(kNone);
  EXPECT_TRUE(Shape(0, 0, 10, 10).WouldDisappear());
  ShapeLook().SetFillColor(*wxGREEN);
  EXPECT_FALSE(Shape(0, 0, 10, 10).WouldDisappear());
}

TEST_F(AnnShapeState, DominantColourIsWhatIsSeenMost) {
  EXPECT_EQ(Shape(0, 0, 100, 50).GetDominantColor(), *wxRED);
  ShapeLook().SetFillColor(*wxGREEN);
  EXPECT_EQ(Shape(0, 0, 100, 50).GetDominantColor(), *wxGREEN);
  EXPECT_EQ(Shape(0, 0, 10, 50).GetDominantColor(), *wxRED);
  ShapeLook().SetBorderColor(kNone);
  EXPECT_EQ(Shape(0, 0, 10, 50).GetDominantColor(), *wxGREEN);
  ShapeLook().SetFillColor(kNone);
  EXPECT_EQ(Shape(0, 0, 100, 50).GetDominantColor(), *wxBLACK);
}

TEST_F(AnnShapeState, PastePointIsTheTopLeftOfTheToolsFrame) {
  AnnShape shape = Shape(3, 4, 50, 60, 2);
  m_driver.GoToFrame(2);
  EXPECT_EQ(shape.GetPastePoint(), wxPoint2DInt(3, 4));
}

TEST_F(AnnShapeState, LookIsCopiedWhenMadeAndWhenTold) {
  AnnShape shape = Shape(0, 0, 100, 50);
  ShapeLook().SetThickness(9);
  ShapeLook().SetBorderColor(*wxBLUE);
  EXPECT_EQ(shape.GetProperties().GetThickness(), 5);
  shape.UpdateProperties();
  EXPECT_EQ(shape.GetProperties().GetThickness(), 9);
  EXPECT_EQ(shape.GetProperties().GetBorderColor(), *wxBLUE);
  EXPECT_EQ(shape.ToJSON().ItemAt("Properties").ItemAt("Thickness").AsInt(), 9);
  EXPECT_TRUE(At(RecordOf(shape).m_innerTopLeft, 9, 9));
}

TEST_F(AnnShapeState, SelectionGivesTheLookToTheModeAndTellsTheTool) {
  ShapeLook().SetThickness(9);
  AnnShape shape = Shape(0, 0, 100, 50);
  ShapeLook().SetThickness(2);
  m_driver.GoToFrame(4);
  shape.OnSelection(false);
  EXPECT_TRUE(shape.IsSelected());
  EXPECT_EQ(ShapeLook().GetThickness(), 9);
  auto const *event = m_driver.Sink().Last(wxEVT_ANN_OBJECT_SELECTED);
  ASSERT_NE(event, nullptr);
  EXPECT_EQ(event->FrameIndex(), 4);
  EXPECT_FALSE(event->IsNew());
  EXPECT_EQ(m_driver.Tool().GetActiveTool(), Modes().shape);
}

TEST_F(AnnShapeState, MirrorHasItsMembersInOrder) {
  ShapeLook().SetThickness(3);
  AnnShape const shape = Shape(1, 2, 30, 40, 6);
  EXPECT_EQ(JsonToUtf8(shape.ToJSON()),
            R"({"StartFrame":6,"EndFrame":6,"Coordinates":[{"TopLeft":[1.0,2.0],)"
            R"("TopRight":[30.0,2.0],"BottomRight":[30.0,40.0],"BottomLeft":[1.0,40.0],)"
            R"("Range":[6,6]}],"Id":2,"Properties":{"Shape":0,"BorderColor":"#FF0000FF",)"
            R"("BorderColorTransparent":false,"FillColor":"#FFFFFFFF",)"
            R"("FillColorTransparent":true,"Thickness":3}})");
}

TEST_F(AnnShapeState, DocumentGivesTheSameObjectBack) {
  ShapeLook().SetShape(AnnShapeProperties::Ellipse);
  ShapeLook().SetFillColor(*wxBLUE);
  AnnShape shape = Shape(1, 2, 30, 40, 3);
  shape.SetEndFrame(6);
  GoTo(shape, 5);
  shape.MoveFor({10, 20});
  shape.OnObjectModified();
  ShapeLook().SetFillColor(*wxRED);
  AnnShape restored(Modes().shape, shape.ToJSON());
  EXPECT_TRUE(restored.ToJSON().IsSameAs(shape.ToJSON()));
  restored.OnObjectModified();
  EXPECT_TRUE(restored.ToJSON().IsSameAs(shape.ToJSON()));
  EXPECT_EQ(restored.ToJSON().ItemAt("Coordinates").Size(), 3);
  EXPECT_TRUE(At(restored.GetCoordinates().CoordsAt(5).m_topLeft, 11, 22));
  EXPECT_TRUE(At(restored.GetCoordinates().CoordsAt(6).m_topLeft, 1, 2));
  EXPECT_EQ(restored.GetProperties().GetFillColor(), *wxBLUE);
}

TEST_F(AnnShapeState, DocumentWithoutALookTakesTheToolsLook) {
  wxJSONValue json = Shape(1, 2, 30, 40).ToJSON();
  json.Remove("Properties");
  ShapeLook().SetThickness(11);
  AnnShape const restored(Modes().shape, json);
  EXPECT_EQ(restored.GetProperties().GetThickness(), 11);
  EXPECT_EQ(restored.ToJSON().ItemAt("Properties").ItemAt("Thickness").AsInt(), 11);
}

TEST_F(AnnShapeState, DocumentIsValidWithCoordinates) {
  EXPECT_TRUE(AnnShape::IsJSONValid(Shape(1, 2, 30, 40).ToJSON()));
  EXPECT_FALSE(AnnShape::IsJSONValid(wxJSONValue(wxJSONTYPE_OBJECT)));
  EXPECT_FALSE(AnnShape::IsJSONValid(JsonFromUtf8("{")));
  EXPECT_FALSE(AnnShape::IsJSONValid(wxJSONValue(3)));
}

class AnnShapePainting : public ObjectTest,
                         public testing::WithParamInterface<IAnnPainter::AnnPainterType> {
protected:
  wxImage Painted(AnnShape const &shape, wxPoint2DDouble const &offset = {0, 0}) {
    return PaintedBy(GetParam(), {60, 60}, 1.0,
                     [&](auto &painter) { shape.Draw(painter, offset); });
  }

  void Use(wxColour const &border, wxColour const &fill, int thickness,
           AnnShapeProperties::Shape form) {
    ShapeLook().SetBorderColor(border);
    ShapeLook().SetFillColor(fill);
    ShapeLook().SetThickness(thickness);
    ShapeLook().SetShape(form);
  }
};

FRAMENOTE_WITH_BOTH_PAINTERS(AnnShapePainting);

using pixels::AreaHas;
using pixels::ColourAt;
using pixels::kBlue;
using pixels::kGreen;
using pixels::kRed;
using pixels::kWhite;

TEST_P(AnnShapePainting, RectangleHasABorderInsideItsOutlineAndAFill) {
  Use(*wxRED, *wxGREEN, 4, AnnShapeProperties::Rectangle);
  wxImage const image = Painted(Shape(10, 20, 50, 40));
  EXPECT_TRUE(AreaHas(image, {16, 26, 28, 8}, kGreen));
  EXPECT_TRUE(AreaHas(image, {11, 21, 38, 2}, kRed));
  EXPECT_TRUE(AreaHas(image, {11, 21, 2, 18}, kRed));
  EXPECT_TRUE(AreaHas(image, {47, 21, 2, 18}, kRed));
  EXPECT_TRUE(AreaHas(image, {0, 0, 60, 19}, kWhite));
  EXPECT_TRUE(AreaHas(image, {52, 0, 8, 60}, kWhite));
}

TEST_P(AnnShapePainting, HollowRectangleLeavesTheMiddleAlone) {
  Use(*wxRED, kNone, 4, AnnShapeProperties::Rectangle);
  wxImage const image = Painted(Shape(10, 20, 50, 40));
  EXPECT_TRUE(AreaHas(image, {16, 26, 28, 8}, kWhite));
  EXPECT_TRUE(AreaHas(image, {11, 21, 38, 2}, kRed));
  EXPECT_TRUE(AreaHas(image, {0, 0, 60, 18}, kWhite));
}

TEST_P(AnnShapePainting, BorderThatCoversTheFillIsASolidBlock) {
  Use(*wxRED, *wxGREEN, 10, AnnShapeProperties::Rectangle);
  wxImage const image = Painted(Shape(10, 20, 50, 40));
  EXPECT_TRUE(AreaHas(image, {11, 21, 38, 18}, kRed));
}

TEST_P(AnnShapePainting, FillWithoutABorderReachesTheOutline) {
  Use(kNone, *wxBLUE, 10, AnnShapeProperties::Rectangle);
  wxImage const image = Painted(Shape(10, 20, 50, 40));
  EXPECT_TRUE(AreaHas(image, {11, 21, 38, 18}, kBlue));
  EXPECT_TRUE(AreaHas(image, {0, 0, 60, 19}, kWhite));
}

TEST_P(AnnShapePainting, EllipseLeavesTheCornersAlone) {
  Use(*wxRED, *wxGREEN, 4, AnnShapeProperties::Ellipse);
  wxImage const image = Painted(Shape(10, 20, 50, 40));
  EXPECT_EQ(ColourAt(image, 30, 30), kGreen);
  EXPECT_EQ(ColourAt(image, 12, 30), kRed);
  EXPECT_EQ(ColourAt(image, 30, 22), kRed);
  EXPECT_EQ(ColourAt(image, 11, 21), kWhite);
  EXPECT_EQ(ColourAt(image, 48, 38), kWhite);
}

TEST_P(AnnShapePainting, HollowEllipseIsARing) {
  Use(*wxRED, kNone, 4, AnnShapeProperties::Ellipse);
  wxImage const image = Painted(Shape(10, 20, 50, 40));
  EXPECT_EQ(ColourAt(image, 30, 30), kWhite);
  EXPECT_EQ(ColourAt(image, 12, 30), kRed);
}

TEST_P(AnnShapePainting, EllipseThatItsBorderCoversAndOneWithoutABorder) {
  Use(*wxRED, *wxGREEN, 10, AnnShapeProperties::Ellipse);
  EXPECT_EQ(ColourAt(Painted(Shape(10, 20, 50, 40)), 30, 30), kRed);
  Use(kNone, *wxGREEN, 10, AnnShapeProperties::Ellipse);
  wxImage const image = Painted(Shape(10, 20, 50, 40));
  EXPECT_EQ(ColourAt(image, 30, 30), kGreen);
  EXPECT_EQ(ColourAt(image, 12, 30), kGreen);
}

TEST_P(AnnShapePainting, NoColoursOrAnUnknownFormPaintNothing) {
  Use(kNone, kNone, 4, AnnShapeProperties::Rectangle);
  EXPECT_TRUE(AreaHas(Painted(Shape(10, 20, 50, 40)), {0, 0, 60, 60}, kWhite));
  Use(*wxRED, *wxGREEN, 4, static_cast<AnnShapeProperties::Shape>(5));
  EXPECT_TRUE(AreaHas(Painted(Shape(10, 20, 50, 40)), {0, 0, 60, 60}, kWhite));
}

TEST_P(AnnShapePainting, TurnedRectangleIsPaintedTurned) {
  Use(kNone, *wxBLUE, 4, AnnShapeProperties::Rectangle);
  AnnShape shape = Shape(10, 20, 50, 40);
  shape.RememberCurrentPosition();
  shape.Rotate({100, 30});
  wxImage const image = Painted(shape);
  EXPECT_TRUE(AreaHas(image, {22, 12, 16, 36}, kBlue));
  EXPECT_TRUE(AreaHas(image, {0, 0, 19, 60}, kWhite));
  EXPECT_TRUE(AreaHas(image, {42, 0, 18, 60}, kWhite));
}

TEST_P(AnnShapePainting, NegativeOffsetIsTakenByGraphicsContextsAlone) {
  Use(kNone, *wxBLUE, 4, AnnShapeProperties::Rectangle);
  wxImage const image = Painted(Shape(10, 20, 50, 40), {-8, -12});
  bool const isClamped = GetParam() == IAnnPainter::DeviceContext;
  EXPECT_EQ(ColourAt(image, 4, 10), isClamped ? kWhite : kBlue);
  EXPECT_EQ(ColourAt(image, 48, 38), isClamped ? kBlue : kWhite);
}

TEST_P(AnnShapePainting, MarkersKeepTheirSizeAtAnyZoom) {
  AnnShape const shape = Shape(20, 20, 50, 40);
  auto const bounds = [&](double scale) {
    return pixels::BoundsOfPaint(PaintedBy(GetParam(), {400, 400}, 1.0, [&](auto &painter) {
      shape.DrawFocused(painter, {0, 0}, scale);
    }));
  };
  // The outline is (20, 20) to (50, 40) times the scale, with markers of radius 5 on its corners.
  wxRect const plain = bounds(1.0);
  EXPECT_NEAR(plain.GetLeft(), 15, 2);
  EXPECT_NEAR(plain.GetRight(), 55, 2);
  EXPECT_NEAR(plain.GetBottom(), 45, 2);
  wxRect const zoomed = bounds(5.0);
  EXPECT_NEAR(zoomed.GetLeft(), 95, 2);
  EXPECT_NEAR(zoomed.GetTop(), 95, 2);
  EXPECT_NEAR(zoomed.GetRight(), 255, 2);
  EXPECT_NEAR(zoomed.GetBottom(), 205, 2);
}

TEST_P(AnnShapePainting, SelectionHasTheRotationHandleOnAStickOf30ScreenPixels) {
  AnnShape const shape = Shape(20, 40, 50, 60);
  auto const top = [&](double scale) {
    return pixels::BoundsOfPaint(PaintedBy(GetParam(), {400, 400}, 1.0,
                                           [&](auto &painter) {
                                             shape.DrawSelected(painter, {0, 0}, scale);
                                           }))
        .GetTop();
  };
  // 30 above the top side, and the handle's radius of 5 above that.
  EXPECT_NEAR(top(1.0), 40 - 35, 2);
  EXPECT_NEAR(top(5.0), 200 - 35, 2);
}

TEST_P(AnnShapePainting, NoPainterIsNoPainting) {
  std::unique_ptr<IAnnPainter> none;
  AnnShape const shape = Shape(20, 40, 50, 60);
  shape.Draw(none, {0, 0});
  shape.DrawFocused(none, {0, 0}, 1.0);
  shape.DrawSelected(none, {0, 0}, 1.0);
  EXPECT_EQ(none, nullptr);
}

}  // namespace

}  // namespace framenote::test
