// SPDX-License-Identifier: MIT
#include "project/path_text.h"

#include <vector>

#include <wx/strconv.h>

#include "talbase/json_conversions.h"

namespace {

constexpr int kLastByte = 255;

bool IsUtf8(std::string const &bytes) {
  return bytes.empty() || !wxString::FromUTF8(bytes).empty();
}

}  // namespace

#ifdef _WIN32

std::string BytesOfPath(wxString const &path) {
  return path.utf8_string();
}

wxString ShownPath(std::string const &path) {
  return TextOfPath(path);
}

#else

std::string BytesOfPath(wxString const &path) {
  wxScopedCharBuffer const bytes = path.mb_str(*wxConvFileName);
  return bytes.data() == nullptr ? path.utf8_string() : std::string(bytes.data(), bytes.length());
}

wxString ShownPath(std::string const &path) {
  wxString const shown(path.c_str(), *wxConvFileName);
  return shown.empty() ? TextOfPath(path) : shown;
}

#endif

wxString TextOfPath(std::string const &path) {
  return IsUtf8(path) ? wxString::FromUTF8(path) : wxString::From8BitData(path.c_str());
}

wxJSONValue JsonOfPath(std::string const &path) {
  if (IsUtf8(path)) return wxJSONValue(wxString::FromUTF8(path));
  std::vector<int> bytes;
  for (char const byte : path) bytes.push_back(static_cast<unsigned char>(byte));
  return ToJson(bytes);
}

std::string PathOfJson(wxJSONValue const &json) {
  std::string path;
  if (json.IsString()) path = json.AsString().utf8_string();
  for (int const byte : FromJson<std::vector<int>>(json)) {
    if (byte < 0 || byte > kLastByte) return {};
    path += static_cast<char>(byte);
  }
  // No path holds a zero: it would end there for the system, and go on for us.
  return path.find('\0') == std::string::npos ? path : std::string();
}
