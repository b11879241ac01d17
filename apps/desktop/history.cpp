// SPDX-License-Identifier: MIT
#include "desktop/history.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include <wx/translation.h>

namespace {

using Kind = DocumentChange::Kind;

constexpr char const *kObjectsKey = "Objects";
/// Up to this many elements an array is cheaper to keep than to take apart: points, ranges.
constexpr int kFewElements = 4;

bool CanBeTakenApart(wxJSONValue const &before, wxJSONValue const &after) {
  if (before.IsObject() && after.IsObject()) return true;
  return before.IsArray() && after.IsArray() &&
         std::max(before.Size(), after.Size()) > kFewElements;
}

/// The elements of an array from `begin` up to `end`.
wxJSONValue PartOf(wxJSONValue const &array, int begin, int end) {
  wxJSONValue part(wxJSONTYPE_ARRAY);
  for (int i = begin; i < end; ++i) part.Append(array.ItemAt(i));
  return part;
}

void AppendAll(wxJSONValue &array, wxJSONValue const &elements, int begin, int end) {
  for (int i = begin; i < end; ++i) array.Append(elements.ItemAt(i));
}

/// Whether changes of this kind that follow each other quickly are one: a slider is drawn, a text
/// typed, a position stepped on with the range of an object in tow.
bool IsContinual(Kind kind) {
  return kind == Kind::Look || kind == Kind::Text || kind == Kind::Range;
}

bool IsOfOneObject(DocumentChange const &last, DocumentChange const &next) {
  return last.kind == next.kind && last.indexAfter >= 0 && last.indexAfter == next.indexBefore;
}

/// Two objects that change places do so for the sake of the selected one.
DocumentChange AboutTheSelected(DocumentChange change, int selected) {
  bool const isSwap = change.kind == Kind::Order && change.indexBefore == change.indexAfter + 1;
  if (isSwap && selected == change.indexBefore) std::swap(change.indexBefore, change.indexAfter);
  return change;
}

}  // namespace

// --- ValueDelta ---

ValueDelta ValueDelta::Between(wxJSONValue const &before, wxJSONValue const &after) {
  if (CanBeTakenApart(before, after)) {
    if (before.IsObject()) return ofMembers(before, after, nullptr);
    return ofElements(before, after, SpliceBetween(before, after));
  }
  ValueDelta delta;
  delta.m_before = before;
  delta.m_after = after;
  return delta;
}

ValueDelta ValueDelta::Between(wxJSONValue const &before, wxJSONValue const &after,
                               ArraySplice const &objects) {
  wxJSONValue const from = before.ItemAt(kObjectsKey);
  wxJSONValue const to = after.ItemAt(kObjectsKey);
  if (!from.IsArray() || !to.IsArray()) return Between(before, after);
  ValueDelta delta = ofMembers(before, after, kObjectsKey);
  if (!objects.IsEmpty()) {
    delta.m_parts.emplace_back(kObjectsKey, ofElements(from, to, objects));
  }
  return delta;
}

ValueDelta ValueDelta::ofMembers(wxJSONValue const &before, wxJSONValue const &after,
                                 char const *except) {
  ValueDelta delta;
  delta.m_form = Form::Members;
  auto const add = [&](wxString const &name) {
    if (except != nullptr && name == except) return;
    wxJSONValue const from = before.ItemAt(name);
    wxJSONValue const to = after.ItemAt(name);
    if (!from.IsSameAs(to)) delta.m_parts.emplace_back(name, Between(from, to));
  };
  for (wxString const &name : before.GetMemberNames()) add(name);
  for (wxString const &name : after.GetMemberNames()) {
    if (!before.HasMember(name)) add(name);
  }
  return delta;
}

ValueDelta ValueDelta::ofElements(wxJSONValue const &before, wxJSONValue const &after,
                                  ArraySplice const &splice) {
  int const at = splice.at;
  ValueDelta delta;
  delta.m_at = at;
  if (splice.removed == 1 && splice.inserted == 1) {
    delta.m_form = Form::Element;
    delta.m_parts.emplace_back(wxString(), Between(before.ItemAt(at), after.ItemAt(at)));
    return delta;
  }
  delta.m_form = Form::Elements;
  delta.m_before = PartOf(before, at, at + splice.removed);
  delta.m_after = PartOf(after, at, at + splice.inserted);
  return delta;
}

wxJSONValue ValueDelta::applied(wxJSONValue const &value, bool forward) const {
  switch (m_form) {
    case Form::Whole:
      break;
    case Form::Members:
      return withMembers(value, forward);
    case Form::Elements:
    case Form::Element:
      return withElements(value, forward);
  }
  return forward ? m_after : m_before;
}

wxJSONValue ValueDelta::withMembers(wxJSONValue value, bool forward) const {
  for (auto const &[name, part] : m_parts) {
    wxJSONValue member = part.applied(value.ItemAt(name), forward);
    if (member.IsValid()) {
      value.Set(name, std::move(member));
    } else {
      value.Remove(name);
    }
  }
  return value;
}

// Built anew: a reference into the array would keep it from being shared.
wxJSONValue ValueDelta::withElements(wxJSONValue const &value, bool forward) const {
  wxJSONValue array(wxJSONTYPE_ARRAY);
  AppendAll(array, value, 0, m_at);
  int next = m_at;
  if (m_form == Form::Element) {
    array.Append(m_parts.front().second.applied(value.ItemAt(m_at), forward));
    ++next;
  } else {
    wxJSONValue const &now = forward ? m_after : m_before;
    AppendAll(array, now, 0, now.Size());
    next += (forward ? m_before : m_after).Size();
  }
  AppendAll(array, value, next, value.Size());
  return array;
}

