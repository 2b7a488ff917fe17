#include "graph/bar_notches.h"

#include <gtest/gtest.h>

namespace trendaro {
namespace {

void expect_reach(const PixelRectangle& bar, f64 top, f64 bottom) {
  EXPECT_DOUBLE_EQ(bar.y, top);
  EXPECT_DOUBLE_EQ(bar.bottom(), bottom);
}

TEST(BarNotchesTest, ASwingOfTwoColumnsIsClosedBetweenItsEnds) {
  // Upper and lower halves in turn.
  const auto bars =
      without_notches({{10, 0, 1, 50}, {11, 50, 1, 50}, {12, 0, 1, 50}, {13, 50, 1, 50}, {14, 0, 1, 50}}, 1);
  ASSERT_EQ(bars.size(), 5U);
  expect_reach(bars[0], 0, 50);
  expect_reach(bars[1], 0, 100);
  expect_reach(bars[2], 0, 100);
  expect_reach(bars[3], 0, 100);
  expect_reach(bars[4], 0, 50);
  for (std::size_t i = 0; i < bars.size(); ++i) EXPECT_DOUBLE_EQ(bars[i].x, 10 + static_cast<f64>(i));
}

TEST(BarNotchesTest, ABarReachesAsFarAsTheShorterOfItsNeighbours) {
  const auto bars = without_notches({{10, 5, 1, 60}, {11, 30, 1, 10}, {12, 20, 1, 60}}, 1);
  expect_reach(bars[1], 20, 65);
}

TEST(BarNotchesTest, PeaksStay) {
  const auto bars = without_notches({{10, 40, 1, 10}, {11, 0, 1, 100}, {12, 40, 1, 10}}, 1);
  expect_reach(bars[0], 40, 50);
  expect_reach(bars[1], 0, 100);
  expect_reach(bars[2], 40, 50);
}

TEST(BarNotchesTest, AColumnWithoutABarIsNoNeighbour) {
  const auto bars = without_notches({{10, 0, 1, 50}, {11, 50, 1, 50}, {13, 0, 1, 50}}, 1);
  expect_reach(bars[1], 50, 100);
  EXPECT_TRUE(without_notches({}, 1).empty());
  EXPECT_EQ(without_notches({{10, 0, 1, 50}}, 1).size(), 1U);
}

TEST(BarNotchesTest, ColumnsOfTheDeviceMayBeHalfAPixelWideAndBarsComeFromTheRight) {
  const auto bars = without_notches({{11, 0, 1.5, 50}, {10.5, 50, 1.5, 50}, {10, 0, 1.5, 50}}, 0.5);
  expect_reach(bars[1], 0, 100);
}

}  // namespace
}  // namespace trendaro
