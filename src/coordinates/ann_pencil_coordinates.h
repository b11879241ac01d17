// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

#include "coordinates/ann_points.h"
#include "coordinates/annotation_coordinates.h"
#include "framenote/export.h"

extern template class IAnnotationCoordinates<AnnPencilPoints>;

/// The path of a stroke in every frame.
class FRAMENOTE_API AnnPencilCoordinates : public IAnnotationCoordinates<AnnPencilPoints> {
public:
  /// A stroke through `points` in `frame`, which is current; in picture pixels.
  AnnPencilCoordinates(std::int64_t frameCount, std::int64_t frame,
                       std::vector<wxPoint2DInt> const &points);
  /// Reads the array `json`. Each run has a start point; its path is that point plus each entry of
  /// `pathDiffs`. Runs whose paths would bring the store beyond kMaxPathPoints are left out.
  AnnPencilCoordinates(wxJSONValue const &json, std::int64_t frameCount,
                       std::vector<wxPoint2DInt> const &pathDiffs);
  /// Copies every record; nothing is shared with `other`.
  AnnPencilCoordinates(AnnPencilCoordinates const &other) = default;
  ~AnnPencilCoordinates() override;

  void SetCoordinatesNotUpdatedInJson() override;
  void UpdateJSONValCoordinates(std::int64_t first, std::int64_t last) override;

private:
  void initFromJSONVal(std::vector<wxPoint2DInt> const &pathDiffs);
};
