// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "coordinates/ann_points.h"
#include "coordinates/annotation_coordinates.h"
#include "framenote/export.h"

extern template class IAnnotationCoordinates<AnnMagnifyPoints>;

/// The centre of the area that a magnifier shows, in the frames where it was moved away from the
/// lens. An empty frame means the centre of the lens.
class FRAMENOTE_API AnnMagnifyCoordinates : public IAnnotationCoordinates<AnnMagnifyPoints> {
public:
  /// A new magnifier has no centre of its own: the store is empty, and `frame` is current.
  AnnMagnifyCoordinates(std::int64_t frameCount, std::int64_t frame);
  /// Reads the array `json`.
  AnnMagnifyCoordinates(wxJSONValue const &json, std::int64_t frameCount);
  /// Copies every record; nothing is shared with `other`.
  AnnMagnifyCoordinates(AnnMagnifyCoordinates const &other) = default;
  ~AnnMagnifyCoordinates() override;

  /// Empties all frames; the current frame stays. The caller holds the mutex.
  void Clear();

  void SetCoordinatesNotUpdatedInJson() override;
  void UpdateJSONValCoordinates(std::int64_t first, std::int64_t last) override;

private:
  void initFromJSONVal();
};
