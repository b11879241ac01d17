// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

#include "framenote/export.h"

class wxJSONValue;

/// Reading the runs of a document's "Coordinates" array, within bounds that keep a bad document
/// from taking memory or time without limit. Free functions without state.
namespace framenote {

/// A document may make a store longer than the media by this many entries: at 25 frames a second,
/// by 46 hours.
constexpr std::int64_t kMaxExtraFrames = std::int64_t{1} << 22;
/// The points that the paths of all runs of one stroke may have together.
constexpr std::int64_t kMaxPathPoints = std::int64_t{1} << 24;

/// A stretch of frames of a document that shares one record.
struct CoordinateRun {
  int element;         ///< index in the array
  std::int64_t first;  ///< first frame
  std::int64_t last;   ///< last frame, inclusive
};

/// The runs of the array that a store may read, in the array's order. A run counts only if "Range"
/// holds two integers with 0 <= first <= last, if it ends before frameCount + kMaxExtraFrames, and
/// if it does not bring the total length beyond that same number: runs may overlap, and the limit
/// keeps them from being filled in over and over. A negative `frameCount` acts as 0.
FRAMENOTE_API std::vector<CoordinateRun> ReadRuns(wxJSONValue const &coordinates,
                                                  std::int64_t frameCount);

/// How many entries beyond `frameCount` the well-formed runs of the array ask for, whatever the
/// limits. A negative `frameCount` acts as 0. Lets the reader of a document skip an object that
/// asks for too much, and add up what all objects ask for; the result saturates.
FRAMENOTE_API std::int64_t CountExtraFrames(wxJSONValue const &coordinates,
                                            std::int64_t frameCount);

/// How many runs of the array are well-formed. A stroke makes a path of its own for each.
FRAMENOTE_API std::int64_t CountRuns(wxJSONValue const &coordinates);

}  // namespace framenote
