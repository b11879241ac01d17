// SPDX-License-Identifier: MIT
#include "talbase/json_conversions.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>

#include <wx/arrstr.h>

namespace {

constexpr double kLeastPoints = 1.0;
constexpr double kMostPoints = 10000.0;
constexpr int kLeastWeight = 1;
constexpr int kMostWeight = 1000;
/// Fields of a font's text before the face.
constexpr int kFontFields = 5;

template <class Number>
wxJSONValue Pair(Number x, Number y) {
  wxJSONValue pair(wxJSONTYPE_ARRAY);
  pair.Append(wxJSONValue(x));
  pair.Append(wxJSONValue(y));
  return pair;
}

bool IsNumber(wxJSONValue const &value) {
  return value.IsInt() || value.IsDouble();
}

bool IsPair(wxJSONValue const &value) {
  return value.IsArray() && value.Size() == 2 && IsNumber(value.ItemAt(0)) &&
         IsNumber(value.ItemAt(1));
}

template <class T, class Convert>
wxJSONValue ArrayOf(std::vector<T> const &items, Convert convert) {
  wxJSONValue array(wxJSONTYPE_ARRAY);
  for (T const &item : items) array.Append(convert(item));
  return array;
}

template <class T, class Convert>
std::vector<T> VectorOf(wxJSONValue const &array, Convert convert) {
  std::vector<T> items;
  if (!array.IsArray()) return items;
  items.reserve(static_cast<std::size_t>(array.Size()));
  for (int i = 0; i < array.Size(); ++i) items.push_back(convert(array.ItemAt(i)));
  return items;
}

/// The value of a text of hexadecimal digits; -1 if there is anything else in it.
long HexValue(wxString const &digits) {
  bool const isHex = std::all_of(digits.begin(), digits.end(),
                                 [](wxUniChar c) { return c.IsAscii() && wxIsxdigit(c); });
  long value = 0;
  return isHex && digits.ToLong(&value, 16) ? value : -1;
}

/// With all its digits and no exponent: the toolkit keeps 1024ths of a point.
wxString SizeText(double points) {
  char buffer[400];  // more than any double takes
  auto const end =
      std::to_chars(buffer, buffer + sizeof buffer, points, std::chars_format::fixed).ptr;
  return wxString::FromAscii(buffer, static_cast<std::size_t>(end - buffer));
}

wxString StyleName(wxFontStyle style) {
  if (style == wxFONTSTYLE_ITALIC) return "italic";
  return style == wxFONTSTYLE_SLANT ? "slant" : "normal";
}

wxFontStyle StyleOf(wxString const &name) {
  if (name == "italic") return wxFONTSTYLE_ITALIC;
  return name == "slant" ? wxFONTSTYLE_SLANT : wxFONTSTYLE_NORMAL;
}

}  // namespace

wxJSONValue ToJson(wxPoint2DDouble const &point) {
  return Pair(point.m_x, point.m_y);
}

wxJSONValue ToJson(wxPoint2DInt const &point) {
  return Pair(point.m_x, point.m_y);
}

wxJSONValue ToJson(wxColour const &colour) {
  return wxJSONValue(ToString(colour));
}

wxJSONValue ToJson(std::vector<wxPoint2DDouble> const &points) {
  return ArrayOf(points, [](wxPoint2DDouble const &point) { return ToJson(point); });
}

wxJSONValue ToJson(std::vector<wxPoint2DInt> const &points) {
  return ArrayOf(points, [](wxPoint2DInt const &point) { return ToJson(point); });
}

wxJSONValue ToJson(std::vector<std::int64_t> const &numbers) {
  return ArrayOf(numbers, [](std::int64_t number) { return wxJSONValue(number); });
}

wxJSONValue ToJson(std::vector<int> const &numbers) {
  return ArrayOf(numbers, [](int number) { return wxJSONValue(number); });
}

wxJSONValue ToJson(std::vector<wxString> const &texts) {
  return ArrayOf(texts, [](wxString const &text) { return wxJSONValue(text); });
}

