// SPDX-License-Identifier: MIT
#include "talbase/json_node.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace framenote {

namespace {

/// Up to this many members a search from the front is faster than an index.
constexpr std::size_t kFewMembers = 16;

/// Eight bytes at a time: this runs over whole documents.
bool IsAscii(std::string const &utf8) {
  constexpr std::uint64_t kHighBits = 0x8080808080808080U;
  std::size_t at = 0;
  for (std::uint64_t word = 0; at + sizeof word <= utf8.size(); at += sizeof word) {
    std::memcpy(&word, utf8.data() + at, sizeof word);
    if ((word & kHighBits) != 0) return false;
  }
  return std::all_of(utf8.begin() + static_cast<std::ptrdiff_t>(at), utf8.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

JsonArray *CloneOf(JsonArray const &node) {
  auto *const clone = new JsonArray;  // owned by the value that asked
  clone->elements = node.elements;
  return clone;
}

JsonObject *CloneOf(JsonObject const &node) {
  auto *const clone = new JsonObject;  // owned by the value that asked
  clone->members = node.members;
  clone->index = node.index;
  return clone;
}

}  // namespace

std::size_t JsonObject::Find(std::string_view key) const {
  if (members.size() > kFewMembers) {
    auto const it = index.find(key);
    return it == index.end() ? kNowhere : it->second;
  }
  for (std::size_t i = 0; i < members.size(); ++i) {
    if (members[i].key == key) return i;
  }
  return kNowhere;
}

wxJSONValue &JsonObject::At(std::string_view key) {
  std::size_t const found = Find(key);
  if (found != kNowhere) return members[found].value;
  members.push_back({std::string(key), wxJSONValue()});
  if (members.size() == kFewMembers + 1) {
    rebuildIndex();
  } else if (members.size() > kFewMembers) {
    index.emplace(key, members.size() - 1);
  }
  return members.back().value;
}

bool JsonObject::Remove(std::string_view key) {
  std::size_t const found = Find(key);
  if (found == kNowhere) return false;
  members.erase(members.begin() + static_cast<std::ptrdiff_t>(found));
  rebuildIndex();
  return true;
}

void JsonObject::rebuildIndex() {
  index.clear();
  if (members.size() <= kFewMembers) return;
  for (std::size_t i = 0; i < members.size(); ++i) index.emplace(members[i].key, i);
}

template <class Node>
Node &JsonAccess::own(wxJSONValue &value, wxJSONType type) {
  if (value.m_type != type) value = wxJSONValue(type);
  if (value.m_node->owners.load(std::memory_order_acquire) > 1) {
    value = wxJSONValue(type, CloneOf(static_cast<Node const &>(*value.m_node)));
  }
  return static_cast<Node &>(*value.m_node);
}

JsonArray &JsonAccess::OwnArray(wxJSONValue &value) {
  return own<JsonArray>(value, wxJSONTYPE_ARRAY);
}

JsonObject &JsonAccess::OwnObject(wxJSONValue &value) {
  return own<JsonObject>(value, wxJSONTYPE_OBJECT);
}

wxJSONValue JsonAccess::MakeString(std::string utf8) {
  auto *const node = new JsonString;  // owned by the value below
  node->utf8 = std::move(utf8);
  return wxJSONValue(wxJSONTYPE_STRING, node);
}

std::string Utf8Of(wxString const &text) {
  return text.utf8_string();
}

wxString TextOf(std::string const &utf8) {
  if (!IsAscii(utf8)) return wxString::FromUTF8(utf8.data(), utf8.size());
  // Documents are long and nearly all ASCII: there each byte is a character. By pieces that stay in
  // the cache, and without filling the text first.
  constexpr std::size_t kPiece = 4096;
  wchar_t piece[kPiece];
  wxString text;
  text.reserve(utf8.size());
  for (std::size_t at = 0; at < utf8.size(); at += kPiece) {
    std::size_t const length = std::min(kPiece, utf8.size() - at);
    std::copy_n(utf8.data() + at, length, piece);
    text.append(piece, length);
  }
  return text;
}

}  // namespace framenote
