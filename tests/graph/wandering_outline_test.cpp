#include "graph/wandering_outline.h"

#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

#include "support/graph_data.h"

namespace trendaro {
namespace {

constexpr PixelRectangle kArea{0, 0, 400, 300};

// Two curves' worth of `count` points on an ellipse that is run through again and again, with a jump out of
// it at `spike`.
GraphProperties ellipse(std::size_t count, std::size_t spike) {
  GraphProperties properties;
  FlatArray x(count);
  FlatArray y(count);
  for (std::size_t i = 0; i < count; ++i) {
    const f64 turn = static_cast<f64>(i) * 0.0007;
    x[i] = static_cast<f32>(std::cos(turn));
    y[i] = static_cast<f32>(std::sin(turn));
  }
  x[spike] = 0.0F;
  y[spike] = 3.0F;
  properties.SubsetCount = 1;
  properties.PointCount = static_cast<i32>(count);
  properties.XData = std::make_shared<const FlatArray>(std::move(x));
  properties.YData = std::make_shared<const FlatArray>(std::move(y));
  properties.curve_index = build_curve_index(properties);
  return properties;
}

CurveOutline outline_of(const GraphProperties& properties, f64 y_high = 4) {
  AxisScale x = make_scale(-2, 2, 1);
  AxisScale y = make_scale(-2, y_high, 1);
  x.first = kArea.x;
  x.last = kArea.right();
  y.first = kArea.bottom();
  y.last = kArea.y;
  return curve_outline(curve_samples(properties, 0), x, y, kArea);
}

TEST(WanderingOutlineTest, ALongCurveGivesTheSamePictureAsItsFirstRound) {
  const auto long_curve = ellipse(6'000'000, 4'321'001);
  const CurveOutline outline = outline_of(long_curve);
  EXPECT_LT(outline.points.size(), 30'000U);
  // Every direction of the ellipse is there: half-axes of 100 and 50 pixels around (200, 200).
  for (int degree = 0; degree < 360; degree += 3) {
    const PixelPoint place{200 + 100 * std::cos(degree * 0.0174533), 200 - 50 * std::sin(degree * 0.0174533)};
    EXPECT_TRUE(std::any_of(outline.points.begin(), outline.points.end(), [&](const PixelPoint& point) {
      return std::hypot(point.x - place.x, point.y - place.y) < 2;
    })) << degree;
  }
}

TEST(WanderingOutlineTest, ALoneExcursionOfALongCurveIsKept) {
  for (const std::size_t spike : {3'000'000U, 4'321'001U, 5'999'999U}) {
    const auto curve = ellipse(6'000'000, spike);
    const CurveOutline outline = outline_of(curve);
    EXPECT_TRUE(std::any_of(outline.points.begin(), outline.points.end(), [](const PixelPoint& point) {
      return std::abs(point.y - 50) < 1e-3;
    })) << spike;
  }
}

TEST(WanderingOutlineTest, WhatLiesOutsideIsLeftOut) {
  const auto curve = ellipse(3'000'000, 1'000'000);
  // The picture shows y from -2 to -1.5: nothing of the ellipse.
  EXPECT_TRUE(outline_of(curve, -1.5).points.empty());
}

TEST(WanderingOutlineTest, FallingXIsNoWandering) {
  GraphProperties properties;
  constexpr std::size_t kCount = 100'000;
  std::vector<f32> x(kCount);
  std::vector<f32> y(kCount, 0);
  for (std::size_t i = 0; i < kCount; ++i) x[i] = 2 - 4 * static_cast<f32>(i) / kCount;
  y[77'777] = 1;
  set_curves(properties, kCount, x, y);
  properties.curve_index = build_curve_index(properties);
  const CurveSamples samples = curve_samples(properties, 0);
  EXPECT_TRUE(samples.falling);
  EXPECT_FALSE(samples.rising);
  const CurveOutline outline = outline_of(properties);
  EXPECT_LT(outline.points.size(), 1700U);
  EXPECT_NEAR(outline.points.front().x, 400, 0.01);
  EXPECT_EQ(std::count_if(outline.points.begin(), outline.points.end(),
                          [](const PixelPoint& point) { return std::abs(point.y - 150) < 1e-6; }),
            1);
}

TEST(WanderingOutlineTest, ALostSampleLeavesTheOrderOfX) {
  GraphProperties properties;
  constexpr std::size_t kCount = 10'000;
  std::vector<f32> x(kCount);
  std::vector<f32> y(kCount, 1);
  for (std::size_t i = 0; i < kCount; ++i) x[i] = -2 + 4 * static_cast<f32>(i) / kCount;
  x[0] = x[5000] = -1000000;
  x[7000] = std::nanf("");
  y[9000] = INFINITY;
  set_curves(properties, kCount, x, y);
  properties.curve_index = build_curve_index(properties);
  const CurveSamples samples = curve_samples(properties, 0);
  EXPECT_TRUE(samples.rising);
  EXPECT_EQ(first_reaching(samples, 0, -2), 1U);
  for (const f64 limit : {-1.5, -0.0001, 0.0, 0.8, 1.6, 1.9})
    for (const std::size_t from : {0U, 63U, 64U, 4999U, 5001U}) {
      std::size_t expected = from;
      while (expected < kCount && !(samples.drawn(expected) && samples.x(expected) >= limit)) ++expected;
      EXPECT_EQ(first_reaching(samples, from, limit), expected) << limit << " " << from;
    }
  EXPECT_EQ(first_reaching(samples, 0, 5), samples.count);
  EXPECT_LT(outline_of(properties).points.size(), 1700U);
}

}  // namespace
}  // namespace trendaro