template <>
wxPoint2DDouble FromJson<wxPoint2DDouble>(wxJSONValue const &value) {
  if (!IsPair(value)) return {0.0, 0.0};
  return {value.ItemAt(0).AsDouble(), value.ItemAt(1).AsDouble()};
}

template <>
wxPoint2DInt FromJson<wxPoint2DInt>(wxJSONValue const &value) {
  if (!IsPair(value)) return {0, 0};
  return {value.ItemAt(0).AsInt(), value.ItemAt(1).AsInt()};
}

template <>
wxColour FromJson<wxColour>(wxJSONValue const &value) {
  return FromString<wxColour>(value.AsString());
}

template <>
std::vector<wxPoint2DDouble> FromJson<std::vector<wxPoint2DDouble>>(wxJSONValue const &value) {
  return VectorOf<wxPoint2DDouble>(value, FromJson<wxPoint2DDouble>);
}

template <>
std::vector<wxPoint2DInt> FromJson<std::vector<wxPoint2DInt>>(wxJSONValue const &value) {
  return VectorOf<wxPoint2DInt>(value, FromJson<wxPoint2DInt>);
}

template <>
std::vector<std::int64_t> FromJson<std::vector<std::int64_t>>(wxJSONValue const &value) {
  return VectorOf<std::int64_t>(value, [](wxJSONValue const &item) { return item.AsInt64(); });
}

template <>
std::vector<int> FromJson<std::vector<int>>(wxJSONValue const &value) {
  return VectorOf<int>(value, [](wxJSONValue const &item) { return item.AsInt(); });
}

template <>
std::vector<wxString> FromJson<std::vector<wxString>>(wxJSONValue const &value) {
  return VectorOf<wxString>(value, [](wxJSONValue const &item) { return item.AsString(); });
}

template <>
wxString ToString<wxColour>(wxColour const &colour) {
  if (!colour.IsOk()) return "null";
  return wxString::Format("#%02X%02X%02X%02X", colour.Red(), colour.Green(), colour.Blue(),
                          colour.Alpha());
}

template <>
wxColour FromString<wxColour>(wxString const &text) {
  if (text.empty() || text[0] != '#') return wxNullColour;
  if (text.length() != 7 && text.length() != 9) return wxNullColour;
  long const rgb = HexValue(text.Mid(1, 6));
  long const alpha = text.length() == 9 ? HexValue(text.Mid(7)) : wxALPHA_OPAQUE;
  if (rgb < 0 || alpha < 0) return wxNullColour;
  auto const byte = [](long value) { return static_cast<unsigned char>(value & 0xFF); };
  return wxColour(byte(rgb >> 16), byte(rgb >> 8), byte(rgb), byte(alpha));
}

template <>
wxString ToString<wxFont>(wxFont const &font) {
  if (!font.IsOk()) return wxString();
  // No other size would be read again.
  double const points = std::clamp(font.GetFractionalPointSize(), kLeastPoints, kMostPoints);
  return wxString::Format("%s;%s;%d;%d;%d;%s", SizeText(points), StyleName(font.GetStyle()),
                          font.GetNumericWeight(), font.GetUnderlined() ? 1 : 0,
                          font.GetStrikethrough() ? 1 : 0, font.GetFaceName());
}

template <>
wxFont FromString<wxFont>(wxString const &text) {
  wxString face = text;
  wxArrayString fields;
  while (static_cast<int>(fields.size()) < kFontFields && face.Contains(";")) {
    fields.push_back(face.BeforeFirst(';'));
    face = face.AfterFirst(';');
  }
  double points = 0.0;
  long weight = 0;
  if (static_cast<int>(fields.size()) < kFontFields || !fields[0].ToCDouble(&points) ||
      !std::isfinite(points) || !fields[2].ToCLong(&weight)) {
    return wxNullFont;
  }
  wxFontInfo const info =
      wxFontInfo(std::clamp(points, kLeastPoints, kMostPoints))
          .Style(StyleOf(fields[1]))
          .Weight(static_cast<int>(std::clamp<long>(weight, kLeastWeight, kMostWeight)))
          .Underlined(fields[3] == "1")
          .Strikethrough(fields[4] == "1")
          .FaceName(face);
  return wxFont(info);
}
