// SPDX-License-Identifier: MIT
#include "coordinates/annotation_coordinates.h"

#include <climits>
#include <cstddef>
#include <limits>
#include <set>

#include <gtest/gtest.h>
#include <wx/gdicmn.h>

#include "coordinates/ann_magnify_coordinates.h"
#include "coordinates/ann_shape_coordinates.h"
#include "coordinates/coordinate_runs.h"
#include "coordinates_support.h"

using namespace coordinates_test;

namespace {

constexpr std::int64_t kMaxInt64 = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kMinInt64 = std::numeric_limits<std::int64_t>::min();

/// A shape of 20 frames with one record for frames 0 to 9.
AnnShapeCoordinates TenFrames() {
  AnnShapeCoordinates store(20, 0, wxRect(10, 20, 100, 50));
  store.UpdateStartEndCoordinates(0, 0, 9, false);
  return store;
}

/// The same with a record of its own in frame 5, ten pixels to the right.
AnnShapeCoordinates EditedInFrameFive() {
  AnnShapeCoordinates store = TenFrames();
  store.AddNewCoordinates(5);
  framenote::MoveRecord(store.CoordsEditable(), {10, 0});
  store.SetCoordinatesNotUpdatedInJson();
  return store;
}

AnnMagnifyCoordinates Loaded(std::vector<wxJSONValue> const &runs, std::int64_t frameCount) {
  return AnnMagnifyCoordinates(ArrayOf(runs), frameCount);
}

template <class Store>
std::size_t DistinctRecords(Store const &store) {
  std::set<void const *> records;
  for (auto const &entry : store.CoordsVec()) {
    if (entry) records.insert(entry.get());
  }
  return records.size();
}

template <class Store>
void const *RecordOf(Store const &store, std::size_t frame) {
  return store.CoordsVec()[frame].get();
}

}  // namespace

TEST(CoordinateStore, StartsWithOneRecordInItsFrame) {
  AnnShapeCoordinates const store(5, 2, wxRect(0, 0, 10, 10));
  EXPECT_EQ(store.CoordsVec().size(), 5u);
  EXPECT_TRUE(store.AreCoordinatesEmpty(1));
  EXPECT_FALSE(store.AreCoordinatesEmpty(2));
  EXPECT_TRUE(store.AreCoordinatesEmpty(3));
  EXPECT_FALSE(store.AreCurrentCoordinatesEmpty());
  EXPECT_EQ(store.GetRecentlyUpdatedCoordsFrame(), 2);
}

TEST(CoordinateStore, KeyOfARangeIsRange) {
  EXPECT_STREQ(AnnShapeCoordinates::coordinatesRangeKey, "Range");
}

TEST(CoordinateStore, HoldsItsFrameEvenWithoutAFrameCount) {
  AnnShapeCoordinates const still(0, 0, wxRect(0, 0, 10, 10));
  EXPECT_EQ(still.CoordsVec().size(), 1u);
  AnnShapeCoordinates const negative(-7, 3, wxRect(0, 0, 10, 10));
  EXPECT_EQ(negative.CoordsVec().size(), 4u);
}

TEST(CoordinateStoreEdit, SplitsARunInThreeAndKeepsTheOuterRecord) {
  AnnShapeCoordinates const store = EditedInFrameFive();
  EXPECT_EQ(store.getRanges(0, 9), (Ranges{{0, 4}, {5, 5}, {6, 9}}));
  EXPECT_EQ(RecordOf(store, 4), RecordOf(store, 6));
  EXPECT_NE(RecordOf(store, 4), RecordOf(store, 5));
  EXPECT_EQ(store.CoordsAt(5).m_topLeft, wxPoint2DDouble(20.0, 20.0));
  EXPECT_EQ(store.CoordsAt(4).m_topLeft, wxPoint2DDouble(10.0, 20.0));
}

TEST(CoordinateStoreEdit, SecondEditInAFrameKeepsTheRecord) {
  AnnShapeCoordinates store = EditedInFrameFive();
  void const *const before = RecordOf(store, 5);
  store.AddNewCoordinates(5);
  EXPECT_EQ(RecordOf(store, 5), before);
}

