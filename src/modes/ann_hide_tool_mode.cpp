// SPDX-License-Identifier: MIT
#include "modes/ann_hide_tool_mode.h"

#include "framenote/annotation_tool.h"
#include "objects/ann_hide.h"
#include "objects/hidden_picture_cache.h"
#include "objects/picture_pixels.h"
#include "painters/drawing_tools.h"

AnnHideToolMode::AnnHideToolMode(Types modeId, AnnotationTool *tool)
    : BoxToolMode(modeId, tool),
      m_properties(std::make_shared<AnnHideProperties>()),
      m_wholePictures(std::make_unique<framenote::HiddenPictureCache>()) {}

AnnHideToolMode::~AnnHideToolMode() = default;

void AnnHideToolMode::SetPicture(wxImage const &image) {
  m_wholePictures->SetPicture(image);
}

void AnnHideToolMode::startDrawing() {
  bool const isCurrent = m_preview && m_cachedStrength == m_properties->GetStrength() &&
                         m_cachedFrame == m_tool->GetMediaInfo().frameIndex;
  if (!isCurrent) makePreview();
}

void AnnHideToolMode::RefreshPreview() {
  m_preview.reset();
  if (isDrawing()) makePreview();
}

void AnnHideToolMode::makePreview() {
  m_preview.reset();
  m_cachedStrength = m_properties->GetStrength();
  m_cachedFrame = GetToolCurrentFrame();
  wxImage const &picture = m_tool->GetImage();
  if (picture.IsOk()) m_preview = m_wholePictures->Get(picture, m_cachedStrength);
}

void AnnHideToolMode::finishBox(wxRect const &rect) {
  finishDrawing(std::make_unique<AnnHide>(m_tool->GetToolModes().shape, shared_from_this(), rect,
                                          m_tool->GetImage(), m_tool->GetMediaInfo().frameIndex));
}

wxBitmap AnnHideToolMode::previewOf(wxRect const &part) const {
  bool const isBlur = m_properties->GetEffect() == AnnHideProperties::Blur;
  return framenote::RenderedBitmap(isBlur ? m_preview->Blurred() : m_preview->Pixelated(), part);
}

void AnnHideToolMode::DrawPreview(std::unique_ptr<IAnnPainter> &painter,
                                  wxPoint2DDouble const &offset) {
  if (!hasPreview(painter) || !m_preview || !m_properties->HasKnownEffect()) return;
  // The picture may be another one by now, of another size.
  wxRect const worked(wxPoint(0, 0), m_preview->Size());
  wxRect const visible =
      rect().Intersect(framenote::RectOfPicture(m_tool->GetImage())).Intersect(worked);
  if (!visible.IsEmpty()) {
    previewCut(painter, offset, previewOf(visible), visible, m_properties->GetShape());
  }
  if (framenote::IsVisible(m_properties->GetBorderColor())) {
    previewBorder(*painter, onSurface(painter, offset), m_properties->GetShape(),
                  m_properties->GetBorderColor(), m_properties->GetThickness());
  }
}
