// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include <wx/string.h>

#include "framenote/export.h"
#include "talbase/json_value.h"

/// The value as compact JSON text (RFC 8259). Doubles take the shortest form that reads back bit
/// for bit; NaN and infinities, which JSON lacks, are written as null, and so is an invalid value.
FRAMENOTE_API wxString JsonToText(wxJSONValue const &value);
/// The same as UTF-8, without the way through wide characters.
FRAMENOTE_API std::string JsonToUtf8(wxJSONValue const &value);

/// The value of a text; an invalid value if it does not parse, holds anything after the value, or
/// nests deeper than 128 levels. Integers beyond 64 bits become doubles. Of members with the same
/// name the last value counts.
FRAMENOTE_API wxJSONValue JsonFromText(wxString const &text);
/// The same from UTF-8; bytes that are not UTF-8 do not parse. A byte order mark is passed over.
FRAMENOTE_API wxJSONValue JsonFromUtf8(std::string_view utf8);
