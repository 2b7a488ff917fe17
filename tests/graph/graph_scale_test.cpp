#include "graph/graph_scale.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

namespace trendaro {
namespace {

TEST(GraphScaleTest, LimitsThatAreNoneBecomeSome) {
  const f64 infinity = std::numeric_limits<f64>::infinity();
  for (const auto& [low, high] : {std::pair(0.0, 0.0), std::pair(5.0, 5.0), std::pair(3.0, -3.0),
                                  std::pair(-infinity, infinity), std::pair(std::nan(""), 1.0)}) {
    const AxisScale scale = make_scale(low, high, 1);
    EXPECT_TRUE(std::isfinite(scale.minimum) && std::isfinite(scale.maximum));
    EXPECT_LT(scale.minimum, scale.maximum);
  }
}

TEST(GraphScaleTest, LimitsTooCloseForPixelsAreMovedApartNoFurtherThanNeeded) {
  const AxisScale scale = make_scale(45292.5, 45292.5 + 1e-10, 1);
  EXPECT_GT(scale.minimum, 45292.5 - 1e-9);
  EXPECT_LT(scale.maximum, 45292.5 + 1e-9);
  EXPECT_GT(scale.maximum - scale.minimum, 6e-10);  // 64 times the distance of numbers of that size
}

TEST(GraphScaleTest, AutomaticIsLogarithmicBeyondThreeDecades) {
  EXPECT_FALSE(make_scale(1, 1000, 0).logarithmic);
  EXPECT_TRUE(make_scale(1, 1001, 0).logarithmic);
  EXPECT_FALSE(make_scale(0, 1001, 0).logarithmic);
  EXPECT_FALSE(make_scale(-5, 0, 2).logarithmic);
}

TEST(GraphScaleTest, PixelsAndValuesAreEachOthersInverse) {
  AxisScale scale = make_scale(10, 1000, 2);
  scale.first = 300;
  scale.last = 100;
  EXPECT_DOUBLE_EQ(pixel_of(scale, 100), 200);
  EXPECT_DOUBLE_EQ(value_of(scale, 200), 100);
}

TEST(GraphScaleTest, ALogarithmicAxisOfMoreDecadesThanANumberHoldsHasItsPixels) {
  AxisScale scale = make_scale(1e-200, 1e200, 2);
  scale.first = 0;
  scale.last = 400;
  EXPECT_NEAR(pixel_of(scale, 1e-200), 0, 1e-9);
  EXPECT_NEAR(pixel_of(scale, 1), 200, 1e-9);
  EXPECT_NEAR(pixel_of(scale, 1e200), 400, 1e-9);
  EXPECT_FALSE(std::isfinite(pixel_of(scale, 0)));
  EXPECT_FALSE(std::isfinite(pixel_of(scale, -1)));
  EXPECT_NEAR(std::log10(value_of(scale, 0)), -200, 1e-9);
  EXPECT_NEAR(std::log10(value_of(scale, 300)), 100, 1e-9);
  EXPECT_NEAR(std::log10(value_of(scale, 400)), 200, 1e-9);
}

TEST(GraphScaleTest, AValueFarBelowALogarithmicAxisHasAPixel) {
  AxisScale scale = make_scale(1e200, 1e210, 2);
  scale.first = 0;
  scale.last = 100;
  // 500 decades below, ten pixels each.
  EXPECT_NEAR(pixel_of(scale, 1e-300), -5000, 1e-6);
}

}  // namespace
}  // namespace trendaro