TEST(CoordinateStoreEdit, EmptyFrameGetsADefaultRecord) {
  AnnShapeCoordinates store = TenFrames();
  store.AddNewCoordinates(15);
  EXPECT_EQ(store.Coords().m_bottomRight, wxPoint2DDouble(0.0, 0.0));
  EXPECT_TRUE(store.Coords().m_updatedInJson);
  EXPECT_EQ(store.GetRecentlyUpdatedCoordsFrame(), 15);
}

TEST(CoordinateStoreEdit, DoesNotTouchTheJson) {
  AnnShapeCoordinates store = TenFrames();
  store.UpdateJSONValCoordinates(0, 9);
  store.AddNewCoordinates(5);
  store.UpdateJSONValCoordinates(0, 9);
  EXPECT_EQ(RangesOf(store.ToJSON()), (Ranges{{0, 9}}));
  store.SetCoordinatesNotUpdatedInJson();
  store.UpdateJSONValCoordinates(0, 9);
  EXPECT_EQ(RangesOf(store.ToJSON()), (Ranges{{0, 4}, {5, 5}, {6, 9}}));
}

TEST(CoordinateStoreEdit, FrameBeyondTheEndGrowsTheStore) {
  AnnShapeCoordinates store = TenFrames();
  store.AddNewCoordinates(30);
  EXPECT_EQ(store.CoordsVec().size(), 31u);
  EXPECT_FALSE(store.AreCoordinatesEmpty(30));
  EXPECT_TRUE(store.AreCoordinatesEmpty(29));
}

TEST(CoordinateStoreEdit, NegativeFrameDoesNothing) {
  AnnShapeCoordinates store = TenFrames();
  store.AddNewCoordinates(-1);
  EXPECT_EQ(store.CoordsVec().size(), 20u);
  EXPECT_EQ(store.GetRecentlyUpdatedCoordsFrame(), 0);
  EXPECT_EQ(DistinctRecords(store), 1u);
}

TEST(CoordinateStoreEdit, FrameEmptiedSinceItsEditGetsARecordAgain) {
  AnnShapeCoordinates store = EditedInFrameFive();
  store.UpdateStartEndCoordinates(0, 9, 3, false);
  ASSERT_TRUE(store.AreCoordinatesEmpty(5));
  store.AddNewCoordinates(5);
  EXPECT_FALSE(store.AreCoordinatesEmpty(5));
}

TEST(CoordinateStoreReading, EmptyFramesReadAsADefaultRecord) {
  AnnShapeCoordinates store = TenFrames();
  for (std::int64_t const frame :
       {std::int64_t{-1}, std::int64_t{12}, std::int64_t{20}, kMaxInt64, kMinInt64}) {
    EXPECT_TRUE(store.AreCoordinatesEmpty(frame)) << frame;
    EXPECT_EQ(store.CoordsAt(frame).m_topRight, wxPoint2DDouble(0.0, 0.0)) << frame;
    store.UpdateCoordinatesPointers(frame);
    EXPECT_TRUE(store.AreCurrentCoordinatesEmpty()) << frame;
    EXPECT_EQ(store.Coords().m_topRight, wxPoint2DDouble(0.0, 0.0)) << frame;
  }
}

TEST(CoordinateStoreReading, WritingToAnEmptyFrameChangesNothing) {
  AnnShapeCoordinates store = TenFrames();
  store.UpdateCoordinatesPointers(12);
  store.CoordsEditable().m_topLeft = wxPoint2DDouble(7.0, 7.0);
  store.SetCoordinatesNotUpdatedInJson();
  EXPECT_EQ(store.CoordsEditable().m_topLeft, wxPoint2DDouble(0.0, 0.0));
  EXPECT_EQ(store.Coords().m_topLeft, wxPoint2DDouble(0.0, 0.0));
  EXPECT_TRUE(store.AreCoordinatesEmpty(12));
}

TEST(CoordinateStoreReading, CurrentRecordSurvivesGrowth) {
  AnnShapeCoordinates store = TenFrames();
  store.UpdateCoordinatesPointers(9);
  store.ResizeCoordsVec(100000);
  EXPECT_EQ(store.Coords().m_topLeft, wxPoint2DDouble(10.0, 20.0));
}

