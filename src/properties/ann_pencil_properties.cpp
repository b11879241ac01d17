// SPDX-License-Identifier: MIT
#include "properties/ann_pencil_properties.h"

#include "properties/property_json.h"

AnnPencilProperties::AnnPencilProperties() {
  initJSONVal();
}

AnnPencilProperties::AnnPencilProperties(wxJSONValue const &json) : IAnnotationProperties(json) {
  initFromJSONVal();
}

AnnPencilProperties::AnnPencilProperties(AnnPencilProperties const &other) = default;
AnnPencilProperties &AnnPencilProperties::operator=(AnnPencilProperties const &other) = default;
AnnPencilProperties::~AnnPencilProperties() = default;

void AnnPencilProperties::initJSONVal() {
  setJSONValColor();
  setJSONValThickness();
}

void AnnPencilProperties::initFromJSONVal() {
  m_color = framenote::ReadColour(m_jsonVal, colorKey, m_color);
  m_thickness = framenote::ReadInt(m_jsonVal, thicknessKey, m_thickness);
  initJSONVal();
}

void AnnPencilProperties::SetColor(wxColour const &value) {
  m_color = value;
  setJSONValColor();
}

void AnnPencilProperties::SetThickness(int value) {
  m_thickness = value;
  setJSONValThickness();
}

void AnnPencilProperties::setJSONValColor() {
  framenote::WriteColour(m_jsonVal, colorKey, m_color);
}

void AnnPencilProperties::setJSONValThickness() {
  m_jsonVal.Set(thicknessKey, m_thickness);
}
