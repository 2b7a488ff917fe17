#include "files/block_reader.h"

#include <cmath>
#include <numeric>

#include "support/block_builder.h"
#include "support/load_fixture.h"

namespace trendaro {
namespace {

class BlockReaderTest : public LoadTest {
 protected:
  static std::vector<f64> ramp(f64 first, std::size_t count) {
    std::vector<f64> numbers(count);
    std::iota(numbers.begin(), numbers.end(), first);
    return numbers;
  }
  static BlockFileLayout file_of(i16 id, std::size_t channels) {
    BlockFileLayout block{.id = id};
    block.channels.resize(channels);
    return block;
  }
  // The values of a channel, run by run.
  std::vector<std::vector<f64>> runs(const FileBuilder& bytes, i16 channel) {
    file.rewrite(bytes.bytes());
    std::vector<std::vector<f64>> list;
    pass_status = PassMeasurementValues(model, file.path(), channel, [&](std::span<const f64> run) {
      list.emplace_back(run.begin(), run.end());
    });
    return list;
  }

  LoadStatus pass_status = LoadStatus::Done;
};

TEST_F(BlockReaderTest, HeaderOfTheNewestId) {
  BlockFileLayout block{.id = 5056, .comment = "c"};
  block.channels = {
      {.name = "Druck", .unit = "bar", .record = distinct_param_record(1)},
      {.name = "H\xF6he", .unit = "m", .channel_date = 2.5, .record = distinct_param_record(4)}};
  block.channels[1].record.FixedBlockFlag = 0;
  const FileBuilder bytes = block.header();
  EXPECT_EQ(load(bytes, 0, 2), LoadStatus::Done);
  EXPECT_EQ(model.FileId, 5056);
  EXPECT_EQ(model.FileChannelCount, 2);
  EXPECT_EQ(model.FileChannelNames[1], "Druck");
  EXPECT_EQ(model.FileChannelNames[2], "Höhe");
  EXPECT_EQ(model.FileChannelUnits[2], "m");
  EXPECT_EQ(model.FileChannelRates[1], 1.5f);
  EXPECT_EQ(model.FileChannelRates[2], 4.5f);
  EXPECT_EQ(model.FileChannelPoints, (std::vector<i32>{-1, -1, 0}));
  EXPECT_EQ(model.FileDateText, "2.5");
  EXPECT_EQ(model.ChannelParams[0], distinct_param_record(4));
}

TEST_F(BlockReaderTest, OldIdsHaveDatesAsText) {
  for (const i16 id : std::initializer_list<i16>{5003, 5055}) {
    BlockFileLayout block{.id = id};
    block.channels = {{.name = "A", .date = "01.02.2003", .time = "04:05"}, {.name = "B"}};
    EXPECT_EQ(load(block.header(), 0, 1), LoadStatus::Done);
    EXPECT_EQ(model.FileChannelNames[2], "B");
    EXPECT_EQ(model.FileDateText, "01.02.2003");
  }
}

TEST_F(BlockReaderTest, EstimateTakesOffOneRecordAndThenOne) {
  // Header of one channel: 8 + 2 + 3 + 3 + 3 + 3 + 4 + 152 bytes.
  BlockFileLayout block{.id = 5003};
  block.channels = {{.name = "A", .unit = "B", .date = "C", .time = "D"}};
  FileBuilder bytes = block.header();
  ASSERT_EQ(bytes.size(), 178u);
  // (178 - 152) / 8 - 1 = 2.25
  EXPECT_EQ(load(bytes, 0, 1), LoadStatus::Done);
  EXPECT_EQ(model.FileChannelPointsEstimate[1], 2);
  // (182 - 152) / 8 - 1 = 2.75; then 186: 3.25
  EXPECT_EQ(load(bytes.zeros(4), 0, 1), LoadStatus::Done);
  EXPECT_EQ(model.FileChannelPointsEstimate[1], 3);
  // (180 - 152) / 8 - 1 = 2.5: to the even number, after the 1 is taken off.
  FileBuilder tie = block.header();
  EXPECT_EQ(load(tie.zeros(2), 0, 1), LoadStatus::Done);
  EXPECT_EQ(model.FileChannelPointsEstimate[1], 2);
}

TEST_F(BlockReaderTest, VariableBlocksFromTheDataOffset) {
  for (const i16 id : std::initializer_list<i16>{5003, 5056}) {
    SCOPED_TRACE(id);
    BlockFileLayout block = file_of(id, 2);
    block.gap = 13;
    FileBuilder bytes = block.header();
    add_block(bytes, {1, 2, 3});
    add_block(bytes, {10});
    add_block(bytes, {});  // an empty block of the first channel
    add_block(bytes, {11, 12});
    add_block(bytes, {4});
    EXPECT_EQ(load(bytes, 1, 1), LoadStatus::Done);
    EXPECT_EQ(values(), (std::vector<f64>{1, 2, 3, 4}));
    EXPECT_EQ(model.FileChannelPoints, (std::vector<i32>{-1, 4, 3}));
    EXPECT_EQ(load(bytes, 1, 2), LoadStatus::Done);
    EXPECT_EQ(values(), (std::vector<f64>{10, 11, 12}));
    EXPECT_EQ(range(1, 2, 5), (std::vector<f64>{3, 4}));
    EXPECT_EQ(range(2, 0, 2), (std::vector<f64>{10, 11}));
    EXPECT_TRUE(range(2, 3, 2).empty());
  }
}

TEST_F(BlockReaderTest, NegativeLengthsArePassedLikeEmptyBlocks) {
  FileBuilder bytes = file_of(5003, 1).header();
  bytes.i32_field(-5);
  add_block(bytes, {1});
  EXPECT_EQ(load(bytes, 1, 1), LoadStatus::Done);
  EXPECT_EQ(values(), std::vector<f64>{1});
}

TEST_F(BlockReaderTest, BlocksMayHave2049ValuesAndNoMore) {
  FileBuilder bytes = file_of(5003, 1).header();
  add_block(bytes, ramp(0, 2049));
  EXPECT_EQ(load(bytes, 1, 1), LoadStatus::Done);
  EXPECT_EQ(values(), ramp(0, 2049));
  for (const i32 length : {2050, std::numeric_limits<i32>::max()}) {
    FileBuilder longer = file_of(5003, 1).header();
    longer.i32_field(length).zeros(100);
    EXPECT_EQ(load(longer, 1, 1), run_time_error(kIndexOutOfRange));
  }
}

TEST_F(BlockReaderTest, UnprefixedBlocksOf100Values) {
  FileBuilder bytes = file_of(5055, 3).header();
  bytes.values(ramp(0, 100)).values(ramp(1000, 100)).values(ramp(2000, 100));
  bytes.values(ramp(100, 100)).values(ramp(1100, 37));
  EXPECT_EQ(load(bytes, 1, 2), LoadStatus::Done);
  EXPECT_EQ(values(), ramp(1000, 137));
  EXPECT_EQ(model.FileChannelPoints, (std::vector<i32>{-1, 200, 137, 100}));
  EXPECT_EQ(range(2, 99, 3), ramp(1099, 3));
  EXPECT_EQ(range(2, 130, 100), ramp(1130, 7));
  EXPECT_EQ(range(1, 150, 1000), ramp(150, 50));
  EXPECT_TRUE(range(3, 100, 1).empty());
  EXPECT_TRUE(range(3, i64{1} << 60, 1).empty());
}

TEST_F(BlockReaderTest, AShortLastBlockCountsByTheBytesRead) {
  // 37 values and 5 bytes round to 38 values; the missing bytes are those that the buffer held there.
  FileBuilder bytes = file_of(5055, 2).header();
  std::vector<f64> second = ramp(1000, 100);
  second[37] = 1.0 / 3;
  bytes.values(ramp(0, 100)).values(second).values(ramp(200, 37)).bytes_field("abcde");
  EXPECT_EQ(load(bytes, 1, 1), LoadStatus::Done);
  ASSERT_EQ(values().size(), 138u);
  EXPECT_EQ(model.FileChannelPoints[1], 138);
  f64 expected = 1.0 / 3;
  std::memcpy(&expected, "abcde", 5);
  EXPECT_EQ(values()[137], expected);
  EXPECT_EQ(values()[136], 236);
  EXPECT_EQ(range(1, 136, 9), (std::vector<f64>{236, expected}));
}

TEST_F(BlockReaderTest, HalfAValueCountsOnlyBehindAnOddNumber) {
  FileBuilder even = file_of(5003, 1).header();
  even.i32_field(9).values({1, 2}).zeros(4);
  EXPECT_EQ(load(even, 1, 1), LoadStatus::Done);
  EXPECT_EQ(values(), (std::vector<f64>{1, 2}));
  FileBuilder odd = file_of(5003, 1).header();
  odd.i32_field(9).values({1}).zeros(4);
  EXPECT_EQ(load(odd, 1, 1), LoadStatus::Done);
  EXPECT_EQ(values(), (std::vector<f64>{1, 0}));
}

TEST_F(BlockReaderTest, MoreValuesThanTheEstimateAreKept) {
  BlockFileLayout block = file_of(5003, 200);
  FileBuilder bytes = block.header();
  std::vector<f64> expected;
  for (int round = 0; round < 10; ++round) {
    add_block(bytes, ramp(round * 2000, 2000));
    for (int channel = 2; channel <= 200; ++channel) add_block(bytes, {});
  }
  EXPECT_EQ(load(bytes, 1, 1), LoadStatus::Done);
  EXPECT_LT(model.FileChannelPointsEstimate[1], 1000);
  EXPECT_EQ(values(), ramp(0, 20000));
}

TEST_F(BlockReaderTest, TheCountReadIsTheTrueOneWhereTheEstimateIsAbove) {
  FileBuilder bytes = file_of(5003, 1).header();
  const std::size_t header = bytes.size();
  add_block(bytes, {1, 2, 3});
  EXPECT_EQ(load(bytes, 1, 1), LoadStatus::Done);
  // Three values and a block length behind the header, whose own bytes are counted as values beyond one
  // record.
  const f64 estimate = std::nearbyint((static_cast<f64>(header) + 4 + 24 - 152) / 8 - 1);
  EXPECT_EQ(model.FileChannelPointsEstimate[1], static_cast<i32>(estimate));
  EXPECT_GT(model.FileChannelPointsEstimate[1], 3);
  EXPECT_EQ(model.FileChannelPoints, (std::vector<i32>{-1, 3}));
  EXPECT_EQ(values(), (std::vector<f64>{1, 2, 3}));
}

TEST_F(BlockReaderTest, ChannelsThatTheFileLacksWriteNothingIntoTheDatabase) {
  FileBuilder bytes = file_of(5003, 2).header();
  add_block(bytes, {1, 2});
  add_block(bytes, {3});
  model.ChannelParams[5].HardwareChannel = 17;
  for (const i16 channel : std::initializer_list<i16>{0, 3}) {
    EXPECT_EQ(load(bytes, 2, channel, 5), LoadStatus::Done);
    EXPECT_EQ(model.ChannelParams[5].HardwareChannel, 17);
    EXPECT_EQ(model.FileChannelPoints, (std::vector<i32>{-1, 2, 1}));
  }
  EXPECT_TRUE(kernel.calls.empty());
}

TEST_F(BlockReaderTest, ChannelsThatAFixedFileLacksSelectNothing) {
  BlockFileLayout block = file_of(5003, 2);
  block.channels[1].record.FixedBlockFlag = 1;
  FileBuilder bytes = block.header();
  bytes.i32_field(2).zeros(100);
  model.FileChannelValues = {42};
  for (const i16 channel : std::initializer_list<i16>{-1, 0, 3, 32767}) {
    EXPECT_EQ(load(bytes, 1, channel), LoadStatus::Done);
    EXPECT_EQ(values(), std::vector<f64>{42});
    EXPECT_EQ(model.FileChannelPoints, (std::vector<i32>{-1, -1, 0}));
    EXPECT_EQ(load(bytes, 2, channel, 5), LoadStatus::Done);
    EXPECT_TRUE(kernel.calls.empty());
    model.FileChannelValues = {42};
  }
}

TEST_F(BlockReaderTest, FixedBlocksBeginBehindTheHeaderWhateverTheDataOffset) {
  BlockFileLayout block = file_of(5056, 1);
  block.channels[0].record.FixedBlockFlag = 1;
  FileBuilder without_gap = block.header();
  const std::size_t header = without_gap.size();
  without_gap.i32_field(2).values({1, 2});
  ASSERT_EQ(load(without_gap, 1, 1), LoadStatus::Done);
  const std::vector<f64> expected = values();
  ASSERT_FALSE(expected.empty());
  block.gap = 4;
  FileBuilder bytes = block.header();
  bytes.patch(header, i32{2}).values({1, 2});
  EXPECT_EQ(load(bytes, 1, 1), LoadStatus::Done);
  EXPECT_EQ(values(), expected);
}

TEST_F(BlockReaderTest, FixedBlocksMayBeLongerThanVariableOnesInBothModes) {
  BlockFileLayout block = file_of(5003, 1);
  block.channels[0].record.FixedBlockFlag = 1;
  FileBuilder bytes = block.header();
  bytes.i32_field(2100).zeros(2100 * 8 - 4);
  EXPECT_EQ(load(bytes, 1, 1), LoadStatus::Done);
  EXPECT_EQ(values().size(), 2100u);
  EXPECT_EQ(load(bytes, 2, 1, 5), LoadStatus::Done);
  ASSERT_FALSE(kernel.calls.empty());
  EXPECT_TRUE(kernel.calls[0].starts_with("write 5 (append -1): 1.0375e-320 0 0"))
      << kernel.calls[0].substr(0, 60);
}

TEST_F(BlockReaderTest, ChannelsThatTheFileLacksSelectNothingButAllAreCounted) {
  FileBuilder bytes = file_of(5003, 2).header();
  add_block(bytes, {1, 2});
  add_block(bytes, {3});
  model.FileChannelValues = {42};
  for (const i16 channel : std::initializer_list<i16>{-1, 0, 3, 32767}) {
    EXPECT_EQ(load(bytes, 1, channel), LoadStatus::Done);
    EXPECT_EQ(values(), std::vector<f64>{42});
    EXPECT_EQ(model.FileChannelPoints, (std::vector<i32>{-1, 2, 1}));
  }
}

TEST_F(BlockReaderTest, DatabaseModeAppendsBlockByBlock) {
  BlockFileLayout block{.id = 5056};
  block.channels = {
      {}, {.name = "Druck", .unit = "bar", .channel_date = 44260.75, .record = distinct_param_record(2)}};
  FileBuilder bytes = block.header();
  add_block(bytes, {1, 2});
  add_block(bytes, {10, 11});
  add_block(bytes, {3});
  add_block(bytes, {12.5});
  model.FileChannelValues = {42};
  EXPECT_EQ(load(bytes, 2, 2, 5), LoadStatus::Done);
  EXPECT_EQ(kernel.calls,
            (std::vector<std::string>{"write 5 (append -1): 10 11", "write 5 (append -1): 12.5",
                                      "text 5 0: Druck", "text 5 1: bar", "modified 5: 44260.75"}));
  EXPECT_EQ(model.LastDatabaseStatus, 3);
  EXPECT_EQ(model.ChannelParams[5], distinct_param_record(2));
  EXPECT_FALSE(model.ChannelExtras.contains(5));
  EXPECT_TRUE(values().empty());
  EXPECT_EQ(model.FileChannelPoints, (std::vector<i32>{-1, 3, 3}));
}

TEST_F(BlockReaderTest, ValuesPassBlockByBlock) {
  using Runs = std::vector<std::vector<f64>>;
  FileBuilder variable = file_of(5056, 2).header();
  for (const auto& values : Runs{{1, 2}, {10, 11}, {3}, {}, {4, 5}, {12}}) add_block(variable, values);
  EXPECT_EQ(runs(variable, 2), (Runs{{10, 11}, {12}}));
  EXPECT_EQ(model.FileChannelPoints, (std::vector<i32>{-1, 5, 3}));
  EXPECT_EQ(runs(variable, 3), Runs{});
  EXPECT_EQ(model.FileChannelPoints, (std::vector<i32>{-1, 5, 3}));

  BlockFileLayout block = file_of(5003, 1);
  block.channels[0].record.FixedBlockFlag = 1;
  // Each read begins with the length of its block, and a round has 16 bytes of one block more.
  FileBuilder fixed = block.header();
  fixed.i32_field(2).zeros(32).values({7, 8});
  EXPECT_EQ(runs(fixed, 1).size(), 2u);
  EXPECT_EQ(runs(fixed, 1)[1], (std::vector<f64>{7, 8}));
  EXPECT_EQ(model.FileChannelPoints, (std::vector<i32>{-1, 4}));
  EXPECT_EQ(runs(fixed, 2), Runs{});
}

TEST_F(BlockReaderTest, DatabaseModeWithoutADatabaseIsARunTimeError) {
  model.Kernel = nullptr;
  EXPECT_EQ(load(file_of(5056, 1).header(), 2, 1, 2), run_time_error(kHostMemberMissing));
}

TEST_F(BlockReaderTest, FixedBlocksAreReadWithTheirLengthAndOneBlockFurtherEachRound) {
  BlockFileLayout block = file_of(5003, 2);
  block.channels[1].record.FixedBlockFlag = 1;
  FileBuilder bytes = block.header();
  const std::size_t data = bytes.size();
  // Any bytes serve, as only places count; a length of 2 stands first.
  bytes.i32_field(2);
  for (u8 byte = 0; byte < 200; ++byte) bytes.u8_field(byte);
  const auto value_at = [&](std::size_t place) {
    f64 value = 0;
    std::memcpy(&value, bytes.bytes().data() + data + place, 8);
    return value;
  };
  // Blocks of 16 bytes; the second channel begins 20 bytes in, and a round is 16 + 2 * 20 bytes long.
  std::vector<f64> expected;
  for (std::size_t place = 20; place + 16 <= 204; place += 56)
    expected.insert(expected.end(), {value_at(place), value_at(place + 8)});
  ASSERT_EQ(expected.size(), 8u);
  EXPECT_EQ(load(bytes, 1, 2), LoadStatus::Done);
  EXPECT_EQ(values(), expected);
  EXPECT_EQ(model.FileChannelPoints, (std::vector<i32>{-1, -1, 8}));
  EXPECT_EQ(range(2, 3, 2), (std::vector<f64>{expected[3], expected[4]}));
  EXPECT_EQ(range(2, 7, 20), std::vector<f64>{expected[7]});
  EXPECT_EQ(load(bytes, 2, 2, 1), LoadStatus::Done);
  EXPECT_EQ(kernel.calls[0],
            "write 1 (append -1): " + number_text(expected[0]) + " " + number_text(expected[1]));
  EXPECT_EQ(kernel.calls.size(), 4u + 3u);
}

TEST_F(BlockReaderTest, TheWayToAFixedBlockMustFitInto16Bits) {
  BlockFileLayout block = file_of(5003, 3);
  block.channels[2].record.FixedBlockFlag = 1;
  // 2047 * 8 + 4 = 16380: once fits, twice does as 32760; 2048 * 8 + 4 does not twice.
  FileBuilder fits = block.header();
  fits.i32_field(2047).zeros(40000);
  EXPECT_EQ(load(fits, 1, 3), LoadStatus::Done);
  FileBuilder beyond = block.header();
  beyond.i32_field(2048).zeros(40000);
  EXPECT_EQ(load(beyond, 1, 2), LoadStatus::Done);
  EXPECT_EQ(load(beyond, 1, 3), run_time_error(kOverflow));
  EXPECT_TRUE(runs(beyond, 3).empty());
  EXPECT_EQ(pass_status, run_time_error(kOverflow));
  EXPECT_TRUE(range(3, 0, 1).empty());
  EXPECT_EQ(range_status, run_time_error(kOverflow));
}

TEST_F(BlockReaderTest, FixedBlocksOfNoLengthEndAtOnce) {
  BlockFileLayout block = file_of(5003, 1);
  block.channels[0].record.FixedBlockFlag = 1;
  for (const i32 length : {0, -1, std::numeric_limits<i32>::min()}) {
    FileBuilder bytes = block.header();
    bytes.i32_field(length).zeros(100);
    EXPECT_EQ(load(bytes, 1, 1), LoadStatus::Done) << length;
    EXPECT_TRUE(values().empty());
    EXPECT_EQ(load(bytes, 2, 1, 1), LoadStatus::Done) << length;
  }
  FileBuilder longest = block.header();
  longest.i32_field(std::numeric_limits<i32>::max()).zeros(100);
  EXPECT_EQ(load(longest, 1, 1), LoadStatus::Done);
  EXPECT_EQ(values().size(), 13u);
  EXPECT_EQ(load(longest, 2, 1, 1), LoadStatus::Done);
}

TEST_F(BlockReaderTest, ImpossibleChannelCounts) {
  BlockFileLayout block = file_of(5056, 1);
  const auto status = [&](i32 count) {
    block.channel_count = count;
    return load(block.header().zeros(100), 1, 1);
  };
  EXPECT_EQ(status(-1), run_time_error(kIndexOutOfRange));
  EXPECT_EQ(status(std::numeric_limits<i32>::min()), run_time_error(kIndexOutOfRange));
  EXPECT_EQ(status(32768), run_time_error(kOverflow));
  EXPECT_EQ(status(std::numeric_limits<i32>::max()), run_time_error(kOverflow));
  EXPECT_EQ(status(0), run_time_error(kOverflow));
  EXPECT_EQ(status(32767), LoadStatus::Done);
}

TEST_F(BlockReaderTest, RecordLengthsBeyondTheFileMakeImpossibleEstimates) {
  BlockFileLayout block = file_of(5003, 1);
  FileBuilder bytes = block.header();
  bytes.patch(bytes.size() - 156, i32{100000});
  EXPECT_EQ(load(bytes, 0, 1), LoadStatus::Done);
  EXPECT_LT(model.FileChannelPointsEstimate[1], -12000);
  EXPECT_EQ(load(bytes, 1, 1), run_time_error(kIndexOutOfRange));
  EXPECT_TRUE(runs(bytes, 1).empty());
  EXPECT_EQ(pass_status, run_time_error(kIndexOutOfRange));
  // A large estimate takes no more memory than the file can fill.
  bytes.patch(bytes.size() - 156, std::numeric_limits<i32>::min());
  EXPECT_EQ(load(bytes, 1, 1), LoadStatus::Done);
  EXPECT_GT(model.FileChannelPointsEstimate[1], 200000000);
  EXPECT_LT(model.FileChannelValues.capacity(), 200u);
}

TEST_F(BlockReaderTest, DataOffsetsOutsideOfTheFile) {
  BlockFileLayout block = file_of(5056, 1);
  FileBuilder bytes = block.header();
  add_block(bytes, {1, 2});
  bytes.patch(8, std::numeric_limits<i32>::max());
  EXPECT_EQ(load(bytes, 1, 1), LoadStatus::Done);
  EXPECT_TRUE(values().empty());
  // A place ahead of the file leaves the position behind the header.
  bytes.patch(8, i32{-1});
  EXPECT_EQ(load(bytes, 1, 1), LoadStatus::Done);
  EXPECT_EQ(values(), (std::vector<f64>{1, 2}));
}

TEST_F(BlockReaderTest, EveryCutIsHarmless) {
  for (const i16 id : std::initializer_list<i16>{5003, 5055, 5056})
    for (const u8 fixed : std::initializer_list<u8>{0, 1}) {
      SCOPED_TRACE(std::to_string(id) + " fixed " + std::to_string(fixed));
      BlockFileLayout block = file_of(id, 2);
      block.channels[1].record.FixedBlockFlag = fixed;
      FileBuilder bytes = block.header();
      for (int round = 0; round < 3; ++round) {
        add_block(bytes, ramp(round, 5));
        add_block(bytes, ramp(round + 100, 5));
      }
      if (id == 5055) bytes.values(ramp(0, 120));
      expect_every_cut_to_be_harmless(bytes.bytes(), 2);
    }
}

}  // namespace
}  // namespace trendaro