TEST(CoordinateStoreReading, GrowingNeverShortens) {
  AnnShapeCoordinates store = TenFrames();
  store.GrowCoordsVec(4);
  EXPECT_EQ(store.CoordsVec().size(), 20U);
  EXPECT_FALSE(store.AreCoordinatesEmpty(9));
  store.GrowCoordsVec(22);
  EXPECT_EQ(store.CoordsVec().size(), 22U);
}

TEST(CoordinateStoreDuplicate, SharesTheRecordOfTheFrameBefore) {
  AnnShapeCoordinates store = TenFrames();
  store.DuplicateLastCoordinates(10);
  EXPECT_EQ(RecordOf(store, 10), RecordOf(store, 9));
  store.UpdateJSONValCoordinates(0, 10);
  EXPECT_EQ(RangesOf(store.ToJSON()), (Ranges{{0, 10}}));
}

TEST(CoordinateStoreDuplicate, LeavesTheFrameEditedLast) {
  AnnShapeCoordinates store = EditedInFrameFive();
  void const *const before = RecordOf(store, 5);
  store.DuplicateLastCoordinates(5);
  EXPECT_EQ(RecordOf(store, 5), before);
}

TEST(CoordinateStoreDuplicate, GrowsByOneEntryAtMost) {
  AnnShapeCoordinates store(3, 2, wxRect(0, 0, 10, 10));
  store.DuplicateLastCoordinates(3);
  EXPECT_EQ(store.CoordsVec().size(), 4u);
  EXPECT_EQ(RecordOf(store, 3), RecordOf(store, 2));
  store.DuplicateLastCoordinates(5);
  EXPECT_EQ(store.CoordsVec().size(), 4u);
}

TEST(CoordinateStoreDuplicate, HasNothingBeforeTheFirstFrame) {
  AnnShapeCoordinates store(3, 2, wxRect(0, 0, 10, 10));
  store.DuplicateLastCoordinates(0);
  store.DuplicateLastCoordinates(-4);
  EXPECT_EQ(store.getRanges(0, 2), (Ranges{{0, 1}, {2, 2}}));
}

TEST(CoordinateStoreRange, LaterEndSharesTheLastRecord) {
  AnnShapeCoordinates store = TenFrames();
  store.UpdateStartEndCoordinates(0, 9, 12, false);
  EXPECT_EQ(RecordOf(store, 10), RecordOf(store, 9));
  EXPECT_EQ(RecordOf(store, 12), RecordOf(store, 9));
  EXPECT_TRUE(store.AreCoordinatesEmpty(13));
  store.UpdateJSONValCoordinates(0, 12);
  EXPECT_EQ(RangesOf(store.ToJSON()), (Ranges{{0, 12}}));
}

TEST(CoordinateStoreRange, EarlierEndEmptiesTheFramesBehindIt) {
  AnnShapeCoordinates store = TenFrames();
  store.UpdateStartEndCoordinates(0, 9, 12, false);
  store.UpdateStartEndCoordinates(0, 12, 3, false);
  EXPECT_EQ(store.getRanges(0, 19), (Ranges{{0, 3}, {4, 19}}));
  EXPECT_TRUE(store.AreCoordinatesEmpty(4));
  EXPECT_TRUE(store.AreCoordinatesEmpty(12));
  store.UpdateJSONValCoordinates(0, 3);
  EXPECT_EQ(RangesOf(store.ToJSON()), (Ranges{{0, 3}}));
}

TEST(CoordinateStoreRange, LaterStartEmptiesTheFramesBeforeIt) {
  auto store = Loaded({CenterRun(4, 9, 1.0)}, 20);
  store.UpdateStartEndCoordinates(4, 9, 6, true);
  EXPECT_TRUE(store.AreCoordinatesEmpty(4));
  EXPECT_TRUE(store.AreCoordinatesEmpty(5));
  EXPECT_FALSE(store.AreCoordinatesEmpty(6));
}

