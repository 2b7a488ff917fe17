#include "files/block_reducer.h"

#include <filesystem>

#include <gtest/gtest.h>

#include "files/reducer.h"
#include "support/file_builder.h"
#include "support/reduce_test.h"
#include "support/reducible_files.h"

namespace trendaro {
namespace {

class BlockReducerTest : public ReduceTest {
 protected:
  BlockReducerTest() : ReduceTest("lauf.DAT") {}
};

// The standard file that a block file becomes. Names and units are given without their trailing blanks.
std::string reduced(const BlockFile& file, i32 block, const std::vector<std::vector<f64>>& pairs) {
  FileBuilder expected;
  expected.i16_field(5010).i32_field(0).counted_text(file.file_comment);
  expected.i16_field(static_cast<i16>(file.channels.size())).i32_field(0);
  expected.zeros(4 * file.channels.size()).i32_field(block);
  for (std::size_t i = 0; i < file.channels.size(); ++i) {
    expected.i16_field(static_cast<i16>(i + 1)).i32_field(static_cast<i32>(pairs[i].size()));
    expected.counted_text(file.channels[i].name).counted_text(file.channels[i].unit);
    expected.counted_text(file.channels[i].comment).i16_field(0).i16_field(8);
    expected.i16_field(7).zeros(6);
    expected.i32_field(file.param_length);
    expected.bytes_field(numbered_record(static_cast<std::size_t>(file.param_length)));
    expected.zeros(3 + 2 + 2);
  }
  expected.patch(2, static_cast<i32>(expected.size()));
  for (const auto& values : pairs) expected.values(values);
  return expected.bytes();
}

TEST(ReduceBlockWindowTest, EarlierExtremeStandsFirst) {
  ReducedChannel channel;
  channel.window = {3, 9, -2, 9};
  ReduceBlockWindow(channel, 4);
  channel.window = {1, -4, 6, 6};
  ReduceBlockWindow(channel, 4);
  channel.window = {5, 5, 5, 5};
  ReduceBlockWindow(channel, 4);
  EXPECT_EQ(channel.results, (std::vector<f64>{9, -2, -4, 6, 5, 5}));
  EXPECT_TRUE(channel.window.empty());
}

TEST_F(BlockReducerTest, BecomesAStandardFile) {
  BlockFile file{.channels = {{.name = "Druck", .unit = "bar", .comment = "vorn ", .samples = ramp(40)},
                              {.name = "Weg", .unit = "mm", .comment = "", .samples = ramp(25, -1)}},
                 .block_lengths = {7, 3, 12}};
  EXPECT_EQ(reduce(file.build().bytes(), 10), ReduceStatus::Done);
  // The five values left over in the second channel are dropped.
  EXPECT_EQ(result(), reduced(file, 10, {{0, 9, 10, 19, 20, 29, 30, 39}, {-0.0, -9, -10, -19}}));
}

TEST_F(BlockReducerTest, NamesAndUnitsLoseTheirTrailingBlanks) {
  BlockFile file{.channels = {{.name = " Druck  ", .unit = "bar ", .comment = "c ", .samples = ramp(10)}}};
  EXPECT_EQ(reduce(file.build().bytes(), 10), ReduceStatus::Done);
  file.channels[0].name = " Druck";
  file.channels[0].unit = "bar";
  EXPECT_EQ(result(), reduced(file, 10, {{0, 9}}));
}

TEST_F(BlockReducerTest, OneBlockMayFillSeveralWindows) {
  BlockFile file{.channels = {{.samples = ramp(2049)}}, .block_lengths = {2049}};
  EXPECT_EQ(reduce(file.build().bytes(), 1000), ReduceStatus::Done);
  EXPECT_EQ(result(), reduced(file, 1000, {{0, 999, 1000, 1999}}));
}

TEST_F(BlockReducerTest, ChannelBelowOneWindowHasNoPairs) {
  BlockFile file{.channels = {{.samples = ramp(9)}, {.samples = {}}}};
  EXPECT_EQ(reduce(file.build().bytes(), 10), ReduceStatus::Done);
  EXPECT_EQ(result(), reduced(file, 10, {{}, {}}));
}

TEST_F(BlockReducerTest, RecordsOfAnyLengthAreCarried) {
  BlockFile file{.channels = {{.samples = ramp(10)}}, .param_length = 200};
  EXPECT_EQ(reduce(file.build().bytes(), 10), ReduceStatus::Done);
  EXPECT_EQ(result(), reduced(file, 10, {{0, 9}}));
}

TEST_F(BlockReducerTest, EmptyAndNegativeBlocksArePassedOver) {
  BlockFile file{.channels = {{.samples = {}}, {.samples = {}}}};
  FileBuilder bytes = file.header();
  bytes.i32_field(0).i32_field(6).values(ramp(6));
  bytes.i32_field(-3).i32_field(4).values({6, 7, 8, 9});
  EXPECT_EQ(reduce(bytes.bytes(), 10), ReduceStatus::Done);
  EXPECT_EQ(result(), reduced(file, 10, {{}, {0, 9}}));
}

TEST_F(BlockReducerTest, CutBlockCountsByTheBytesThatAreThere) {
  BlockFile file{.channels = {{.samples = {}}}};
  FileBuilder bytes = file.header();
  bytes.i32_field(30).values(ramp(12));
  EXPECT_EQ(reduce(bytes.bytes(), 6), ReduceStatus::Done);
  EXPECT_EQ(result(), reduced(file, 6, {{0, 5, 6, 11}}));
  bytes.bytes_field("\x01\x02");  // less than half a value
  EXPECT_EQ(reduce(bytes.bytes(), 6), ReduceStatus::Done);
  EXPECT_EQ(result(), reduced(file, 6, {{0, 5, 6, 11}}));
}

TEST_F(BlockReducerTest, ValueCutBehindItsHalfTakesTheRestFromTheBlockBefore) {
  BlockFile file{.channels = {{.samples = {}}}};
  FileBuilder bytes = file.header();
  bytes.i32_field(2).values({1, 1.0 / 3}).i32_field(2).f64_field(2);
  f64 other = 2.0 / 3;
  bytes.bytes_field({reinterpret_cast<const char*>(&other), 5});
  f64 mixed = 1.0 / 3;
  std::memcpy(&mixed, &other, 5);
  EXPECT_EQ(reduce(bytes.bytes(), 4), ReduceStatus::Done);
  // Between 0.33 and 0.34 is the least of the four; it came second or last.
  const bool last_is_least = mixed < 1.0 / 3;
  EXPECT_EQ(result(),
            reduced(file, 4, {last_is_least ? std::vector<f64>{2, mixed} : std::vector<f64>{1.0 / 3, 2}}));
}

TEST_F(BlockReducerTest, HalfAValueCountsOnlyBehindAnOddNumber) {
  BlockFile file{.channels = {{.samples = {}}}};
  const auto with_half_behind = [&](const std::vector<f64>& whole) {
    return file.header().i32_field(9).values(whole).zeros(4).bytes();
  };
  EXPECT_EQ(reduce(with_half_behind({5}), 2), ReduceStatus::Done);
  EXPECT_EQ(result(), reduced(file, 2, {{5, 0}}));
  EXPECT_EQ(reduce(with_half_behind({5, 6}), 2), ReduceStatus::Done);
  EXPECT_EQ(result(), reduced(file, 2, {{5, 6}}));
  std::filesystem::remove(target());
  EXPECT_EQ(reduce(with_half_behind({5, 6}), 3), ReduceStatus::Done);
  EXPECT_EQ(result(), reduced(file, 3, {{}}));
}

TEST_F(BlockReducerTest, BlockBeyondTheBufferFails) {
  BlockFile file{.channels = {{.samples = ramp(2050)}}, .block_lengths = {2050}};
  EXPECT_EQ(reduce(file.build().bytes(), 10), ReduceStatus::Failed);
}

TEST_F(BlockReducerTest, HeaderBeyondThePositionTableFails) {
  BlockFile file{.file_comment = "", .channels = {{.comment = std::string(32600, 'k')}, {}}};
  EXPECT_EQ(reduce(file.build().bytes(), 10), ReduceStatus::Failed);
  file.channels[0].comment.resize(32000);
  EXPECT_EQ(reduce(file.build().bytes(), 10), ReduceStatus::Done);
}

TEST_F(BlockReducerTest, NoChannelsGiveAnEmptyFile) {
  BlockFile file{.channels = {}};
  EXPECT_EQ(reduce(file.build().zeros(64).bytes(), 10), ReduceStatus::Done);
  EXPECT_EQ(result(), reduced(file, 10, {}));
}

TEST_F(BlockReducerTest, ClaimedNumbersBeyondTheFileFail) {
  const BlockFile file{.channels = {{.samples = ramp(20)}}};
  for (const i32 count : {-1, 32767, 32768, 2147483647})
    EXPECT_EQ(reduce(file.build().patch(4, count).bytes(), 10), ReduceStatus::Failed) << count;
  EXPECT_EQ(reduce(file.build().patch(8, i32{-1}).bytes(), 10), ReduceStatus::Failed);
}

TEST_F(BlockReducerTest, SourceCutAtAnyByteFailsInTheHeaderAndEndsInTheData) {
  const BlockFile file{.channels = {{.samples = ramp(20)}, {.samples = ramp(20)}}, .block_lengths = {5}};
  const std::string bytes = file.build().bytes();
  const std::size_t header = file.header().size();
  for (std::size_t length = 2; length <= bytes.size(); ++length)
    EXPECT_EQ(reduce(bytes.substr(0, length), 10),
              length < header ? ReduceStatus::Failed : ReduceStatus::Done)
        << "cut at " << length;
}

TEST_F(BlockReducerTest, SourceThatShrinksWhileReadFails) {
  write_file(source(), BlockFile{.channels = {{.samples = ramp(400000)}}}.build().bytes());
  const auto cut = [&](f64) { std::filesystem::resize_file(source(), 400000); };
  EXPECT_EQ(ReduceStandardFile(source(), target(), 10, cut), ReduceStatus::Failed);
}

}  // namespace
}  // namespace trendaro
