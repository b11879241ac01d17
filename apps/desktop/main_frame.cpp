// SPDX-License-Identifier: MIT
#include "desktop/main_frame.h"

#include <algorithm>
#include <iterator>

#include <wx/aui/framemanager.h>
#include <wx/config.h>
#include <wx/dnd.h>
#include <wx/infobar.h>
#include <wx/menu.h>
#include <wx/sizer.h>
#include <wx/translation.h>

#include "desktop/document_change.h"
#include "desktop/object_list.h"
#include "desktop/toolkit_settings.h"
#include "desktop/transport_bar.h"
#include "framenote/annotation_panel.h"
#include "framenote/annotation_tool.h"
#include "objects/ann_shape.h"
#include "objects/shape_geometry.h"
#include "project/failure_text.h"
#include "project/path_text.h"
#include "project/text_macros.h"
#include "project/time_code.h"

namespace {

wxSize const kFirstSize(1280, 860);
constexpr int kTimelineHeight = 170;
constexpr int kTimelineShare = 3;  ///< of the width below the picture
constexpr int kObjectsShare = 1;
constexpr char const *kLayoutKey = "/window/layout";
constexpr char const *kRecentPath = "/recent";
/// Of a pane: narrower or lower, scroll bars would have no room.
wxSize const kLeastPane(120, 90);
/// How much of the window the panes of one side may take.
constexpr double kWidestDock = 0.45;
constexpr double kHighestDock = 0.3;

/// What each field of the status bar shows, and its width in average characters; -1 takes the rest.
enum StatusField { kPointerField, kColourField, kSelectionField, kZoomField, kFrameField };
constexpr int kStatusWidths[] = {16, 20, 30, 10, -1};

/// Opens the first file that is dropped.
class FileDrop : public wxFileDropTarget {
public:
  explicit FileDrop(MainFrame &frame) : m_frame(frame) {}
  bool OnDropFiles(wxCoord, wxCoord, wxArrayString const &names) override {
    if (names.empty()) return false;
    std::string const path = BytesOfPath(names.front());
    // After the drop has ended: opening may ask.
    m_frame.CallAfter([this, path] { m_frame.OpenPath(path); });
    return true;
  }

private:
  MainFrame &m_frame;
};

}  // namespace

MainFrame::MainFrame(std::string const &recoveryFolder)
    : wxFrame(nullptr, wxID_ANY, "Framenote"),
      m_recoveryFolder(recoveryFolder),
      m_tool(std::make_shared<AnnotationTool>(
          AnnotationToolConfig(false, false, true, true, true, OfferedMacros()))),
      m_playback([this](std::int64_t frame) { showFrame(frame, true); }, [this] { pause(); }),
      m_sumTimer(this) {
  Session::Handlers handlers;
  handlers.onFrameShown = [this] { onFrameShown(); };
  handlers.onChanged = [this] { onDocumentChanged(); };
  handlers.onRecoveryFailure = [this](std::exception_ptr const &failure) {
    CallAfter([this, failure] { showProblem(FailureText(failure)); });
  };
  m_session = std::make_unique<Session>(m_tool, handlers, recoveryFolder);
  SetSize(FromDIP(kFirstSize));
  makeWindows();
  makeMenus();
  bindEvents();
  bindToolEvents();
  restoreLayout();
  SetDropTarget(new FileDrop(*this));  // owned by this window
  onDocumentChanged();
  m_canvas->SetFocus();
}

MainFrame::~MainFrame() {
  m_playback.Stop();
  m_tool->UnlinkGui();
  m_canvas->SetTool(nullptr);
  m_panes.UnInit();
  // Before what they call back to.
  wxWindow *const panes[] = {m_canvas->GetParent(), m_palette, m_timePane, m_objects};
  for (wxWindow *const pane : panes) pane->Destroy();
}

void MainFrame::makeWindows() {
  KeepScrollBarsBeside();
  m_panes.SetManagedWindow(this);
  auto *const middle = new wxPanel(this);           // owned by this window, like all that follow
  m_problem = new wxInfoBar(middle);                // owned by its parent
  m_canvas = new Canvas(middle);                    // owned by its parent
  auto *const column = new wxBoxSizer(wxVERTICAL);  // owned by the window
  column->Add(m_problem, 0, wxEXPAND);
  column->Add(m_canvas, 1, wxEXPAND);
  middle->SetSizer(column);
  m_canvas->SetTool(m_tool);

  m_palette = m_tool->InitGui(this, this, m_tool);
  m_objects = new ObjectList(this);  // owned by this window
  m_timePane = new wxPanel(this);    // owned by this window
  TransportBar::Actions actions{[this] { goToFirst(); }, [this] { stepBack(); }, [this] { play(); },
                                [this] { stepForward(); }, [this] { goToLast(); }};
  m_transport = new TransportBar(m_timePane, actions);  // owned by its parent
  m_timeline = new Timeline(m_timePane);                // owned by its parent
  auto *const rows = new wxBoxSizer(wxVERTICAL);        // owned by the window
  rows->Add(m_transport, 0, wxEXPAND);
  rows->Add(m_timeline, 1, wxEXPAND);
  m_timePane->SetSizer(rows);

  addPanes(*middle);
  wxStatusBar *const bar = CreateStatusBar(static_cast<int>(WXSIZEOF(kStatusWidths)));
  int widths[WXSIZEOF(kStatusWidths)];
  for (std::size_t i = 0; i < WXSIZEOF(kStatusWidths); ++i) {
    widths[i] = kStatusWidths[i] < 0 ? -1 : kStatusWidths[i] * GetCharWidth();
  }
  bar->SetStatusWidths(static_cast<int>(WXSIZEOF(kStatusWidths)), widths);
}

