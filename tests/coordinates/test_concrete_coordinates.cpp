// SPDX-License-Identifier: MIT
#include <climits>
#include <cmath>
#include <limits>

#include <gtest/gtest.h>
#include <wx/gdicmn.h>

#include "coordinates/ann_arrow_coordinates.h"
#include "coordinates/ann_image_coordinates.h"
#include "coordinates/ann_magnify_coordinates.h"
#include "coordinates/ann_pencil_coordinates.h"
#include "coordinates/ann_shape_coordinates.h"
#include "coordinates_support.h"
#include "talbase/json_sharing.h"

using namespace coordinates_test;

namespace {

using Path = std::vector<wxPoint2DInt>;

wxJSONValue ShapeRun(std::int64_t first, std::int64_t last, double left) {
  wxJSONValue element(wxJSONTYPE_OBJECT);
  element.Set("TopLeft", Pair(left, 20.0));
  element.Set("TopRight", Pair(left + 99.0, 20.0));
  element.Set("BottomRight", Pair(left + 99.0, 69.0));
  element.Set("BottomLeft", Pair(left, 69.0));
  element.Set("Range", Pair(first, last));
  return element;
}

wxJSONValue With(wxJSONValue element, char const *key, wxJSONValue const &value) {
  element.Set(key, value);
  return element;
}

wxJSONValue ArrowRun(wxJSONValue const &head, wxJSONValue const &tail) {
  return With(With(RunOf(0, 1), "Head", head), "Tail", tail);
}

AnnShapeCoordinates LoadedShape(std::vector<wxJSONValue> const &runs, std::int64_t frameCount) {
  return AnnShapeCoordinates(ArrayOf(runs), frameCount, nullptr, 0);
}

std::vector<wxString> Names(std::initializer_list<char const *> names) {
  return std::vector<wxString>(names.begin(), names.end());
}

wxPoint2DDouble PointOf(wxJSONValue const &element, char const *key) {
  wxJSONValue const point = element.ItemAt(key);
  return wxPoint2DDouble(point.ItemAt(0).AsDouble(), point.ItemAt(1).AsDouble());
}

}  // namespace

TEST(AnnShapeStore, CornersAreTheOuterPixelsOfTheRectangle) {
  AnnShapeCoordinates const store(1, 0, wxRect(10, 20, 100, 50));
  EXPECT_EQ(store.Coords().m_topLeft, wxPoint2DDouble(10.0, 20.0));
  EXPECT_EQ(store.Coords().m_topRight, wxPoint2DDouble(109.0, 20.0));
  EXPECT_EQ(store.Coords().m_bottomRight, wxPoint2DDouble(109.0, 69.0));
  EXPECT_EQ(store.Coords().m_bottomLeft, wxPoint2DDouble(10.0, 69.0));
  EXPECT_EQ(store.Coords().m_rotationPoint, wxPoint2DDouble(0.0, 0.0));
  EXPECT_EQ(store.Coords().m_innerTopLeft, wxPoint2DDouble(0.0, 0.0));
}

TEST(AnnShapeStore, ExtremeRectangleDoesNotOverflow) {
  AnnShapeCoordinates const store(1, 0, wxRect(INT_MAX, 0, INT_MAX, 1));
  EXPECT_EQ(store.Coords().m_topRight.m_x, 4294967293.0);
}

TEST(AnnShapeStore, NewShapeIsWrittenAsOneRunOfItsFrame) {
  AnnShapeCoordinates const store(10, 4, wxRect(10, 20, 100, 50));
  ASSERT_EQ(store.ToJSON().Size(), 1);
  wxJSONValue const element = store.ToJSON().ItemAt(0);
  EXPECT_EQ(element.GetMemberNames(),
            Names({"TopLeft", "TopRight", "BottomRight", "BottomLeft", "Range"}));
  EXPECT_EQ(PointOf(element, "TopLeft"), wxPoint2DDouble(10.0, 20.0));
  EXPECT_EQ(PointOf(element, "TopRight"), wxPoint2DDouble(109.0, 20.0));
  EXPECT_EQ(PointOf(element, "BottomRight"), wxPoint2DDouble(109.0, 69.0));
  EXPECT_EQ(PointOf(element, "BottomLeft"), wxPoint2DDouble(10.0, 69.0));
  EXPECT_EQ(RangeOf(element), (std::pair<std::int64_t, std::int64_t>(4, 4)));
}

