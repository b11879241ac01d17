// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <wx/colour.h>

#include "properties/annotation_properties.h"
#include "talbase/json_conversions.h"
#include "talbase/json_text.h"
#include "talbase/json_value.h"

namespace framenote::test {

/// The record's JSON as text, so that the order of its keys is seen.
inline std::string TextOf(IAnnotationProperties const &record) {
  return JsonToUtf8(record.ToJSON());
}

/// A record built from JSON text.
template <class Record>
Record From(char const *json) {
  return Record(JsonFromUtf8(json));
}

/// A colour as "#RRGGBBAA", or "null".
inline std::string Hex(wxColour const &colour) {
  return ToString(colour).utf8_string();
}

}  // namespace framenote::test
