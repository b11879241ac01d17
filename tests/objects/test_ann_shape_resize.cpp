// SPDX-License-Identifier: MIT
#include <mutex>

#include "objects/object_support.h"

namespace framenote::test {

namespace {

struct Place {
  double x, y;
};

/// One drag of a handle of the shape with the corners (0, 0) and (100, 50).
struct HandleDrag {
  char const *name;
  wxPoint2DInt handle;
  wxPoint2DInt position;
  bool keepsRatio;
  Place topLeft, topRight, bottomRight, bottomLeft;
};

void PrintTo(HandleDrag const &drag, std::ostream *out) {
  *out << drag.name;
}

class AnnShapeResize : public ObjectTest, public testing::WithParamInterface<HandleDrag> {};

TEST_P(AnnShapeResize, GivesTheCorners) {
  HandleDrag const &drag = GetParam();
  AnnShape shape = Shape(0, 0, 100, 50);
  wxStockCursor cursor = wxCURSOR_ARROW;
  ASSERT_TRUE(shape.IsAtResizePoint(drag.handle, cursor));
  shape.PrepareResizing();
  // A drag starts from the corners at the press, so what was in between leaves no trace.
  shape.ResizeTo({333, -222}, drag.keepsRatio);
  shape.ResizeTo(drag.position, drag.keepsRatio);
  AnnShapePoints const &record = RecordOf(shape);
  EXPECT_TRUE(At(record.m_topLeft, drag.topLeft.x, drag.topLeft.y));
  EXPECT_TRUE(At(record.m_topRight, drag.topRight.x, drag.topRight.y));
  EXPECT_TRUE(At(record.m_bottomRight, drag.bottomRight.x, drag.bottomRight.y));
  EXPECT_TRUE(At(record.m_bottomLeft, drag.bottomLeft.x, drag.bottomLeft.y));
}

constexpr bool kFree = false;
constexpr bool kKeeps = true;

INSTANTIATE_TEST_SUITE_P(
    , AnnShapeResize,
    testing::Values(
        HandleDrag{"TopLeft", {0, 0}, {10, 5}, kFree, {10, 5}, {100, 5}, {100, 50}, {10, 50}},
        HandleDrag{
            "TopRight", {100, 0}, {120, -10}, kFree, {0, -10}, {120, -10}, {120, 50}, {0, 50}},
        HandleDrag{
            "BottomRight", {100, 50}, {150, 80}, kFree, {0, 0}, {150, 0}, {150, 80}, {0, 80}},
        HandleDrag{
            "BottomLeft", {0, 50}, {-20, 60}, kFree, {-20, 0}, {100, 0}, {100, 60}, {-20, 60}},
        HandleDrag{"Top", {50, 0}, {33, -10}, kFree, {0, -10}, {100, -10}, {100, 50}, {0, 50}},
        HandleDrag{"Right", {100, 25}, {120, 7}, kFree, {0, 0}, {120, 0}, {120, 50}, {0, 50}},
        HandleDrag{"Bottom", {50, 50}, {40, 70}, kFree, {0, 0}, {100, 0}, {100, 70}, {0, 70}},
        HandleDrag{"Left", {0, 25}, {-30, 20}, kFree, {-30, 0}, {100, 0}, {100, 50}, {-30, 50}},
        // Corners take the width from the height: the ratio is 2.
        HandleDrag{"TopLeftKeeps", {0, 0}, {30, 5}, kKeeps, {10, 5}, {100, 5}, {100, 50}, {10, 50}},
        HandleDrag{"TopRightKeeps",
                   {100, 0},
                   {130, -10},
                   kKeeps,
                   {0, -10},
                   {120, -10},
                   {120, 50},
                   {0, 50}},
        HandleDrag{
            "BottomRightKeeps", {100, 50}, {150, 80}, kKeeps, {0, 0}, {160, 0}, {160, 80}, {0, 80}},
        HandleDrag{
            "BottomLeftKeeps", {0, 50}, {0, 60}, kKeeps, {-20, 0}, {100, 0}, {100, 60}, {-20, 60}},
        // Sides grow the shape away from the corner before the side, not around its middle.
        HandleDrag{
            "TopKeeps", {50, 0}, {50, -10}, kKeeps, {0, -10}, {120, -10}, {120, 50}, {0, 50}},
        HandleDrag{
            "RightKeeps", {100, 25}, {120, 25}, kKeeps, {0, 0}, {120, 0}, {120, 60}, {0, 60}},
        HandleDrag{
            "BottomKeeps", {50, 50}, {50, 70}, kKeeps, {-40, 0}, {100, 0}, {100, 70}, {-40, 70}},
        HandleDrag{
            "LeftKeeps", {0, 25}, {-20, 25}, kKeeps, {-20, -10}, {100, -10}, {100, 50}, {-20, 50}}),
    [](auto const &drag) { return drag.param.name; });

class AnnShapeHandles : public ObjectTest {
protected:
  static void Grab(AnnShape &shape, wxPoint2DInt const &handle) {
    wxStockCursor cursor = wxCURSOR_ARROW;
    ASSERT_TRUE(shape.IsAtResizePoint(handle, cursor));
    shape.PrepareResizing();
  }

