#include "graph/graph_properties.h"

#include <set>
#include <string>

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

TEST(GraphPropertiesTest, NumbersAndNamesAreGivenOnce) {
  std::set<i32> numbers;
  std::set<std::string> names;
  int count = 0;
  const auto take = [&](i32 number, const char* name) {
    ++count;
    EXPECT_TRUE(numbers.insert(number).second) << name;
    EXPECT_TRUE(names.insert(name).second) << name;
  };
#define GRAPH_PROPERTY(number, type, name, initial) take(number, #name);
#define GRAPH_LIST(number, type, name) take(number, #name);
#define LAYER_PROPERTY(number, type, name, initial) take(number, #name);
#define LAYER_LIST(number, type, name) take(number, #name);
#define TABLE_PROPERTY(number, type, name, initial) take(number, #name);
#include "graph/graph_properties.def"
  EXPECT_GT(count, 150);
}

}  // namespace
}  // namespace trendaro
