// SPDX-License-Identifier: MIT
#include "framenote/annotation_events.h"
#include "objects/object_support.h"

namespace framenote::test {

namespace {

class AnnPencilStroke : public VideoObjectTest {};

TEST_F(AnnPencilStroke, FormIsKeptAsDifferencesFromTheFirstPoint) {
  AnnPencil const stroke = Stroke({{10, 10}, {20, 10}, {20, 30}}, 6);
  EXPECT_EQ(JsonToUtf8(stroke.ToJSON()),
            R"({"StartFrame":6,"EndFrame":6,"Coordinates":[{"StartPoint":[10,10],"Range":[6,6]}],)"
            R"("PathDiffs":[[0,0],[10,0],[10,20]],"Id":4,)"
            R"("Properties":{"Color":"#FF0000FF","Thickness":3}})");
}

TEST_F(AnnPencilStroke, MoveOfOneFrameChangesItsStartPointAlone) {
  AnnPencil stroke = Stroke({{10, 10}, {20, 10}, {20, 30}}, 0);
  stroke.SetEndFrame(9);
  GoTo(stroke, 5);
  wxJSONValue const form = stroke.ToJSON().ItemAt("PathDiffs");
  stroke.MoveFor({1, 2});
  stroke.OnObjectModified();
  EXPECT_EQ(JsonToUtf8(stroke.ToJSON().ItemAt("Coordinates")),
            R"([{"StartPoint":[10,10],"Range":[0,4]},{"StartPoint":[11,12],"Range":[5,5]},)"
            R"({"StartPoint":[10,10],"Range":[6,9]}])");
  EXPECT_TRUE(stroke.ToJSON().ItemAt("PathDiffs").IsSameAs(form));
}

TEST_F(AnnPencilStroke, DocumentGivesTheSamePathBack) {
  AnnPencil stroke = Stroke({{10, 10}, {20, 10}, {20, 30}}, 2);
  stroke.SetEndFrame(4);
  GoTo(stroke, 3);
  stroke.MoveFor({100, 0});
  stroke.OnObjectModified();
  AnnPencil restored(Modes().pencil, stroke.ToJSON());
  restored.OnObjectModified();
  EXPECT_TRUE(restored.ToJSON().IsSameAs(stroke.ToJSON()));
  auto const path = restored.GetCoordinates().CoordsAt(3).m_path;
  ASSERT_EQ(path.size(), 3U);
  EXPECT_EQ(path[0], wxPoint2DInt(110, 10));
  EXPECT_EQ(path[2], wxPoint2DInt(120, 30));
}

TEST_F(AnnPencilStroke, DocumentIsValidWithFormAndCoordinates) {
  wxJSONValue json = Stroke({{10, 10}, {20, 10}}).ToJSON();
  EXPECT_TRUE(AnnPencil::IsJSONValid(json));
  wxJSONValue withoutForm = json;
  withoutForm.Remove("PathDiffs");
  EXPECT_FALSE(AnnPencil::IsJSONValid(withoutForm));
  json.Remove("Coordinates");
  EXPECT_FALSE(AnnPencil::IsJSONValid(json));
}

TEST_F(AnnPencilStroke, PathIsShiftedByTheOffset) {
  AnnPencil const stroke = Stroke({{10, 10}, {20, 30}});
  auto const path = stroke.GetPath(stroke.GetCoordinates().Coords(), {0.5, -1});
  ASSERT_EQ(path.size(), 2U);
  EXPECT_TRUE(At(path[0], 10.5, 9));
  EXPECT_TRUE(At(path[1], 20.5, 29));
}

TEST_F(AnnPencilStroke, LastSegmentIsHitAtItsEndAlone) {
  PencilLook().SetThickness(4);
  AnnPencil const stroke = Stroke({{0, 0}, {100, 0}, {200, 0}});
  EXPECT_TRUE(stroke.Contains({50, 0}));
  EXPECT_TRUE(stroke.Contains({50, 2}));
  EXPECT_FALSE(stroke.Contains({50, 3}));
  EXPECT_FALSE(stroke.Contains({150, 0}));
  EXPECT_TRUE(stroke.Contains({200, 1}));
  EXPECT_TRUE(stroke.Contains({-2, 0}));
  EXPECT_FALSE(stroke.Contains({-3, 0}));
}

TEST_F(AnnPencilStroke, HitRadiusIsAtLeastOnePixel) {
  PencilLook().SetThickness(1);
  AnnPencil const stroke = Stroke({{0, 0}, {100, 0}, {200, 0}});
  EXPECT_TRUE(stroke.Contains({-1, 0}));
  EXPECT_TRUE(stroke.Contains({50, 1}));
  EXPECT_FALSE(stroke.Contains({50, 2}));
}

TEST_F(AnnPencilStroke, NeverDisappears) {
  EXPECT_FALSE(Stroke({{5, 5}, {5, 5}, {5, 5}, {5, 5}, {5, 5}}).WouldDisappear());
}

TEST_F(AnnPencilStroke, HasNoHandles) {
  AnnPencil stroke = Stroke({{0, 0}, {100, 0}, {200, 0}});
  wxStockCursor cursor = wxCURSOR_BULLSEYE;
  EXPECT_FALSE(stroke.IsAtResizePoint({0, 0}, cursor));
  EXPECT_EQ(cursor, wxCURSOR_BULLSEYE);
  EXPECT_FALSE(stroke.IsAtRotationPoint({0, 0}));
}

TEST_F(AnnPencilStroke, ContainingRectHasTheWidthOfTheLine) {
  EXPECT_EQ(Stroke({{10, 10}, {20, 10}, {20, 30}}).GetContainingRect(), wxRect(0, 0, 22, 32));
  PencilLook().SetThickness(10);
  EXPECT_EQ(Stroke({{10, 10}, {20, 10}, {20, 30}}).GetContainingRect(), wxRect(0, 0, 25, 35));
}

TEST_F(AnnPencilStroke, ContainingRectCoversAllFrames) {
  AnnPencil stroke = Stroke({{10, 10}, {20, 10}, {20, 30}}, 0);
  stroke.SetEndFrame(3);
  GoTo(stroke, 1);
  stroke.MoveFor({-40, 0});
  GoTo(stroke, 3);
  stroke.MoveFor({0, 50});
  EXPECT_EQ(stroke.GetContainingRect(), wxRect(-32, 0, 54, 82));
}

TEST_F(AnnPencilStroke, ThicknessWidensTheContainingRect) {
  AnnPencil stroke = Stroke({{10, 10}, {20, 10}, {20, 30}});
  EXPECT_EQ(stroke.GetContainingRect(), wxRect(0, 0, 22, 32));
  PencilLook().SetThickness(10);
  stroke.UpdateProperties();
  EXPECT_EQ(stroke.GetContainingRect(), wxRect(0, 0, 25, 35));
}

TEST_F(AnnPencilStroke, ColourAndPastePoint) {
  PencilLook().SetColor(*wxBLUE);
  AnnPencil stroke = Stroke({{10, 12}, {20, 30}}, 3);
  m_driver.GoToFrame(3);
  EXPECT_EQ(stroke.GetDominantColor(), *wxBLUE);
  EXPECT_EQ(stroke.GetPastePoint(), wxPoint2DInt(10, 12));
}

TEST_F(AnnPencilStroke, SelectionGivesTheLookToTheModeAndTellsTheTool) {
  PencilLook().SetThickness(9);
  AnnPencil stroke = Stroke({{10, 12}, {20, 30}});
  PencilLook().SetThickness(2);
  stroke.OnSelection(false);
  EXPECT_EQ(PencilLook().GetThickness(), 9);
  EXPECT_EQ(m_driver.Sink().Count(wxEVT_ANN_OBJECT_SELECTED), 1U);
  EXPECT_EQ(m_driver.Tool().GetActiveTool(), Modes().pencil);
}

TEST_F(AnnPencilStroke, WithoutPointsIsHarmless) {
  AnnPencil stroke = Stroke({});
  EXPECT_FALSE(stroke.Contains({0, 0}));
  EXPECT_EQ(stroke.GetPastePoint(), wxPoint2DInt(0, 0));
  wxImage const image = PaintedBy(IAnnPainter::GraphicsContext, {20, 20}, 1.0, [&](auto &painter) {
    stroke.Draw(painter, {0, 0});
    stroke.DrawSelected(painter, {0, 0}, 1.0);
  });
  EXPECT_TRUE(pixels::AreaHas(image, {0, 0, 20, 20}, pixels::kWhite));
  EXPECT_EQ(stroke.GetContainingRect().GetPosition(), wxPoint(-2, -2));
}

class AnnPencilPainting : public ObjectTest,
                          public testing::WithParamInterface<IAnnPainter::AnnPainterType> {};

FRAMENOTE_WITH_BOTH_PAINTERS(AnnPencilPainting);

TEST_P(AnnPencilPainting, LineIsAsWideAsItsThickness) {
  PencilLook().SetThickness(6);
  AnnPencil const stroke = Stroke({{10, 30}, {50, 30}, {90, 30}});
  wxImage const image = PaintedBy(GetParam(), {100, 60}, 1.0, [&](auto &painter) {
    stroke.Draw(painter, {0, 0});
  });
  EXPECT_TRUE(pixels::AreaHas(image, {12, 28, 76, 4}, pixels::kRed));
  EXPECT_TRUE(pixels::AreaHas(image, {0, 0, 100, 26}, pixels::kWhite));
  EXPECT_TRUE(pixels::AreaHas(image, {0, 34, 100, 26}, pixels::kWhite));
}

TEST_P(AnnPencilPainting, MarkersStandOnBothEnds) {
  AnnPencil const stroke = Stroke({{10, 20}, {50, 20}, {80, 30}});
  wxImage const image = PaintedBy(GetParam(), {200, 100}, 1.0, [&](auto &painter) {
    stroke.DrawFocused(painter, {0, 0}, 2.0);
  });
  EXPECT_TRUE(pixels::AreaHas(image, {28, 0, 124, 100}, pixels::kWhite));
  wxRect const bounds = pixels::BoundsOfPaint(image);
  EXPECT_NEAR(bounds.GetLeft(), 15, 2);
  EXPECT_NEAR(bounds.GetTop(), 35, 2);
  EXPECT_NEAR(bounds.GetRight(), 165, 2);
  EXPECT_NEAR(bounds.GetBottom(), 65, 2);
}

}  // namespace

}  // namespace framenote::test
