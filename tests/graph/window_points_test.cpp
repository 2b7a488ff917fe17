#include "graph/window_points.h"

#include <algorithm>
#include <cmath>
#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "graph/curve_outline.h"
#include "support/graph_data.h"

namespace trendaro {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

constexpr f32 kNull = -1000000;
constexpr f32 kNaN = std::numeric_limits<f32>::quiet_NaN();
constexpr PointKind kKind{.single_x = true, .null_x = kNull, .null_y = kNull};
constexpr TimeLine kCounted{.step = 1, .start = 0};

using Points = std::vector<std::pair<std::size_t, f32>>;

Points points_of(const PictureWindow& window, const std::vector<f32>& heights,
                 const TimeLine& line = kCounted, std::size_t run = 3) {
  WindowPoints points(window, line, kKind);
  for (std::size_t first = 0; first < heights.size(); first += run)
    points.add(std::span(heights).subspan(first, std::min(run, heights.size() - first)));
  Points pairs;
  for (const auto& point : points.finish()) pairs.emplace_back(point.sample, point.y);
  return pairs;
}

TEST(WindowPointsTest, SamplesBetweenTheEdgesAreAllKeptWithOneAtEachSide) {
  const PictureWindow window{.edges = {3, 6}, .most_samples = 10};
  EXPECT_THAT(points_of(window, {5, 5, 5, 1, 2, 3, 7, 7}),
              ElementsAre(Pair(0, 5), Pair(1, 5), Pair(2, 5), Pair(3, 1), Pair(4, 2), Pair(5, 3), Pair(6, 7),
                          Pair(7, 7)));
}

TEST(WindowPointsTest, OutsideTheExtremesAndTheNeighboursAreKept) {
  const PictureWindow window{.edges = {6, 8}, .most_samples = 10};
  EXPECT_THAT(points_of(window, {5, 9, 4, 0, 9, 5, 1, 2, 6, 5, 8, -3, 8, 7}),
              ElementsAre(Pair(0, 5), Pair(1, 9), Pair(3, 0), Pair(5, 5), Pair(6, 1), Pair(7, 2), Pair(8, 6),
                          Pair(10, 8), Pair(11, -3), Pair(13, 7)));
}

TEST(WindowPointsTest, OfMoreSamplesBetweenTwoEdgesTheExtremesStay) {
  const PictureWindow window{.edges = {0, 6, 12}, .most_samples = 4};
  WindowPoints points(window, kCounted, kKind);
  EXPECT_FALSE(points.thinned());
  EXPECT_THAT(points_of(window, {3, 8, 1, 8, 1, 2, 4, 4, 4, 4, 4, 4}),
              ElementsAre(Pair(0, 3), Pair(1, 8), Pair(2, 1), Pair(5, 2), Pair(6, 4), Pair(11, 4)));
}

TEST(WindowPointsTest, ThinningIsToldOfThePictureAlone) {
  const PictureWindow window{.edges = {10, 15}, .most_samples = 5};
  const std::vector<f32> heights(30, 1);
  WindowPoints all_kept(window, kCounted, kKind);
  all_kept.add(heights);
  EXPECT_EQ(all_kept.finish().size(), 9U);
  EXPECT_FALSE(all_kept.thinned());
  const PictureWindow narrow{.edges = {10, 15}, .most_samples = 4};
  WindowPoints thinned(narrow, kCounted, kKind);
  thinned.add(heights);
  EXPECT_EQ(thinned.finish().size(), 6U);
  EXPECT_TRUE(thinned.thinned());
  EXPECT_EQ(thinned.samples(), 30U);
}

TEST(WindowPointsTest, GapsAtTheEndsOfAThinnedPartStay) {
  const PictureWindow window{.edges = {2, 10}, .most_samples = 4};
  // The gap at 2 lies ahead of the first drawn sample of the part, and so belongs to the one before.
  EXPECT_THAT(points_of(window, {1, 1, kNull, 3, 9, kNull, 0, 5, kNull, kNull, 2}),
              ElementsAre(Pair(0, 1), Pair(1, 1), Pair(2, kNull), Pair(3, 3), Pair(4, 9), Pair(6, 0),
                          Pair(7, 5), Pair(9, kNull), Pair(10, 2)));
}

TEST(WindowPointsTest, APartOfGapsAloneLeavesOne) {
  const PictureWindow window{.edges = {-1e9, 6}, .most_samples = 4};
  const Points points = points_of(window, {kNull, kNaN, kNull, kNull, kNull, kNull, 1});
  ASSERT_EQ(points.size(), 3U);
  EXPECT_THAT(points.front(), Pair(0, kNull));
  EXPECT_THAT(points[1], Pair(5, kNull));
}

TEST(WindowPointsTest, WithoutEdgesAndWithoutARisingXEverySampleIsKept) {
  const std::vector<f32> heights(100, 1);
  EXPECT_EQ(points_of({}, heights).size(), 100U);
  const PictureWindow window{.edges = {3, 6}, .most_samples = 2};
  EXPECT_EQ(points_of(window, heights, {.step = -1, .start = 50}).size(), 100U);
  EXPECT_THAT(points_of(window, heights, {.step = std::nan(""), .start = 0}), IsEmpty());
  EXPECT_THAT(points_of(window, {}), IsEmpty());
}

TEST(WindowPointsTest, ALongCurveKeepsFewSamples) {
  PictureWindow window{.edges = {}, .most_samples = kMostOfColumn};
  for (int edge = 0; edge <= 100; ++edge) window.edges.push_back(edge * 10000.0);
  std::vector<f32> heights(1'000'000);
  for (std::size_t i = 0; i < heights.size(); ++i) heights[i] = static_cast<f32>(i * 7919 % 10007);
  EXPECT_LE(points_of(window, heights, kCounted, 131072).size(), 400U);
}

// The graph of a curve of which the points of `kept` are there, or all samples.
GraphProperties graph_of(const std::vector<f32>& heights, const TimeLine& line, const Points* kept) {
  std::vector<f32> x, y;
  for (std::size_t i = 0; i < (kept != nullptr ? kept->size() : heights.size()); ++i) {
    x.push_back(static_cast<f32>(line.at(kept != nullptr ? (*kept)[i].first : i)));
    y.push_back(kept != nullptr ? (*kept)[i].second : heights[i]);
  }
  if (y.empty()) {
    x = {0};
    y = {kNull};
  }
  GraphProperties graph;
  graph.NullDataValue = graph.NullDataValueX = kNull;
  set_curves(graph, static_cast<i32>(y.size()), x, y);
  graph.curve_index = build_curve_index(graph);
  return graph;
}

std::vector<f32> random_heights(std::mt19937& random) {
  std::vector<f32> heights(1 + random() % 3000);
  const auto values = 1 + random() % 40;
  for (f32& y : heights) y = static_cast<f32>(random() % values);
  for (auto gaps = random() % 5; gaps > 0; --gaps) {
    constexpr f32 kGaps[] = {kNull, kNaN, std::numeric_limits<f32>::infinity()};
    const std::size_t first = random() % heights.size();
    const std::size_t last = std::min(heights.size(), first + random() % 200);
    std::fill(heights.begin() + static_cast<std::ptrdiff_t>(first),
              heights.begin() + static_cast<std::ptrdiff_t>(last), kGaps[random() % 3]);
  }
  if (random() % 4 == 0)
    for (f32& y : heights)
      if (random() % 3 == 0) y = kNull;
  return heights;
}

void expect_same_picture(const GraphProperties& all, const GraphProperties& kept, const AxisScale& x_scale,
                         const PixelRectangle& area) {
  ASSERT_EQ(kept.curve_index->curves.empty(), all.curve_index->curves.empty());
  EXPECT_EQ(kept.curve_index->curves[0].whole, all.curve_index->curves[0].whole);
  AxisScale y_scale = make_scale(-1, 41, 1);
  y_scale.first = area.bottom();
  y_scale.last = area.y;
  const auto outline_of = [&](const GraphProperties& graph) {
    return curve_outline(curve_samples(graph, 0), x_scale, y_scale, area);
  };
  const CurveOutline whole = outline_of(all), few = outline_of(kept);
  EXPECT_EQ(few.starts, whole.starts);
  ASSERT_EQ(few.points.size(), whole.points.size());
  for (std::size_t i = 0; i < whole.points.size(); ++i) {
    EXPECT_EQ(few.points[i].x, whole.points[i].x);
    EXPECT_EQ(few.points[i].y, whole.points[i].y);
  }
}

TEST(WindowPointsTest, RandomCurvesGiveThePictureOfAllSamples) {
  std::mt19937 random(71);
  for (int round = 0; round < 1500 && !testing::Test::HasFailure(); ++round) {
    const std::vector<f32> heights = random_heights(random);
    const TimeLine line{.step = 0.25 * static_cast<f64>(1 + random() % 5),
                        .start = static_cast<f64>(random() % 100) - 50};
    const f64 span = line.step * static_cast<f64>(heights.size());
    const f64 low = line.start + span * (static_cast<f64>(random() % 140) / 100 - 0.2);
    const f64 high = low + span * static_cast<f64>(1 + random() % 100) / 100;
    const PixelRectangle area{7, 3, static_cast<f64>(10 + random() % 300), 50};
    AxisScale x_scale = make_scale(low, high, 1);
    x_scale.first = area.x;
    x_scale.last = area.right();
    const PictureWindow columns{.edges = column_edges(x_scale, area, 1, false),
                                .most_samples = kMostOfColumn};
    const PictureWindow whole{.edges = {low - span, columns.edges.back()}, .most_samples = 100000};
    const GraphProperties all = graph_of(heights, line, nullptr);
    for (const PictureWindow& window : {columns, whole}) {
      const Points points = points_of(window, heights, line, 1 + random() % 700);
      SCOPED_TRACE(round);
      expect_same_picture(all, graph_of(heights, line, &points), x_scale, area);
    }
  }
}

}  // namespace
}  // namespace trendaro
