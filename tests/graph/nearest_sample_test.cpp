#include "graph/nearest_sample.h"

#include <algorithm>
#include <cmath>
#include <random>

#include <gtest/gtest.h>

#include "support/hand_layout.h"

namespace trendaro {
namespace {

class NearestSampleTest : public ::testing::Test {
 protected:
  NearestSampleTest() { hand_curves(graph); }

  // A curve of 5000 random samples in the upper layer; the least distance is worked out sample by sample.
  void expect_nearest_of_random_curve(bool rising) {
    std::mt19937 random(7);
    std::uniform_real_distribution<f32> across(0, 30);
    std::uniform_real_distribution<f32> up(0, 10);
    std::vector<f32> x(5000);
    std::vector<f32> y(5000);
    for (std::size_t i = 0; i < x.size(); ++i) {
      x[i] = across(random);
      y[i] = i % 97 == 0 ? -1000000.0F : up(random);
    }
    if (rising) std::sort(x.begin(), x.end());
    set_curves(graph.pending, 5000, x, y);
    graph.pending.MultiAxesSubsets = {1};
    PEactions(graph, kTakeOverAndRedraw);
    for (int round = 0; round < 200; ++round) {
      const PixelPoint place{100.0 + across(random) * 10, 50.0 + up(random) * 10};
      f64 least = 1e9;
      for (std::size_t i = 0; i < x.size(); ++i)
        if (y[i] != -1000000.0F)
          least = std::min(least, std::hypot(100.0 + 10.0 * static_cast<f64>(x[i]) - place.x,
                                             150.0 - 10.0 * static_cast<f64>(y[i]) - place.y));
      const auto found = nearest_sample(graph.shown(), layout, layout.curves[0], place, 1000);
      ASSERT_TRUE(found);
      ASSERT_LE(found->distance, std::max(least + 1e-9, 0.5));
    }
  }

  GraphSurface graph{1};
  GraphLayout layout = hand_layout();
};

TEST_F(NearestSampleTest, TellsSamplePlaceAndDistance) {
  const auto found = nearest_sample(graph.shown(), layout, layout.curves[0], {203, 54}, 10);
  ASSERT_TRUE(found);
  EXPECT_EQ(found->point, 1U);
  EXPECT_DOUBLE_EQ(found->place.x, 200);
  EXPECT_DOUBLE_EQ(found->place.y, 50);
  EXPECT_DOUBLE_EQ(found->distance, 5);
}

TEST_F(NearestSampleTest, NothingBeyondTheReach) {
  EXPECT_FALSE(nearest_sample(graph.shown(), layout, layout.curves[0], {203, 54}, 4.9));
}

TEST_F(NearestSampleTest, AlongXOnlyTheColumnCounts) {
  const auto found =
      nearest_sample(graph.shown(), layout, layout.curves[0], {251, 50}, 1000, Nearness::AlongX);
  ASSERT_TRUE(found);
  EXPECT_EQ(found->point, 2U);
}

TEST_F(NearestSampleTest, AGapIsNeverNearest) {
  const auto found = nearest_sample(graph.shown(), layout, layout.curves[0], {400, 100}, 1000);
  ASSERT_TRUE(found);
  EXPECT_EQ(found->point, 2U);
}

TEST_F(NearestSampleTest, OnlyCurvesOfTheLayerUnderThePointerCount) {
  const auto found = nearest_sample_in_layer(graph.shown(), layout, {200, 180}, 1000);
  ASSERT_TRUE(found);
  EXPECT_EQ(found->subset, 1U);
  EXPECT_FALSE(nearest_sample_in_layer(graph.shown(), layout, {200, 160}, 1000));
}

TEST_F(NearestSampleTest, RisingCurvesAgreeWithTheSearchThroughAll) {
  expect_nearest_of_random_curve(true);
}

TEST_F(NearestSampleTest, WanderingCurvesAgreeWithTheSearchThroughAll) {
  expect_nearest_of_random_curve(false);
}

TEST_F(NearestSampleTest, NextSamplePassesGapsAndStopsAtTheEnds) {
  set_curves(graph.pending, 6, {0, 1, 2, 3, 4, 5}, {1, -1000000, -1000000, 2, 3, -1000000});
  PEactions(graph, kTakeOverAndRedraw);
  EXPECT_EQ(next_sample(graph.shown(), 0, 0, true), 3U);
  EXPECT_EQ(next_sample(graph.shown(), 0, 3, false), 0U);
  EXPECT_EQ(next_sample(graph.shown(), 0, 4, true), std::nullopt);
  EXPECT_EQ(next_sample(graph.shown(), 0, 0, false), std::nullopt);
  EXPECT_EQ(next_sample(graph.shown(), 0, 1000, false), 4U);
  EXPECT_EQ(next_sample(graph.shown(), 9, 0, true), std::nullopt);
}

TEST_F(NearestSampleTest, APointThatIsNotDrawnHasNoPlace) {
  EXPECT_TRUE(place_of_sample(graph.shown(), layout, layout.curves[0], 2));
  EXPECT_FALSE(place_of_sample(graph.shown(), layout, layout.curves[0], 3));
  EXPECT_FALSE(place_of_sample(graph.shown(), layout, layout.curves[0], 4));
  EXPECT_FALSE(place_of_sample(graph.shown(), layout, {7, 0}, 0));
}

}  // namespace
}  // namespace trendaro
