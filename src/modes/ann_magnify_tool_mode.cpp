// SPDX-License-Identifier: MIT
#include "modes/ann_magnify_tool_mode.h"

#include "framenote/annotation_tool.h"
#include "objects/ann_magnify.h"
#include "objects/lens_view.h"
#include "objects/picture_pixels.h"

AnnMagnifyToolMode::AnnMagnifyToolMode(Types modeId, AnnotationTool *tool)
    : BoxToolMode(modeId, tool), m_properties(std::make_shared<AnnMagnifyProperties>()) {}

void AnnMagnifyToolMode::finishBox(wxRect const &rect) {
  finishDrawing(std::make_unique<AnnMagnify>(m_tool->GetToolModes().shape, shared_from_this(), rect,
                                             m_tool->GetImage(),
                                             m_tool->GetMediaInfo().frameIndex));
}

bool AnnMagnifyToolMode::takeCenterPoint() {
  auto *const lens = selectedAs<AnnMagnify>();
  if (lens == nullptr || !lens->IsAtCenterPoint(m_tool->m_mousePosition)) return false;
  m_tool->m_pressPosition = m_tool->m_mousePosition;
  m_tool->m_cursor = wxCURSOR_QUESTION_ARROW;
  return true;
}

// The centre outranks the handles.
void AnnMagnifyToolMode::OnMouseSelected(wxMouseEvent const &event) {
  if (event.GetEventType() == wxEVT_LEFT_DOWN && takeCenterPoint()) {
    m_tool->m_state = ToolState::Moving;
    return;
  }
  BoxToolMode::OnMouseSelected(event);
  if (event.GetEventType() == wxEVT_MOTION && takeCenterPoint()) {
    m_tool->m_state = ToolState::Selected;
  }
}

void AnnMagnifyToolMode::DrawPreview(std::unique_ptr<IAnnPainter> &painter,
                                     wxPoint2DDouble const &offset) {
  wxImage const &picture = m_tool->GetImage();
  if (!hasPreview(painter) || !picture.IsOk()) return;
  wxRect const area = framenote::RectOfPicture(picture);
  wxRect const visible = area.Intersect(rect());
  if (!visible.IsEmpty()) {
    framenote::LensImage const lens =
        framenote::EnlargeInLens(framenote::PixelsOf(picture), area, visible,
                                 framenote::LensView(picture, rect(), wxPoint(0, 0)),
                                 framenote::UsableZoom(m_properties->GetZoom()),
                                 framenote::ZoomMethodOf(m_properties->GetZoomMethodNumber()));
    previewCut(painter, offset, lens.bitmap, lens.rect, m_properties->GetShape());
  }
  if (m_properties->GetBorderType() != AnnMagnifyProperties::Transparent) {
    previewBorder(*painter, onSurface(painter, offset), m_properties->GetShape(),
                  m_properties->GetBorderColor(), m_properties->GetThickness());
  }
}
