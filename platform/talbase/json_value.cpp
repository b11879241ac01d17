// SPDX-License-Identifier: MIT
#include "talbase/json_value.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "talbase/json_node.h"

using framenote::JsonAccess;
using framenote::JsonArray;
using framenote::JsonNode;
using framenote::JsonObject;
using framenote::JsonString;
using framenote::Utf8Of;

namespace {

bool IsCharacter(wxUniChar c) {
  constexpr wxUint32 kLast = 0x10FFFF;
  // Where wide characters have 16 bits, surrogates are halves of characters and belong there.
  bool const isSurrogate = sizeof(wchar_t) > 2 && c.GetValue() >= 0xD800 && c.GetValue() <= 0xDFFF;
  return c.GetValue() <= kLast && !isSurrogate;
}

/// UTF-8 that every reader accepts, whatever stands in the text: one stray character in a label
/// must not make the whole written document unreadable.
std::string CleanUtf8Of(wxString const &text) {
  if (std::all_of(text.begin(), text.end(), IsCharacter)) return Utf8Of(text);
  constexpr wxUint32 kReplacement = 0xFFFD;
  wxString clean;
  clean.reserve(text.length());
  for (wxUniChar const c : text) clean += IsCharacter(c) ? c : wxUniChar(kReplacement);
  return Utf8Of(clean);
}

/// Whether there may be references into the value. A node that takes such a value in by moving
/// counts as exposed too, or its copies would share what the references write to.
bool IsExposed(wxJSONValue const &value) {
  return (value.IsArray() && JsonAccess::Array(value).isExposed) ||
         (value.IsObject() && JsonAccess::Object(value).isExposed);
}

template <class Unsigned>
std::int64_t Saturated(Unsigned value) {
  constexpr auto kMax = std::numeric_limits<std::int64_t>::max();
  return value > static_cast<Unsigned>(kMax) ? kMax : static_cast<std::int64_t>(value);
}

std::int64_t Truncated(double value) {
  constexpr double kLimit = 9223372036854775808.0;  // 2^63
  if (std::isnan(value)) return 0;
  if (value >= kLimit) return std::numeric_limits<std::int64_t>::max();
  if (value < -kLimit) return std::numeric_limits<std::int64_t>::min();
  return static_cast<std::int64_t>(value);
}

/// REQUIRES: `type` is that of a string, an array or an object; the same for the next one.
JsonNode *NewNode(wxJSONType type) {
  switch (type) {
    case wxJSONTYPE_STRING:
      return new JsonString;  // owned by the value, like those below
    case wxJSONTYPE_ARRAY:
      return new JsonArray;  // owned by the value
    default:
      return new JsonObject;  // owned by the value
  }
}

void DeleteNode(wxJSONType type, JsonNode *node) {
  switch (type) {
    case wxJSONTYPE_STRING:
      delete static_cast<JsonString *>(node);
      break;
    case wxJSONTYPE_ARRAY:
      delete static_cast<JsonArray *>(node);
      break;
    default:
      delete static_cast<JsonObject *>(node);
      break;
  }
}

bool SameArrays(JsonArray const &a, JsonArray const &b) {
  return std::equal(a.elements.begin(), a.elements.end(), b.elements.begin(), b.elements.end(),
                    [](wxJSONValue const &x, wxJSONValue const &y) { return x.IsSameAs(y); });
}

bool SameObjects(JsonObject const &a, JsonObject const &b) {
  if (a.members.size() != b.members.size()) return false;
  for (std::size_t i = 0; i < a.members.size(); ++i) {
    // Members mostly stand in the same order; only where they do not is a search needed.
    bool const inPlace = a.members[i].key == b.members[i].key;
    std::size_t const at = inPlace ? i : b.Find(a.members[i].key);
    if (at == JsonObject::kNowhere) return false;
    if (!a.members[i].value.IsSameAs(b.members[at].value)) return false;
  }
  return true;
}

}  // namespace

wxJSONValue::wxJSONValue() noexcept : m_int(0) {}

wxJSONValue::wxJSONValue(wxJSONType type) : m_type(type), m_int(0) {
  if (hasNode()) m_node = NewNode(type);
  if (type == wxJSONTYPE_DOUBLE) m_double = 0.0;
}

wxJSONValue::wxJSONValue(wxJSONType type, JsonNode *node) noexcept : m_type(type), m_node(node) {}

