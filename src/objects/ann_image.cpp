// SPDX-License-Identifier: MIT
#include "objects/ann_image.h"

#include <cmath>
#include <mutex>

#include "coordinates/pixel_geometry.h"
#include "modes/ann_image_tool_mode.h"
#include "modes/ann_shape_tool_mode.h"
#include "objects/boxed_object_impl.h"
#include "objects/object_painting.h"
#include "objects/shape_geometry.h"
#include "painters/ann_painter.h"

template class framenote::BoxedObject<AnnImage, AnnImageToolMode, AnnImageProperties>;

namespace {

/// Levels by which lossy files miss pure white and black.
constexpr unsigned char kTolerance = 3;
/// By which share a side may miss the picture's proportions and still have them.
constexpr double kRounding = 1e-9;

void SetUprightCorners(AnnShapePoints &record, wxPoint2DDouble const &centre, double halfWidth,
                       double halfHeight) {
  record.m_topLeft = centre + wxPoint2DDouble(-halfWidth, -halfHeight);
  record.m_topRight = centre + wxPoint2DDouble(halfWidth, -halfHeight);
  record.m_bottomRight = centre + wxPoint2DDouble(halfWidth, halfHeight);
  record.m_bottomLeft = centre + wxPoint2DDouble(-halfWidth, halfHeight);
}

}  // namespace

AnnImage::AnnImage(std::shared_ptr<AnnShapeToolMode> const &shapeMode,
                   std::shared_ptr<AnnImageToolMode> const &imageMode, wxRect const &rect,
                   std::int64_t frame)
    : BoxedObject(shapeMode, imageMode, rect, frame),
      m_imageCoordinates(imageMode->GetToolFrameCount(), frame, m_coordinates) {
  initializeRectangleProperties();
  readPicture(m_look.GetFileName().GetFullPath(wxPATH_NATIVE));
  // The rectangle may have taken the picture's proportions, and its mirror has the flag beside it.
  setJSONValBothCoordinates();
  initMirrorOfNewObject();
}

AnnImage::AnnImage(std::shared_ptr<AnnShapeToolMode> const &shapeMode,
                   std::shared_ptr<AnnImageToolMode> const &imageMode, wxJSONValue const &json)
    : BoxedObject(shapeMode, imageMode, json),
      m_imageCoordinates(json.ItemAt(coordinatesKey), imageMode->GetToolFrameCount(),
                         m_coordinates) {
  AnnImage::initFromJSONVal();
  setJSONValLook();
  setJSONValRectangle();
}

AnnImage::AnnImage(AnnImage const &other)
    : BoxedObject(other),
      m_rememberedMirrored(other.m_rememberedMirrored),
      m_imageAngle(other.m_imageAngle),
      m_image(other.m_image),
      m_bitmap(other.m_bitmap),
      m_isBitmapMirrored(other.m_isBitmapMirrored),
      m_imageCoordinates(other.m_imageCoordinates, m_coordinates) {}

AnnImage::~AnnImage() = default;

void AnnImage::initFromJSONVal() {
  m_imageAngle = GetRotationAngle();
  readPicture(m_look.GetFileName().GetFullPath(wxPATH_NATIVE));
}

void AnnImage::initializeRectangleProperties() {
  setRectangleLook(AnnShapeProperties::Rectangle, wxColour(0, 0, 0, 0), wxColour(0, 0, 0, 0), 0);
}

void AnnImage::SetImage(wxString const &path) {
  readPicture(path);
  if (!m_image.IsOk()) return;
  // The document names the picture that is seen, whoever has given it.
  m_look.SetFileName(wxFileName(path));
  setJSONValLook();
}

void AnnImage::readPicture(wxString const &path) {
  m_image = m_kindMode->Pictures().Read(path);
  if (!m_image.IsOk()) return;
  if (m_look.GetKeepAspectRatio()) updateRectSizeOnKeepAspectRatio();
  updateBitmap();
}

void AnnImage::updateRectSizeOnKeepAspectRatio() {
  if (!m_image.IsOk()) return;
  double const ratio = static_cast<double>(m_image.GetHeight()) / m_image.GetWidth();
  changeCorners([ratio](AnnShapePoints &record) {
    double const width = record.m_topLeft.GetDistance(record.m_topRight);
    wxPoint2DDouble const left = record.m_bottomLeft - record.m_topLeft;
    // A rectangle of no height has no side to stretch, and one of no bounds none to measure.
    double const length = left.GetVectorLength();
    if (!(length > 0.0) || !std::isfinite(length) || !std::isfinite(ratio * width)) return;
    // Rounding alone must not move a corner: a document is to be loaded as it was written.
    if (std::abs(length - ratio * width) <= kRounding * length) return;
    wxPoint2DDouble const down = framenote::WithLength(left, ratio * width);
    record.m_bottomLeft = record.m_topLeft + down;
    record.m_bottomRight = record.m_topRight + down;
  });
}

