// SPDX-License-Identifier: MIT
#include "properties/annotation_properties.h"

IAnnotationProperties::IAnnotationProperties() : m_jsonVal(wxJSONTYPE_OBJECT) {}
IAnnotationProperties::IAnnotationProperties(wxJSONValue const &json) : m_jsonVal(json) {}
IAnnotationProperties::IAnnotationProperties(IAnnotationProperties const &) = default;
IAnnotationProperties &IAnnotationProperties::operator=(IAnnotationProperties const &) = default;
IAnnotationProperties::~IAnnotationProperties() = default;
