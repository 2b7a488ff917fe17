#include "graph/curve_index.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <numeric>
#include <random>

#include <gtest/gtest.h>

#include "graph/run_extremes.h"
#include "support/graph_data.h"

namespace trendaro {
namespace {

constexpr f32 kNull = -1000000;
constexpr f32 kNan = std::numeric_limits<f32>::quiet_NaN();
constexpr f32 kInfinite = std::numeric_limits<f32>::infinity();

// The extent by its definition, point by point.
PointExtent plain_extent(const std::vector<f32>& x, const std::vector<f32>& y, std::size_t first,
                         std::size_t last) {
  PointExtent extent;
  for (std::size_t i = first; i < last; ++i) {
    if (std::isnan(x[i]) || std::isinf(x[i]) || x[i] == kNull || std::isnan(y[i]) || std::isinf(y[i]) ||
        y[i] == kNull)
      continue;
    if (x[i] < extent.x_low) extent.x_low = x[i];
    if (x[i] > extent.x_high) extent.x_high = x[i];
    if (y[i] < extent.y_low) extent.y_low = y[i];
    if (y[i] > extent.y_high) extent.y_high = y[i];
  }
  return extent;
}

TEST(CurveIndexTest, PointsWithANullANanOrAnInfinityDoNotCount) {
  GraphProperties properties;
  set_curves(properties, 6, {1, kNull, 3, 4, 5, 6}, {10, 20, kNull, kNan, kInfinite, 60});
  const auto index = build_curve_index(properties);
  ASSERT_EQ(index->curves.size(), 1u);
  const PointExtent expected{.x_low = 1, .x_high = 6, .y_low = 10, .y_high = 60};
  EXPECT_EQ(index->curves[0].whole, expected);
  EXPECT_EQ(index->curves[0].used, 6u);
  EXPECT_TRUE(index->curves[0].x_rises);  // the null value in x does not count
  EXPECT_FALSE(index->curves[0].gapless);
}

TEST(CurveIndexTest, NullTailIsNotUsed) {
  GraphProperties properties;
  set_curves(properties, 4, {1, 2, 0, 0, 7, 7, 7, 7}, {5, 6, kNull, kNull, kNull, kNull, kNull, kNull});
  const auto index = build_curve_index(properties);
  ASSERT_EQ(index->curves.size(), 2u);
  EXPECT_EQ(index->curves[0].used, 2u);
  EXPECT_TRUE(index->curves[0].gapless);
  EXPECT_TRUE(index->curves[0].x_rises);
  EXPECT_EQ(index->curves[0].whole.x_low, 1);
  EXPECT_EQ(index->curves[1].used, 0u);
  EXPECT_TRUE(index->curves[1].whole.empty());
  EXPECT_TRUE(index->curves[1].gapless);
}

TEST(CurveIndexTest, DatesInDoublePrecisionAreKept) {
  GraphProperties properties;
  set_curves(properties, 2, {}, {1, 2});
  properties.UsingXDataII = true;
  properties.XDataII = std::make_shared<const SampleArray>(SampleArray{44000.00000001, 44000.00000002});
  const auto index = build_curve_index(properties);
  ASSERT_EQ(index->curves.size(), 1u);
  EXPECT_EQ(index->curves[0].whole.x_low, 44000.00000001);
  EXPECT_EQ(index->curves[0].whole.x_high, 44000.00000002);
}

TEST(CurveIndexTest, CurvesWithoutEnoughDataAreLeftOut) {
  GraphProperties properties;
  set_curves(properties, 3, {1, 2, 3, 4}, {1, 2, 3, 4, 5, 6});
  EXPECT_EQ(build_curve_index(properties)->curves.size(), 1u);
  properties.XData = nullptr;
  EXPECT_TRUE(build_curve_index(properties)->curves.empty());
  properties.PointCount = -1;
  EXPECT_TRUE(build_curve_index(properties)->curves.empty());
}

TEST(CurveIndexTest, CoarsestLevelIsSmall) {
  GraphProperties properties;
  const std::size_t points = 64 * 16 * 16 + 1;
  set_curves(properties, static_cast<i32>(points), std::vector<f32>(points, 1), std::vector<f32>(points, 2));
  const auto index = build_curve_index(properties);
  const auto& levels = index->curves[0].y_levels;
  ASSERT_EQ(levels.size(), 3u);
  EXPECT_EQ(levels[0].size(), 257u);
  EXPECT_EQ(levels[1].size(), 17u);
  EXPECT_EQ(levels[2].size(), 2u);
}

TEST(CurveIndexTest, CoarserLevelsTellTheFirstBlocksWithTheirExtremes) {
  GraphProperties properties;
  const std::size_t points = 64 * 16 * 17;
  std::vector<f32> y(points, 2);
  y[64 * 20 + 5] = y[64 * 40] = -1;
  y[64 * 30 + 63] = y[64 * 31] = 9;
  set_curves(properties, static_cast<i32>(points), std::vector<f32>(points, 1), y);
  const auto index = build_curve_index(properties);
  const auto& levels = index->curves[0].y_levels;
  ASSERT_EQ(levels.size(), 3u);
  EXPECT_EQ(levels[0].lowest_at(20), 20u);
  EXPECT_EQ(levels[1].lowest_at(1), 20u);
  EXPECT_EQ(levels[1].highest_at(1), 30u);
  EXPECT_EQ(levels[1].lowest_at(2), 40u);
  EXPECT_EQ(levels[1].highest_at(2), 32u);
  EXPECT_EQ(levels[2].lowest_at(0), 20u);
  EXPECT_EQ(levels[2].highest_at(0), 30u);
}

TEST(RangeLevelTest, AnyStretchOfEntriesThatLieTogetherHasTheRangeOfAPlainScan) {
  std::mt19937 random(3);
  RangeLevel<f32> singles;
  RangeLevel<f64> doubles;
  std::vector<ValueRange<f32>> all;
  for (std::size_t i = 0; i < 2 * kIndexFan + 3; ++i) {
    const auto low = static_cast<f32>(random() % 100);
    all.push_back(random() % 5 == 0 ? ValueRange<f32>{} : ValueRange<f32>{low, low + 10});
    singles.push_back(all.back());
    doubles.push_back({static_cast<f64>(all.back().low), static_cast<f64>(all.back().high)});
  }
  for (std::size_t first = 0; first < all.size(); ++first)
    for (std::size_t last = first + 1; last <= std::min(all.size(), (first / kIndexFan + 1) * kIndexFan);
         ++last) {
      ValueRange<f32> plain;
      for (std::size_t i = first; i < last; ++i) plain.add(all[i]);
      EXPECT_EQ(singles.range(first, last), plain) << first << " to " << last;
      EXPECT_EQ(doubles.range(first, last).low, static_cast<f64>(plain.low));
      EXPECT_EQ(doubles.range(first, last).high, static_cast<f64>(plain.high));
    }
}

TEST(CurveIndexTest, AnyRunHasTheExtentOfAPlainScan) {
  std::mt19937 random(7);
  for (const std::size_t points : {1u, 63u, 64u, 65u, 1000u, 1024u, 1025u, 20000u, 64u * 16 * 17 + 5}) {
    std::vector<f32> x(points), y(points);
    for (std::size_t i = 0; i < points; ++i) {
      x[i] = static_cast<f32>(random() % 1000);
      y[i] = static_cast<f32>(random() % 1000) - 500;
      if (random() % 50 == 0) y[i] = kNull;
      if (random() % 70 == 0) x[i] = kNull;
      if (random() % 90 == 0) y[i] = kNan;
      if (random() % 90 == 0) x[i] = -kInfinite;
    }
    GraphProperties properties;
    set_curves(properties, static_cast<i32>(points), x, y);
    const auto index = build_curve_index(properties);
    properties.curve_index = index;
    const CurveSamples samples = curve_samples(properties, 0);
    EXPECT_EQ(index->curves[0].whole, plain_extent(x, y, 0, points));
    for (int round = 0; round < 200; ++round) {
      std::size_t first = random() % (points + 1), last = random() % (points + 1);
      if (first > last) std::swap(first, last);
      if (round % 5 == 0) last = points;
      ASSERT_EQ(extent_of_run(samples, first, last), plain_extent(x, y, first, last))
          << points << " points, " << first << " to " << last;
    }
  }
}

TEST(CurveIndexTest, FallOfXAnywhereIsNoticed) {
  const std::size_t points = 10000;
  std::vector<f32> x(points), y(points, 1);
  for (std::size_t i = 0; i < points; ++i) x[i] = static_cast<f32>(i / 2);
  GraphProperties properties;
  set_curves(properties, static_cast<i32>(points), x, y);
  EXPECT_TRUE(build_curve_index(properties)->curves[0].x_rises);
  for (const std::size_t place : {1u, 4096u, 4097u, 9999u}) {
    auto falling = x;
    falling[place] = -1;
    set_curves(properties, static_cast<i32>(points), falling, y);
    EXPECT_FALSE(build_curve_index(properties)->curves[0].x_rises) << place;
  }
}

// What a plain loop finds in full blocks without gaps, and which ways x goes, in both precisions of x.
void expect_plain_blocks(const std::vector<f32>& x) {
  std::vector<f32> y(x.size());
  for (std::size_t i = 0; i < y.size(); ++i) y[i] = static_cast<f32>(i * 7919 % 613) - 300;
  GraphProperties properties;
  set_curves(properties, static_cast<i32>(x.size()), x, y);
  properties.XDataII = std::make_shared<const SampleArray>(x.begin(), x.end());
  for (const bool in_doubles : {false, true}) {
    properties.UsingXDataII = in_doubles;
    const auto index = build_curve_index(properties);
    const CurveExtents& curve = index->curves[0];
    for (std::size_t block = 0; block < curve.y_levels[0].size(); ++block) {
      const PointExtent plain =
          plain_extent(x, y, block * kIndexBlock, std::min(x.size(), (block + 1) * kIndexBlock));
      EXPECT_EQ(curve.y_levels[0].at(block), (ValueRange<f32>{plain.y_low, plain.y_high}));
      if (curve.x_levels.empty()) continue;
      EXPECT_EQ(curve.x_levels[0].at(block), (ValueRange<f64>{plain.x_low, plain.x_high}));
    }
    EXPECT_EQ(curve.x_levels.empty(), curve.x_rises || curve.x_falls);
    EXPECT_EQ(curve.whole, plain_extent(x, y, 0, x.size()));
    EXPECT_EQ(curve.x_rises, std::ranges::is_sorted(x));
    EXPECT_EQ(curve.x_falls, std::ranges::is_sorted(x, std::greater<>()));
  }
}

TEST(CurveIndexTest, FullBlocksAreThoseOfAPlainScan) {
  std::vector<f32> rising(200);
  std::iota(rising.begin(), rising.end(), -50.0F);
  expect_plain_blocks(rising);
  expect_plain_blocks({rising.rbegin(), rising.rend()});
  expect_plain_blocks(std::vector<f32>(200, 3));
  for (std::size_t place = 0; place < rising.size(); ++place) {
    std::vector<f32> broken = rising;
    broken[place] += 1.5F;
    expect_plain_blocks(broken);
    expect_plain_blocks({broken.rbegin(), broken.rend()});
  }
}

TEST(CurveIndexTest, ABlockOfNullValuesIsEmpty) {
  std::vector<f32> x(128, 1), y(128, 2);
  std::fill_n(y.begin(), 64, kNull);
  GraphProperties properties;
  set_curves(properties, 128, x, y);
  const auto index = build_curve_index(properties);
  EXPECT_TRUE(index->curves[0].y_levels[0].at(0).empty());
  EXPECT_EQ(index->curves[0].y_levels[0].at(1), (ValueRange<f32>{2, 2}));
}

TEST(CurveIndexTest, AGapAnywhereBeforeTheLastPointIsNoticed) {
  const std::vector<f32> x(300, 1), y(300, 2);
  const auto is_gapless = [](const std::vector<f32>& xs, const std::vector<f32>& ys) {
    GraphProperties properties;
    set_curves(properties, 300, xs, ys);
    return build_curve_index(properties)->curves[0].gapless;
  };
  EXPECT_TRUE(is_gapless(x, y));
  for (std::size_t place = 0; place < 300; ++place) {
    const bool last = place == 299;
    for (const f32 gap : {kNull, kNan, kInfinite, -kInfinite}) {
      auto broken = x;
      broken[place] = gap;
      EXPECT_EQ(is_gapless(broken, y), last) << place;
      broken = y;
      broken[place] = gap;
      EXPECT_EQ(is_gapless(x, broken), last) << place;
    }
  }
}

TEST(CurveIndexTest, ANullValueAmongTheValuesIsAGapOnlyWhereItStands) {
  std::vector<f32> x(128), y(128);
  for (std::size_t i = 0; i < 128; ++i) {
    x[i] = static_cast<f32>(i);
    y[i] = i % 2 == 0 ? -3.0F : 3.0F;
  }
  GraphProperties properties;
  set_curves(properties, 128, x, y);
  properties.NullDataValue = 0;
  properties.NullDataValueX = 20.5;
  EXPECT_TRUE(build_curve_index(properties)->curves[0].gapless);
  properties.NullDataValueX = 20;
  EXPECT_FALSE(build_curve_index(properties)->curves[0].gapless);
  EXPECT_EQ(build_curve_index(properties)->curves[0].whole, (PointExtent{0, 127, -3, 3}));
  properties.NullDataValueX = 127;
  EXPECT_EQ(build_curve_index(properties)->curves[0].whole, (PointExtent{0, 126, -3, 3}));
  EXPECT_EQ(build_curve_index(properties)->curves[0].used, 127u);
}

TEST(CurveIndexTest, PointsAreReadFromTheirCurve) {
  GraphProperties properties;
  set_curves(properties, 2, {1, 2, 3, 4}, {5, 6, 7, 8});
  EXPECT_EQ(point_x(properties, 1, 0), 3);
  EXPECT_EQ(point_y(properties, 1, 1), 8);
  EXPECT_TRUE(point_counts(properties, 1, 2));
  EXPECT_FALSE(point_counts(properties, -1000000, 2));
  EXPECT_FALSE(point_counts(properties, 1, kNull));
  EXPECT_FALSE(point_counts(properties, 1, kNan));
}

}  // namespace
}  // namespace trendaro
