// SPDX-License-Identifier: MIT
#include "properties/ann_image_properties.h"

#include <wx/gdicmn.h>

#include "properties/property_json.h"

AnnImageProperties::AnnImageProperties() {
  initJSONVal();
}

AnnImageProperties::AnnImageProperties(wxJSONValue const &json) : IAnnotationProperties(json) {
  initFromJSONVal();
}

AnnImageProperties::AnnImageProperties(AnnImageProperties const &other) = default;
AnnImageProperties &AnnImageProperties::operator=(AnnImageProperties const &other) = default;
AnnImageProperties::~AnnImageProperties() = default;

void AnnImageProperties::initJSONVal() {
  setJSONValFileName();
  setJSONValKeepAspectRatio();
  setJSONValTransparentColor();
}

void AnnImageProperties::initFromJSONVal() {
  wxString const path =
      m_jsonVal.Get(fileNameKey, wxJSONValue(m_fileName.GetFullPath(wxPATH_NATIVE))).AsString();
  m_fileName = wxFileName(path, wxPATH_NATIVE);
  m_keepAspectRatio = framenote::ReadBool(m_jsonVal, keepAspectRatioKey, m_keepAspectRatio);
  m_transparentColor = framenote::ReadEnum(m_jsonVal, transparentColorKey, m_transparentColor);
  // A missing key stays missing here, unlike in the other records, until a setter writes it.
}

wxColour AnnImageProperties::GetTransparentWxColour() const {
  switch (m_transparentColor) {
    case White:
      return *wxWHITE;
    case Black:
      return *wxBLACK;
    default:
      return wxNullColour;
  }
}

void AnnImageProperties::SetFileName(wxFileName const &value) {
  m_fileName = value;
  setJSONValFileName();
}

void AnnImageProperties::SetKeepAspectRatio(bool value) {
  m_keepAspectRatio = value;
  setJSONValKeepAspectRatio();
}

void AnnImageProperties::SetTransparentColor(TransparentColor value) {
  m_transparentColor = value;
  setJSONValTransparentColor();
}

void AnnImageProperties::setJSONValFileName() {
  m_jsonVal.Set(fileNameKey, wxJSONValue(m_fileName.GetFullPath(wxPATH_NATIVE)));
}

void AnnImageProperties::setJSONValKeepAspectRatio() {
  m_jsonVal.Set(keepAspectRatioKey, m_keepAspectRatio);
}

void AnnImageProperties::setJSONValTransparentColor() {
  m_jsonVal.Set(transparentColorKey, static_cast<int>(m_transparentColor));
}
