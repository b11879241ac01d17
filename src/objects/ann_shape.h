// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <vector>

#include "coordinates/ann_shape_coordinates.h"
#include "objects/recorded_object.h"
#include "properties/ann_shape_properties.h"

class AnnShapeToolMode;

/// A quadrilateral given by four corners, drawn as a rectangle or as an ellipse inside it.
///
/// The corners are kept in cyclic order, clockwise on the screen from the top left of the unturned
/// shape. Handles are numbered 1 to 8 in the same direction, from the top left corner; corners are
/// odd and sides even. Operations that take a record work on that record; the others lock the
/// store and work on the record of the current frame.
class FRAMENOTE_API AnnShape
    : public framenote::RecordedObject<AnnShape, AnnShapeToolMode, AnnShapeProperties,
                                       AnnShapeCoordinates> {
public:
  /// A new shape with the look of the mode's record; `rect` in picture pixels.
  AnnShape(std::shared_ptr<AnnShapeToolMode> const &mode, wxRect const &rect, std::int64_t frame);
  /// REQUIRES: IsJSONValid(json).
  AnnShape(std::shared_ptr<AnnShapeToolMode> const &mode, wxJSONValue const &json);
  /// A copy shares nothing with `other` but its modes.
  AnnShape(AnnShape const &other);
  ~AnnShape() override;

  /// Whether an object can be made from `json`.
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
  void UpdateCoordinatesPointers(std::int64_t frame) override;

  // Queries of a record
  bool IsPoint(AnnShapePoints const &record) const;      ///< all corners in one pixel
  bool IsXLine(AnnShapePoints const &record) const;      ///< no height
  bool IsYLine(AnnShapePoints const &record) const;      ///< no width
  bool IsLine(AnnShapePoints const &record) const;       ///< one of the two
  bool IsReflected(AnnShapePoints const &record) const;  ///< corners run the other way round
  /// Whether the left side points against its remembered direction.
  bool IsRotatedByReflection(AnnShapePoints const &record) const;
  bool IsFillCoveredByBorder(AnnShapePoints const &record) const;  ///< the border leaves no inside
  wxSize GetSize(AnnShapePoints const &record) const;  ///< lengths of the sides, truncated
  ///@{
  /// Corners, inner corners, or handles of a record, each plus `offset`; handles are the corners,
  /// then the middles of the top, right, bottom and left side.
  std::vector<wxPoint2DDouble> GetCorners(AnnShapePoints const &record,
                                          wxPoint2DDouble const &offset) const;
  std::vector<wxPoint2DDouble> GetInnerCorners(AnnShapePoints const &record,
                                               wxPoint2DDouble const &offset) const;
  std::vector<wxPoint2DDouble> GetResizePoints(AnnShapePoints const &record,
                                               wxPoint2DDouble const &offset) const;
  ///@}

  // Derived points of a record; the caller holds the lock if the record is in the store
  ///@{
  /// Works out cached points of a record, see its members. REQUIRES: the caller holds the mutex of
  /// the record's store.
  void FindResizePoints(AnnShapePoints &record) const;
  void FindRotationPoint(AnnShapePoints &record, bool reflected) const;
  void CalculateInnerCoordinates(int thickness, AnnShapePoints &record, bool reflected) const;
  ///@}

  // Resizing and turning
  /// Width over height of `record`, to be kept by a resize.
  void CalculateAspectRatio(AnnShapePoints const &record);
  double GetAspectRatio() const { return m_aspectRatio; }      ///< width over height
  double GetRotationAngle() const { return m_rotationAngle; }  ///< radians, of the current frame
  /// The angle that a drag started from.
  double GetRememberedAngle() const { return m_rememberedAngle; }
  /// Takes the angle, in radians; the cursors of the handles turn with it.
  void UpdateRotationState(double angle);
  /// Saves the corners, the angle and the aspect ratio that a drag starts from. A shape collapsed
  /// to one pixel keeps what was saved before.
  void RememberCurrentPosition();
  /// Drags the active handle to `position`. With `keepAspectRatio` a corner takes the width from
  /// the height.
  void ResizeTo(wxPoint2DInt const &position, bool keepAspectRatio);
  /// Turns the shape about its centre so that its top points to `position`.
  void Rotate(wxPoint const &position);
  /// Corrects the cached points of a reflected record and, with `adjustOrder`, the names of its
  /// corners. `lock` is the proof that the caller holds the store's mutex.
  void CheckIfReflectedAlongAxis(std::lock_guard<std::mutex> const &lock, bool adjustOrder);

  using IAnnotationObject::GetContainingRect;
  /// The rectangle that bounds the current record, whatever `frame` says.
  wxRect GetContainingRect(std::int64_t frame) const;
  std::mutex &GetCoordinatesMutex() const;  ///< the store's
  /// The look.
  AnnShapeProperties const &GetProperties() const { return m_properties; }
  /// The corners in every frame; whoever reads records holds its mutex.
  AnnShapeCoordinates const &GetCoordinates() const { return m_coordinates; }

  /// The rectangle, or the square of the shorter side, that a drag from `first` to `second` spans.
  static wxRect GetRectOrSquare(wxPoint const &first, wxPoint const &second, bool square);

  static constexpr int m_rotationArmLength = 30;            ///< screen pixels
  static const std::vector<wxStockCursor> m_resizeCursors;  ///< of the handles

protected:
  bool isFullyTransparent() const;  ///< neither border nor fill is seen
  /// Whether `point` lies in the turned box itself, whatever is painted of it; a box that is a
  /// single point is hit there.
  bool boxContains(wxPoint2DInt const &point) const;
  /// How a border is painted.
  struct Border {
    AnnShapeProperties::Shape shape;  ///< what is drawn
    wxColour colour;                  ///< alpha 0 paints none
    int thickness;                    ///< picture pixels
  };
  /// Paints a border alone; what it encloses stays, unless the shape's border covers it.
  void drawBorder(IAnnPainter &painter, AnnShapePoints const &record, wxPoint2DDouble const &offset,
                  Border const &border) const;
  /// Changes the corners of the current record, for all frames that share it, and derives the
  /// points that follow from them.
  void changeCorners(std::function<void(AnnShapePoints &)> const &change);
  /// Takes over the border of the look in which the kind is painted, and the shape's own points
  /// that follow from it.
  void setBorderLook(wxColour const &colour, int thickness);

private:
  struct Corner;
  struct Corners;
  struct CornerRule;
  struct SideRule;

  void findContainingRect() override;
  void initFromJSONVal() override;
  /// A resize or a turn has moved the corners of the current record; what is placed by them
  /// follows.
  virtual void onCornersDragged(bool isResize);
  double getAngleFromPosition(AnnShapePoints const &record) const;
  double rotationArm() const;
  void leaveFrame(std::lock_guard<std::mutex> const &lock, std::int64_t previous,
                  std::int64_t frame);
  void dragCorner(AnnShapePoints &record, CornerRule const &rule, wxPoint2DDouble const &position,
                  bool keepAspectRatio) const;
  void dragSide(AnnShapePoints &record, SideRule const &rule, wxPoint2DDouble const &position,
                bool keepAspectRatio) const;
  /// Makes the corners finite and derives the points that follow from them, after an edit of the
  /// current record.
  void settleAfterEdit(AnnShapePoints &record) const;
  bool isHollow(AnnShapePoints const &record) const;
  bool rectangleContains(AnnShapePoints const &record, wxPoint const &point) const;
  bool ellipseContains(AnnShapePoints const &record, wxPoint const &point) const;
  Border border() const;
  void drawRectangle(IAnnPainter &painter, AnnShapePoints const &record,
                     wxPoint2DDouble const &offset) const;
  void drawEllipse(IAnnPainter &painter, AnnShapePoints const &record,
                   wxPoint2DDouble const &offset) const;

  double m_aspectRatio = 1.0;
  double m_rotationAngle = 0.0;
  int m_rotationState = 0;  ///< turns the handles' cursors with the shape
  double m_rememberedAngle = 0.0;
  std::int64_t m_resizedFrame = -1;  ///< the frame that the drag has resized last, or -1
  wxPoint2DDouble m_rememberedTopLeft;
  wxPoint2DDouble m_rememberedTopRight;
  wxPoint2DDouble m_rememberedBottomRight;
  wxPoint2DDouble m_rememberedBottomLeft;
};
