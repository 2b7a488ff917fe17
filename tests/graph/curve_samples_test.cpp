#include "graph/curve_samples.h"

#include <cmath>
#include <random>

#include <gtest/gtest.h>

#include "support/graph_data.h"

namespace trendaro {
namespace {

constexpr f32 kNull = -1000000;

// One sample after the other.
std::size_t plainly_reaching(const CurveSamples& samples, std::size_t from, f64 limit) {
  while (from < samples.count &&
         !(samples.drawn(from) && (samples.falling ? samples.x(from) <= limit : samples.x(from) >= limit)))
    ++from;
  return from;
}

// x that goes one way in steps of very different widths, some of them 0.
std::vector<f32> one_way(std::mt19937& random, std::size_t count) {
  const f32 sign = random() % 2 == 0 ? 1.0F : -1.0F;
  const auto widest = 1 + random() % 1000;
  f32 place = static_cast<f32>(random() % 1000) - 500;
  std::vector<f32> x(count);
  for (f32& value : x) {
    value = place;
    if (random() % 3 != 0) place += sign * static_cast<f32>(random() % widest) / 16;
    if (random() % 500 == 0) place += sign * 4000;
  }
  return x;
}

void expect_plain_walk(std::mt19937& random, const CurveSamples& samples) {
  for (int round = 0; round < 40; ++round) {
    const std::size_t from = random() % (samples.count + 1);
    f64 limit = samples.x(random() % samples.count) + (static_cast<f64>(random() % 5) - 2) / 4;
    if (round == 0) limit = std::nan("");
    if (round == 1) limit = INFINITY;
    if (round == 2) limit = -INFINITY;
    ASSERT_EQ(first_reaching(samples, from, limit), plainly_reaching(samples, from, limit))
        << "from " << from << " to " << limit << " of " << samples.count;
  }
}

TEST(CurveSamplesTest, ALimitIsReachedWhereAPlainWalkReachesIt) {
  std::mt19937 random(23);
  for (int round = 0; round < 300; ++round) {
    std::vector<f32> x = one_way(random, 1 + random() % 5000);
    std::vector<f32> y(x.size(), 1);
    for (auto gap = round % 3 == 0 ? 0 : random() % 6; gap > 0; --gap) {
      const std::size_t begin = random() % x.size();
      const std::size_t end = std::min(x.size(), begin + 1 + random() % 400);
      for (std::size_t i = begin; i < end; ++i) (gap % 2 == 0 ? x : y)[i] = kNull;
    }
    GraphProperties properties;
    set_curves(properties, static_cast<i32>(x.size()), x, y);
    properties.XDataII = std::make_shared<const SampleArray>(x.begin(), x.end());
    properties.UsingXDataII = round % 2 == 0;
    properties.curve_index = build_curve_index(properties);
    const CurveSamples samples = curve_samples(properties, 0);
    if (samples.count == 0) continue;
    ASSERT_TRUE(samples.rising || samples.falling);
    expect_plain_walk(random, samples);
    if (HasFatalFailure()) return;
  }
}

TEST(CurveSamplesTest, ALimitIsReachedFromBehindTheCurveNowhere) {
  GraphProperties properties;
  set_curves(properties, 3, {1, 2, 3}, {1, 1, kNull});
  properties.curve_index = build_curve_index(properties);
  const CurveSamples samples = curve_samples(properties, 0);
  EXPECT_EQ(samples.count, 2U);
  EXPECT_EQ(first_reaching(samples, 0, 3), 2U);
  EXPECT_EQ(first_reaching(samples, 2, 0), 2U);
}

}  // namespace
}  // namespace trendaro
