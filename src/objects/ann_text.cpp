// SPDX-License-Identifier: MIT
#include "objects/ann_text.h"

#include <algorithm>
#include <utility>

#include <wx/textctrl.h>

#include "modes/ann_shape_tool_mode.h"
#include "modes/ann_text_tool_mode.h"
#include "objects/boxed_object_impl.h"
#include "objects/text_lines.h"
#include "painters/drawable.h"
#include "painters/drawing_tools.h"
#include "talbase/json_conversions.h"
#include "talbase/json_text.h"

template class framenote::BoxedObject<AnnText, AnnTextToolMode, AnnTextProperties>;

using framenote::JoinLines;

namespace {

/// `text` with each `key` replaced, as far as `maxLength` characters: a long value for a key that
/// is there many times must not fill the memory.
wxString ReplaceAll(wxString const &text, wxString const &key, wxString const &value,
                    std::size_t maxLength) {
  wxString replaced;
  std::size_t begin = 0;
  for (std::size_t found = text.find(key); found != wxString::npos && replaced.length() < maxLength;
       found = text.find(key, begin)) {
    replaced.append(text, begin, found - begin);
    replaced += value;
    begin = found + key.length();
  }
  replaced.append(text, begin, wxString::npos);
  replaced.Truncate(maxLength);
  return replaced;
}

}  // namespace

AnnText::AnnText(std::shared_ptr<AnnShapeToolMode> const &shapeMode,
                 std::shared_ptr<AnnTextToolMode> const &textMode, wxRect const &rect,
                 std::int64_t frame)
    : BoxedObject(shapeMode, textMode, rect, frame), m_textLines(1), m_parsedTextLines(1) {
  initializeRectangleProperties();
  anchorText();
  setJSONValTextLines();
  initMirrorOfNewObject();
}

AnnText::AnnText(std::shared_ptr<AnnShapeToolMode> const &shapeMode,
                 std::shared_ptr<AnnTextToolMode> const &textMode, wxJSONValue const &json)
    : BoxedObject(shapeMode, textMode, json), m_textLines(1), m_parsedTextLines(1) {
  AnnText::initFromJSONVal();
  setJSONValLook();
  setJSONValRectangle();
}

AnnText::AnnText(AnnText const &other) = default;
AnnText::~AnnText() = default;

bool AnnText::IsJSONValid(wxJSONValue const &json) {
  return BoxedObject::IsJSONValid(json) && json.ItemAt(textLinesKey).IsValid();
}

void AnnText::initFromJSONVal() {
  wxString const text = m_outerJsonVal.ItemAt(textLinesKey).AsString();
  m_textLines = FromJson<std::vector<wxString>>(JsonFromText(text));
  if (m_textLines.empty()) m_textLines.resize(1);
  m_text = JoinLines(m_textLines);
  anchorText();
}

void AnnText::initializeRectangleProperties() {
  setRectangleLook(AnnShapeProperties::Rectangle, wxColour(0, 0, 0, 0), m_look.GetBackgroundColor(),
                   0);
}

void AnnText::setJSONValTextLines() {
  m_outerJsonVal.Set(textLinesKey, JsonToText(ToJson(m_textLines)));
}

wxString AnnText::ParseString(wxString const &text, Macros const &macros) {
  wxString parsed = text;
  std::size_t const maxLength = std::max(m_maxLength, text.length());
  for (auto const &[key, value] : macros) {
    if (!key.empty()) parsed = ReplaceAll(parsed, key, value, maxLength);
  }
  return parsed;
}

void AnnText::ParseTextLines(Macros const &macros) {
  m_parsedTextLines.clear();
  std::size_t length = 0;
  for (wxString const &line : framenote::FirstLines(m_textLines, m_maxLines, m_maxLength)) {
    if (length > m_maxLength) break;
    m_parsedTextLines.push_back(ParseString(line, macros));
    length += m_parsedTextLines.back().length();
  }
  // Values can be of any length.
  m_parsedTextLines = framenote::FirstLines(std::move(m_parsedTextLines), m_maxLines, m_maxLength);
  m_parsedText = JoinLines(m_parsedTextLines);
}

void AnnText::SetTextAndParse(wxString const &text, Macros const &macros) {
  m_text = text;
  m_textLines.assign(1, text);
  ParseTextLines(macros);
  setJSONValTextLines();
}

void AnnText::SetTextAndParse(wxTextCtrl const &control, Macros const &macros) {
  m_textLines.clear();
  for (int i = 0; i < control.GetNumberOfLines(); ++i) {
    m_textLines.push_back(control.GetLineText(i));
  }
  // Pasted lines may end in other ways than by a line feed, which only the lines tell.
  m_text = JoinLines(m_textLines);
  ParseTextLines(macros);
  setJSONValTextLines();
}

void AnnText::AppendTextAndParse(wxString const &text, Macros const &macros) {
  m_text += text;
  if (m_textLines.empty()) m_textLines.resize(1);
  m_textLines.back() += text;
  ParseTextLines(macros);
  setJSONValTextLines();
}

bool AnnText::IsShownWhole() const {
  return framenote::FirstLines(m_text, m_maxLines, m_maxLength).length() == m_text.length();
}

void AnnText::SetBackgroundColor(wxColour const &colour) {
  m_look.SetBackgroundColor(colour);
  setJSONValLook();
  m_properties.SetFillColor(colour);
  setJSONValProperties();
  setJSONValRectangle();
}

wxFont AnnText::font() const {
  return framenote::UsableFont(m_look.GetFont());
}

bool AnnText::WouldDisappear() const {
  return m_text.empty();
}

wxColour AnnText::GetDominantColor() {
  wxColour const background = m_look.GetBackgroundColor();
  return framenote::IsVisible(background) ? background : m_look.GetFontColor();
}

void AnnText::UpdateProperties() {
  m_look = *m_kindMode->m_properties;
  SetBackgroundColor(m_look.GetBackgroundColor());
  if (m_kindMode->IsEditing()) m_kindMode->layoutTextCtrl(*this);
}

void AnnText::MoveFor(wxPoint2DInt const &delta) {
  if (delta == wxPoint2DInt()) return;
  AnnShape::MoveFor(delta);
  anchorText();
}

void AnnText::MoveAllFramesFor(wxPoint2DInt const &delta) {
  if (delta == wxPoint2DInt()) return;
  AnnShape::MoveAllFramesFor(delta);
  anchorText();
}

void AnnText::UpdateCoordinatesPointers(std::int64_t frame) {
  AnnShape::UpdateCoordinatesPointers(frame);
  if (!AreCoordinatesEmpty(frame)) anchorText();
}

void AnnText::onCornersDragged(bool isResize) {
  CalculateTextPosition(isResize);
}

void AnnText::DrawSelected(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset,
                           double scale) const {
  AnnShape::DrawSelected(painter, offset, scale);
  m_kindMode->OnScaleChanged(*this, scale);
}
