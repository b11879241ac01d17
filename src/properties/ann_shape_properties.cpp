// SPDX-License-Identifier: MIT
#include "properties/ann_shape_properties.h"

#include "properties/property_json.h"

AnnShapeProperties::AnnShapeProperties() {
  initJSONVal();
}

AnnShapeProperties::AnnShapeProperties(wxJSONValue const &json) : IAnnotationProperties(json) {
  initFromJSONVal();
}

AnnShapeProperties::AnnShapeProperties(AnnShapeProperties const &other) = default;
AnnShapeProperties &AnnShapeProperties::operator=(AnnShapeProperties const &other) = default;
AnnShapeProperties::~AnnShapeProperties() = default;

void AnnShapeProperties::initJSONVal() {
  setJSONValShape();
  setJSONValBorderColor();
  setJSONValFillColor();
  setJSONValThickness();
}

void AnnShapeProperties::initFromJSONVal() {
  m_shape = framenote::ReadEnum(m_jsonVal, shapeKey, m_shape);
  m_borderColor = framenote::ReadSplitColour(m_jsonVal, borderColorKey, borderColorTransparentKey,
                                             m_borderColor);
  m_fillColor =
      framenote::ReadSplitColour(m_jsonVal, fillColorKey, fillColorTransparentKey, m_fillColor);
  m_thickness = framenote::ReadInt(m_jsonVal, thicknessKey, m_thickness);
  initJSONVal();
}

void AnnShapeProperties::SetShape(Shape value) {
  m_shape = value;
  setJSONValShape();
}

void AnnShapeProperties::SetBorderColor(wxColour const &value) {
  m_borderColor = value;
  setJSONValBorderColor();
}

void AnnShapeProperties::SetFillColor(wxColour const &value) {
  m_fillColor = value;
  setJSONValFillColor();
}

void AnnShapeProperties::SetThickness(int value) {
  m_thickness = value;
  setJSONValThickness();
}

void AnnShapeProperties::setJSONValShape() {
  m_jsonVal.Set(shapeKey, static_cast<int>(m_shape));
}

void AnnShapeProperties::setJSONValBorderColor() {
  framenote::WriteSplitColour(m_jsonVal, borderColorKey, borderColorTransparentKey, m_borderColor);
}

void AnnShapeProperties::setJSONValFillColor() {
  framenote::WriteSplitColour(m_jsonVal, fillColorKey, fillColorTransparentKey, m_fillColor);
}

void AnnShapeProperties::setJSONValThickness() {
  m_jsonVal.Set(thicknessKey, m_thickness);
}