TEST(CoordinateStoreRange, EarlierStartSharesTheFirstRecord) {
  auto store = Loaded({CenterRun(4, 5, 1.0), CenterRun(6, 9, 2.0)}, 20);
  store.UpdateStartEndCoordinates(4, 9, 1, true);
  EXPECT_EQ(store.getRanges(0, 9), (Ranges{{0, 0}, {1, 5}, {6, 9}}));
  EXPECT_EQ(store.CoordsAt(1).m_centerPoint.m_x, 1.0);
}

TEST(CoordinateStoreRange, StartBeyondTheEndTakesTheLastRecordAlong) {
  auto store = Loaded({CenterRun(4, 5, 1.0), CenterRun(6, 9, 2.0)}, 20);
  store.UpdateStartEndCoordinates(4, 9, 15, true);
  store.UpdateStartEndCoordinates(15, 9, 15, false);
  EXPECT_EQ(store.getRanges(0, 19), (Ranges{{0, 14}, {15, 15}, {16, 19}}));
  EXPECT_TRUE(store.AreCoordinatesEmpty(9));
  EXPECT_EQ(store.CoordsAt(15).m_centerPoint.m_x, 2.0);
}

TEST(CoordinateStoreRange, EndBeforeTheStartTakesTheFirstRecordAlong) {
  auto store = Loaded({CenterRun(4, 5, 1.0), CenterRun(6, 9, 2.0)}, 20);
  store.UpdateStartEndCoordinates(4, 9, 2, false);
  store.UpdateStartEndCoordinates(4, 2, 2, true);
  EXPECT_EQ(store.getRanges(0, 19), (Ranges{{0, 1}, {2, 2}, {3, 19}}));
  EXPECT_EQ(store.CoordsAt(2).m_centerPoint.m_x, 1.0);
}

TEST(CoordinateStoreRange, DoesNotMoveTheCurrentFrame) {
  AnnShapeCoordinates store = TenFrames();
  store.UpdateCoordinatesPointers(8);
  store.UpdateStartEndCoordinates(0, 9, 3, false);
  EXPECT_TRUE(store.AreCurrentCoordinatesEmpty());
}

TEST(CoordinateStoreRange, StopsAtTheEndsOfTheStore) {
  AnnShapeCoordinates store = TenFrames();
  store.UpdateStartEndCoordinates(0, 9, 1000, false);
  EXPECT_EQ(store.CoordsVec().size(), 20u);
  EXPECT_EQ(store.getRanges(0, 19), (Ranges{{0, 19}}));
  store.UpdateStartEndCoordinates(0, kMaxInt64, 17, false);
  EXPECT_EQ(store.getRanges(0, 19), (Ranges{{0, 17}, {18, 19}}));
  store.UpdateStartEndCoordinates(kMinInt64, 17, 2, true);
  EXPECT_EQ(store.getRanges(0, 19), (Ranges{{0, 1}, {2, 17}, {18, 19}}));
}

TEST(CoordinateStoreRange, StretchOfAMissingRecordChangesNothing) {
  AnnShapeCoordinates store = TenFrames();
  store.UpdateStartEndCoordinates(0, -1, 15, false);
  store.UpdateStartEndCoordinates(kMaxInt64, kMaxInt64, 0, true);
  store.UpdateStartEndCoordinates(kMinInt64, 9, kMinInt64, true);
  EXPECT_EQ(store.getRanges(0, 19), (Ranges{{0, 9}, {10, 19}}));
}

TEST(CoordinateStoreMove, MovesEachRecordOnceThoughManyFramesShareIt) {
  AnnShapeCoordinates store = EditedInFrameFive();
  store.MoveAllCoordsFor({100, 1000});
  EXPECT_EQ(store.CoordsAt(0).m_topLeft, wxPoint2DDouble(110.0, 1020.0));
  EXPECT_EQ(store.CoordsAt(4).m_topLeft, wxPoint2DDouble(110.0, 1020.0));
  EXPECT_EQ(store.CoordsAt(5).m_topLeft, wxPoint2DDouble(120.0, 1020.0));
  // The outer runs are one record on both sides of the edited frame.
  EXPECT_EQ(store.CoordsAt(9).m_topLeft, wxPoint2DDouble(110.0, 1020.0));
}

