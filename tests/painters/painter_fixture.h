// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "painters/pixel_matchers.h"
#include "properties/ann_shape_properties.h"

namespace framenote::pixels {

using Points = std::vector<wxPoint2DDouble>;

/// A test that runs with both back-ends.
class BothPainters : public testing::TestWithParam<IAnnPainter::AnnPainterType> {
protected:
  static bool onDeviceContext() { return GetParam() == IAnnPainter::DeviceContext; }

  template <typename Paint>
  static wxImage painted(Paint paint) {
    return Painted(GetParam(), {40, 40}, 1.0, paint);
  }
};

inline std::string PainterName(testing::TestParamInfo<IAnnPainter::AnnPainterType> const &info) {
  return info.param == IAnnPainter::DeviceContext ? "DeviceContext" : "GraphicsContext";
}

inline AnnShapeProperties Look(Rgb const &border, Rgb const &fill, int thickness) {
  AnnShapeProperties properties;
  properties.SetBorderColor(ToColour(border));
  properties.SetFillColor(ToColour(fill));
  properties.SetThickness(thickness);
  return properties;
}

inline Points Corners(double left, double top, double right, double bottom) {
  return {{left, top}, {right, top}, {right, bottom}, {left, bottom}};
}

/// The corners, then the middles of the sides.
inline Points CornersAndMiddles(double left, double top, double right, double bottom) {
  Points points = Corners(left, top, right, bottom);
  double const x = (left + right) / 2;
  double const y = (top + bottom) / 2;
  for (wxPoint2DDouble const &middle : Points{{x, top}, {right, y}, {x, bottom}, {left, y}}) {
    points.push_back(middle);
  }
  return points;
}

}  // namespace framenote::pixels

#define FRAMENOTE_WITH_BOTH_PAINTERS(fixture)                                               \
  INSTANTIATE_TEST_SUITE_P(                                                                 \
      , fixture, testing::Values(IAnnPainter::GraphicsContext, IAnnPainter::DeviceContext), \
      framenote::pixels::PainterName)
