// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>

#include <wx/bitmap.h>
#include <wx/image.h>

#include "objects/boxed_object.h"
#include "objects/shape_mask.h"
#include "properties/ann_hide_properties.h"

class AnnHideToolMode;

namespace framenote {
class HiddenPictures;
}

/// A region of the picture that is shown blurred or pixelated: a rectangle or an ellipse, turned or
/// not, that may lie partly outside the picture.
///
/// What is painted is worked out from the picture that the tool has, and brought up to date by
/// AnnotationTool::SetImage, where each region is worked on by a thread. The region covers every
/// pixel that its outline touches.
class FRAMENOTE_API AnnHide
    : public framenote::BoxedObject<AnnHide, AnnHideToolMode, AnnHideProperties> {
public:
  /// A new region with the look of the hide mode's record. `image` is the tool's picture, which
  /// outlives the region and may become another one.
  AnnHide(std::shared_ptr<AnnShapeToolMode> const &shapeMode,
          std::shared_ptr<AnnHideToolMode> const &hideMode, wxRect const &rect,
          wxImage const &image, std::int64_t frame);
  /// REQUIRES: IsJSONValid(json). A region that is not present in frame 0 has nothing to show
  /// until the picture is set.
  AnnHide(std::shared_ptr<AnnShapeToolMode> const &shapeMode,
          std::shared_ptr<AnnHideToolMode> const &hideMode, wxJSONValue const &json,
          wxImage const &image);
  /// The copy works on the same picture.
  AnnHide(AnnHide const &other);
  ~AnnHide() override;

  void Draw(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset) const override;
  void MoveFor(wxPoint2DInt const &delta) override;
  void MoveAllFramesFor(wxPoint2DInt const &delta) override;
  bool WouldDisappear() const override;
  wxColour GetDominantColor() override;
  void UpdateProperties() override;

  /// The look.
  AnnHideProperties const &HideProperties() const { return m_look; }

  ///@{
  /// The whole of a picture with an effect; null for an invalid picture.
  static wxBitmap GetBlurredBitmapFromImage(wxImage const &image, int strength);
  static wxBitmap GetPixelatedBitmapFromImage(wxImage const &image, int strength);
  ///@}
  /// A black bitmap with a turned shape in white; see framenote::RotatedMaskBitmap.
  static wxBitmap GetRotatedMaskBitmap(wxPoint2DDouble const &offset, int width, int height,
                                       int shapeWidth, int shapeHeight, double angle,
                                       AnnShapeProperties::Shape shape);

  /// Works out both effects on the whole picture, for the strength and the frame as they are.
  void HideWholeImageAndStoreAsBitmap();
  /// Works out the effect on what the region shows, and on no more of the picture than that takes.
  /// The result is the same as that of the other way.
  void UpdateSubImageAndStoreAsSubBitmap();
  /// Takes what the region shows from the whole picture, which is only worked out anew after a
  /// change of strength, frame or picture: a drag runs no effect.
  void UpdateSubImageAndSubBitmap();
  /// Whether what would be painted is of the picture and of the place as they are now.
  bool IsUpToDate() const;

private:
  void initFromJSONVal() override;
  void onCornersDragged(bool isResize) override;
  void initializeRectangleProperties();
  wxRect getIntersectionWithImage() const;
  bool isWholeCurrent() const;
  wxBitmap wholeCut(wxRect const &part) const;
  wxBitmap partHidden(wxRect const &part) const;
  void showPart(wxBitmap (AnnHide::*hidden)(wxRect const &) const);
  void setSubBitmapMask();

  wxImage const *m_sourceImage;  // not owned
  /// What is left of the whole picture; shared by all regions of one strength.
  std::shared_ptr<framenote::HiddenPictures const> m_wholePictures;
  int m_cachedStrength = 0;  ///< of the whole pictures
  int m_cachedFrame = 0;     ///< only the low 32 bits
  int m_cachedPicture = 0;   ///< its number in the mode's cache
  wxBitmap m_subBitmap;      ///< the part shown, cut to the shape; no other object shares it
  wxRect m_subBitmapRect;    ///< where it lies in the picture
  int m_shownPicture = -1;   ///< the number of the picture that it shows
  framenote::ShapeMask m_mask{framenote::ShapeMask::Edge::Covered};
};
