// SPDX-License-Identifier: MIT
#include "properties/ann_arrow_properties.h"

#include "properties/property_json.h"

AnnArrowProperties::AnnArrowProperties() {
  initJSONVal();
}

AnnArrowProperties::AnnArrowProperties(wxJSONValue const &json) : IAnnotationProperties(json) {
  initFromJSONVal();
}

AnnArrowProperties::AnnArrowProperties(AnnArrowProperties const &other) = default;
AnnArrowProperties &AnnArrowProperties::operator=(AnnArrowProperties const &other) = default;
AnnArrowProperties::~AnnArrowProperties() = default;

void AnnArrowProperties::initJSONVal() {
  setJSONValHead();
  setJSONValColor();
  setJSONValThickness();
}

void AnnArrowProperties::initFromJSONVal() {
  m_head = framenote::ReadEnum(m_jsonVal, headKey, m_head);
  m_color = framenote::ReadColour(m_jsonVal, colorKey, m_color);
  m_thickness = framenote::ReadInt(m_jsonVal, thicknessKey, m_thickness);
  initJSONVal();
}

void AnnArrowProperties::SetHead(Head value) {
  m_head = value;
  setJSONValHead();
}

void AnnArrowProperties::SetColor(wxColour const &value) {
  m_color = value;
  setJSONValColor();
}

void AnnArrowProperties::SetThickness(int value) {
  m_thickness = value;
  setJSONValThickness();
}

void AnnArrowProperties::setJSONValHead() {
  m_jsonVal.Set(headKey, static_cast<int>(m_head));
}

void AnnArrowProperties::setJSONValColor() {
  framenote::WriteColour(m_jsonVal, colorKey, m_color);
}

void AnnArrowProperties::setJSONValThickness() {
  m_jsonVal.Set(thicknessKey, m_thickness);
}
