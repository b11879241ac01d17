// SPDX-License-Identifier: MIT
#include "desktop/timeline_layout.h"

#include <algorithm>
#include <cmath>

namespace {

/// Scroll bars count in int.
constexpr double kWidestContent = 1e9;
/// How far from the side a frame is shown when a page is turned, as a part of the width.
constexpr double kPageMargin = 0.1;
/// Bars are painted this far past the window, where their ends cannot be seen.
constexpr double kBeyond = 16.0;

int Rounded(double value) {
  return static_cast<int>(std::lround(value));
}

}  // namespace

void TimelineLayout::SetMetrics(Metrics const &metrics) {
  m_metrics = metrics;
  clamp();
}

void TimelineLayout::SetSize(wxSize const &size) {
  m_size = {std::max(1, size.x), std::max(1, size.y)};
  clamp();
}

void TimelineLayout::SetFrameCount(std::int64_t count) {
  m_frameCount = std::max<std::int64_t>(1, count);
  ShowAll();
}

void TimelineLayout::SetRowCount(int count) {
  m_rowCount = std::max(0, count);
  clamp();
}

double TimelineLayout::shownWidth() const {
  return std::max(1.0, m_size.x - 2.0 * m_metrics.padding);
}

double TimelineLayout::contentWidth() const {
  return static_cast<double>(m_frameCount) * m_frameWidth + 2.0 * m_metrics.padding;
}

double TimelineLayout::contentHeight() const {
  return static_cast<double>(m_rowCount) * m_metrics.row;
}

int TimelineLayout::rowsHeight() const {
  return std::max(1, m_size.y - m_metrics.ruler);
}

double TimelineLayout::narrowestFrame() const {
  return shownWidth() / static_cast<double>(m_frameCount);
}

double TimelineLayout::clampedWidth(double width) const {
  double const narrowest = narrowestFrame();
  double const widest =
      std::min<double>(m_metrics.widestFrame, kWidestContent / static_cast<double>(m_frameCount));
  return std::min(std::max(width, narrowest), std::max(widest, narrowest));
}

void TimelineLayout::clamp() {
  m_frameWidth = m_showsAll ? narrowestFrame() : clampedWidth(m_frameWidth);
  m_left = std::min(std::max(m_left, 0.0), std::max(0.0, contentWidth() - m_size.x));
  m_top = std::min(std::max(m_top, 0.0), std::max(0.0, contentHeight() - rowsHeight()));
}

double TimelineLayout::X(std::int64_t frame) const {
  return m_metrics.padding + static_cast<double>(frame) * m_frameWidth - m_left;
}

std::int64_t TimelineLayout::FrameAt(double x) const {
  double const frame = std::floor((x - m_metrics.padding + m_left) / m_frameWidth);
  double const last = static_cast<double>(m_frameCount - 1);
  return static_cast<std::int64_t>(std::min(std::max(frame, 0.0), last));
}

void TimelineLayout::ShowAll() {
  m_showsAll = true;
  clamp();
}

void TimelineLayout::ZoomBy(double factor, double x) {
  double const time = (x - m_metrics.padding + m_left) / m_frameWidth;
  m_frameWidth = clampedWidth(m_frameWidth * factor);
  m_showsAll = m_frameWidth <= narrowestFrame();
  m_left = m_metrics.padding + time * m_frameWidth - x;
  clamp();
}

void TimelineLayout::RevealFrame(std::int64_t frame, bool byPages) {
  double const margin = byPages ? kPageMargin * m_size.x : m_metrics.padding;
  double const left = X(frame);
  double const right = X(frame + 1);
  // A frame that is wider than the window is seen as soon as a part of it is.
  if (left >= m_size.x - 1 || (right > m_size.x && m_frameWidth < m_size.x)) {
    m_left += byPages ? left - margin : right + margin - m_size.x;
  } else if (right <= 0.0 || (left < 0.0 && m_frameWidth < m_size.x)) {
    m_left += byPages ? right + margin - m_size.x : left - margin;
  }
  clamp();
}

int TimelineLayout::RowTop(int row) const {
  return m_metrics.ruler + row * m_metrics.row - Rounded(m_top);
}

int TimelineLayout::RowAt(int y) const {
  if (y < m_metrics.ruler || y >= m_size.y) return -1;
  int const row = (y - m_metrics.ruler + Rounded(m_top)) / m_metrics.row;
  return row < m_rowCount ? row : -1;
}

std::pair<int, int> TimelineLayout::VisibleRows() const {
  int const top = Rounded(m_top);
  int const behind = (top + rowsHeight() + m_metrics.row - 1) / m_metrics.row;
  return {std::min(top / m_metrics.row, m_rowCount), std::min(behind, m_rowCount)};
}

void TimelineLayout::RevealRow(int row) {
  double const top = static_cast<double>(row) * m_metrics.row;
  m_top = std::min(m_top, top);
  m_top = std::max(m_top, top + m_metrics.row - rowsHeight());
  clamp();
}

/// The sides of a range's bar, wide enough to be seen.
std::pair<double, double> TimelineLayout::ends(std::int64_t first, std::int64_t last) const {
  double const left = X(first);
  return {left, std::max(X(last + 1), left + m_metrics.narrowestRange)};
}

wxRect TimelineLayout::Bar(int row, std::int64_t first, std::int64_t last) const {
  auto const [left, right] = ends(first, last);
  if (right <= 0.0 || left >= m_size.x) return {};
  int const from = Rounded(std::max(left, -kBeyond));
  int const to = Rounded(std::min(right, m_size.x + kBeyond));
  return {from, RowTop(row), to - from, m_metrics.row};
}

TimelineLayout::Part TimelineLayout::PartAt(double x, std::int64_t first, std::int64_t last) const {
  auto const [left, right] = ends(first, last);
  if (x < left - m_metrics.grip || x > right + m_metrics.grip) return Part::None;
  bool const isLeft = x < (left + right) / 2.0;
  if (isLeft && x <= left + m_metrics.grip) return Part::Start;
  if (!isLeft && x >= right - m_metrics.grip) return Part::End;
  return Part::Bar;
}

ScrollBar TimelineLayout::HorizontalBar() const {
  int const range = std::max(m_size.x, static_cast<int>(std::ceil(contentWidth() - 1e-6)));
  return {Rounded(m_left), m_size.x, range};
}

ScrollBar TimelineLayout::VerticalBar() const {
  int const page = rowsHeight();
  return {Rounded(m_top), page, std::max(page, static_cast<int>(contentHeight()))};
}

void TimelineLayout::ScrollTo(double horizontal, double vertical) {
  m_left = horizontal;
  m_top = vertical;
  clamp();
}

void TimelineLayout::ScrollBy(double dx, double dy) {
  ScrollTo(m_left + dx, m_top + dy);
}