wxJSONValue::wxJSONValue(bool value) noexcept : m_type(wxJSONTYPE_BOOL), m_int(value ? 1 : 0) {}
wxJSONValue::wxJSONValue(int value) noexcept : m_type(wxJSONTYPE_INT), m_int(value) {}
wxJSONValue::wxJSONValue(unsigned int value) noexcept : m_type(wxJSONTYPE_INT), m_int(value) {}
wxJSONValue::wxJSONValue(long value) noexcept : m_type(wxJSONTYPE_INT), m_int(value) {}
wxJSONValue::wxJSONValue(long long value) noexcept : m_type(wxJSONTYPE_INT), m_int(value) {}
wxJSONValue::wxJSONValue(unsigned long value) noexcept
    : m_type(wxJSONTYPE_INT), m_int(Saturated(value)) {}
wxJSONValue::wxJSONValue(unsigned long long value) noexcept
    : m_type(wxJSONTYPE_INT), m_int(Saturated(value)) {}
wxJSONValue::wxJSONValue(double value) noexcept : m_type(wxJSONTYPE_DOUBLE), m_double(value) {}

wxJSONValue::wxJSONValue(wxString const &value)
    : wxJSONValue(JsonAccess::MakeString(CleanUtf8Of(value))) {}
wxJSONValue::wxJSONValue(char const *utf8) : wxJSONValue(wxString::FromUTF8(utf8)) {}
wxJSONValue::wxJSONValue(wchar_t const *text) : wxJSONValue(wxString(text)) {}

wxJSONValue::wxJSONValue(wxJSONValue const &other) : m_int(0) {
  copyFrom(other);
}

wxJSONValue::wxJSONValue(wxJSONValue &&other) noexcept
    : m_type(std::exchange(other.m_type, wxJSONTYPE_NULL)), m_int(std::exchange(other.m_int, 0)) {}

wxJSONValue &wxJSONValue::operator=(wxJSONValue const &other) {
  // By way of a copy: `other` may lie inside this value.
  if (this != &other) *this = wxJSONValue(other);
  return *this;
}

wxJSONValue &wxJSONValue::operator=(wxJSONValue &&other) noexcept {
  if (this == &other) return *this;
  wxJSONValue const old(std::move(*this));  // destroyed last, as `other` may lie inside it
  m_type = std::exchange(other.m_type, wxJSONTYPE_NULL);
  m_int = std::exchange(other.m_int, 0);
  return *this;
}

wxJSONValue::~wxJSONValue() {
  release();
}

void wxJSONValue::release() noexcept {
  if (!hasNode()) return;
  if (m_node->owners.fetch_sub(1, std::memory_order_acq_rel) == 1) DeleteNode(m_type, m_node);
}

// A node to whose inside a reference was handed out is copied, one level deep; what lies below it
// follows by the same rule.
void wxJSONValue::copyFrom(wxJSONValue const &other) {
  m_type = other.m_type;
  m_int = other.m_int;
  if (!hasNode()) return;
  if (!other.m_node->isExposed) {
    m_node->owners.fetch_add(1, std::memory_order_relaxed);
  } else if (m_type == wxJSONTYPE_ARRAY) {
    auto *const copy = new JsonArray;  // owned by this value
    copy->elements = JsonAccess::Array(other).elements;
    m_node = copy;
  } else {
    auto *const copy = new JsonObject;  // owned by this value
    copy->members = JsonAccess::Object(other).members;
    copy->index = JsonAccess::Object(other).index;
    m_node = copy;
  }
}

bool wxJSONValue::AsBool() const noexcept {
  return IsBool() && m_int != 0;
}

int wxJSONValue::AsInt() const noexcept {
  return static_cast<int>(std::clamp<std::int64_t>(AsInt64(), std::numeric_limits<int>::min(),
                                                   std::numeric_limits<int>::max()));
}

std::int64_t wxJSONValue::AsInt64() const noexcept {
  if (IsInt()) return m_int;
  return IsDouble() ? Truncated(m_double) : 0;
}

double wxJSONValue::AsDouble() const noexcept {
  if (IsDouble()) return m_double;
  return IsInt() ? static_cast<double>(m_int) : 0.0;
}

wxString wxJSONValue::AsString() const {
  if (IsNull()) return "null";
  if (!IsString()) return wxString();
  return framenote::TextOf(JsonAccess::String(*this).utf8);
}

int wxJSONValue::Size() const noexcept {
  std::size_t size = 0;
  if (IsArray()) size = JsonAccess::Array(*this).elements.size();
  if (IsObject()) size = JsonAccess::Object(*this).members.size();
  return static_cast<int>(size);
}

