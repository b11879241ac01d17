// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <wx/bitmap.h>
#include <wx/image.h>

#include "modes/box_tool_mode.h"
#include "modes/pasted_pictures.h"
#include "properties/ann_image_properties.h"

/// Drags out pasted pictures. The picture is chosen before: without one no drag starts. It stays
/// for the next drags.
class FRAMENOTE_API AnnImageToolMode : public BoxToolMode,
                                       public std::enable_shared_from_this<AnnImageToolMode> {
public:
  /// Made by `tool`, which owns it.
  AnnImageToolMode(Types modeId, AnnotationTool *tool);

  bool CanStartDrawing() const override { return HasPicture(); }
  /// The panel asks for a picture; the next press starts the drag.
  void OnDrawingRefused() override;
  void DrawPreview(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset) override;
  void OnMouseResizing(wxMouseEvent const &event) override;

  /// Takes the picture in a file, which `m_properties` names then, and gives it to the selected
  /// picture object; a file that cannot be read leaves the mode without a picture.
  void SetPicture(wxString const &path);
  /// Takes a picture. An invalid one leaves the mode without, and empties the record's file name.
  void SetPictureImage(wxImage const &image);
  /// The transparent colour has changed. Does nothing without a picture.
  void UpdatePictureBitmap();
  /// What the objects of this mode share.
  framenote::PastedPictures &Pictures() { return m_pictures; }
  bool HasPicture() const { return m_pictureBitmap.IsOk(); }  ///< whether a drag can start
  /// Height over width of the picture; 0 before there was one.
  double GetAspectRatio() const { return m_aspectRatio; }

  /// The look of the next picture object. Never null.
  std::shared_ptr<AnnImageProperties> m_properties;

private:
  void finishBox(wxRect const &rect) override;
  wxRect rectOfDrag(wxMouseEvent const &event) const override;
  void makePictureBitmap();

  framenote::PastedPictures m_pictures;
  wxImage m_picture;
  wxBitmap m_pictureBitmap;
  double m_aspectRatio = 0.0;
};
