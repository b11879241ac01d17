// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

#include <wx/string.h>

#include "framenote/export.h"

namespace framenote {
struct JsonAccess;
struct JsonNode;
}  // namespace framenote

/// The kind of a wxJSONValue.
enum wxJSONType {
  wxJSONTYPE_INVALID = 0,  ///< no value: what a missing member reads as
  wxJSONTYPE_NULL,
  wxJSONTYPE_BOOL,
  wxJSONTYPE_INT,  ///< a signed 64-bit integer, exact over its whole range
  wxJSONTYPE_DOUBLE,
  wxJSONTYPE_STRING,
  wxJSONTYPE_ARRAY,
  wxJSONTYPE_OBJECT
};

/// A JSON value with value semantics: a copy is independent of its source.
///
/// Copies are cheap. Arrays and objects are shared nodes that are copied when one of their owners
/// changes them, along the changed path only, so appending a value to an array costs O(1) and two
/// values that share a node compare equal without a visit. A node to whose inside a reference was
/// handed out (by the non-const `operator[]` or `Item`) is copied rather than shared, so that a
/// write through the reference never reaches a copy.
///
/// Members of an object keep the order in which they were first set. Nothing throws. What is no
/// Unicode text is kept with U+FFFD for each stray character. Use a value from one thread at a
/// time; copies may live on other threads. Values nested some ten thousand levels deep exhaust the
/// stack when they are destroyed, compared or written; texts are read to 128 levels.
class FRAMENOTE_API wxJSONValue {
public:
  /// A null value; valid.
  wxJSONValue() noexcept;
  /// An empty value of `type`: false, 0, 0.0, "", [] or {}.
  explicit wxJSONValue(wxJSONType type);
  ///@{
  /// A value of the kind that holds `value` exactly.
  wxJSONValue(bool value) noexcept;
  wxJSONValue(int value) noexcept;
  wxJSONValue(unsigned int value) noexcept;
  wxJSONValue(long value) noexcept;
  wxJSONValue(long long value) noexcept;
  ///@}
  ///@{
  /// Values beyond the signed 64-bit range become its greatest value.
  wxJSONValue(unsigned long value) noexcept;
  wxJSONValue(unsigned long long value) noexcept;
  ///@}
  wxJSONValue(double value) noexcept;  ///< A double, NaN and infinities included.
  wxJSONValue(wxString const &value);  ///< A string.
  ///@{
  /// Bytes that are not UTF-8 give the empty string, and so does a null pointer.
  wxJSONValue(char const *utf8);
  wxJSONValue(wchar_t const *text);
  ///@}
  ///@{
  /// In O(1) but for nodes with a reference outstanding. A value moved from is null.
  wxJSONValue(wxJSONValue const &other);
  wxJSONValue(wxJSONValue &&other) noexcept;
  wxJSONValue &operator=(wxJSONValue const &other);
  wxJSONValue &operator=(wxJSONValue &&other) noexcept;
  ///@}
  ~wxJSONValue();

  wxJSONType GetType() const noexcept { return m_type; }  ///< its kind
  /// there is a value, be it null
  bool IsValid() const noexcept { return m_type != wxJSONTYPE_INVALID; }
  ///@{
  /// Whether the value is of that kind; a null value is valid.
  bool IsNull() const noexcept { return m_type == wxJSONTYPE_NULL; }
  bool IsBool() const noexcept { return m_type == wxJSONTYPE_BOOL; }
  bool IsInt() const noexcept { return m_type == wxJSONTYPE_INT; }
  bool IsDouble() const noexcept { return m_type == wxJSONTYPE_DOUBLE; }
  bool IsString() const noexcept { return m_type == wxJSONTYPE_STRING; }
  bool IsArray() const noexcept { return m_type == wxJSONTYPE_ARRAY; }
  bool IsObject() const noexcept { return m_type == wxJSONTYPE_OBJECT; }
  ///@}

  ///@{
  /// Numbers convert among themselves, saturating and truncating toward zero (NaN gives 0);
  /// a bool gives itself as a bool only; any other kind gives 0, 0.0, false.
  bool AsBool() const noexcept;
  int AsInt() const noexcept;
  std::int64_t AsInt64() const noexcept;
  double AsDouble() const noexcept;
  ///@}
  /// The text of a string, "null" for null, "" for anything else.
  wxString AsString() const;

  /// Elements of an array, members of an object, 0 for anything else.
  int Size() const noexcept;
  bool HasMember(wxString const &key) const;  ///< False for anything but an object.
  /// The member's names in their order; empty for anything but an object.
  std::vector<wxString> GetMemberNames() const;

  ///@{
  /// The member or element, or an invalid value where there is none.
  wxJSONValue ItemAt(wxString const &key) const;
  wxJSONValue ItemAt(char const *key) const;
  wxJSONValue ItemAt(int index) const;
  ///@}
  /// The member, or `fallback` where there is none.
  wxJSONValue Get(wxString const &key, wxJSONValue const &fallback) const;

  ///@{
  /// A reference into this value. A value of another kind first becomes an object (an array), a
  /// missing member (element) is made as null. The reference lasts until the next change of this
  /// value by another operation. An index is capped: a negative one acts as 0, and one beyond the
  /// end acts as the end (one null element is appended).
  wxJSONValue &Item(wxString const &key);
  wxJSONValue &Item(int index);
  wxJSONValue &operator[](wxString const &key);
  wxJSONValue &operator[](char const *key);
  wxJSONValue &operator[](int index);
  ///@}

  /// Sets one member without handing out a reference, so the value stays shareable. A value of
  /// another kind first becomes an object. A value moved in takes the references into it along.
  void Set(wxString const &key, wxJSONValue value);
  /// Appends to an array in O(1); a value of another kind first becomes an empty array.
  void Append(wxJSONValue value);
  ///@{
  /// Removes a member or element; false where there is none.
  bool Remove(wxString const &key);
  bool Remove(int index);
  ///@}

  /// Deep equality. An integer and a double are never the same; objects are the same whatever the
  /// order of their members; NaN is the same as NaN, 0.0 as -0.0. Shared nodes are equal without a
  /// visit.
  bool IsSameAs(wxJSONValue const &other) const;

private:
  friend struct framenote::JsonAccess;

  explicit wxJSONValue(wxJSONType type, framenote::JsonNode *node) noexcept;
  bool hasNode() const noexcept { return m_type >= wxJSONTYPE_STRING; }
  void release() noexcept;
  void copyFrom(wxJSONValue const &other);

  wxJSONType m_type = wxJSONTYPE_NULL;
  union {
    std::int64_t m_int;  // booleans too, as 0 and 1
    double m_double;
    framenote::JsonNode *m_node;  // counted; strings, arrays and objects
  };
};