TEST(AnnShapeStore, ReadsBackWhatItWrote) {
  AnnShapeCoordinates const store(10, 4, wxRect(10, 20, 100, 50));
  AnnShapeCoordinates loaded(store.ToJSON(), 10, nullptr, 0);
  EXPECT_EQ(loaded.CoordsAt(4).m_bottomRight, wxPoint2DDouble(109.0, 69.0));
  loaded.UpdateJSONValCoordinates(0, 9);
  EXPECT_TRUE(loaded.ToJSON().IsSameAs(store.ToJSON()));
}

TEST(AnnShapeStore, CallbackGetsEachRecordOnceWithCornersAndThickness) {
  std::vector<double> lefts;
  std::vector<int> widths;
  auto const callback = [&](AnnShapePoints &record, int thickness) {
    lefts.push_back(record.m_topLeft.m_x);
    widths.push_back(thickness);
    record.m_rotationPoint = wxPoint2DDouble(record.m_topLeft.m_x, -30.0);
  };
  AnnShapeCoordinates const store(ArrayOf({ShapeRun(0, 4, 1.0), ShapeRun(5, 9, 2.0)}), 10, callback,
                                  7);
  EXPECT_EQ(lefts, (std::vector<double>{1.0, 2.0}));
  EXPECT_EQ(widths, (std::vector<int>{7, 7}));
  EXPECT_EQ(store.CoordsAt(3).m_rotationPoint, wxPoint2DDouble(1.0, -30.0));
}

TEST(AnnShapeStore, LoadedElementGoesBackAsReadWithItsRangeReplaced) {
  auto store = LoadedShape({With(ShapeRun(0, 9, 1.0), "Later", "kept")}, 10);
  store.UpdateJSONValCoordinates(2, 6);
  ASSERT_EQ(store.ToJSON().Size(), 1);
  wxJSONValue const element = store.ToJSON().ItemAt(0);
  EXPECT_EQ(element.ItemAt("Later").AsString(), "kept");
  EXPECT_EQ(RangeOf(element), (std::pair<std::int64_t, std::int64_t>(2, 6)));
  EXPECT_EQ(element.GetMemberNames(),
            Names({"TopLeft", "TopRight", "BottomRight", "BottomLeft", "Range", "Later"}));
}

TEST(AnnShapeStore, EditedRecordIsWrittenAndKeepsUnknownKeys) {
  auto store = LoadedShape({With(ShapeRun(0, 9, 1.0), "Later", "kept")}, 10);
  store.AddNewCoordinates(9);
  store.CoordsEditable().m_topLeft = wxPoint2DDouble(-3.25, 0.5);
  store.SetCoordinatesNotUpdatedInJson();
  store.UpdateJSONValCoordinates(0, 9);
  ASSERT_EQ(store.ToJSON().Size(), 2);
  EXPECT_EQ(PointOf(store.ToJSON().ItemAt(0), "TopLeft"), wxPoint2DDouble(1.0, 20.0));
  EXPECT_EQ(PointOf(store.ToJSON().ItemAt(1), "TopLeft"), wxPoint2DDouble(-3.25, 0.5));
  EXPECT_EQ(store.ToJSON().ItemAt(1).ItemAt("Later").AsString(), "kept");
  EXPECT_TRUE(store.Coords().m_updatedInJson);
}

TEST(AnnShapeStore, RangeStaysOutOfTheRecordOfANewShape) {
  AnnShapeCoordinates const store(10, 4, wxRect(10, 20, 100, 50));
  EXPECT_FALSE(store.Coords().m_json.HasMember("Range"));
  EXPECT_TRUE(store.Coords().m_json.HasMember("TopLeft"));
}

