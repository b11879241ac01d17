// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <vector>

#include "coordinates/ann_pencil_coordinates.h"
#include "objects/recorded_object.h"
#include "properties/ann_pencil_properties.h"

class AnnPencilToolMode;

/// A freehand stroke. Its form never changes, only its place does: the document holds the form
/// once, as offsets from the first point, and a start point per run of frames.
class FRAMENOTE_API AnnPencil
    : public framenote::RecordedObject<AnnPencil, AnnPencilToolMode, AnnPencilProperties,
                                       AnnPencilCoordinates> {
public:
  /// REQUIRES: at least two points.
  AnnPencil(std::shared_ptr<AnnPencilToolMode> const &mode, std::vector<wxPoint2DInt> const &points,
            std::int64_t frame);
  /// REQUIRES: IsJSONValid(json).
  AnnPencil(std::shared_ptr<AnnPencilToolMode> const &mode, wxJSONValue const &json);
  /// A copy shares nothing with `other` but its modes.
  AnnPencil(AnnPencil const &other);
  ~AnnPencil() override;

  static bool IsJSONValid(wxJSONValue const &json);  ///< Whether an object can be made from `json`.

  void Draw(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset) const override;
  void DrawFocused(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset,
                   double scale) const override;
  void DrawSelected(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset,
                    double scale) const override;
  bool Contains(wxPoint2DInt const &point) const override;
  bool IsAtResizePoint(wxPoint2DInt const &point, wxStockCursor &cursor) override;
  bool IsAtRotationPoint(wxPoint2DInt const &point) override;
  void PrepareResizing() override;
  bool WouldDisappear() const override;
  wxColour GetDominantColor() override;
  wxPoint2DInt GetPastePoint() override;
  void UpdateProperties() override;

  /// The stroke's points, each plus `offset`.
  std::vector<wxPoint2DDouble> GetPath(AnnPencilPoints const &record,
                                       wxPoint2DDouble const &offset) const;

  /// The look.
  AnnPencilProperties const &GetProperties() const { return m_properties; }
  /// The path in every frame; whoever reads records holds its mutex.
  AnnPencilCoordinates const &GetCoordinates() const { return m_coordinates; }

  static constexpr char const *pathDiffsKey = "PathDiffs";  ///< the mirror's member for the form

private:
  void findContainingRect() override;
  void initFromJSONVal() override;
  void drawEnds(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset, double scale,
                bool selected) const;

  std::vector<wxPoint2DInt> m_pathDiffs;
};
