// SPDX-License-Identifier: MIT
#include "host/host_invariants.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "coordinates/ann_points.h"
#include "framenote/annotation_events.h"
#include "objects/ann_image.h"
#include "objects/annotation_object.h"
#include "support/session.h"
#include "support/written_object.h"
#include "talbase/json_conversions.h"
#include "talbase/json_text.h"

namespace framenote::fuzz {

namespace {

using test::BoxOf;
using test::MayBeLeftOut;
using test::RunsOf;

constexpr char const *kObjectsKey = "Objects";
/// Calls from one loading of the document to the next: it costs more than all else.
constexpr int kCallsPerLoading = 32;
/// By which share proportions may miss each other and still be the same.
constexpr double kRounding = 1e-6;

/// Nothing is being changed, so the document is up to date.
bool IsAtRest(AnnotationTool const &tool) {
  switch (tool.GetState()) {
    case ToolState::Drawing:
    case ToolState::Moving:
    case ToolState::Resizing:
    case ToolState::Rotating:
    case ToolState::Editing:
      return false;
    default:
      return true;
  }
}

bool NeedsSelection(ToolState state) {
  return state != ToolState::Default && state != ToolState::Drawing &&
         state != ToolState::OverObject;
}

/// Whether the last run of a picture takes the picture's proportions when it is read, which the
/// document says after the next edit only. It can have others where the picture was exchanged in
/// another run.
bool MayTakeProportions(IAnnotationObject const &object) {
  auto const *const picture = dynamic_cast<AnnImage const *>(&object);
  if (picture == nullptr || !picture->ImageProperties().GetKeepAspectRatio()) return false;
  if (!picture->GetImage().IsOk()) return false;
  wxJSONValue const runs = RunsOf(object.ToJSON());
  if (runs.Size() == 0) return false;
  AnnShapePoints const last = BoxOf(runs.ItemAt(runs.Size() - 1));
  double const height = last.m_topLeft.GetDistance(last.m_bottomLeft);
  double const width = last.m_topLeft.GetDistance(last.m_topRight);
  wxSize const size = picture->GetImage().GetSize();
  return std::abs(height * size.x - width * size.y) > kRounding * height * size.x;
}

}  // namespace

HostInvariants::HostInvariants()
    : m_reader(std::make_shared<AnnotationTool>(
          AnnotationToolConfig(true, true, true, true, false, {}))) {}

HostInvariants::~HostInvariants() = default;

void HostInvariants::Begin() {
  m_lastLoaded = wxJSONValue();
  m_calls = 0;
}

void HostInvariants::require(bool holds, char const *what) const {
  if (!holds) fail(what);
}

void HostInvariants::fail(std::string const &what) const {
  Fail(std::string("after ") + m_call + ": " + what);
}

void HostInvariants::Check(HostSession &session, char const *call, bool isLast) {
  m_call = call;
  ++m_calls;
  AnnotationTool const &tool = session.Tool();
  checkFlags(tool);
  checkState(tool);
  if (!tool.GetJSON().IsNull()) {
    require(tool.GetJSON().IsSameAs(session.Sink().Json()), "the host has another document");
  }
  if (!IsAtRest(tool) || session.IsPlaying()) return;
  if (session.HasOwnObjectsOnly()) {
    checkRanges(tool);
    checkMirrors(tool);
  }
  checkDocument(session);
  if (isLast || m_calls % kCallsPerLoading == 0) checkLoading(session);
}

void HostInvariants::checkFlags(AnnotationTool const &tool) const {
  IAnnotationObject const *const selected = tool.GetSelectedObject();
  bool isSelectedThere = selected == nullptr;
  int focused = 0;
  for (IAnnotationObject const *object : tool.AnnotationObjects()) {
    require(object->IsSelected() == (object == selected), "a selected flag is wrong");
    require(!object->IsSelected() || !object->IsFocused(), "the selected object is focused");
    if (object == selected) isSelectedThere = true;
    focused += object->IsFocused() ? 1 : 0;
  }
  require(isSelectedThere, "the selected object is not in the list");
  require(focused <= 1, "several objects are focused");
  require(focused == 1 || tool.GetState() != ToolState::OverObject,
          "over an object, and none is focused");
}

void HostInvariants::checkState(AnnotationTool const &tool) const {
  bool const isSelected = tool.GetSelectedObject() != nullptr;
  require(isSelected || !NeedsSelection(tool.GetState()), "a state without its selection");
  require(!isSelected || NeedsSelection(tool.GetState()), "a selection in a state without one");
}

void HostInvariants::checkRanges(AnnotationTool const &tool) const {
  for (IAnnotationObject const *object : tool.AnnotationObjects()) {
    auto const [first, last] = object->GetFrameDuration();
    require(0 <= first && first <= last, "a range is the wrong way round");
    wxJSONValue const runs = RunsOf(object->ToJSON());
    std::int64_t next = first;
    for (int i = 0; i < runs.Size(); ++i) {
      auto const range = FromJson<std::vector<std::int64_t>>(
          runs.ItemAt(i).ItemAt(IAnnotationObject::coordinatesRangeKey));
      require(range.size() == 2 && next <= range[0] && range[0] <= range[1] && range[1] <= last,
              "a run is out of order");
      require(range[0] == next, "a frame of an object has no geometry");
      next = range[1] + 1;
    }
    require(next == last + 1, "the last frames of an object have no geometry");
  }
}

void HostInvariants::checkMirrors(AnnotationTool const &tool) const {
  for (IAnnotationObject *object : tool.AnnotationObjects()) {
    if (MayTakeProportions(*object)) continue;
    wxJSONValue const before = object->ToJSON();
    object->OnObjectModified();
    if (before.IsSameAs(object->ToJSON())) continue;
    fail("an object differs from what is written of it: " + JsonToUtf8(before) + ", and is " +
         JsonToUtf8(object->ToJSON()));
  }
}

void HostInvariants::checkDocument(HostSession const &session) const {
  AnnotationTool const &tool = session.Tool();
  if (tool.GetJSON().IsNull()) {
    require(tool.IsEmpty(), "objects without a document");
    return;
  }
  wxJSONValue written(wxJSONTYPE_OBJECT);
  tool.ToJSON(written);
  require(written.IsSameAs(tool.GetJSON()), "the document is not up to date");
  auto const &ranges = session.Sink().Ranges();
  require(ranges.size() == tool.AnnotationObjects().size(), "the host has other objects");
  std::size_t i = 0;
  for (IAnnotationObject const *object : tool.AnnotationObjects()) {
    require(ranges[i++] == object->GetFrameDuration(), "the host has another range");
  }
}

void HostInvariants::checkLoading(HostSession &session) {
  wxJSONValue const document = session.Document();
  if (document.IsSameAs(m_lastLoaded)) return;
  m_lastLoaded = document;
  wxJSONValue const text = JsonFromUtf8(JsonToUtf8(document));
  require(text.IsSameAs(document), "the document has no text form");
  std::int64_t const count = session.Tool().GetMediaInfo().frameCount;
  m_reader->FromJSON(text, count);
  wxJSONValue loaded(wxJSONTYPE_OBJECT);
  m_reader->ToJSON(loaded);
  if (session.HasOwnObjectsOnly()) {
    compareLoaded(document.ItemAt(AnnotationJsonChangedEvent::m_annotateKey), loaded);
    return;
  }
  // What a tool would not write may be put right, but only once.
  wxJSONValue again(wxJSONTYPE_OBJECT);
  again.Set(AnnotationJsonChangedEvent::m_annotateKey, loaded);
  m_reader->FromJSON(again, count);
  wxJSONValue reloaded(wxJSONTYPE_OBJECT);
  m_reader->ToJSON(reloaded);
  require(reloaded.IsSameAs(loaded), "a document that was loaded is not the same the next time");
}

void HostInvariants::compareLoaded(wxJSONValue const &written, wxJSONValue const &loaded) const {
  wxJSONValue const before = written.ItemAt(kObjectsKey);
  wxJSONValue const after = loaded.ItemAt(kObjectsKey);
  int next = 0;
  for (int i = 0; i < before.Size(); ++i) {
    wxJSONValue const element = before.ItemAt(i);
    if (after.ItemAt(next).IsSameAs(element)) {
      ++next;
      continue;
    }
    if (MayBeLeftOut(element)) continue;
    fail("an object is lost or changed by saving and loading: " + JsonToUtf8(element) +
         ", and is " + JsonToUtf8(after.ItemAt(next)));
  }
  require(next == after.Size(), "loading makes objects");
  require(written.ItemAt("ExtensionColor").IsSameAs(loaded.ItemAt("ExtensionColor")),
          "loading changes the extension colour");
}

}  // namespace framenote::fuzz
