#include "graph/sample_index.h"

#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

namespace trendaro {
namespace {

constexpr f64 kInfinity = std::numeric_limits<f64>::infinity();
const f64 kNoNumber = std::nan("");

// One comparison after the other.
SampleExtremes plain_extremes(std::span<const f64> samples, std::size_t first, std::size_t last) {
  SampleExtremes found{.least = first, .greatest = first};
  for (std::size_t i = first; i < last; ++i) {
    if (samples[i] > samples[found.greatest]) found.greatest = i;
    if (samples[i] < samples[found.least]) found.least = i;
  }
  return found;
}

// Curves with what makes extremes hard to find: equal values, plateaus, spikes, gaps and infinities.
std::vector<f64> odd_curve(std::mt19937& random, std::size_t count) {
  std::vector<f64> samples(count);
  const std::size_t levels = 1 + random() % 40;
  for (f64& sample : samples) sample = static_cast<f64>(random() % levels) - 3;
  const auto some_place = [&] { return samples.begin() + static_cast<std::ptrdiff_t>(random() % count); };
  for (auto plateau = random() % 4; plateau > 0; --plateau) {
    const auto begin = some_place();
    const auto length = std::min(samples.end() - begin, static_cast<std::ptrdiff_t>(random() % 3000));
    std::fill(begin, begin + length, static_cast<f64>(random() % levels));
  }
  for (auto spike = random() % 4; spike > 0; --spike) *some_place() = random() % 2 == 0 ? 1e6 : -1e6;
  for (auto gap = random() % 4; gap > 0; --gap) {
    const auto begin = some_place();
    const auto length = std::min(samples.end() - begin, static_cast<std::ptrdiff_t>(random() % 200));
    const f64 values[] = {kNoNumber, kInfinity, -kInfinity, -0.0};
    std::fill(begin, begin + length, values[random() % 4]);
  }
  return samples;
}

TEST(SampleExtremesTest, LongRunsGiveWhatAPlainWalkGives) {
  std::mt19937 random(3);
  for (int round = 0; round < 300; ++round) {
    const std::vector<f64> samples = odd_curve(random, 1 + random() % 5000);
    const std::size_t cut = 1 + random() % samples.size();
    SampleExtremes found = extremes_of(samples[0], 0);
    add_samples(found, std::span(samples).first(cut), 0);
    add_samples(found, std::span(samples).subspan(cut), cut);
    const SampleExtremes expected = plain_extremes(samples, 0, samples.size());
    ASSERT_EQ(found.least, expected.least) << "round " << round;
    ASSERT_EQ(found.greatest, expected.greatest) << "round " << round;
    if (std::isnan(samples[0])) continue;
    ASSERT_EQ(found.least_value, samples[found.least]);
    ASSERT_EQ(found.greatest_value, samples[found.greatest]);
  }
}

TEST(SampleExtremesTest, FirstSampleThatIsNoNumberStaysBoth) {
  const std::vector<f64> samples = {kNoNumber, 1, 5, -2};
  SampleExtremes found = extremes_of(samples[0], 0);
  add_samples(found, samples, 0);
  EXPECT_EQ(found.least, 0u);
  EXPECT_EQ(found.greatest, 0u);
}

TEST(SampleExtremesTest, RangeLeavesOutWhatIsNoNumber) {
  std::vector<f64> samples(100, kNoNumber);
  EXPECT_GT(range_of(samples).low, range_of(samples).high);
  samples[40] = 2;
  samples[97] = -7;
  EXPECT_EQ(range_of(samples).low, -7);
  EXPECT_EQ(range_of(samples).high, 2);
}

TEST(SampleIndexTest, AnyStretchGivesWhatAPlainWalkGives) {
  std::mt19937 random(7);
  for (int round = 0; round < 60; ++round) {
    const std::vector<f64> samples = odd_curve(random, 1 + random() % 70000);
    const auto index = build_sample_index(samples);
    for (int query = 0; query < 40; ++query) {
      const std::size_t first = random() % samples.size();
      const std::size_t last = first + 1 + random() % (samples.size() - first);
      const SampleExtremes found = find_sample_extremes(samples, *index, first, last);
      const SampleExtremes expected = plain_extremes(samples, first, last);
      ASSERT_EQ(found.least, expected.least) << "round " << round << ", " << first << " to " << last;
      ASSERT_EQ(found.greatest, expected.greatest) << "round " << round << ", " << first << " to " << last;
    }
  }
}

TEST(SampleIndexTest, EveryStretchOfAShortCurveGivesWhatAPlainWalkGives) {
  std::mt19937 random(9);
  const std::vector<f64> samples = odd_curve(random, 260);
  const auto index = build_sample_index(samples);
  for (std::size_t first = 0; first < samples.size(); ++first)
    for (std::size_t last = first + 1; last <= samples.size(); ++last) {
      const SampleExtremes found = find_sample_extremes(samples, *index, first, last);
      const SampleExtremes expected = plain_extremes(samples, first, last);
      ASSERT_EQ(found.least, expected.least) << first << " to " << last;
      ASSERT_EQ(found.greatest, expected.greatest) << first << " to " << last;
    }
}

TEST(SampleIndexTest, RunsThatFollowEachOtherGiveWhatAPlainWalkGives) {
  std::mt19937 random(9);
  for (int round = 0; round < 300; ++round) {
    const std::vector<f64> samples = odd_curve(random, 2 + random() % (round % 10 == 0 ? 30000 : 3000));
    const auto index = build_sample_index(samples);
    const std::size_t block = 1 + random() % (samples.size() / (1 + random() % 100) + 1);
    std::vector<std::size_t> stops;
    for (std::size_t stop = random() % samples.size(); stop <= samples.size() && stops.size() < 100;
         stop += block)
      stops.push_back(stop);
    const std::vector<SampleExtremes> found = sample_extremes_of_runs(samples, *index, stops);
    ASSERT_EQ(found.size(), stops.size() - 1);
    for (std::size_t run = 0; run < found.size(); ++run) {
      const SampleExtremes expected = plain_extremes(samples, stops[run], stops[run + 1]);
      ASSERT_EQ(found[run].least, expected.least) << "round " << round << ", run " << run;
      ASSERT_EQ(found[run].greatest, expected.greatest) << "round " << round << ", run " << run;
    }
  }
}

TEST(SampleIndexTest, LevelsCoverSixteenSamplesAndThenSixteenEntriesEach) {
  std::vector<f64> samples(16 * 16 * 17 + 1, 1);
  samples.back() = 9;
  const auto index = build_sample_index(samples);
  ASSERT_EQ(index->levels.size(), 3u);
  EXPECT_EQ(index->levels[0].size(), 16u * 17 + 1);
  EXPECT_EQ(index->levels[1].size(), 18u);
  EXPECT_EQ(index->levels[2].size(), 2u);
  EXPECT_EQ(index->levels[2].at(0).high, 1);
  EXPECT_EQ(index->levels[2].at(1).high, 9);
}

}  // namespace
}  // namespace trendaro
