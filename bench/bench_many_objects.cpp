// SPDX-License-Identifier: MIT
#include <cstdint>
#include <memory>
#include <vector>

#include <benchmark/benchmark.h>
#include <wx/frame.h>
#include <wx/utils.h>

#include "desktop/document_change.h"
#include "desktop/history.h"
#include "desktop/object_list.h"
#include "desktop/timeline.h"
#include "objects/annotation_object.h"
#include "side_by_side.h"
#include "support/large_document.h"

/// What a document of many objects of all kinds costs beside one of 1,000, and an object of many
/// runs beside one of 1,000: work in proportion gives the quotient of the numbers.
namespace {

using framenote::test::LargeDocument;

constexpr int kFew = 1000;

int CountOf(benchmark::State const &state) {
  return static_cast<int>(state.range(0));
}

template <class Many, class Few>
void BesideFew(benchmark::State &state, Many const &many, Few const &few) {
  few();  // what is remembered from then on belongs to neither
  many();
  framenote::bench::SideBySide(state, many, few, [](auto const &work) {
    return framenote::bench::ProcessorSecondsOf(work);
  });
}

template <void (LargeDocument::*work)()>
void Objects(benchmark::State &state) {
  LargeDocument many = LargeDocument::OfObjects(CountOf(state));
  LargeDocument few = LargeDocument::OfObjects(kFew);
  BesideFew(
      state, [&] { (many.*work)(); }, [&] { (few.*work)(); });
}

template <void (LargeDocument::*work)()>
void Runs(benchmark::State &state) {
  LargeDocument many = LargeDocument::OfRuns(CountOf(state));
  LargeDocument few = LargeDocument::OfRuns(kFew);
  BesideFew(
      state, [&] { (many.*work)(); }, [&] { (few.*work)(); });
}

/// The history of the desktop host on a large document.
class LargeHistory {
public:
  explicit LargeHistory(LargeDocument &document) : m_document(document) {
    m_history.Reset({document.Tool().GetJSON(), -1, 0});
  }
  /// The step that one edit makes.
  void Record() {
    m_document.Drag();
    m_history.Record({m_document.Tool().GetJSON(), 0, 0});
  }
  /// One step back and forth, without showing it.
  void UndoAndRedo() {
    if (!m_history.CanUndo()) Record();
    m_history.Undo();
    m_history.Redo();
  }
  void UndoAndLoad() {
    if (!m_history.CanUndo()) Record();
    wxJSONValue document(wxJSONTYPE_OBJECT);
    document.Set("Annotate", m_history.Undo().annotations);
    m_document.Tool().FromJSON(document, 10);
    m_history.Record({m_document.Tool().GetJSON(), 0, 0});
  }

private:
  LargeDocument &m_document;
  History m_history;
};

template <void (LargeHistory::*work)()>
void HistoryOf(benchmark::State &state) {
  LargeDocument many = LargeDocument::OfObjects(CountOf(state));
  LargeDocument few = LargeDocument::OfObjects(kFew);
  LargeHistory ofMany(many);
  LargeHistory ofFew(few);
  BesideFew(
      state, [&] { (ofMany.*work)(); }, [&] { (ofFew.*work)(); });
}

/// The list of objects and the timeline in a window, told of each change as the host tells them.
class LargeWindow {
public:
  explicit LargeWindow(LargeDocument &document)
      : m_document(document),
        m_frame(new wxFrame(nullptr, wxID_ANY, "")),  // owned by this one, which destroys it
        m_list(new ObjectList(m_frame)),              // owned by the frame
        m_timeline(new Timeline(m_frame)) {           // owned by the frame
    m_frame->SetClientSize(800, 600);
    m_list->SetSize(0, 0, 800, 300);
    m_timeline->SetSize(0, 300, 800, 300);
    m_timeline->SetMedia(10, [](std::int64_t frame) { return 0.04 * static_cast<double>(frame); });
    m_frame->Show();
    Tell();
  }
  ~LargeWindow() { m_frame->Destroy(); }
  LargeWindow(LargeWindow const &) = delete;
  LargeWindow &operator=(LargeWindow const &) = delete;

