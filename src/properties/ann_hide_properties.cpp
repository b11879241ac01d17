// SPDX-License-Identifier: MIT
#include "properties/ann_hide_properties.h"

#include "properties/property_json.h"

AnnHideProperties::AnnHideProperties() {
  initJSONVal();
}

AnnHideProperties::AnnHideProperties(wxJSONValue const &json) : IAnnotationProperties(json) {
  initFromJSONVal();
}

AnnHideProperties::AnnHideProperties(AnnHideProperties const &other) = default;
AnnHideProperties &AnnHideProperties::operator=(AnnHideProperties const &other) = default;
AnnHideProperties::~AnnHideProperties() = default;

void AnnHideProperties::initJSONVal() {
  setJSONValEffect();
  setJSONValStrength();
  setJSONValShape();
  setJSONValBorderColor();
  setJSONValThickness();
}

void AnnHideProperties::initFromJSONVal() {
  m_effect = framenote::ReadEnum(m_jsonVal, effectKey, m_effect);
  m_strength = framenote::ReadInt(m_jsonVal, strengthKey, m_strength);
  m_shape = framenote::ReadEnum(m_jsonVal, shapeKey, m_shape);
  m_borderColor = framenote::ReadSplitColour(m_jsonVal, borderColorKey, borderColorTransparentKey,
                                             m_borderColor);
  m_thickness = framenote::ReadInt(m_jsonVal, thicknessKey, m_thickness);
  initJSONVal();
}

void AnnHideProperties::SetEffect(Effect value) {
  m_effect = value;
  setJSONValEffect();
}

void AnnHideProperties::SetStrength(int value) {
  m_strength = value;
  setJSONValStrength();
}

void AnnHideProperties::SetShape(AnnShapeProperties::Shape value) {
  m_shape = value;
  setJSONValShape();
}

void AnnHideProperties::SetBorderColor(wxColour const &value) {
  m_borderColor = value;
  setJSONValBorderColor();
}

void AnnHideProperties::SetThickness(int value) {
  m_thickness = value;
  setJSONValThickness();
}

void AnnHideProperties::setJSONValEffect() {
  m_jsonVal.Set(effectKey, static_cast<int>(m_effect));
}

void AnnHideProperties::setJSONValStrength() {
  m_jsonVal.Set(strengthKey, m_strength);
}

void AnnHideProperties::setJSONValShape() {
  m_jsonVal.Set(shapeKey, static_cast<int>(m_shape));
}

void AnnHideProperties::setJSONValBorderColor() {
  framenote::WriteSplitColour(m_jsonVal, borderColorKey, borderColorTransparentKey, m_borderColor);
}

void AnnHideProperties::setJSONValThickness() {
  m_jsonVal.Set(thicknessKey, m_thickness);
}
