// SPDX-License-Identifier: MIT
#include "properties/ann_text_properties.h"

#include "properties/property_json.h"
#include "talbase/json_conversions.h"

AnnTextProperties::AnnTextProperties() {
  initJSONVal();
}

AnnTextProperties::AnnTextProperties(wxJSONValue const &json) : IAnnotationProperties(json) {
  initFromJSONVal();
}

AnnTextProperties::AnnTextProperties(AnnTextProperties const &other) = default;
AnnTextProperties &AnnTextProperties::operator=(AnnTextProperties const &other) = default;
AnnTextProperties::~AnnTextProperties() = default;

void AnnTextProperties::initJSONVal() {
  setJSONValFont();
  setJSONValFontColor();
  setJSONValBackgroundColor();
  setJSONValHorizontalAlignment();
  setJSONValVerticalAlignment();
}

void AnnTextProperties::initFromJSONVal() {
  m_font = FromString<wxFont>(m_jsonVal.Get(fontKey, wxJSONValue(ToString(m_font))).AsString());
  m_fontColor = framenote::ReadColour(m_jsonVal, fontColorKey, m_fontColor);
  m_backgroundColor = framenote::ReadSplitColour(m_jsonVal, backgroundColorKey,
                                                 backgroundColorTransparentKey, m_backgroundColor);
  m_horizontalAlignment =
      framenote::ReadEnum(m_jsonVal, horizontalAlignmentKey, m_horizontalAlignment);
  m_verticalAlignment = framenote::ReadEnum(m_jsonVal, verticalAlignmentKey, m_verticalAlignment);
  initJSONVal();
}

long AnnTextProperties::GetHorizontalAlignmentFlag() const {
  switch (m_horizontalAlignment) {
    case Left:
      return wxALIGN_LEFT;
    case Right:
      return wxALIGN_RIGHT;
    default:
      return wxALIGN_CENTER_HORIZONTAL;
  }
}

void AnnTextProperties::SetFont(wxFont const &value) {
  m_font = value;
  setJSONValFont();
}

void AnnTextProperties::SetFontColor(wxColour const &value) {
  m_fontColor = value;
  setJSONValFontColor();
}

void AnnTextProperties::SetBackgroundColor(wxColour const &value) {
  m_backgroundColor = value;
  setJSONValBackgroundColor();
}

void AnnTextProperties::SetHorizontalAlignment(HorizontalAlignment value) {
  m_horizontalAlignment = value;
  setJSONValHorizontalAlignment();
}

void AnnTextProperties::SetVerticalAlignment(VerticalAlignment value) {
  m_verticalAlignment = value;
  setJSONValVerticalAlignment();
}

void AnnTextProperties::setJSONValFont() {
  m_jsonVal.Set(fontKey, wxJSONValue(ToString(m_font)));
}

void AnnTextProperties::setJSONValFontColor() {
  framenote::WriteColour(m_jsonVal, fontColorKey, m_fontColor);
}

void AnnTextProperties::setJSONValBackgroundColor() {
  framenote::WriteSplitColour(m_jsonVal, backgroundColorKey, backgroundColorTransparentKey,
                              m_backgroundColor);
}

void AnnTextProperties::setJSONValHorizontalAlignment() {
  m_jsonVal.Set(horizontalAlignmentKey, static_cast<int>(m_horizontalAlignment));
}

void AnnTextProperties::setJSONValVerticalAlignment() {
  m_jsonVal.Set(verticalAlignmentKey, static_cast<int>(m_verticalAlignment));
}
