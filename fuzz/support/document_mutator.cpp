// SPDX-License-Identifier: MIT
#include "support/document_mutator.h"

#include <array>
#include <iterator>
#include <utility>
#include <vector>

#include "support/document_grammar.h"

namespace framenote::fuzz {
namespace {

/// Two objects show what one does to another; more would only take longer.
constexpr std::size_t kMostObjects = 2;

/// A value within a document, and the name of the member that holds it or its array.
struct Place {
  Json *value;
  std::string key;
};

using Places = std::vector<Place>;

void Collect(Json &value, std::string const &key, Places &places) {
  places.push_back({&value, key});
  if (value.is_object()) {
    for (auto &[name, member] : value.items()) Collect(member, name, places);
  } else if (value.is_array()) {
    for (Json &element : value) Collect(element, key, places);
  }
}

Places PlacesIn(Json &document) {
  Places places;
  Collect(document, {}, places);
  return places;
}

/// Only what has values in it.
Places ContainersIn(Json &document) {
  Places containers;
  for (Place &place : PlacesIn(document)) {
    if (place.value->is_structured() && !place.value->empty()) containers.push_back(place);
  }
  return containers;
}

Json::iterator AnyChild(Json &container, Chance &chance) {
  return std::next(container.begin(), static_cast<std::ptrdiff_t>(chance.Below(container.size())));
}

Json Parsed(std::string_view text) {
  return Json::parse(text.begin(), text.end(), nullptr, false);
}

std::string Text(Json const &document) {
  return document.dump(-1, ' ', false, Json::error_handler_t::replace);
}

/// The array of objects, which is made if there is none.
Json &ObjectsOf(Json &document) {
  if (!document.is_object()) document = Json::object();
  Json &annotate = document["Annotate"];
  if (!annotate.is_object()) annotate = Json::object();
  Json &objects = annotate["Objects"];
  if (!objects.is_array()) objects = Json::array();
  return objects;
}

Json NewDocument(Chance &chance) {
  Json document;
  Json &objects = ObjectsOf(document);
  for (int i = chance.Between(1, static_cast<int>(kMostObjects)); i > 0; --i)
    objects.push_back(AnyObject(chance));
  document["Annotate"]["ExtensionColor"] = ValueOf("ExtensionColor", chance);
  return document;
}

// --- The mutations ---

void ReplaceByRole(Json &document, Chance &chance) {
  Places const places = PlacesIn(document);
  Place const &place = chance.Pick(places);
  if (!place.value->is_structured() || !chance.OneIn(4)) {
    if (!place.value->is_object()) *place.value = ValueOf(place.key, chance);
  }
}

void ReplaceByAnything(Json &document, Chance &chance) {
  *chance.Pick(PlacesIn(document)).value = AnyValue(chance);
}

void ReplaceNumber(Json &document, Chance &chance) {
  Places numbers;
  for (Place &place : PlacesIn(document)) {
    if (place.value->is_number()) numbers.push_back(place);
  }
  if (numbers.empty()) return;
  Json &number = *chance.Pick(numbers).value;
  if (chance.OneIn(4)) {
    number = BorderNumber(chance);
  } else if (number.is_number_float()) {
    number = number.get<double>() * chance.Between(-3, 3) / 2.0;
  } else {
    // Modulo 2^64: near the borders it wraps.
    auto const step = static_cast<std::uint64_t>(chance.Between(-2, 2));
    number = static_cast<std::int64_t>(number.get<std::uint64_t>() + step);
  }
}

void RemoveChild(Json &document, Chance &chance) {
  Places const containers = ContainersIn(document);
  if (containers.empty()) return;
  Json &container = *chance.Pick(containers).value;
  container.erase(AnyChild(container, chance));
}

void RepeatChild(Json &document, Chance &chance) {
  Places const containers = ContainersIn(document);
  if (containers.empty()) return;
  Json &container = *chance.Pick(containers).value;
  Json child = *AnyChild(container, chance);
  if (container.is_array()) {
    container.insert(AnyChild(container, chance), std::move(child));
  } else {
    container[AnyKey(chance)] = std::move(child);
  }
}

void SwapChildren(Json &document, Chance &chance) {
  Places const containers = ContainersIn(document);
  if (containers.empty()) return;
  Json &container = *chance.Pick(containers).value;
  std::swap(*AnyChild(container, chance), *AnyChild(container, chance));
}

void CopyValue(Json &document, Chance &chance) {
  Places const places = PlacesIn(document);
  Json copy = *chance.Pick(places).value;
  *chance.Pick(places).value = std::move(copy);
}

void AddMember(Json &document, Chance &chance) {
  Json &value = *chance.Pick(PlacesIn(document)).value;
  if (!value.is_object()) return;
  std::string const key = AnyKey(chance);
  value[key] = ValueOf(key, chance);
}

void AddRun(Json &document, Chance &chance) {
  Places runs;
  for (Place &place : PlacesIn(document)) {
    if (place.key == "Coordinates" && place.value->is_array()) runs.push_back(place);
  }
  if (runs.empty()) return;
  Json &array = *chance.Pick(runs).value;
  bool const isCopy = !array.empty() && array.front().is_object() && !chance.OneIn(4);
  Json run = isCopy ? array.front() : RunOf(chance.Between(2, 8), chance);
  run["Range"] = ValueOf("Range", chance);
  array.push_back(std::move(run));
}

void AddObject(Json &document, Chance &chance) {
  Json &objects = ObjectsOf(document);
  if (objects.size() >= kMostObjects) objects.erase(AnyChild(objects, chance));
  objects.push_back(AnyObject(chance));
}

using Mutation = void (*)(Json &, Chance &);

/// Those that stand twice are twice as frequent.
constexpr std::array<Mutation, 14> kMutations = {
    ReplaceByRole, ReplaceByRole, ReplaceByRole, ReplaceByRole,    ReplaceNumber,
    ReplaceNumber, AddObject,     AddRun,        AddMember,        RemoveChild,
    RepeatChild,   SwapChildren,  CopyValue,     ReplaceByAnything};

}  // namespace

std::string MutatedDocument(std::string_view text, Chance &chance) {
  Json document = Parsed(text);
  if (document.is_discarded() || document.empty()) return Text(NewDocument(chance));
  for (int i = chance.Between(1, 4); i > 0; --i) chance.Pick(kMutations)(document, chance);
  return Text(document);
}

std::optional<std::string> CrossedDocuments(std::string_view first, std::string_view second,
                                            Chance &chance) {
  Json document = Parsed(first);
  Json other = Parsed(second);
  if (document.is_discarded() || other.is_discarded()) return std::nullopt;
  Json &objects = ObjectsOf(document);
  for (Json const &object : ObjectsOf(other)) {
    if (objects.size() >= kMostObjects) break;
    if (chance.OneIn(2)) objects.insert(objects.begin(), object);
  }
  return Text(document);
}

}  // namespace framenote::fuzz
