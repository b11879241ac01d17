// SPDX-License-Identifier: MIT
#include "properties/property_json.h"

#include "talbase/json_conversions.h"
#include "talbase/json_value.h"

namespace framenote {

namespace {

/// A null colour has no components; it counts as transparent black.
wxColour WithAlpha(wxColour const &colour, unsigned char alpha) {
  if (!colour.IsOk()) return wxColour(0, 0, 0, alpha);
  return wxColour(colour.Red(), colour.Green(), colour.Blue(), alpha);
}

bool IsTransparent(wxColour const &colour) {
  return !colour.IsOk() || colour.Alpha() == wxALPHA_TRANSPARENT;
}

}  // namespace

int ReadInt(wxJSONValue const &json, char const *key, int fallback) {
  return json.Get(key, fallback).AsInt();
}

bool ReadBool(wxJSONValue const &json, char const *key, bool fallback) {
  return json.Get(key, fallback).AsBool();
}

void WriteColour(wxJSONValue &json, char const *key, wxColour const &colour) {
  json.Set(key, wxJSONValue(ToString(colour)));
}

wxColour ReadColour(wxJSONValue const &json, char const *key, wxColour const &fallback) {
  return FromJson<wxColour>(json.Get(key, wxJSONValue(ToString(fallback))));
}

void WriteSplitColour(wxJSONValue &json, char const *key, char const *transparentKey,
                      wxColour const &colour) {
  json.Set(key, wxJSONValue(ToString(WithAlpha(colour, wxALPHA_OPAQUE))));
  json.Set(transparentKey, wxJSONValue(IsTransparent(colour)));
}

wxColour ReadSplitColour(wxJSONValue const &json, char const *key, char const *transparentKey,
                         wxColour const &fallback) {
  wxColour const colour = ReadColour(json, key, WithAlpha(fallback, wxALPHA_OPAQUE));
  bool const transparent = ReadBool(json, transparentKey, IsTransparent(fallback));
  return WithAlpha(colour, transparent ? wxALPHA_TRANSPARENT : wxALPHA_OPAQUE);
}

}  // namespace framenote
