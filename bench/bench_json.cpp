// SPDX-License-Identifier: MIT
#include <string>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>
#include <nlohmann/json.hpp>

#include "side_by_side.h"
#include "talbase/json_text.h"
#include "talbase/json_value.h"

/// What the document costs beside the same document in nlohmann/json: 1,000 objects of 100 runs.
namespace {

using nlohmann::ordered_json;

constexpr int kObjects = 1000;
constexpr int kRuns = 100;

// --- The document with our values ---

wxJSONValue Point(double x, double y) {
  wxJSONValue point(wxJSONTYPE_ARRAY);
  point.Append(x);
  point.Append(y);
  return point;
}

wxJSONValue Run(int run, double shift) {
  wxJSONValue value(wxJSONTYPE_OBJECT);
  value.Set("TopLeft", Point(shift + run * 0.25, 20.5));
  value.Set("TopRight", Point(shift + 100.0 + run * 0.25, 20.5));
  value.Set("BottomRight", Point(shift + 100.0 + run * 0.25, 70.125));
  value.Set("BottomLeft", Point(shift + run * 0.25, 70.125));
  wxJSONValue range(wxJSONTYPE_ARRAY);
  range.Append(run * 10);
  range.Append(run * 10 + 9);
  value.Set("Range", range);
  return value;
}

wxJSONValue Object(int index) {
  wxJSONValue look(wxJSONTYPE_OBJECT);
  look.Set("Shape", 0);
  look.Set("BorderColor", "#FF0000FF");
  look.Set("BorderColorTransparent", false);
  look.Set("FillColor", "#FFFFFFFF");
  look.Set("FillColorTransparent", true);
  look.Set("Thickness", 5);
  wxJSONValue runs(wxJSONTYPE_ARRAY);
  for (int run = 0; run < kRuns; ++run) runs.Append(Run(run, index));
  wxJSONValue object(wxJSONTYPE_OBJECT);
  object.Set("StartFrame", 0);
  object.Set("EndFrame", kRuns * 10 - 1);
  object.Set("Coordinates", runs);
  object.Set("Id", 2);
  object.Set("Properties", look);
  return object;
}

std::vector<wxJSONValue> Mirrors() {
  std::vector<wxJSONValue> mirrors;
  mirrors.reserve(kObjects);
  for (int i = 0; i < kObjects; ++i) mirrors.push_back(Object(i));
  return mirrors;
}

wxJSONValue Document(std::vector<wxJSONValue> const &mirrors) {
  wxJSONValue objects(wxJSONTYPE_ARRAY);
  for (wxJSONValue const &mirror : mirrors) objects.Append(mirror);
  wxJSONValue document(wxJSONTYPE_OBJECT);
  document.Set("ExtensionColor", "#FFFFFFFF");
  document.Set("Objects", objects);
  return document;
}

// --- The same document with the library's own ---

ordered_json LibraryRun(int run, double shift) {
  ordered_json value = ordered_json::object();
  value["TopLeft"] = {shift + run * 0.25, 20.5};
  value["TopRight"] = {shift + 100.0 + run * 0.25, 20.5};
  value["BottomRight"] = {shift + 100.0 + run * 0.25, 70.125};
  value["BottomLeft"] = {shift + run * 0.25, 70.125};
  value["Range"] = {run * 10, run * 10 + 9};
  return value;
}

ordered_json LibraryObject(int index) {
  ordered_json runs = ordered_json::array();
  for (int run = 0; run < kRuns; ++run) runs.push_back(LibraryRun(run, index));
  ordered_json object = ordered_json::object();
  object["StartFrame"] = 0;
  object["EndFrame"] = kRuns * 10 - 1;
  object["Coordinates"] = std::move(runs);
  object["Id"] = 2;
  object["Properties"] = {{"Shape", 0},
                          {"BorderColor", "#FF0000FF"},
                          {"BorderColorTransparent", false},
                          {"FillColor", "#FFFFFFFF"},
                          {"FillColorTransparent", true},
                          {"Thickness", 5}};
  return object;
}

ordered_json LibraryDocument() {
  ordered_json objects = ordered_json::array();
  for (int i = 0; i < kObjects; ++i) objects.push_back(LibraryObject(i));
  ordered_json document = ordered_json::object();
  document["ExtensionColor"] = "#FFFFFFFF";
  document["Objects"] = std::move(objects);
  return document;
}

// --- The comparisons ---

/// Has the allocator tidy up what was freed before, which it else does in the next large request:
/// the edit would be charged for the reference's leftovers, two hundred times its own cost.
void SettleAllocator() {
  std::vector<char> const block(1 << 16);
  benchmark::DoNotOptimize(block.data());
}

/// One run of one object changes; its coordinates are written again from the runs, as a store
/// does; the document is rebuilt and compared with the one before.
void EditRebuildAndCompare(benchmark::State &state) {
  std::vector<wxJSONValue> mirrors = Mirrors();
  wxJSONValue last = Document(mirrors);
  int edits = 0;
  auto const edit = [&] {
    ++edits;
    wxJSONValue &mirror = mirrors[static_cast<std::size_t>(edits * 37 % kObjects)];
    wxJSONValue const before = mirror.ItemAt("Coordinates");
    wxJSONValue runs(wxJSONTYPE_ARRAY);
    for (int run = 0; run < kRuns; ++run) {
      runs.Append(run == 50 ? Run(run, edits + 0.5) : before.ItemAt(run));
    }
    mirror.Set("Coordinates", runs);
    wxJSONValue document = Document(mirrors);
    if (document.IsSameAs(last)) state.SkipWithError("the edit was not seen");
    last = document;
  };
  std::vector<double> ourTimes;
  std::vector<double> referenceTimes;
  while (state.KeepRunning()) {
    ourTimes.push_back(framenote::bench::SecondsOf(edit));
    state.SetIterationTime(ourTimes.back());
    ordered_json built;
    referenceTimes.push_back(framenote::bench::SecondsOf([&] { built = LibraryDocument(); }));
    built = nullptr;
    SettleAllocator();
  }
  double const referenceTime = framenote::bench::MedianOf(referenceTimes);
  state.counters["ratio"] = framenote::bench::MedianOf(ourTimes) / referenceTime;
  state.counters["reference_ms"] = referenceTime * 1e3;
}

void WriteText(benchmark::State &state) {
  wxJSONValue const ours = Document(Mirrors());
  ordered_json const theirs = LibraryDocument();
  if (JsonToUtf8(ours) != theirs.dump()) state.SkipWithError("the texts differ");
  framenote::bench::SideBySide(
      state, [&] { benchmark::DoNotOptimize(JsonToUtf8(ours)); },
      [&] { benchmark::DoNotOptimize(theirs.dump()); });
}

void ParseText(benchmark::State &state) {
  std::string const text = LibraryDocument().dump();
  framenote::bench::SideBySide(
      state, [&] { benchmark::DoNotOptimize(JsonFromUtf8(text)); },
      [&] { benchmark::DoNotOptimize(ordered_json::parse(text)); });
}

void WriteWideText(benchmark::State &state) {
  wxJSONValue const ours = Document(Mirrors());
  ordered_json const theirs = LibraryDocument();
  framenote::bench::SideBySide(
      state, [&] { benchmark::DoNotOptimize(JsonToText(ours)); },
      [&] { benchmark::DoNotOptimize(theirs.dump()); });
}

void ParseWideText(benchmark::State &state) {
  std::string const text = LibraryDocument().dump();
  wxString const wide = wxString::FromUTF8(text.data(), text.size());
  framenote::bench::SideBySide(
      state, [&] { benchmark::DoNotOptimize(JsonFromText(wide)); },
      [&] { benchmark::DoNotOptimize(ordered_json::parse(text)); });
}

BENCHMARK(EditRebuildAndCompare)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(15);
BENCHMARK(WriteText)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(11);
BENCHMARK(ParseText)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(11);
BENCHMARK(WriteWideText)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(11);
BENCHMARK(ParseWideText)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(11);

}  // namespace
