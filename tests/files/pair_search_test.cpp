#include "files/pair_search.h"

#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include <gtest/gtest.h>

namespace trendaro {
namespace {

constexpr f64 kNan = std::numeric_limits<f64>::quiet_NaN();
constexpr f64 kInfinity = std::numeric_limits<f64>::infinity();

struct Bits {
  u64 first, second;
  friend bool operator==(const Bits&, const Bits&) = default;
};

Bits bits(ValuePair pair) {
  return {std::bit_cast<u64>(pair.first), std::bit_cast<u64>(pair.second)};
}

// Told by indices: the earliest sample that no other undercuts or exceeds, the earlier of the two first.
ValuePair pair_by_indices(const std::vector<f64>& run) {
  if (std::isnan(run[0])) return {run[0], run[0]};
  std::size_t least = 0;
  std::size_t greatest = 0;
  for (std::size_t i = 1; i < run.size(); ++i) {
    if (run[i] < run[least]) least = i;
    if (run[i] > run[greatest]) greatest = i;
  }
  return least > greatest ? ValuePair{run[greatest], run[least]} : ValuePair{run[least], run[greatest]};
}

void expect_pair(const std::vector<f64>& run) {
  const Bits expected = bits(pair_by_indices(run));
  EXPECT_EQ(bits(find_pair_plainly(run)), expected) << "plain, length " << run.size();
  EXPECT_EQ(bits(find_pair(run)), expected) << "length " << run.size();
}

TEST(PairSearchTest, RisingRampGivesMinimumFirst) {
  std::vector<f64> run;
  for (int i = 0; i < 40; ++i) run.push_back(i);
  EXPECT_EQ(bits(find_pair(run)), bits({0, 39}));
}

TEST(PairSearchTest, FallingRampGivesMaximumFirst) {
  std::vector<f64> run;
  for (int i = 0; i < 40; ++i) run.push_back(-i);
  EXPECT_EQ(bits(find_pair(run)), bits({0, -39}));
}

TEST(PairSearchTest, ConstantRunGivesItsValueTwice) {
  EXPECT_EQ(bits(find_pair(std::vector<f64>(33, 2.5))), bits({2.5, 2.5}));
}

TEST(PairSearchTest, SingleValueIsBothExtremes) {
  EXPECT_EQ(bits(find_pair(std::vector<f64>{-7})), bits({-7, -7}));
}

TEST(PairSearchTest, LaterRepetitionOfAnExtremeDoesNotCount) {
  std::vector<f64> run(32, 0.0);
  run[3] = 5;   // the maximum is reached first
  run[9] = -5;  // then the minimum
  run[30] = 5;  // and the maximum once more
  EXPECT_EQ(bits(find_pair(run)), bits({5, -5}));
}

TEST(PairSearchTest, NotANumberAsFirstValueIsTheWholePair) {
  std::vector<f64> run(32, 1.0);
  run[0] = kNan;
  run[5] = 9;
  EXPECT_EQ(bits(find_pair(run)), bits({kNan, kNan}));
}

TEST(PairSearchTest, NotANumberBehindTheFirstValueIsPassedOver) {
  for (std::size_t length : {2U, 5U, 16U, 17U, 35U, 64U})
    for (std::size_t place = 1; place < length; ++place) {
      std::vector<f64> run(length);
      for (std::size_t i = 0; i < length; ++i) run[i] = static_cast<f64>(i);
      run[place] = kNan;
      expect_pair(run);
    }
}

TEST(PairSearchTest, EarliestOfBothZerosCounts) {
  for (std::size_t length : {2U, 16U, 19U, 40U})
    for (std::size_t first = 0; first < length; ++first)
      for (std::size_t second = 0; second < length; ++second)
        for (const f64 other : {1.0, -1.0}) {
          std::vector<f64> run(length, other);
          run[second] = 0.0;
          run[first] = -0.0;
          expect_pair(run);
        }
}

// Few distinct values, so that plateaus, repeated extremes and both zeros meet in every lane.
TEST(PairSearchTest, EveryLengthAgreesWithThePlainLoop) {
  std::mt19937 random(12345);
  const std::vector<f64> values = {0.0, -0.0, 1, -1, 2, kInfinity, -kInfinity, kNan, 5e-324, 1e308};
  for (std::size_t length = 1; length <= 150; ++length)
    for (int round = 0; round < 300; ++round) {
      const std::size_t kinds = 1 + random() % values.size();
      std::vector<f64> run(length);
      for (f64& value : run) value = values[random() % kinds];
      expect_pair(run);
    }
}

TEST(PairSearchTest, SmoothCurvesAgreeWithThePlainLoop) {
  std::mt19937 random(54321);
  std::normal_distribution<f64> step;
  for (int round = 0; round < 300; ++round) {
    std::vector<f64> run(1 + random() % 15000);
    f64 level = 0;
    for (f64& value : run) value = level += step(random);
    expect_pair(run);
  }
}

}  // namespace
}  // namespace trendaro