  static void Check(AnnShape &shape, bool adjustOrder) {
    std::lock_guard<std::mutex> const lock(shape.GetCoordinatesMutex());
    shape.CheckIfReflectedAlongAxis(lock, adjustOrder);
  }
};

TEST_F(AnnShapeHandles, WithoutAnActiveHandleTheCornersStay) {
  AnnShape shape = Shape(0, 0, 100, 50);
  shape.PrepareResizing();
  shape.ResizeTo({400, 400}, false);
  EXPECT_TRUE(At(RecordOf(shape).m_topLeft, 0, 0));
  EXPECT_TRUE(At(RecordOf(shape).m_bottomRight, 100, 50));
}

TEST_F(AnnShapeHandles, ResizeBringsTheDerivedPointsAlong) {
  AnnShape shape = Shape(0, 0, 100, 50);
  Grab(shape, {100, 50});
  shape.ResizeTo({150, 80}, false);
  AnnShapePoints const &record = RecordOf(shape);
  EXPECT_TRUE(At(record.m_topResizePoint, 75, 0));
  EXPECT_TRUE(At(record.m_rightResizePoint, 150, 40));
  EXPECT_TRUE(At(record.m_innerBottomRight, 145, 75));
  EXPECT_TRUE(At(record.m_rotationPoint, 75, -30));
}

TEST_F(AnnShapeHandles, ResizeOfATurnedShapeWorksInItsOwnAxes) {
  AnnShape shape = Shape(0, 0, 100, 50);
  shape.PrepareResizing();
  shape.Rotate({150, 25});
  // The bottom right corner is now at (25, 75), the width runs down, the height to the left.
  Grab(shape, {25, 75});
  shape.ResizeTo({15, 95}, false);
  AnnShapePoints const &record = RecordOf(shape);
  EXPECT_TRUE(At(record.m_topLeft, 75, -25));
  EXPECT_TRUE(At(record.m_topRight, 75, 95));
  EXPECT_TRUE(At(record.m_bottomRight, 15, 95));
  EXPECT_TRUE(At(record.m_bottomLeft, 15, -25));
}

TEST_F(AnnShapeHandles, TurnOfFarCornersEndsAtTheLastPixel) {
  AnnShape shape(Modes().shape, JsonFromUtf8(R"({"Coordinates":[{"Range":[0,0],
      "TopLeft":[-1e308,0],"TopRight":[1e308,0],"BottomRight":[1e308,20],
      "BottomLeft":[-1e308,20]}]})"));
  GoTo(shape, 0);
  shape.PrepareResizing();
  // An eighth of a turn around (0, 10); the squares of the lengths are infinite.
  shape.Rotate({50, -40});
  AnnShapePoints const &record = RecordOf(shape);
  EXPECT_EQ(record.m_topLeft, wxPoint2DDouble(-268435456, -268435456));
  EXPECT_EQ(record.m_topRight, wxPoint2DDouble(268435456, 268435456));
  EXPECT_EQ(record.m_bottomRight, wxPoint2DDouble(268435456, 268435456));
  EXPECT_EQ(record.m_bottomLeft, wxPoint2DDouble(-268435456, -268435456));
  shape.OnObjectModified();
  EXPECT_TRUE(JsonFromUtf8(JsonToUtf8(shape.ToJSON())).IsSameAs(shape.ToJSON()));
}

