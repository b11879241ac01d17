// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include <wx/bitmap.h>
#include <wx/image.h>

#include "coordinates/ann_magnify_coordinates.h"
#include "objects/boxed_object.h"
#include "objects/shape_mask.h"
#include "properties/ann_magnify_properties.h"

class AnnMagnifyToolMode;

/// A lens: a rectangle or an ellipse that shows a part of the picture enlarged. As a rule that is
/// what lies under it; its centre can be dragged away, in each frame, and then the lens stays, an
/// outline shows what is enlarged, and lines may join the two.
///
/// Only what the lens shows is enlarged, never the whole picture, so that any zoom costs no more
/// than the lens. It is brought up to date by AnnotationTool::SetImage, where each lens is worked
/// on by a thread.
class FRAMENOTE_API AnnMagnify
    : public framenote::BoxedObject<AnnMagnify, AnnMagnifyToolMode, AnnMagnifyProperties> {
public:
  /// A new lens with the look of the magnify mode's record. `image` is the tool's picture, which
  /// outlives the lens and may become another one.
  AnnMagnify(std::shared_ptr<AnnShapeToolMode> const &shapeMode,
             std::shared_ptr<AnnMagnifyToolMode> const &magnifyMode, wxRect const &rect,
             wxImage const &image, std::int64_t frame);
  /// REQUIRES: IsJSONValid(json). A lens that is not present in frame 0 has nothing to show until
  /// the picture is set.
  AnnMagnify(std::shared_ptr<AnnShapeToolMode> const &shapeMode,
             std::shared_ptr<AnnMagnifyToolMode> const &magnifyMode, wxJSONValue const &json,
             wxImage const &image);
  /// The copy works on the same picture.
  AnnMagnify(AnnMagnify const &other);
  ~AnnMagnify() override;

  /// Whether an object can be made from `json`.
  static bool IsJSONValid(wxJSONValue const &json);

  void Draw(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset) const override;
  void DrawSelected(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset,
                    double scale) const override;
  /// Moves the centre of what is shown if the pointer was last found on it, else the lens.
  void MoveFor(wxPoint2DInt const &delta) override;
  void MoveAllFramesFor(wxPoint2DInt const &delta) override;
  bool WouldDisappear() const override;
  /// Whether no frame can bring the lens back: it has lost its width or its height.
  bool HasCollapsed() const;
  wxColour GetDominantColor() override;
  void UpdateProperties() override;
  void UpdateCoordinatesPointers(std::int64_t frame) override;
  void DuplicateLastCoordinates(std::int64_t frame) override;
  void UpdateStartEndCoordinates(std::int64_t frame, bool isStart) override;
  void OnObjectModified() override;

  /// The look.
  AnnMagnifyProperties const &MagnifyProperties() const { return m_look; }

  /// Takes note of the zoom that is shown, which ResizeOnZoom starts from. There is no enlarged
  /// whole picture to keep.
  void ZoomWholeImageAndStoreAsBitmap();
  /// Enlarges what the lens shows. With `fromPart` only the pixels of the source area take part,
  /// by the nearest one.
  void UpdateSubImageAndSubBitmap(bool fromPart);
  /// Grows or shrinks the lens about its centre, so that at `zoom` it shows the area that it shows
  /// now. Does nothing before the first refresh.
  void ResizeOnZoom(double zoom);
  /// Whether `point` lies within 15 screen pixels of the centre of what is shown; MoveFor keeps to
  /// the last answer.
  bool IsAtCenterPoint(wxPoint2DInt const &point);
  /// What is shown lies under the lens again, in all frames.
  void ResetCenterPosition();
  using AnnShape::GetContainingRect;
  /// The rectangle that bounds the lens, moved by `shift` if its centre was dragged away.
  wxRect GetContainingRect(wxPoint const &shift) const;

  /// The mirror's member for centres that were dragged away.
  static constexpr char const *coordinatesCenterPointKey = "CoordinatesCenterPoint";

private:
  struct SourceOutline;
  using Points = std::vector<wxPoint2DDouble>;

  void initFromJSONVal() override;
  void onCornersDragged(bool isResize) override;
  void initializeRectangleProperties();
  void setJSONValCoordsCenterPoint();
  double zoom() const;
  bool isCenterPointAtDefaultPosition() const;
  wxPoint2DDouble getCenterPoint() const;
  wxPoint sourceShift() const;
  wxRect getIntersectionWithImage(wxPoint const &shift) const;
  void setSubBitmapMask();
  void moveCentre(wxPoint2DInt const &delta);
  void moveView(wxPoint2DInt const &delta);

  bool sourceOutline(AnnShapePoints const &record, wxPoint2DDouble const &offset,
                     SourceOutline &outline) const;
  void drawSourceRectangle(IAnnPainter &painter, SourceOutline const &outline) const;
  void drawSourceEllipse(IAnnPainter &painter, SourceOutline const &outline) const;
  void strokeLines(IAnnPainter &painter, Points const &source, Points const &lens) const;
  static bool isInsideAngle(wxPoint2DDouble const &vertex, wxPoint2DDouble const &a,
                            wxPoint2DDouble const &b, wxPoint2DDouble const &x);
  std::vector<std::size_t> sidesToJoin(Points const &corners, Points const &source,
                                       Points const &lens) const;

  wxImage const *m_sourceImage;  // not owned
  wxBitmap m_subBitmap;          ///< what the lens shows, cut to it; no other object shares it
  wxRect m_subBitmapRect;        ///< where it lies in the picture
  double m_cachedZoom = 0.0;     ///< of what is shown
  bool m_atCenterPoint = false;
  AnnMagnifyCoordinates m_centerCoordinates;
  framenote::ShapeMask m_mask{framenote::ShapeMask::Edge::Painted};
};
