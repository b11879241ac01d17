// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

#include <wx/colour.h>
#include <wx/font.h>
#include <wx/geometry.h>
#include <wx/string.h>

#include "framenote/export.h"
#include "talbase/json_value.h"

/// JSON and text forms of the toolkit's types.
///
/// | type                     | form                                                          |
/// |--------------------------|---------------------------------------------------------------|
/// | points                   | `[x, y]`                                                      |
/// | vectors                  | arrays of those forms                                         |
/// | wxColour                 | `"#RRGGBBAA"`, upper case; the text `null` is the null colour |
/// | wxFont                   | `"size;style;weight;underlined;strikethrough;face"`           |
///
/// A font's size is in points, with a fraction where it has one; its style is `normal`, `italic` or
/// `slant`, its weight 1 to 1000, the flags are 0 or 1. The face comes last, as it may hold
/// anything. Nothing throws; what cannot be read gives (0, 0), the null colour, the null font, or
/// an empty vector.

FRAMENOTE_API wxJSONValue ToJson(wxPoint2DDouble const &point);
FRAMENOTE_API wxJSONValue ToJson(wxPoint2DInt const &point);
FRAMENOTE_API wxJSONValue ToJson(wxColour const &colour);
FRAMENOTE_API wxJSONValue ToJson(std::vector<wxPoint2DDouble> const &points);
FRAMENOTE_API wxJSONValue ToJson(std::vector<wxPoint2DInt> const &points);
FRAMENOTE_API wxJSONValue ToJson(std::vector<std::int64_t> const &numbers);
FRAMENOTE_API wxJSONValue ToJson(std::vector<int> const &numbers);
FRAMENOTE_API wxJSONValue ToJson(std::vector<wxString> const &texts);

/// Reads the form that ToJson writes. Integers saturate.
template <class T>
T FromJson(wxJSONValue const &value);
template <>
FRAMENOTE_API wxPoint2DDouble FromJson<wxPoint2DDouble>(wxJSONValue const &value);
template <>
FRAMENOTE_API wxPoint2DInt FromJson<wxPoint2DInt>(wxJSONValue const &value);
template <>
FRAMENOTE_API wxColour FromJson<wxColour>(wxJSONValue const &value);
template <>
FRAMENOTE_API std::vector<wxPoint2DDouble> FromJson<std::vector<wxPoint2DDouble>>(
    wxJSONValue const &value);
template <>
FRAMENOTE_API std::vector<wxPoint2DInt> FromJson<std::vector<wxPoint2DInt>>(
    wxJSONValue const &value);
template <>
FRAMENOTE_API std::vector<std::int64_t> FromJson<std::vector<std::int64_t>>(
    wxJSONValue const &value);
template <>
FRAMENOTE_API std::vector<int> FromJson<std::vector<int>>(wxJSONValue const &value);
template <>
FRAMENOTE_API std::vector<wxString> FromJson<std::vector<wxString>>(wxJSONValue const &value);

template <class T>
wxString ToString(T const &);
template <>
FRAMENOTE_API wxString ToString<wxColour>(wxColour const &colour);
template <>
FRAMENOTE_API wxString ToString<wxFont>(wxFont const &font);

template <class T>
T FromString(wxString const &text);
/// Exactly `#RRGGBBAA`, or `#RRGGBB` for an opaque colour; anything else is the null colour.
template <>
FRAMENOTE_API wxColour FromString<wxColour>(wxString const &text);
/// Numbers beyond what a font can have are brought within: sizes to 1 to 10000 points.
template <>
FRAMENOTE_API wxFont FromString<wxFont>(wxString const &text);
