#include "graph/compress_curve.h"

#include <algorithm>
#include <cmath>
#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/model.h"
#include "support/odd_curve.h"
#include "support/recording_shell.h"

namespace trendaro {
namespace {

using testing::Each;
using testing::ElementsAre;

constexpr f32 kNull = -1000000;

struct Points {
  std::vector<f32> y;
  std::vector<f64> x;

  friend bool operator==(const Points&, const Points&) = default;
};

class CompressCurveTest : public testing::Test {
 protected:
  RecordingShell shell;
  Model model{shell};

  CompressCurveTest() { model.Plots.push_back({}); }

  // On a date axis, so that x is seen in full precision.
  static DrawArrays one_slot(std::size_t length) {
    return make_draw_arrays(1, static_cast<i32>(length), {.database = false, .date_axis = true}, 0);
  }
  static Points points_in(DrawArrays& arrays) {
    fill_rest(arrays);
    return {{arrays.DrawY.begin(), arrays.DrawY.end()}, {arrays.DrawXII.begin(), arrays.DrawXII.end()}};
  }

  Points compress(const PlainCurve& samples, i32 factor, std::size_t slot_length, i16 sign = 1) {
    DrawArrays arrays = one_slot(slot_length);
    CompressCurve(model, samples, factor, slot_of(arrays, 0), 1, sign);
    return points_in(arrays);
  }
  Points compress(const std::vector<f64>& y, i32 factor, std::size_t slot_length, i16 sign = 1) {
    return compress({.y = y, .x = nullptr, .line = {.step = 1, .start = 0}}, factor, slot_length, sign);
  }
  void zoom(f64 low, f64 high) {
    model.Zoomed = true;
    model.ZoomScaleLimits[0] = {low, high, 0, 0};
  }

  // Of samples half a unit apart: 0 no zoom, 1 a window without a sample, 2 with one, 3 with all, 4 any.
  void choose_window(int kind, const std::vector<f64>& x, std::mt19937& random) {
    const f64 place = x[random() % x.size()];
    model.Zoomed = false;
    if (kind == 1) zoom(place + 0.1, place + 0.4);
    if (kind == 2) zoom(place - 0.1, place + 0.1);
    if (kind == 3) zoom(x.front() - 1, x.back() + 1);
    if (kind == 4) zoom(place, place + static_cast<f64>(random() % 10000));
  }

  // The same from samples that pass in runs.
  Points pass(const std::vector<f64>& y, const TimeLine& line, i32 factor, std::size_t slot_length, i16 sign,
              std::size_t run) {
    PairStream stream(factor, y.size(), slot_length);
    const std::span<const f64> all = y;
    for (std::size_t i = 0; i < y.size(); i += run) stream.add(all.subspan(i, std::min(run, y.size() - i)));
    DrawArrays arrays = one_slot(slot_length);
    write_pair_points(model, stream, line, slot_of(arrays, 0), 1, sign);
    return points_in(arrays);
  }

