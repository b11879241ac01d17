// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <wx/string.h>

#include "talbase/json_value.h"

/// Paths are bytes, and need not be text. These are their forms for people and for JSON.

/// Paths as the system has them (on Windows as UTF-8) and as controls show them. The one becomes
/// the other and the same again.
std::string BytesOfPath(wxString const &path);
wxString ShownPath(std::string const &path);

/// For showing only: bytes that are no UTF-8 appear as Latin-1.
wxString TextOfPath(std::string const &path);

/// A path that is UTF-8 as a string; any other one as an array of its bytes, so that it is the same
/// when it is read again.
wxJSONValue JsonOfPath(std::string const &path);
/// Reads the form that JsonOfPath writes; anything else gives the empty path.
std::string PathOfJson(wxJSONValue const &json);
