// SPDX-License-Identifier: MIT
#include "modes/ann_image_tool_mode.h"

#include "coordinates/pixel_geometry.h"
#include "framenote/annotation_tool.h"
#include "objects/ann_image.h"
#include "objects/object_painting.h"
#include "painters/ann_painter.h"

AnnImageToolMode::AnnImageToolMode(Types modeId, AnnotationTool *tool)
    : BoxToolMode(modeId, tool), m_properties(std::make_shared<AnnImageProperties>()) {}

void AnnImageToolMode::SetPicture(wxString const &path) {
  wxImage const picture = m_pictures.Read(path);
  SetPictureImage(picture);
  if (!picture.IsOk()) return;
  m_properties->SetFileName(wxFileName(path));
  if (auto *const image = selectedAs<AnnImage>()) {
    image->SetImage(path);
    m_tool->Refresh();
    m_tool->onObjectsModified();
  }
}

void AnnImageToolMode::SetPictureImage(wxImage const &image) {
  if (!image.IsOk()) {
    m_pictureBitmap = wxBitmap();
    m_properties->SetFileName(wxFileName());
    m_tool->UpdatePanelControls(m_modeId);
    return;
  }
  m_picture = image;
  makePictureBitmap();
  m_aspectRatio = static_cast<double>(image.GetHeight()) / image.GetWidth();
}

void AnnImageToolMode::OnDrawingRefused() {
  m_tool->OnAnnImageNotSet();
}

void AnnImageToolMode::UpdatePictureBitmap() {
  if (m_pictureBitmap.IsOk()) makePictureBitmap();
}

void AnnImageToolMode::makePictureBitmap() {
  m_pictureBitmap = m_pictures.BitmapOf(m_picture, m_properties->GetTransparentWxColour(), false);
}

wxRect AnnImageToolMode::rectOfDrag(wxMouseEvent const &) const {
  double const ratio = m_properties->GetKeepAspectRatio() ? m_aspectRatio : 0.0;
  return AnnImage::GetRectKeepAspectRatio(pressPixel(), mousePixel(), ratio);
}

void AnnImageToolMode::finishBox(wxRect const &rect) {
  insertAndSelect(std::make_unique<AnnImage>(m_tool->GetToolModes().shape, shared_from_this(), rect,
                                             m_tool->GetMediaInfo().frameIndex));
  if (m_tool->hasSelection()) m_tool->setNextStateOnSelected();
  m_tool->onObjectsModified();
}

void AnnImageToolMode::OnMouseResizing(wxMouseEvent const &event) {
  bool const isMotion = event.GetEventType() == wxEVT_MOTION;
  if (!isMotion && event.GetEventType() != wxEVT_LEFT_UP) return;
  auto *const image = selectedAs<AnnImage>();
  if (image == nullptr) {
    // An object of another kind is selected while the host has made this mode active.
    BoxToolMode::OnMouseResizing(event);
    return;
  }
  if (isMotion) image->ResizeTo(m_tool->m_mousePosition, m_properties->GetKeepAspectRatio());
  image->CheckIfReflectedAlongAxis(!isMotion);
  if (!isMotion) finishResizing();
}

void AnnImageToolMode::DrawPreview(std::unique_ptr<IAnnPainter> &painter,
                                   wxPoint2DDouble const &offset) {
  if (!painter || !isDrawing()) return;
  int const width = rect().width;
  int const height = m_properties->GetKeepAspectRatio()
                         ? framenote::TruncateToInt(width * m_aspectRatio)
                         : rect().height;
  if (width <= 0 || height <= 0) return;
  wxPoint2DDouble const corner(rect().GetPosition());
  painter->DrawImage(corner + framenote::PaintingOffset(painter, offset) +
                         wxPoint2DDouble(width * 0.5, height * 0.5),
                     width, height, 0.0, m_pictureBitmap);
}
