// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <wx/string.h>
#include <wx/weakref.h>

#include "modes/box_tool_mode.h"
#include "modes/text_measurer.h"
#include "properties/ann_text_properties.h"

class AnnText;
class wxFont;
class wxTextCtrl;

/// Drags out text boxes and edits their text in place: a text control lies over the canvas where
/// the text will be painted. Without a window to paint on there is no editor and no text size.
class FRAMENOTE_API AnnTextToolMode : public BoxToolMode,
                                      public std::enable_shared_from_this<AnnTextToolMode> {
public:
  /// Made by `tool`, which owns it.
  AnnTextToolMode(Types modeId, AnnotationTool *tool);
  ~AnnTextToolMode() override;

  void DrawPreview(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset) override;
  void FinishEditing() override;
  bool IsEditing() const override;
  void DiscardDrawing() override;
  void OnMouseSelected(wxMouseEvent const &event) override;
  void OnMouseEditing(wxMouseEvent const &event) override;

  /// Opens the editor on `text`, the selected object. Does nothing without a window, while an
  /// editor is open, or if only a part of the text is shown.
  void startEditing(AnnText &text);
  /// Commits the text, closes the editor, and tells the host.
  void stopEditing(AnnText &text);
  /// Places and styles the open editor.
  void layoutTextCtrl(AnnText const &text);
  /// The box is being painted: the editor follows the zoom, and where the host has scrolled.
  void OnScaleChanged(AnnText const &text, double scale);
  /// The size of `text`, in picture pixels; (0, 0) without a window. `addDescent` adds the font's
  /// descent to both.
  wxSize MeasureText(wxString const &text, wxFont const &font, bool addDescent);
  /// The size of a control that edits `text`, with room for four capitals at the end of each line.
  wxSize MeasureTextCtrl(wxString const &text, wxFont const &font);
  /// As for any mode, and the cursor follows the text under the pointer.
  void NotifyObjectSelected(bool isNew);
  /// The open editor, or null. Its parent owns it.
  wxTextCtrl *GetTextCtrl() const;

  /// The look of the next text box. Never null.
  std::shared_ptr<AnnTextProperties> m_properties;

private:
  void finishBox(wxRect const &rect) override;
  void pressOnSelected(AnnText &text);
  void pressWhileEditing(AnnText &text);
  void moveWhileEditing(AnnText &text);
  bool pressOnAnotherObject();
  void closeEditor();
  long editorStyle(AnnText const &text) const;
  void styleTextCtrl(AnnText const &text);
  wxFont editorFont(AnnText const &text) const;
  void onTextChanged(wxCommandEvent &event);
  void onTextCtrlEnter(wxMouseEvent &event);

  framenote::TextMeasurer m_measurer;
  double m_lastScale;
  wxPoint2DDouble m_lastOffset;
  wxWeakRef<wxTextCtrl> m_textCtrl;  // owned by the window that it lies on
};
