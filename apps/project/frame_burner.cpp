// SPDX-License-Identifier: MIT
#include "project/frame_burner.h"

#include <utility>

#include "media/media_error.h"
#include "media/picture_image.h"
#include "project/left_out_objects.h"
#include "project/text_macros.h"

FrameBurner::FrameBurner(MediaSource const &source, wxJSONValue const &document, BurnLook look)
    : m_source(source),
      m_look(std::move(look)),
      m_tool(std::make_shared<AnnotationTool>(AnnotationToolConfig(
          m_look.withDeviceContext, m_look.withDeviceContext, true, true, m_look.extend, {}))) {
  m_tool->FromJSON(document, source.Info().frameCount);
  m_leftOut = ObjectsLeftOut(document, *m_tool);
  // Without a colour for what lies beyond it, the result has the picture's own size.
  if (!m_look.extend) m_tool->SetExtensionColour(wxNullColour);
}

Picture FrameBurner::Burn(std::int64_t frame, Picture picture) {
  AnnotationTool::MacroPairs macros = MacroValues(m_source, frame);
  macros.insert(macros.end(), m_look.macros.begin(), m_look.macros.end());
  MediaInfo const &info = m_source.Info();
  std::int64_t const inDocument = info.kind == MediaInfo::Kind::Still ? m_look.stillFrame : frame;
  // At the frame already, the tool need not cut what is hidden a second time for where it stood.
  if (info.kind == MediaInfo::Kind::Video) {
    m_tool->UpdateMediaInfo({frame, info.frameCount, false});
  }
  wxImage const burnt = m_tool->GetAnnotatedFrame(ToImage(std::move(picture)),
                                                  {inDocument, info.frameCount, false}, macros);
  if (!burnt.IsOk()) throw MediaError(MediaProblem::TooLarge, m_source.Path());
  return ToPicture(burnt);
}