/// Ten frames, each with a record of its own.
AnnShapeCoordinates TenRecords() {
  AnnShapeCoordinates store(10, 0, wxRect(10, 20, 100, 50));
  for (int frame = 1; frame < 10; ++frame) {
    store.AddNewCoordinates(frame);
    store.SetCoordinatesNotUpdatedInJson();
  }
  store.UpdateJSONValCoordinates(0, 9);
  return store;
}

TEST(AnnShapeStore, EditWritesItsOwnRunAlone) {
  AnnShapeCoordinates store = TenRecords();
  wxJSONValue const before = store.ToJSON();
  store.AddNewCoordinates(4);
  store.CoordsEditable().m_topLeft = {1.0, 2.0};
  store.SetCoordinatesNotUpdatedInJson();
  store.UpdateJSONValCoordinates(0, 9);
  ASSERT_EQ(store.ToJSON().Size(), 10);
  for (int i = 0; i < 10; ++i) {
    EXPECT_EQ(framenote::AreShared(store.ToJSON().ItemAt(i), before.ItemAt(i)), i != 4) << i;
  }
  EXPECT_TRUE(store.ToJSON().ItemAt(4).ItemAt("TopLeft").IsSameAs(Pair(1.0, 2.0)));
}

TEST(AnnShapeStore, RunsThatChangeTheirFramesAreWrittenAnew) {
  AnnShapeCoordinates store = TenRecords();
  wxJSONValue const before = store.ToJSON();
  store.DuplicateLastCoordinates(4);
  store.UpdateJSONValCoordinates(0, 9);
  wxJSONValue const &after = store.ToJSON();
  EXPECT_EQ(RangesOf(after),
            (Ranges{{0, 0}, {1, 1}, {2, 2}, {3, 4}, {5, 5}, {6, 6}, {7, 7}, {8, 8}, {9, 9}}));
  EXPECT_FALSE(framenote::AreShared(after.ItemAt(3), before.ItemAt(3)));
  EXPECT_TRUE(framenote::AreShared(after.ItemAt(4), before.ItemAt(5)));
}

TEST(AnnShapeStore, MissingOrStrangeCornersReadAsTheOrigin) {
  auto const store = LoadedShape({With(RunOf(0, 0), "TopRight", "here")}, 1);
  EXPECT_EQ(store.Coords().m_topLeft, wxPoint2DDouble(0.0, 0.0));
  EXPECT_EQ(store.Coords().m_topRight, wxPoint2DDouble(0.0, 0.0));
  EXPECT_FALSE(store.Coords().m_json.HasMember("TopLeft"));
}

TEST(AnnShapeStore, DoublesAreKeptAsTheyAre) {
  double const nan = std::numeric_limits<double>::quiet_NaN();
  auto const store = LoadedShape({With(RunOf(0, 0), "TopLeft", Pair(1e300, nan))}, 1);
  EXPECT_EQ(store.Coords().m_topLeft.m_x, 1e300);
  EXPECT_TRUE(std::isnan(store.Coords().m_topLeft.m_y));
}

TEST(AnnArrowStore, NewArrowIsWrittenAsHeadAndTail) {
  AnnArrowCoordinates const store(3, 1, wxPoint2DInt(30, 40), wxPoint2DInt(5, 6));
  EXPECT_EQ(store.Coords().m_head, wxPoint2DInt(30, 40));
  EXPECT_EQ(store.Coords().m_tail, wxPoint2DInt(5, 6));
  EXPECT_EQ(store.Coords().m_headBase, wxPoint2DDouble(0.0, 0.0));
  ASSERT_EQ(store.ToJSON().Size(), 1);
  wxJSONValue const element = store.ToJSON().ItemAt(0);
  EXPECT_EQ(element.GetMemberNames(), Names({"Head", "Tail", "Range"}));
  EXPECT_TRUE(element.ItemAt("Head").IsSameAs(Pair(30, 40)));
  EXPECT_TRUE(element.ItemAt("Tail").IsSameAs(Pair(5, 6)));
}