// The height is infinite to the toolkit, and ten along it are no number.
TEST_F(AnnShapeHandles, ResizeOfAFarCornerHasATextForm) {
  AnnShape shape(Modes().shape, JsonFromUtf8(R"({"Coordinates":[{"Range":[0,0],
      "TopLeft":[4,4],"TopRight":[40,4],"BottomRight":[40,28],"BottomLeft":[-1e308,28]}]})"));
  GoTo(shape, 0);
  Grab(shape, {4, 4});
  shape.ResizeTo({14, 14}, false);
  AnnShapePoints const &record = RecordOf(shape);
  EXPECT_EQ(record.m_topLeft, wxPoint2DDouble(0, 4));
  EXPECT_EQ(record.m_topRight, wxPoint2DDouble(0, 4));
  EXPECT_EQ(record.m_bottomRight, wxPoint2DDouble(40, 28));
  EXPECT_EQ(record.m_bottomLeft, wxPoint2DDouble(-1e308, 28));
  shape.OnObjectModified();
  EXPECT_TRUE(JsonFromUtf8(JsonToUtf8(shape.ToJSON())).IsSameAs(shape.ToJSON()));
}

TEST_F(AnnShapeHandles, CornerPastOneSideReflectsForTheTimeOfTheDrag) {
  AnnShape shape = Shape(0, 0, 100, 50);
  Grab(shape, {0, 0});
  shape.ResizeTo({150, 20}, false);
  Check(shape, false);
  EXPECT_TRUE(shape.IsReflected(RecordOf(shape)));
  EXPECT_TRUE(At(RecordOf(shape).m_topLeft, 150, 20));
  EXPECT_TRUE(At(RecordOf(shape).m_innerTopLeft, 145, 25));
  EXPECT_TRUE(At(RecordOf(shape).m_innerTopRight, 105, 25));
  EXPECT_TRUE(At(RecordOf(shape).m_rotationPoint, 125, -10));
  Check(shape, true);
  EXPECT_FALSE(shape.IsReflected(RecordOf(shape)));
  EXPECT_TRUE(At(RecordOf(shape).m_topLeft, 100, 20));
  EXPECT_TRUE(At(RecordOf(shape).m_topRight, 150, 20));
  EXPECT_TRUE(At(RecordOf(shape).m_bottomRight, 150, 50));
  EXPECT_TRUE(At(RecordOf(shape).m_bottomLeft, 100, 50));
  EXPECT_TRUE(At(RecordOf(shape).m_leftResizePoint, 100, 35));
  EXPECT_TRUE(At(RecordOf(shape).m_innerTopLeft, 105, 25));
  EXPECT_NEAR(shape.GetRotationAngle(), 0.0, 1e-12);
}

TEST_F(AnnShapeHandles, CornerPastTheBottomTurnsTheShapeOver) {
  AnnShape shape = Shape(0, 0, 100, 50);
  Grab(shape, {0, 0});
  shape.ResizeTo({20, 80}, false);
  EXPECT_TRUE(shape.IsReflected(RecordOf(shape)));
  Check(shape, true);
  EXPECT_FALSE(shape.IsReflected(RecordOf(shape)));
  EXPECT_TRUE(At(RecordOf(shape).m_topLeft, 100, 80));
  EXPECT_TRUE(At(RecordOf(shape).m_topRight, 20, 80));
  EXPECT_TRUE(At(RecordOf(shape).m_bottomRight, 20, 50));
  EXPECT_TRUE(At(RecordOf(shape).m_bottomLeft, 100, 50));
  EXPECT_NEAR(shape.GetRotationAngle(), 3.141592653589793, 1e-12);
}

