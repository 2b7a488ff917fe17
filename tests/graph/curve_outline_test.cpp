#include "graph/curve_outline.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <map>
#include <random>

#include <gtest/gtest.h>

#include "graph/curve_strokes.h"
#include "support/graph_data.h"

namespace trendaro {
namespace {

constexpr f32 kNull = -1000000;
constexpr PixelRectangle kArea{0, 0, 100, 50};

GraphProperties curve_of(const std::vector<f32>& x, const std::vector<f32>& y) {
  GraphProperties properties;
  set_curves(properties, static_cast<i32>(y.size()), x, y);
  properties.curve_index = build_curve_index(properties);
  return properties;
}

std::vector<f32> counted(std::size_t count) {
  std::vector<f32> x(count);
  for (std::size_t i = 0; i < count; ++i) x[i] = static_cast<f32>(i);
  return x;
}

struct Scales {
  AxisScale x, y;
};

Scales scales_of(f64 x_low, f64 x_high, f64 y_low, f64 y_high) {
  Scales scales{make_scale(x_low, x_high, 1), make_scale(y_low, y_high, 1)};
  scales.x.first = kArea.x;
  scales.x.last = kArea.right();
  scales.y.first = kArea.bottom();
  scales.y.last = kArea.y;
  return scales;
}

CurveOutline outline_of(const GraphProperties& properties, const Scales& scales) {
  return curve_outline(curve_samples(properties, 0), scales.x, scales.y, kArea);
}

TEST(CurveOutlineTest, FewSamplesAreAllThere) {
  const auto properties = curve_of({0, 50, 100}, {0, 10, 5});
  const CurveOutline outline = outline_of(properties, scales_of(0, 100, 0, 10));
  ASSERT_EQ(outline.points.size(), 3U);
  EXPECT_EQ(outline.starts, std::vector<std::size_t>{0});
  EXPECT_DOUBLE_EQ(outline.points[1].x, 50);
  EXPECT_DOUBLE_EQ(outline.points[1].y, 0);
  EXPECT_DOUBLE_EQ(outline.points[2].y, 25);
}

TEST(CurveOutlineTest, NullValuesAndNotANumberEndAPiece) {
  const auto properties =
      curve_of({0, 10, 20, 30, 40, 50, 60, 70}, {1, 1, kNull, 2, std::nanf(""), 3, 3, INFINITY});
  const CurveOutline outline = outline_of(properties, scales_of(0, 100, 0, 10));
  EXPECT_EQ(outline.starts, (std::vector<std::size_t>{0, 2, 3}));
  EXPECT_EQ(outline.points.size(), 5U);
}

TEST(CurveOutlineTest, NullValuesInXEndAPiece) {
  const auto properties = curve_of({0, 10, kNull, 30, 40}, {1, 1, 1, 2, 2});
  const CurveOutline outline = outline_of(properties, scales_of(0, 100, 0, 10));
  EXPECT_EQ(outline.starts, (std::vector<std::size_t>{0, 2}));
  EXPECT_EQ(outline.points.size(), 4U);
}

TEST(CurveOutlineTest, EmptyAndMissingCurvesHaveNoOutline) {
  const auto nulls = curve_of({0, 1, 2}, {kNull, kNull, kNull});
  EXPECT_TRUE(outline_of(nulls, scales_of(0, 2, 0, 1)).points.empty());
  const GraphProperties nothing;
  EXPECT_TRUE(outline_of(nothing, scales_of(0, 2, 0, 1)).points.empty());
  EXPECT_EQ(curve_samples(nulls, 5).count, 0U);
}

TEST(CurveOutlineTest, ALoneSpikeOfTenMillionSamplesIsKept) {
  const std::size_t count = 10000000;
  std::vector<f32> y(count, 1);
  y[7654321] = 9;
  // Single precision tells indices apart up to 16777216.
  const auto properties = curve_of(counted(count), y);
  const CurveOutline outline = outline_of(properties, scales_of(0, static_cast<f64>(count), 0, 10));
  std::size_t spikes = 0;
  for (const PixelPoint& point : outline.points)
    if (point.y == 5) {
      ++spikes;
      EXPECT_NEAR(point.x, 76.54321, 1e-6);
    }
  EXPECT_EQ(spikes, 1U);
  EXPECT_LE(outline.points.size(), 4 * 100 + 2U);
}

TEST(CurveOutlineTest, OneSampleBeyondEachEdgeComesAlong) {
  const auto properties = curve_of(counted(11), {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
  const CurveOutline outline = outline_of(properties, scales_of(3.5, 6.5, 0, 10));
  ASSERT_EQ(outline.points.size(), 5U);
  EXPECT_DOUBLE_EQ(outline.points.front().y, 50 - 3 * 5);
  EXPECT_DOUBLE_EQ(outline.points.back().y, 50 - 7 * 5);
}

TEST(CurveOutlineTest, AGapWiderThanAColumnBreaksADenseCurve) {
  std::vector<f32> y(100000, 1);
  for (std::size_t i = 40000; i < 45000; ++i) y[i] = kNull;
  const auto properties = curve_of(counted(y.size()), y);
  const CurveOutline outline = outline_of(properties, scales_of(0, 100000, 0, 10));
  ASSERT_EQ(outline.starts.size(), 2U);
  EXPECT_DOUBLE_EQ(outline.points[outline.starts[1]].x, 45);
  EXPECT_NEAR(outline.points[outline.starts[1] - 1].x, 39.999, 1e-9);
}

TEST(CurveOutlineTest, FallingXKeepsOnlyLinesOverFreshPixels) {
  std::vector<f32> x;
  std::vector<f32> y;
  for (int turn = 0; turn < 1000; ++turn)
    for (int corner = 0; corner < 4; ++corner) {
      x.push_back(corner == 1 || corner == 2 ? 90.0F : 10.0F);
      y.push_back(corner >= 2 ? 9.0F : 1.0F);
    }
  const CurveOutline outline = outline_of(curve_of(x, y), scales_of(0, 100, 0, 10));
  EXPECT_GE(outline.points.size(), 5U);
  EXPECT_LE(outline.points.size(), 8U);
}

// Lowest and highest pixel of the drawn samples of each column.
std::map<int, std::pair<f64, f64>> column_extremes(const std::vector<PixelPoint>& points) {
  std::map<int, std::pair<f64, f64>> extremes;
  for (const PixelPoint& point : points) {
    if (point.x < kArea.x || point.x >= kArea.right()) continue;
    const auto [place, fresh] =
        extremes.try_emplace(static_cast<int>(std::floor(point.x)), std::pair(point.y, point.y));
    if (fresh) continue;
    place->second.first = std::min(place->second.first, point.y);
    place->second.second = std::max(place->second.second, point.y);
  }
  return extremes;
}

TEST(CurveOutlineTest, EveryColumnHasTheExtremesOfAPlainScan) {
  std::mt19937 random(11);
  for (int round = 0; round < 200; ++round) {
    const std::size_t count = 1 + random() % 20000;
    std::vector<f32> y(count);
    for (f32& value : y) value = random() % 50 == 0 ? kNull : static_cast<f32>(random() % 1000) / 100;
    const auto properties = curve_of(counted(count), y);
    // No sample falls on the edge of a column, where rounding would decide.
    const f64 low = static_cast<f64>(random() % count) + 0.371357;
    const Scales scales = scales_of(low, low + 1.717717 + static_cast<f64>(random() % count), 0, 10);
    std::vector<PixelPoint> all;
    for (std::size_t i = 0; i < count; ++i)
      if (y[i] != kNull)
        all.push_back({pixel_of(scales.x, static_cast<f64>(i)), pixel_of(scales.y, static_cast<f64>(y[i]))});
    const CurveOutline outline = outline_of(properties, scales);
    ASSERT_EQ(column_extremes(outline.points), column_extremes(all)) << round;
    ASSERT_LE(outline.points.size(), 4 * 100 + 2U);
    for (std::size_t i = 1; i < outline.points.size(); ++i)
      ASSERT_GE(outline.points[i].x, outline.points[i - 1].x);
  }
}

// A slow course with noise, spikes and gaps.
std::vector<f32> odd_course(std::mt19937& random, std::size_t count) {
  std::vector<f32> y(count);
  const f32 noise = std::array{0.0F, 0.02F, 0.5F, 4.0F}[random() % 4];
  const f64 turns = static_cast<f64>(1 + random() % 60);
  const bool gaps = random() % 3 == 0;
  for (std::size_t i = 0; i < count; ++i) {
    const f64 angle = 6.283 * turns * static_cast<f64>(i) / static_cast<f64>(count);
    y[i] = static_cast<f32>(5 + 4 * std::sin(angle)) + noise * static_cast<f32>(random() % 1000) / 1000;
    if (random() % 5000 == 0) y[i] = static_cast<f32>(random() % 20);
    if (gaps && random() % 1000 == 0) y[i] = kNull;
  }
  return y;
}

void expect_same_strokes(const CurveOutline& one, const CurveOutline& other, f64 column_width) {
  const CurveStrokes a = curve_strokes(one, column_width, 1.5);
  const CurveStrokes b = curve_strokes(other, column_width, 1.5);
  ASSERT_EQ(a.bars.size(), b.bars.size());
  for (std::size_t i = 0; i < a.bars.size(); ++i) {
    ASSERT_EQ(a.bars[i].x, b.bars[i].x);
    ASSERT_EQ(a.bars[i].y, b.bars[i].y);
    ASSERT_EQ(a.bars[i].height, b.bars[i].height);
  }
  ASSERT_EQ(a.lines.starts, b.lines.starts);
  ASSERT_EQ(a.lines.points.size(), b.lines.points.size());
  for (std::size_t i = 0; i < a.lines.points.size(); ++i) {
    ASSERT_EQ(a.lines.points[i].x, b.lines.points[i].x);
    ASSERT_EQ(a.lines.points[i].y, b.lines.points[i].y);
  }
}

TEST(CurveOutlineTest, BarsAreDrawnTheSameWithoutThePlacesOfTheirExtremes) {
  std::mt19937 random(29);
  std::size_t bars = 0;
  for (int round = 0; round < 300; ++round) {
    const auto y = odd_course(random, 200 + random() % 30000);
    auto x = counted(y.size());
    if (round % 4 == 1) std::reverse(x.begin(), x.end());
    const auto properties = curve_of(x, y);
    const f64 first = static_cast<f64>(random() % y.size()) / 2;
    Scales scales = scales_of(first, first + 1 + static_cast<f64>(random() % y.size()), 0.5, 11);
    if (round % 5 == 2) std::swap(scales.x.first, scales.x.last);
    if (round % 7 == 3) scales.y = scales_of(0, 1, 4, 7).y;  // most of it lies outside
    PixelRectangle area = kArea;
    if (round % 6 == 4) area.x = scales.x.first += 0.37;  // columns that no pixel of the device fits
    const f64 column_width = round % 3 == 0 ? 0.5 : 1;
    const CurveSamples samples = curve_samples(properties, 0);
    const auto outline = [&](f64 bar_height) {
      return clipped(curve_outline(samples, scales.x, scales.y, area,
                                   {.column_width = column_width, .bar_height = bar_height}),
                     {-8, -8, 116, 66});
    };
    const CurveOutline whole = outline(std::numeric_limits<f64>::infinity());
    expect_same_strokes(whole, outline(kLeastBar), column_width);
    if (HasFatalFailure()) FAIL() << round;
    bars += curve_strokes(whole, column_width, 1.5).bars.size();
  }
  EXPECT_GT(bars, 1000U);
}

TEST(ClippedTest, LinesEndAtTheTrueCrossings) {
  const CurveOutline outline{{{0, -100}, {10, 100}, {20, 100}, {30, -100}}, {0}};
  const CurveOutline cut = clipped(outline, {0, 0, 30, 50});
  ASSERT_EQ(cut.starts, (std::vector<std::size_t>{0, 2}));
  ASSERT_EQ(cut.points.size(), 4U);
  EXPECT_DOUBLE_EQ(cut.points[0].x, 5);
  EXPECT_DOUBLE_EQ(cut.points[1].x, 7.5);
  EXPECT_DOUBLE_EQ(cut.points[1].y, 50);
  EXPECT_DOUBLE_EQ(cut.points[2].x, 22.5);
  EXPECT_DOUBLE_EQ(cut.points[3].x, 25);
}

TEST(ClippedTest, LinesFromVeryFarAwayCrossTheWholeBox) {
  const CurveOutline cut = clipped({{{0, -1e32}, {30, 1e32}}, {0}}, {0, 0, 30, 50});
  ASSERT_EQ(cut.points.size(), 2U);
  EXPECT_DOUBLE_EQ(cut.points[0].x, 15);
  EXPECT_DOUBLE_EQ(cut.points[0].y, 0);
  EXPECT_DOUBLE_EQ(cut.points[1].y, 50);
}

TEST(ClippedTest, WhatLiesInsideStaysWhole) {
  const CurveOutline outline{{{1, 1}, {2, 8}, {3, 1}, {20, 3}}, {0, 3}};
  const CurveOutline cut = clipped(outline, {0, 0, 30, 50});
  EXPECT_EQ(cut.starts, outline.starts);
  EXPECT_EQ(cut.points.size(), 4U);
}

}  // namespace
}  // namespace trendaro
