// SPDX-License-Identifier: MIT
// Frames with the annotations burnt in, and the text macros that they take.
#include <algorithm>

#include <wx/bitmap.h>
#include <wx/dcmemory.h>
#include <wx/textctrl.h>

#include "coordinates/pixel_geometry.h"
#include "framenote/annotation_tool.h"
#include "modes/ann_shape_tool_mode.h"
#include "modes/ann_text_tool_mode.h"
#include "objects/ann_text.h"
#include "objects/text_lines.h"
#include "painters/ann_painter.h"
#include "talbase/layout_direction.h"

namespace {

/// Objects are painted on pixel centres; the picture itself stays on whole pixels.
constexpr double kHalfPixel = 0.5;

/// The largest side of an extended frame, the limit of the drawing surfaces; and the most pixels.
constexpr int kMaxSide = 32766;
constexpr std::int64_t kMaxPixels = std::int64_t{1} << 28;

/// How far a frame may be extended: to so many times its pixels, and in any case to so many pixels.
/// A line of a document could else ask for a gigabyte for each frame of a small picture.
constexpr std::int64_t kMaxExtension = 16;
constexpr std::int64_t kFreePixels = std::int64_t{1} << 24;

std::int64_t PixelsOf(wxSize const &size) {
  return std::int64_t{size.x} * size.y;
}

bool CanBePainted(wxSize const &size) {
  return size.x > 0 && size.y > 0 && size.x <= kMaxSide && size.y <= kMaxSide &&
         PixelsOf(size) <= kMaxPixels;
}

bool CanBeExtended(wxSize const &frame, wxSize const &extended) {
  return CanBePainted(extended) &&
         PixelsOf(extended) <= std::max(kFreePixels, PixelsOf(frame) * kMaxExtension);
}

}  // namespace

void AnnotationTool::UpdateTextMacrosMap(MacroPairs const &macros) {
  for (auto const &[key, value] : macros) m_textMacros[key] = value;
  for (IAnnotationObject *object : m_objects) {
    if (!object->IsPresentInFrame(m_mediaInfo.frameIndex)) continue;
    if (auto *const text = dynamic_cast<AnnText *>(object)) text->ParseTextLines(m_textMacros);
  }
}

void AnnotationTool::AddTextMacro(wxString const &text) {
  if (text.empty()) return;
  auto *const selected = dynamic_cast<AnnText *>(GetSelectedObject());
  if (selected == nullptr) {
    addTextBox(text);
  } else if (wxTextCtrl *const editor = m_toolModes.text->GetTextCtrl()) {
    editor->WriteText(text);
  } else {
    selected->AppendTextAndParse(text, m_textMacros);
    Refresh();
    OnJsonChanged();
  }
}

void AnnotationTool::addTextBox(wxString const &text) {
  wxString const shown = framenote::FirstLines(AnnText::ParseString(text, m_textMacros),
                                               AnnText::m_maxLines, AnnText::m_maxLength);
  wxSize const size =
      m_toolModes.text->MeasureText(shown, m_toolModes.text->m_properties->GetFont(), false);
  wxSize const picture = m_image.IsOk() ? m_image.GetSize() : wxSize();
  wxPoint const topLeft(framenote::TruncateToInt((picture.x - size.x) * 0.5), picture.y - size.y);
  auto box = std::make_unique<AnnText>(m_toolModes.shape, m_toolModes.text, wxRect(topLeft, size),
                                       m_mediaInfo.frameIndex);
  box->SetTextAndParse(text, m_textMacros);
  if (box->WouldDisappear()) return;
  // What a gesture has done so far stays, as when the selection ends.
  onObjectsModified();
  m_objects.push_front(box.release());  // owned by the list
  changeSelectedTo(m_objects.begin(), false);
  setNextStateOnSelected();
  onObjectsModified();
  Refresh();
}