TEST_F(AnnShapeHandles, CornerPastTheOppositeCornerIsHalfATurn) {
  AnnShape shape = Shape(0, 0, 100, 50);
  Grab(shape, {0, 0});
  shape.ResizeTo({150, 80}, false);
  // Two reflections are a turn: the corners still run clockwise.
  EXPECT_FALSE(shape.IsReflected(RecordOf(shape)));
  Check(shape, true);
  EXPECT_TRUE(At(RecordOf(shape).m_topLeft, 150, 80));
  EXPECT_TRUE(At(RecordOf(shape).m_bottomRight, 100, 50));
  EXPECT_NEAR(shape.GetRotationAngle(), 3.141592653589793, 1e-12);
}

class AnnShapeHandlesInAVideo : public VideoObjectTest {};

TEST_F(AnnShapeHandlesInAVideo, ResizeLeavesTheFormsOfOtherFramesAndItsAngle) {
  AnnShape shape = Shape(50, 50, 100, 100);
  shape.SetEndFrame(9);
  GoTo(shape, 9);
  shape.MoveFor({0, -220});
  GoTo(shape, 3);
  wxStockCursor cursor = wxCURSOR_ARROW;
  ASSERT_TRUE(shape.IsAtResizePoint({114, 75}, cursor));
  shape.PrepareResizing();
  shape.ResizeTo({120, 75}, false);
  EXPECT_EQ(shape.GetRotationAngle(), 0.0);
  EXPECT_TRUE(At(RecordOf(shape).m_bottomRight, 120, 100));
  GoTo(shape, 9);
  EXPECT_TRUE(At(RecordOf(shape).m_topLeft, 50, -170));
  EXPECT_TRUE(At(RecordOf(shape).m_bottomRight, 100, -120));
}

TEST_F(AnnShapeHandles, CollapsedWidthCanBeOpenedAgain) {
  AnnShape shape = Shape(20, 0, 20, 50);
  Grab(shape, {20, 50});
  shape.ResizeTo({60, 70}, false);
  EXPECT_TRUE(At(RecordOf(shape).m_bottomRight, 60, 70));
  EXPECT_TRUE(At(RecordOf(shape).m_topRight, 60, 0));
  EXPECT_TRUE(At(RecordOf(shape).m_topLeft, 20, 0));
}

TEST_F(AnnShapeHandles, PointRemembersNothing) {
  AnnShape shape = Shape(0, 0, 100, 50);
  Grab(shape, {100, 50});
  shape.ResizeTo({0, 0}, false);
  ASSERT_TRUE(shape.IsPoint(RecordOf(shape)));
  shape.RememberCurrentPosition();
  EXPECT_EQ(shape.GetAspectRatio(), 2.0);
  shape.ResizeTo({150, 80}, false);
  EXPECT_TRUE(At(RecordOf(shape).m_bottomRight, 150, 80));
  EXPECT_TRUE(At(RecordOf(shape).m_topRight, 150, 0));
}

TEST_F(AnnShapeHandles, AspectRatioIsWidthOverHeight) {
  AnnShape shape = Shape(0, 0, 100, 50);
  EXPECT_EQ(shape.GetAspectRatio(), 1.0);
  shape.RememberCurrentPosition();
  EXPECT_EQ(shape.GetAspectRatio(), 2.0);
}

class AnnShapeRotation : public AnnShapeHandles {};

TEST_F(AnnShapeRotation, QuarterTurnClockwise) {
  AnnShape shape = Shape(0, 0, 100, 50);
  shape.RememberCurrentPosition();
  shape.Rotate({150, 25});
  AnnShapePoints const &record = RecordOf(shape);
  EXPECT_TRUE(At(record.m_topLeft, 75, -25));
  EXPECT_TRUE(At(record.m_topRight, 75, 75));
  EXPECT_TRUE(At(record.m_bottomRight, 25, 75));
  EXPECT_TRUE(At(record.m_bottomLeft, 25, -25));
  EXPECT_TRUE(At(record.m_rotationPoint, 105, 25));
  EXPECT_TRUE(At(record.m_innerTopLeft, 70, -20));
  EXPECT_NEAR(shape.GetRotationAngle(), 1.5707963267948966, 1e-12);
}