TEST(AnnArrowStore, CallbackWorksOutTheDerivedPoints) {
  AnnArrowCoordinates const store(
      ArrayOf({ArrowRun(Pair(30, 40), Pair(5, 6))}), 2,
      [](AnnArrowPoints &record) { record.m_headBase = wxPoint2DDouble(record.m_head.m_x, 1.0); });
  EXPECT_EQ(store.Coords().m_tail, wxPoint2DInt(5, 6));
  EXPECT_EQ(store.Coords().m_headBase, wxPoint2DDouble(30.0, 1.0));
}

TEST(AnnArrowStore, HugeEndsAreBroughtWithinThePixels) {
  AnnArrowCoordinates const store(
      ArrayOf({ArrowRun(Pair(1e300, -5000000000000), Pair(INT_MIN, 7))}), 2, nullptr);
  EXPECT_EQ(store.Coords().m_head, wxPoint2DInt(268435456, -268435456));
  EXPECT_EQ(store.Coords().m_tail.m_x, -268435456);
}

TEST(AnnArrowStore, EditMarksTheCurrentRecord) {
  AnnArrowCoordinates store(3, 1, wxPoint2DInt(30, 40), wxPoint2DInt(5, 6));
  store.CoordsEditable().m_head = wxPoint2DInt(31, 41);
  store.SetCoordinatesNotUpdatedInJson();
  EXPECT_FALSE(store.Coords().m_updatedInJson);
  store.UpdateJSONValCoordinates(1, 1);
  EXPECT_TRUE(store.ToJSON().ItemAt(0).ItemAt("Head").IsSameAs(Pair(31, 41)));
}

TEST(AnnPencilStore, KeepsItsPointsAndWritesTheFirst) {
  AnnPencilCoordinates const store(3, 1, Path{{10, 20}, {12, 25}, {7, 30}});
  EXPECT_EQ(store.Coords().m_path, (Path{{10, 20}, {12, 25}, {7, 30}}));
  ASSERT_EQ(store.ToJSON().Size(), 1);
  EXPECT_EQ(store.ToJSON().ItemAt(0).GetMemberNames(), Names({"StartPoint", "Range"}));
  EXPECT_TRUE(store.ToJSON().ItemAt(0).ItemAt("StartPoint").IsSameAs(Pair(10, 20)));
}

TEST(AnnPencilStore, PathComesBackFromTheStartAndTheDifferences) {
  AnnPencilCoordinates const store(3, 1, Path{{10, 20}, {12, 25}, {7, 30}});
  AnnPencilCoordinates const loaded(store.ToJSON(), 3, Path{{0, 0}, {2, 5}, {-3, 10}});
  EXPECT_EQ(loaded.Coords().m_path, (Path{{10, 20}, {12, 25}, {7, 30}}));
}

TEST(AnnPencilStore, EachRunHasItsOwnStart) {
  AnnPencilCoordinates const store(ArrayOf({With(RunOf(0, 4), "StartPoint", Pair(1, 2)),
                                            With(RunOf(5, 9), "StartPoint", Pair(100, 200))}),
                                   10, Path{{0, 0}, {3, 3}});
  EXPECT_EQ(store.CoordsAt(4).m_path, (Path{{1, 2}, {4, 5}}));
  EXPECT_EQ(store.CoordsAt(5).m_path, (Path{{100, 200}, {103, 203}}));
}

TEST(AnnPencilStore, PathsSaturate) {
  AnnPencilCoordinates const store(
      ArrayOf({With(RunOf(0, 0), "StartPoint", Pair(INT_MAX, INT_MIN))}), 1,
      Path{{0, 0}, {INT_MAX, INT_MIN}});
  EXPECT_EQ(store.Coords().m_path, (Path{{268435456, -268435456}, {268435456, -268435456}}));
}

TEST(AnnPencilStore, EmptyPathWritesNoStart) {
  AnnPencilCoordinates const store(1, 0, Path{});
  ASSERT_EQ(store.ToJSON().Size(), 1);
  EXPECT_EQ(store.ToJSON().ItemAt(0).GetMemberNames(), Names({"Range"}));
}

