// SPDX-License-Identifier: MIT
#include "painters/drawable.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "coordinates/pixel_geometry.h"

namespace framenote {

namespace {

constexpr double kMaxDevicePixel = 1e6;
constexpr double kMinScale = 1e-3;
constexpr double kMaxScale = 1e3;
constexpr double kMinPoints = 1.0;
constexpr double kMaxPoints = 2000.0;

int ClampedEdge(std::int64_t edge, double limit) {
  auto const bound = static_cast<std::int64_t>(limit);
  return static_cast<int>(std::clamp(edge, -bound, bound));
}

}  // namespace

DrawableRange::DrawableRange(double scale) : m_limit(kMaxDevicePixel / std::max(scale, 1.0)) {}

double DrawableRange::Coordinate(double value) const {
  return std::isnan(value) ? 0.0 : std::clamp(value, -m_limit, m_limit);
}

wxPoint2DDouble DrawableRange::Point(wxPoint2DDouble const &point) const {
  return {Coordinate(point.m_x), Coordinate(point.m_y)};
}

std::vector<wxPoint2DDouble> DrawableRange::Points(std::vector<wxPoint2DDouble> points) const {
  for (wxPoint2DDouble &point : points) point = Point(point);
  return points;
}

wxRect DrawableRange::Rect(wxRect const &rect) const {
  int const left = ClampedEdge(rect.x, m_limit);
  int const top = ClampedEdge(rect.y, m_limit);
  int const right = ClampedEdge(std::int64_t{rect.x} + rect.width, m_limit);
  int const bottom = ClampedEdge(std::int64_t{rect.y} + rect.height, m_limit);
  return {left, top, std::max(0, right - left), std::max(0, bottom - top)};
}

double DrawableScale(double scale) {
  return std::clamp(UsableScale(scale), kMinScale, kMaxScale);
}

wxFont DrawableFont(wxFont const &font) {
  if (!font.IsOk()) return font;
  double const points = font.GetFractionalPointSize();
  if (points >= kMinPoints && points <= kMaxPoints) return font;
  wxFont drawable = font;
  drawable.SetFractionalPointSize(points > kMaxPoints ? kMaxPoints : kMinPoints);
  return drawable;
}

}  // namespace framenote