wxBitmap AnnImage::GetBitmapWithTransparentColour(wxImage const &image, wxColour const &colour,
                                                  bool mirrored) {
  if (!colour.IsOk()) return wxBitmap(mirrored ? image.Mirror(true) : image, -1, 1.0);
  wxImage copy = image.Copy();
  ApplyWhiteBlackToleranceToImage(copy, kTolerance);
  wxBitmap bitmap(mirrored ? copy.Mirror(true) : copy, -1, 1.0);
  bitmap.SetMask(new wxMask(bitmap, colour));  // owned by the bitmap
  return bitmap;
}

void AnnImage::updateBitmap() {
  if (!m_image.IsOk()) return;
  m_isBitmapMirrored = m_imageCoordinates.Coords().m_mirrored;
  m_bitmap =
      m_kindMode->Pictures().BitmapOf(m_image, m_look.GetTransparentWxColour(), m_isBitmapMirrored);
}

void AnnImage::updateMirroring() {
  if (m_imageCoordinates.Coords().m_mirrored != m_isBitmapMirrored) updateBitmap();
}

void AnnImage::ApplyWhiteBlackToleranceToImage(wxImage &image, unsigned char tolerance) {
  if (!image.IsOk()) return;
  for (int x = 0; x < image.GetWidth(); ++x) {
    for (int y = 0; y < image.GetHeight(); ++y) {
      double const mean = (image.GetRed(x, y) + image.GetGreen(x, y) + image.GetBlue(x, y)) / 3.0;
      if (mean >= 255 - tolerance) image.SetRGB(x, y, 255, 255, 255);
      if (mean <= tolerance) image.SetRGB(x, y, 0, 0, 0);
    }
  }
}

wxRect AnnImage::GetRectKeepAspectRatio(wxPoint const &first, wxPoint const &second, double ratio) {
  if (ratio == 0.0) return wxRect(first, second);
  int const dx = second.x - first.x;
  int const dy = second.y - first.y;
  bool const opposite = (dx < 0 && dy > 0) || (dx > 0 && dy < 0);
  double const height = (opposite ? -1.0 : 1.0) * ratio * dx;
  return wxRect(first, first + wxPoint(dx, framenote::TruncateToInt(height)));
}

void AnnImage::FitToImage(wxSize const &size) {
  m_imageAngle = 0.0;
  double halfWidth = size.x * 0.5;
  double halfHeight = size.y * 0.5;
  wxPoint2DDouble const centre(halfWidth, halfHeight);
  if (m_look.GetKeepAspectRatio() && m_image.IsOk()) {
    double const ratio = static_cast<double>(m_image.GetWidth()) / m_image.GetHeight();
    if (ratio <= halfWidth / halfHeight) {
      halfWidth = ratio * halfHeight;
    } else {
      halfHeight = halfWidth / ratio;
    }
  }
  UpdateRotationState(0.0);
  changeCorners(
      [&](AnnShapePoints &record) { SetUprightCorners(record, centre, halfWidth, halfHeight); });
}

void AnnImage::ResetToOriginal() {
  if (!m_image.IsOk()) return;
  m_look.SetKeepAspectRatio(true);
  setJSONValLook();
  m_rememberedMirrored = false;
  m_imageAngle = 0.0;
  UpdateRotationState(0.0);
  changeCorners([&](AnnShapePoints &record) {
    SetUprightCorners(record, (record.m_topLeft + record.m_bottomRight) * 0.5,
                      m_image.GetWidth() * 0.5, m_image.GetHeight() * 0.5);
  });
  setImageMirrored(false);
  updateMirroring();
}

void AnnImage::RememberCurrentPosition() {
  AnnShape::RememberCurrentPosition();
  auto const record = currentRecord();
  // As with the shape, one pixel is no position to start from.
  if (!record || IsPoint(*record)) return;
  std::lock_guard<std::mutex> const lock(m_imageCoordinates.GetMutex());
  // A drag that was cut off, or another program, may have left the corners in mirrored order.
  m_rememberedMirrored = m_imageCoordinates.Coords().m_mirrored != IsReflected(*record);
}

void AnnImage::PrepareResizing() {
  RememberCurrentPosition();
}

