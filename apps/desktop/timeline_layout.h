// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <utility>

#include <wx/gdicmn.h>

#include "desktop/scroll_bar.h"

/// Where frames and rows lie in a timeline: zoom, scrolling and hits. Arithmetic alone, in window
/// units, with a ruler above the rows. Time runs from left to right.
///
/// A frame is a cell: it lies from X(frame) to X(frame + 1), so that a range covers the whole cell
/// of its last frame.
class TimelineLayout {
public:
  /// Sizes of the parts.
  struct Metrics {
    int ruler = 24;          ///< height
    int row = 20;            ///< height
    int padding = 8;         ///< bare space left of the first frame and right of the last
    int grip = 5;            ///< how far from its place the end of a range can be taken
    int widestFrame = 64;    ///< where zooming in ends, if the media is longer than the window
    int narrowestRange = 3;  ///< that is still painted
  };

  /// What of a range lies at a place.
  enum class Part { None, Bar, Start, End };

  void SetMetrics(Metrics const &metrics);
  void SetSize(wxSize const &size);
  /// At least one frame. All frames are shown afterwards.
  void SetFrameCount(std::int64_t count);
  void SetRowCount(int count);

  Metrics const &Sizes() const { return m_metrics; }
  std::int64_t FrameCount() const { return m_frameCount; }

  // --- Time ---

  double FrameWidth() const { return m_frameWidth; }
  /// The left side of a frame's cell; also of the frame behind the last one.
  double X(std::int64_t frame) const;
  /// The frame whose cell lies at `x`; the first or last one beside them.
  std::int64_t FrameAt(double x) const;
  /// Shows all frames, also after each change of width until another zoom is chosen.
  void ShowAll();
  bool ShowsAll() const { return m_showsAll; }
  /// Makes the frames `factor` as wide, within the bounds, and keeps the time at `x` there.
  void ZoomBy(double factor, double x);
  /// Scrolls, if need be, so that the frame is seen. With `byPages` it is then near the side that
  /// it came in from, so that a playing video does not scroll at each frame.
  void RevealFrame(std::int64_t frame, bool byPages);

  // --- Rows ---

  int RowTop(int row) const;
  /// The row at `y`, or -1.
  int RowAt(int y) const;
  /// The first row that is seen, and the one behind the last.
  std::pair<int, int> VisibleRows() const;
  void RevealRow(int row);

  // --- Ranges ---

  /// What is painted of a range, cut a little outside of the window; empty if nothing is seen.
  wxRect Bar(int row, std::int64_t first, std::int64_t last) const;
  /// Which part of a range of one row lies at `x`. Ends win over the bar, and reach past it; of a
  /// narrow bar each end has its half.
  Part PartAt(double x, std::int64_t first, std::int64_t last) const;

  // --- Scrolling ---

  ScrollBar HorizontalBar() const;
  ScrollBar VerticalBar() const;
  void ScrollTo(double horizontal, double vertical);
  void ScrollBy(double dx, double dy);

private:
  double shownWidth() const;
  double contentWidth() const;
  double contentHeight() const;
  int rowsHeight() const;
  double narrowestFrame() const;
  double clampedWidth(double width) const;
  void clamp();
  std::pair<double, double> ends(std::int64_t first, std::int64_t last) const;

  Metrics m_metrics;
  wxSize m_size{1, 1};
  std::int64_t m_frameCount = 1;
  int m_rowCount = 0;
  double m_frameWidth = 1.0;
  double m_left = 0.0;  ///< what is scrolled past
  double m_top = 0.0;
  bool m_showsAll = true;
};