bool wxJSONValue::HasMember(wxString const &key) const {
  return IsObject() && JsonAccess::Object(*this).Find(CleanUtf8Of(key)) != JsonObject::kNowhere;
}

std::vector<wxString> wxJSONValue::GetMemberNames() const {
  std::vector<wxString> names;
  if (!IsObject()) return names;
  for (framenote::JsonMember const &member : JsonAccess::Object(*this).members) {
    names.push_back(framenote::TextOf(member.key));
  }
  return names;
}

wxJSONValue wxJSONValue::ItemAt(wxString const &key) const {
  return Get(key, wxJSONValue(wxJSONTYPE_INVALID));
}

// Stays clear of wxString: readers of documents ask by literals, some hundred thousand times.
wxJSONValue wxJSONValue::ItemAt(char const *key) const {
  if (!IsObject() || key == nullptr) return wxJSONValue(wxJSONTYPE_INVALID);
  JsonObject const &object = JsonAccess::Object(*this);
  std::size_t const found = object.Find(key);
  return found == JsonObject::kNowhere ? wxJSONValue(wxJSONTYPE_INVALID)
                                       : object.members[found].value;
}

wxJSONValue wxJSONValue::ItemAt(int index) const {
  if (!IsArray() || index < 0 || index >= Size()) return wxJSONValue(wxJSONTYPE_INVALID);
  return JsonAccess::Array(*this).elements[static_cast<std::size_t>(index)];
}

wxJSONValue wxJSONValue::Get(wxString const &key, wxJSONValue const &fallback) const {
  if (!IsObject()) return fallback;
  JsonObject const &object = JsonAccess::Object(*this);
  std::size_t const found = object.Find(CleanUtf8Of(key));
  return found == JsonObject::kNowhere ? fallback : object.members[found].value;
}

wxJSONValue &wxJSONValue::Item(wxString const &key) {
  JsonObject &object = JsonAccess::OwnObject(*this);
  object.isExposed = true;
  return object.At(CleanUtf8Of(key));
}

wxJSONValue &wxJSONValue::Item(int index) {
  JsonArray &array = JsonAccess::OwnArray(*this);
  array.isExposed = true;
  std::size_t const at =
      std::min(static_cast<std::size_t>(std::max(index, 0)), array.elements.size());
  if (at == array.elements.size()) array.elements.emplace_back();
  return array.elements[at];
}

wxJSONValue &wxJSONValue::operator[](wxString const &key) {
  return Item(key);
}
wxJSONValue &wxJSONValue::operator[](char const *key) {
  return Item(wxString::FromUTF8(key));
}
wxJSONValue &wxJSONValue::operator[](int index) {
  return Item(index);
}

void wxJSONValue::Set(wxString const &key, wxJSONValue value) {
  JsonObject &object = JsonAccess::OwnObject(*this);
  object.isExposed = object.isExposed || IsExposed(value);
  object.At(CleanUtf8Of(key)) = std::move(value);
}

void wxJSONValue::Append(wxJSONValue value) {
  JsonArray &array = JsonAccess::OwnArray(*this);
  array.isExposed = array.isExposed || IsExposed(value);
  array.elements.push_back(std::move(value));
}

bool wxJSONValue::Remove(wxString const &key) {
  return HasMember(key) && JsonAccess::OwnObject(*this).Remove(CleanUtf8Of(key));
}

bool wxJSONValue::Remove(int index) {
  if (!IsArray() || index < 0 || index >= Size()) return false;
  auto &elements = JsonAccess::OwnArray(*this).elements;
  elements.erase(elements.begin() + index);
  return true;
}

bool wxJSONValue::IsSameAs(wxJSONValue const &other) const {
  if (m_type != other.m_type) return false;
  switch (m_type) {
    case wxJSONTYPE_BOOL:
    case wxJSONTYPE_INT:
      return m_int == other.m_int;
    case wxJSONTYPE_DOUBLE:
      return m_double == other.m_double || (std::isnan(m_double) && std::isnan(other.m_double));
    case wxJSONTYPE_STRING:
      return m_node == other.m_node ||
             JsonAccess::String(*this).utf8 == JsonAccess::String(other).utf8;
    case wxJSONTYPE_ARRAY:
      return m_node == other.m_node ||
             SameArrays(JsonAccess::Array(*this), JsonAccess::Array(other));
    case wxJSONTYPE_OBJECT:
      return m_node == other.m_node ||
             SameObjects(JsonAccess::Object(*this), JsonAccess::Object(other));
    default:
      return true;
  }
}
