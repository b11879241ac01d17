// SPDX-License-Identifier: MIT
#include "coordinates/pixel_geometry.h"

#include <climits>
#include <cmath>
#include <limits>

#include <gtest/gtest.h>

using namespace framenote;

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

}  // namespace

TEST(PixelRounding, HalvesGoUp) {
  EXPECT_EQ(RoundToPixel(2.5), 3);
  EXPECT_EQ(RoundToPixel(2.4), 2);
  EXPECT_EQ(RoundToPixel(-0.5), 0);
  EXPECT_EQ(RoundToPixel(-1.5), -1);
  EXPECT_EQ(RoundToPixel(-1.6), -2);
}

TEST(PixelRounding, SaturatesAndTakesNaNAsZero) {
  EXPECT_EQ(RoundToPixel(1e300), 268435456);
  EXPECT_EQ(RoundToPixel(-1e300), -268435456);
  EXPECT_EQ(RoundToPixel(kInfinity), 268435456);
  EXPECT_EQ(RoundToPixel(-kInfinity), -268435456);
  EXPECT_EQ(RoundToPixel(kNaN), 0);
}

TEST(PixelRounding, RoundsBothCoordinatesOfPoints) {
  EXPECT_EQ(RoundToPixel(wxPoint2DDouble(1.5, -1.5)), wxPoint(2, -1));
  auto const pixels = RoundToPixels({wxPoint2DDouble(0.4, 0.6), wxPoint2DDouble(kNaN, 7.0)});
  ASSERT_EQ(pixels.size(), 2u);
  EXPECT_EQ(pixels[0], wxPoint(0, 1));
  EXPECT_EQ(pixels[1], wxPoint(0, 7));
}

TEST(PixelTruncation, GoesTowardZeroAndSaturates) {
  EXPECT_EQ(TruncateToInt(2.9), 2);
  EXPECT_EQ(TruncateToInt(-2.9), -2);
  EXPECT_EQ(TruncateToInt(kInfinity), 268435456);
  EXPECT_EQ(TruncateToInt(-1e18), -268435456);
  EXPECT_EQ(TruncateToInt(kNaN), 0);
}

TEST(PixelArithmetic, AddsAndSubtracts) {
  EXPECT_EQ(AddPixels({3, 4}, {10, -20}), wxPoint2DInt(13, -16));
  EXPECT_EQ(SubtractPixels({3, 4}, {10, -20}), wxPoint2DInt(-7, 24));
}

TEST(PixelArithmetic, SaturatesInsteadOfOverflowing) {
  EXPECT_EQ(AddPixels({INT_MAX, INT_MIN}, {INT_MAX, INT_MIN}), wxPoint2DInt(268435456, -268435456));
  EXPECT_EQ(SubtractPixels({INT_MIN, INT_MAX}, {INT_MAX, INT_MIN}),
            wxPoint2DInt(-268435456, 268435456));
  EXPECT_EQ(ClampToPixels({INT_MIN, 5}), wxPoint2DInt(-268435456, 5));
}

TEST(PointAtDistance, KeepsTheDirectionWithoutAnAngle) {
  auto const point = PointAtDistance({13.0, 14.0}, {10.0, 10.0}, 10.0, 0.0);
  EXPECT_DOUBLE_EQ(point.m_x, 16.0);
  EXPECT_DOUBLE_EQ(point.m_y, 18.0);
}

TEST(PointAtDistance, MinusNinetyDegreesStandsUprightOnARightwardSide) {
  auto const point = PointAtDistance({100.0, 20.0}, {50.0, 20.0}, 30.0, -90.0);
  EXPECT_NEAR(point.m_x, 50.0, 1e-9);
  EXPECT_NEAR(point.m_y, -10.0, 1e-9);
}

TEST(PointAtDistance, HasNoDirectionForEqualPoints) {
  auto const point = PointAtDistance({5.0, 5.0}, {5.0, 5.0}, 30.0, 0.0);
  EXPECT_TRUE(std::isnan(point.m_x));
  EXPECT_TRUE(std::isnan(point.m_y));
}

TEST(VectorTurning, PositiveAnglesTurnClockwiseOnTheScreen) {
  auto const down = Turned({10.0, 0.0}, 90.0);
  EXPECT_NEAR(down.m_x, 0.0, 1e-9);
  EXPECT_NEAR(down.m_y, 10.0, 1e-9);
}

TEST(VectorTurning, ZeroDegreesLeavesTheVectorBitForBit) {
  auto const same = Turned({0.1, -0.7}, 0.0);
  EXPECT_EQ(same.m_x, 0.1);
  EXPECT_EQ(same.m_y, -0.7);
}

