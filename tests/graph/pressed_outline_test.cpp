#include "graph/pressed_outline.h"

#include <gtest/gtest.h>

namespace trendaro {
namespace {

constexpr PixelRectangle kBox{0, 0, 100, 50};

void expect_points(const CurveOutline& outline, const std::vector<PixelPoint>& points) {
  ASSERT_EQ(outline.points.size(), points.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    EXPECT_NEAR(outline.points[i].x, points[i].x, 1e-9) << i;
    EXPECT_NEAR(outline.points[i].y, points[i].y, 1e-9) << i;
  }
}

TEST(PressedOutlineTest, WhatLiesInsideStays) {
  expect_points(pressed_into(kBox, {{{0, 0}, {50, 25}, {100, 50}}, {0}}), {{0, 0}, {50, 25}, {100, 50}});
}

TEST(PressedOutlineTest, ALineOutOfTheBoxHasACornerAtTheEdgeAndKeepsItsSlope) {
  // 100 down over 40 to the right: it enters the box a quarter of the way, 10 to the right.
  expect_points(pressed_into(kBox, {{{20, -25}, {60, 75}}, {0}}), {{20, 0}, {30, 0}, {50, 50}, {60, 50}});
}

TEST(PressedOutlineTest, ALineFromFarLeftEntersWhereItDoes) {
  expect_points(pressed_into(kBox, {{{-100, 0}, {100, 40}}, {0}}), {{0, 0}, {0, 20}, {100, 40}});
}

TEST(PressedOutlineTest, APeakBeyondTheBoxIsItsEdge) {
  expect_points(pressed_into(kBox, {{{10, 20}, {20, -20}, {30, 20}}, {0}}),
                {{10, 20}, {15, 0}, {20, 0}, {25, 0}, {30, 20}});
}

TEST(PressedOutlineTest, PiecesStayApart) {
  const CurveOutline outline = pressed_into(kBox, {{{10, 20}, {10, -20}, {30, 20}, {40, 20}}, {0, 2}});
  EXPECT_EQ(outline.starts, (std::vector<std::size_t>{0, 3}));
  expect_points(outline, {{10, 20}, {10, 0}, {10, 0}, {30, 20}, {40, 20}});
}

TEST(PressedOutlineTest, PointsAsFarAwayAsNumbersGoStayInsideTheBox) {
  for (const PixelPoint& point : pressed_into(kBox, {{{-1e308, -1e308}, {1e308, 1e308}}, {0}}).points) {
    EXPECT_TRUE(point.x >= 0 && point.x <= 100) << point.x;
    EXPECT_TRUE(point.y >= 0 && point.y <= 50) << point.y;
  }
}

TEST(PressedOutlineTest, AnEmptyOutlineStaysEmpty) {
  EXPECT_TRUE(pressed_into(kBox, {}).points.empty());
}

}  // namespace
}  // namespace trendaro
