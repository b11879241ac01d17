// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <wx/gdicmn.h>

#include "modes/annotation_tool_mode.h"
#include "properties/ann_shape_properties.h"

/// Drags out rectangles and ellipses, and resizes and turns them.
class FRAMENOTE_API AnnShapeToolMode : public IAnnotationToolMode,
                                       public std::enable_shared_from_this<AnnShapeToolMode> {
public:
  AnnShapeToolMode(Types modeId, AnnotationTool *tool);

  void DrawPreview(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset) override;
  void ApplyProperties() override;
  void DiscardDrawing() override;
  void OnMouseDrawing(wxMouseEvent const &event) override;
  void OnMouseResizing(wxMouseEvent const &event) override;
  void OnMouseAtRotationPoint(wxMouseEvent const &event) override;
  void OnMouseRotating(wxMouseEvent const &event) override;

  /// The look of the next shape. Never null.
  std::shared_ptr<AnnShapeProperties> m_properties;

private:
  wxRect rectOfDrag(wxMouseEvent const &event) const;
  bool isTooSmall() const;
  wxRect onSurface(std::unique_ptr<IAnnPainter> const &painter,
                   wxPoint2DDouble const &offset) const;
  void previewRectangle(IAnnPainter &painter, wxRect const &rect) const;
  void previewEllipse(IAnnPainter &painter, wxRect const &rect) const;

  wxSize m_minimalSize;
  wxRect m_rect;  ///< what the drag spans, as of the last motion
};
