// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

class wxJSONValue;

namespace framenote {

/// What one document may take in memory: a few kilobytes of text can ask for gigabytes of frames or
/// of points. Counts what its objects ask for; an object that asks for too much is left out, like
/// any other bad object.
class DocumentBudget {
public:
  /// `frameCount` is that of the media, which every object's store has anyway.
  explicit DocumentBudget(std::int64_t frameCount) : m_frameCount(frameCount) {}

  /// Whether there is room for the object that `element` describes.
  bool HasRoomFor(wxJSONValue const &element) const;
  /// Counts an object that is about to be made; also if it turns out to be a bad one, as many of
  /// those would take as long.
  void Spend(wxJSONValue const &element);

private:
  std::int64_t m_frameCount;
  std::int64_t m_extraFrames = 0;
  std::int64_t m_pathPoints = 0;
};

}  // namespace framenote