TEST(CoordinateStoreMove, MovesTheLastEntryOfTheStore) {
  auto store = Loaded({CenterRun(0, 8, 1.0), CenterRun(9, 9, 2.0)}, 10);
  store.MoveAllCoordsFor({5, 6});
  EXPECT_EQ(store.CoordsAt(8).m_centerPoint, wxPoint2DDouble(6.0, 6.0));
  EXPECT_EQ(store.CoordsAt(9).m_centerPoint, wxPoint2DDouble(7.0, 6.0));
}

TEST(CoordinateStoreMove, RewritesOnlyTheMarkedRecord) {
  auto store = Loaded({CenterRun(0, 4, 1.0), CenterRun(5, 9, 2.0)}, 10);
  store.UpdateCoordinatesPointers(0);
  store.MoveAllCoordsFor({10, 0});
  store.SetCoordinatesNotUpdatedInJson();
  store.UpdateJSONValCoordinates(0, 9);
  EXPECT_EQ(store.ToJSON().ItemAt(0).ItemAt("CenterPoint").ItemAt(0).AsDouble(), 11.0);
  EXPECT_EQ(store.ToJSON().ItemAt(1).ItemAt("CenterPoint").ItemAt(0).AsDouble(), 2.0);
}

TEST(CoordinateStoreMove, EmptyStoreHasNothingToMove) {
  auto store = Loaded({}, 0);
  store.MoveAllCoordsFor({1, 1});
  EXPECT_EQ(DistinctRecords(store), 0u);
}

TEST(CoordinateStoreRanges, EmptyFramesFormRunsToo) {
  auto const store = Loaded({CenterRun(3, 5, 1.0)}, 10);
  EXPECT_EQ(store.getRanges(0, 9), (Ranges{{0, 2}, {3, 5}, {6, 9}}));
  EXPECT_EQ(store.getRanges(6, 9), (Ranges{{6, 9}}));
}

TEST(CoordinateStoreRanges, ReversedBoundsGiveTheFirstFrame) {
  EXPECT_EQ(TenFrames().getRanges(5, 3), (Ranges{{5, 5}}));
}

TEST(CoordinateStoreRanges, LeaveOutWhatIsOutsideTheStore) {
  AnnShapeCoordinates const store = TenFrames();
  EXPECT_EQ(store.getRanges(-5, kMaxInt64), (Ranges{{0, 9}, {10, 19}}));
  EXPECT_EQ(store.getRanges(30, 40), (Ranges{{30, 30}}));
  EXPECT_EQ(store.getRanges(kMinInt64, -1), (Ranges{{kMinInt64, kMinInt64}}));
}

TEST(CoordinateStoreRanges, EqualRecordsOfTheirOwnAreRunsOfTheirOwn) {
  auto const store = Loaded({CenterRun(0, 2, 1.0), CenterRun(3, 4, 1.0)}, 5);
  EXPECT_EQ(store.getRanges(0, 4), (Ranges{{0, 2}, {3, 4}}));
}

TEST(CoordinateStoreRanges, FindsEdgesNearTheBlocksOfALongVideo) {
  auto const store =
      Loaded({CenterRun(0, 4094, 1.0), CenterRun(4095, 4095, 2.0), CenterRun(4096, 4096, 3.0),
              CenterRun(4097, 12288, 4.0), CenterRun(12289, 19999, 5.0)},
             20000);
  EXPECT_EQ(store.getRanges(0, 19999),
            (Ranges{{0, 4094}, {4095, 4095}, {4096, 4096}, {4097, 12288}, {12289, 19999}}));
  EXPECT_EQ(store.getRanges(100, 4195),
            (Ranges{{100, 4094}, {4095, 4095}, {4096, 4096}, {4097, 4195}}));
}

TEST(CoordinateStoreRuns, VisitOnlyFramesWithARecord) {
  auto const store = Loaded({CenterRun(3, 5, 1.0), CenterRun(7, 8, 2.0)}, 10);
  std::vector<std::pair<Ranges::value_type, double>> visited;
  store.ForEachRun(-3, 7, [&](std::int64_t first, std::int64_t last, AnnMagnifyPoints const &r) {
    visited.push_back({{first, last}, r.m_centerPoint.m_x});
  });
  EXPECT_EQ(visited, (decltype(visited){{{3, 5}, 1.0}, {{7, 7}, 2.0}}));
}

