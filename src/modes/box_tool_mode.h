// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <wx/gdicmn.h>

#include "modes/annotation_tool_mode.h"

/// What the modes of all kinds with a box share: the box is dragged out, then resized at its eight
/// handles and turned at its rotation handle.
class FRAMENOTE_API BoxToolMode : public IAnnotationToolMode {
public:
  void ApplyProperties() override;
  void DiscardDrawing() override;
  void OnMouseDrawing(wxMouseEvent const &event) override;
  void OnMouseResizing(wxMouseEvent const &event) override;
  void OnMouseAtRotationPoint(wxMouseEvent const &event) override;
  void OnMouseRotating(wxMouseEvent const &event) override;

protected:
  BoxToolMode(Types modeId, AnnotationTool *tool);

  /// A drag spans `rect`, which is of at least the minimal size: makes the object.
  virtual void finishBox(wxRect const &rect) = 0;

  /// Whether there is a box to preview.
  bool hasPreview(std::unique_ptr<IAnnPainter> const &painter) const;
  /// What the drag spans, as of the last motion.
  wxRect const &rect() const { return m_rect; }

private:
  wxRect rectOfDrag(wxMouseEvent const &event) const;

  wxSize m_minimalSize;
  wxRect m_rect;
};
