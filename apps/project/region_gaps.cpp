// SPDX-License-Identifier: MIT
#include "project/region_gaps.h"

#include <algorithm>
#include <mutex>
#include <optional>
#include <string>
#include <tuple>

#include <wx/translation.h>

#include "framenote/annotation_tool.h"
#include "objects/ann_hide.h"
#include "objects/shape_geometry.h"

namespace {

using Frames = std::pair<std::int64_t, std::int64_t>;  ///< first and last, both inside

constexpr std::int64_t kLongestHole = 25;

/// Frames in which a region stands still.
struct Run {
  Frames frames;
  wxRect bounds;
};

/// A hide region, as far as it lies in the range.
struct Region {
  int object = 0;
  bool hasEffect = false;
  Frames frames;          ///< its own range, cut to the export's
  std::vector<Run> runs;  ///< in order; frames without a record are in none
};

std::optional<Region> RegionOf(AnnHide const &hide, int object, ExportRange const &range) {
  Region region;
  region.object = object;
  region.hasEffect = hide.HideProperties().HasKnownEffect();
  region.frames = {std::max(hide.GetStartFrame(), range.first),
                   std::min(hide.GetEndFrame(), range.last)};
  if (region.frames.first > region.frames.second) return std::nullopt;
  std::lock_guard<std::mutex> const lock(hide.GetCoordinatesMutex());
  hide.GetCoordinates().ForEachRun(
      region.frames.first, region.frames.second,
      [&](std::int64_t first, std::int64_t last, AnnShapePoints const &record) {
        region.runs.push_back({{first, last}, framenote::BoundsOf(record)});
      });
  return region;
}

/// Calls `visit(hide, number)` for each hide region of the tool.
template <class Visit>
void ForEachHide(AnnotationTool const &tool, Visit visit) {
  int object = 0;
  for (IAnnotationObject const *each : tool.AnnotationObjects()) {
    if (auto const *hide = dynamic_cast<AnnHide const *>(each)) visit(*hide, object);
    ++object;
  }
}

std::vector<Region> RegionsOf(AnnotationTool const &tool, ExportRange const &range) {
  std::vector<Region> regions;
  ForEachHide(tool, [&](AnnHide const &hide, int object) {
    if (auto region = RegionOf(hide, object, range)) regions.push_back(*region);
  });
  return regions;
}

/// Adds frames to a list, to its last element if they follow that.
void Extend(std::vector<Frames> &list, Frames const &frames) {
  if (!list.empty() && frames.first <= list.back().second + 1) {
    list.back().second = std::max(list.back().second, frames.second);
  } else {
    list.push_back(frames);
  }
}

/// What is left of `frames` without those of `list`, which are in order.
std::vector<Frames> Without(Frames frames, std::vector<Frames> const &list) {
  std::vector<Frames> left;
  for (auto const &[first, last] : list) {
    if (last < frames.first) continue;
    if (first > frames.second) break;
    if (first > frames.first) left.emplace_back(frames.first, first - 1);
    frames.first = last + 1;
  }
  if (frames.first <= frames.second) left.push_back(frames);
  return left;
}

void AddGaps(std::vector<RegionGap> &gaps, RegionGapKind kind, Region const &region,
             std::vector<Frames> const &list) {
  for (auto const &[first, last] : list) {
    gaps.push_back({kind, region.object, region.object, first, last});
  }
}

/// Whether the second place is farther from the first than the region's own size: nothing lies
/// between them that the region covers in either frame. Places that touch are not a jump.
bool IsJump(wxRect const &from, wxRect const &to) {
  auto const isApart = [](int begin, int size, int otherBegin, int otherSize) {
    return otherBegin > begin + size || begin > otherBegin + otherSize;
  };
  return isApart(from.x, from.width, to.x, to.width) ||
         isApart(from.y, from.height, to.y, to.height);
}

std::vector<Frames> JumpsOf(Region const &region) {
  std::vector<Frames> jumps;
  for (std::size_t i = 1; i < region.runs.size(); ++i) {
    Run const &from = region.runs[i - 1];
    Run const &to = region.runs[i];
    Frames const jump(from.frames.second, to.frames.first);
    if (jump.first + 1 != jump.second || !IsJump(from.bounds, to.bounds)) continue;
    bool const isInARow = !jumps.empty() && jumps.back().second == jump.first;
    if (isInARow) {
      jumps.back().second = jump.second;
    } else {
      jumps.push_back(jump);
    }
  }
  return jumps;
}

/// The frames of the runs for which `isMeant(bounds)` holds.
template <class IsMeant>
std::vector<Frames> FramesWhere(Region const &region, IsMeant isMeant) {
  std::vector<Frames> list;
  for (Run const &run : region.runs) {
    if (isMeant(run.bounds)) Extend(list, run.frames);
  }
  return list;
}

void AddGapsOfOne(std::vector<RegionGap> &gaps, Region const &region, wxRect const &picture) {
  auto const isOutside = [&](wxRect const &bounds) { return !picture.Intersects(bounds); };
  auto const isPartlyOutside = [&](wxRect const &bounds) {
    return picture.Intersects(bounds) && !picture.Contains(bounds);
  };
  if (!region.hasEffect) AddGaps(gaps, RegionGapKind::NoEffect, region, {region.frames});
  auto const recorded = FramesWhere(region, [](wxRect const &) { return true; });
  AddGaps(gaps, RegionGapKind::NoRecord, region, Without(region.frames, recorded));
  AddGaps(gaps, RegionGapKind::Jump, region, JumpsOf(region));
  AddGaps(gaps, RegionGapKind::Outside, region, FramesWhere(region, isOutside));
  AddGaps(gaps, RegionGapKind::PartlyOutside, region, FramesWhere(region, isPartlyOutside));
}

/// Within a region's own size of another's place.
bool IsNear(wxRect const &a, wxRect const &b) {
  int const width = std::max(a.width, b.width);
  int const height = std::max(a.height, b.height);
  return wxRect(a).Inflate(width, height).Intersects(b);
}

/// The frames in which some region covers a part of one of two places.
std::vector<Frames> CoveredAt(std::vector<Region> const &regions, wxRect const &place,
                              wxRect const &otherPlace) {
  std::vector<Frames> all;
  for (Region const &region : regions) {
    auto const covers = [&](wxRect const &bounds) {
      return region.hasEffect && (bounds.Intersects(place) || bounds.Intersects(otherPlace));
    };
    auto const frames = FramesWhere(region, covers);
    all.insert(all.end(), frames.begin(), frames.end());
  }
  std::sort(all.begin(), all.end());
  std::vector<Frames> covered;
  for (Frames const &frames : all) Extend(covered, frames);
  return covered;
}

/// Holes between the end of one region and the beginning of another one.
void AddHoles(std::vector<RegionGap> &gaps, Region const &ending, Region const &beginning,
              std::vector<Region> const &all) {
  if (ending.runs.empty() || beginning.runs.empty()) return;
  Run const &last = ending.runs.back();
  Run const &first = beginning.runs.front();
  Frames const hole(last.frames.second + 1, first.frames.first - 1);
  std::int64_t const length = hole.second - hole.first + 1;
  if (length < 1 || length > kLongestHole || !IsNear(last.bounds, first.bounds)) return;
  for (Frames const &bare : Without(hole, CoveredAt(all, last.bounds, first.bounds))) {
    gaps.push_back({RegionGapKind::Hole, ending.object, beginning.object, bare.first, bare.second});
  }
}

/// The sentence, with "%s" for the object, of a hole the next one, the first and the last frame.
char const *Sentence(RegionGapKind kind) {
  switch (kind) {
    case RegionGapKind::Hole:
      return wxTRANSLATE("Nothing is hidden between object %s and object %s, in frames %s to %s.");
    case RegionGapKind::NoRecord:
      return wxTRANSLATE("Object %s has no place in frames %s to %s.");
    case RegionGapKind::Jump:
      return wxTRANSLATE("Object %s jumps farther than its own size in frames %s to %s.");
    case RegionGapKind::PartlyOutside:
      return wxTRANSLATE("Object %s lies partly outside the picture in frames %s to %s.");
    case RegionGapKind::Outside:
      return wxTRANSLATE("Object %s lies outside the picture in frames %s to %s.");
    case RegionGapKind::NoEffect:
      return wxTRANSLATE("Object %s hides nothing in frames %s to %s: unknown effect.");
  }
  return "";
}

}  // namespace

