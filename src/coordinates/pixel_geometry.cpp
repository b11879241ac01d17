// SPDX-License-Identifier: MIT
#include "coordinates/pixel_geometry.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace framenote {
namespace {

constexpr int kMaxLineWidth = 4096;

/// A point as 64-bit integers within kMaxPixel: the sum of four products of differences of such
/// points stays below 2^62, so areas in integers are exact and cannot overflow.
struct WidePoint {
  std::int64_t x;
  std::int64_t y;
};

int Clamped(std::int64_t value) {
  return static_cast<int>(std::clamp<std::int64_t>(value, -kMaxPixel, kMaxPixel));
}

/// REQUIRES: `value` has no fraction.
int Saturated(double value) {
  if (std::isnan(value)) return 0;
  return static_cast<int>(std::clamp<double>(value, -kMaxPixel, kMaxPixel));
}

WidePoint Widened(wxPoint const &point) {
  return {Clamped(point.x), Clamped(point.y)};
}

std::int64_t CrossProduct(WidePoint const &from1, WidePoint const &to1, WidePoint const &from2,
                          WidePoint const &to2) {
  return (to1.x - from1.x) * (to2.y - from2.y) - (to2.x - from2.x) * (to1.y - from1.y);
}

std::int64_t DoubledTriangle(WidePoint const &p1, WidePoint const &p2, WidePoint const &p3) {
  return std::abs(CrossProduct(p1, p2, p1, p3));
}

std::int64_t DoubledQuadrilateral(WidePoint const &p1, WidePoint const &p2, WidePoint const &p3,
                                  WidePoint const &p4) {
  return std::abs(CrossProduct(p1, p3, p2, p4));
}

/// Whether the triangles from `q` to the sides fill exactly the polygon's area.
template <std::size_t N>
bool FillsArea(WidePoint const &q, std::array<WidePoint, N> const &corners, std::int64_t area) {
  if (area == 0) return false;
  std::int64_t sum = 0;
  for (std::size_t i = 0; i < N; ++i) sum += DoubledTriangle(corners[i], corners[(i + 1) % N], q);
  return sum == area;
}

}  // namespace

int RoundToPixel(double value) {
  return Saturated(std::floor(value + 0.5));
}

wxPoint RoundToPixel(wxPoint2DDouble const &point) {
  return wxPoint(RoundToPixel(point.m_x), RoundToPixel(point.m_y));
}

std::vector<wxPoint> RoundToPixels(std::vector<wxPoint2DDouble> const &points) {
  std::vector<wxPoint> pixels;
  pixels.reserve(points.size());
  for (auto const &point : points) pixels.push_back(RoundToPixel(point));
  return pixels;
}

int TruncateToInt(double value) {
  return Saturated(std::trunc(value));
}

wxPoint2DDouble MakeFinite(wxPoint2DDouble const &point) {
  auto const finite = [](double value) { return std::isfinite(value) ? value : Saturated(value); };
  return wxPoint2DDouble(finite(point.m_x), finite(point.m_y));
}

wxPoint2DInt ClampToPixels(wxPoint2DInt const &point) {
  return wxPoint2DInt(Clamped(point.m_x), Clamped(point.m_y));
}

wxPoint2DInt AddPixels(wxPoint2DInt const &a, wxPoint2DInt const &b) {
  return wxPoint2DInt(Clamped(std::int64_t{a.m_x} + b.m_x), Clamped(std::int64_t{a.m_y} + b.m_y));
}

wxPoint2DInt SubtractPixels(wxPoint2DInt const &a, wxPoint2DInt const &b) {
  return wxPoint2DInt(Clamped(std::int64_t{a.m_x} - b.m_x), Clamped(std::int64_t{a.m_y} - b.m_y));
}

wxPoint2DDouble PointAtDistance(wxPoint2DDouble const &from, wxPoint2DDouble const &origin,
                                double length, double degrees) {
  wxPoint2DDouble const direction(from.m_x - origin.m_x, from.m_y - origin.m_y);
  wxPoint2DDouble const arm = WithLength(Turned(direction, degrees), length);
  return wxPoint2DDouble(origin.m_x + arm.m_x, origin.m_y + arm.m_y);
}

wxPoint2DDouble Turned(wxPoint2DDouble const &vector, double degrees) {
  wxPoint2DDouble turned = vector;
  // Going through the angle costs the last bits, so a vector that is not turned is left alone.
  if (degrees != 0.0) turned.SetVectorAngle(turned.GetVectorAngle() + degrees);
  return turned;
}

wxPoint2DDouble WithLength(wxPoint2DDouble const &vector, double length) {
  wxPoint2DDouble scaled = vector;
  scaled.SetVectorLength(length);
  return scaled;
}

bool QuadrilateralContains(wxPoint const &q, wxPoint const &p1, wxPoint const &p2,
                           wxPoint const &p3, wxPoint const &p4) {
  std::array<WidePoint, 4> const corners{Widened(p1), Widened(p2), Widened(p3), Widened(p4)};
  auto const area = DoubledQuadrilateral(corners[0], corners[1], corners[2], corners[3]);
  return FillsArea(Widened(q), corners, area);
}

bool TriangleContains(wxPoint const &q, wxPoint const &p1, wxPoint const &p2, wxPoint const &p3) {
  std::array<WidePoint, 3> const corners{Widened(p1), Widened(p2), Widened(p3)};
  auto const area = DoubledTriangle(corners[0], corners[1], corners[2]);
  return FillsArea(Widened(q), corners, area);
}

double TriangleArea(wxPoint const &p1, wxPoint const &p2, wxPoint const &p3) {
  return static_cast<double>(DoubledTriangle(Widened(p1), Widened(p2), Widened(p3))) * 0.5;
}

double QuadrilateralArea(wxPoint const &p1, wxPoint const &p2, wxPoint const &p3,
                         wxPoint const &p4) {
  auto const doubled = DoubledQuadrilateral(Widened(p1), Widened(p2), Widened(p3), Widened(p4));
  return static_cast<double>(doubled) * 0.5;
}

double UsableScale(double scale) {
  return std::isfinite(scale) && scale > 0.0 ? scale : 1.0;
}

int UsableThickness(int thickness) {
  return std::clamp(thickness, 0, kMaxLineWidth);
}

}  // namespace framenote
