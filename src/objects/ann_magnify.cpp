// SPDX-License-Identifier: MIT
#include "objects/ann_magnify.h"

#include <algorithm>
#include <cmath>
#include <mutex>

#include "coordinates/pixel_geometry.h"
#include "modes/ann_magnify_tool_mode.h"
#include "modes/ann_shape_tool_mode.h"
#include "objects/boxed_object_impl.h"
#include "objects/lens_view.h"
#include "objects/picture_pixels.h"

template class framenote::BoxedObject<AnnMagnify, AnnMagnifyToolMode, AnnMagnifyProperties>;

namespace {

/// Screen pixels from the centre within which it is held.
constexpr double kCentreTolerance = 15.0;

}  // namespace

AnnMagnify::AnnMagnify(std::shared_ptr<AnnShapeToolMode> const &shapeMode,
                       std::shared_ptr<AnnMagnifyToolMode> const &magnifyMode, wxRect const &rect,
                       wxImage const &image, std::int64_t frame)
    : BoxedObject(shapeMode, magnifyMode, rect, frame),
      m_sourceImage(&image),
      m_centerCoordinates(magnifyMode->GetToolFrameCount(), frame) {
  initializeRectangleProperties();
  ZoomWholeImageAndStoreAsBitmap();
  UpdateSubImageAndSubBitmap(false);
  initMirrorOfNewObject();
  setJSONValCoordsCenterPoint();
}

AnnMagnify::AnnMagnify(std::shared_ptr<AnnShapeToolMode> const &shapeMode,
                       std::shared_ptr<AnnMagnifyToolMode> const &magnifyMode,
                       wxJSONValue const &json, wxImage const &image)
    : BoxedObject(shapeMode, magnifyMode, json),
      m_sourceImage(&image),
      m_centerCoordinates(json.ItemAt(coordinatesCenterPointKey),
                          magnifyMode->GetToolFrameCount()) {
  AnnMagnify::initFromJSONVal();
  setJSONValLook();
  setJSONValRectangle();
}

AnnMagnify::AnnMagnify(AnnMagnify const &other)
    : BoxedObject(other),
      m_sourceImage(other.m_sourceImage),
      m_subBitmap(framenote::UnsharedCopy(other.m_subBitmap)),
      m_subBitmapRect(other.m_subBitmapRect),
      m_cachedZoom(other.m_cachedZoom),
      m_atCenterPoint(other.m_atCenterPoint),
      m_centerCoordinates(other.m_centerCoordinates),
      m_mask(other.m_mask) {}

AnnMagnify::~AnnMagnify() = default;

bool AnnMagnify::IsJSONValid(wxJSONValue const &json) {
  return BoxedObject::IsJSONValid(json) && json.ItemAt(coordinatesCenterPointKey).IsValid();
}

void AnnMagnify::initFromJSONVal() {
  if (!IsPresentInFrame(0) || !m_sourceImage->IsOk()) return;
  // The stores stand at the ends of their last runs.
  AnnMagnify::UpdateCoordinatesPointers(0);
  ZoomWholeImageAndStoreAsBitmap();
  UpdateSubImageAndSubBitmap(false);
}

// The opaque fill is never painted: it makes all of the lens hit.
void AnnMagnify::initializeRectangleProperties() {
  setRectangleLook(m_look.GetShape(), m_look.GetBorderColor(), wxColour(0, 0, 0, 255),
                   m_look.GetThickness());
  setBorderLook(m_look.GetBorderColor(), m_look.GetThickness());
}

double AnnMagnify::zoom() const {
  return framenote::UsableZoom(m_look.GetZoom());
}

bool AnnMagnify::isCenterPointAtDefaultPosition() const {
  std::lock_guard<std::mutex> const lock(m_centerCoordinates.GetMutex());
  return m_centerCoordinates.AreCurrentCoordinatesEmpty();
}

wxPoint2DDouble AnnMagnify::getCenterPoint() const {
  auto const record = currentRecord();
  std::lock_guard<std::mutex> const lock(m_centerCoordinates.GetMutex());
  if (!m_centerCoordinates.AreCurrentCoordinatesEmpty()) {
    return m_centerCoordinates.Coords().m_centerPoint;
  }
  if (!record) return {};
  return (record->m_topLeft + record->m_bottomRight) * 0.5;
}

// From the lens to what it shows.
wxPoint AnnMagnify::sourceShift() const {
  auto const record = currentRecord();
  if (!record || isCenterPointAtDefaultPosition()) return {0, 0};
  return GetRounded(getCenterPoint() - (record->m_topLeft + record->m_bottomRight) * 0.5);
}

