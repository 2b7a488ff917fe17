#include "graph/sample_index.h"

#include <gtest/gtest.h>

namespace trendaro {
namespace {

TEST(SampleIndexTest, BlocksKnowWhatLiesAroundThemInTheirGroup) {
  std::vector<f64> samples(2048, 1);
  samples[1024 + 5] = 7;           // block 16, the first of the second group
  samples[1024 + 64 * 2 + 3] = 8;  // block 18
  samples[1024 + 64 * 3] = -4;     // block 19
  const auto index = build_sample_index(samples);
  const SampleBlock& block = index->blocks[18];
  EXPECT_EQ(block.at(Stretch::Block, 1024).greatest, 1024u + 64 * 2 + 3);
  EXPECT_EQ(block.at(Stretch::Block, 1024).least, 1024u + 64 * 2);
  EXPECT_EQ(block.at(Stretch::Ahead, 1024).greatest_value, 7);
  EXPECT_EQ(block.at(Stretch::Ahead, 1024).greatest, 1024u + 5);
  EXPECT_EQ(block.at(Stretch::Ahead, 1024).least_value, 1);
  EXPECT_EQ(block.at(Stretch::Behind, 1024).least_value, -4);
  EXPECT_EQ(block.at(Stretch::Behind, 1024).least, 1024u + 64 * 3);
  EXPECT_EQ(block.at(Stretch::Behind, 1024).greatest, 1024u + 64 * 3 + 1);
  EXPECT_GT(index->blocks[16].at(Stretch::Ahead, 1024).least_value,
            index->blocks[16].at(Stretch::Ahead, 1024).greatest_value);
}

TEST(SampleIndexTest, LevelsCoverGroupsAndThenSixteenEntriesEach) {
  std::vector<f64> samples(1024 * 16 * 17 + 1, 1);
  samples.back() = 9;
  const auto index = build_sample_index(samples);
  EXPECT_EQ(index->blocks.size(), 16u * 16 * 17 + 1);
  ASSERT_EQ(index->levels.size(), 3u);
  EXPECT_EQ(index->levels[0].size(), 16u * 17 + 1);
  EXPECT_EQ(index->levels[1].size(), 18u);
  EXPECT_EQ(index->levels[2].size(), 2u);
  EXPECT_EQ(index->levels[2][0].greatest_value, 1);
  EXPECT_EQ(index->levels[2][1].greatest_value, 9);
  EXPECT_EQ(index->levels[2][1].greatest, 1024u * 16 * 17);
}

}  // namespace
}  // namespace trendaro
