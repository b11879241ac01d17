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
/// The text system fails, and the surface with it, where the size of a font in pixels, multiplied
/// by the square of the scale, reaches 2^16. A desktop may ask for 8/3 pixels to a point.
constexpr double kMaxSurfacePoints = 24000.0;

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

double DrawableRange::heldPoints(wxFont const &font) const {
  double const most = std::min(kMaxPoints, kMaxSurfacePoints / m_scale);
  return std::clamp(font.GetFractionalPointSize(), kMinPoints, most);
}

double DrawableRange::TextEnlargement(wxFont const &font) const {
  bool const renderable = heldPoints(font) * m_scale * m_scale <= kMaxSurfacePoints;
  return renderable ? 1.0 : m_scale;
}

wxFont DrawableRange::Font(wxFont const &font, double enlargement) const {
  double const points = heldPoints(font) * enlargement;
  if (points == font.GetFractionalPointSize()) return font;
  wxFont drawable = font;
  drawable.SetFractionalPointSize(points);
  return drawable;
}

bool DrawableRange::canReduce(int pixels, double size) const {
  return std::isfinite(size) && size * m_scale * kMaxReduction >= pixels;
}

bool DrawableRange::CanStretch(wxBitmap const &bitmap, double width, double height) const {
  return bitmap.IsOk() && canReduce(bitmap.GetWidth(), width) &&
         canReduce(bitmap.GetHeight(), height);
}

wxFont UsableFont(wxFont const &font) {
  return font.IsOk() ? font : *wxNORMAL_FONT;
}

double DrawableScale(double scale) {
  return std::clamp(UsableScale(scale), kMinScale, kMaxScale);
}

}  // namespace framenote