// --- History ---

History::History(Clock clock) : m_clock(std::move(clock)) {}

void History::Reset(State state) {
  m_current = std::move(state);
  m_steps = std::vector<Step>();  // their room too: there may have been many
  m_position = 0;
  m_saved = 0;
  m_gestures = 0;
  closeStep();
}

bool History::Record(State const &state, wxString const &mergeKey) {
  DocumentChange const change = AboutTheSelected(
      CompareDocuments(m_current.annotations, state.annotations), state.selectedIndex);
  if (change.kind == Kind::None) {
    // A document that was read is the same in other nodes; with those of the tool, the next
    // comparison is cheap.
    m_current = state;
    return false;
  }
  std::optional<DocumentChange> const sum = merged(state, change, mergeKey);
  if (sum) {
    mergeIntoStep(state, *sum);
  } else {
    addStep(state, change);
  }
  m_current = state;
  m_gestureHasStep = m_gestures > 0;
  m_lastChange = change;
  m_lastKey = mergeKey;
  m_lastTime = m_clock();
  return !sum;
}

std::optional<DocumentChange> History::merged(State const &state, DocumentChange const &change,
                                              wxString const &mergeKey) const {
  if (!m_before || m_saved == m_position) return std::nullopt;
  bool const isSameThing = m_gestures > 0 ? m_gestureHasStep : isContinued(change, mergeKey);
  if (!isSameThing && !isUnfinished()) return std::nullopt;
  DocumentChange const sum = CompareDocuments(m_before->annotations, state.annotations);
  bool const isFinished = sum.kind == Kind::Add || sum.kind == Kind::None;
  if (!isSameThing && !isFinished) return std::nullopt;
  return sum;
}

bool History::isContinued(DocumentChange const &change, wxString const &mergeKey) const {
  return m_lastKey == mergeKey && (IsContinual(change.kind) || !mergeKey.empty()) &&
         IsOfOneObject(m_lastChange, change) && m_clock() - m_lastTime <= kMergeTime;
}

bool History::isUnfinished() const {
  return m_before && m_steps.back().change.isUnfinished;
}

void History::addStep(State const &state, DocumentChange const &change) {
  m_steps.resize(m_position);
  if (m_saved && *m_saved > m_position) m_saved.reset();
  m_steps.push_back({ValueDelta::Between(m_current.annotations, state.annotations, change.objects),
                     change, m_current.selectedIndex, state.selectedIndex, state.frame});
  ++m_position;
  m_before = m_current;
}

void History::mergeIntoStep(State const &state, DocumentChange const &sum) {
  if (sum.kind == Kind::None) {
    m_steps.pop_back();
    --m_position;
    closeStep();
    return;
  }
  Step &step = m_steps.back();
  step.delta = ValueDelta::Between(m_before->annotations, state.annotations, sum.objects);
  step.change = sum;
  step.selectedAfter = state.selectedIndex;
  step.frame = state.frame;
}

void History::closeStep() {
  m_before.reset();
  m_gestureHasStep = false;
}

void History::BeginGesture() {
  if (m_gestures == 0) m_gestureHasStep = false;
  ++m_gestures;
}

void History::EndGesture() {
  if (m_gestures > 0) --m_gestures;
  // What follows is another step, however soon, unless it is the text of a new box.
  if (m_gestures == 0 && m_gestureHasStep && !isUnfinished()) closeStep();
  if (m_gestures == 0) m_gestureHasStep = false;
}

History::State const &History::Undo() {
  if (!CanUndo()) return m_current;
  --m_position;
  Step const &step = m_steps[m_position];
  show(step, step.delta.BeforeOf(m_current.annotations), false);
  // A tool does not restore a text box that says nothing.
  if (step.change.isUnfinished) m_steps.resize(m_position);
  return m_current;
}

History::State const &History::Redo() {
  if (!CanRedo()) return m_current;
  Step const &step = m_steps[m_position];
  ++m_position;
  show(step, step.delta.AfterOf(m_current.annotations), true);
  return m_current;
}

void History::show(Step const &step, wxJSONValue annotations, bool forward) {
  closeStep();
  DocumentChange const &change = step.change;
  bool const isOfOneObject = change.indexBefore >= 0 || change.indexAfter >= 0;
  int const index = forward ? change.indexAfter : change.indexBefore;
  int const selected = forward ? step.selectedAfter : step.selectedBefore;
  std::int64_t frame = step.frame;
  if (change.firstFrame >= 0) {
    auto [first, last] = std::make_pair(change.firstFrame, change.lastFrame);
    // A position that took the end of a range along goes back with it.
    if (change.kind == Kind::Range) std::tie(first, last) = FramesOfObject(annotations, index);
    frame = std::clamp(frame, first, std::max(first, last));
  }
  m_current = {std::move(annotations), isOfOneObject ? index : selected, frame};
}

wxString History::UndoName() const {
  if (!CanUndo()) return wxGetTranslation("Undo");
  // TRANSLATORS: what is undone, such as "move arrow".
  return wxString::Format(wxGetTranslation("Undo %s"), ChangeName(m_steps[m_position - 1].change));
}

wxString History::RedoName() const {
  if (!CanRedo()) return wxGetTranslation("Redo");
  return wxString::Format(wxGetTranslation("Redo %s"), ChangeName(m_steps[m_position].change));
}

void History::MarkSaved() {
  m_saved = m_position;
}

void History::ForgetSaved() {
  m_saved.reset();
}