TEST(CoordinateStoreJson, EmptyFramesAreLeftOut) {
  auto store = Loaded({CenterRun(3, 5, 1.0)}, 10);
  store.UpdateJSONValCoordinates(0, 9);
  EXPECT_EQ(RangesOf(store.ToJSON()), (Ranges{{3, 5}}));
  store.SetCoordinatesNotUpdatedInJson();
  store.UpdateJSONValCoordinates(6, 9);
  EXPECT_TRUE(store.ToJSON().IsArray());
  EXPECT_EQ(store.ToJSON().Size(), 0);
}

TEST(CoordinateStoreJson, IsNotBuiltAgainWhileUpToDate) {
  AnnShapeCoordinates store = TenFrames();
  store.UpdateJSONValCoordinates(0, 9);
  store.UpdateJSONValCoordinates(0, 4);
  EXPECT_EQ(RangesOf(store.ToJSON()), (Ranges{{0, 9}}));
}

TEST(CoordinateStoreJson, WritesOnlyTheGivenFrames) {
  AnnShapeCoordinates store = TenFrames();
  store.UpdateJSONValCoordinates(2, kMaxInt64);
  EXPECT_EQ(RangesOf(store.ToJSON()), (Ranges{{2, 9}}));
}

TEST(CoordinateStoreCopy, HasAsManyRecordsAsTheSourceAndSharesNone) {
  AnnShapeCoordinates const source = EditedInFrameFive();
  AnnShapeCoordinates const copy = source;
  EXPECT_EQ(DistinctRecords(source), 2u);
  EXPECT_EQ(DistinctRecords(copy), 2u);
  EXPECT_EQ(copy.getRanges(0, 19), (Ranges{{0, 4}, {5, 5}, {6, 9}, {10, 19}}));
  for (std::size_t frame = 0; frame < 10; ++frame) {
    EXPECT_NE(RecordOf(copy, frame), RecordOf(source, frame)) << frame;
  }
  EXPECT_EQ(copy.CoordsAt(5).m_topLeft, wxPoint2DDouble(20.0, 20.0));
}

TEST(CoordinateStoreCopy, KeepsTheRunThatEndsWithTheStore) {
  auto const source = Loaded({CenterRun(0, 3, 1.0), CenterRun(4, 9, 2.0)}, 10);
  AnnMagnifyCoordinates const copy = source;
  EXPECT_EQ(copy.getRanges(0, 9), (Ranges{{0, 3}, {4, 9}}));
  EXPECT_EQ(copy.CoordsAt(9).m_centerPoint.m_x, 2.0);
}

TEST(CoordinateStoreCopy, StandsOnTheSameFrameInTheSameState) {
  AnnShapeCoordinates source = EditedInFrameFive();
  source.UpdateJSONValCoordinates(0, 9);
  source.UpdateCoordinatesPointers(7);
  AnnShapeCoordinates copy = source;
  EXPECT_EQ(copy.GetRecentlyUpdatedCoordsFrame(), 5);
  EXPECT_TRUE(copy.ToJSON().IsSameAs(source.ToJSON()));
  EXPECT_EQ(&copy.Coords(), RecordOf(copy, 7));
  // Up to date as the source was: other frames are not written.
  copy.UpdateJSONValCoordinates(0, 0);
  EXPECT_EQ(copy.ToJSON().Size(), 3);
}

TEST(CoordinateStoreCopy, EditsOfTheCopyLeaveTheSource) {
  AnnShapeCoordinates const source = TenFrames();
  AnnShapeCoordinates copy = source;
  copy.MoveAllCoordsFor({10, 10});
  EXPECT_EQ(source.CoordsAt(3).m_topLeft, wxPoint2DDouble(10.0, 20.0));
  EXPECT_EQ(copy.CoordsAt(3).m_topLeft, wxPoint2DDouble(20.0, 30.0));
}

