// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include <wx/gdicmn.h>
#include <wx/string.h>

#include "media/message.h"

class AnnotationTool;

/// Where hide regions may leave bare what they are to hide; to be shown before an export.

/// What an export takes: pictures of this size, in the frames first to last.
struct ExportRange {
  wxSize picture;
  std::int64_t first = 0;
  std::int64_t last = 0;
};

enum class RegionGapKind {
  Hole,           ///< a region ends, and a few frames later one begins near by
  NoRecord,       ///< the region has no place in frames of its own range
  Jump,           ///< from one frame to the next it moves farther than its own size
  PartlyOutside,  ///< some of its bounds are outside the picture
  Outside,        ///< all of them are
  NoEffect        ///< the document asks for an effect that there is not: nothing is hidden
};

/// Objects are numbered as in AnnotationTool::AnnotationObjects, from 0.
struct RegionGap {
  RegionGapKind kind = RegionGapKind::Hole;
  int object = 0;      ///< of a hole: the one that ends
  int nextObject = 0;  ///< of a hole: the one that begins; else as `object`
  /// Of a hole or a missing record: the frames without one. Of jumps: from the frame before the
  /// first to the frame after the last of jumps in a row.
  std::int64_t first = 0;
  std::int64_t last = 0;
};

/// By object, then by frame. A hole counts from 1 to 25 frames, about a second; longer ones are
/// taken as meant, and so are frames that another region covers at that place.
std::vector<RegionGap> FindRegionGaps(AnnotationTool const &tool, ExportRange const &range);

/// A sentence about it; frames with the numbers that they have in the gap, objects from 1 on.
Message RegionGapMessage(RegionGap const &gap);
/// The same for the user.
wxString RegionGapText(RegionGap const &gap);

struct RegionCoverage {
  int object = 0;
  /// First and last frames in which some of the region is inside the picture and hides what is
  /// there; apart from each other, in order.
  std::vector<std::pair<std::int64_t, std::int64_t>> frames;
};

/// One for each hide region, also for those that cover nothing in the range.
std::vector<RegionCoverage> FramesCovered(AnnotationTool const &tool, ExportRange const &range);
