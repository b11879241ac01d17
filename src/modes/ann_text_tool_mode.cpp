// SPDX-License-Identifier: MIT
#include "modes/ann_text_tool_mode.h"

#include <algorithm>

#include <wx/cursor.h>
#include <wx/textctrl.h>

#include "coordinates/pixel_geometry.h"
#include "framenote/annotation_tool.h"
#include "objects/ann_text.h"
#include "objects/object_painting.h"
#include "painters/ann_painter.h"
#include "painters/drawable.h"

namespace {

/// Many lines, no wrapping, no border and no scroll bar.
constexpr long kEditorStyle =
    wxTE_MULTILINE | wxTE_DONTWRAP | wxTE_NO_VSCROLL | static_cast<long>(wxBORDER_NONE);
/// The largest side of a window.
constexpr int kMaxSide = 32767;
/// More than any font that can be drawn.
constexpr double kMaxEditorPoints = 1e5;
/// Letters brighter than this stand on black, others on white.
constexpr int kBrightness = 128;

int Scaled(int value, double scale) {
  return framenote::TruncateToInt(value * scale);
}

}  // namespace

AnnTextToolMode::AnnTextToolMode(Types modeId, AnnotationTool *tool)
    : BoxToolMode(modeId, tool),
      m_properties(std::make_shared<AnnTextProperties>()),
      m_lastScale(tool->m_scale) {}

AnnTextToolMode::~AnnTextToolMode() {
  closeEditor();
}

bool AnnTextToolMode::IsEditing() const {
  return m_textCtrl != nullptr;
}

wxTextCtrl *AnnTextToolMode::GetTextCtrl() const {
  return m_textCtrl;
}

void AnnTextToolMode::closeEditor() {
  if (!m_textCtrl) return;
  wxTextCtrl *const control = m_textCtrl;
  m_textCtrl = nullptr;
  control->Destroy();
}

void AnnTextToolMode::DiscardDrawing() {
  BoxToolMode::DiscardDrawing();
  closeEditor();
}

void AnnTextToolMode::FinishEditing() {
  auto *const text = selectedAs<AnnText>();
  if (text == nullptr || !m_textCtrl) return;
  text->SetTextAndParse(*m_textCtrl, m_tool->m_textMacros);
  closeEditor();
}

void AnnTextToolMode::finishBox(wxRect const &rect) {
  insertAndSelect(std::make_unique<AnnText>(m_tool->GetToolModes().shape, shared_from_this(), rect,
                                            m_tool->GetMediaInfo().frameIndex));
  if (auto *const text = selectedAs<AnnText>()) startEditing(*text);
  m_tool->onObjectsModified();
}

void AnnTextToolMode::DrawPreview(std::unique_ptr<IAnnPainter> &painter,
                                  wxPoint2DDouble const &offset) {
  if (!hasPreview(painter)) return;
  wxPoint2DDouble const shift = framenote::PaintingOffset(painter, offset);
  std::vector<wxPoint2DDouble> outline;
  for (wxPoint const &corner : {rect().GetTopLeft(), rect().GetTopRight(), rect().GetBottomRight(),
                                rect().GetBottomLeft(), rect().GetTopLeft()}) {
    outline.push_back(wxPoint2DDouble(corner) + shift);
  }
  painter->DrawLines(outline, *wxBLACK, 1);
}

void AnnTextToolMode::startEditing(AnnText &text) {
  wxWindow *const canvas = m_tool->m_drawOn;
  if (canvas == nullptr || m_textCtrl || !text.IsShownWhole()) return;
  // What is typed goes to the selected object.
  if (selectedAs<AnnText>() != &text) return;
  m_tool->SendAnnotationTextEditionStartedEvent();
  m_textCtrl = new wxTextCtrl;  // owned by the canvas
  m_textCtrl->Create(canvas, wxID_ANY, text.GetText(), wxDefaultPosition, wxDefaultSize,
                     editorStyle(text), wxDefaultValidator, wxTextCtrlNameStr);
  m_textCtrl->Bind(wxEVT_TEXT, &AnnTextToolMode::onTextChanged, this, m_textCtrl->GetId());
  m_textCtrl->Bind(wxEVT_ENTER_WINDOW, &AnnTextToolMode::onTextCtrlEnter, this,
                   m_textCtrl->GetId());
  layoutTextCtrl(text);
  m_textCtrl->SetInsertionPointEnd();
  m_textCtrl->SetFocus();
  // A host that is told of the new focus may have closed the editor again.
  if (m_textCtrl) m_tool->m_state = ToolState::Editing;
}

