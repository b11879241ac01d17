// SPDX-License-Identifier: MIT
#include "project/region_gaps.h"

#include <memory>
#include <ostream>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "framenote/annotation_tool.h"
#include "talbase/json_text.h"

bool operator==(RegionGap const &a, RegionGap const &b) {
  return std::tie(a.kind, a.object, a.nextObject, a.first, a.last) ==
         std::tie(b.kind, b.object, b.nextObject, b.first, b.last);
}

std::ostream &operator<<(std::ostream &out, RegionGap const &gap) {
  return out << RegionGapText(gap).utf8_string();
}

namespace framenote::test {
namespace {

using Gaps = std::vector<RegionGap>;
using Coverage = std::vector<std::pair<std::int64_t, std::int64_t>>;
constexpr RegionGapKind kHole = RegionGapKind::Hole;

ExportRange const kAll = {{200, 100}, 0, 99};

/// A place in the frames first to last; the corners are those of the pixels that it covers.
struct Place {
  int first, last;
  int left, top, width, height;
};

std::string RunOf(Place const &place) {
  auto const point = [](int x, int y) {
    return "[" + std::to_string(x) + "," + std::to_string(y) + "]";
  };
  int const right = place.left + place.width - 1;
  int const bottom = place.top + place.height - 1;
  return R"({"TopLeft":)" + point(place.left, place.top) + R"(,"TopRight":)" +
         point(right, place.top) + R"(,"BottomRight":)" + point(right, bottom) +
         R"(,"BottomLeft":)" + point(place.left, bottom) + R"(,"Range":[)" +
         std::to_string(place.first) + "," + std::to_string(place.last) + "]}";
}

std::string Object(int kind, int start, int end, std::vector<Place> const &places,
                   std::string const &look) {
  std::string runs;
  for (Place const &place : places) runs += (runs.empty() ? "" : ",") + RunOf(place);
  std::string const rectangle = R"({"Id":2,"StartFrame":)" + std::to_string(start) +
                                R"(,"EndFrame":)" + std::to_string(end) + R"(,"Coordinates":[)" +
                                runs + R"(],"Properties":{"Shape":0,)" +
                                R"("FillColor":"#000000FF","FillColorTransparent":false}})";
  if (kind == 2) return rectangle;
  return R"({"Id":)" + std::to_string(kind) + R"(,"StartFrame":)" + std::to_string(start) +
         R"(,"EndFrame":)" + std::to_string(end) + R"(,"Rectangle":)" + rectangle +
         R"(,"Properties":)" + look + "}";
}

std::string Hide(int start, int end, std::vector<Place> const &places, int effect = 1) {
  return Object(7, start, end, places,
                R"({"Effect":)" + std::to_string(effect) + R"(,"Strength":40,"Shape":0})");
}

std::shared_ptr<AnnotationTool> ToolWith(std::vector<std::string> const &objects) {
  std::string list;
  for (std::string const &object : objects) list += (list.empty() ? "" : ",") + object;
  AnnotationToolConfig const config(false, false, true, true, false, {});
  auto tool = std::make_shared<AnnotationTool>(config);
  tool->FromJSON(JsonFromUtf8(R"({"Annotate":{"Objects":[)" + list + "]}}"), 100);
  EXPECT_EQ(tool->AnnotationObjects().size(), objects.size());
  return tool;
}

Gaps GapsOf(std::vector<std::string> const &objects, ExportRange const &range = kAll) {
  return FindRegionGaps(*ToolWith(objects), range);
}

std::vector<Coverage> CoverageOf(std::vector<std::string> const &objects,
                                 ExportRange const &range = kAll) {
  std::vector<Coverage> coverages;
  for (auto const &each : FramesCovered(*ToolWith(objects), range)) {
    coverages.push_back(each.frames);
  }
  return coverages;
}

TEST(RegionGaps, AreNoneForARegionThatStandsStillInside) {
  EXPECT_EQ(GapsOf({Hide(0, 99, {{0, 99, 10, 20, 30, 40}})}), Gaps{});
  EXPECT_EQ(GapsOf({Hide(0, 99, {{0, 99, 0, 0, 200, 100}})}), Gaps{});
}

TEST(RegionGaps, AreOnlyThoseOfHideRegions) {
  EXPECT_EQ(GapsOf({Object(2, 0, 99, {{0, 50, -10, 20, 30, 40}}, "")}), Gaps{});
}

TEST(RegionGaps, AreFramesOfItsRangeWithoutAPlace) {
  EXPECT_EQ(GapsOf({Hide(5, 50, {{10, 19, 10, 20, 30, 40}, {22, 40, 10, 20, 30, 40}})}),
            (Gaps{{RegionGapKind::NoRecord, 0, 0, 5, 9},
                  {RegionGapKind::NoRecord, 0, 0, 20, 21},
                  {RegionGapKind::NoRecord, 0, 0, 41, 50}}));
}

TEST(RegionGaps, AreJumpsFartherThanTheRegionsOwnSize) {
  // 30 pixels wide: moved by 30 the places touch, moved by 31 one column lies bare between them.
  EXPECT_EQ(GapsOf({Hide(0, 20, {{0, 9, 10, 20, 30, 40}, {10, 20, 40, 20, 30, 40}})}), Gaps{});
  EXPECT_EQ(GapsOf({Hide(0, 20, {{0, 9, 10, 20, 30, 40}, {10, 20, 41, 20, 30, 40}})}),
            (Gaps{{RegionGapKind::Jump, 0, 0, 9, 10}}));
  EXPECT_EQ(GapsOf({Hide(0, 20, {{0, 9, 10, 55, 30, 20}, {10, 20, 10, 35, 30, 20}})}), Gaps{});
  EXPECT_EQ(GapsOf({Hide(0, 20, {{0, 9, 10, 55, 30, 20}, {10, 20, 10, 34, 30, 20}})}),
            (Gaps{{RegionGapKind::Jump, 0, 0, 9, 10}}));
}

TEST(RegionGaps, AreJumpsInARowAsOne) {
  EXPECT_EQ(GapsOf({Hide(0, 20,
                         {{0, 4, 0, 0, 10, 10},
                          {5, 5, 50, 0, 10, 10},
                          {6, 9, 100, 0, 10, 10},
                          {10, 20, 150, 0, 10, 10}})}),
            (Gaps{{RegionGapKind::Jump, 0, 0, 4, 6}, {RegionGapKind::Jump, 0, 0, 9, 10}}));
}

TEST(RegionGaps, AreFramesInWhichItLeavesThePicture) {
  EXPECT_EQ(GapsOf({Hide(0, 49,
                         {{0, 9, 170, 20, 30, 40},
                          {10, 19, 171, 20, 30, 40},
                          {20, 29, 180, 20, 30, 40},
                          {30, 39, 200, 20, 30, 40},
                          {40, 49, 180, 20, 30, 40}})}),
            (Gaps{{RegionGapKind::PartlyOutside, 0, 0, 10, 29},
                  {RegionGapKind::Outside, 0, 0, 30, 39},
                  {RegionGapKind::PartlyOutside, 0, 0, 40, 49}}));
}

TEST(RegionGaps, AreRegionsWithAnEffectThatThereIsNot) {
  EXPECT_EQ(GapsOf({Hide(3, 9, {{3, 9, 10, 20, 30, 40}}, 2)}),
            (Gaps{{RegionGapKind::NoEffect, 0, 0, 3, 9}}));
}

TEST(RegionGaps, AreAFewFramesBetweenTwoRegionsNearEachOther) {
  std::string const ending = Hide(0, 9, {{0, 9, 10, 20, 30, 40}});
  EXPECT_EQ(GapsOf({ending, Hide(10, 20, {{10, 20, 10, 20, 30, 40}})}), Gaps{});
  EXPECT_EQ(GapsOf({ending, Hide(11, 20, {{11, 20, 10, 20, 30, 40}})}),
            (Gaps{{kHole, 0, 1, 10, 10}}));
  EXPECT_EQ(GapsOf({Hide(35, 40, {{35, 40, 69, 20, 30, 40}}), ending}),
            (Gaps{{kHole, 1, 0, 10, 34}}));
}

TEST(RegionGaps, AreNotTakenForHolesWhenLongOrFarFromEachOther) {
  std::string const ending = Hide(0, 9, {{0, 9, 10, 20, 30, 40}});
  EXPECT_EQ(GapsOf({ending, Hide(36, 40, {{36, 40, 10, 20, 30, 40}})}), Gaps{});
  // Its last column is 39; 30 more are near.
  EXPECT_EQ(GapsOf({ending, Hide(12, 40, {{12, 40, 70, 20, 30, 40}})}), Gaps{});
}

TEST(RegionGaps, AreNotWhereAnotherRegionCoversTheHole) {
  std::string const ending = Hide(0, 9, {{0, 9, 10, 20, 30, 40}});
  std::string const beginning = Hide(20, 29, {{20, 29, 10, 20, 30, 40}});
  EXPECT_EQ(GapsOf({ending, beginning, Hide(5, 25, {{5, 25, 20, 30, 30, 40}})}), Gaps{});
  EXPECT_EQ(GapsOf({ending, beginning, Hide(5, 15, {{5, 15, 20, 30, 100, 40}})}),
            (Gaps{{kHole, 0, 1, 16, 19}, {kHole, 2, 1, 16, 19}}));
  EXPECT_EQ(GapsOf({ending, beginning, Hide(5, 25, {{5, 25, 150, 30, 30, 40}})}),
            (Gaps{{kHole, 0, 1, 10, 19}}));
}

TEST(RegionGaps, AreThoseWithinTheExportOnly) {
  std::vector<std::string> const objects = {
      Hide(5, 50, {{10, 19, 10, 20, 30, 40}, {22, 40, 100, 20, 30, 40}, {41, 50, -5, 20, 30, 40}})};
  EXPECT_EQ(GapsOf(objects, {{200, 100}, 23, 39}), Gaps{});
  EXPECT_EQ(GapsOf(objects, {{200, 100}, 21, 39}), (Gaps{{RegionGapKind::NoRecord, 0, 0, 21, 21}}));
  EXPECT_EQ(GapsOf(objects, {{200, 100}, 51, 99}), Gaps{});
}

TEST(RegionGaps, AreToldInASentence) {
  EXPECT_EQ(RegionGapText({RegionGapKind::Hole, 0, 4, 10, 12}),
            "Nothing is hidden between object 1 and object 5, in frames 10 to 12.");
  EXPECT_EQ(RegionGapText({RegionGapKind::NoRecord, 1, 1, 3, 4}),
            "Object 2 has no place in frames 3 to 4.");
  EXPECT_EQ(RegionGapText({RegionGapKind::Jump, 1, 1, 3, 4}),
            "Object 2 jumps farther than its own size in frames 3 to 4.");
  EXPECT_EQ(RegionGapText({RegionGapKind::PartlyOutside, 1, 1, 3, 4}),
            "Object 2 lies partly outside the picture in frames 3 to 4.");
  EXPECT_EQ(RegionGapText({RegionGapKind::Outside, 1, 1, 3, 5000000000}),
            "Object 2 lies outside the picture in frames 3 to 5000000000.");
  EXPECT_EQ(RegionGapText({RegionGapKind::NoEffect, 1, 1, 3, 4}),
            "Object 2 hides nothing in frames 3 to 4: unknown effect.");
}

TEST(FramesCovered, AreThoseInWhichTheRegionHidesSomething) {
  EXPECT_EQ(CoverageOf({Object(2, 0, 99, {{0, 99, 10, 20, 30, 40}}, ""),
                        Hide(5, 60,
                             {{10, 19, 10, 20, 30, 40},
                              {20, 29, 180, 20, 30, 40},
                              {30, 39, 200, 20, 30, 40},
                              {40, 70, 100, 20, 30, 40}}),
                        Hide(0, 9, {{0, 9, 10, 20, 30, 40}}, 2)}),
            (std::vector<Coverage>{{{10, 29}, {40, 60}}, {}}));
}

TEST(FramesCovered, AreCutToTheExport) {
  std::vector<std::string> const objects = {Hide(5, 60, {{5, 60, 10, 20, 30, 40}})};
  EXPECT_EQ(CoverageOf(objects, {{200, 100}, 20, 30}), (std::vector<Coverage>{{{20, 30}}}));
  EXPECT_EQ(CoverageOf(objects, {{200, 100}, 61, 90}), (std::vector<Coverage>{{}}));
  EXPECT_EQ(CoverageOf(objects, {{10, 10}, 0, 99}), (std::vector<Coverage>{{}}));
}

TEST(FramesCovered, NameTheRegionByItsPlaceAmongAllObjects) {
  auto const tool = ToolWith(
      {Object(2, 0, 99, {{0, 99, 10, 20, 30, 40}}, ""), Hide(5, 60, {{5, 60, 10, 20, 30, 40}})});
  auto const coverages = FramesCovered(*tool, kAll);
  ASSERT_EQ(coverages.size(), 1u);
  EXPECT_EQ(coverages[0].object, 1);
}

}  // namespace
}  // namespace framenote::test
