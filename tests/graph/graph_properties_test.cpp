#include "graph/graph_properties.h"

#include <gtest/gtest.h>

namespace trendaro {
namespace {

TEST(GraphPropertiesTest, WithoutCountsAllCurvesAreInTheFirstLayer) {
  const GraphProperties properties;
  EXPECT_EQ(layer_of_curve(properties, 0), 0u);
  EXPECT_EQ(layer_of_curve(properties, 9), 0u);
}

TEST(GraphPropertiesTest, CurvesFillTheLayersInOrder) {
  GraphProperties properties;
  properties.MultiAxesSubsets = {2, 0, 1};
  EXPECT_EQ(layer_of_curve(properties, 0), 0u);
  EXPECT_EQ(layer_of_curve(properties, 1), 0u);
  EXPECT_EQ(layer_of_curve(properties, 2), 2u);
  EXPECT_EQ(layer_of_curve(properties, 3), 2u);  // beyond the counts
}

TEST(GraphPropertiesTest, MethodsFromAThousandOnMeanTheRightAxis) {
  GraphProperties properties;
  properties.SubsetPlotMethods = {999, 1000, 1003};
  EXPECT_FALSE(on_right_axis(properties, 0));
  EXPECT_TRUE(on_right_axis(properties, 1));
  EXPECT_TRUE(on_right_axis(properties, 2));
  EXPECT_FALSE(on_right_axis(properties, 3));
}

}  // namespace
}  // namespace trendaro
