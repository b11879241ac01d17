// SPDX-License-Identifier: MIT
#include "framenote/annotation_events.h"
#include "objects/object_support.h"

namespace framenote::test {

namespace {

using AnnotationObject = VideoObjectTest;

TEST_F(AnnotationObject, IsMadeForExactlyOneFrame) {
  AnnShape const shape = Shape(0, 0, 20, 10, 3);
  EXPECT_EQ(shape.GetStartFrame(), 3);
  EXPECT_EQ(shape.GetEndFrame(), 3);
  EXPECT_EQ(shape.GetFrameDuration(), std::make_pair(std::int64_t{3}, std::int64_t{3}));
  EXPECT_FALSE(shape.IsPresentInFrame(2));
  EXPECT_TRUE(shape.IsPresentInFrame(3));
  EXPECT_FALSE(shape.IsPresentInFrame(4));
}

TEST_F(AnnotationObject, StartFrameBeyondTheEndPushesTheEndAlong) {
  AnnShape shape = Shape(0, 0, 20, 10, 3);
  shape.SetEndFrame(5);
  shape.SetStartFrame(8);
  EXPECT_EQ(shape.GetStartFrame(), 8);
  EXPECT_EQ(shape.GetEndFrame(), 8);
  EXPECT_EQ(shape.ToJSON().ItemAt("StartFrame").AsInt64(), 8);
  EXPECT_EQ(shape.ToJSON().ItemAt("EndFrame").AsInt64(), 8);
  EXPECT_FALSE(shape.AreCoordinatesEmpty(8));
  EXPECT_TRUE(shape.AreCoordinatesEmpty(7));
}

TEST_F(AnnotationObject, EndFrameBelowTheStartPushesTheStartAlong) {
  AnnShape shape = Shape(0, 0, 20, 10, 3);
  shape.SetEndFrame(1);
  EXPECT_EQ(shape.GetStartFrame(), 1);
  EXPECT_EQ(shape.GetEndFrame(), 1);
  EXPECT_FALSE(shape.AreCoordinatesEmpty(1));
  EXPECT_TRUE(shape.AreCoordinatesEmpty(3));
}

TEST_F(AnnotationObject, FramesThatJoinShareTheRecordOfTheEnd) {
  AnnShape shape = Shape(0, 0, 20, 10, 3);
  shape.SetStartFrame(1);
  shape.SetEndFrame(5);
  auto const &records = shape.GetCoordinates().CoordsVec();
  EXPECT_EQ(records[1], records[3]);
  EXPECT_EQ(records[5], records[3]);
  EXPECT_EQ(records[0], nullptr);
  EXPECT_EQ(records[6], nullptr);
}

TEST_F(AnnotationObject, FlagsAreWrittenAndNothingElse) {
  AnnShape shape = Shape(0, 0, 20, 10);
  EXPECT_FALSE(shape.IsFocused());
  EXPECT_FALSE(shape.IsSelected());
  shape.SetSelected(true);
  EXPECT_TRUE(shape.IsSelected());
  EXPECT_FALSE(shape.IsFocused());
  shape.SetFocused(true);
  shape.SetSelected(false);
  EXPECT_TRUE(shape.IsFocused());
  EXPECT_FALSE(shape.IsSelected());
  EXPECT_EQ(m_driver.Sink().Count(wxEVT_ANN_OBJECT_SELECTED), 0U);
}

TEST_F(AnnotationObject, MarkerRadiusWithToleranceIsTruncated) {
  EXPECT_EQ(IAnnotationObject::GetPointMarkerRadiusWithTolerance(1.5), 7);
  EXPECT_EQ(IAnnotationObject::GetPointMarkerRadiusWithTolerance(0.19), 0);
  EXPECT_EQ(IAnnotationObject::GetPointMarkerRadiusWithTolerance(-0.3), -1);
}

TEST_F(AnnotationObject, RestoredWithoutARangeIsInFrameZeroAndSaysSo) {
  wxJSONValue json = Shape(0, 0, 20, 10).ToJSON();
  json.Remove("StartFrame");
  json.Remove("EndFrame");
  AnnShape const restored(Modes().shape, json);
  EXPECT_TRUE(restored.IsPresentInFrame(0));
  EXPECT_FALSE(restored.IsPresentInFrame(1));
  EXPECT_TRUE(restored.ToJSON().ItemAt("StartFrame").IsInt());
  EXPECT_EQ(restored.ToJSON().ItemAt("StartFrame").AsInt64(), 0);
  EXPECT_TRUE(restored.ToJSON().ItemAt("EndFrame").IsInt());
  EXPECT_EQ(restored.ToJSON().ItemAt("EndFrame").AsInt64(), 0);
}

TEST_F(AnnotationObject, CopyTakesFlagsAndRangeAndHasGeometryOfItsOwn) {
  AnnShape shape = Shape(0, 0, 20, 10, 2);
  shape.SetFocused(true);
  AnnShape copy = shape;
  EXPECT_TRUE(copy.IsFocused());
  EXPECT_EQ(copy.GetStartFrame(), 2);
  GoTo(copy, 2);
  copy.MoveFor({5, 0});
  EXPECT_TRUE(At(RecordOf(shape).m_topLeft, 0, 0));
  EXPECT_TRUE(At(RecordOf(copy).m_topLeft, 5, 0));
}

TEST_F(AnnotationObject, ContainingRectFollowsTheRange) {
  AnnShape shape = Shape(10, 20, 60, 50, 3);
  EXPECT_EQ(shape.GetContainingRect(), wxRect(0, 0, 60, 50));
  shape.SetEndFrame(4);
  GoTo(shape, 4);
  shape.MoveFor({100, 0});
  EXPECT_EQ(shape.GetContainingRect(), wxRect(0, 0, 160, 50));
  shape.SetEndFrame(3);
  EXPECT_EQ(shape.GetContainingRect(), wxRect(0, 0, 60, 50));
}

TEST_F(AnnotationObject, CoordinatesReachTheMirrorAtTheEndOfAnEdit) {
  AnnShape shape = Shape(0, 0, 20, 10);
  GoTo(shape, 0);
  shape.MoveFor({7, 0});
  auto const left = [&shape] {
    return shape.ToJSON().ItemAt("Coordinates").ItemAt(0).ItemAt("TopLeft").ItemAt(0).AsDouble();
  };
  EXPECT_EQ(left(), 0.0);
  shape.OnObjectModified();
  EXPECT_EQ(left(), 7.0);
}

TEST_F(AnnotationObject, VideoThatGrowsMakesRoom) {
  AnnShape shape = Shape(0, 0, 20, 10);
  EXPECT_EQ(shape.GetCoordinates().CoordsVec().size(), 10U);
  shape.OnVideoLengthIncreased(25);
  EXPECT_EQ(shape.GetCoordinates().CoordsVec().size(), 25U);
  shape.SetEndFrame(24);
  EXPECT_FALSE(shape.AreCoordinatesEmpty(24));
}

TEST_F(AnnotationObject, DuplicateLastCoordinatesSharesAfterTheFirstFrameOnly) {
  AnnShape shape = Shape(0, 0, 20, 10, 3);
  shape.DuplicateLastCoordinates(3);
  EXPECT_TRUE(shape.AreCoordinatesEmpty(4));
  shape.DuplicateLastCoordinates(4);
  auto const &records = shape.GetCoordinates().CoordsVec();
  EXPECT_EQ(records[4], records[3]);
  EXPECT_NE(records[4], nullptr);
  shape.DuplicateLastCoordinates(2);
  EXPECT_TRUE(shape.AreCoordinatesEmpty(2));
}

TEST_F(AnnotationObject, FrameWithoutARecordIsNotHitAndPaintsNothing) {
  ShapeLook().SetFillColor(*wxGREEN);
  AnnShape shape = Shape(5, 5, 30, 30, 3);
  GoTo(shape, 8);
  EXPECT_FALSE(shape.Contains({10, 10}));
  wxStockCursor cursor = wxCURSOR_CROSS;
  EXPECT_FALSE(shape.IsAtResizePoint({5, 5}, cursor));
  EXPECT_EQ(cursor, wxCURSOR_CROSS);
  wxImage const image = PaintedBy(IAnnPainter::GraphicsContext, {40, 40}, 1.0, [&](auto &painter) {
    shape.Draw(painter, {0, 0});
    shape.DrawSelected(painter, {0, 0}, 1.0);
    shape.DrawFocused(painter, {0, 0}, 1.0);
  });
  EXPECT_TRUE(pixels::AreaHas(image, {0, 0, 40, 40}, pixels::kWhite));
}

TEST_F(AnnotationObject, PasteAndCopyReachTheTool) {
  AnnShape const shape = Shape(0, 0, 20, 10);
  shape.Paste();
  ASSERT_EQ(m_driver.ObjectCount(), 1U);
  EXPECT_NE(m_driver.Object(), &shape);
  EXPECT_TRUE(m_driver.Object()->ToJSON().IsSameAs(shape.ToJSON()));
  AnnArrow const arrow = Arrow({0, 0}, {30, 0});
  arrow.Paste();
  EXPECT_NE(dynamic_cast<AnnArrow *>(m_driver.Object(0)), nullptr);
  EXPECT_NE(dynamic_cast<AnnShape *>(m_driver.Object(1)), nullptr);
}

}  // namespace

}  // namespace framenote::test