wxRect AnnMagnify::GetContainingRect(wxPoint const &shift) const {
  wxRect rect = AnnShape::GetContainingRect(m_kindMode->GetToolCurrentFrame());
  if (!isCenterPointAtDefaultPosition()) rect.Offset(shift);
  return rect;
}

wxRect AnnMagnify::getIntersectionWithImage(wxPoint const &shift) const {
  return GetContainingRect(shift).Intersect(framenote::RectOfPicture(*m_sourceImage));
}

void AnnMagnify::ZoomWholeImageAndStoreAsBitmap() {
  if (!m_sourceImage->IsOk()) return;
  m_cachedZoom = zoom();
}

void AnnMagnify::UpdateSubImageAndSubBitmap(bool fromPart) {
  if (!fromPart) ZoomWholeImageAndStoreAsBitmap();
  wxPoint const shift = sourceShift();
  wxRect const source = getIntersectionWithImage(shift);
  m_subBitmap = wxNullBitmap;
  m_subBitmapRect = wxRect();
  if (source.IsEmpty()) return;
  framenote::PixelView const picture = framenote::PixelsOf(*m_sourceImage);
  wxRect const view = framenote::LensView(*m_sourceImage, GetContainingRect(shift), shift);
  framenote::LensImage const lens =
      fromPart ? framenote::EnlargeInLens(framenote::PartOf(picture, source), source, source, view,
                                          zoom(), framenote::ZoomMethod::Nearest)
               : framenote::EnlargeInLens(picture, framenote::RectOfPicture(*m_sourceImage), source,
                                          view, zoom(),
                                          framenote::ZoomMethodOf(m_look.GetZoomMethodNumber()));
  m_subBitmap = lens.bitmap;
  // What is shown goes back from the source area to the lens.
  m_subBitmapRect = lens.rect;
  m_subBitmapRect.Offset(-shift);
  setSubBitmapMask();
}

void AnnMagnify::setSubBitmapMask() {
  auto const record = currentRecord();
  if (!record || !m_subBitmap.IsOk()) return;
  m_mask.Cut(m_subBitmap, m_subBitmapRect, *record, GetRotationAngle(), m_look.GetShape());
}

void AnnMagnify::ResizeOnZoom(double zoom) {
  if (!(m_cachedZoom > 0.0)) return;
  double const growth = framenote::UsableZoom(zoom) / m_cachedZoom - 1.0;
  changeCorners([growth](AnnShapePoints &record) {
    wxPoint2DDouble const centre = (record.m_topLeft + record.m_bottomRight) * 0.5;
    for (auto const corner : {&AnnShapePoints::m_topLeft, &AnnShapePoints::m_topRight,
                              &AnnShapePoints::m_bottomRight, &AnnShapePoints::m_bottomLeft}) {
      record.*corner += (record.*corner - centre) * growth;
    }
  });
  // Until it is refreshed, the next change is measured from here.
  m_cachedZoom = framenote::UsableZoom(zoom);
}

bool AnnMagnify::IsAtCenterPoint(wxPoint2DInt const &point) {
  double const distance = getCenterPoint().GetDistance(wxPoint2DDouble(point));
  m_atCenterPoint =
      currentRecord() &&
      distance <= kCentreTolerance / framenote::UsableScale(m_kindMode->GetToolScale());
  return m_atCenterPoint;
}

void AnnMagnify::ResetCenterPosition() {
  {
    std::lock_guard<std::mutex> const lock(m_centerCoordinates.GetMutex());
    m_centerCoordinates.Clear();
  }
  setJSONValCoordsCenterPoint();
  UpdateSubImageAndSubBitmap(false);
}

void AnnMagnify::setJSONValCoordsCenterPoint() {
  m_centerCoordinates.UpdateJSONValCoordinates(m_startFrame, m_endFrame);
  m_outerJsonVal.Set(coordinatesCenterPointKey, m_centerCoordinates.ToJSON());
}