TEST(VectorLength, NegativeLengthReverses) {
  auto const vector = WithLength({3.0, 4.0}, -10.0);
  EXPECT_DOUBLE_EQ(vector.m_x, -6.0);
  EXPECT_DOUBLE_EQ(vector.m_y, -8.0);
}

TEST(Areas, AreExact) {
  EXPECT_EQ(TriangleArea({0, 0}, {10, 0}, {0, 5}), 25.0);
  EXPECT_EQ(TriangleArea({0, 0}, {1, 0}, {0, 1}), 0.5);
  EXPECT_EQ(QuadrilateralArea({0, 0}, {10, 0}, {10, 5}, {0, 5}), 50.0);
  EXPECT_EQ(QuadrilateralArea({0, 5}, {10, 5}, {10, 0}, {0, 0}), 50.0);
}

TEST(Areas, DoNotOverflow) {
  EXPECT_EQ(
      QuadrilateralArea({-100000, -100000}, {100000, -100000}, {100000, 100000}, {-100000, 100000}),
      4e10);
  EXPECT_EQ(QuadrilateralArea({INT_MIN, INT_MIN}, {INT_MAX, INT_MIN}, {INT_MAX, INT_MAX},
                              {INT_MIN, INT_MAX}),
            536870912.0 * 536870912.0);
}

TEST(QuadrilateralContains, CountsTheEdgeAsInside) {
  auto const contains = [](wxPoint const &q) {
    return QuadrilateralContains(q, {10, 20}, {109, 20}, {109, 69}, {10, 69});
  };
  EXPECT_TRUE(contains({50, 40}));
  EXPECT_TRUE(contains({10, 20}));
  EXPECT_TRUE(contains({109, 45}));
  EXPECT_FALSE(contains({110, 45}));
  EXPECT_FALSE(contains({50, 19}));
}

TEST(QuadrilateralContains, FollowsARotatedShape) {
  auto const contains = [](wxPoint const &q) {
    return QuadrilateralContains(q, {0, -10}, {10, 0}, {0, 10}, {-10, 0});
  };
  EXPECT_TRUE(contains({5, 5}));
  EXPECT_FALSE(contains({6, 5}));
}

TEST(QuadrilateralContains, NothingLiesInAShapeWithoutArea) {
  EXPECT_FALSE(QuadrilateralContains({5, 0}, {0, 0}, {10, 0}, {10, 0}, {0, 0}));
  EXPECT_FALSE(QuadrilateralContains({3, 3}, {3, 3}, {3, 3}, {3, 3}, {3, 3}));
}

TEST(QuadrilateralContains, StaysRightWhereIntegerProductsWouldOverflow) {
  auto const contains = [](wxPoint const &q) {
    return QuadrilateralContains(q, {-60000, -60000}, {60000, -60000}, {60000, 60000},
                                 {-60000, 60000});
  };
  EXPECT_TRUE(contains({59999, -59999}));
  EXPECT_FALSE(contains({60001, 0}));
}

TEST(TriangleContains, CountsTheEdgeAsInside) {
  EXPECT_TRUE(TriangleContains({5, 5}, {0, 0}, {10, 0}, {0, 10}));
  EXPECT_TRUE(TriangleContains({1, 1}, {0, 0}, {10, 0}, {0, 10}));
  EXPECT_FALSE(TriangleContains({6, 5}, {0, 0}, {10, 0}, {0, 10}));
  EXPECT_FALSE(TriangleContains({1, 0}, {0, 0}, {5, 0}, {10, 0}));
}

TEST(MakeFinite, LeavesFiniteCoordinatesAlone) {
  EXPECT_EQ(MakeFinite({-1e308, 0.25}), wxPoint2DDouble(-1e308, 0.25));
  EXPECT_EQ(MakeFinite({kInfinity, -kInfinity}), wxPoint2DDouble(268435456.0, -268435456.0));
  EXPECT_EQ(MakeFinite({kNaN, 7.5}), wxPoint2DDouble(0.0, 7.5));
}

TEST(UsableValues, ScaleIsPositiveAndFinite) {
  EXPECT_EQ(UsableScale(0.25), 0.25);
  EXPECT_EQ(UsableScale(0.0), 1.0);
  EXPECT_EQ(UsableScale(-2.0), 1.0);
  EXPECT_EQ(UsableScale(kInfinity), 1.0);
  EXPECT_EQ(UsableScale(kNaN), 1.0);
}

TEST(UsableValues, ThicknessIsBetweenZeroAnd4096) {
  EXPECT_EQ(UsableThickness(-1), 0);
  EXPECT_EQ(UsableThickness(7), 7);
  EXPECT_EQ(UsableThickness(INT_MAX), 4096);
}
