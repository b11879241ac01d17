// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "modes/box_tool_mode.h"
#include "properties/ann_hide_properties.h"

namespace framenote {
class HiddenPictureCache;
class HiddenPictures;
}  // namespace framenote

/// Drags out regions that are hidden, showing the effect while they are dragged.
class FRAMENOTE_API AnnHideToolMode : public BoxToolMode,
                                      public std::enable_shared_from_this<AnnHideToolMode> {
public:
  /// Made by `tool`, which owns it.
  AnnHideToolMode(Types modeId, AnnotationTool *tool);
  ~AnnHideToolMode() override;

  void DrawPreview(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset) override;
  /// Works out both effects on the whole picture, unless that was done for this strength and frame.
  void startDrawing() override;

  /// The tool has another picture: what is shared of it is forgotten. No region is being worked on.
  void SetPicture(wxImage const &image);
  /// Works the preview of a running drag out anew; one of a drag that is over is forgotten.
  void RefreshPreview();
  /// The whole-picture work that all regions share.
  framenote::HiddenPictureCache &WholePictures() const { return *m_wholePictures; }

  /// The look of the next region. Never null.
  std::shared_ptr<AnnHideProperties> m_properties;

private:
  void finishBox(wxRect const &rect) override;
  void makePreview();
  wxBitmap previewOf(wxRect const &part) const;

  std::unique_ptr<framenote::HiddenPictureCache> m_wholePictures;
  std::shared_ptr<framenote::HiddenPictures const> m_preview;
  int m_cachedStrength = 0;
  int m_cachedFrame = 0;  ///< only the low 32 bits
};
