// SPDX-License-Identifier: MIT
// What the timeline knows and how it is painted.
#include "desktop/timeline.h"

#include <algorithm>
#include <cmath>
#include <tuple>

#include <wx/dcbuffer.h>
#include <wx/intl.h>
#include <wx/settings.h>

#include "desktop/theme.h"

namespace {

// Sizes in device-independent pixels.
constexpr int kRowHeight = 20;
constexpr int kBarInset = 3;
constexpr int kPadding = 10;
constexpr int kGrip = 5;
constexpr int kGripMark = 3;
constexpr int kWidestFrame = 64;
constexpr int kNarrowestRange = 4;
constexpr int kLongTick = 7;
constexpr int kShortTick = 3;
constexpr int kLabelGap = 16;
constexpr int kHead = 5;
constexpr int kHalfLine = 1;
constexpr int kTickGap = 2;
/// Frames at least this wide get a line between them.
constexpr int kCellLines = 8;
/// Frames of a document may be any number; beyond this a double does not tell them apart.
constexpr std::int64_t kLatestFrame = std::int64_t{1} << 53;
constexpr int kDefaultHeight = 120;
constexpr int kDefaultWidth = 300;

wxColour SystemColour(wxSystemColour index) {
  return wxSystemSettings::GetColour(index);
}

/// Lines and shades between the background and the text.
wxColour Shade(double share) {
  return Mixed(SystemColour(wxSYS_COLOUR_WINDOW), SystemColour(wxSYS_COLOUR_WINDOWTEXT), share);
}

/// For lines: a dark look has highlights that are too dark for these.
wxColour AccentColour() {
  return Mixed(SystemColour(wxSYS_COLOUR_HIGHLIGHT), SystemColour(wxSYS_COLOUR_WINDOWTEXT), 0.3);
}

}  // namespace

Timeline::Timeline(wxWindow *parent, wxWindowID id) {
  Create(parent, id, wxDefaultPosition, wxDefaultSize,
         wxHSCROLL | wxVSCROLL | wxBORDER_NONE | wxWANTS_CHARS | wxFULL_REPAINT_ON_RESIZE);
  SetLayoutDirection(wxLayout_LeftToRight);
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  SetName(wxGetTranslation("Timeline"));
  SetInitialSize(FromDIP(wxSize(kDefaultWidth, kDefaultHeight)));
  useMetrics();
  bindEvents();
}

Timeline::~Timeline() {
  // A bar that still moves ends at once when the window goes: too late for what its events change.
  SetEvtHandlerEnabled(false);
  if (HasCapture()) ReleaseMouse();
}

void Timeline::useMetrics() {
  TimelineLayout::Metrics metrics;
  metrics.ruler = GetCharHeight() + FromDIP(kLongTick + 2);
  metrics.row = FromDIP(kRowHeight);
  metrics.padding = FromDIP(kPadding);
  metrics.grip = FromDIP(kGrip);
  metrics.widestFrame = FromDIP(kWidestFrame);
  metrics.narrowestRange = FromDIP(kNarrowestRange);
  changeView([&] { m_layout.SetMetrics(metrics); });
}

/// Every change of what is seen, with what follows from it.
void Timeline::changeView(std::function<void()> const &change) {
  change();
  ShowScrollBars(*this, m_layout.HorizontalBar(), m_layout.VerticalBar());
  Refresh();
}

void Timeline::SetMedia(std::int64_t frameCount, SecondsOfFrame secondsOf) {
  wxASSERT(frameCount > 0 && secondsOf);
  CancelDrag();
  m_secondsOf = std::move(secondsOf);
  m_frame = 0;
  changeView([&] { m_layout.SetFrameCount(frameCount); });
}

void Timeline::SetFrame(std::int64_t frame) {
  if (m_drag == Drag::Playhead || frame == m_frame) return;
  m_frame = std::min(std::max<std::int64_t>(frame, 0), m_layout.FrameCount() - 1);
  changeView([this] { m_layout.RevealFrame(m_frame, true); });
}

