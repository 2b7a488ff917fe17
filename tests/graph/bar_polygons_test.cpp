#include "graph/bar_polygons.h"

#include <gtest/gtest.h>

namespace trendaro {
namespace {

void expect_corners(const std::vector<PixelPoint>& polygon, const std::vector<PixelPoint>& corners) {
  ASSERT_EQ(polygon.size(), corners.size());
  for (std::size_t i = 0; i < corners.size(); ++i) {
    EXPECT_DOUBLE_EQ(polygon[i].x, corners[i].x) << i;
    EXPECT_DOUBLE_EQ(polygon[i].y, corners[i].y) << i;
  }
}

TEST(BarPolygonsTest, NoBarsAreNoPolygon) {
  EXPECT_TRUE(joined_bars({}, 1).empty());
}

TEST(BarPolygonsTest, ABarAloneIsItsRectangle) {
  const auto polygons = joined_bars({{3, 10, 1, 20}}, 1);
  ASSERT_EQ(polygons.size(), 1U);
  expect_corners(polygons[0], {{3, 10}, {4, 10}, {4, 30}, {3, 30}});
}

TEST(BarPolygonsTest, NeighboursAreOneStepThereAndBack) {
  const auto polygons = joined_bars({{3, 10, 1, 20}, {4, 5, 1, 10}}, 1);
  ASSERT_EQ(polygons.size(), 1U);
  expect_corners(polygons[0], {{3, 10}, {4, 10}, {4, 5}, {5, 5}, {5, 15}, {4, 15}, {4, 30}, {3, 30}});
}

TEST(BarPolygonsTest, EqualHeightsHaveNoCornersBetween) {
  const auto polygons = joined_bars({{0, 10, 1, 20}, {1, 10, 1, 20}, {2, 10, 1, 20}}, 1);
  ASSERT_EQ(polygons.size(), 1U);
  expect_corners(polygons[0], {{0, 10}, {3, 10}, {3, 30}, {0, 30}});
}

TEST(BarPolygonsTest, BarsFromRightToLeftAreTheSamePolygon) {
  const auto polygons = joined_bars({{4, 5, 1, 10}, {3, 10, 1, 20}}, 1);
  ASSERT_EQ(polygons.size(), 1U);
  expect_corners(polygons[0], {{3, 10}, {4, 10}, {4, 5}, {5, 5}, {5, 15}, {4, 15}, {4, 30}, {3, 30}});
}

TEST(BarPolygonsTest, AFreeColumnAndBarsThatDoNotTouchPart) {
  EXPECT_EQ(joined_bars({{3, 10, 1, 20}, {5, 10, 1, 20}}, 1).size(), 2U);
  EXPECT_EQ(joined_bars({{3, 10, 1, 20}, {4, 31, 1, 20}}, 1).size(), 2U);
  EXPECT_EQ(joined_bars({{3, 10, 1, 20}, {4, 30, 1, 20}}, 1).size(), 1U);
}

TEST(BarPolygonsTest, ACurveThatTurnsBackBeginsAnotherPolygon) {
  const auto polygons = joined_bars({{3, 10, 1, 20}, {4, 10, 1, 20}, {3, 0, 1, 20}}, 1);
  ASSERT_EQ(polygons.size(), 2U);
  expect_corners(polygons[0], {{3, 10}, {5, 10}, {5, 30}, {3, 30}});
  expect_corners(polygons[1], {{3, 0}, {4, 0}, {4, 20}, {3, 20}});
}

TEST(BarPolygonsTest, WideBarsCoverTheirNeighbours) {
  // Three columns wide and one apart: the higher one reaches to the left of its own column.
  const auto polygons = joined_bars({{0, 10, 3, 20}, {1, 0, 3, 20}}, 1);
  ASSERT_EQ(polygons.size(), 1U);
  expect_corners(polygons[0], {{0, 10}, {1, 10}, {1, 0}, {4, 0}, {4, 20}, {3, 20}, {3, 30}, {0, 30}});
}

TEST(BarPolygonsTest, ColumnsNarrowerThanAPixelJoinToo) {
  const auto polygons = joined_bars({{2, 4, 0.5, 4}, {2.5, 6, 0.5, 4}}, 0.5);
  ASSERT_EQ(polygons.size(), 1U);
  expect_corners(polygons[0], {{2, 4}, {2.5, 4}, {2.5, 6}, {3, 6}, {3, 10}, {2.5, 10}, {2.5, 8}, {2, 8}});
}

}  // namespace
}  // namespace trendaro
