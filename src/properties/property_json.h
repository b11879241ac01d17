// SPDX-License-Identifier: MIT
#pragma once

#include <wx/colour.h>

class wxJSONValue;

/// The forms that the property records share.
namespace framenote {

/// Numbers and flags, with the default in the key's JSON form where the key is missing.
int ReadInt(wxJSONValue const &json, char const *key, int fallback);
bool ReadBool(wxJSONValue const &json, char const *key, bool fallback);

/// An enumeration as its number, unchecked. Its underlying type is fixed, so that it can hold any.
template <class Enum>
Enum ReadEnum(wxJSONValue const &json, char const *key, Enum fallback) {
  return static_cast<Enum>(ReadInt(json, key, fallback));
}

/// A colour as one text, alpha included.
void WriteColour(wxJSONValue &json, char const *key, wxColour const &colour);
wxColour ReadColour(wxJSONValue const &json, char const *key, wxColour const &fallback);

/// A colour as an opaque text and a flag that tells whether it is wholly transparent. Any alpha
/// from 1 to 254 is lost: it comes back as 255.
void WriteSplitColour(wxJSONValue &json, char const *key, char const *transparentKey,
                      wxColour const &colour);
wxColour ReadSplitColour(wxJSONValue const &json, char const *key, char const *transparentKey,
                         wxColour const &fallback);

}  // namespace framenote
