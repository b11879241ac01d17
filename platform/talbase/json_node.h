// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "talbase/json_value.h"

/// The shared insides of JSON values. Private to talbase.
namespace framenote {

/// What strings, arrays and objects are made of. A node with several owners never changes.
struct JsonNode {
  std::atomic<std::uint32_t> owners{1};
  /// A reference to an inside of this node was handed out: it is copied rather than shared.
  bool isExposed = false;
};

struct JsonString : JsonNode {
  std::string utf8;
};

struct JsonArray : JsonNode {
  std::vector<wxJSONValue> elements;
};

struct JsonMember {
  std::string key;  ///< UTF-8
  wxJSONValue value;
};

/// Members in their order, with an index once there are many.
struct JsonObject : JsonNode {
  static constexpr std::size_t kNowhere = static_cast<std::size_t>(-1);

  std::vector<JsonMember> members;
  /// Empty while members are few. Ordered, so that no choice of names makes it slow.
  std::map<std::string, std::size_t, std::less<>> index;

  std::size_t Find(std::string_view key) const;
  /// The member's value; made as null if there is none.
  wxJSONValue &At(std::string_view key);
  bool Remove(std::string_view key);

private:
  void rebuildIndex();
};

/// What the rest of talbase may do with the inside of a value.
struct JsonAccess {
  /// Null for values that have none.
  static JsonNode const *Node(wxJSONValue const &value) noexcept {
    return value.hasNode() ? value.m_node : nullptr;
  }
  static JsonString const &String(wxJSONValue const &value) {
    return static_cast<JsonString const &>(*value.m_node);
  }
  static JsonArray const &Array(wxJSONValue const &value) {
    return static_cast<JsonArray const &>(*value.m_node);
  }
  static JsonObject const &Object(wxJSONValue const &value) {
    return static_cast<JsonObject const &>(*value.m_node);
  }
  /// The node of an array or object, made so from another kind, and the value's own.
  static JsonArray &OwnArray(wxJSONValue &value);
  static JsonObject &OwnObject(wxJSONValue &value);
  static wxJSONValue MakeString(std::string utf8);

private:
  template <class Node>
  static Node &own(wxJSONValue &value, wxJSONType type);
};

/// UTF-8 of a text, and the text of UTF-8.
std::string Utf8Of(wxString const &text);
wxString TextOf(std::string const &utf8);

}  // namespace framenote