wxImage AnnotationTool::GetAnnotatedFrame(wxImage const &frame, AnnotationMediaInfo const &info,
                                          MacroPairs const &macros) {
  // Only the low 32 bits of the position come back.
  auto const savedFrame = static_cast<std::int32_t>(m_mediaInfo.frameIndex);
  // What is cut for this frame is then what is cut for the tool's own. With a right-to-left layout
  // each SetImage mirrors the picture that both share, so that one alone would leave it mirrored.
  bool const isOwnFrame = savedFrame == info.frameIndex && !TalHasRTLLayout();
  auto const savedMacros = m_textMacros;
  // A copy: the frame may be the tool's own picture, by reference, which changes here.
  wxImage const savedImage = frame;  // NOLINT(performance-unnecessary-copy-initialization): as said

  m_mediaInfo.frameIndex = info.frameIndex;
  // Before the picture: what is hidden is cut where the objects are in this frame.
  goToFrameOfObjects(info.frameIndex);
  SetImage(frame, false);
  UpdateTextMacrosMap(macros);
  wxImage output = paintAnnotatedFrame(frame, info.frameIndex);

  m_mediaInfo.frameIndex = savedFrame;
  goToFrameOfObjects(savedFrame);
  // The frame just rendered stays the tool's picture; the host sets the one it wants next.
  if (!isOwnFrame) SetImage(savedImage, false);
  m_textMacros = savedMacros;
  UpdateTextMacrosMap({});
  return output;
}

void AnnotationTool::goToFrameOfObjects(std::int64_t frame) {
  for (IAnnotationObject *object : m_objects) {
    if (!isShown(*object)) continue;
    auto const [first, last] = object->GetFrameDuration();
    object->UpdateCoordinatesPointers(std::clamp(frame, first, last));
  }
}

wxImage AnnotationTool::paintAnnotatedFrame(wxImage const &frame, std::int64_t frameIndex) {
  if (!frame.IsOk() || !CanBePainted(frame.GetSize())) return wxNullImage;
  // Annotations so far out that a surface could not well hold them do not extend the frame.
  bool const extended = m_extensionColor != wxNullColour &&
                        CanBeExtended(frame.GetSize(), GetAnnotationArea().GetSize());
  wxPoint2DDouble const offset(extended ? -std::min(m_annotationArea.x, 0) : 0,
                               extended ? -std::min(m_annotationArea.y, 0) : 0);
  wxSize const size = extended ? GetAnnotationArea().GetSize() : frame.GetSize();
  // A frame that covers every pixel is painted on as it is; else it is laid on the background.
  bool const covers = !extended && !frame.HasAlpha() && !frame.HasMask();
  wxBitmap bitmap = covers ? wxBitmap(frame, -1, 1.0) : wxBitmap(size);
  wxMemoryDC dc(bitmap);
  {
    auto const type = m_config.renderWithDeviceContext ? IAnnPainter::DeviceContext
                                                       : IAnnPainter::GraphicsContext;
    if (!covers) {
      dc.SetBackground(wxBrush(m_extensionColor, wxBRUSHSTYLE_SOLID));
      dc.Clear();
    }
    std::unique_ptr<IAnnPainter> painter = IAnnPainter::CreateAnnPainter(type, dc, &dc, 1.0);
    painter->KeepBitmapsOnPixels();
    if (!covers) painter->DrawBitmap(offset, wxBitmap(frame, -1, 1.0));
    drawObjectsOfFrame(painter, frameIndex, offset + wxPoint2DDouble(kHalfPixel, kHalfPixel));
  }
  dc.SelectObject(wxNullBitmap);
  return bitmap.ConvertToImage();
}

void AnnotationTool::drawObjectsOfFrame(std::unique_ptr<IAnnPainter> &painter, std::int64_t frame,
                                        wxPoint2DDouble const &offset) {
  for (auto it = m_objects.rbegin(); it != m_objects.rend(); ++it) {
    IAnnotationObject &object = **it;
    if (!object.IsPresentInFrame(frame)) continue;
    object.Draw(painter, offset);
  }
}
