// SPDX-License-Identifier: MIT
#include "objects/ann_hide.h"

#include "modes/ann_hide_tool_mode.h"
#include "modes/ann_shape_tool_mode.h"
#include "objects/boxed_object_impl.h"
#include "objects/hidden_picture_cache.h"
#include "objects/object_painting.h"
#include "objects/picture_pixels.h"
#include "objects/shape_geometry.h"
#include "painters/ann_painter.h"
#include "painters/drawing_tools.h"
#include "talbase/picture.h"
#include "talcore/hide_selection.h"

template class framenote::BoxedObject<AnnHide, AnnHideToolMode, AnnHideProperties>;

namespace {

/// Never painted: an opaque fill makes all of the region hit.
wxColour OpaqueFill() {
  return {0, 0, 0, 255};
}

wxBitmap HideBitmap(wxImage const &image, int effect, int strength) {
  if (!image.IsOk()) return wxNullBitmap;
  Image const source = WxImageToImage(image);
  Image destination(source.Size(), source.Depth(), source.Channels(), nullptr, 0);
  tcvHideSelection(source, destination, effect, strength);
  wxImage const hidden = IplImageToWxImage(destination);
  return hidden.IsOk() ? wxBitmap(hidden, -1, 1.0) : wxNullBitmap;
}

}  // namespace

AnnHide::AnnHide(std::shared_ptr<AnnShapeToolMode> const &shapeMode,
                 std::shared_ptr<AnnHideToolMode> const &hideMode, wxRect const &rect,
                 wxImage const &image, std::int64_t frame)
    : BoxedObject(shapeMode, hideMode, rect, frame), m_sourceImage(&image) {
  initializeRectangleProperties();
  HideWholeImageAndStoreAsBitmap();
  UpdateSubImageAndSubBitmap();
  initMirrorOfNewObject();
}

AnnHide::AnnHide(std::shared_ptr<AnnShapeToolMode> const &shapeMode,
                 std::shared_ptr<AnnHideToolMode> const &hideMode, wxJSONValue const &json,
                 wxImage const &image)
    : BoxedObject(shapeMode, hideMode, json), m_sourceImage(&image) {
  AnnHide::initFromJSONVal();
  setJSONValLook();
  setJSONValRectangle();
}

AnnHide::AnnHide(AnnHide const &other)
    : BoxedObject(other),
      m_sourceImage(other.m_sourceImage),
      m_wholePictures(other.m_wholePictures),
      m_cachedStrength(other.m_cachedStrength),
      m_cachedFrame(other.m_cachedFrame),
      m_cachedPicture(other.m_cachedPicture),
      m_subBitmap(framenote::UnsharedCopy(other.m_subBitmap)),
      m_subBitmapRect(other.m_subBitmapRect),
      m_mask(other.m_mask) {}

AnnHide::~AnnHide() = default;

void AnnHide::initFromJSONVal() {
  if (!IsPresentInFrame(0) || !m_sourceImage->IsOk()) return;
  // The store stands at the end of its last run.
  AnnShape::UpdateCoordinatesPointers(0);
  HideWholeImageAndStoreAsBitmap();
  UpdateSubImageAndSubBitmap();
}

void AnnHide::initializeRectangleProperties() {
  setRectangleLook(m_look.GetShape(), m_look.GetBorderColor(), OpaqueFill(), m_look.GetThickness());
  setBorderLook(m_look.GetBorderColor(), m_look.GetThickness());
}

wxBitmap AnnHide::GetBlurredBitmapFromImage(wxImage const &image, int strength) {
  return HideBitmap(image, AnnHideProperties::Blur, strength);
}

wxBitmap AnnHide::GetPixelatedBitmapFromImage(wxImage const &image, int strength) {
  return HideBitmap(image, AnnHideProperties::Pixelation, strength);
}

wxBitmap AnnHide::GetRotatedMaskBitmap(wxPoint2DDouble const &offset, int width, int height,
                                       int shapeWidth, int shapeHeight, double angle,
                                       AnnShapeProperties::Shape shape) {
  return framenote::RotatedMaskBitmap(offset, width, height, shapeWidth, shapeHeight, angle, shape);
}

// All pixels that the outline touches, the last row and column too.
wxRect AnnHide::getIntersectionWithImage() const {
  auto const record = currentRecord();
  if (!record) return {};
  return framenote::BoundsOf(*record).Intersect(framenote::RectOfPicture(*m_sourceImage));
}

bool AnnHide::isWholeCurrent() const {
  return m_wholePictures && m_sourceImage->IsOk() &&
         m_wholePictures->Size() == m_sourceImage->GetSize() &&
         m_cachedStrength == m_look.GetStrength() &&
         m_cachedFrame == m_kindMode->GetToolCurrentFrame() &&
         m_cachedPicture == m_kindMode->WholePictures().PictureNumber();
}

