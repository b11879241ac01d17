// SPDX-License-Identifier: MIT
#include "properties/ann_magnify_properties.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "properties/property_json.h"

namespace {

/// A text has no form for what is not finite; what stands for it acts as it does.
double WithTextForm(double zoom) {
  using Limits = std::numeric_limits<double>;
  return std::isnan(zoom) ? 0.0 : std::clamp(zoom, Limits::lowest(), Limits::max());
}

}  // namespace

AnnMagnifyProperties::AnnMagnifyProperties() {
  initJSONVal();
}

AnnMagnifyProperties::AnnMagnifyProperties(wxJSONValue const &json) : IAnnotationProperties(json) {
  initFromJSONVal();
}

AnnMagnifyProperties::AnnMagnifyProperties(AnnMagnifyProperties const &other) = default;
AnnMagnifyProperties &AnnMagnifyProperties::operator=(AnnMagnifyProperties const &other) = default;
AnnMagnifyProperties::~AnnMagnifyProperties() = default;

void AnnMagnifyProperties::initJSONVal() {
  setJSONValZoom();
  setJSONFixedSourceSize();
  setJSONValZoomMethod();
  setJSONValShape();
  setJSONValBorderColor();
  setJSONValBorderType();
  setJSONValThickness();
}

void AnnMagnifyProperties::initFromJSONVal() {
  wxJSONValue const zoom = m_jsonVal.Get(zoomKey, m_zoom);
  m_zoom = zoom.IsDouble() ? zoom.AsDouble() : zoom.AsInt();
  m_fixedSourceSize = framenote::ReadBool(m_jsonVal, fixedSourceSizeKey, m_fixedSourceSize);
  m_zoomMethod = framenote::ReadInt(m_jsonVal, zoomMethodKey, m_zoomMethod);
  m_shape = framenote::ReadEnum(m_jsonVal, shapeKey, m_shape);
  m_borderColor = framenote::ReadColour(m_jsonVal, borderColorKey, m_borderColor);
  m_borderType = framenote::ReadEnum(m_jsonVal, borderTypeKey, m_borderType);
  m_thickness = framenote::ReadInt(m_jsonVal, thicknessKey, m_thickness);
  initJSONVal();
}

void AnnMagnifyProperties::SetZoom(double value) {
  m_zoom = value;
  setJSONValZoom();
}

void AnnMagnifyProperties::SetFixedSourceSize(bool value) {
  m_fixedSourceSize = value;
  setJSONFixedSourceSize();
}

void AnnMagnifyProperties::SetZoomMethod(wxImageResizeQuality value) {
  m_zoomMethod = value;
  setJSONValZoomMethod();
}

void AnnMagnifyProperties::SetShape(AnnShapeProperties::Shape value) {
  m_shape = value;
  setJSONValShape();
}

void AnnMagnifyProperties::SetBorderColor(wxColour const &value) {
  m_borderColor = value;
  setJSONValBorderColor();
}

void AnnMagnifyProperties::SetBorderType(BorderType value) {
  m_borderType = value;
  setJSONValBorderType();
}

void AnnMagnifyProperties::SetThickness(int value) {
  m_thickness = value;
  setJSONValThickness();
}

void AnnMagnifyProperties::setJSONValZoom() {
  m_jsonVal.Set(zoomKey, WithTextForm(m_zoom));
}

void AnnMagnifyProperties::setJSONFixedSourceSize() {
  m_jsonVal.Set(fixedSourceSizeKey, m_fixedSourceSize);
}

void AnnMagnifyProperties::setJSONValZoomMethod() {
  m_jsonVal.Set(zoomMethodKey, m_zoomMethod);
}

void AnnMagnifyProperties::setJSONValShape() {
  m_jsonVal.Set(shapeKey, static_cast<int>(m_shape));
}

void AnnMagnifyProperties::setJSONValBorderColor() {
  framenote::WriteColour(m_jsonVal, borderColorKey, m_borderColor);
}

void AnnMagnifyProperties::setJSONValBorderType() {
  m_jsonVal.Set(borderTypeKey, static_cast<int>(m_borderType));
}

void AnnMagnifyProperties::setJSONValThickness() {
  m_jsonVal.Set(thicknessKey, m_thickness);
}