void Timeline::SetRanges(Ranges const &ranges, int selectedIndex) {
  bool const isSameCount = ranges.size() == m_rows.size();
  if (!isSameCount) CancelDrag();
  std::int64_t const dragged = m_drag == Drag::RangeEnd ? draggedEnd() : 0;
  m_rows.resize(ranges.size());
  for (std::size_t i = 0; i < ranges.size(); ++i) {
    std::tie(m_rows[i].first, m_rows[i].last, m_rows[i].colour) = ranges[i];
    for (std::int64_t *end : {&m_rows[i].first, &m_rows[i].last}) {
      *end = std::min(std::max<std::int64_t>(*end, 0), kLatestFrame);
    }
    if (!isSameCount) m_rows[i].stillRuns.clear();
  }
  if (m_drag == Drag::RangeEnd) draggedEnd() = dragged;
  m_toolTipRow = -1;
  int const before = std::exchange(m_selected, selectedIndex < rowCount() ? selectedIndex : -1);
  changeView([&] {
    m_layout.SetRowCount(rowCount());
    if (m_selected >= 0 && m_selected != before) m_layout.RevealRow(m_selected);
  });
}

void Timeline::SetSelected(int index) {
  int const wanted = index >= 0 && index < rowCount() ? index : -1;
  if (wanted == m_selected) return;
  m_selected = wanted;
  changeView([this] {
    if (m_selected >= 0) m_layout.RevealRow(m_selected);
  });
}

void Timeline::SetStillRuns(int index, std::vector<Run> runs) {
  if (index < 0 || index >= rowCount()) return;
  row(index).stillRuns = std::move(runs);
  Refresh();
}

void Timeline::ShowAll() {
  changeView([this] { m_layout.ShowAll(); });
}

void Timeline::onPaint() {
  wxAutoBufferedPaintDC dc(this);
  dc.SetBackground(SystemColour(wxSYS_COLOUR_WINDOW));
  dc.Clear();
  dc.SetFont(GetFont());
  paintRows(dc);
  paintRuler(dc);
  paintPlayhead(dc);
  if (!HasFocus()) return;
  dc.SetBrush(*wxTRANSPARENT_BRUSH);
  dc.SetPen(AccentColour());
  dc.DrawRectangle(GetClientSize());
}

void Timeline::paintRows(wxDC &dc) {
  auto const [first, behind] = m_layout.VisibleRows();
  dc.SetPen(*wxTRANSPARENT_PEN);
  for (int index = first; index < behind; ++index) {
    wxColour const plain = index % 2 == 0 ? SystemColour(wxSYS_COLOUR_WINDOW) : Shade(0.04);
    bool const isSelected = index == m_selected;
    dc.SetBrush(isSelected ? Mixed(plain, SystemColour(wxSYS_COLOUR_HIGHLIGHT), 0.35) : plain);
    dc.DrawRectangle(0, m_layout.RowTop(index), GetClientSize().x, m_layout.Sizes().row);
  }
  paintFrameCell(dc);
  for (int index = first; index < behind; ++index) paintRow(dc, index);
}

/// The cell of the current frame and the lines between frames, where there is room for them: what
/// lies in the last frame of a range is seen to lie inside it.
void Timeline::paintFrameCell(wxDC &dc) {
  int const top = m_layout.Sizes().ruler;
  int const height = GetClientSize().y - top;
  if (m_layout.FrameWidth() < FromDIP(kCellLines)) return;
  int const left = wxRound(std::max(m_layout.X(m_frame), -1.0));
  int const right = wxRound(std::min(m_layout.X(m_frame + 1), GetClientSize().x + 1.0));
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetBrush(Shade(0.14));
  if (right > left) dc.DrawRectangle(left, top, right - left, height);
  dc.SetPen(Shade(0.12));
  std::int64_t const behind = m_layout.FrameAt(GetClientSize().x) + 1;
  for (std::int64_t frame = m_layout.FrameAt(0); frame <= behind; ++frame) {
    int const x = wxRound(m_layout.X(frame));
    dc.DrawLine(x, top, x, top + height);
  }
}

void Timeline::paintRow(wxDC &dc, int index) {
  wxRect const cell = m_layout.Bar(index, row(index).first, row(index).last);
  if (!cell.IsEmpty()) paintBar(dc, index, cell.Deflate(0, FromDIP(kBarInset)));
}

