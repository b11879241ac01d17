// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

#include <wx/window.h>

#include "desktop/time_ruler.h"
#include "desktop/timeline_layout.h"
#include "framenote/annotation_events.h"

class wxDC;

/// The frames of a video from left to right, a playhead, and a row for each object with the bar of
/// its range. It shows what it is told and asks for what the user wants; its owner decides, and
/// tells it.
///
/// Time runs from left to right in every language, like the rulers of players. Ctrl and wheel
/// zooms at the pointer, the wheel scrolls the rows, or the time with Shift or where all rows are
/// seen. Up and Down select rows; all other keys are its owner's.
class Timeline : public wxWindow {
public:
  using Ranges = AnnotationFrameRangeChangedEvent::Ranges;
  /// First and last frame.
  using Run = std::pair<std::int64_t, std::int64_t>;
  /// The end of a range that the user drags.
  struct RangeDrag {
    int index = -1;
    bool isStart = false;
    std::int64_t frame = 0;
    bool isFinished = false;  ///< the mouse was let go, or the drag given up: then the first frame
  };

  explicit Timeline(wxWindow *parent, wxWindowID id = wxID_ANY);
  ~Timeline() override;

  // --- What is shown ---

  /// REQUIRES: at least one frame, and a function that is not empty.
  void SetMedia(std::int64_t frameCount, SecondsOfFrame secondsOf);
  /// Moves the playhead and scrolls to it. While the user drags it, it stays with the mouse.
  void SetFrame(std::int64_t frame);
  /// What a frame range event carries. Forgets the still runs if the number of ranges changes. A
  /// range whose end is being dragged stays as the mouse has it.
  void SetRanges(Ranges const &ranges, int selectedIndex);
  /// Brings the row into view if it was not the selected one; an unknown index selects none.
  void SetSelected(int index);
  /// Where an object stands still: its bar gets a tick at each frame that does not continue a run.
  /// In ascending order; an unknown index does nothing.
  void SetStillRuns(int index, std::vector<Run> runs);
  void ShowAll();
  TimelineLayout const &Layout() const { return m_layout; }
  std::int64_t Frame() const { return m_frame; }
  int RowCount() const { return rowCount(); }
  /// REQUIRES: 0 <= index < RowCount().
  Run RangeOf(int index) const { return {row(index).first, row(index).last}; }
  int SelectedRow() const { return m_selected; }

  // --- What the user wants; one handler each ---

  /// Another frame; the flag is false while the playhead is dragged.
  void OnFrameWanted(std::function<void(std::int64_t, bool)> handler) {
    m_onFrame = std::move(handler);
  }
  /// A row was clicked or reached with a key; its index. Also before a drag in a row that is not
  /// the selected one.
  void OnRowSelected(std::function<void(int)> handler) { m_onRow = std::move(handler); }
  void OnRangeDragged(std::function<void(RangeDrag const &)> handler) {
    m_onRange = std::move(handler);
  }
  /// Gives up a drag: everything is as before it. Returns whether there was one.
  bool CancelDrag();

  bool AcceptsFocus() const override { return true; }

private:
  enum class Drag { None, Playhead, RangeEnd };
  struct Row {
    std::int64_t first = 0;
    std::int64_t last = 0;
    wxColour colour;
    std::vector<Run> stillRuns;
  };
  /// What lies under the pointer.
  struct Hit {
    enum class Kind { Nothing, Playhead, Row, Start, End };
    Kind kind = Kind::Nothing;
    int row = -1;
  };

  void bindEvents();
  void useMetrics();
  void changeView(std::function<void()> const &change);

  // Painting
  void onPaint();
  void paintRows(wxDC &dc);
  void paintRow(wxDC &dc, int index);
  void paintBar(wxDC &dc, int index, wxRect const &bar);
  void paintTicks(wxDC &dc, Row const &row, wxRect const &bar);
  void paintFrameCell(wxDC &dc);
  void paintRuler(wxDC &dc);
  void paintPlayhead(wxDC &dc);
  int playheadX() const;

  // Mouse and keys
  void onMouse(wxMouseEvent &event);
  void press(wxPoint const &at);
  void drag(wxPoint const &at);
  void finishDrag();
  void hover(wxPoint const &at);
  void showToolTip(int index);
  void onWheel(wxMouseEvent const &event);
  void onScroll(wxScrollWinEvent const &event);
  void onKey(wxKeyEvent &event);
  Hit hitAt(wxPoint const &at) const;
  void selectRow(int index);
  void wantFrame(std::int64_t frame, bool isFinished);
  void dragRangeTo(std::int64_t frame);
  void tellRange(bool isFinished);
  std::int64_t &draggedEnd();
  Row &row(int index) { return m_rows[static_cast<std::size_t>(index)]; }
  Row const &row(int index) const { return m_rows[static_cast<std::size_t>(index)]; }
  int rowCount() const { return static_cast<int>(m_rows.size()); }

  TimelineLayout m_layout;
  SecondsOfFrame m_secondsOf = [](std::int64_t) { return 0.0; };
  std::int64_t m_frame = 0;
  std::vector<Row> m_rows;
  int m_selected = -1;
  std::function<void(std::int64_t, bool)> m_onFrame;
  std::function<void(int)> m_onRow;
  std::function<void(RangeDrag const &)> m_onRange;

  Drag m_drag = Drag::None;
  RangeDrag m_range;          ///< while the end of a range is dragged
  std::int64_t m_before = 0;  ///< where what is dragged was
  int m_toolTipRow = -1;
};
