// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>

#include "coordinates/ann_points.h"
#include "coordinates/annotation_coordinates.h"
#include "framenote/export.h"

extern template class IAnnotationCoordinates<AnnArrowPoints>;

/// The end points of an arrow in every frame.
class FRAMENOTE_API AnnArrowCoordinates : public IAnnotationCoordinates<AnnArrowPoints> {
public:
  /// An arrow in `frame`, which is current; in picture pixels.
  AnnArrowCoordinates(std::int64_t frameCount, std::int64_t frame, wxPoint2DInt const &head,
                      wxPoint2DInt const &tail);
  /// Reads the array `json`. `callback` works out the derived points of each record from its end
  /// points; it runs with the mutex held.
  AnnArrowCoordinates(wxJSONValue const &json, std::int64_t frameCount,
                      std::function<void(AnnArrowPoints &)> const &callback);
  /// Copies every record; nothing is shared with `other`.
  AnnArrowCoordinates(AnnArrowCoordinates const &other) = default;
  ~AnnArrowCoordinates() override;

  void SetCoordinatesNotUpdatedInJson() override;
  void UpdateJSONValCoordinates(std::int64_t first, std::int64_t last) override;

private:
  void initFromJSONVal(std::function<void(AnnArrowPoints &)> const &callback);
};