void AnnHide::HideWholeImageAndStoreAsBitmap() {
  if (!m_sourceImage->IsOk()) return;
  int const strength = m_look.GetStrength();
  framenote::HiddenPictureCache &cache = m_kindMode->WholePictures();
  m_wholePictures = cache.Get(*m_sourceImage, strength);
  m_cachedStrength = strength;
  m_cachedFrame = m_kindMode->GetToolCurrentFrame();
  m_cachedPicture = cache.PictureNumber();
}

wxBitmap AnnHide::wholeCut(wxRect const &part) const {
  bool const isBlur = m_look.GetEffect() == AnnHideProperties::Blur;
  return framenote::RenderedBitmap(
      isBlur ? m_wholePictures->Blurred() : m_wholePictures->Pixelated(), part);
}

wxBitmap AnnHide::partHidden(wxRect const &part) const {
  bool const isBlur = m_look.GetEffect() == AnnHideProperties::Blur;
  framenote::HiddenPicture const hidden(
      framenote::PixelsOf(*m_sourceImage),
      isBlur ? framenote::HideEffect::Blur : framenote::HideEffect::Pixelation,
      m_look.GetStrength(), framenote::AreaOf(part));
  return framenote::RenderedBitmap(hidden, part);
}

void AnnHide::UpdateSubImageAndSubBitmap() {
  if (!isWholeCurrent()) HideWholeImageAndStoreAsBitmap();
  showPart(&AnnHide::wholeCut);
}

void AnnHide::UpdateSubImageAndStoreAsSubBitmap() {
  showPart(&AnnHide::partHidden);
}

void AnnHide::showPart(wxBitmap (AnnHide::*hidden)(wxRect const &) const) {
  // The old bitmap goes first, so that the new one takes its memory.
  m_subBitmap = wxNullBitmap;
  m_subBitmapRect = getIntersectionWithImage();
  m_shownPicture = m_kindMode->WholePictures().PictureNumber();
  if (m_subBitmapRect.IsEmpty() || !m_look.HasKnownEffect()) return;
  m_subBitmap = (this->*hidden)(m_subBitmapRect);
  setSubBitmapMask();
}

bool AnnHide::IsUpToDate() const {
  auto const record = currentRecord();
  if (m_shownPicture != m_kindMode->WholePictures().PictureNumber() ||
      m_subBitmapRect != getIntersectionWithImage()) {
    return false;
  }
  return !record || !m_subBitmap.IsOk() ||
         m_mask.IsFor(m_subBitmapRect, *record, GetRotationAngle(), m_look.GetShape());
}

void AnnHide::setSubBitmapMask() {
  auto const record = currentRecord();
  if (!record || !m_subBitmap.IsOk()) return;
  m_mask.Cut(m_subBitmap, m_subBitmapRect, *record, GetRotationAngle(), m_look.GetShape());
}

void AnnHide::Draw(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset) const {
  auto const record = currentRecord();
  if (!painter || !record) return;
  wxPoint2DDouble const shift = framenote::PaintingOffset(painter, offset);
  if (m_subBitmap.IsOk()) {
    painter->DrawBitmap(wxPoint2DDouble(m_subBitmapRect.GetPosition()) + shift, m_subBitmap);
  }
  if (framenote::IsVisible(m_look.GetBorderColor())) {
    drawBorder(*painter, *record, shift,
               {m_look.GetShape(), m_look.GetBorderColor(), m_look.GetThickness()});
  }
}

void AnnHide::MoveFor(wxPoint2DInt const &delta) {
  if (delta == wxPoint2DInt()) return;
  AnnShape::MoveFor(delta);
  UpdateSubImageAndSubBitmap();
}

void AnnHide::MoveAllFramesFor(wxPoint2DInt const &delta) {
  if (delta == wxPoint2DInt()) return;
  AnnShape::MoveAllFramesFor(delta);
  UpdateSubImageAndSubBitmap();
}

void AnnHide::onCornersDragged(bool) {
  UpdateSubImageAndSubBitmap();
}

bool AnnHide::WouldDisappear() const {
  auto const record = currentRecord();
  if (!record || IsPoint(*record) || IsLine(*record)) return true;
  return !m_subBitmap.IsOk() && isFullyTransparent();
}

wxColour AnnHide::GetDominantColor() {
  wxColour const border = m_look.GetBorderColor();
  return framenote::IsVisible(border) ? border : m_defaultColor;
}

void AnnHide::UpdateProperties() {
  AnnHideProperties const &look = *m_kindMode->m_properties;
  bool const isEffectNew =
      look.GetEffect() != m_look.GetEffect() || look.GetStrength() != m_look.GetStrength();
  bool const isShapeNew = look.GetShape() != m_look.GetShape();
  m_look = look;
  setJSONValLook();
  if (isEffectNew && isWholeCurrent()) {
    UpdateSubImageAndSubBitmap();
  } else if (isEffectNew) {
    UpdateSubImageAndStoreAsSubBitmap();
  } else if (isShapeNew) {
    setSubBitmapMask();
  }
  // The shape's own record keeps the kind that the region was made with: it is hit by that.
  setBorderLook(m_look.GetBorderColor(), m_look.GetThickness());
  setJSONValProperties();
  setJSONValRectangle();
}