TEST_F(AnnShapeRotation, IsAbsoluteAndLosesNothingOverManySteps) {
  AnnShape shape = Shape(0, 0, 100, 50);
  shape.RememberCurrentPosition();
  for (int x = -500; x <= 500; ++x) shape.Rotate({x, -300});
  shape.Rotate({50, -1000});
  EXPECT_TRUE(At(RecordOf(shape).m_topLeft, 0, 0));
  EXPECT_TRUE(At(RecordOf(shape).m_bottomRight, 100, 50));
}

TEST_F(AnnShapeRotation, SecondTurnStartsFromTheFirst) {
  AnnShape shape = Shape(0, 0, 100, 50);
  shape.RememberCurrentPosition();
  shape.Rotate({150, 25});
  shape.RememberCurrentPosition();
  shape.Rotate({50, 125});
  EXPECT_TRUE(At(RecordOf(shape).m_topLeft, 100, 50));
  EXPECT_TRUE(At(RecordOf(shape).m_topRight, 0, 50));
  EXPECT_NEAR(shape.GetRotationAngle(), 3.141592653589793, 1e-12);
}

TEST_F(AnnShapeRotation, CursorsTurnByOnePlacePerEighthOfATurn) {
  AnnShape shape = Shape(0, 0, 100, 50);
  shape.RememberCurrentPosition();
  shape.Rotate({150, -75});
  wxStockCursor cursor = wxCURSOR_ARROW;
  ASSERT_TRUE(shape.IsAtResizePoint({32, -28}, cursor));
  EXPECT_EQ(cursor, wxCURSOR_SIZENS);
}

TEST_F(AnnShapeRotation, QuarterTurnTradesTheCursorsOfTopAndRight) {
  AnnShape shape = Shape(0, 0, 100, 50);
  wxStockCursor cursor = wxCURSOR_ARROW;
  ASSERT_TRUE(shape.IsAtResizePoint({50, 0}, cursor));
  EXPECT_EQ(cursor, wxCURSOR_SIZENS);
  ASSERT_TRUE(shape.IsAtResizePoint({100, 25}, cursor));
  EXPECT_EQ(cursor, wxCURSOR_SIZEWE);
  shape.RememberCurrentPosition();
  shape.Rotate({150, 25});
  ASSERT_TRUE(shape.IsAtResizePoint({75, 25}, cursor));
  EXPECT_EQ(cursor, wxCURSOR_SIZEWE);
  ASSERT_TRUE(shape.IsAtResizePoint({50, 75}, cursor));
  EXPECT_EQ(cursor, wxCURSOR_SIZENS);
}

TEST_F(AnnShapeRotation, CursorsOfAnUprightShape) {
  AnnShape shape = Shape(0, 0, 100, 60);
  struct {
    wxPoint2DInt handle;
    wxStockCursor cursor;
  } const expected[] = {{{0, 0}, wxCURSOR_SIZENWSE},    {{50, 0}, wxCURSOR_SIZENS},
                        {{100, 0}, wxCURSOR_SIZENESW},  {{100, 30}, wxCURSOR_SIZEWE},
                        {{100, 60}, wxCURSOR_SIZENWSE}, {{50, 60}, wxCURSOR_SIZENS},
                        {{0, 60}, wxCURSOR_SIZENESW},   {{0, 30}, wxCURSOR_SIZEWE}};
  for (auto const &[handle, wanted] : expected) {
    wxStockCursor cursor = wxCURSOR_ARROW;
    ASSERT_TRUE(shape.IsAtResizePoint(handle, cursor));
    EXPECT_EQ(cursor, wanted) << handle.m_x << ' ' << handle.m_y;
  }
}

TEST_F(AnnShapeRotation, SurvivesADocumentByItsCornersAlone) {
  AnnShape shape = Shape(0, 0, 100, 50);
  shape.RememberCurrentPosition();
  shape.Rotate({150, 25});
  shape.OnObjectModified();
  AnnShape const restored(Modes().shape, shape.ToJSON());
  EXPECT_NEAR(restored.GetRotationAngle(), 1.5707963267948966, 1e-12);
  EXPECT_TRUE(At(RecordOf(restored).m_rotationPoint, 105, 25));
}

}  // namespace

}  // namespace framenote::test
