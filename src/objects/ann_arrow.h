// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <vector>

#include "coordinates/ann_arrow_coordinates.h"
#include "objects/recorded_object.h"
#include "properties/ann_arrow_properties.h"

class AnnArrowToolMode;

/// A straight arrow between two points, with a resize handle at each end: 9 at the head, 10 at the
/// tail. Body and head are derived from the ends and the look.
class FRAMENOTE_API AnnArrow
    : public framenote::RecordedObject<AnnArrow, AnnArrowToolMode, AnnArrowProperties,
                                       AnnArrowCoordinates> {
public:
  /// A new arrow with the look of the mode's record; ends in picture pixels.
  AnnArrow(std::shared_ptr<AnnArrowToolMode> const &mode, wxPoint2DInt const &head,
           wxPoint2DInt const &tail, std::int64_t frame);
  /// REQUIRES: IsJSONValid(json).
  AnnArrow(std::shared_ptr<AnnArrowToolMode> const &mode, wxJSONValue const &json);
  /// A copy shares nothing with `other` but its modes.
  AnnArrow(AnnArrow const &other);
  ~AnnArrow() override;

  /// Whether an object can be made from `json`: the rule of AnnShape.
  static bool IsJSONValid(wxJSONValue const &json);

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

  ///@{
  /// The head's base and wings, from both ends; then the body, which needs the base.
  void FindHead(AnnArrowPoints &record) const;
  void FindBody(AnnArrowPoints &record) const;
  void FindHeadAndBody(AnnArrowPoints &record) const;
  ///@}
  /// Left wing, tip, right wing.
  std::vector<wxPoint2DDouble> GetHeadPoints(AnnArrowPoints const &record,
                                             wxPoint2DDouble const &offset) const;
  /// The body's centre line; empty when the arrow is too short for a body.
  std::vector<wxPoint2DDouble> GetBodyPoints(AnnArrowPoints const &record,
                                             wxPoint2DDouble const &offset) const;
  /// Moves the active end to `position`.
  void ModifyTo(wxPoint2DInt const &position);

  /// The look.
  AnnArrowProperties const &GetProperties() const { return m_properties; }
  /// The ends in every frame; whoever reads records holds its mutex.
  AnnArrowCoordinates const &GetCoordinates() const { return m_coordinates; }

  static constexpr int m_headHandle = 9;   ///< number of the handle
  static constexpr int m_tailHandle = 10;  ///< number of the handle

private:
  void findContainingRect() override;
  void initFromJSONVal() override;
  void drawEnds(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset, double scale,
                bool selected) const;
};
