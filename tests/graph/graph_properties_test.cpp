#include "graph/graph_properties.h"

#include <set>
#include <string>
#include <type_traits>
#include <utility>

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
#define TABLE_PLACE(number, type, name, member) take(number, #name);
#define GRAPH_SAMPLES(number, type, name) take(number, #name);
#include "graph/graph_properties.def"
  EXPECT_GT(count, 150);
}

TEST(GraphPropertiesTest, ColumnsAndCellsOfATableAreReachedAsTheirRowsTell) {
  TableProperties table;
  const i32 column = 1;
  const std::pair<i32, i32> place(2, 1);
  std::set<std::string> names;
#define TABLE_PLACE(number, type, name, member)                   \
  static_assert(std::is_same_v<decltype((table.member)), type&>); \
  table.member = type{};                                          \
  names.insert(#name);
#include "graph/graph_properties.def"
  EXPECT_EQ(names, (std::set<std::string>{"TableColumnWidth", "TableCellText", "TableCellColor"}));
  EXPECT_EQ(table.column_widths.count(1), 1U);
  EXPECT_EQ(table.cells.count({2, 1}), 1U);
}

}  // namespace
}  // namespace trendaro
