// SPDX-License-Identifier: MIT
#include "framenote/annotation_events.h"
#include "objects/object_support.h"

namespace framenote::test {

namespace {

class AnnArrowGeometry : public VideoObjectTest {};

TEST_F(AnnArrowGeometry, HeadIsThreeThicknessesLongAndWide) {
  AnnArrow const arrow = Arrow({0, 0}, {100, 0});
  AnnArrowPoints const &record = RecordOf(arrow);
  EXPECT_TRUE(At(record.m_headBase, 91, 0));
  EXPECT_TRUE(At(record.m_headWingLeft, 91, -4.5));
  EXPECT_TRUE(At(record.m_headWingRight, 91, 4.5));
}

TEST_F(AnnArrowGeometry, BodyIsHalfTheThicknessToEachSideInWholePixels) {
  AnnArrow const arrow = Arrow({0, 0}, {100, 0});
  AnnArrowPoints const &record = RecordOf(arrow);
  EXPECT_TRUE(At(record.m_bodyTailLeft, 0, -1));
  EXPECT_TRUE(At(record.m_bodyHeadLeft, 91, -1));
  EXPECT_TRUE(At(record.m_bodyHeadRight, 91, 1));
  EXPECT_TRUE(At(record.m_bodyTailRight, 0, 1));
}

TEST_F(AnnArrowGeometry, ThinBodyIsAtLeastOnePixelToEachSide) {
  ArrowLook().SetThickness(1);
  AnnArrow const arrow = Arrow({0, 0}, {100, 0});
  EXPECT_TRUE(At(RecordOf(arrow).m_bodyTailLeft, 0, -1));
  ArrowLook().SetThickness(5);
  AnnArrow const thick = Arrow({0, 0}, {100, 0});
  EXPECT_TRUE(At(RecordOf(thick).m_bodyTailLeft, 0, -2));
}

TEST_F(AnnArrowGeometry, LineHasItsHeadPointsOnTheTip) {
  ArrowLook().SetHead(AnnArrowProperties::Line);
  AnnArrow const arrow = Arrow({0, 0}, {100, 0});
  EXPECT_TRUE(At(RecordOf(arrow).m_headBase, 100, 0));
  EXPECT_TRUE(At(RecordOf(arrow).m_headWingLeft, 100, 0));
  EXPECT_TRUE(At(RecordOf(arrow).m_headWingRight, 100, 0));
  auto const body = arrow.GetBodyPoints(RecordOf(arrow), {0, 0});
  ASSERT_EQ(body.size(), 2U);
  EXPECT_TRUE(At(body[1], 100, 0));
}

TEST_F(AnnArrowGeometry, ShortArrowHasNoBody) {
  AnnArrow const shortest = Arrow({0, 0}, {9, 0});
  EXPECT_TRUE(shortest.GetBodyPoints(RecordOf(shortest), {0, 0}).empty());
  AnnArrow const longer = Arrow({0, 0}, {10, 0});
  auto const body = longer.GetBodyPoints(RecordOf(longer), {3, 4});
  ASSERT_EQ(body.size(), 2U);
  EXPECT_TRUE(At(body[0], 3, 4));
  // One pixel under the head, so that no seam shows.
  EXPECT_TRUE(At(body[1], 5, 4));
}

TEST_F(AnnArrowGeometry, HeadPointsAreLeftWingTipRightWing) {
  AnnArrow const arrow = Arrow({0, 0}, {100, 0});
  auto const head = arrow.GetHeadPoints(RecordOf(arrow), {1, 2});
  ASSERT_EQ(head.size(), 3U);
  EXPECT_TRUE(At(head[0], 92, -2.5));
  EXPECT_TRUE(At(head[1], 101, 2));
  EXPECT_TRUE(At(head[2], 92, 6.5));
}

TEST_F(AnnArrowGeometry, ContainingRectReachesFromTheOriginToOneBeforeTheLastPixel) {
  EXPECT_EQ(Arrow({10, 20}, {110, 20}).GetContainingRect(), wxRect(0, 0, 110, 25));
}

TEST_F(AnnArrowGeometry, ContainingRectCoversAllFrames) {
  AnnArrow arrow = Arrow({10, 20}, {110, 20}, 0);
  arrow.SetEndFrame(2);
  GoTo(arrow, 2);
  arrow.MoveFor({-30, 100});
  EXPECT_EQ(arrow.GetContainingRect(), wxRect(-20, 0, 130, 125));
}

TEST_F(AnnArrowGeometry, ModifyMovesTheActiveEnd) {
  AnnArrow arrow = Arrow({0, 0}, {100, 0});
  wxStockCursor cursor = wxCURSOR_ARROW;
  ASSERT_TRUE(arrow.IsAtResizePoint({100, 3}, cursor));
  arrow.ModifyTo({0, 100});
  EXPECT_EQ(RecordOf(arrow).m_head, wxPoint2DInt(0, 100));
  EXPECT_EQ(RecordOf(arrow).m_tail, wxPoint2DInt(0, 0));
  EXPECT_TRUE(At(RecordOf(arrow).m_headBase, 0, 91));
  ASSERT_TRUE(arrow.IsAtResizePoint({3, 0}, cursor));
  arrow.ModifyTo({50, 100});
  EXPECT_EQ(RecordOf(arrow).m_tail, wxPoint2DInt(50, 100));
  EXPECT_EQ(RecordOf(arrow).m_head, wxPoint2DInt(0, 100));
}

TEST_F(AnnArrowGeometry, ModifyWithoutAnActiveEndStillGivesTheFrameItsOwnRecord) {
  AnnArrow arrow = Arrow({0, 0}, {100, 0}, 0);
  arrow.SetEndFrame(3);
  GoTo(arrow, 2);
  wxStockCursor cursor = wxCURSOR_ARROW;
  ASSERT_FALSE(arrow.IsAtResizePoint({50, 50}, cursor));
  arrow.ModifyTo({7, 7});
  EXPECT_EQ(RecordOf(arrow).m_head, wxPoint2DInt(100, 0));
  auto const &records = arrow.GetCoordinates().CoordsVec();
  EXPECT_NE(records[2], records[1]);
  EXPECT_EQ(records[3], records[1]);
}

TEST_F(AnnArrowGeometry, LookChangesTheCurrentFramesPointsAlone) {
  AnnArrow arrow = Arrow({0, 0}, {100, 0}, 0);
  arrow.SetEndFrame(1);
  GoTo(arrow, 1);
  arrow.MoveFor({0, 10});
  ArrowLook().SetThickness(10);
  arrow.UpdateProperties();
  EXPECT_TRUE(At(arrow.GetCoordinates().CoordsAt(1).m_headBase, 70, 10));
  EXPECT_TRUE(At(arrow.GetCoordinates().CoordsAt(0).m_headBase, 91, 0));
  EXPECT_EQ(arrow.ToJSON().ItemAt("Properties").ItemAt("Thickness").AsInt(), 10);
}

class AnnArrowHit : public VideoObjectTest {};

TEST_F(AnnArrowHit, BodyAndHeadAreHit) {
  ArrowLook().SetThickness(10);
  AnnArrow const arrow = Arrow({0, 0}, {100, 0});
  EXPECT_TRUE(arrow.Contains({50, 5}));
  EXPECT_FALSE(arrow.Contains({50, 6}));
  EXPECT_TRUE(arrow.Contains({70, 15}));
  EXPECT_TRUE(arrow.Contains({90, 0}));
  EXPECT_FALSE(arrow.Contains({90, 8}));
  EXPECT_FALSE(arrow.Contains({101, 0}));
  EXPECT_FALSE(arrow.Contains({-1, 0}));
}

TEST_F(AnnArrowHit, LineIsHitOnItsBodyAlone) {
  ArrowLook().SetThickness(10);
  ArrowLook().SetHead(AnnArrowProperties::Line);
  AnnArrow const arrow = Arrow({0, 0}, {100, 0});
  EXPECT_TRUE(arrow.Contains({99, 5}));
  EXPECT_FALSE(arrow.Contains({70, 15}));
}

TEST_F(AnnArrowHit, ShortArrowIsHitAlongItsUnseenBody) {
  AnnArrow const arrow = Arrow({0, 0}, {9, 0});
  EXPECT_TRUE(arrow.Contains({9, 0}));
  EXPECT_TRUE(arrow.Contains({0, 4}));
  EXPECT_FALSE(arrow.Contains({0, 6}));
}

TEST_F(AnnArrowHit, ArrowWithoutLengthIsHitAtItsPixel) {
  AnnArrow const arrow = Arrow({5, 5}, {5, 5});
  EXPECT_TRUE(arrow.Contains({5, 5}));
  EXPECT_FALSE(arrow.Contains({6, 5}));
  EXPECT_TRUE(arrow.WouldDisappear());
  EXPECT_FALSE(Arrow({5, 5}, {5, 6}).WouldDisappear());
}

TEST_F(AnnArrowHit, HeadWinsWhereBothEndsAreNear) {
  AnnArrow arrow = Arrow({0, 0}, {10, 0});
  wxStockCursor cursor = wxCURSOR_ARROW;
  ASSERT_TRUE(arrow.IsAtResizePoint({0, 0}, cursor));
  arrow.ModifyTo({30, 40});
  EXPECT_EQ(RecordOf(arrow).m_head, wxPoint2DInt(30, 40));
  EXPECT_EQ(RecordOf(arrow).m_tail, wxPoint2DInt(0, 0));
}

TEST_F(AnnArrowHit, CursorTellsTheSlope) {
  wxStockCursor cursor = wxCURSOR_ARROW;
  AnnArrow falling = Arrow({0, 0}, {100, 100});
  ASSERT_TRUE(falling.IsAtResizePoint({100, 100}, cursor));
  EXPECT_EQ(cursor, wxCURSOR_SIZENWSE);
  ASSERT_TRUE(falling.IsAtResizePoint({0, 0}, cursor));
  EXPECT_EQ(cursor, wxCURSOR_SIZENWSE);
  AnnArrow rising = Arrow({100, 0}, {0, 100});
  ASSERT_TRUE(rising.IsAtResizePoint({0, 100}, cursor));
  EXPECT_EQ(cursor, wxCURSOR_SIZENESW);
  AnnArrow back = Arrow({100, 100}, {0, 0});
  ASSERT_TRUE(back.IsAtResizePoint({0, 0}, cursor));
  EXPECT_EQ(cursor, wxCURSOR_SIZENWSE);
  AnnArrow upright = Arrow({0, 0}, {0, 100});
  ASSERT_TRUE(upright.IsAtResizePoint({0, 100}, cursor));
  EXPECT_EQ(cursor, wxCURSOR_SIZENESW);
}

TEST_F(AnnArrowHit, ToleranceFollowsTheZoomDownToHalfAPixel) {
  AnnArrow arrow = Arrow({0, 0}, {100, 0});
  wxStockCursor cursor = wxCURSOR_BULLSEYE;
  EXPECT_TRUE(arrow.IsAtResizePoint({115, 0}, cursor));
  cursor = wxCURSOR_BULLSEYE;
  EXPECT_FALSE(arrow.IsAtResizePoint({116, 0}, cursor));
  EXPECT_EQ(cursor, wxCURSOR_BULLSEYE);
  SetZoom(100.0);
  EXPECT_TRUE(arrow.IsAtResizePoint({100, 0}, cursor));
  EXPECT_FALSE(arrow.IsAtResizePoint({101, 0}, cursor));
}

TEST_F(AnnArrowHit, HasNoRotationHandle) {
  AnnArrow arrow = Arrow({0, 0}, {100, 0});
  for (int y = -60; y <= 60; ++y) EXPECT_FALSE(arrow.IsAtRotationPoint({50, y})) << y;
}

class AnnArrowState : public VideoObjectTest {};

TEST_F(AnnArrowState, MirrorHasItsMembersInOrder) {
  AnnArrow const arrow = Arrow({1, 2}, {30, 40}, 6);
  EXPECT_EQ(JsonToUtf8(arrow.ToJSON()),
            R"({"StartFrame":6,"EndFrame":6,"Coordinates":[{"Head":[30,40],"Tail":[1,2],)"
            R"("Range":[6,6]}],"Id":3,"Properties":{"Head":0,"Color":"#FF0000FF","Thickness":3}})");
}

TEST_F(AnnArrowState, DocumentGivesTheSameObjectBack) {
  AnnArrow arrow = Arrow({0, 0}, {100, 0}, 2);
  arrow.SetEndFrame(7);
  GoTo(arrow, 4);
  arrow.MoveFor({0, 50});
  arrow.OnObjectModified();
  AnnArrow restored(Modes().arrow, arrow.ToJSON());
  restored.OnObjectModified();
  EXPECT_TRUE(restored.ToJSON().IsSameAs(arrow.ToJSON()));
  EXPECT_EQ(restored.ToJSON().ItemAt("Coordinates").Size(), 3);
  EXPECT_TRUE(At(restored.GetCoordinates().CoordsAt(4).m_headBase, 91, 50));
}

TEST_F(AnnArrowState, ColourAndPastePoint) {
  ArrowLook().SetColor(*wxBLUE);
  AnnArrow arrow = Arrow({0, 0}, {100, 20}, 3);
  m_driver.GoToFrame(3);
  EXPECT_EQ(arrow.GetDominantColor(), *wxBLUE);
  EXPECT_EQ(arrow.GetPastePoint(), wxPoint2DInt(100, 20));
}

TEST_F(AnnArrowState, SelectionGivesTheLookToTheModeAndTellsTheTool) {
  ArrowLook().SetThickness(9);
  AnnArrow arrow = Arrow({0, 0}, {100, 0});
  ArrowLook().SetThickness(2);
  arrow.OnSelection(true);
  EXPECT_TRUE(arrow.IsSelected());
  EXPECT_EQ(ArrowLook().GetThickness(), 9);
  ASSERT_NE(m_driver.Sink().Last(wxEVT_ANN_OBJECT_SELECTED), nullptr);
  EXPECT_TRUE(m_driver.Sink().Last(wxEVT_ANN_OBJECT_SELECTED)->IsNew());
  EXPECT_EQ(m_driver.Tool().GetActiveTool(), Modes().arrow);
}

class AnnArrowPainting : public ObjectTest,
                         public testing::WithParamInterface<IAnnPainter::AnnPainterType> {};

FRAMENOTE_WITH_BOTH_PAINTERS(AnnArrowPainting);

TEST_P(AnnArrowPainting, BodyAndHeadArePainted) {
  ArrowLook().SetThickness(6);
  AnnArrow const arrow = Arrow({10, 30}, {80, 30});
  wxImage const image = PaintedBy(GetParam(), {100, 60}, 1.0, [&](auto &painter) {
    arrow.Draw(painter, {0, 0});
  });
  EXPECT_TRUE(pixels::AreaHas(image, {12, 28, 48, 4}, pixels::kRed));
  EXPECT_TRUE(pixels::AreaHas(image, {12, 0, 46, 26}, pixels::kWhite));
  // The head's base is at 62, nine to each side.
  EXPECT_TRUE(pixels::AreaHas(image, {63, 23, 1, 14}, pixels::kRed));
  EXPECT_TRUE(pixels::AreaHas(image, {83, 0, 17, 60}, pixels::kWhite));
}

TEST_P(AnnArrowPainting, MarkersStandOnBothEndsWithoutALineBetween) {
  AnnArrow const arrow = Arrow({10, 30}, {80, 30});
  wxImage const image = PaintedBy(GetParam(), {200, 100}, 1.0, [&](auto &painter) {
    arrow.DrawSelected(painter, {0, 0}, 2.0);
  });
  EXPECT_TRUE(pixels::AreaHas(image, {28, 0, 124, 100}, pixels::kWhite));
  EXPECT_GT(pixels::CountOf(image, pixels::kWhite), 0);
  wxRect const bounds = pixels::BoundsOfPaint(image);
  EXPECT_NEAR(bounds.GetLeft(), 15, 2);
  EXPECT_NEAR(bounds.GetRight(), 165, 2);
}

}  // namespace

}  // namespace framenote::test
