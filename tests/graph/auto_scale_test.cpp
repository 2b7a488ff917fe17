#include "graph/auto_scale.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "graph/curve_index.h"
#include "graph/graph_properties.h"
#include "graph/graph_scale.h"
#include "graph/plot_methods.h"
#include "support/graph_data.h"

namespace trendaro {
namespace {

TEST(AutoScaleTest, RangeIsExtendedByThePercentageAtEachEnd) {
  const auto limits = padded_limits(0, 200, 5, false, 1);
  ASSERT_TRUE(limits);
  EXPECT_DOUBLE_EQ(limits->low, -10);
  EXPECT_DOUBLE_EQ(limits->high, 210);
}

TEST(AutoScaleTest, NoPaddingLeavesTheRange) {
  EXPECT_EQ(padded_limits(-3, 4, 0, false, 1), (AxisLimits{-3, 4}));
  EXPECT_EQ(padded_limits(-3, 4, -7, false, 1), (AxisLimits{-3, 4}));
}

TEST(AutoScaleTest, FlatDataGetTheWidthGiven) {
  EXPECT_EQ(padded_limits(5, 5, 2, false, 0.5), (AxisLimits{4.5, 5.5}));
}

TEST(AutoScaleTest, LogarithmicAxisIsExtendedInDecades) {
  const auto limits = padded_limits(1, 10000, 25, true, 1);
  ASSERT_TRUE(limits);
  EXPECT_DOUBLE_EQ(limits->low, 0.1);
  EXPECT_DOUBLE_EQ(limits->high, 100000);
}

TEST(AutoScaleTest, LogarithmicAxisWithDataDownToZeroIsExtendedInTheDecadesThatItShows) {
  // Six of them: ten percent are 0.6 decades.
  for (const f64 low : {0.0, -50.0}) {
    const auto limits = padded_limits(low, 50, 10, true, 1);
    ASSERT_TRUE(limits);
    EXPECT_LE(limits->low, 0);
    EXPECT_NEAR(limits->high, 50 * 3.981071705534973, 1e-9);
  }
}

TEST(AutoScaleTest, LogarithmicAxisWithNegativeDataAloneIsExtendedAsALinearOne) {
  EXPECT_EQ(padded_limits(-50, -10, 10, true, 1), (AxisLimits{-54, -6}));
}

TEST(AutoScaleTest, MoreDecadesThanANumberHoldsArePaddedInDecades) {
  // One percent of 400 decades.
  const auto limits = padded_limits(1e-200, 1e200, 1, true, 1);
  ASSERT_TRUE(limits);
  EXPECT_NEAR(std::log10(limits->low), -204, 1e-9);
  EXPECT_NEAR(std::log10(limits->high), 204, 1e-9);
  const auto widest = padded_limits(1e-300, 1e300, 10, true, 1);
  ASSERT_TRUE(widest);
  EXPECT_GT(widest->low, 0);
  EXPECT_TRUE(std::isfinite(widest->high));
}

TEST(AutoScaleTest, EmptyRangeHasNoLimits) {
  const f64 infinity = std::numeric_limits<f64>::infinity();
  EXPECT_FALSE(padded_limits(infinity, -infinity, 2, false, 1));
}

TEST(AutoScaleTest, WidestRangeStaysFinite) {
  const f64 largest = std::numeric_limits<f64>::max();
  EXPECT_EQ(padded_limits(-largest, largest, 0, false, 1), (AxisLimits{-largest, largest}));
}

GraphProperties scaled_curves(const std::vector<f32>& y, i32 kind, const std::vector<i32>& methods) {
  GraphProperties properties;
  std::vector<f32> x;
  for (std::size_t i = 0; i < y.size(); ++i) x.push_back(static_cast<f32>(i % 2));
  set_curves(properties, 2, x, y);
  properties.AutoPadPercent = 2;
  properties.layers[0].YAxisScaleControl = kind;
  properties.SubsetPlotMethods = methods;
  properties.curve_index = build_curve_index(properties);
  scale_to_data(properties);
  return properties;
}

TEST(AutoScaleTest, AnAutomaticAxisOverDecadesIsPaddedInDecadesAndStaysLogarithmic) {
  const LayerProperties layer = scaled_curves({1, 10000}, 0, {0}).layers[0];
  EXPECT_NEAR(layer.ManualMinY, std::pow(10, -0.08), 1e-12);
  EXPECT_NEAR(layer.ManualMaxY, std::pow(10, 4.08), 1e-8);
  EXPECT_TRUE(make_scale(layer.ManualMinY, layer.ManualMaxY, 0).logarithmic);
}

TEST(AutoScaleTest, AnAutomaticAxisThatIsLinearBeforeThePaddingStaysLinear) {
  // 2 percent of 98 leave 0.04 below 2: more than three decades, though the data have less than two.
  const LayerProperties layer = scaled_curves({2, 100}, 0, {0}).layers[0];
  EXPECT_EQ(layer.ManualMinY, 0);
  EXPECT_NEAR(layer.ManualMaxY, 101.96, 1e-12);
  EXPECT_FALSE(make_scale(layer.ManualMinY, layer.ManualMaxY, 0).logarithmic);
}

TEST(AutoScaleTest, ThePeakOfDataDownToZeroHasRoomAboveItOnALogarithmicAxis) {
  const LayerProperties layer = scaled_curves({0, 100}, 2, {0}).layers[0];
  AxisScale scale = make_scale(layer.ManualMinY, layer.ManualMaxY, 2);
  scale.first = 300;
  scale.last = 0;
  EXPECT_TRUE(scale.logarithmic);
  EXPECT_NEAR(pixel_of(scale, 100), 6, 0.01);  // 2 of 100 parts
}

TEST(AutoScaleTest, StackedCurvesReachFromZeroToTheirSums) {
  const LayerProperties layer =
      scaled_curves({1, 10, 5, 20, -3, 4}, 1, {kMethodStacked, kMethodStacked, kMethodStacked}).layers[0];
  // From -3 to 10 + 20 + 4, and 2 percent of 37.
  EXPECT_NEAR(layer.ManualMinY, -3.74, 1e-12);
  EXPECT_NEAR(layer.ManualMaxY, 34.74, 1e-12);
}

}  // namespace
}  // namespace trendaro