void AnnTextToolMode::stopEditing(AnnText &text) {
  if (m_textCtrl) {
    text.SetTextAndParse(*m_textCtrl, m_tool->m_textMacros);
    closeEditor();
    m_tool->onObjectsModified();
  }
  m_tool->m_state = m_tool->hasSelection() ? ToolState::Selected : ToolState::Default;
  m_tool->SendAnnotationTextEditionFinishedEvent();
}

long AnnTextToolMode::editorStyle(AnnText const &text) const {
  return kEditorStyle | text.TextProperties().GetHorizontalAlignmentFlag();
}

wxFont AnnTextToolMode::editorFont(AnnText const &text) const {
  wxFont font = framenote::UsableFont(text.TextProperties().GetFont());
  int const height = std::max(1, font.GetPixelSize().y);
  int const scaled = std::max(1, Scaled(height, m_tool->m_scale));
  // By points: where fonts are chosen by their height in pixels, only some heights can be had.
  double const points = font.GetFractionalPointSize() * scaled / height;
  font.SetFractionalPointSize(std::min(points, kMaxEditorPoints));
  return framenote::DrawableRange(1.0).Font(font, 1.0);
}

void AnnTextToolMode::layoutTextCtrl(AnnText const &text) {
  if (!m_textCtrl) return;
  wxTextCtrl *const control = m_textCtrl;
  double const scale = m_tool->m_scale;
  m_lastOffset = m_tool->m_offset;
  control->SetWindowStyleFlag(editorStyle(text));
  control->SetMargins(0, 0);
  wxRect const box = text.GetTextBoxPosition();
  wxPoint const place = box.GetTopLeft() + IAnnotationObject::GetRounded(m_tool->m_offset);
  control->SetPosition(wxPoint(Scaled(place.x, scale), Scaled(place.y, scale)));
  styleTextCtrl(text);
  control->SetSize(std::clamp(Scaled(box.width, scale), 0, kMaxSide),
                   std::clamp(Scaled(box.height, scale), 0, kMaxSide));
  // All of the text has room; a control that has scrolled while it had none shows its beginning
  // again, once it has its new size.
  control->CallAfter([control] { control->ShowPosition(0); });
}

// A key press changes nothing of this, and setting it costs more than the key press itself.
void AnnTextToolMode::styleTextCtrl(AnnText const &text) {
  wxFont const font = editorFont(text);
  if (m_textCtrl->GetFont() != font) m_textCtrl->SetFont(font);
  wxColour const letters = text.TextProperties().GetFontColor();
  if (m_textCtrl->GetForegroundColour() != letters) m_textCtrl->SetForegroundColour(letters);
  bool const isBright = (letters.Red() + letters.Green() + letters.Blue()) / 3 > kBrightness;
  wxColour const ground = isBright ? *wxBLACK : *wxWHITE;
  if (m_textCtrl->GetBackgroundColour() != ground) m_textCtrl->SetBackgroundColour(ground);
}

void AnnTextToolMode::OnScaleChanged(AnnText const &text, double scale) {
  if (!m_textCtrl || (scale == m_lastScale && m_tool->m_offset == m_lastOffset)) return;
  m_lastScale = scale;
  layoutTextCtrl(text);
}

void AnnTextToolMode::onTextChanged(wxCommandEvent &) {
  auto *const text = selectedAs<AnnText>();
  if (text == nullptr || !m_textCtrl) return;
  text->SetTextAndParse(*m_textCtrl, m_tool->m_textMacros);
  layoutTextCtrl(*text);
}

void AnnTextToolMode::onTextCtrlEnter(wxMouseEvent &) {
  m_tool->m_cursor = wxCURSOR_IBEAM;
  if (m_tool->m_drawOn != nullptr) m_tool->m_drawOn->SetCursor(wxCursor(wxCURSOR_IBEAM));
}

wxSize AnnTextToolMode::MeasureText(wxString const &text, wxFont const &font, bool addDescent) {
  if (m_tool->m_drawOn == nullptr) return {};
  return m_measurer.Measure(*m_tool->m_drawOn, text, font, addDescent);
}

wxSize AnnTextToolMode::MeasureTextCtrl(wxString const &text, wxFont const &font) {
  wxWindow *const canvas = m_tool->m_drawOn;
  if (canvas == nullptr) return {};
  wxString roomy = text + "MMMM";
  roomy.Replace("\n", "MMMM\n");
  wxSize const size = m_measurer.Measure(*canvas, roomy, font, true);
  return m_textCtrl ? m_textCtrl->GetSizeFromTextSize(size)
                    : framenote::SizeOfHiddenTextCtrl(*canvas, kEditorStyle, size);
}