TEST(CoordinateStoreMoveConstruction, TakesEverythingAndLeavesAnEmptyStore) {
  AnnShapeCoordinates source = EditedInFrameFive();
  AnnShapeCoordinates const target = std::move(source);
  EXPECT_EQ(target.CoordsVec().size(), 20u);
  EXPECT_EQ(target.GetRecentlyUpdatedCoordsFrame(), 5);
  EXPECT_EQ(target.Coords().m_topLeft, wxPoint2DDouble(20.0, 20.0));
  EXPECT_TRUE(source.CoordsVec().empty());
  EXPECT_TRUE(source.AreCurrentCoordinatesEmpty());
  EXPECT_EQ(source.GetRecentlyUpdatedCoordsFrame(), -1);
}

TEST(CoordinateStoreLoad, StandsOnTheEndOfTheLastRun) {
  auto const store = Loaded({CenterRun(0, 2, 1.0), CenterRun(5, 7, 2.0)}, 10);
  EXPECT_EQ(store.CoordsVec().size(), 10u);
  EXPECT_EQ(&store.Coords(), RecordOf(store, 7));
  EXPECT_EQ(RecordOf(store, 5), RecordOf(store, 7));
  EXPECT_EQ(store.GetRecentlyUpdatedCoordsFrame(), -1);
}

TEST(CoordinateStoreLoad, GrowsForADocumentLongerThanTheMedia) {
  auto const store = Loaded({CenterRun(2, 14, 3.0)}, 10);
  EXPECT_EQ(store.CoordsVec().size(), 15u);
  EXPECT_EQ(store.Coords().m_centerPoint.m_x, 3.0);
  EXPECT_EQ(&store.Coords(), RecordOf(store, 14));
}

TEST(CoordinateStoreLoad, EmptyArrayLeavesAllFramesEmpty) {
  auto const store = Loaded({}, 4);
  EXPECT_EQ(store.CoordsVec().size(), 4u);
  EXPECT_EQ(DistinctRecords(store), 0u);
  EXPECT_TRUE(store.AreCurrentCoordinatesEmpty());
}

TEST(CoordinateStoreLoad, JsonStaysStaleSoTheFirstUpdateWritesTheRuns) {
  auto store = Loaded({CenterRun(0, 9, 1.0)}, 10);
  store.UpdateJSONValCoordinates(2, 4);
  EXPECT_EQ(RangesOf(store.ToJSON()), (Ranges{{2, 4}}));
}

TEST(CoordinateStoreLoad, LaterRunsOverwriteEarlierOnes) {
  auto const store = Loaded({CenterRun(0, 9, 1.0), CenterRun(3, 5, 2.0)}, 10);
  EXPECT_EQ(store.getRanges(0, 9), (Ranges{{0, 2}, {3, 5}, {6, 9}}));
  EXPECT_EQ(RecordOf(store, 2), RecordOf(store, 6));
}

TEST(CoordinateStoreLoad, RunsOutOfOrderAreReadAtTheirFrames) {
  auto const store = Loaded({CenterRun(6, 7, 2.0), CenterRun(1, 2, 1.0)}, 10);
  EXPECT_EQ(store.CoordsAt(7).m_centerPoint.m_x, 2.0);
  EXPECT_EQ(store.CoordsAt(1).m_centerPoint.m_x, 1.0);
  EXPECT_EQ(&store.Coords(), RecordOf(store, 2));
}

TEST(CoordinateStoreLoad, BadRunsAreLeftOutAndCostNotTheGoodOnes) {
  wxJSONValue three = RunOf(0, 1);
  three.Set("Range", ArrayOf({0, 1, 2}));
  auto const store =
      Loaded({RunOf(-3, 2), RunOf(5, 4), RunOf(kMinInt64, kMaxInt64), RunOf(0, kMaxInt64),
              RunOf(kMaxInt64, kMaxInt64), RunOf(1.0, 2.0), RunOf("1", "2"),
              RunOf(wxJSONValue(), 2), wxJSONValue(7), wxJSONValue("text"), wxJSONValue(),
              wxJSONValue(wxJSONTYPE_OBJECT), three, ArrayOf({0, 1}), CenterRun(8, 9, 4.0)},
             10);
  EXPECT_EQ(store.CoordsVec().size(), 10u);
  EXPECT_EQ(store.getRanges(0, 9), (Ranges{{0, 7}, {8, 9}}));
  EXPECT_TRUE(store.AreCoordinatesEmpty(0));
  EXPECT_EQ(store.Coords().m_centerPoint.m_x, 4.0);
}