TEST(AnnPencilStore, RunsAndPointsTogetherAreLimited) {
  // Paths of 2^22 points: four of them reach the limit of 2^24, the fifth run stays empty.
  Path const diffs(4194304);
  std::vector<wxJSONValue> runs;
  runs.reserve(5);
  for (int frame = 0; frame < 5; ++frame) runs.push_back(RunOf(frame, frame));
  AnnPencilCoordinates const store(ArrayOf(runs), 5, diffs);
  EXPECT_FALSE(store.AreCoordinatesEmpty(3));
  EXPECT_TRUE(store.AreCoordinatesEmpty(4));
}

TEST(AnnMagnifyStore, NewMagnifierHasNoCentreAndAnEmptyArray) {
  AnnMagnifyCoordinates store(5, 2);
  EXPECT_TRUE(store.AreCoordinatesEmpty(2));
  EXPECT_EQ(store.GetRecentlyUpdatedCoordsFrame(), -1);
  EXPECT_TRUE(store.ToJSON().IsArray());
  EXPECT_EQ(store.ToJSON().Size(), 0);
  store.AddNewCoordinates(2);
  store.CoordsEditable().m_centerPoint = wxPoint2DDouble(3.5, 4.5);
  store.SetCoordinatesNotUpdatedInJson();
  store.UpdateJSONValCoordinates(0, 4);
  ASSERT_EQ(store.ToJSON().Size(), 1);
  EXPECT_EQ(store.ToJSON().ItemAt(0).GetMemberNames(), Names({"CenterPoint", "Range"}));
  EXPECT_EQ(PointOf(store.ToJSON().ItemAt(0), "CenterPoint"), wxPoint2DDouble(3.5, 4.5));
}

TEST(AnnMagnifyStore, CurrentFrameIsThatOfTheNewMagnifier) {
  AnnMagnifyCoordinates store(5, 2);
  store.ResizeCoordsVec(5);
  store.AddNewCoordinates(2);
  EXPECT_EQ(&store.Coords(), store.CoordsVec()[2].get());
}

TEST(AnnMagnifyStore, ClearEmptiesAllFramesAndKeepsTheCurrentOne) {
  AnnMagnifyCoordinates store(ArrayOf({CenterRun(0, 4, 1.0)}), 5);
  store.UpdateCoordinatesPointers(3);
  store.AddNewCoordinates(3);
  store.UpdateJSONValCoordinates(0, 4);
  store.Clear();
  EXPECT_TRUE(store.AreCoordinatesEmpty(0));
  EXPECT_TRUE(store.AreCurrentCoordinatesEmpty());
  EXPECT_EQ(store.GetRecentlyUpdatedCoordsFrame(), -1);
  EXPECT_EQ(store.CoordsVec().size(), 5u);
  store.UpdateJSONValCoordinates(0, 4);
  EXPECT_EQ(store.ToJSON().Size(), 0);
}

TEST(AnnImageStore, FlagThatChangesIsWrittenInItsOwnRunAlone) {
  AnnShapeCoordinates shape = TenRecords();
  AnnImageCoordinates image(10, 0, shape);
  image.AddNewCoordinates(1);
  image.SetCoordinatesNotUpdatedInJson();
  image.UpdateJSONValCoordinates(0, 1);
  wxJSONValue const before = image.ToJSON();
  image.CoordsEditable().m_mirrored = true;
  image.SetCoordinatesNotUpdatedInJson();
  image.UpdateJSONValCoordinates(0, 1);
  ASSERT_EQ(image.ToJSON().Size(), 2);
  EXPECT_TRUE(framenote::AreShared(image.ToJSON().ItemAt(0), before.ItemAt(0)));
  EXPECT_FALSE(before.ItemAt(1).ItemAt("Mirrored").AsBool());
  EXPECT_TRUE(image.ToJSON().ItemAt(1).ItemAt("Mirrored").AsBool());
}