void AnnMagnify::moveCentre(wxPoint2DInt const &delta) {
  growToCurrentFrame();
  auto const record = currentRecord();
  {
    std::lock_guard<std::mutex> const lock(m_centerCoordinates.GetMutex());
    std::int64_t const frame = m_kindMode->GetToolCurrentFrame();
    bool const wasAtDefaultPosition = m_centerCoordinates.AreCoordinatesEmpty(frame);
    m_centerCoordinates.AddNewCoordinates(frame);
    wxPoint2DDouble &centre = m_centerCoordinates.CoordsEditable().m_centerPoint;
    if (wasAtDefaultPosition && record) {
      centre = (record->m_topLeft + record->m_bottomRight) * 0.5;
    }
    // The middle of far corners overflows.
    centre = framenote::MakeFinite(centre + wxPoint2DDouble(delta));
    m_centerCoordinates.SetCoordinatesNotUpdatedInJson();
  }
  UpdateSubImageAndSubBitmap(false);
}

void AnnMagnify::MoveFor(wxPoint2DInt const &delta) {
  if (delta == wxPoint2DInt()) return;
  if (m_atCenterPoint) {
    moveCentre(delta);
    return;
  }
  AnnShape::MoveFor(delta);
  if (isCenterPointAtDefaultPosition()) {
    UpdateSubImageAndSubBitmap(false);
  } else {
    moveView(delta);
  }
}

void AnnMagnify::MoveAllFramesFor(wxPoint2DInt const &delta) {
  if (delta == wxPoint2DInt()) return;
  AnnShape::MoveAllFramesFor(delta);
  moveView(delta);
}

// The lens shows the same as before.
void AnnMagnify::moveView(wxPoint2DInt const &delta) {
  wxPoint2DInt const position =
      framenote::AddPixels(wxPoint2DInt(m_subBitmapRect.GetPosition()), delta);
  m_subBitmapRect.SetPosition(wxPoint(position.m_x, position.m_y));
}

void AnnMagnify::onCornersDragged(bool) {
  UpdateSubImageAndSubBitmap(false);
}

bool AnnMagnify::HasCollapsed() const {
  auto const record = currentRecord();
  return !record || IsPoint(*record) || IsLine(*record);
}

bool AnnMagnify::WouldDisappear() const {
  if (HasCollapsed()) return true;
  return !m_subBitmap.IsOk() && m_look.GetBorderType() == AnnMagnifyProperties::Transparent;
}

wxColour AnnMagnify::GetDominantColor() {
  bool const hasBorder = m_look.GetBorderType() != AnnMagnifyProperties::Transparent;
  return hasBorder ? m_look.GetBorderColor() : m_defaultColor;
}

void AnnMagnify::UpdateProperties() {
  AnnMagnifyProperties const &look = *m_kindMode->m_properties;
  // Two values that are no numbers are not equal, which here would never be a change.
  bool const isZoomNew = framenote::UsableZoom(look.GetZoom()) != zoom();
  bool const isMethodNew = look.GetZoomMethodNumber() != m_look.GetZoomMethodNumber();
  bool const isShapeNew = look.GetShape() != m_look.GetShape();
  m_look = look;
  setJSONValLook();
  if (isZoomNew) {
    if (m_look.GetFixedSourceSize()) {
      ResizeOnZoom(m_look.GetZoom());
      setJSONValCoordinates();
    }
    UpdateSubImageAndSubBitmap(false);
  } else if (isMethodNew) {
    UpdateSubImageAndSubBitmap(false);
  } else if (isShapeNew) {
    setSubBitmapMask();
  }
  // The shape's own record keeps the kind that the lens was made with: it is hit by that.
  setBorderLook(m_look.GetBorderColor(), m_look.GetThickness());
  setJSONValProperties();
  setJSONValRectangle();
}

void AnnMagnify::UpdateCoordinatesPointers(std::int64_t frame) {
  AnnShape::UpdateCoordinatesPointers(frame);
  if (frame < 0 || AreCoordinatesEmpty(frame)) return;
  std::lock_guard<std::mutex> const lock(m_centerCoordinates.GetMutex());
  m_centerCoordinates.UpdateCoordinatesPointers(frame);
}

void AnnMagnify::DuplicateLastCoordinates(std::int64_t frame) {
  if (!m_atCenterPoint) {
    AnnShape::DuplicateLastCoordinates(frame);
  } else if (frame > m_startFrame) {
    m_centerCoordinates.DuplicateLastCoordinates(frame);
  }
}

void AnnMagnify::UpdateStartEndCoordinates(std::int64_t frame, bool isStart) {
  AnnShape::UpdateStartEndCoordinates(frame, isStart);
  m_centerCoordinates.UpdateStartEndCoordinates(m_startFrame, m_endFrame, frame, isStart);
}

void AnnMagnify::OnObjectModified() {
  BoxedObject::OnObjectModified();
  setJSONValCoordsCenterPoint();
}
