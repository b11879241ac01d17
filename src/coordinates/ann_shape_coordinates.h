// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>

#include "coordinates/ann_points.h"
#include "coordinates/annotation_coordinates.h"
#include "framenote/export.h"

class wxRect;

extern template class IAnnotationCoordinates<AnnShapePoints>;

/// The corners of a rectangle or ellipse in every frame.
class FRAMENOTE_API AnnShapeCoordinates : public IAnnotationCoordinates<AnnShapePoints> {
public:
  /// The corners are those of the pixels that `rect` covers: a width of 100 makes them 99 apart.
  AnnShapeCoordinates(std::int64_t frameCount, std::int64_t frame, wxRect const &rect);
  /// Reads the array `json`. `callback` works out the derived points of each record from its
  /// corners and `thickness`; it runs with the mutex held.
  AnnShapeCoordinates(wxJSONValue const &json, std::int64_t frameCount,
                      std::function<void(AnnShapePoints &, int)> const &callback, int thickness);
  /// Copies every record; nothing is shared with `other`.
  AnnShapeCoordinates(AnnShapeCoordinates const &other) = default;
  /// Leaves `other` empty.
  AnnShapeCoordinates(AnnShapeCoordinates &&other) noexcept = default;
  ~AnnShapeCoordinates() override;

  void SetCoordinatesNotUpdatedInJson() override;
  void UpdateJSONValCoordinates(std::int64_t first, std::int64_t last) override;

private:
  void initFromJSONVal(std::function<void(AnnShapePoints &, int)> const &callback, int thickness);
};
