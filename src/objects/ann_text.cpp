// SPDX-License-Identifier: MIT
#include "objects/ann_text.h"

#include <utility>

#include <wx/textctrl.h>

#include "modes/ann_shape_tool_mode.h"
#include "modes/ann_text_tool_mode.h"
#include "objects/text_lines.h"
#include "painters/drawable.h"
#include "painters/drawing_tools.h"
#include "talbase/json_conversions.h"
#include "talbase/json_text.h"

using framenote::JoinLines;

AnnText::AnnText(std::shared_ptr<AnnShapeToolMode> const &shapeMode,
                 std::shared_ptr<AnnTextToolMode> const &textMode, wxRect const &rect,
                 std::int64_t frame)
    : AnnShape(shapeMode, rect, frame),
      m_textMode(textMode),
      m_textLines(1),
      m_parsedTextLines(1),
      m_textProperties(*textMode->m_properties),
      m_outerJsonVal(wxJSONTYPE_OBJECT) {
  initializeRectangleProperties();
  anchorText();
  setJSONValTextLines();
  m_outerJsonVal.Set(idKey, static_cast<int>(m_textMode->GetModeId()));
  setJSONValTextProperties();
  setJSONValRectangle();
}

AnnText::AnnText(std::shared_ptr<AnnShapeToolMode> const &shapeMode,
                 std::shared_ptr<AnnTextToolMode> const &textMode, wxJSONValue const &json)
    : AnnShape(shapeMode, json.ItemAt(rectangleKey)),
      m_textMode(textMode),
      m_textLines(1),
      m_parsedTextLines(1),
      m_textProperties(json.Get(propertiesKey, textMode->m_properties->ToJSON())),
      m_outerJsonVal(json) {
  AnnText::initFromJSONVal();
  setJSONValTextProperties();
  setJSONValRectangle();
}

AnnText::AnnText(AnnText const &other) = default;
AnnText::~AnnText() = default;

bool AnnText::IsJSONValid(wxJSONValue const &json) {
  return json.IsValid() && json.HasMember(rectangleKey) &&
         AnnShape::IsJSONValid(json.ItemAt(rectangleKey)) && json.ItemAt(textLinesKey).IsValid();
}

void AnnText::initFromJSONVal() {
  wxString const text = m_outerJsonVal.ItemAt(textLinesKey).AsString();
  m_textLines = FromJson<std::vector<wxString>>(JsonFromText(text));
  if (m_textLines.empty()) m_textLines.resize(1);
  m_text = JoinLines(m_textLines);
  anchorText();
}

void AnnText::initializeRectangleProperties() {
  m_properties.SetThickness(0);
  m_properties.SetBorderColor(wxColour(0, 0, 0, 0));
  m_properties.SetFillColor(m_textProperties.GetBackgroundColor());
  m_properties.SetShape(AnnShapeProperties::Rectangle);
  setJSONValProperties();
}

void AnnText::setJSONValTextLines() {
  m_outerJsonVal.Set(textLinesKey, JsonToText(ToJson(m_textLines)));
}

void AnnText::setJSONValTextProperties() {
  m_outerJsonVal.Set(propertiesKey, m_textProperties.ToJSON());
}

void AnnText::setJSONValRectangle() {
  m_outerJsonVal.Set(rectangleKey, m_jsonVal);
}

wxJSONValue const &AnnText::ToJSON() const {
  return m_outerJsonVal;
}

void AnnText::OnObjectModified() {
  AnnShape::OnObjectModified();
  setJSONValRectangle();
}

wxString AnnText::ParseString(wxString const &text, Macros const &macros) {
  wxString parsed = text;
  for (auto const &[key, value] : macros) {
    if (!key.empty()) parsed.Replace(key, value, true);
  }
  return parsed;
}

void AnnText::ParseTextLines(Macros const &macros) {
  m_parsedTextLines = framenote::FirstLines(m_textLines, m_maxLines, m_maxLength);
  for (wxString &line : m_parsedTextLines) line = ParseString(line, macros);
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
  m_text = control.GetValue();
  m_textLines.clear();
  for (int i = 0; i < control.GetNumberOfLines(); ++i) {
    m_textLines.push_back(control.GetLineText(i));
  }
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
  m_textProperties.SetBackgroundColor(colour);
  setJSONValTextProperties();
  m_properties.SetFillColor(colour);
  setJSONValProperties();
  setJSONValRectangle();
}

wxFont AnnText::font() const {
  return framenote::UsableFont(m_textProperties.GetFont());
}

bool AnnText::WouldDisappear() const {
  return m_text.empty();
}

wxColour AnnText::GetDominantColor() {
  wxColour const background = m_textProperties.GetBackgroundColor();
  return framenote::IsVisible(background) ? background : m_textProperties.GetFontColor();
}

void AnnText::OnSelection(bool isNew) {
  m_selected = true;
  *m_textMode->m_properties = m_textProperties;
  m_textMode->NotifyObjectSelected(isNew);
}

void AnnText::UpdateProperties() {
  m_textProperties = *m_textMode->m_properties;
  SetBackgroundColor(m_textProperties.GetBackgroundColor());
  if (m_textMode->IsEditing()) m_textMode->layoutTextCtrl(*this);
}

void AnnText::SetCopiedObject() const {
  m_textMode->StoreCopiedObject(std::make_unique<AnnText>(*this));
}

void AnnText::Paste() const {
  m_textMode->InsertPastedObject(std::make_unique<AnnText>(*this));
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
  m_textMode->OnScaleChanged(*this, scale);
}
