#include "graph/curve_strokes.h"

#include <gtest/gtest.h>

namespace trendaro {
namespace {

TEST(CurveStrokesTest, AColumnThatSwingsIsABar) {
  const CurveOutline outline{{{5.1, 10}, {5.2, 40}, {5.6, 2}, {5.9, 20}}, {0}};
  const CurveStrokes strokes = curve_strokes(outline, 1, 1);
  ASSERT_EQ(strokes.bars.size(), 1U);
  EXPECT_DOUBLE_EQ(strokes.bars[0].x, 5);
  EXPECT_DOUBLE_EQ(strokes.bars[0].width, 1);
  EXPECT_DOUBLE_EQ(strokes.bars[0].y, 1.5);
  EXPECT_DOUBLE_EQ(strokes.bars[0].bottom(), 40.5);
  EXPECT_TRUE(strokes.lines.points.empty());
}

TEST(CurveStrokesTest, NeighbouringBarsTouch) {
  const CurveOutline outline{{{0.1, 0}, {0.5, 10}, {0.9, 5}, {1.1, 30}, {1.5, 50}, {1.9, 30}}, {0}};
  const CurveStrokes strokes = curve_strokes(outline, 1, 1);
  ASSERT_EQ(strokes.bars.size(), 2U);
  EXPECT_GE(strokes.bars[0].bottom(), strokes.bars[1].y);
}

TEST(CurveStrokesTest, AColumnThatOnlyRisesIsALineOfItsEnds) {
  const CurveOutline outline{{{0.1, 40}, {0.4, 30}, {0.6, 20}, {0.9, 10}, {1.5, 0}}, {0}};
  const CurveStrokes strokes = curve_strokes(outline, 1, 1);
  EXPECT_TRUE(strokes.bars.empty());
  ASSERT_EQ(strokes.lines.points.size(), 3U);
  EXPECT_DOUBLE_EQ(strokes.lines.points[1].y, 10);
}

TEST(CurveStrokesTest, LinesReachTheBarsOnBothSides) {
  const CurveOutline outline{{{0.5, 5}, {1.1, 10}, {1.5, 40}, {1.9, 12}, {2.5, 5}}, {0}};
  const CurveStrokes strokes = curve_strokes(outline, 1, 1);
  EXPECT_EQ(strokes.bars.size(), 1U);
  EXPECT_EQ(strokes.lines.starts, (std::vector<std::size_t>{0, 2}));
  ASSERT_EQ(strokes.lines.points.size(), 4U);
  EXPECT_DOUBLE_EQ(strokes.lines.points[1].y, 10);
  EXPECT_DOUBLE_EQ(strokes.lines.points[2].y, 12);
}

TEST(CurveStrokesTest, PairsOfALowestAndAHighestPointAreBars) {
  const CurveOutline outline{{{0.1, 50}, {0.6, 10}, {1.1, 50}, {1.6, 10}, {2.1, 60}, {2.6, 20}}, {0}};
  const CurveStrokes strokes = curve_strokes(outline, 1, 1);
  // Nothing leads into the first pair, which stays a line that reaches the first bar.
  ASSERT_EQ(strokes.bars.size(), 2U);
  EXPECT_DOUBLE_EQ(strokes.bars[0].y, 9.5);
  EXPECT_DOUBLE_EQ(strokes.bars[0].bottom(), 50.5);
  EXPECT_DOUBLE_EQ(strokes.bars[1].y, 19.5);
  EXPECT_DOUBLE_EQ(strokes.bars[1].bottom(), 60.5);
  EXPECT_EQ(strokes.lines.points.size(), 3U);
}

TEST(CurveStrokesTest, AFlankBetweenColumnsThatCoverItIsABar) {
  // Up, down and up again, each in a column of its own and level where they meet.
  const CurveOutline outline{{{0.1, 90}, {0.9, 10}, {1.1, 10}, {1.9, 90}, {2.1, 90}, {2.9, 10}}, {0}};
  const CurveStrokes strokes = curve_strokes(outline, 1, 1);
  ASSERT_EQ(strokes.bars.size(), 1U);
  EXPECT_DOUBLE_EQ(strokes.bars[0].x, 1);
  EXPECT_DOUBLE_EQ(strokes.bars[0].y, 9.5);
  EXPECT_DOUBLE_EQ(strokes.bars[0].bottom(), 90.5);
  // The outer ones are lines that reach it.
  EXPECT_EQ(strokes.lines.starts, (std::vector<std::size_t>{0, 3}));
}

TEST(CurveStrokesTest, FlanksApartFromEachOtherStayLines) {
  const CurveOutline outline{{{0.1, 90}, {0.9, 10}, {2.1, 10}, {2.9, 90}, {4.1, 90}, {4.9, 10}}, {0}};
  const CurveStrokes strokes = curve_strokes(outline, 1, 1);
  EXPECT_TRUE(strokes.bars.empty());
  EXPECT_EQ(strokes.lines.points.size(), 6U);
}

TEST(CurveStrokesTest, AFlankBesideATallColumnOnOneSideStaysALine) {
  const CurveOutline outline{{{0.1, 90}, {0.9, 10}, {1.1, 10}, {1.9, 90}, {2.1, 90}, {2.9, 90}}, {0}};
  EXPECT_TRUE(curve_strokes(outline, 1, 1).bars.empty());
}

TEST(CurveStrokesTest, ASteepEdgeOverTwoColumnsStaysALine) {
  const CurveOutline outline{{{0.5, 90}, {1.1, 60}, {1.6, 30}, {2.5, 5}}, {0}};
  const CurveStrokes strokes = curve_strokes(outline, 1, 1);
  EXPECT_TRUE(strokes.bars.empty());
  EXPECT_EQ(strokes.lines.points.size(), 4U);
}

TEST(DashedTest, DashesFollowTheLine) {
  const CurveOutline outline{{{0, 0}, {20, 0}}, {0}};
  const CurveOutline dashes = dashed(outline, {6, 4}, 100);
  EXPECT_EQ(dashes.starts, (std::vector<std::size_t>{0, 2}));
  ASSERT_EQ(dashes.points.size(), 4U);
  EXPECT_DOUBLE_EQ(dashes.points[1].x, 6);
  EXPECT_DOUBLE_EQ(dashes.points[2].x, 10);
  EXPECT_DOUBLE_EQ(dashes.points[3].x, 16);
}

TEST(DashedTest, AVeryLongLineHasItsPatternAlongX) {
  CurveOutline outline{{}, {0}};
  for (int i = 0; i <= 1000; ++i) outline.points.push_back({i / 10.0, i % 2 == 0 ? 0.0 : 1000.0});
  const CurveOutline dashes = dashed(outline, {6, 4}, 100);
  EXPECT_LE(dashes.starts.size(), 11U);
  EXPECT_GE(dashes.starts.size(), 10U);
}

TEST(DashedTest, WithoutAPatternTheOutlineComesBackWhole) {
  const CurveOutline outline{{{0, 0}, {20, 0}}, {0}};
  EXPECT_EQ(dashed(outline, {}, 100).points.size(), 2U);
  EXPECT_EQ(dashed(outline, {0, 0}, 100).points.size(), 2U);
}

}  // namespace
}  // namespace trendaro
