#include "graph/sample_search.h"

#include <bit>
#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "support/odd_curve.h"

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

// Places, and values to the last bit, so that a zero keeps its sign.
void expect_plain(const SampleExtremes& found, std::span<const f64> samples, std::size_t first,
                  std::size_t last) {
  const SampleExtremes expected = plain_extremes(samples, first, last);
  ASSERT_EQ(found.least, expected.least) << first << " to " << last;
  ASSERT_EQ(found.greatest, expected.greatest) << first << " to " << last;
  const auto bits = [](f64 value) { return std::bit_cast<u64>(value); };
  ASSERT_EQ(bits(found.least_value), bits(samples[found.least])) << first << " to " << last;
  ASSERT_EQ(bits(found.greatest_value), bits(samples[found.greatest])) << first << " to " << last;
}

void expect_plain_runs(std::span<const f64> samples, std::span<const std::size_t> stops) {
  const auto index = build_sample_index(samples);
  const std::vector<SampleExtremes> found = sample_extremes_of_runs(samples, *index, stops);
  ASSERT_EQ(found.size(), stops.size() - 1);
  for (std::size_t run = 0; run < found.size(); ++run)
    ASSERT_NO_FATAL_FAILURE(expect_plain(found[run], samples, stops[run], stops[run + 1])) << "run " << run;
}

TEST(SampleSearchTest, AnyStretchGivesWhatAPlainWalkGives) {
  std::mt19937 random(7);
  for (int round = 0; round < 60; ++round) {
    const std::vector<f64> samples = odd_curve(random, 1 + random() % 70000);
    const auto index = build_sample_index(samples);
    for (int query = 0; query < 40; ++query) {
      const std::size_t first = random() % samples.size();
      const std::size_t last = first + 1 + random() % (samples.size() - first);
      ASSERT_NO_FATAL_FAILURE(
          expect_plain(find_sample_extremes(samples, *index, first, last), samples, first, last))
          << "round " << round;
    }
  }
}

TEST(SampleSearchTest, EveryStretchOfAShortCurveGivesWhatAPlainWalkGives) {
  std::mt19937 random(9);
  const std::vector<f64> samples = odd_curve(random, 260);
  const auto index = build_sample_index(samples);
  for (std::size_t first = 0; first < samples.size(); ++first)
    for (std::size_t last = first + 1; last <= samples.size(); ++last)
      ASSERT_NO_FATAL_FAILURE(
          expect_plain(find_sample_extremes(samples, *index, first, last), samples, first, last));
}

TEST(SampleSearchTest, RunsThatFollowEachOtherGiveWhatAPlainWalkGives) {
  std::mt19937 random(9);
  for (int round = 0; round < 300; ++round) {
    const std::vector<f64> samples = odd_curve(random, 2 + random() % (round % 10 == 0 ? 30000 : 3000));
    const std::size_t block = 1 + random() % (samples.size() / (1 + random() % 100) + 1);
    std::vector<std::size_t> stops;
    for (std::size_t stop = random() % samples.size(); stop <= samples.size() && stops.size() < 100;
         stop += block)
      stops.push_back(stop);
    ASSERT_NO_FATAL_FAILURE(expect_plain_runs(samples, stops)) << "round " << round;
  }
}

// The extremes of the runs lie anywhere, also in the blocks of their ends.
TEST(SampleSearchTest, RunsOfACurveThatWandersGiveWhatAPlainWalkGives) {
  std::mt19937 random(11);
  for (int round = 0; round < 100; ++round) {
    std::vector<f64> samples(30000);
    f64 height = 0;
    for (f64& sample : samples) sample = height += static_cast<f64>(random() % 3) - 1;
    std::vector<std::size_t> stops;
    for (std::size_t stop = random() % 64; stop <= samples.size(); stop += 128 + random() % 2000)
      stops.push_back(stop);
    ASSERT_NO_FATAL_FAILURE(expect_plain_runs(samples, stops)) << "round " << round;
  }
}

TEST(SampleSearchTest, EqualSamplesInTheBlocksOfBothEndsGiveTheFirstInsideOfTheRun) {
  std::vector<f64> samples(4096, 5);
  samples[70] = samples[100] = samples[2100] = -1;  // the first of them lies ahead of the run
  samples[127] = samples[2105] = 9;
  samples[2110] = 99;  // behind it
  const auto index = build_sample_index(samples);
  const SampleExtremes found = find_sample_extremes(samples, *index, 80, 2108);
  EXPECT_EQ(found.least, 100u);
  EXPECT_EQ(found.greatest, 127u);
}

TEST(SampleSearchTest, RunThatBeginsWithAGapIsThatGap) {
  std::vector<f64> samples(4096, 5);
  samples[10] = kNoNumber;
  samples[11] = kInfinity;
  samples[300] = -2;
  const auto index = build_sample_index(samples);
  EXPECT_EQ(find_sample_extremes(samples, *index, 10, 3000).least, 10u);
  EXPECT_EQ(find_sample_extremes(samples, *index, 10, 3000).greatest, 10u);
  EXPECT_EQ(find_sample_extremes(samples, *index, 9, 3000).least, 300u);
  EXPECT_EQ(find_sample_extremes(samples, *index, 9, 3000).greatest, 11u);
}

TEST(SampleSearchTest, WithoutARunNothingIsFound) {
  const std::vector<f64> samples(100, 1);
  const auto index = build_sample_index(samples);
  EXPECT_TRUE(sample_extremes_of_runs(samples, *index, {}).empty());
  EXPECT_TRUE(sample_extremes_of_runs(samples, *index, std::vector<std::size_t>{100}).empty());
}

}  // namespace
}  // namespace trendaro