void AnnTextToolMode::NotifyObjectSelected(bool isNew) {
  IAnnotationToolMode::NotifyObjectSelected(isNew);
  if (auto *const text = selectedAs<AnnText>()) {
    text->IsOverText(m_tool->m_mousePosition, m_tool->m_cursor);
  }
}

void AnnTextToolMode::OnMouseSelected(wxMouseEvent const &event) {
  auto *const text = selectedAs<AnnText>();
  if (text == nullptr) {
    IAnnotationToolMode::OnMouseSelected(event);
  } else if (event.GetEventType() == wxEVT_LEFT_DOWN) {
    pressOnSelected(*text);
  } else if (event.GetEventType() == wxEVT_LEFT_DCLICK) {
    if (text->Contains(m_tool->m_mousePosition)) startEditing(*text);
  } else if (event.GetEventType() == wxEVT_MOTION) {
    if (!text->IsOverText(m_tool->m_mousePosition, m_tool->m_cursor)) {
      m_tool->changeFocusedToEnd();
      m_tool->setNextStateOnSelected();
    }
  } else if (event.GetEventType() == wxEVT_RIGHT_UP) {
    m_tool->popupRightClickMenuOnSelected();
  }
}

void AnnTextToolMode::pressOnSelected(AnnText &text) {
  wxPoint2DInt const &pointer = m_tool->m_mousePosition;
  if (text.IsOverText(pointer, m_tool->m_cursor)) {
    startEditing(text);
  } else if (text.Contains(pointer)) {
    m_tool->startMovingOrResizingObject();
  } else if (text.IsAtRotationPoint(pointer)) {
    // A press without a motion before it, as from a touch screen, starts from here.
    text.RememberCurrentPosition();
    m_tool->m_cursor = wxCURSOR_QUESTION_ARROW;
    m_tool->m_state = ToolState::Rotating;
  } else if (!pressOnAnotherObject()) {
    m_tool->deselectAndStartDrawing();
  }
}

bool AnnTextToolMode::pressOnAnotherObject() {
  auto it = m_tool->m_objects.begin();
  if (!m_tool->isMouseOnObject(it)) return false;
  m_tool->selectObject(false);
  m_tool->startMovingOrResizingObject();
  return true;
}

void AnnTextToolMode::OnMouseEditing(wxMouseEvent const &event) {
  auto *const text = selectedAs<AnnText>();
  if (text == nullptr || !m_textCtrl) {
    // The host has taken the editor away, together with the window that it lay on.
    m_tool->m_state = m_tool->hasSelection() ? ToolState::Selected : ToolState::Default;
  } else if (event.GetEventType() == wxEVT_LEFT_DOWN) {
    pressWhileEditing(*text);
  } else if (event.GetEventType() == wxEVT_MOTION) {
    moveWhileEditing(*text);
  } else if (event.GetEventType() == wxEVT_RIGHT_UP) {
    if (text->IsOverText(m_tool->m_mousePosition, m_tool->m_cursor)) return;
    stopEditing(*text);
    m_tool->popupRightClickMenuOnSelected();
  }
}

void AnnTextToolMode::pressWhileEditing(AnnText &text) {
  wxPoint2DInt const &pointer = m_tool->m_mousePosition;
  if (text.IsOverText(pointer, m_tool->m_cursor)) return;
  stopEditing(text);
  if (text.Contains(pointer)) {
    m_tool->startMovingOrResizingObject();
  } else if (text.IsAtResizePoint(pointer, m_tool->m_cursor)) {
    m_tool->startResizingObject();
  } else if (text.IsAtRotationPoint(pointer)) {
    m_tool->m_cursor = wxCURSOR_QUESTION_ARROW;
    text.RememberCurrentPosition();
    m_tool->m_state = ToolState::Rotating;
  } else if (!pressOnAnotherObject()) {
    m_tool->deselectAndStartDrawing();
  }
}

void AnnTextToolMode::moveWhileEditing(AnnText &text) {
  wxPoint2DInt const &pointer = m_tool->m_mousePosition;
  wxStockCursor &cursor = m_tool->m_cursor;
  if (text.IsOverText(pointer, cursor)) return;
  m_tool->changeFocusedToEnd();
  if (text.IsAtResizePoint(pointer, cursor)) return;
  auto it = m_tool->m_objects.begin();
  if (text.Contains(pointer)) {
    cursor = wxCURSOR_SIZING;
  } else if (text.IsAtRotationPoint(pointer)) {
    cursor = wxCURSOR_QUESTION_ARROW;
  } else if (m_tool->isMouseOnObject(it)) {
    m_tool->changeFocusedTo(it);
    cursor = wxCURSOR_SIZING;
  } else {
    cursor = wxCURSOR_CROSS;
  }
}
