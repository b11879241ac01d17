// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>

#include <wx/bitmap.h>
#include <wx/image.h>

#include "coordinates/ann_image_coordinates.h"
#include "objects/boxed_object.h"
#include "properties/ann_image_properties.h"

class AnnImageToolMode;

/// A picture from a file, laid over the annotated one in a rectangle without border and fill. A
/// side that is dragged across the opposite one mirrors it; that is kept for each frame. The
/// document holds the path alone, and the file is read again whenever it is restored.
class FRAMENOTE_API AnnImage
    : public framenote::BoxedObject<AnnImage, AnnImageToolMode, AnnImageProperties> {
public:
  /// A new picture with the look of the image mode's record, which also names the file.
  AnnImage(std::shared_ptr<AnnShapeToolMode> const &shapeMode,
           std::shared_ptr<AnnImageToolMode> const &imageMode, wxRect const &rect,
           std::int64_t frame);
  /// REQUIRES: IsJSONValid(json). Without its file the object has no picture and paints nothing.
  AnnImage(std::shared_ptr<AnnShapeToolMode> const &shapeMode,
           std::shared_ptr<AnnImageToolMode> const &imageMode, wxJSONValue const &json);
  /// A copy shares nothing with `other` but its modes. The picture's pixels are shared, too.
  AnnImage(AnnImage const &other);
  ~AnnImage() override;

  void Draw(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset) const override;
  /// Anywhere in the rectangle, transparent pixels included.
  bool Contains(wxPoint2DInt const &point) const override;
  void MoveFor(wxPoint2DInt const &delta) override;
  void PrepareResizing() override;
  bool WouldDisappear() const override;
  wxColour GetDominantColor() override;
  void UpdateProperties() override;
  void OnSelection(bool isNew) override;
  void UpdateCoordinatesPointers(std::int64_t frame) override;
  void DuplicateLastCoordinates(std::int64_t frame) override;
  void UpdateStartEndCoordinates(std::int64_t frame, bool isStart) override;
  void OnObjectModified() override;
  void OnVideoLengthIncreased(std::int64_t length) override;

  /// The picture as it was read; invalid if it could not be.
  wxImage GetImage() const { return m_image; }
  /// The look.
  AnnImageProperties const &ImageProperties() const { return m_look; }
  /// Reads a file, which the look and the document name then. If it cannot be read, what was
  /// painted before goes on being painted, under its name.
  void SetImage(wxString const &path);

  /// That of the shape, and whether the picture is mirrored.
  void RememberCurrentPosition();
  /// Mirrors the picture, relative to the start of the drag, when the rectangle is mirrored; then
  /// as the shape does. Takes the store's mutex.
  void CheckIfReflectedAlongAxis(bool adjustOrder);
  /// Fits the rectangle into an annotated picture of `size`, upright: as large as it can be, with
  /// or without the picture's own proportions.
  void FitToImage(wxSize const &size);
  /// The picture at its own size, upright and unmirrored, about the rectangle's centre. It keeps
  /// its proportions from now on.
  void ResetToOriginal();

  /// The rectangle of a drag whose width is that of the drag and whose height is `ratio` times
  /// that; with ratio 0 both corners are those of the drag.
  static wxRect GetRectKeepAspectRatio(wxPoint const &first, wxPoint const &second, double ratio);
  /// Makes pixels white whose mean is at least 255 - `tolerance`, and black where it is at most
  /// `tolerance`. Alpha stays.
  static void ApplyWhiteBlackToleranceToImage(wxImage &image, unsigned char tolerance);
  /// A bitmap of a picture in which the colour is transparent, if it is Ok, with the tolerance of
  /// lossy files.
  static wxBitmap GetBitmapWithTransparentColour(wxImage const &image, wxColour const &colour,
                                                 bool mirrored);

private:
  void initFromJSONVal() override;
  void onCornersDragged(bool isResize) override;
  void initializeRectangleProperties();
  void readPicture(wxString const &path);
  void updateRectSizeOnKeepAspectRatio();
  void updateBitmap();
  /// Makes the bitmap anew only if the frame's flag is another one than the bitmap's.
  void updateMirroring();
  void giveFrameItsOwnFlag();
  void setJSONValBothCoordinates();
  void setImageMirrored(bool mirrored);

  bool m_rememberedMirrored = false;
  double m_imageAngle = 0.0;  ///< radians, at which the bitmap is painted
  wxImage m_image;            ///< as read, never mirrored
  wxBitmap m_bitmap;          ///< as painted: mirrored, with its mask
  bool m_isBitmapMirrored = false;
  AnnImageCoordinates m_imageCoordinates;
};