  void Tell() {
    auto const &objects = m_document.Tool().AnnotationObjects();
    Timeline::Ranges ranges;
    for (IAnnotationObject *const object : objects) {
      ranges.emplace_back(object->GetStartFrame(), object->GetEndFrame(),
                          object->GetDominantColor());
    }
    m_timeline->SetRanges(ranges, 0);
    m_list->SetObjects(objects);
    m_list->SetSelected(0);
    wxYield();
  }
  /// Every row is another one then: the objects are counted from the front.
  void PutTheFrontToTheBack() {
    m_document.Tool().SelectObject(0);
    wxCommandEvent event(wxEVT_MENU, static_cast<int>(AnnotationCommand::SendToBack));
    m_document.Tool().onPopupClick(event);
    Tell();
  }
  void Delete() {
    m_document.Tool().SelectObject(0);
    wxCommandEvent event(wxEVT_MENU, static_cast<int>(AnnotationCommand::Delete));
    m_document.Tool().onPopupClick(event);
    Tell();
  }

private:
  LargeDocument &m_document;
  wxFrame *m_frame;
  ObjectList *m_list;
  Timeline *m_timeline;
};

template <void (LargeWindow::*work)()>
void WindowOf(benchmark::State &state) {
  LargeDocument many = LargeDocument::OfObjects(CountOf(state));
  LargeDocument few = LargeDocument::OfObjects(kFew);
  LargeWindow ofMany(many);
  LargeWindow ofFew(few);
  BesideFew(
      state, [&] { (ofMany.*work)(); }, [&] { (ofFew.*work)(); });
}

void Numbers(benchmark::internal::Benchmark *benchmark) {
  for (int const count : {2500, 5000, 10000}) benchmark->Arg(count);
  benchmark->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(7);
}

BENCHMARK(Objects<&LargeDocument::Load>)->Name("LoadManyObjects")->Apply(Numbers);
BENCHMARK(Objects<&LargeDocument::Paint>)->Name("PaintManyObjects")->Apply(Numbers);
BENCHMARK(Objects<&LargeDocument::Point>)->Name("PointAmongManyObjects")->Apply(Numbers);
BENCHMARK(Objects<&LargeDocument::PressAtTheBack>)->Name("PressAmongManyObjects")->Apply(Numbers);
BENCHMARK(Objects<&LargeDocument::SelectEnds>)->Name("SelectAmongManyObjects")->Apply(Numbers);
BENCHMARK(Objects<&LargeDocument::Drag>)->Name("DragAmongManyObjects")->Apply(Numbers);
BENCHMARK(Objects<&LargeDocument::ChangeLook>)->Name("LookAmongManyObjects")->Apply(Numbers);
BENCHMARK(Objects<&LargeDocument::DeleteAndPaste>)
    ->Name("DeleteAndPasteAmongManyObjects")
    ->Apply(Numbers);
BENCHMARK(Objects<&LargeDocument::StepFrame>)->Name("StepFrameOfManyObjects")->Apply(Numbers);
BENCHMARK(Objects<&LargeDocument::Save>)->Name("SaveManyObjects")->Apply(Numbers);
BENCHMARK(Runs<&LargeDocument::Load>)->Name("LoadManyRuns")->Apply(Numbers);
BENCHMARK(Runs<&LargeDocument::Drag>)->Name("DragAmongManyRuns")->Apply(Numbers);
BENCHMARK(Runs<&LargeDocument::StepFrame>)->Name("StepFrameOfManyRuns")->Apply(Numbers);
BENCHMARK(Runs<&LargeDocument::Save>)->Name("SaveManyRuns")->Apply(Numbers);
BENCHMARK(HistoryOf<&LargeHistory::Record>)->Name("RecordStepOfManyObjects")->Apply(Numbers);
BENCHMARK(HistoryOf<&LargeHistory::UndoAndRedo>)->Name("UndoStepOfManyObjects")->Apply(Numbers);
BENCHMARK(HistoryOf<&LargeHistory::UndoAndLoad>)->Name("UndoAndLoadManyObjects")->Apply(Numbers);
BENCHMARK(WindowOf<&LargeWindow::Tell>)->Name("ListAndTimelineOfManyObjects")->Apply(Numbers);
BENCHMARK(WindowOf<&LargeWindow::PutTheFrontToTheBack>)
    ->Name("ListAndTimelineAfterAnOrder")
    ->Apply(Numbers);
BENCHMARK(WindowOf<&LargeWindow::Delete>)->Name("ListAndTimelineAfterADeletion")->Apply(Numbers);

}  // namespace