TEST(AnnImageStore, NewImageWritesCornersAndFlagForBothStores) {
  AnnShapeCoordinates shape(10, 4, wxRect(10, 20, 100, 50));
  AnnImageCoordinates const image(10, 4, shape);
  EXPECT_FALSE(image.Coords().m_mirrored);
  ASSERT_EQ(image.ToJSON().Size(), 1);
  EXPECT_EQ(image.ToJSON().ItemAt(0).GetMemberNames(),
            Names({"TopLeft", "TopRight", "BottomRight", "BottomLeft", "Mirrored", "Range"}));
  EXPECT_TRUE(image.ToJSON().ItemAt(0).ItemAt("Mirrored").IsSameAs(false));
  EXPECT_TRUE(shape.ToJSON().IsSameAs(image.ToJSON()));
}

TEST(AnnImageStore, ReadsItsFlagsFromTheRunsOfTheShape) {
  auto shape = LoadedShape({With(ShapeRun(0, 4, 1.0), "Mirrored", true), ShapeRun(5, 9, 2.0),
                            With(ShapeRun(10, 11, 2.0), "Mirrored", "yes")},
                           6);
  AnnImageCoordinates const image(wxJSONValue(wxJSONTYPE_INVALID), 6, shape);
  EXPECT_EQ(image.CoordsVec().size(), 12u);
  EXPECT_TRUE(image.CoordsAt(4).m_mirrored);
  EXPECT_FALSE(image.CoordsAt(5).m_mirrored);
  EXPECT_FALSE(image.CoordsAt(11).m_mirrored);
  EXPECT_EQ(&image.Coords(), image.CoordsVec()[11].get());
}

TEST(AnnImageStore, WritesOneElementPerRunOfItsOwn) {
  AnnShapeCoordinates shape(10, 0, wxRect(10, 20, 100, 50));
  AnnImageCoordinates image(10, 0, shape);
  shape.UpdateStartEndCoordinates(0, 0, 9, false);
  image.UpdateStartEndCoordinates(0, 0, 9, false);
  image.AddNewCoordinates(5);
  image.CoordsEditable().m_mirrored = true;
  image.SetCoordinatesNotUpdatedInJson();
  shape.UpdateJSONValCoordinates(0, 9);
  image.UpdateJSONValCoordinates(0, 9);
  EXPECT_EQ(RangesOf(shape.ToJSON()), (Ranges{{0, 4}, {5, 5}, {6, 9}}));
  EXPECT_FALSE(shape.ToJSON().ItemAt(0).ItemAt("Mirrored").AsBool());
  EXPECT_TRUE(shape.ToJSON().ItemAt(1).ItemAt("Mirrored").AsBool());
  EXPECT_EQ(PointOf(shape.ToJSON().ItemAt(2), "TopLeft"), wxPoint2DDouble(10.0, 20.0));
}

TEST(AnnImageStore, EditOfTheShapeAloneKeepsTheFlagInTheDocument) {
  AnnShapeCoordinates shape(10, 0, wxRect(10, 20, 100, 50));
  AnnImageCoordinates image(10, 0, shape);
  framenote::MoveRecord(shape.CoordsEditable(), {5, 0});
  shape.SetCoordinatesNotUpdatedInJson();
  shape.UpdateJSONValCoordinates(0, 0);
  image.UpdateJSONValCoordinates(0, 0);
  ASSERT_EQ(shape.ToJSON().Size(), 1);
  EXPECT_TRUE(shape.ToJSON().ItemAt(0).HasMember("Mirrored"));
  EXPECT_EQ(PointOf(shape.ToJSON().ItemAt(0), "TopLeft"), wxPoint2DDouble(15.0, 20.0));
}

TEST(AnnImageStore, IsNotBuiltAgainWhileBothStoresAreUpToDate) {
  AnnShapeCoordinates shape(10, 4, wxRect(10, 20, 100, 50));
  AnnImageCoordinates image(10, 4, shape);
  image.UpdateJSONValCoordinates(0, 3);
  EXPECT_EQ(RangesOf(image.ToJSON()), (Ranges{{4, 4}}));
}