TEST(CoordinateStoreLoad, SomethingElseThanAnArrayReadsAsNoRuns) {
  for (auto const &json : {wxJSONValue(), wxJSONValue(wxJSONTYPE_INVALID), wxJSONValue(5),
                           wxJSONValue("[]"), CenterRun(0, 1, 1.0)}) {
    AnnMagnifyCoordinates const store(json, 3);
    EXPECT_EQ(store.CoordsVec().size(), 3u);
    EXPECT_EQ(DistinctRecords(store), 0u);
  }
}

TEST(CoordinateStoreLoad, NegativeFrameCountActsAsZero) {
  auto const store = Loaded({CenterRun(0, 1, 1.0)}, -5);
  EXPECT_EQ(store.CoordsVec().size(), 2u);
}

TEST(ReadRuns, EndBeforeFourMillionFramesBeyondTheMedia) {
  auto const runs =
      framenote::ReadRuns(ArrayOf({RunOf(4194313, 4194314), RunOf(4194313, 4194313)}), 10);
  ASSERT_EQ(runs.size(), 1u);
  EXPECT_EQ(runs[0].element, 1);
  EXPECT_EQ(runs[0].first, 4194313);
  EXPECT_EQ(runs[0].last, 4194313);
}

TEST(ReadRuns, LimitTheLengthOfAllRunsTogether) {
  // 10 + 2^22 = 4194314 entries: two runs of 2000000 leave room for 194314.
  auto const runs = framenote::ReadRuns(ArrayOf({RunOf(0, 1999999), RunOf(0, 1999999),
                                                 RunOf(0, 194314), RunOf(0, 194313), RunOf(0, 0)}),
                                        10);
  ASSERT_EQ(runs.size(), 3u);
  EXPECT_EQ(runs[2].element, 3);
}

TEST(ReadRuns, DoNotOverflowWithAHugeFrameCount) {
  auto const runs = framenote::ReadRuns(ArrayOf({RunOf(0, kMaxInt64), RunOf(3, 4)}), kMaxInt64);
  ASSERT_EQ(runs.size(), 1u);
  EXPECT_EQ(runs[0].first, 3);
}

TEST(CountExtraFrames, TellsTheFarthestEntryBeyondTheMedia) {
  auto const runs = ArrayOf({RunOf(0, 9), RunOf(12, 14), RunOf(10, 11)});
  EXPECT_EQ(framenote::CountExtraFrames(runs, 10), 5);
  EXPECT_EQ(framenote::CountExtraFrames(runs, 15), 0);
  EXPECT_EQ(framenote::CountExtraFrames(runs, 0), 15);
  EXPECT_EQ(framenote::CountExtraFrames(runs, -7), 15);
}

TEST(CountExtraFrames, CountsRunsThatAStoreWouldNotRead) {
  EXPECT_EQ(framenote::CountExtraFrames(ArrayOf({RunOf(0, 1000000000)}), 1), 1000000000);
}

TEST(CountExtraFrames, Saturates) {
  EXPECT_EQ(framenote::CountExtraFrames(ArrayOf({RunOf(0, kMaxInt64)}), 0), kMaxInt64);
  EXPECT_EQ(framenote::CountExtraFrames(ArrayOf({RunOf(0, kMaxInt64)}), kMaxInt64), 1);
}

TEST(CountExtraFrames, IgnoresBadRuns) {
  EXPECT_EQ(
      framenote::CountExtraFrames(ArrayOf({RunOf(50, 20), RunOf(-1, 99), wxJSONValue(3)}), 10), 0);
  EXPECT_EQ(framenote::CountExtraFrames(wxJSONValue(3), 10), 0);
}

TEST(CountRuns, CountsTheWellFormedOnes) {
  EXPECT_EQ(framenote::CountRuns(ArrayOf({RunOf(0, 1), RunOf(1, 0), RunOf(2, 3)})), 2);
}
