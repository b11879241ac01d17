// SPDX-License-Identifier: MIT
// The painting pass: one painter lives for one pass.
#include <algorithm>

#include <wx/dc.h>
#include <wx/window.h>

#include "framenote/annotation_tool.h"
#include "modes/annotation_tool_mode.h"
#include "objects/ann_hide.h"
#include "objects/annotation_object.h"
#include "painters/ann_painter.h"

void AnnotationTool::setDrawOn(wxWindow *window) {
  if (window == m_drawOn) return;
  m_drawOn = window;
  if (window == nullptr) return;
  // The hook ends with the tool. A window that comes back, as with each document that is loaded,
  // has it already and must not collect them. It is never taken off: wxWidgets clears away what was
  // taken off at the next event, and asserts if that comes within another one.
  if (std::find(m_hooked.begin(), m_hooked.end(), window) != m_hooked.end()) return;
  m_hooked.remove_if([](wxWeakRef<wxWindow> const &known) { return known == nullptr; });
  m_hooked.emplace_back(window);
  window->Bind(wxEVT_CHAR_HOOK, &AnnotationTool::onCharHook, this);
}

// What is hidden must not be seen for a moment, in whatever order a host sets picture and position.
void AnnotationTool::refreshStaleRegions() {
  for (IAnnotationObject *object : m_objects) {
    if (!isShown(*object)) continue;
    auto *const region = dynamic_cast<AnnHide *>(object);
    if (region != nullptr && !region->IsUpToDate()) region->UpdateSubImageAndStoreAsSubBitmap();
  }
}

std::unique_ptr<IAnnPainter> AnnotationTool::beginPass(wxDC &dc, wxWindow *window,
                                                       wxPoint2DDouble const &offset,
                                                       double scale) {
  setDrawOn(window);
  m_scale = scale;
  m_offset = offset;
  if (!m_visible) return nullptr;
  refreshStaleRegions();
  auto const type =
      m_config.drawWithDeviceContext ? IAnnPainter::DeviceContext : IAnnPainter::GraphicsContext;
  return IAnnPainter::CreateAnnPainter(type, dc, m_drawOn, m_scale);
}

void AnnotationTool::Draw(wxDC &dc, wxWindow *window, wxPoint2DDouble const &offset, double scale) {
  std::unique_ptr<IAnnPainter> painter = beginPass(dc, window, offset, scale);
  if (!painter) return;
  // From the back to the front, so that the front object is painted last.
  for (auto it = m_objects.rbegin(); it != m_objects.rend(); ++it) {
    IAnnotationObject const &object = **it;
    if (isShown(object)) object.Draw(painter, offset);
  }
  if (m_activeTool) m_activeTool->DrawPreview(painter, offset);
  painter->ResetScale();
  drawIgnoringScale(painter, offset, scale);
}

void AnnotationTool::DrawOnlySelected(wxDC &dc, wxWindow *window, wxPoint2DDouble const &offset,
                                      double scale) {
  std::unique_ptr<IAnnPainter> painter = beginPass(dc, window, offset, scale);
  if (!painter) return;
  // Being selected does not bring an object into a frame here, unlike in Draw.
  if (hasSelection() && (*m_selected)->IsPresentInFrame(m_mediaInfo.frameIndex)) {
    (*m_selected)->Draw(painter, offset);
  }
  if (m_activeTool) m_activeTool->DrawPreview(painter, offset);
  painter->ResetScale();
  drawIgnoringScale(painter, offset, scale);
}

void AnnotationTool::drawIgnoringScale(std::unique_ptr<IAnnPainter> &painter,
                                       wxPoint2DDouble const &offset, double scale) {
  if (hasSelection()) (*m_selected)->DrawSelected(painter, offset, scale);
  if (m_focused != m_objects.end() && (*m_focused)->IsPresentInFrame(m_mediaInfo.frameIndex)) {
    (*m_focused)->DrawFocused(painter, offset, scale);
  }
}
