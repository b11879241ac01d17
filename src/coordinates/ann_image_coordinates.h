// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "coordinates/ann_points.h"
#include "coordinates/annotation_coordinates.h"
#include "framenote/export.h"

class AnnShapeCoordinates;

extern template class IAnnotationCoordinates<AnnImagePoints>;

/// Whether a pasted picture is mirrored, in every frame. Built on the shape store of the same
/// object, which must outlive it: both have one array of runs, with the corners and the flag
/// together. Where both mutexes are taken, the shape store's is the first.
class FRAMENOTE_API AnnImageCoordinates : public IAnnotationCoordinates<AnnImagePoints> {
public:
  /// Not mirrored in `frame`; the shape store's array gets the flag.
  AnnImageCoordinates(std::int64_t frameCount, std::int64_t frame, AnnShapeCoordinates &shape);
  /// Reads the flags from the array of `shape`, which has been built before; `json` is only kept.
  AnnImageCoordinates(wxJSONValue const &json, std::int64_t frameCount, AnnShapeCoordinates &shape);
  /// Copies every flag; the copy goes on working on the shape store of `other`.
  AnnImageCoordinates(AnnImageCoordinates const &other) = default;
  /// A copy for another object, whose shape store is `shape`.
  AnnImageCoordinates(AnnImageCoordinates const &other, AnnShapeCoordinates &shape);
  ~AnnImageCoordinates() override;

  /// Builds one element per run of this store, with the corners that the shape store has in the
  /// run's first frame, and gives the array to the shape store too. Also done when only that
  /// store's array is another one by now. Takes both mutexes.
  void UpdateJSONValCoordinates(std::int64_t first, std::int64_t last) override;

private:
  void initFromJSONVal();
  RunParts partsAt(std::int64_t frame) const;

  AnnShapeCoordinates &m_shapeCoordinates;
};
