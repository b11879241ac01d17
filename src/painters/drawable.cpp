// SPDX-License-Identifier: MIT
#include "painters/drawable.h"

#include <algorithm>
#include <cmath>

#include "coordinates/pixel_geometry.h"

namespace framenote {

namespace {

constexpr double kMaxDevicePixel = 1e6;
constexpr double kMaxScale = 1000.0;
constexpr double kMaxPoints = 10000.0;

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
  int const limit = static_cast<int>(m_limit);
  return {std::clamp(rect.x, -limit, limit), std::clamp(rect.y, -limit, limit),
          std::clamp(rect.width, 0, limit), std::clamp(rect.height, 0, limit)};
}

double DrawableScale(double scale) {
  return std::min(UsableScale(scale), kMaxScale);
}

wxFont DrawableFont(wxFont const &font) {
  if (!font.IsOk() || font.GetFractionalPointSize() <= kMaxPoints) return font;
  wxFont smaller = font;
  smaller.SetFractionalPointSize(kMaxPoints);
  return smaller;
}

}  // namespace framenote