void Timeline::paintBar(wxDC &dc, int index, wxRect const &bar) {
  wxColour const given = row(index).colour;
  // What cannot be seen through its colour is still an object.
  wxColour const colour = given.IsOk() ? Mixed(given, given, 0.0) : Shade(0.4);
  bool const isSelected = index == m_selected;
  dc.SetBrush(colour);
  dc.SetPen(isSelected ? SystemColour(wxSYS_COLOUR_WINDOWTEXT) : Mixed(colour, Shade(1.0), 0.5));
  dc.DrawRectangle(bar);
  paintTicks(dc, row(index), bar);
  int const mark = FromDIP(kGripMark);
  if (!isSelected || bar.width < 4 * mark) return;
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetBrush(SystemColour(wxSYS_COLOUR_WINDOWTEXT));
  dc.DrawRectangle(bar.x, bar.y, mark, bar.height);
  dc.DrawRectangle(bar.GetRight() + 1 - mark, bar.y, mark, bar.height);
}

/// A tick stands where a run begins: there the object is elsewhere than in the frame before. Ticks
/// that would touch are left out, so that the work is bounded by the window.
void Timeline::paintTicks(wxDC &dc, Row const &row, wxRect const &bar) {
  if (row.stillRuns.size() < 2) return;
  dc.SetPen(ReadableOn(row.colour.IsOk() ? row.colour : Shade(0.4)));
  int const inset = bar.height / 4;
  double const end = std::min(m_layout.X(row.last + 1), GetClientSize().x + 1.0);
  std::int64_t from = std::max(row.first + 1, m_layout.FrameAt(0));
  auto const isBefore = [](Run const &run, std::int64_t frame) { return run.first < frame; };
  auto run = row.stillRuns.begin();
  while (true) {
    run = std::lower_bound(run, row.stillRuns.end(), from, isBefore);
    if (run == row.stillRuns.end() || m_layout.X(run->first) >= end) return;
    int const x = wxRound(m_layout.X(run->first));
    dc.DrawLine(x, bar.y + inset, x, bar.y + bar.height - inset);
    from = std::max(run->first + 1, m_layout.FrameAt(x + FromDIP(kTickGap) + 1));
    // At the end of the media the frame at a place stays the last one.
    if (from <= run->first) return;
  }
}

void Timeline::paintRuler(wxDC &dc) {
  int const height = m_layout.Sizes().ruler;
  int const width = GetClientSize().x;
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetBrush(SystemColour(wxSYS_COLOUR_BTNFACE));
  dc.DrawRectangle(0, 0, width, height);
  wxColour const text = SystemColour(wxSYS_COLOUR_BTNTEXT);
  dc.SetTextForeground(text);
  dc.SetPen(Mixed(SystemColour(wxSYS_COLOUR_BTNFACE), text, 0.5));
  dc.DrawLine(0, height - 1, width, height - 1);
  wxString const widest = TimeText(m_secondsOf(m_layout.FrameCount() - 1));
  int const spacing = dc.GetTextExtent(widest).x + FromDIP(kLabelGap);
  for (RulerMark const &mark : RulerMarks(m_layout, m_secondsOf, spacing)) {
    int const x = wxRound(m_layout.X(mark.frame));
    int const tick = FromDIP(mark.isLabelled ? kLongTick : kShortTick);
    dc.DrawLine(x, height - tick, x, height);
    if (!mark.isLabelled) continue;
    auto const textOf = mark.isWhole ? WholeTimeText : TimeText;
    dc.DrawText(textOf(mark.seconds), x + FromDIP(2), 0);
  }
}

int Timeline::playheadX() const {
  double const middle = (m_layout.X(m_frame) + m_layout.X(m_frame + 1)) / 2.0;
  return wxRound(std::min(std::max(middle, -100.0), GetClientSize().x + 100.0));
}

void Timeline::paintPlayhead(wxDC &dc) {
  int const x = playheadX();
  int const ruler = m_layout.Sizes().ruler;
  int const head = FromDIP(kHead);
  int const height = GetClientSize().y - ruler;
  // Bars of its own colour must not swallow the line.
  int const half = FromDIP(kHalfLine);
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetBrush(SystemColour(wxSYS_COLOUR_WINDOW));
  dc.DrawRectangle(x - 2 * half, ruler, 4 * half, height);
  dc.SetBrush(AccentColour());
  dc.DrawRectangle(x - half, ruler, 2 * half, height);
  wxPoint const corners[] = {{x - head, ruler - 2 * head - 1},
                             {x + head, ruler - 2 * head - 1},
                             {x + head, ruler - head},
                             {x, ruler - 1},
                             {x - head, ruler - head}};
  dc.SetPen(SystemColour(wxSYS_COLOUR_WINDOW));
  dc.DrawPolygon(5, corners);
}
