// SPDX-License-Identifier: MIT
#include "talbase/json_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

#include <nlohmann/json.hpp>

#include "talbase/json_node.h"

namespace {

constexpr std::size_t kMaxDepth = 128;

// --- Writing ---

bool NeedsEscape(char c) {
  return static_cast<unsigned char>(c) < 0x20 || c == '"' || c == '\\';
}

void WriteString(std::string &out, std::string const &utf8) {
  if (std::any_of(utf8.begin(), utf8.end(), NeedsEscape)) {
    using nlohmann::json;
    out += json(utf8).dump(-1, ' ', false, json::error_handler_t::replace);
    return;
  }
  out += '"';
  out += utf8;
  out += '"';
}

template <class Number>
std::string_view Digits(Number value, char *first, char *last) {
  return {first, static_cast<std::size_t>(std::to_chars(first, last, value).ptr - first)};
}

void WriteDouble(std::string &out, double value) {
  if (!std::isfinite(value)) {
    out += "null";
    return;
  }
  char buffer[32];
  std::string_view const digits = Digits(value, buffer, buffer + sizeof buffer);
  out += digits;
  // A double stays one when it is read back.
  bool const isWhole =
      std::none_of(digits.begin(), digits.end(), [](char c) { return c == '.' || c == 'e'; });
  if (isWhole) out += ".0";
}

void WriteInt(std::string &out, std::int64_t value) {
  char buffer[24];
  out += Digits(value, buffer, buffer + sizeof buffer);
}

void Write(std::string &out, wxJSONValue const &value);

void WriteArray(std::string &out, framenote::JsonArray const &array) {
  out += '[';
  bool first = true;
  for (wxJSONValue const &element : array.elements) {
    if (!std::exchange(first, false)) out += ',';
    Write(out, element);
  }
  out += ']';
}

void WriteObject(std::string &out, framenote::JsonObject const &object) {
  out += '{';
  bool first = true;
  for (framenote::JsonMember const &member : object.members) {
    if (!std::exchange(first, false)) out += ',';
    WriteString(out, member.key);
    out += ':';
    Write(out, member.value);
  }
  out += '}';
}

void Write(std::string &out, wxJSONValue const &value) {
  using framenote::JsonAccess;
  switch (value.GetType()) {
    case wxJSONTYPE_BOOL:
      out += value.AsBool() ? "true" : "false";
      break;
    case wxJSONTYPE_INT:
      WriteInt(out, value.AsInt64());
      break;
    case wxJSONTYPE_DOUBLE:
      WriteDouble(out, value.AsDouble());
      break;
    case wxJSONTYPE_STRING:
      WriteString(out, JsonAccess::String(value).utf8);
      break;
    case wxJSONTYPE_ARRAY:
      WriteArray(out, JsonAccess::Array(value));
      break;
    case wxJSONTYPE_OBJECT:
      WriteObject(out, JsonAccess::Object(value));
      break;
    default:
      out += "null";
      break;
  }
}

// --- Reading ---

/// Receives the parser's events and builds the value. Returning false ends the parsing.
class Builder {
public:
  wxJSONValue TakeRoot() { return std::move(m_root); }

  bool null() { return add(wxJSONValue()); }
  bool boolean(bool value) { return add(wxJSONValue(value)); }
  bool number_integer(std::int64_t value) { return add(wxJSONValue(value)); }
  bool number_unsigned(std::uint64_t value) {
    constexpr auto kMax = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    if (value > kMax) return add(wxJSONValue(static_cast<double>(value)));
    return add(wxJSONValue(static_cast<std::int64_t>(value)));
  }
  bool number_float(double value, std::string const &) { return add(wxJSONValue(value)); }
  bool string(std::string &value) {
    return add(framenote::JsonAccess::MakeString(std::move(value)));
  }
  bool binary(nlohmann::json::binary_t &) { return false; }
  bool start_object(std::size_t) { return open(wxJSONTYPE_OBJECT); }
  bool start_array(std::size_t) { return open(wxJSONTYPE_ARRAY); }
  bool key(std::string &name) {
    m_open.back().key = std::move(name);
    return true;
  }
  bool end_object() { return close(); }
  bool end_array() { return close(); }
  bool parse_error(std::size_t, std::string const &, nlohmann::json::exception const &) {
    return false;
  }

private:
  struct Container {
    wxJSONValue value;
    std::string key;  ///< of the member that comes next
  };

  bool open(wxJSONType type) {
    if (m_open.size() == kMaxDepth) return false;
    m_open.push_back({wxJSONValue(type), {}});
    return true;
  }

  bool close() {
    wxJSONValue value = std::move(m_open.back().value);
    m_open.pop_back();
    return add(std::move(value));
  }

  bool add(wxJSONValue value) {
    using framenote::JsonAccess;
    if (m_open.empty()) {
      m_root = std::move(value);
    } else if (m_open.back().value.IsArray()) {
      JsonAccess::OwnArray(m_open.back().value).elements.push_back(std::move(value));
    } else {
      JsonAccess::OwnObject(m_open.back().value).At(m_open.back().key) = std::move(value);
    }
    return true;
  }

  wxJSONValue m_root{wxJSONTYPE_INVALID};
  std::vector<Container> m_open;
};

}  // namespace

std::string JsonToUtf8(wxJSONValue const &value) {
  std::string out;
  Write(out, value);
  return out;
}

wxString JsonToText(wxJSONValue const &value) {
  return framenote::TextOf(JsonToUtf8(value));
}

wxJSONValue JsonFromUtf8(std::string_view utf8) {
  // To the parser a zero byte is the end of the text, whatever stands behind it.
  bool const isWhole = utf8.find('\0') == std::string_view::npos;
  Builder builder;
  bool const isParsed = isWhole && nlohmann::json::sax_parse(utf8.begin(), utf8.end(), &builder);
  return isParsed ? builder.TakeRoot() : wxJSONValue(wxJSONTYPE_INVALID);
}

wxJSONValue JsonFromText(wxString const &text) {
  // A string value has rid the text of what is no Unicode.
  wxJSONValue const clean(text);
  return JsonFromUtf8(framenote::JsonAccess::String(clean).utf8);
}