TEST(AnnImageStore, RunWithoutCornersIsLeftOutAndFrameWithoutFlagIsNotMirrored) {
  AnnShapeCoordinates shape(10, 4, wxRect(10, 20, 100, 50));
  AnnImageCoordinates image(10, 7, shape);
  image.SetCoordinatesNotUpdatedInJson();
  image.UpdateJSONValCoordinates(4, 9);
  // The image's runs are 4 to 6 (no flag), 7, and 8 to 9; only the first begins with corners.
  EXPECT_EQ(RangesOf(image.ToJSON()), (Ranges{{4, 6}}));
  EXPECT_FALSE(image.ToJSON().ItemAt(0).ItemAt("Mirrored").AsBool());
}

TEST(AnnImageStore, CopyWritesIntoTheShapeStoreOfItsOwnObject) {
  AnnShapeCoordinates shape(10, 4, wxRect(10, 20, 100, 50));
  AnnImageCoordinates const image(10, 4, shape);
  AnnShapeCoordinates otherShape(shape);
  AnnImageCoordinates copy(image, otherShape);
  copy.CoordsEditable().m_mirrored = true;
  copy.SetCoordinatesNotUpdatedInJson();
  copy.UpdateJSONValCoordinates(4, 4);
  EXPECT_FALSE(image.Coords().m_mirrored);
  EXPECT_FALSE(shape.ToJSON().ItemAt(0).ItemAt("Mirrored").AsBool());
  EXPECT_TRUE(otherShape.ToJSON().ItemAt(0).ItemAt("Mirrored").AsBool());
}

TEST(MoveRecord, MovesAllThirteenPointsOfAShape) {
  AnnShapePoints points;
  framenote::MoveRecord(points, {3, -4});
  for (auto const &point :
       {points.m_topLeft, points.m_topRight, points.m_bottomRight, points.m_bottomLeft,
        points.m_topResizePoint, points.m_rightResizePoint, points.m_bottomResizePoint,
        points.m_leftResizePoint, points.m_rotationPoint, points.m_innerTopLeft,
        points.m_innerTopRight, points.m_innerBottomRight, points.m_innerBottomLeft}) {
    EXPECT_EQ(point, wxPoint2DDouble(3.0, -4.0));
  }
  EXPECT_TRUE(points.m_updatedInJson);
}

TEST(MoveRecord, MovesTheNinePointsOfAnArrow) {
  AnnArrowPoints points;
  points.m_head = wxPoint2DInt(1, 1);
  framenote::MoveRecord(points, {3, -4});
  EXPECT_EQ(points.m_head, wxPoint2DInt(4, -3));
  EXPECT_EQ(points.m_tail, wxPoint2DInt(3, -4));
  for (auto const &point :
       {points.m_bodyTailLeft, points.m_bodyHeadLeft, points.m_bodyHeadRight,
        points.m_bodyTailRight, points.m_headBase, points.m_headWingLeft, points.m_headWingRight}) {
    EXPECT_EQ(point, wxPoint2DDouble(3.0, -4.0));
  }
}

TEST(MoveRecord, MovesEveryPointOfAPathAndSaturates) {
  AnnPencilPoints points;
  points.m_path = Path{{1, 2}, {268435456, -268435456}};
  framenote::MoveRecord(points, {10, -10});
  EXPECT_EQ(points.m_path, (Path{{11, -8}, {268435456, -268435456}}));
}

TEST(MoveRecord, MovesTheCentreOfAMagnifierAndNothingOfAnImage) {
  AnnMagnifyPoints center;
  framenote::MoveRecord(center, {1, 2});
  EXPECT_EQ(center.m_centerPoint, wxPoint2DDouble(1.0, 2.0));
  AnnImagePoints image;
  image.m_mirrored = true;
  framenote::MoveRecord(image, {1, 2});
  EXPECT_TRUE(image.m_mirrored);
}