  // The same by a plain walk over marked samples, with every value kept at hand.
  [[nodiscard]] Points plainly(const std::vector<f64>& y, const std::vector<f64>& x, i32 factor,
                               std::size_t slot_length, i16 sign) const {
    const std::size_t n = y.size();
    std::vector<bool> in_view(n, true);
    std::size_t viewed = n;
    if (model.Zoomed) {
      viewed = 0;
      for (std::size_t i = 0; i < n; ++i) {
        in_view[i] = x[i] > model.ZoomScaleLimits[0][0] && x[i] < model.ZoomScaleLimits[0][1];
        if (in_view[i]) ++viewed;
      }
    }
    i64 block = 2 * std::max(factor, 1);
    if (model.Zoomed && n > 0)
      block = std::lrint(static_cast<f64>(viewed) / static_cast<f64>(n) * static_cast<f64>(block));
    Points points;
    const auto put = [&](std::size_t i) {
      points.y.push_back(static_cast<f32>((y[i] + model.Plots[1].YOffset) * sign));
      points.x.push_back(x[i] + model.Plots[1].XOffset);
    };
    std::vector<std::size_t> open;
    for (std::size_t i = 0; i < n; ++i) {
      if (!in_view[i]) continue;
      if (block <= 2) {
        put(i);
        continue;
      }
      open.push_back(i);
      if (open.size() < static_cast<std::size_t>(block)) continue;
      std::size_t low = open[0], high = open[0];
      for (const std::size_t j : open) {
        if (y[j] > y[high]) high = j;
        if (y[j] < y[low]) low = j;
      }
      put(high > low ? low : high);
      put(high > low ? high : low);
      open.clear();
    }
    points.y.resize(slot_length, kNull);
    points.x.resize(slot_length, kNull);
    return points;
  }
};

void expect_same(const Points& found, const Points& expected, int round) {
  ASSERT_EQ(found.x, expected.x) << "round " << round;
  ASSERT_EQ(found.y.size(), expected.y.size());
  for (std::size_t i = 0; i < expected.y.size(); ++i)
    ASSERT_TRUE(found.y[i] == expected.y[i] || (std::isnan(found.y[i]) && std::isnan(expected.y[i])))
        << "round " << round << ", point " << i;
}

TEST_F(CompressCurveTest, RisingBlockGivesMinimumFirstAFallingOneMaximumFirst) {
  const Points points = compress({1, 2, 3, 4, 8, 7, 6, 5}, 2, 4);
  EXPECT_THAT(points.y, ElementsAre(1, 4, 8, 5));
  EXPECT_THAT(points.x, ElementsAre(0, 3, 4, 7));
}

TEST_F(CompressCurveTest, FlatBlockGivesItsFirstSampleTwice) {
  const Points points = compress({5, 5, 5, 5}, 2, 2);
  EXPECT_THAT(points.y, ElementsAre(5, 5));
  EXPECT_THAT(points.x, ElementsAre(0, 0));
}

TEST_F(CompressCurveTest, FirstOfEqualExtremesStays) {
  const Points points = compress({2, 9, 1, 9, 1, 2}, 3, 2);
  EXPECT_THAT(points.y, ElementsAre(9, 1));
  EXPECT_THAT(points.x, ElementsAre(1, 2));
}

TEST_F(CompressCurveTest, FactorOfOneCopiesEachSample) {
  const Points points = compress({3, 1, 2}, 1, 4);
  EXPECT_THAT(points.y, ElementsAre(3, 1, 2, kNull));
  EXPECT_THAT(points.x, ElementsAre(0, 1, 2, kNull));
  EXPECT_EQ(compress({3, 1, 2}, 0, 4), points);
}

TEST_F(CompressCurveTest, BlockThatDoesNotFillUpIsDropped) {
  const Points points = compress({1, 2, 3, 4, 99, 98, 97}, 2, 4);
  EXPECT_THAT(points.y, ElementsAre(1, 4, kNull, kNull));
  EXPECT_THAT(points.x, ElementsAre(0, 3, kNull, kNull));
}

TEST_F(CompressCurveTest, OffsetsAndSignApplyToEachPoint) {
  model.Plots[1].YOffset = 0.5;
  model.Plots[1].XOffset = 100;
  const Points points = compress({1, 2, 3, 4}, 2, 2, -1);
  EXPECT_THAT(points.y, ElementsAre(-1.5f, -4.5f));
  EXPECT_THAT(points.x, ElementsAre(100, 103));
}

TEST_F(CompressCurveTest, SamplesOnTheLimitsAreOutsideOfTheWindow) {
  zoom(2, 5);
  const Points points = compress({0, 1, 2, 3, 4, 5, 6, 7}, 1, 4);
  EXPECT_THAT(points.y, ElementsAre(3, 4, kNull, kNull));
}

TEST_F(CompressCurveTest, NarrowWindowShowsEachSample) {
  std::vector<f64> samples(1000);
  for (std::size_t i = 0; i < samples.size(); ++i) samples[i] = static_cast<f64>(i % 7);
  zoom(99.5, 103.5);
  const Points points = compress(samples, 100, 6);
  EXPECT_THAT(points.x, ElementsAre(100, 101, 102, 103, kNull, kNull));
  EXPECT_THAT(points.y, ElementsAre(2, 3, 4, 5, kNull, kNull));
}

TEST_F(CompressCurveTest, EmptyWindowGivesNullValues) {
  zoom(2.1, 2.9);
  EXPECT_THAT(compress({0, 1, 2, 3, 4}, 10, 3).y, Each(kNull));
}

TEST_F(CompressCurveTest, ZoomHoldsTheAxesOnTheWindow) {
  zoom(2, 5);
  model.ZoomScaleLimits[1] = {10, 20, 30, 40};
  model.ZoomScaleLimits[2] = {50, 60, 70, 80};
  model.FirstLayer = 1;
  GraphProperties& graph = model.PESG.pending;
  graph.ManualScaleControlX = 1;
  graph.AllowZooming = 2;
  compress({0, 1}, 1, 2);
  EXPECT_EQ(graph.ManualScaleControlX, 3);
  EXPECT_EQ(graph.ManualMinX, 2);
  EXPECT_EQ(graph.ManualMaxX, 5);
  // Two layers are on show and are counted from the first of them.
  EXPECT_EQ(graph.layers[0].ManualScaleControlY, 3);
  EXPECT_EQ(graph.layers[0].ManualMinY, 10);
  EXPECT_EQ(graph.layers[0].ManualMaxRY, 40);
  EXPECT_EQ(graph.layers[1].ManualMaxY, 60);
  EXPECT_EQ(graph.layers[1].ManualMinRY, 70);
  EXPECT_EQ(graph.layers[2].ManualScaleControlY, 0);
}

TEST_F(CompressCurveTest, HorizontalZoomLeavesTheScalesAlone) {
  zoom(2, 5);
  model.PESG.pending.AllowZooming = 1;
  compress({0, 1}, 1, 2);
  EXPECT_EQ(model.PESG.pending.ManualScaleControlX, 0);
  EXPECT_EQ(model.PESG.pending.layers[0].ManualScaleControlY, 0);
}

TEST_F(CompressCurveTest, RandomCurvesEqualAPlainWalk) {
  std::mt19937 random(11);
  for (int round = 0; round < 400; ++round) {
    const std::size_t n = random() % 300;
    std::vector<f64> y(n), x(n);
    for (f64& value : y) value = static_cast<f64>(random() % 20);
    if (n > 0 && round % 7 == 0) y[random() % n] = std::nan("");
    const TimeLine line{.step = round % 3 == 0 ? 0.25 : 2, .start = 5};
    const bool channel = round % 2 == 0;
    for (std::size_t i = 0; i < n; ++i) x[i] = channel ? static_cast<f64>(random() % 100) : line.at(i);
    model.Zoomed = random() % 2 == 0;
    const f64 low = static_cast<f64>(random() % 100);
    model.ZoomScaleLimits[0] = {low, low + static_cast<f64>(random() % 100), 0, 0};
    model.Plots[1].YOffset = static_cast<f32>(random() % 3);
    model.Plots[1].XOffset = static_cast<f64>(random() % 3);
    const i32 factor = static_cast<i32>(random() % 12);
    const i16 sign = random() % 2 == 0 ? i16{1} : i16{-1};
    const std::size_t slot = random() % 400;
    const std::span<const f64> places = x;
    const PlainCurve samples{.y = y, .x = channel ? &places : nullptr, .line = line};
    expect_same(compress(samples, factor, slot, sign), plainly(y, x, factor, slot, sign), round);
  }
}

// Long enough that blocks are looked through with vectors, looked up in an index, and come in runs. The
// windows hold no sample, one, all and any number of them.
TEST_F(CompressCurveTest, LongOddCurvesEqualAPlainWalkInAnyWindow) {
  std::mt19937 random(12);
  for (int round = 0; round < 100; ++round) {
    const std::size_t n = 1 + random() % 20000;
    const std::vector<f64> y = odd_curve(random, n);
    const TimeLine line{.step = 0.5, .start = -100};
    std::vector<f64> x(n);
    for (std::size_t i = 0; i < n; ++i) x[i] = line.at(i);
    choose_window(round % 5, x, random);
    const i32 factor = static_cast<i32>(2 + random() % 3000);
    const std::size_t slot = random() % 200;
    const auto index = build_sample_index(y);
    const Points expected = plainly(y, x, factor, slot, -1);
    expect_same(compress(PlainCurve{.y = y, .x = nullptr, .line = line}, factor, slot, -1), expected, round);
    expect_same(
        compress(PlainCurve{.y = y, .x = nullptr, .line = line, .index = index.get()}, factor, slot, -1),
        expected, round);
    if (!model.Zoomed) expect_same(pass(y, line, factor, slot, -1, 1 + random() % 3000), expected, round);
    std::ranges::shuffle(x, random);
    const std::span<const f64> channel = x;
    expect_same(compress(PlainCurve{.y = y, .x = &channel, .line = line}, factor, slot, -1),
                plainly(y, x, factor, slot, -1), round);
  }
}

}  // namespace
}  // namespace trendaro
