// SPDX-License-Identifier: MIT
#include "monkey/monkey_invariants.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <fstream>
#include <iterator>
#include <utility>

#include <unistd.h>

#include <glib.h>
#include <wx/dataview.h>
#include <wx/log.h>
#include <wx/menu.h>

#include "desktop/main_frame.h"
#include "desktop/object_list.h"
#include "desktop/session.h"
#include "desktop/timeline.h"
#include "framenote/annotation_tool.h"
#include "monkey/monkey.h"
#include "objects/annotation_object.h"
#include "project/project_file.h"
#include "project/text_macros.h"
#include "support/tool_driver.h"
#include "support/written_object.h"
#include "talbase/json_text.h"

namespace framenote::test {

namespace {

constexpr char const *kObjects = "Objects";

wxDataViewVirtualListModel const &ModelOf(wxWindow const &list) {
  auto const *const table = dynamic_cast<wxDataViewCtrl const *>(list.GetChildren().front());
  return dynamic_cast<wxDataViewVirtualListModel const &>(*table->GetModel());
}

/// What the list says of an object's frames.
std::string FramesText(std::pair<std::int64_t, std::int64_t> const &range) {
  std::string const first = std::to_string(range.first);
  return range.first == range.second ? first : first + " \u2013 " + std::to_string(range.second);
}

int IndexOfSelected(AnnotationTool const &tool) {
  auto const &objects = tool.AnnotationObjects();
  auto const selected = std::find(objects.begin(), objects.end(), tool.GetSelectedObject());
  return selected == objects.end() ? -1
                                   : static_cast<int>(std::distance(objects.begin(), selected));
}

bool NeedsSelection(ToolState state) {
  switch (state) {
    case ToolState::Selected:
    case ToolState::Moving:
    case ToolState::AtResizePoint:
    case ToolState::Resizing:
    case ToolState::AtRotationPoint:
    case ToolState::Rotating:
      return true;
    default:
      return false;
  }
}

/// Where two documents differ first.
std::string Difference(wxJSONValue const &wanted, wxJSONValue const &got) {
  if (wanted.IsSameAs(got)) return {};
  wxJSONValue const from = wanted.ItemAt(kObjects);
  wxJSONValue const to = got.ItemAt(kObjects);
  for (int i = 0; i < std::max(from.Size(), to.Size()); ++i) {
    if (from.ItemAt(i).IsSameAs(to.ItemAt(i))) continue;
    return " at object " + std::to_string(i) + ":\n" + JsonToUtf8(from.ItemAt(i)) + "\n" +
           JsonToUtf8(to.ItemAt(i));
  }
  return " beside the objects";
}

int FindCommand(wxMenuBar const &bar, char const *beginning) {
  wxMenu const &edit = *bar.GetMenu(1);
  for (wxMenuItem const *item : edit.GetMenuItems()) {
    if (item->GetItemLabelText().StartsWith(beginning)) return item->GetId();
  }
  return wxID_NONE;
}

std::vector<std::string> complaints;
bool isCollecting = true;

class ComplaintLog : public wxLog {
protected:
  void DoLogRecord(wxLogLevel level, wxString const &text, wxLogRecordInfo const &) override {
    if (isCollecting && level <= wxLOG_Warning) complaints.push_back(text.utf8_string());
  }
};

/// Complaints of the toolkit about what it does itself, seen with a program of GTK alone.
constexpr std::array kOfTheToolkit = {
    // A text is dragged over a field that says less meanwhile: GTK marks the place of the drop
    // where there is no text any more.
    "pango_layout_get_cursor_pos: assertion 'index >= 0 && index <= layout->length' failed"};

bool IsOfTheToolkit(std::string const &text) {
  return std::find(kOfTheToolkit.begin(), kOfTheToolkit.end(), text) != kOfTheToolkit.end();
}

void KeepGlibMessage(char const *domain, GLogLevelFlags level, char const *text, void *) {
  constexpr int kBad = G_LOG_LEVEL_ERROR | G_LOG_LEVEL_CRITICAL | G_LOG_LEVEL_WARNING;
  if (!isCollecting || (level & kBad) == 0 || IsOfTheToolkit(text)) return;
  complaints.push_back(std::string(domain != nullptr ? domain : "GLib") + ": " + text);
}

/// What GTK says of its own accord comes here alone.
GLogWriterOutput WriteGlibMessage(GLogLevelFlags level, GLogField const *fields, gsize count,
                                  void *data) {
  auto const field = [&](char const *key) -> char const * {
    for (gsize i = 0; i < count; ++i) {
      if (std::strcmp(fields[i].key, key) == 0) return static_cast<char const *>(fields[i].value);
    }
    return nullptr;
  };
  char const *const text = field("MESSAGE");
  KeepGlibMessage(field("GLIB_DOMAIN"), level, text != nullptr ? text : "", data);
  return g_log_writer_default(level, fields, count, data);
}

}  // namespace

MonkeyInvariants::MonkeyInvariants(Monkey &monkey)
    : m_monkey(monkey),
      m_reader(std::make_shared<AnnotationTool>(
          AnnotationToolConfig(false, false, true, true, true, OfferedMacros()))) {}

MonkeyInvariants::~MonkeyInvariants() = default;

std::string MonkeyInvariants::Check() {
  for (auto const check : {&MonkeyInvariants::checkFlags, &MonkeyInvariants::checkState,
                           &MonkeyInvariants::checkTimeline, &MonkeyInvariants::checkList}) {
    std::string problem = (this->*check)();
    if (!problem.empty()) return problem;
  }
  return checkDocument();
}

std::string MonkeyInvariants::checkFlags() const {
  AnnotationTool const &tool = m_monkey.Tool();
  int focused = 0;
  for (IAnnotationObject const *object : tool.AnnotationObjects()) {
    if (object->IsFocused()) ++focused;
    if (object->IsSelected() != (object == tool.GetSelectedObject())) {
      return "an object's flag and the tool disagree on what is selected";
    }
    if (object->IsFocused() && object->IsSelected()) return "an object is focused and selected";
  }
  if (focused > 1) return std::to_string(focused) + " objects are focused";
  if (tool.GetSelectedObject() != nullptr && IndexOfSelected(tool) < 0) {
    return "what is selected is none of the objects";
  }
  return {};
}

std::string MonkeyInvariants::checkState() const {
  AnnotationTool const &tool = m_monkey.Tool();
  bool const hasSelection = tool.GetSelectedObject() != nullptr;
  ToolState const state = tool.GetState();
  if (NeedsSelection(state) && !hasSelection) return NameOf(state) + " without a selection";
  bool const excludesSelection = state == ToolState::Default || state == ToolState::OverObject;
  if (excludesSelection && hasSelection) return NameOf(state) + " with a selection";
  return {};
}

// --- The document ---

std::string MonkeyInvariants::checkDocument() {
  AnnotationTool const &tool = m_monkey.Tool();
  wxJSONValue const &written = tool.GetJSON();
  if (written.IsSameAs(m_checked) || !written.IsObject()) return {};
  m_checked = written;
  m_reader->Reset(false);
  m_reader->SetImage(tool.GetImage(), false);
  std::string text = JsonToUtf8(DocumentOf(written));
  m_reader->FromJSON(JsonFromUtf8(text), tool.GetMediaInfo().frameCount);
  wxJSONValue const &read = m_reader->GetJSON();
  if (!read.ItemAt("ExtensionColor").IsSameAs(written.ItemAt("ExtensionColor"))) {
    return "the document loads with another extension colour";
  }
  return compareObjects(written.ItemAt(kObjects), read.ItemAt(kObjects));
}

std::string MonkeyInvariants::compareObjects(wxJSONValue const &written,
                                             wxJSONValue const &read) const {
  int next = 0;
  for (int i = 0; i < written.Size(); ++i) {
    wxJSONValue const element = written.ItemAt(i);
    if (next < read.Size() && element.IsSameAs(read.ItemAt(next))) {
      ++next;
    } else if (!mayBeLeftOut(element, i)) {
      std::string const got = next < read.Size() ? JsonToUtf8(read.ItemAt(next)) : "nothing";
      return "an object loads as another one:\n" + JsonToUtf8(element) + "\n" + got;
    }
  }
  return next == read.Size() ? std::string() : "more objects are loaded than were written";
}

bool MonkeyInvariants::mayBeLeftOut(wxJSONValue const &written, int index) const {
  if (MayBeLeftOut(written)) return true;
  // What is hidden or enlarged may lie beside the picture, which the document does not say. While
  // playing, its range has grown since it was written.
  auto const &objects = m_monkey.Tool().AnnotationObjects();
  if (index >= static_cast<int>(objects.size())) return false;
  IAnnotationObject const &object = **std::next(objects.begin(), index);
  wxJSONValue const now = object.ToJSON();
  auto const isSame = [&](char const *key) {
    return now.ItemAt(key).IsSameAs(written.ItemAt(key));
  };
  return isSame("Id") && isSame("Properties") && object.WouldDisappear();
}

// --- Undo ---

bool MonkeyInvariants::isGestureRunning() const {
  ToolState const state = m_monkey.Tool().GetState();
  return m_monkey.Input().IsPressed() || state == ToolState::Editing || state == ToolState::Drawing;
}

wxJSONValue MonkeyInvariants::documentAfter(char const *label) {
  wxCommandEvent event(wxEVT_MENU, FindCommand(*m_monkey.Frame().GetMenuBar(), label));
  m_monkey.Frame().ProcessWindowEvent(event);
  m_monkey.Pump();
  return m_monkey.Tool().GetJSON();
}

// What leaves no trace is in the step, but not in what the tool makes of it.
std::string MonkeyInvariants::stepDifference(wxJSONValue const &shown) const {
  wxJSONValue const &step = m_monkey.Open().Steps().Current().annotations;
  return compareObjects(step.ItemAt(kObjects), shown.ItemAt(kObjects));
}

std::string MonkeyInvariants::CheckUndo() {
  History const &steps = m_monkey.Open().Steps();
  // A key that came in between would look like a change by undo.
  m_monkey.WaitForInput();
  if (isGestureRunning() || !m_monkey.Open().HasMedia()) return {};
  // The first undo ends what is going on, which may be a step of its own, and the playing.
  documentAfter("Undo");
  if (!steps.CanRedo()) return {};
  wxJSONValue const after = documentAfter("Redo");
  std::string difference = stepDifference(after);
  if (!difference.empty()) return "redo gives another document: " + difference;
  wxJSONValue const before = documentAfter("Undo");
  // A step that left nothing to come back to is gone.
  if (!steps.CanRedo()) return {};
  difference = stepDifference(before);
  if (!difference.empty()) return "undo gives another document: " + difference;
  difference = Difference(after, documentAfter("Redo"));
  if (!difference.empty()) return "undo and redo give another document" + difference;
  return {};
}

// --- What shows the objects ---

std::string MonkeyInvariants::checkTimeline() const {
  AnnotationTool const &tool = m_monkey.Tool();
  Timeline const &timeline = m_monkey.Time();
  // The end that is dragged stays as the mouse has it.
  if (timeline.HasCapture()) return {};
  if (timeline.RowCount() != static_cast<int>(tool.AnnotationObjects().size())) {
    return "the timeline has " + std::to_string(timeline.RowCount()) + " rows for " +
           std::to_string(tool.AnnotationObjects().size()) + " objects";
  }
  int index = 0;
  for (IAnnotationObject const *object : tool.AnnotationObjects()) {
    if (timeline.RangeOf(index) != object->GetFrameDuration()) {
      return "the timeline shows " + FramesText(timeline.RangeOf(index)) + " for frames " +
             FramesText(object->GetFrameDuration());
    }
    ++index;
  }
  if (timeline.SelectedRow() != IndexOfSelected(tool)) {
    return "the timeline has row " + std::to_string(timeline.SelectedRow()) +
           " selected, the tool " + std::to_string(IndexOfSelected(tool));
  }
  return {};
}

std::string MonkeyInvariants::checkList() const {
  constexpr unsigned kFrames = 2;
  AnnotationTool const &tool = m_monkey.Tool();
  wxDataViewVirtualListModel const &model = ModelOf(m_monkey.Objects());
  if (model.GetCount() != tool.AnnotationObjects().size()) {
    return "the list has " + std::to_string(model.GetCount()) + " rows for " +
           std::to_string(tool.AnnotationObjects().size()) + " objects";
  }
  unsigned row = 0;
  for (IAnnotationObject const *object : tool.AnnotationObjects()) {
    wxVariant shown;
    model.GetValueByRow(shown, row++, kFrames);
    std::string const wanted = FramesText(object->GetFrameDuration());
    if (shown.GetString().utf8_string() != wanted && !m_monkey.Time().HasCapture()) {
      return "the list shows " + shown.GetString().utf8_string() + " for frames " + wanted;
    }
  }
  if (m_monkey.Objects().Selected() != IndexOfSelected(tool)) {
    return "the list has row " + std::to_string(m_monkey.Objects().Selected()) +
           " selected, the tool " + std::to_string(IndexOfSelected(tool));
  }
  return {};
}

// --- Outside of the tool ---

Complaints::Complaints() {
  complaints.clear();
  delete wxLog::SetActiveTarget(new ComplaintLog);  // owned by wxLog
  g_log_set_default_handler(KeepGlibMessage, nullptr);
  // GLib takes it once in a program.
  static bool const isWriterSet = (g_log_set_writer_func(WriteGlibMessage, nullptr, nullptr), true);
  static_cast<void>(isWriterSet);
}

Complaints::~Complaints() {
  g_log_set_default_handler(g_log_default_handler, nullptr);
  delete wxLog::SetActiveTarget(new wxLogStderr);  // owned by wxLog
}

std::vector<std::string> Complaints::Take() {
  return std::exchange(complaints, {});
}

NoComplaints::NoComplaints() {
  isCollecting = false;
}

NoComplaints::~NoComplaints() {
  isCollecting = true;
}

double ResidentMegabytes() {
  constexpr double kMegabyte = 1024.0 * 1024.0;
  std::ifstream statm("/proc/self/statm");
  long total = 0;
  long resident = 0;
  statm >> total >> resident;
  return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE)) / kMegabyte;
}

}  // namespace framenote::test
