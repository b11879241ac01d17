// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <wx/gdicmn.h>

#include "modes/annotation_tool_mode.h"
#include "properties/ann_shape_properties.h"

class wxBitmap;

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
  BoxToolMode(Types modeId, AnnotationTool *tool);  ///< Made by `tool`, which owns it.

  /// A drag spans `rect`, which is of at least the minimal size: makes the object.
  virtual void finishBox(wxRect const &rect) = 0;

  /// Whether there is a box to preview.
  bool hasPreview(std::unique_ptr<IAnnPainter> const &painter) const;
  /// What the drag spans, as of the last motion.
  wxRect const &rect() const { return m_rect; }
  /// The same where it is painted.
  wxRect onSurface(std::unique_ptr<IAnnPainter> const &painter,
                   wxPoint2DDouble const &offset) const;
  /// Whether a border of `thickness` leaves an inside.
  static bool hasRoom(wxRect const &rect, int thickness);
  /// Paints the border alone, or all of `rect` where the border leaves no inside.
  static void previewBorder(IAnnPainter &painter, wxRect const &rect,
                            AnnShapeProperties::Shape shape, wxColour const &colour, int thickness);
  /// Paints a bitmap of the part `area` of the picture, cut to what the drag spans.
  void previewCut(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset,
                  wxBitmap bitmap, wxRect const &area, AnnShapeProperties::Shape shape) const;
  /// What a drag to where the pointer is spans.
  virtual wxRect rectOfDrag(wxMouseEvent const &event) const;
  ///@{
  /// Where the button went down, and where the pointer is, in picture pixels.
  wxPoint pressPixel() const;
  wxPoint mousePixel() const;
  ///@}

private:
  wxSize m_minimalSize;
  wxRect m_rect;
};
