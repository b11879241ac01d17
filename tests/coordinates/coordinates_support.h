// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include <wx/geometry.h>

#include "talbase/json_value.h"

/// Builders of small documents for the tests of the stores.
namespace coordinates_test {

using Ranges = std::vector<std::pair<std::int64_t, std::int64_t>>;

inline wxJSONValue ArrayOf(std::vector<wxJSONValue> const &elements) {
  wxJSONValue array(wxJSONTYPE_ARRAY);
  for (auto const &element : elements) array.Append(element);
  return array;
}

inline wxJSONValue Pair(wxJSONValue const &first, wxJSONValue const &second) {
  return ArrayOf({first, second});
}

/// An element that is nothing but a range; any values, also bad ones.
inline wxJSONValue RunOf(wxJSONValue const &first, wxJSONValue const &last) {
  wxJSONValue element(wxJSONTYPE_OBJECT);
  element.Set("Range", Pair(first, last));
  return element;
}

/// A run whose centre has the given x, as a magnifier's store reads it.
inline wxJSONValue CenterRun(std::int64_t first, std::int64_t last, double x) {
  wxJSONValue element(wxJSONTYPE_OBJECT);
  element.Set("CenterPoint", Pair(x, 0.0));
  element.Set("Range", Pair(first, last));
  return element;
}

inline std::pair<std::int64_t, std::int64_t> RangeOf(wxJSONValue const &element) {
  wxJSONValue const range = element.ItemAt("Range");
  return {range.ItemAt(0).AsInt64(), range.ItemAt(1).AsInt64()};
}

/// The ranges of an array of runs, in its order.
inline Ranges RangesOf(wxJSONValue const &runs) {
  Ranges ranges;
  for (int i = 0; i < runs.Size(); ++i) ranges.push_back(RangeOf(runs.ItemAt(i)));
  return ranges;
}

}  // namespace coordinates_test