std::vector<RegionGap> FindRegionGaps(AnnotationTool const &tool, ExportRange const &range) {
  std::vector<RegionGap> gaps;
  std::vector<Region> const regions = RegionsOf(tool, range);
  wxRect const picture(range.picture);
  for (Region const &region : regions) {
    AddGapsOfOne(gaps, region, picture);
    for (Region const &other : regions) AddHoles(gaps, region, other, regions);
  }
  std::stable_sort(gaps.begin(), gaps.end(), [](RegionGap const &a, RegionGap const &b) {
    return std::tie(a.object, a.first, a.last) < std::tie(b.object, b.first, b.last);
  });
  return gaps;
}

Message RegionGapMessage(RegionGap const &gap) {
  std::vector<std::string> values = {std::to_string(gap.object + 1)};
  if (gap.kind == RegionGapKind::Hole) values.push_back(std::to_string(gap.nextObject + 1));
  values.push_back(std::to_string(gap.first));
  values.push_back(std::to_string(gap.last));
  return {Sentence(gap.kind), values};
}

wxString RegionGapText(RegionGap const &gap) {
  return wxString::FromUTF8(RegionGapMessage(gap).Translated());
}

std::vector<RegionCoverage> FramesCovered(AnnotationTool const &tool, ExportRange const &range) {
  std::vector<RegionCoverage> coverages;
  wxRect const picture(range.picture);
  ForEachHide(tool, [&](AnnHide const &hide, int object) {
    coverages.push_back({object, {}});
    auto const region = RegionOf(hide, object, range);
    if (!region || !region->hasEffect) return;
    coverages.back().frames =
        FramesWhere(*region, [&](wxRect const &bounds) { return picture.Intersects(bounds); });
  });
  return coverages;
}
