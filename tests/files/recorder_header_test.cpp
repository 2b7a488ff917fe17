#include "files/recorder_header.h"

#include <bit>
#include <filesystem>
#include <limits>

#include <gtest/gtest.h>

#include "app/run_time_error.h"
#include "support/recorder_builder.h"

namespace trendaro {
namespace {

using std::string_literals::operator""s;

std::optional<RecorderHeader> read(const FileBuilder& bytes) {
  const TemporaryFile file(bytes);
  const InputFile input(file.path());
  return read_recorder_header(input);
}

i16 failure_of(const FileBuilder& bytes) {
  try {
    static_cast<void>(read(bytes));
  } catch (const RunTimeError& error) {
    return error.number;
  }
  return 0;
}

std::vector<std::string> names(const RecorderHeader& header) {
  std::vector<std::string> found;
  for (const RecorderColumn& column : header.columns) found.push_back(column.name.name);
  return found;
}

TEST(RecorderHeaderTest, OnlyTheFourIdsAreRecordings) {
  for (const i32 id : {6001, 6002, 6011, 6012}) EXPECT_TRUE(read(RecorderBuilder{.id = id}.build())) << id;
  for (const i32 id : {0, 6000, 6003, 6013, 5012, 6001 + 65536, -6001})
    EXPECT_FALSE(read(RecorderBuilder{.id = id}.build())) << id;
  EXPECT_FALSE(read(FileBuilder().i16_field(6001)));
  EXPECT_FALSE(read(FileBuilder()));
}

TEST(RecorderHeaderTest, SetBitsBecomeColumnsInTableAndBitOrder) {
  RecorderBuilder recording;
  recording.entries = {{.channel = 4, .mask = 0b100101},
                       {.channel = 2, .mask = 0b000010},
                       {.channel = 1, .mask = 0},
                       {.channel = 9, .mask = 0b1011000}};
  const auto header = read(recording.build());
  ASSERT_TRUE(header);
  ASSERT_EQ(header->columns.size(), 6u);
  const std::pair<i32, std::size_t> expected[] = {{4, 0}, {4, 2}, {4, 5}, {2, 1}, {9, 3}, {9, 4}};
  for (std::size_t i = 0; i < 6; ++i) {
    EXPECT_EQ(header->columns[i].entry_channel, expected[i].first);
    EXPECT_EQ(header->columns[i].signal, expected[i].second);
  }
  EXPECT_EQ(header->channel_count, 4);
}

TEST(RecorderHeaderTest, CountIsDoubledForReducedRawSamplesOnly) {
  RecorderBuilder recording;
  recording.entries = {{.mask = 3}, {.mask = 3}};
  const std::pair<i32, i16> expected[] = {{6001, 2}, {6002, 4}, {6011, 2}, {6012, 2}};
  for (const auto& [id, count] : expected) {
    recording.id = id;
    EXPECT_EQ(read(recording.build())->channel_count, count) << id;
  }
}

TEST(RecorderHeaderTest, EachTimeCarryTakesOneFromTheCountButStaysAColumn) {
  RecorderBuilder recording;
  recording.entries = {{.channel = 1}, {.channel = 17}, {.channel = 18}};
  const auto header = read(recording.build());
  EXPECT_EQ(header->channel_count, 2);
  ASSERT_EQ(header->columns.size(), 3u);
  EXPECT_EQ(names(*header),
            (std::vector<std::string>{"TLQ CH 1.0", "TLQ 17 (Zeitkanal)", "TLQ 18 (Zeitkanal Übertrag)"}));
}

TEST(RecorderHeaderTest, EveryTimeCarryCountsWhateverTheIdAndItsSignals) {
  struct Row {
    i32 id;
    std::vector<RecorderEntry> entries;
    i16 count;
  };
  const RecorderEntry hardware{.channel = 1, .mask = 3};
  const RecorderEntry time{.channel = 17, .mask = 3};
  const RecorderEntry carry{.channel = 18, .mask = 3};
  const RecorderEntry silent_carry{.channel = 18, .mask = 0};
  for (const Row& row : {Row{6002, {hardware, time, carry}, 5}, Row{6001, {hardware, carry, carry}, 1},
                         Row{6001, {hardware, silent_carry}, 1}}) {
    RecorderBuilder recording{.id = row.id, .entries = row.entries};
    EXPECT_EQ(read(recording.build())->channel_count, row.count);
  }
}

TEST(RecorderHeaderTest, DefaultNameTakesTheSubChannelOfTheColumnBefore) {
  RecorderBuilder recording;
  recording.entries = {{.channel = 3, .mask = 0x020003},  // sub-channel 2, two columns
                       {.channel = 4, .mask = 0x000001},  // no sub-channel of its own: 2 stays
                       {.channel = 5, .mask = 0x070001},
                       {.channel = 6, .mask = 0x000101}};  // above 256: sub-channel 0
  const auto header = read(recording.build());
  EXPECT_EQ(names(*header),
            (std::vector<std::string>{"TLQ CH 3.0", "TLQ CH 3.2", "TLQ CH 4.2", "TLQ CH 5.2", "TLQ CH 6.7"}));
  const i32 expected[] = {2, 2, 2, 7, 0};
  for (std::size_t i = 0; i < 5; ++i) EXPECT_EQ(header->columns[i].sub_channel, expected[i]) << i;
}

TEST(RecorderHeaderTest, MasksUpTo256KeepTheSubChannel) {
  RecorderBuilder recording;
  recording.entries = {{.mask = 0x020001}, {.mask = 0x41}, {.mask = 0xC1}};
  const auto header = read(recording.build());
  ASSERT_EQ(header->columns.size(), 3u);
  for (const RecorderColumn& column : header->columns) EXPECT_EQ(column.sub_channel, 2);
}

TEST(RecorderHeaderTest, SubChannelHasEightBits) {
  RecorderBuilder recording;
  recording.entries = {{.mask = 0x01FF0001}, {.mask = 0x7E010001}};
  const auto header = read(recording.build());
  ASSERT_EQ(header->columns.size(), 2u);
  EXPECT_EQ(header->columns[0].sub_channel, 255);
  EXPECT_EQ(header->columns[1].sub_channel, 1);
}

TEST(RecorderHeaderTest, MaskOfExactly256NamesNoSubChannelAndNoSignal) {
  RecorderBuilder recording;
  recording.entries = {{.channel = 3, .mask = 256}, {.channel = 4, .mask = 1}};
  EXPECT_EQ(names(*read(recording.build())), (std::vector<std::string>{"TLQ CH 4.0"}));
}

TEST(RecorderHeaderTest, ScaleOfAllOnesIsTheDefault) {
  RecorderBuilder recording;
  recording.entries = {{.scale = std::bit_cast<f32>(0xFFFFFFFFU)}, {.scale = 2.5F, .offset = -1.5F}};
  const auto header = read(recording.build());
  EXPECT_EQ(header->columns[0].scale, 7680000.0F);
  EXPECT_EQ(header->columns[1].scale, 2.5F);
  EXPECT_EQ(header->columns[1].offset, -1.5F);
}

TEST(RecorderHeaderTest, TableUnitIsRightTrimmedAndNoMore) {
  RecorderBuilder recording;
  recording.entries = {{.unit = " NM "}, {.unit = "\xB5m/m"}, {.unit = "V\0"s + "  "}};
  const auto header = read(recording.build());
  EXPECT_EQ(header->columns[0].unit, " NM");
  EXPECT_EQ(header->columns[1].unit, "µm/m");
  EXPECT_EQ(header->columns[2].unit, "V\0"s);
}

TEST(RecorderHeaderTest, ReducedRecordingHasItsFactorAheadOfTheDataOffset) {
  RecorderBuilder recording{.id = 6002, .reduce_factor = 250};
  recording.entries = {{.mask = 3}};
  const auto reduced = read(recording.build());
  EXPECT_EQ(reduced->reduce_factor, 250);
  EXPECT_EQ(reduced->data_offset, recording.data_offset());
  recording.id = 6001;
  const auto full = read(recording.build());
  EXPECT_EQ(full->reduce_factor, 0);
  EXPECT_EQ(full->data_offset, recording.data_offset());
}

TEST(RecorderHeaderTest, CommentBeginsWithTheLastTwoBytesOfTheDateField) {
  RecorderBuilder recording;
  recording.entries = {{}};
  recording.date = "Fri Mar 05 12:34:56 2021XY";
  recording.comment =
      "Pr\xFC"
      "fstand 7";
  const auto header = read(recording.build());
  EXPECT_EQ(header->date_text, "Fri Mar 05 12:34:56 2021");
  EXPECT_EQ(header->comment_text, "XYPrüfstand 7" + std::string(80 - 13, ' '));
}

TEST(RecorderHeaderTest, DateEndsAtItsNul) {
  RecorderBuilder recording;
  recording.entries = {{}};
  recording.date = "05.03.2021 \0 12:00"s;
  EXPECT_EQ(read(recording.build())->date_text, "05.03.2021");
}

TEST(RecorderHeaderTest, ClosingBlockIsLookedForBehindABlockForEachEntryButTheCarry) {
  // The table claims a time channel, which has no settings block; the date is still looked for behind one.
  RecorderBuilder recording;
  recording.entries = {{.channel = 1}, {.channel = 17}, {.channel = 18}};
  FileBuilder file = recording.build();
  const std::size_t place = 32 + 3 * 20 + 2 * 225;
  file.zeros(place + 200 - file.size());
  for (std::size_t i = 0; i < 24; ++i) file.patch<char>(place + i, "Sat Mar 06 01:02:03 2021"[i]);
  EXPECT_EQ(read(file)->date_text, "Sat Mar 06 01:02:03 2021");
}

TEST(RecorderHeaderTest, SettingsBlocksAreCountedOverAllEntries) {
  RecorderBuilder recording;
  recording.entries = {{.channel = 17}, {.channel = 5}};
  FileBuilder file = recording.build();
  file.zeros(225);
  const std::size_t second_block = 32 + 2 * 20 + 225;
  for (std::size_t i = 0; i < 5; ++i) file.patch<char>(second_block + i, "\"Weg\""[i]);
  EXPECT_EQ(read(file)->columns[1].name.name, "Weg");
}

TEST(RecorderHeaderTest, CountsThatNoRecordingCanHaveAreErrors) {
  RecorderBuilder recording;
  recording.entries = {{}};
  const auto with_count = [&](i32 id, i32 count) {
    recording.id = id;
    return failure_of(recording.build().patch<i32>(4, count));
  };
  constexpr i32 kMost = std::numeric_limits<i32>::max();
  EXPECT_EQ(with_count(6001, -1), kIndexOutOfRange);
  EXPECT_EQ(with_count(6001, std::numeric_limits<i32>::min()), kIndexOutOfRange);
  EXPECT_EQ(with_count(6001, kMost), kOverflow);
  EXPECT_EQ(with_count(6001, 32768), kOverflow);
  EXPECT_EQ(with_count(6001, 32767), 0);
  EXPECT_EQ(with_count(6002, 16384), kOverflow);
  EXPECT_EQ(with_count(6002, 16383), 0);
}

TEST(RecorderHeaderTest, MoreColumnsThanChannelNumbersAreAnError) {
  FileBuilder file;
  file.i32_field(6001).i32_field(6000).zeros(24);
  for (int entry = 0; entry < 6000; ++entry) file.i32_field(1).zeros(12).i32_field(63);
  EXPECT_EQ(failure_of(file), kOverflow);
}

TEST(RecorderHeaderTest, EveryCutLeavesWhatIsWhollyThere) {
  RecorderBuilder recording;
  recording.entries = {{.channel = 1, .name_field = quoted_name("Kraft")}, {.channel = 2, .mask = 3}};
  const std::string bytes = recording.build().bytes();
  const std::size_t table = 32;
  const std::size_t blocks = table + 40;
  const std::size_t closing = blocks + 450;
  const TemporaryFile file{std::string_view(bytes)};
  const InputFile input(file.path());
  for (std::size_t size = bytes.size(); size-- > 0;) {
    SCOPED_TRACE(size);
    std::filesystem::resize_file(file.path(), size);
    const auto header = read_recorder_header(input);
    ASSERT_EQ(header.has_value(), size >= 4);
    if (!header) continue;
    EXPECT_EQ(header->channel_count, size >= 8 ? 2 : 0);
    EXPECT_EQ(header->columns.size(), size >= table + 40 ? 3u : size >= table + 20 ? 1u : 0u);
    if (!header->columns.empty()) {
      EXPECT_EQ(header->columns[0].name.name, size >= blocks + 47 ? "Kraft" : "TLQ CH 1.0");
    }
    EXPECT_EQ(header->date_text, size >= closing + 24 ? "Fri Mar 05 12:34:56 2021" : "");
    EXPECT_EQ(header->comment_text.empty(), size < closing + 104);
  }
}

}  // namespace
}  // namespace trendaro
