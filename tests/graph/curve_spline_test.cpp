#include "graph/curve_spline.h"

#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

namespace trendaro {
namespace {

bool holds(const CurveOutline& outline, PixelPoint point) {
  return std::any_of(outline.points.begin(), outline.points.end(),
                     [&](const PixelPoint& each) { return each.x == point.x && each.y == point.y; });
}

TEST(CurveSplineTest, ItRunsThroughThePointsAndKeepsXInOrder) {
  const CurveOutline corners{{{0, 0}, {30, 40}, {50, 10}, {90, 20}}, {0}};
  const CurveOutline smooth = smoothed(corners);
  for (const PixelPoint& corner : corners.points) EXPECT_TRUE(holds(smooth, corner));
  EXPECT_GT(smooth.points.size(), 40U);
  for (std::size_t i = 1; i < smooth.points.size(); ++i)
    EXPECT_GT(smooth.points[i].x, smooth.points[i - 1].x);
}

TEST(CurveSplineTest, AParabolaStaysAParabola) {
  CurveOutline corners{{}, {0}};
  for (int x = -40; x <= 40; x += 10) corners.points.push_back({static_cast<f64>(x), x * x / 10.0});
  for (const PixelPoint& point : smoothed(corners).points) {
    if (std::abs(point.x) <= 30) {
      EXPECT_NEAR(point.y, point.x * point.x / 10, 1e-9);
    }
  }
}

TEST(CurveSplineTest, DensePointsAreJoinedStraight) {
  const CurveOutline corners{{{0, 0}, {1, 50}, {2, 0}, {2.5, 50}}, {0}};
  EXPECT_EQ(smoothed(corners).points.size(), 4U);
}

TEST(CurveSplineTest, PiecesAndLonePointsStay) {
  const CurveOutline corners{{{0, 0}, {10, 5}, {40, 40}}, {0, 2}};
  const CurveOutline smooth = smoothed(corners);
  ASSERT_EQ(smooth.starts.size(), 2U);
  EXPECT_EQ(smooth.points.size() - smooth.starts[1], 1U);
}

TEST(CurveSplineTest, ALineThatTurnsBackStaysRound) {
  CurveOutline corners{{}, {0}};
  for (int i = 0; i <= 12; ++i)
    corners.points.push_back({100 * std::cos(i * 0.5236), 100 * std::sin(i * 0.5236)});
  for (const PixelPoint& point : smoothed(corners).points)
    EXPECT_NEAR(std::hypot(point.x, point.y), 100, 3.5);
}

}  // namespace
}  // namespace trendaro
