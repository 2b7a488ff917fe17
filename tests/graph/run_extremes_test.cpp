#include "graph/run_extremes.h"

#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "support/graph_data.h"

namespace trendaro {
namespace {

constexpr f32 kNull = -1000000;

struct Run {
  std::size_t first = 0, last = 0;
};

// One comparison after the other.
std::optional<RunExtremes> plain_extremes(const std::vector<f32>& y, Run run) {
  std::optional<RunExtremes> plain;
  for (std::size_t i = run.first; i < run.last; ++i) {
    if (y[i] == kNull || !std::isfinite(y[i])) continue;
    if (!plain) plain = RunExtremes{i, i, {}, true, i, i};
    if (y[i] < y[plain->lowest]) plain->lowest = i;
    if (y[i] > y[plain->highest]) plain->highest = i;
    plain->last = i;
  }
  if (plain) plain->y = {y[plain->lowest], y[plain->highest]};
  return plain;
}

void expect_equal(const std::optional<RunExtremes>& found, const std::optional<RunExtremes>& plain, Run run) {
  ASSERT_EQ(found.has_value(), plain.has_value()) << run.first << " to " << run.last;
  if (!plain) return;
  ASSERT_EQ(found->first, plain->first) << run.first << " to " << run.last;
  ASSERT_EQ(found->last, plain->last) << run.first << " to " << run.last;
  ASSERT_EQ(found->y, plain->y) << run.first << " to " << run.last;
  if (!found->has_places) return;
  ASSERT_EQ(found->lowest, plain->lowest) << run.first << " to " << run.last;
  ASSERT_EQ(found->highest, plain->highest) << run.first << " to " << run.last;
}

GraphProperties curve_of(const std::vector<f32>& y) {
  std::vector<f32> x(y.size());
  for (std::size_t i = 0; i < x.size(); ++i) x[i] = static_cast<f32>(i);
  GraphProperties properties;
  set_curves(properties, static_cast<i32>(y.size()), x, y);
  properties.curve_index = build_curve_index(properties);
  return properties;
}

// Holds single runs and runs that follow each other against a plain walk.
void expect_plain_walk(std::mt19937& random, const std::vector<f32>& y) {
  const auto properties = curve_of(y);
  const CurveSamples samples = curve_samples(properties, 0);
  if (samples.count == 0) return;
  for (int round = 0; round < 30; ++round) {
    Run run{random() % samples.count, 0};
    run.last = run.first + 1 + random() % (samples.count - run.first);
    if (round % 5 == 0) run.last = samples.count;
    RunExtremes found;
    const bool any = find_extremes(samples, run.first, run.last, found);
    expect_equal(any ? std::optional(found) : std::nullopt, plain_extremes(y, run), run);
  }
  std::vector<std::size_t> stops = {random() % samples.count};
  const std::size_t longest = 1 + random() % (1 + samples.count / (1 + random() % 100));
  while (stops.back() < samples.count && stops.size() < 200)
    stops.push_back(std::min(samples.count, stops.back() + 1 + random() % longest));
  std::size_t used = 0;
  walk_runs(samples, stops,
            {.wants_places = [](const RunExtremes& run) { return run.first % 3 != 0; },
             .use =
                 [&](std::size_t i, const std::optional<RunExtremes>& found) {
                   ASSERT_EQ(i, used++);
                   const Run run{stops[i], stops[i + 1]};
                   expect_equal(found, plain_extremes(y, run), run);
                   ASSERT_TRUE(!found || found->has_places == (found->first % 3 != 0));
                 }});
  ASSERT_EQ(used, stops.size() - 1);
}

TEST(RunExtremesTest, ExtremesAreThoseOfAPlainScanAndTheFirstOfEqualOnes) {
  std::mt19937 random(5);
  std::vector<f32> y(70000);
  for (f32& value : y) value = random() % 9 == 0 ? kNull : static_cast<f32>(random() % 5000);
  for (std::size_t i = 20000; i < 24000; ++i) y[i] = kNull;
  for (int round = 0; round < 17; ++round) expect_plain_walk(random, y);
}

TEST(RunExtremesTest, CurvesOfAllKindsGiveWhatAPlainScanGives) {
  std::mt19937 random(17);
  for (int round = 0; round < 400; ++round) {
    std::vector<f32> y(1 + random() % (round % 10 == 0 ? 40000 : 3000));
    const auto heights = 1 + random() % 40;
    const f32 slope = static_cast<f32>(random() % 3) - 1;
    for (std::size_t i = 0; i < y.size(); ++i)
      y[i] = static_cast<f32>(random() % heights) + slope * static_cast<f32>(i) / 100;
    for (auto gap = random() % 4; gap > 0; --gap) {
      const std::size_t begin = random() % y.size();
      const std::size_t length = std::min<std::size_t>(y.size() - begin, random() % 300);
      constexpr f32 kInfinity = std::numeric_limits<f32>::infinity();
      const f32 gaps[] = {kNull, std::nanf(""), kInfinity, -kInfinity};
      std::fill_n(y.begin() + static_cast<std::ptrdiff_t>(begin), length, gaps[random() % 4]);
    }
    expect_plain_walk(random, y);
    if (HasFatalFailure()) return;
  }
}

TEST(RunExtremesTest, NoStopsAreNoRuns) {
  const auto properties = curve_of({1, 2, 3});
  const CurveSamples samples = curve_samples(properties, 0);
  const RunWalk walk{.wants_places = [](const RunExtremes&) { return true; },
                     .use = [](std::size_t, const auto&) { FAIL(); }};
  walk_runs(samples, {}, walk);
  walk_runs(samples, std::vector<std::size_t>{2}, walk);
}

TEST(RunExtremesTest, ARunBehindTheCurveIsEmpty) {
  const auto properties = curve_of({1, 2, kNull, kNull});
  const CurveSamples samples = curve_samples(properties, 0);
  RunExtremes found;
  EXPECT_FALSE(find_extremes(samples, 2, 4, found));
  EXPECT_TRUE(extent_of_run(samples, 2, 4).empty());
  EXPECT_EQ(extent_of_run(samples, 0, 4), (PointExtent{0, 1, 1, 2}));
}

}  // namespace
}  // namespace trendaro
