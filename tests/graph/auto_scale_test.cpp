#include "graph/auto_scale.h"

#include <limits>

#include <gtest/gtest.h>

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

TEST(AutoScaleTest, LogarithmicAxisWithNegativeDataIsExtendedAsALinearOne) {
  EXPECT_EQ(padded_limits(-50, 50, 10, true, 1), (AxisLimits{-60, 60}));
}

TEST(AutoScaleTest, EmptyRangeHasNoLimits) {
  const f64 infinity = std::numeric_limits<f64>::infinity();
  EXPECT_FALSE(padded_limits(infinity, -infinity, 2, false, 1));
}

TEST(AutoScaleTest, WidestRangeStaysFinite) {
  const f64 largest = std::numeric_limits<f64>::max();
  EXPECT_EQ(padded_limits(-largest, largest, 0, false, 1), (AxisLimits{-largest, largest}));
}

}  // namespace
}  // namespace trendaro