void MainFrame::addPanes(wxWindow &middle) {
  using Pane = wxAuiPaneInfo;
  // A palette of long words is cut off at the usual 0.3 of a small window.
  m_panes.SetDockSizeConstraint(kWidestDock, kHighestDock);
  m_panes.AddPane(&middle, Pane().Name("picture").CenterPane());
  wxSize const least = FromDIP(kLeastPane);
  Pane palette = Pane().Name("palette").Caption(_("Annotations")).Right().MinSize(least);
  m_panes.AddPane(m_palette, palette.BestSize(m_palette->GetBestSize()));
  // Side by side: a row of the timeline is an object too.
  Pane time = Pane().Name("timeline").Caption(_("Timeline")).Bottom().Position(0).MinSize(least);
  time.BestSize(FromDIP(wxSize(-1, kTimelineHeight)));
  time.dock_proportion = kTimelineShare;
  m_panes.AddPane(m_timePane, time);
  Pane objects = Pane().Name("objects").Caption(_("Objects")).Bottom().Position(1).MinSize(least);
  objects.dock_proportion = kObjectsShare;
  m_panes.AddPane(m_objects, objects);
}

void MainFrame::restoreLayout() {
  wxConfigBase &config = *wxConfigBase::Get();
  wxString const layout = config.Read(kLayoutKey, wxString());
  if (!layout.empty()) m_panes.LoadPerspective(layout, false);
  m_panes.Update();
  config.SetPath(kRecentPath);
  m_recent.Load(config);
  config.SetPath("/");
}

void MainFrame::saveLayout() {
  wxConfigBase &config = *wxConfigBase::Get();
  config.Write(kLayoutKey, m_panes.SavePerspective());
  config.SetPath(kRecentPath);
  m_recent.Save(config);
  config.SetPath("/");
  config.Flush();
}

void MainFrame::bindToolEvents() {
  Bind(wxEVT_ANN_JSON_CHANGED, [this](AnnotationJsonChangedEvent &) {
    if (!m_isDraggingRange) m_session->TakeDocument();
    m_canvas->Refresh();
  });
  Bind(wxEVT_ANN_FRAME_RANGE_CHANGED, [this](AnnotationFrameRangeChangedEvent &) { onRanges(); });
  Bind(wxEVT_ANN_OBJECT_SELECTED, [this](AnnotationObjectSelectedEvent &) { showSelection(); });
  Bind(wxEVT_ANN_OBJECT_DESELECTED, [this](AnnotationObjectDeselectedEvent &) { showSelection(); });
  Bind(wxEVT_ANN_TEXT_EDITION_FINISHED,
       [this](AnnotationTextEditionFinishedEvent &) { m_canvas->SetFocus(); });
  Bind(wxEVT_ANN_GOTO_FRAME, [this](AnnotationGoToFrameEvent &event) {
    if (event.FrameIndex() >= 0) showFrame(event.FrameIndex(), false);
  });
}

void MainFrame::bindEvents() {
  Bind(wxEVT_CHAR_HOOK, &MainFrame::onKey, this);
  Bind(wxEVT_CLOSE_WINDOW, &MainFrame::onClose, this);
  Bind(
      wxEVT_TIMER, [this](wxTimerEvent &) { warnOfOtherMedia(); }, m_sumTimer.GetId());
  m_canvas->OnPointerMoved([this](auto const &pointer) { showPointer(pointer); });
  m_canvas->OnZoomChanged([this](double zoom) {
    SetStatusText(wxString::Format("%.4g %%", 100.0 * zoom), kZoomField);
  });
  // Both menu keys send this without a position.
  m_canvas->Bind(wxEVT_CONTEXT_MENU, [this](wxContextMenuEvent &event) {
    if (event.GetPosition() == wxDefaultPosition) m_tool->PopupMenuByKey();
  });
  // Held, the space bar drags the picture; let go without that, it plays.
  m_canvas->Bind(wxEVT_KEY_UP, [this](wxKeyEvent &event) {
    bool const isSpace = event.GetKeyCode() == WXK_SPACE;
    if (!isSpace) return event.Skip();
    if (!m_canvas->ReleasePanKey()) play();
  });
  m_timeline->OnFrameWanted([this](std::int64_t frame, bool) { showFrame(frame, false); });
  m_timeline->OnRowSelected([this](int index) { selectRow(index); });
  m_timeline->OnRangeDragged([this](Timeline::RangeDrag const &drag) { dragRange(drag); });
  m_objects->OnSelected([this](int index) { selectRow(index); });
}

