// SPDX-License-Identifier: MIT
#include "desktop/view_transform.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

/// The stops of the wheel and the menu. From 100 % up they are whole but for 150 %, so that pixels
/// stay squares of one size.
constexpr std::array kStops = {0.02, 0.03,    0.04, 0.05,    0.0625, 1.0 / 12, 0.125, 1.0 / 6,
                               0.25, 1.0 / 3, 0.5,  2.0 / 3, 1.0,    1.5,      2.0,   3.0,
                               4.0,  6.0,     8.0,  12.0,    16.0,   24.0,     32.0};
/// Zooms this near to each other, in relation, are the same stop.
constexpr double kSameStop = 1e-6;
constexpr double kMostPulled = 0.25;

double NextStop(double zoom) {
  for (double const stop : kStops) {
    if (stop > zoom * (1.0 + kSameStop)) return stop;
  }
  return kStops.back();
}

double PreviousStop(double zoom) {
  for (auto it = kStops.rbegin(); it != kStops.rend(); ++it) {
    if (*it < zoom * (1.0 - kSameStop)) return *it;
  }
  return kStops.front();
}

wxSize AtLeastOne(wxSize const &size) {
  return {std::max(1, size.x), std::max(1, size.y)};
}

}  // namespace

// It grows from nothing where the picture begins to be larger: zooming causes no jump.
double ViewTransform::Axis::Margin() const {
  return IsLarger() ? std::min(kMostPulled * window, (picture - window) / 2.0) : 0.0;
}

double ViewTransform::Axis::Clamped(double origin) const {
  if (!IsLarger()) return (window - picture) / 2.0;
  return std::min(std::max(origin, window - picture - Margin()), Margin());
}

ScrollBar ViewTransform::Axis::Bar(double origin) const {
  ScrollBar bar;
  bar.page = static_cast<int>(window);
  bar.range = bar.page;
  if (!IsLarger()) return bar;
  bar.range = static_cast<int>(std::ceil(picture + 2.0 * Margin()));
  bar.position = static_cast<int>(std::lround(Margin() - origin));
  bar.position = std::min(std::max(0, bar.position), bar.range - bar.page);
  return bar;
}

ViewTransform::Axis ViewTransform::horizontal() const {
  return {m_picture.x * Scale(), static_cast<double>(m_window.x)};
}

ViewTransform::Axis ViewTransform::vertical() const {
  return {m_picture.y * Scale(), static_cast<double>(m_window.y)};
}

void ViewTransform::SetPicture(wxSize const &size) {
  m_picture = AtLeastOne(size);
  if (m_isFitted) return Fit();
  m_zoom = clampedZoom(m_zoom);
  clampOrigin();
}

void ViewTransform::SetWindow(wxSize const &size) {
  wxSize const before = m_window;
  m_window = AtLeastOne(size);
  if (m_isFitted) return Fit();
  m_origin += wxPoint2DDouble((m_window.x - before.x) / 2.0, (m_window.y - before.y) / 2.0);
  clampOrigin();
}

void ViewTransform::SetPixelRatio(double ratio) {
  wxPoint2DDouble const middle = ToPicture(Centre());
  m_ratio = ratio;
  if (m_isFitted) return Fit();
  m_origin = Centre() - middle * Scale();
  clampOrigin();
}

wxPoint2DDouble ViewTransform::Offset() const {
  return wxPoint2DDouble(snapped(m_origin.m_x), snapped(m_origin.m_y)) / Scale();
}

wxPoint ViewTransform::DeviceOrigin() const {
  return {static_cast<int>(std::floor(m_origin.m_x * m_ratio + 0.5)),
          static_cast<int>(std::floor(m_origin.m_y * m_ratio + 0.5))};
}

wxRect ViewTransform::DeviceArea() const {
  auto const length = [this](int pixels) {
    return std::max(1, static_cast<int>(std::lround(pixels * m_zoom)));
  };
  return {DeviceOrigin(), wxSize(length(m_picture.x), length(m_picture.y))};
}

double ViewTransform::snapped(double coordinate) const {
  return std::floor(coordinate * m_ratio + 0.5) / m_ratio;
}

wxPoint2DDouble ViewTransform::ToPicture(wxPoint2DDouble const &onWindow) const {
  return onWindow / Scale() - Offset();
}

wxPoint2DDouble ViewTransform::ToWindow(wxPoint2DDouble const &onPicture) const {
  return (onPicture + Offset()) * Scale();
}

wxPoint2DDouble ViewTransform::Centre() const {
  return {m_window.x / 2.0, m_window.y / 2.0};
}

double ViewTransform::fittingZoom() const {
  double const scale = std::min(static_cast<double>(m_window.x) / m_picture.x,
                                static_cast<double>(m_window.y) / m_picture.y);
  return std::min(scale * m_ratio, kMaxZoom);
}

double ViewTransform::clampedZoom(double zoom) const {
  // A comparison that NaN fails.
  if (!(zoom > 0.0)) return m_zoom;
  return std::min(std::max(zoom, std::min(kMinZoom, fittingZoom())), kMaxZoom);
}

void ViewTransform::clampOrigin() {
  m_origin = {horizontal().Clamped(m_origin.m_x), vertical().Clamped(m_origin.m_y)};
}

void ViewTransform::ZoomTo(double zoom, wxPoint2DDouble const &at) {
  // Steps at one place go from the point that was seen there at first: what each of them puts on
  // whole pixels must not add up to a shift.
  bool const goesOn = m_anchor && m_anchor->onWindow == at && m_anchor->origin == m_origin;
  wxPoint2DDouble const kept = goesOn ? m_anchor->onPicture : ToPicture(at);
  m_zoom = clampedZoom(zoom);
  m_isFitted = false;
  wxPoint2DDouble const wanted = at - kept * Scale();
  m_origin = wanted;
  clampOrigin();
  m_anchor.reset();
  if (m_origin == wanted) m_anchor = Anchor{at, kept, m_origin};
}

void ViewTransform::ZoomBySteps(int steps, wxPoint2DDouble const &at) {
  double zoom = m_zoom;
  for (; steps > 0; --steps) zoom = NextStop(zoom);
  // Below the lowest stop, where only a huge picture goes, there is nothing to zoom out to.
  for (; steps < 0 && zoom > kStops.front(); ++steps) zoom = PreviousStop(zoom);
  ZoomTo(zoom, at);
}

void ViewTransform::Fit() {
  m_zoom = fittingZoom();
  m_isFitted = true;
  clampOrigin();
}

void ViewTransform::PanBy(double dx, double dy) {
  m_origin += wxPoint2DDouble(dx, dy);
  clampOrigin();
}

ScrollBar ViewTransform::HorizontalBar() const {
  return horizontal().Bar(m_origin.m_x);
}

ScrollBar ViewTransform::VerticalBar() const {
  return vertical().Bar(m_origin.m_y);
}

void ViewTransform::ScrollTo(int horizontalPosition, int verticalPosition) {
  m_origin = {horizontal().Margin() - horizontalPosition, vertical().Margin() - verticalPosition};
  clampOrigin();
}