void AnnImage::CheckIfReflectedAlongAxis(bool adjustOrder) {
  {
    std::lock_guard<std::mutex> const lock(m_coordinates.GetMutex());
    if (m_coordinates.AreCurrentCoordinatesEmpty()) return;
    AnnShapePoints const &record = m_coordinates.Coords();
    m_imageAngle = GetRememberedAngle();
    if (IsRotatedByReflection(record)) m_imageAngle += framenote::kPi;
    setImageMirrored(IsReflected(record) != m_rememberedMirrored);
    AnnShape::CheckIfReflectedAlongAxis(lock, adjustOrder);
  }
  updateMirroring();
}

void AnnImage::setImageMirrored(bool mirrored) {
  std::lock_guard<std::mutex> const lock(m_imageCoordinates.GetMutex());
  if (m_imageCoordinates.AreCurrentCoordinatesEmpty() ||
      m_imageCoordinates.Coords().m_mirrored == mirrored) {
    return;
  }
  m_imageCoordinates.CoordsEditable().m_mirrored = mirrored;
  m_imageCoordinates.SetCoordinatesNotUpdatedInJson();
}

void AnnImage::giveFrameItsOwnFlag() {
  std::lock_guard<std::mutex> const lock(m_imageCoordinates.GetMutex());
  m_imageCoordinates.AddNewCoordinates(m_kindMode->GetToolCurrentFrame());
}

void AnnImage::MoveFor(wxPoint2DInt const &delta) {
  if (delta == wxPoint2DInt()) return;
  AnnShape::MoveFor(delta);
  giveFrameItsOwnFlag();
}

void AnnImage::onCornersDragged(bool isResize) {
  giveFrameItsOwnFlag();
  if (!isResize) m_imageAngle = GetRotationAngle();
}

void AnnImage::Draw(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset) const {
  auto const record = currentRecord();
  if (!painter || !record || !m_bitmap.IsOk()) return;
  double const width = record->m_topLeft.GetDistance(record->m_topRight);
  double const height = record->m_topLeft.GetDistance(record->m_bottomLeft);
  wxPoint2DDouble const centre = (record->m_topLeft + record->m_bottomRight) * 0.5 +
                                 framenote::PaintingOffset(painter, offset);
  painter->DrawImage(centre, width, height, m_imageAngle, m_bitmap);
}

bool AnnImage::Contains(wxPoint2DInt const &point) const {
  return boxContains(point);
}

bool AnnImage::WouldDisappear() const {
  auto const record = currentRecord();
  return !record || !m_image.IsOk() || !m_bitmap.IsOk() || IsPoint(*record) || IsLine(*record);
}

wxColour AnnImage::GetDominantColor() {
  return m_defaultColor;
}

void AnnImage::UpdateProperties() {
  m_look = *m_kindMode->m_properties;
  setJSONValLook();
  if (m_look.GetKeepAspectRatio()) updateRectSizeOnKeepAspectRatio();
  AnnImage::OnObjectModified();
  updateBitmap();
}

void AnnImage::OnSelection(bool isNew) {
  m_selected = true;
  // Before the record, which would lose the file's name with the picture.
  m_kindMode->SetPictureImage(m_image);
  *m_kindMode->m_properties = m_look;
  m_kindMode->UpdatePictureBitmap();
  m_kindMode->NotifyObjectSelected(isNew);
}

void AnnImage::UpdateCoordinatesPointers(std::int64_t frame) {
  AnnShape::UpdateCoordinatesPointers(frame);
  {
    std::lock_guard<std::mutex> const lock(m_imageCoordinates.GetMutex());
    m_imageCoordinates.UpdateCoordinatesPointers(frame);
  }
  if (AreCoordinatesEmpty(frame)) return;
  m_imageAngle = GetRotationAngle();
  updateMirroring();
}

void AnnImage::DuplicateLastCoordinates(std::int64_t frame) {
  AnnShape::DuplicateLastCoordinates(frame);
  if (frame > m_startFrame) m_imageCoordinates.DuplicateLastCoordinates(frame);
}

void AnnImage::UpdateStartEndCoordinates(std::int64_t frame, bool isStart) {
  AnnShape::UpdateStartEndCoordinates(frame, isStart);
  m_imageCoordinates.UpdateStartEndCoordinates(m_startFrame, m_endFrame, frame, isStart);
}

void AnnImage::OnObjectModified() {
  setJSONValBothCoordinates();
  setJSONValRectangle();
}

// Both stores have one array, which the picture's store completes.
void AnnImage::setJSONValBothCoordinates() {
  setJSONValCoordinates();
  m_imageCoordinates.UpdateJSONValCoordinates(m_startFrame, m_endFrame);
  m_jsonVal.Set(coordinatesKey, m_coordinates.ToJSON());
}

void AnnImage::OnVideoLengthIncreased(std::int64_t length) {
  AnnShape::OnVideoLengthIncreased(length);
  m_imageCoordinates.GrowCoordsVec(length);
}
