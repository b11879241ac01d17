// SPDX-License-Identifier: MIT
#include "painters/drawable.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include <wx/bitmap.h>
#include <wx/font.h>

#include "coordinates/pixel_geometry.h"

namespace framenote {

namespace {

constexpr double kMaxDevicePixel = 1e6;
constexpr double kMinScale = 1e-3;
constexpr double kMaxScale = 1e3;
constexpr double kMinPoints = 1.0;
constexpr double kMaxPoints = 2000.0;
/// Points on the surface: glyphs of 2^15 pixels and more cannot be rendered, and a desktop may ask
/// for twice as many pixels to a point as the 4/3 of a plain one.
constexpr double kMaxSurfacePoints = 12000.0;

/// Bitmap pixels to one of the surface, which counts such steps to 2^15.
constexpr double kMaxReduction = 30000.0;

int ClampedEdge(std::int64_t edge, double limit) {
  auto const bound = static_cast<std::int64_t>(limit);
  return static_cast<int>(std::clamp(edge, -bound, bound));
}

}  // namespace

DrawableRange::DrawableRange(double scale)
    : m_scale(scale), m_limit(kMaxDevicePixel / std::max(scale, 1.0)) {}

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

wxFont DrawableRange::Font(wxFont const &font) const {
  if (!font.IsOk()) return font;
  double const most = std::min(kMaxPoints, kMaxSurfacePoints / m_scale);
  double const points = font.GetFractionalPointSize();
  if (points >= kMinPoints && points <= most) return font;
  wxFont drawable = font;
  drawable.SetFractionalPointSize(std::clamp(points, kMinPoints, most));
  return drawable;
}

bool DrawableRange::canReduce(int pixels, double size) const {
  return std::isfinite(size) && size * m_scale * kMaxReduction >= pixels;
}

bool DrawableRange::CanStretch(wxBitmap const &bitmap, double width, double height) const {
  return bitmap.IsOk() && canReduce(bitmap.GetWidth(), width) &&
         canReduce(bitmap.GetHeight(), height);
}

double DrawableScale(double scale) {
  return std::clamp(UsableScale(scale), kMinScale, kMaxScale);
}

}  // namespace framenote
