// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include <wx/string.h>

#include "desktop/document_change.h"
#include "talbase/json_value.h"

/// The difference of two JSON values, from which each of them is made from the other. It holds what
/// differs alone, so that the history of a long document costs what was changed in it.
class ValueDelta {
public:
  static ValueDelta Between(wxJSONValue const &before, wxJSONValue const &after);
  /// The same for documents; `objects` says where their lists of objects differ.
  static ValueDelta Between(wxJSONValue const &before, wxJSONValue const &after,
                            ArraySplice const &objects);
  /// REQUIRES: the value that the delta was made with as `before`, or as `after`.
  wxJSONValue AfterOf(wxJSONValue const &before) const { return applied(before, true); }
  wxJSONValue BeforeOf(wxJSONValue const &after) const { return applied(after, false); }

private:
  enum class Form { Whole, Members, Elements, Element };

  static ValueDelta ofMembers(wxJSONValue const &before, wxJSONValue const &after,
                              char const *except);
  static ValueDelta ofElements(wxJSONValue const &before, wxJSONValue const &after,
                               ArraySplice const &splice);
  wxJSONValue applied(wxJSONValue const &value, bool forward) const;
  wxJSONValue withMembers(wxJSONValue value, bool forward) const;
  wxJSONValue withElements(wxJSONValue const &value, bool forward) const;

  Form m_form = Form::Whole;
  /// Both values; of an array with other elements those, from `m_at` on.
  wxJSONValue m_before;
  wxJSONValue m_after;
  int m_at = 0;
  /// The members that differ by their names; of an array with one other element that, without one.
  std::vector<std::pair<wxString, ValueDelta>> m_parts;
};

/// Undo and redo of a document, with no limit, and whether it has been changed since it was saved.
///
/// The tool posts wxEVT_ANN_JSON_CHANGED later than the change, and after FromJSON too. So a host
/// records AnnotationTool::GetJSON(), not what an event carries: then an event that comes late
/// finds the document that is current already, which is no step. For the same reason it records
/// once more before Undo() and Redo(), which may overtake an event.
///
/// To show a state that Undo() or Redo() gives back, a host calls FromJSON with it, then
/// UpdateMediaInfo with its frame, and only then SelectObject: the range of a selected object
/// follows the position.
class History {
public:
  struct State {
    wxJSONValue annotations;
    int selectedIndex = -1;  ///< in the list of objects; -1 for none
    std::int64_t frame = 0;
  };
  using Clock = std::function<std::chrono::steady_clock::time_point()>;

  /// Successive changes of a thing within this time of each other are one step.
  static constexpr std::chrono::milliseconds kMergeTime{1000};

  explicit History(Clock clock = std::chrono::steady_clock::now);

  /// Starts anew with a document that counts as saved. The document is what the tool would write:
  /// with another one, the tool's first event would be a step.
  void Reset(State state);
  /// Takes note of the document as it is now, and of where the user is. Returns whether that is a
  /// step more; what could be redone is gone then. It is none if the document is the same, or if it
  /// goes into the last step:
  /// - while a gesture lasts, which is one step;
  /// - if the look, the text or the range of one object changes again within kMergeTime;
  /// - if anything else is done again to one object within that time with the same `mergeKey`,
  ///   unless that is empty;
  /// - if the last step added a text box that did not say anything yet.
  /// A step that nothing remains of is taken back. A saved document is never merged away.
  bool Record(State const &state, wxString const &mergeKey = wxString());

  /// Everything recorded until the matching EndGesture is one step. Gestures may be nested. What
  /// the last event of a gesture did is recorded before it ends.
  void BeginGesture();
  void EndGesture();

  bool CanUndo() const { return m_position > 0; }
  bool CanRedo() const { return m_position < m_steps.size(); }
  /// Go one step back or forth, if there is one, and return the state that is current then. Its
  /// frame is one in which the step changed something, that in which it was done if possible; its
  /// selection the object that the step is about, or what was selected if there is no one object.
  State const &Undo();
  State const &Redo();
  State const &Current() const { return m_current; }
  /// For the menu, as in "Undo move arrow", in the user's language.
  wxString UndoName() const;
  wxString RedoName() const;

  /// Whether the current document is another step's than the one saved last.
  bool IsModified() const { return m_saved != m_position; }
  /// The current document was saved.
  void MarkSaved();
  /// No document counts as saved, as after one was recovered.
  void ForgetSaved();

private:
  struct Step {
    ValueDelta delta;
    DocumentChange change;
    int selectedBefore = -1;
    int selectedAfter = -1;
    std::int64_t frame = 0;  ///< where it was done
  };

  /// What the last step is if the change goes into it; none if it does not.
  std::optional<DocumentChange> merged(State const &state, DocumentChange const &change,
                                       wxString const &mergeKey) const;
  bool isContinued(DocumentChange const &change, wxString const &mergeKey) const;
  bool isUnfinished() const;
  void addStep(State const &state, DocumentChange const &change);
  void mergeIntoStep(State const &state, DocumentChange const &sum);
  void closeStep();
  void show(Step const &step, wxJSONValue annotations, bool forward);

  Clock m_clock;
  State m_current;
  std::vector<Step> m_steps;
  std::size_t m_position = 0;              ///< steps that are done
  std::optional<std::size_t> m_saved = 0;  ///< the position that was saved
  int m_gestures = 0;
  bool m_gestureHasStep = false;

  // The last step, as long as what comes next may go into it
  std::optional<State> m_before;  ///< the state that it started from
  DocumentChange m_lastChange;    ///< the part that was recorded last
  wxString m_lastKey;
  std::chrono::steady_clock::time_point m_lastTime;
};