void MainFrame::onFrameShown() {
  m_canvas->SetPicture(m_session->Picture(), m_playback.IsPlaying());
  m_timeline->SetFrame(m_session->Frame());
  showPosition();
}

void MainFrame::onDocumentChanged() {
  refreshTitle();
  refreshTimeline();
  refreshObjects();
  m_canvas->Refresh();
}

// Events come later than what they tell of, even after everything was closed: the tool is asked
// instead.
void MainFrame::refreshTimeline() {
  Timeline::Ranges ranges;
  for (IAnnotationObject *const object : m_tool->AnnotationObjects()) {
    auto const [first, last] = object->GetFrameDuration();
    ranges.emplace_back(first, last, object->GetDominantColor());
  }
  m_timeline->SetRanges(ranges, selectedIndex());
  refreshStillRuns();
}

void MainFrame::refreshStillRuns() {
  // More rows than anyone looks through; each change would take note of all of them.
  constexpr std::size_t kMostRows = 1000;
  std::size_t const rows = std::min(m_tool->AnnotationObjects().size(), kMostRows);
  for (int i = 0; i < static_cast<int>(rows); ++i) {
    m_timeline->SetStillRuns(i, StillRunsOfObject(m_tool->GetJSON(), i));
  }
}

void MainFrame::onRanges() {
  refreshTimeline();
  refreshObjects();
}

void MainFrame::refreshObjects() {
  m_objects->SetObjects(m_tool->AnnotationObjects());
  showSelection();
}

void MainFrame::refreshTitle() {
  if (!m_session->HasMedia()) return SetTitle("Framenote");
  std::string const &project = m_session->ProjectPath();
  wxString const name = TextOfPath(project.empty() ? m_session->Source().Path() : project);
  wxString const mark = m_session->IsModified() ? "*" : "";
  SetTitle(wxString::Format("%s%s - Framenote", mark, name.AfterLast('/')));
}

void MainFrame::showPointer(std::optional<Canvas::Pointer> const &pointer) {
  bool const isOn = pointer && pointer->isOnPicture;
  wxString place;
  if (isOn) place = wxString::Format("%d, %d", pointer->pixel.x, pointer->pixel.y);
  SetStatusText(place, kPointerField);
  wxString colour;
  if (isOn && pointer->colour.IsOk()) {
    wxColour const &c = pointer->colour;
    colour = wxString::Format("%d, %d, %d", c.Red(), c.Green(), c.Blue());
  }
  SetStatusText(colour, kColourField);
}

void MainFrame::showPosition() {
  if (!m_session->HasMedia()) {
    m_transport->SetPosition(wxString());
    return SetStatusText(wxString(), kFrameField);
  }
  MediaSource const &source = m_session->Source();
  std::int64_t const frame = m_session->Frame();
  // The catalogue's key names the frames as 64-bit integers on every platform.
  wxString const text = wxString::Format(
      // TRANSLATORS: frame, last frame, time, last time, rate; keep it short.
      _("Frame %lld of %lld   %s of %s   %.4g frames/s"), static_cast<long long>(frame),
      static_cast<long long>(m_session->FrameCount()), FormatTimeCode(source, frame),
      FormatTimeCode(source, m_session->FrameCount() - 1), source.Info().frameRate.Value());
  wxString shown = hasVideo() ? text : _("Still picture");
  m_transport->SetPosition(shown);
  if (m_session->IsDamaged()) shown += "   " + wxString(_("This frame is damaged."));
  SetStatusText(shown, kFrameField);
}

int MainFrame::selectedIndex() const {
  auto const &objects = m_tool->AnnotationObjects();
  auto const selected = std::find(objects.begin(), objects.end(), m_tool->GetSelectedObject());
  return selected == objects.end() ? -1
                                   : static_cast<int>(std::distance(objects.begin(), selected));
}

void MainFrame::showSelection() {
  IAnnotationObject *const selected = m_tool->GetSelectedObject();
  m_objects->SetSelected(selectedIndex());
  m_timeline->SetSelected(selectedIndex());
  wxString text;
  if (auto const *const shape = dynamic_cast<AnnShape const *>(selected)) {
    wxRect const rect = shape->GetContainingRect(m_session->Frame());
    constexpr double kDegrees = 180.0 / framenote::kPi;
    // TRANSLATORS: width, height and rotation of the selected object.
    text = wxString::Format(_("%d x %d, turned by %.1f degrees"), rect.width, rect.height,
                            shape->GetRotationAngle() * kDegrees);
  }
  SetStatusText(text, kSelectionField);
}

void MainFrame::showProblem(wxString const &text) {
  m_problem->ShowMessage(text, wxICON_WARNING);
}
