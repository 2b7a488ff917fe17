#include "graph/stacked_curves.h"

#include <gtest/gtest.h>

namespace trendaro {
namespace {

CurveOutline piece(const std::vector<PixelPoint>& points) {
  return {points, {0}};
}

TEST(StackedCurvesTest, EachCurveStandsOnTheSumOfThoseBefore) {
  const auto bands = stack_curves({piece({{0, 1}, {10, 3}}), piece({{0, 4}, {5, 6}, {10, 4}})});
  ASSERT_EQ(bands.size(), 2U);
  EXPECT_EQ(bands[0].x, (std::vector<f64>{0, 5, 10}));
  EXPECT_EQ(bands[0].low, (std::vector<f64>{0, 0, 0}));
  EXPECT_EQ(bands[0].high, (std::vector<f64>{1, 2, 3}));
  EXPECT_EQ(bands[1].low, bands[0].high);
  EXPECT_EQ(bands[1].high, (std::vector<f64>{5, 8, 7}));
}

TEST(StackedCurvesTest, WhereACurveHasNoPointsItAddsNothing) {
  const auto bands = stack_curves(
      {piece({{0, 1}, {4, 1}}), CurveOutline{{{0, 2}, {1, 2}, {3, 2}, {4, 2}}, {0, 2}}, piece({{2, 5}})});
  EXPECT_EQ(bands[1].x, (std::vector<f64>{0, 1, 2, 3, 4}));
  EXPECT_EQ(bands[1].high, (std::vector<f64>{3, 3, 1, 3, 3}));
  EXPECT_EQ(bands[2].high, (std::vector<f64>{3, 3, 6, 3, 3}));
}

TEST(StackedCurvesTest, FallingXGivesTheSameStack) {
  const auto rising = stack_curves({CurveOutline{{{0, 1}, {1, 2}, {5, 3}, {6, 4}}, {0, 2}}});
  const auto falling = stack_curves({CurveOutline{{{6, 4}, {5, 3}, {1, 2}, {0, 1}}, {0, 2}}});
  EXPECT_EQ(rising[0].x, falling[0].x);
  EXPECT_EQ(rising[0].high, falling[0].high);
  EXPECT_EQ(rising[0].high, (std::vector<f64>{1, 2, 3, 4}));
}

TEST(StackedCurvesTest, NothingStacksToNothing) {
  EXPECT_TRUE(stack_curves({}).empty());
  EXPECT_TRUE(stack_curves({CurveOutline{}})[0].x.empty());
}

}  // namespace
}  // namespace trendaro
