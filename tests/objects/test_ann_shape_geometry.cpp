// SPDX-License-Identifier: MIT
#include "objects/object_support.h"

namespace framenote::test {

namespace {

AnnShapePoints Record(wxPoint2DDouble const &topLeft, wxPoint2DDouble const &topRight,
                      wxPoint2DDouble const &bottomRight, wxPoint2DDouble const &bottomLeft) {
  AnnShapePoints record;
  record.m_topLeft = topLeft;
  record.m_topRight = topRight;
  record.m_bottomRight = bottomRight;
  record.m_bottomLeft = bottomLeft;
  return record;
}

AnnShapePoints Upright(double left, double top, double right, double bottom) {
  return Record({left, top}, {right, top}, {right, bottom}, {left, bottom});
}

using AnnShapeGeometry = ObjectTest;

TEST_F(AnnShapeGeometry, HasTheCornersOfTheRectanglesFirstAndLastPixel) {
  AnnShape const shape = Shape(3, 4, 100, 50);
  EXPECT_TRUE(At(RecordOf(shape).m_topLeft, 3, 4));
  EXPECT_TRUE(At(RecordOf(shape).m_topRight, 100, 4));
  EXPECT_TRUE(At(RecordOf(shape).m_bottomRight, 100, 50));
  EXPECT_TRUE(At(RecordOf(shape).m_bottomLeft, 3, 50));
}

TEST_F(AnnShapeGeometry, SideMiddlesAreHalfwayBetweenCorners) {
  AnnShape const shape = Shape(0, 0, 100, 50);
  EXPECT_TRUE(At(RecordOf(shape).m_topResizePoint, 50, 0));
  EXPECT_TRUE(At(RecordOf(shape).m_rightResizePoint, 100, 25));
  EXPECT_TRUE(At(RecordOf(shape).m_bottomResizePoint, 50, 50));
  EXPECT_TRUE(At(RecordOf(shape).m_leftResizePoint, 0, 25));
}

TEST_F(AnnShapeGeometry, ResizePointsAreCornersThenMiddles) {
  AnnShape const shape = Shape(0, 0, 100, 50);
  auto const points = shape.GetResizePoints(RecordOf(shape), {1, 2});
  ASSERT_EQ(points.size(), 8U);
  double const expected[8][2] = {{1, 2},  {101, 2},  {101, 52}, {1, 52},
                                 {51, 2}, {101, 27}, {51, 52},  {1, 27}};
  for (std::size_t i = 0; i < 8; ++i) EXPECT_TRUE(At(points[i], expected[i][0], expected[i][1]));
}

TEST_F(AnnShapeGeometry, CornersRunClockwiseFromTheTopLeft) {
  AnnShape const shape = Shape(0, 0, 100, 50);
  auto const points = shape.GetCorners(RecordOf(shape), {10, 20});
  ASSERT_EQ(points.size(), 4U);
  EXPECT_TRUE(At(points[0], 10, 20));
  EXPECT_TRUE(At(points[1], 110, 20));
  EXPECT_TRUE(At(points[2], 110, 70));
  EXPECT_TRUE(At(points[3], 10, 70));
}

TEST_F(AnnShapeGeometry, RotationHandleStands30ScreenPixelsOffTheTop) {
  AnnShape const shape = Shape(0, 0, 100, 50);
  EXPECT_TRUE(At(RecordOf(shape).m_rotationPoint, 50, -30));
  SetZoom(2.0);
  AnnShape const zoomed = Shape(0, 0, 100, 50);
  EXPECT_TRUE(At(RecordOf(zoomed).m_rotationPoint, 50, -15));
}

TEST_F(AnnShapeGeometry, RotationHandleOfAReflectedRecordStandsOnTheOtherSide) {
  AnnShape const shape = Shape(0, 0, 100, 50);
  AnnShapePoints record = RecordOf(shape);
  shape.FindRotationPoint(record, true);
  EXPECT_TRUE(At(record.m_rotationPoint, 50, 30));
}

TEST_F(AnnShapeGeometry, RotationHandleOfACollapsedWidthFollowsTheLine) {
  AnnShape const shape = Shape(0, 0, 100, 50);
  AnnShapePoints record = Upright(10, 0, 10, 40);
  shape.FindResizePoints(record);
  shape.FindRotationPoint(record, false);
  EXPECT_TRUE(At(record.m_rotationPoint, 10, -30));
  shape.FindRotationPoint(record, true);
  EXPECT_TRUE(At(record.m_rotationPoint, 10, 30));
}

TEST_F(AnnShapeGeometry, RotationHandleOfAPointIsThePoint) {
  AnnShape const shape = Shape(0, 0, 100, 50);
  AnnShapePoints record = Upright(10, 20, 10, 20);
  shape.FindResizePoints(record);
  shape.FindRotationPoint(record, false);
  EXPECT_TRUE(At(record.m_rotationPoint, 10, 20));
}

TEST_F(AnnShapeGeometry, InnerPolygonIsInsetByTheBorder) {
  AnnShape const shape = Shape(0, 0, 100, 50);
  auto const inner = shape.GetInnerCorners(RecordOf(shape), {0, 0});
  ASSERT_EQ(inner.size(), 4U);
  EXPECT_TRUE(At(inner[0], 5, 5));
  EXPECT_TRUE(At(inner[1], 95, 5));
  EXPECT_TRUE(At(inner[2], 95, 45));
  EXPECT_TRUE(At(inner[3], 5, 45));
}

TEST_F(AnnShapeGeometry, InnerPolygonOfAReflectedRecordLiesInsideToo) {
  AnnShape const shape = Shape(0, 0, 100, 50);
  AnnShapePoints record = Record({100, 0}, {0, 0}, {0, 50}, {100, 50});
  shape.CalculateInnerCoordinates(5, record, true);
  EXPECT_TRUE(At(record.m_innerTopLeft, 95, 5));
  EXPECT_TRUE(At(record.m_innerTopRight, 5, 5));
  EXPECT_TRUE(At(record.m_innerBottomRight, 5, 45));
  EXPECT_TRUE(At(record.m_innerBottomLeft, 95, 45));
}

TEST_F(AnnShapeGeometry, PointIsNoLine) {
  AnnShape const shape = Shape(0, 0, 100, 50);
  AnnShapePoints const point = Upright(10.2, 10.1, 10.4, 9.8);
  EXPECT_TRUE(shape.IsPoint(point));
  EXPECT_FALSE(shape.IsXLine(point));
  EXPECT_FALSE(shape.IsYLine(point));
  EXPECT_FALSE(shape.IsLine(point));
}

TEST_F(AnnShapeGeometry, LinesAreNamedByTheSideThatIsLeft) {
  AnnShape const shape = Shape(0, 0, 100, 50);
  AnnShapePoints const flat = Upright(0, 10, 100, 10.3);
  EXPECT_TRUE(shape.IsXLine(flat));
  EXPECT_FALSE(shape.IsYLine(flat));
  AnnShapePoints const thin = Upright(7, 0, 7.2, 100);
  EXPECT_TRUE(shape.IsYLine(thin));
  EXPECT_FALSE(shape.IsXLine(thin));
  EXPECT_TRUE(shape.IsLine(flat));
  EXPECT_TRUE(shape.IsLine(thin));
  EXPECT_FALSE(shape.IsLine(Upright(0, 0, 1, 1)));
}

TEST_F(AnnShapeGeometry, ReflectedMeansCounterClockwise) {
  AnnShape const shape = Shape(0, 0, 100, 50);
  EXPECT_FALSE(shape.IsReflected(Upright(0, 0, 100, 50)));
  EXPECT_TRUE(shape.IsReflected(Record({100, 0}, {0, 0}, {0, 50}, {100, 50})));
  EXPECT_TRUE(shape.IsReflected(Record({0, 50}, {100, 50}, {100, 0}, {0, 0})));
  EXPECT_FALSE(shape.IsReflected(Record({100, 50}, {0, 50}, {0, 0}, {100, 0})));
}

TEST_F(AnnShapeGeometry, SizeIsTruncated) {
  AnnShape const shape = Shape(0, 0, 100, 50);
  EXPECT_EQ(shape.GetSize(Upright(0, 0, 99.9, 49.9)), wxSize(99, 49));
  EXPECT_EQ(shape.GetSize(Record({0, 0}, {3, 4}, {0, 8}, {-3, 4})), wxSize(5, 5));
}

TEST_F(AnnShapeGeometry, FillIsCoveredOnceTheBorderIsHalfASide) {
  ShapeLook().SetThickness(5);
  AnnShape const shape = Shape(0, 0, 100, 50);
  EXPECT_FALSE(shape.IsFillCoveredByBorder(Upright(0, 0, 100, 10.1)));
  EXPECT_TRUE(shape.IsFillCoveredByBorder(Upright(0, 0, 100, 10)));
  EXPECT_TRUE(shape.IsFillCoveredByBorder(Upright(0, 0, 10, 100)));
}

TEST_F(AnnShapeGeometry, ContainingRectReachesFromTheOriginToOneBeforeTheLastPixel) {
  EXPECT_EQ(Shape(10, 20, 60, 50).GetContainingRect(), wxRect(0, 0, 60, 50));
  EXPECT_EQ(Shape(-10, -20, 30, 40).GetContainingRect(), wxRect(-10, -20, 40, 60));
}

TEST_F(AnnShapeGeometry, RectOfTheCurrentRecordIgnoresTheFrameItIsAskedFor) {
  AnnShape const shape = Shape(10, 20, 60, 50);
  EXPECT_EQ(shape.GetContainingRect(5), wxRect(10, 20, 50, 30));
  EXPECT_EQ(shape.GetContainingRect(6), wxRect(10, 20, 50, 30));
}

TEST_F(AnnShapeGeometry, RectOfADragHasBothEnds) {
  EXPECT_EQ(AnnShape::GetRectOrSquare({10, 10}, {4, 30}, false), wxRect(4, 10, 7, 21));
}

TEST_F(AnnShapeGeometry, SquareTakesTheShorterSideAndKeepsTheDirections) {
  EXPECT_EQ(AnnShape::GetRectOrSquare({10, 10}, {4, 30}, true),
            wxRect(wxPoint(10, 10), wxPoint(4, 16)));
  EXPECT_EQ(AnnShape::GetRectOrSquare({10, 10}, {40, 15}, true),
            wxRect(wxPoint(10, 10), wxPoint(15, 15)));
  EXPECT_EQ(AnnShape::GetRectOrSquare({10, 10}, {0, 7}, true),
            wxRect(wxPoint(10, 10), wxPoint(7, 7)));
  EXPECT_EQ(AnnShape::GetRectOrSquare({10, 10}, {40, 5}, true),
            wxRect(wxPoint(10, 10), wxPoint(15, 5)));
}

TEST_F(AnnShapeGeometry, SquareOfAStraightDragIsOnePixel) {
  EXPECT_EQ(AnnShape::GetRectOrSquare({10, 10}, {10, 30}, true), wxRect(10, 10, 1, 1));
  EXPECT_EQ(AnnShape::GetRectOrSquare({10, 10}, {30, 10}, true), wxRect(10, 10, 1, 1));
}

TEST_F(AnnShapeGeometry, MoveShiftsAllPointsOfTheFrame) {
  AnnShape shape = Shape(0, 0, 100, 50);
  shape.MoveFor({3, -4});
  AnnShapePoints const &record = RecordOf(shape);
  EXPECT_TRUE(At(record.m_topLeft, 3, -4));
  EXPECT_TRUE(At(record.m_bottomRight, 103, 46));
  EXPECT_TRUE(At(record.m_topResizePoint, 53, -4));
  EXPECT_TRUE(At(record.m_leftResizePoint, 3, 21));
  EXPECT_TRUE(At(record.m_innerBottomLeft, 8, 41));
  EXPECT_TRUE(At(record.m_rotationPoint, 53, -34));
}

TEST_F(AnnShapeGeometry, MoveByNothingIsNoEdit) {
  AnnShape shape = Shape(0, 0, 100, 50);
  std::int64_t const before = shape.GetRecentlyUpdatedCoordsFrame();
  shape.MoveFor({0, 0});
  shape.MoveAllFramesFor({0, 0});
  EXPECT_EQ(shape.GetRecentlyUpdatedCoordsFrame(), before);
}

using AnnShapeOnVideo = VideoObjectTest;

TEST_F(AnnShapeOnVideo, MoveOfOneFrameLeavesTheOthers) {
  AnnShape shape = Shape(0, 0, 100, 50, 2);
  shape.SetEndFrame(6);
  GoTo(shape, 4);
  shape.MoveFor({10, 0});
  EXPECT_TRUE(At(shape.GetCoordinates().CoordsAt(3).m_topLeft, 0, 0));
  EXPECT_TRUE(At(shape.GetCoordinates().CoordsAt(4).m_topLeft, 10, 0));
  EXPECT_TRUE(At(shape.GetCoordinates().CoordsAt(5).m_topLeft, 0, 0));
}

TEST_F(AnnShapeOnVideo, MoveOfAllFramesMovesEachRecordOnce) {
  AnnShape shape = Shape(0, 0, 100, 50, 2);
  shape.SetEndFrame(6);
  GoTo(shape, 4);
  shape.MoveFor({10, 0});
  shape.MoveAllFramesFor({1, 2});
  for (std::int64_t frame : {2, 3, 5, 6}) {
    EXPECT_TRUE(At(shape.GetCoordinates().CoordsAt(frame).m_topLeft, 1, 2)) << frame;
  }
  EXPECT_TRUE(At(shape.GetCoordinates().CoordsAt(4).m_topLeft, 11, 2));
}

TEST_F(AnnShapeOnVideo, EachFrameHasItsOwnAngle) {
  AnnShape shape = Shape(0, 0, 100, 50, 2);
  shape.SetEndFrame(3);
  GoTo(shape, 3);
  shape.PrepareResizing();
  shape.Rotate({150, 25});
  EXPECT_NEAR(shape.GetRotationAngle(), 1.5707963267948966, 1e-12);
  GoTo(shape, 2);
  EXPECT_NEAR(shape.GetRotationAngle(), 0.0, 1e-12);
  GoTo(shape, 3);
  EXPECT_NEAR(shape.GetRotationAngle(), 1.5707963267948966, 1e-12);
}

TEST_F(AnnShapeOnVideo, DragThatEntersANewFrameRepairsTheOneItLeaves) {
  AnnShape shape = Shape(0, 0, 100, 50, 0);
  shape.SetEndFrame(1);
  GoTo(shape, 0);
  wxStockCursor cursor = wxCURSOR_ARROW;
  ASSERT_TRUE(shape.IsAtResizePoint({100, 25}, cursor));
  shape.PrepareResizing();
  shape.ResizeTo({-40, 25}, false);
  EXPECT_TRUE(shape.IsReflected(RecordOf(shape)));
  m_driver.GoToFrame(1);
  shape.ResizeTo({-50, 25}, false);
  AnnShapePoints const left = shape.GetCoordinates().CoordsAt(0);
  EXPECT_FALSE(shape.IsReflected(left));
  EXPECT_TRUE(At(left.m_topLeft, -40, 0));
  EXPECT_TRUE(At(left.m_topRight, 0, 0));
  EXPECT_TRUE(At(shape.GetCoordinates().CoordsAt(1).m_topRight, -50, 0));
}

}  // namespace

}  // namespace framenote::test
