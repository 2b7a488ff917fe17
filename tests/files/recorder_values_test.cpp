#include "files/recorder_values.h"

#include <bit>
#include <limits>
#include <span>

#include "files/recorder_reader.h"
#include "support/load_fixture.h"
#include "support/recorder_builder.h"

namespace trendaro {
namespace {

constexpr f32 kAllOnes = std::bit_cast<f32>(0xFFFFFFFFU);

class RecorderValuesTest : public LoadTest {
 protected:
  std::vector<f64> load_values(const RecorderBuilder& recording, i16 channel) {
    status = load(recording.build(), 1, channel);
    return values();
  }

  LoadStatus status = LoadStatus::Done;
};

// Raw i16 samples of `columns` columns that tell row and column apart.
RecorderBuilder counting_recording(i32 rows, i32 columns) {
  RecorderBuilder recording;
  recording.row_count = rows;
  for (i32 column = 0; column < columns; ++column) recording.entries.push_back({.channel = column + 1});
  for (i32 row = 0; row < rows; ++row)
    for (i32 column = 0; column < columns; ++column)
      recording.data.i16_field(static_cast<i16>((row * 7 + column * 1000) % 30000));
  return recording;
}

f64 counting_value(i64 row, i32 column) {
  // A scale of 30000 takes the raw scale of 1 / 30000 back, up to the rounding of f32.
  return static_cast<f64>((row * 7 + column * 1000) % 30000);
}

TEST_F(RecorderValuesTest, DefaultScaleReadsWholeValues) {
  RecorderBuilder recording{.row_count = 1, .sample_format = 1253};
  recording.entries = {{.scale = kAllOnes}};
  recording.data.i32_field(256);
  // 256 times the nearest f32 to 1 / 1966080000, which is 9162597 / 2 to the power of 54, times 7680000.
  EXPECT_DOUBLE_EQ(load_values(recording, 1).at(0), 256.0 * 7680000 * 9162597 * 0x1p-54);

  recording.sample_format = 1255;
  recording.data = FileBuilder().i16_field(1);
  EXPECT_EQ(load_values(recording, 1), (std::vector<f64>{256.0}));
}

TEST_F(RecorderValuesTest, SamplesOf32BitsKeepTheirResolution) {
  RecorderBuilder recording{.row_count = 3, .sample_format = 1253};
  recording.entries = {{.scale = 1966.08F, .offset = 0.25F}};
  recording.data.i32_field(1000001).i32_field(-2147483647).i32_field(0);
  const f64 factor = f64{1.0F / 1966080000.0F};
  const auto read = load_values(recording, 1);
  ASSERT_EQ(read.size(), 3u);
  EXPECT_DOUBLE_EQ(read[0], factor * 1000001.0 * f64{1966.08F} - 0.25);
  EXPECT_DOUBLE_EQ(read[1], factor * -2147483647.0 * f64{1966.08F} - 0.25);
  EXPECT_EQ(read[2], -0.25);
}

TEST_F(RecorderValuesTest, SamplesOf16BitsAreSigned) {
  RecorderBuilder recording{.row_count = 4};
  recording.entries = {{.scale = 15000, .offset = 0.5F}};
  recording.data.i16_field(2).i16_field(-2).i16_field(32767).i16_field(-32768);
  const auto read = load_values(recording, 1);
  ASSERT_EQ(read.size(), 4u);
  const f64 expected[] = {0.5, -1.5, 16383.0, -16384.5};  // raw / 30000 x 15000 - 0.5
  for (std::size_t i = 0; i < 4; ++i)
    EXPECT_FLOAT_EQ(static_cast<f32>(read[i]), static_cast<f32>(expected[i]));
}

TEST_F(RecorderValuesTest, FloatSamplesStandAsTheyAre) {
  RecorderBuilder recording{.row_count = 2, .sample_format = 1257};
  recording.entries = {{.scale = 3, .offset = 4}, {}};
  recording.data.f32_field(0.1F).f32_field(7).f32_field(-2.5e30F).f32_field(8);
  EXPECT_EQ(load_values(recording, 1), (std::vector<f64>{f64{0.1F}, f64{-2.5e30F}}));
  EXPECT_EQ(load_values(recording, 2), (std::vector<f64>{7, 8}));
}

TEST_F(RecorderValuesTest, EveryColumnOfEveryLengthIsRead) {
  for (const i32 rows : {1, 499, 500, 501, 1000, 1001}) {
    const RecorderBuilder recording = counting_recording(rows, 3);
    for (i16 channel = 1; channel <= 3; ++channel) {
      const auto read = load_values(recording, channel);
      ASSERT_EQ(read.size(), static_cast<std::size_t>(rows));
      for (i32 row = 0; row < rows; ++row)
        ASSERT_NEAR(read[static_cast<std::size_t>(row)], counting_value(row, channel - 1), 0.01) << row;
    }
  }
}

TEST_F(RecorderValuesTest, RecordingsLongerThanTheReadBufferHaveNoSeams) {
  const RecorderBuilder recording = counting_recording(300000, 4);  // 2.4 MB of samples
  const auto read = load_values(recording, 3);
  ASSERT_EQ(read.size(), 300000u);
  for (i64 row = 0; row < 300000; ++row)
    ASSERT_NEAR(read[static_cast<std::size_t>(row)], counting_value(row, 2), 0.01) << row;
}

TEST_F(RecorderValuesTest, ColumnsOfOneEntryShareItsScale) {
  RecorderBuilder recording{.row_count = 1};
  recording.entries = {{.scale = 30000, .mask = 3}, {.scale = 60000}};
  recording.data.i16_field(10).i16_field(20).i16_field(30);
  EXPECT_FLOAT_EQ(static_cast<f32>(load_values(recording, 1).at(0)), 10.0F);
  EXPECT_FLOAT_EQ(static_cast<f32>(load_values(recording, 2).at(0)), 20.0F);
  EXPECT_FLOAT_EQ(static_cast<f32>(load_values(recording, 3).at(0)), 60.0F);
}

TEST_F(RecorderValuesTest, TimeChannelAddsItsCarry) {
  RecorderBuilder recording{.row_count = 2, .sample_format = 1253};
  recording.entries = {{.channel = 17, .scale = kAllOnes, .offset = 1},
                       {.channel = 18, .scale = 1000, .offset = 2}};
  recording.data.i32_field(2560).i32_field(1966080).i32_field(-256).i32_field(0);
  auto read = load_values(recording, 1);
  ASSERT_EQ(read.size(), 2u);
  EXPECT_NEAR(read[0], 10 - 1 + 1 - 2, 1e-6);
  EXPECT_NEAR(read[1], -1 - 1 + 0 - 2, 1e-6);
  read = load_values(recording, 2);
  EXPECT_NEAR(read[0], 1 - 2, 1e-6);

  recording.sample_format = 1257;
  recording.data = FileBuilder().f32_field(0.5F).f32_field(1e9F).f32_field(1).f32_field(2);
  EXPECT_EQ(load_values(recording, 1), (std::vector<f64>{1000000000.5, 3}));
  EXPECT_EQ(load_values(recording, 2), (std::vector<f64>{1e9, 2}));
}

TEST_F(RecorderValuesTest, TimeWordsOf16BitsHaveNoSign) {
  RecorderBuilder recording{.row_count = 1};
  recording.entries = {{.channel = 17, .scale = 30000, .offset = 5},
                       {.channel = 18, .scale = 30000 * 65536.0F}};
  recording.data.i16_field(-1).i16_field(-2);
  // About 65535 - 5 + 65534 x 65536, and the carry column for itself is signed. Formed in f32, the time would
  // be off by more than a hundred.
  const f64 factor = f64{256.0F / 7680000.0F};
  const f64 expected = factor * 65535.0 * 30000.0 - 5.0 + factor * 65534.0 * (30000.0 * 65536.0);
  EXPECT_DOUBLE_EQ(load_values(recording, 1).at(0), expected);
  EXPECT_NEAR(expected / (65530.0 + 65534.0 * 65536.0), 1.0, 1e-7);
  EXPECT_NEAR(load_values(recording, 2).at(0) / (-2 * 65536.0), 1.0, 1e-6);
}

TEST_F(RecorderValuesTest, TimeChannelInTheLastColumnCannotBeRead) {
  RecorderBuilder recording{.row_count = 1};
  recording.entries = {{.channel = 1}, {.channel = 17}};
  recording.data.i16_field(3).i16_field(4);
  static_cast<void>(load_values(recording, 2));
  EXPECT_EQ(status, run_time_error(kIndexOutOfRange));
  EXPECT_FLOAT_EQ(static_cast<f32>(load_values(recording, 1).at(0)), 3.0F);
}

TEST_F(RecorderValuesTest, TimeChannelInTheLastColumnNeedsNoCarryWhereNothingIsRead) {
  RecorderBuilder recording{.row_count = 2, .sample_format = 9};
  recording.entries = {{.channel = 17}};
  recording.data.i16_field(3).i16_field(4);
  EXPECT_EQ(load_values(recording, 1), (std::vector<f64>{0, 0}));
  EXPECT_EQ(status, LoadStatus::Done);
  EXPECT_EQ(range(1, 1, 5), (std::vector<f64>{0}));

  for (const i32 format : {1253, 1255, 1257}) {
    recording.sample_format = format;
    recording.row_count = 0;
    EXPECT_TRUE(load_values(recording, 1).empty());
    EXPECT_EQ(status, LoadStatus::Done) << format;
  }
}

TEST_F(RecorderValuesTest, UnknownFormatsLeaveZeros) {
  for (const i32 format : {0, 1254, 1256, 1258, -1}) {
    RecorderBuilder recording = counting_recording(3, 2);
    recording.sample_format = format;
    EXPECT_EQ(load_values(recording, 1), (std::vector<f64>{0, 0, 0})) << format;
    EXPECT_EQ(status, LoadStatus::Done);
  }
}

TEST_F(RecorderValuesTest, EveryCutOfTheDataLeavesZerosBehindItsEnd) {
  RecorderBuilder recording = counting_recording(5, 3);
  for (RecorderEntry& entry : recording.entries) entry.offset = -1;
  const std::string bytes = recording.build().bytes();
  const std::size_t begin = static_cast<std::size_t>(recording.data_offset());
  file.rewrite(bytes);
  for (std::size_t size = bytes.size() + 1; size-- > begin;) {
    std::filesystem::resize_file(file.path(), size);
    for (i16 channel = 1; channel <= 3; ++channel) {
      ASSERT_EQ(LoadMeasurementFile(model, 1, file.path(), channel, 0), LoadStatus::Done);
      ASSERT_EQ(model.FileChannelValues.size(), 5u);
      for (std::size_t row = 0; row < 5; ++row) {
        const bool is_there = begin + (row * 3 + static_cast<std::size_t>(channel)) * 2 <= size;
        const f64 expected = is_there ? counting_value(static_cast<i64>(row), channel - 1) + 1 : 0;
        ASSERT_NEAR(model.FileChannelValues[row], expected, is_there ? 0.01 : 0) << size << " " << row;
      }
    }
  }
}

TEST_F(RecorderValuesTest, DoublesStandChannelAfterChannel) {
  for (const i32 id : {6011, 6012}) {
    SCOPED_TRACE(id);
    RecorderBuilder recording{.id = id, .row_count = 3, .reduce_factor = 50};
    recording.entries = {{.scale = 5, .offset = 6, .mask = 3}, {.channel = 2}};
    recording.data.values({1, 2, 3, 4, 5, 6, 7, 8, 9});
    EXPECT_EQ(load_values(recording, 1), (std::vector<f64>{1, 2, 3}));
    EXPECT_EQ(load_values(recording, 2), (std::vector<f64>{4, 5, 6}));
    EXPECT_EQ(load_values(recording, 3), (std::vector<f64>{7, 8, 9}));
    EXPECT_EQ(range(3, 1, 1), (std::vector<f64>{8}));
    recording.data = FileBuilder().values({1, 2, 3, 4});
    EXPECT_EQ(load_values(recording, 2), (std::vector<f64>{4, 0, 0}));
    EXPECT_EQ(load_values(recording, 3), (std::vector<f64>{0, 0, 0}));
  }
}

// A recording of doubles with a time channel and its carry.
RecorderBuilder time_of_doubles(i32 rows, i32 id = 6011) {
  RecorderBuilder recording{.id = id, .row_count = rows};
  recording.entries = {{.channel = 17}, {.channel = 18}};
  for (i32 row = 0; row < rows; ++row) recording.data.f64_field(row + 0.25);
  for (i32 row = 0; row < rows; ++row) recording.data.f64_field(1000.0 * row);
  return recording;
}

TEST_F(RecorderValuesTest, TimeOfDoublesIsSummedWhereTheRestIsAtMostOne) {
  for (const i32 rows : {1, 500, 501, 1000, 1001, 150001}) {
    const auto read = load_values(time_of_doubles(rows), 1);
    ASSERT_EQ(status, LoadStatus::Done) << rows;
    ASSERT_EQ(read.size(), static_cast<std::size_t>(rows));
    for (i32 row = 0; row < rows; ++row)
      ASSERT_EQ(read[static_cast<std::size_t>(row)], 1001.0 * row + 0.25) << row;
  }
}

TEST_F(RecorderValuesTest, TimeOfDoublesWithALongerRestFails) {
  for (const i32 id : {6011, 6012})
    for (const i32 rows : {2, 499, 502, 999, 1250}) {
      static_cast<void>(load_values(time_of_doubles(rows, id), 1));
      EXPECT_EQ(status, run_time_error(kIndexOutOfRange)) << rows;
      EXPECT_EQ(load_values(time_of_doubles(rows, id), 2).at(1), 1000.0);
      EXPECT_EQ(status, LoadStatus::Done);
    }
}

TEST_F(RecorderValuesTest, RangeOfATimeOfDoublesIsSummedToTheEnd) {
  static_cast<void>(load_values(time_of_doubles(7), 1));
  EXPECT_EQ(range(1, 4, 10), (std::vector<f64>{4004.25, 5005.25, 6006.25}));
  EXPECT_EQ(range_status, LoadStatus::Done);
}

TEST_F(RecorderValuesTest, RangeOfATimeOfDoublesLongerThanTheReadBufferHasNoSeams) {
  file.rewrite(time_of_doubles(300000).build().bytes());
  const auto read = range(1, 7, 400000);
  ASSERT_EQ(range_status, LoadStatus::Done);
  ASSERT_EQ(read.size(), 299993u);
  for (i32 row = 7; row < 300000; ++row)
    ASSERT_EQ(read[static_cast<std::size_t>(row - 7)], 1001.0 * row + 0.25) << row;
}

TEST_F(RecorderValuesTest, RowsThatAreFarFromThereTakeNoMemory) {
  RecorderBuilder recording = counting_recording(2, 1);
  recording.row_count = std::numeric_limits<i32>::max();
  static_cast<void>(load_values(recording, 1));
  EXPECT_EQ(status, run_time_error(kOutOfMemory));
  EXPECT_EQ(load(recording.build(), 0, 1), LoadStatus::Done);
  EXPECT_EQ(model.FileChannelPoints[0], std::numeric_limits<i32>::max());

  recording.row_count = -1;
  static_cast<void>(load_values(recording, 1));
  EXPECT_EQ(status, run_time_error(kIndexOutOfRange));
  EXPECT_TRUE(range(1, 0, 2).empty());
  EXPECT_EQ(range_status, run_time_error(kIndexOutOfRange));
}

TEST_F(RecorderValuesTest, RangesOfARecordingBrokenOffEarlyAreItsSamplesAndZeros) {
  constexpr i32 kMost = std::numeric_limits<i32>::max();
  RecorderBuilder recording = counting_recording(3, 1);
  recording.row_count = kMost;
  file.rewrite(recording.build().bytes());
  const auto read = range(1, 1, 4);
  ASSERT_EQ(range_status, LoadStatus::Done);
  ASSERT_EQ(read.size(), 4u);
  EXPECT_FLOAT_EQ(static_cast<f32>(read[0]), 7.0F);
  EXPECT_FLOAT_EQ(static_cast<f32>(read[1]), 14.0F);
  EXPECT_EQ(read[2], 0);
  EXPECT_EQ(read[3], 0);
  EXPECT_EQ(range(1, kMost - 2, 10), (std::vector<f64>{0, 0}));

  recording.id = 6011;
  recording.data = FileBuilder().values({1.5, 2.5});
  file.rewrite(recording.build().bytes());
  EXPECT_EQ(range(1, 0, 3), (std::vector<f64>{1.5, 2.5, 0}));
}

TEST_F(RecorderValuesTest, DatabaseTakesARecordingBrokenOffEarly) {
  RecorderBuilder recording{.row_count = 1'000'001, .sample_format = 1257};
  recording.entries = {{}};
  recording.data.f32_field(1.5F).f32_field(-2);
  ASSERT_EQ(load(recording.build(), 2, 1), LoadStatus::Done);
  ASSERT_EQ(kernel.calls.size(), 2001u + 3u);
  EXPECT_TRUE(kernel.calls[0].starts_with("write 0 (append -1): 1.5 -2 0 0 "));
  EXPECT_TRUE(kernel.calls[0].ends_with(" 0 0 0"));
  EXPECT_EQ(kernel.calls[2000], "write 0 (append -1): 0");
}

TEST_F(RecorderValuesTest, DatabaseIsNotFilledWithRowsThatAreFarFromThere) {
  for (const i32 id : {6001, 6002, 6011, 6012}) {
    RecorderBuilder recording = counting_recording(2, 1);
    recording.id = id;
    recording.row_count = std::numeric_limits<i32>::max();
    EXPECT_EQ(load(recording.build(), 2, 1), run_time_error(kOutOfMemory));
    EXPECT_TRUE(kernel.calls.empty());
    recording.row_count = -1;
    EXPECT_EQ(load(recording.build(), 2, 1), LoadStatus::Done);
    EXPECT_EQ(kernel.calls.size(), 3u);
    kernel.calls.clear();
  }
}

TEST_F(RecorderValuesTest, DataOffsetsOutsideOfTheFileLeaveZeros) {
  for (const i32 offset : {-1, std::numeric_limits<i32>::min(), std::numeric_limits<i32>::max()})
    for (const i32 id : {6001, 6011}) {
      RecorderBuilder recording = counting_recording(2, 1);
      recording.id = id;
      ASSERT_EQ(load(recording.build().patch<i32>(24, offset), 1, 1), LoadStatus::Done);
      EXPECT_EQ(values(), (std::vector<f64>{0, 0}));
    }
}

TEST_F(RecorderValuesTest, NoRowsAreNoValues) {
  EXPECT_TRUE(load_values(counting_recording(0, 2), 1).empty());
  EXPECT_EQ(status, LoadStatus::Done);
}

// Rows with a time channel in the middle.
RecorderBuilder timed_recording(i32 format, i32 rows) {
  RecorderBuilder recording{.row_count = rows, .sample_format = format};
  recording.entries = {
      {.channel = 1}, {.channel = 17, .offset = 3}, {.channel = 18}, {.channel = 4, .scale = 7}};
  for (i32 sample = 0; sample < rows * 4; ++sample)
    if (format == 1253)
      recording.data.i32_field(static_cast<i32>(static_cast<u32>(sample) * 130007U));
    else if (format == 1257)
      recording.data.f32_field(static_cast<f32>(sample) / 3);
    else
      recording.data.i16_field(static_cast<i16>(sample * 13));
  return recording;
}

TEST_F(RecorderValuesTest, ColumnsReadTogetherAreThoseReadAlone) {
  const std::vector<i16> channels = {4, 1, 2, 4};
  for (const i32 format : {1253, 1255, 1257, 9})
    for (const i32 rows : {1, 7, 16384, 70001})
      for (const i64 cut : {0, 1, 3, 9, 30, 400000}) {
        SCOPED_TRACE(testing::Message() << format << ", " << rows << " rows, cut by " << cut);
        std::string bytes = timed_recording(format, rows).build().bytes();
        bytes.resize(bytes.size() - std::min(static_cast<std::size_t>(cut), bytes.size() - 600));
        file.rewrite(bytes);
        std::vector<std::vector<f64>> together(channels.size());
        model.FileDateText = "unberührt";
        ASSERT_EQ(PassRecorderColumns(file.path(), channels,
                                      [&](std::size_t place, i64 first, std::span<const f64> run) {
                                        ASSERT_EQ(first, static_cast<i64>(together[place].size()));
                                        together[place].insert(together[place].end(), run.begin(), run.end());
                                      }),
                  LoadStatus::Done);
        EXPECT_EQ(model.FileDateText, "unberührt");
        for (std::size_t i = 0; i < channels.size(); ++i) {
          ASSERT_EQ(LoadMeasurementFile(model, 1, file.path(), channels[i], 0), LoadStatus::Done);
          ASSERT_EQ(together[i], values()) << "channel " << channels[i];
        }
      }
}

TEST_F(RecorderValuesTest, ColumnsOfOtherFilesAreNotPassed) {
  const auto status_of = [&](const FileBuilder& builder, const std::vector<i16>& channels) {
    file.rewrite(builder.bytes());
    return PassRecorderColumns(file.path(), channels,
                               [](std::size_t, i64, std::span<const f64>) { ADD_FAILURE() << "passed"; });
  };
  const FileBuilder recording = counting_recording(3, 2).build();
  EXPECT_EQ(status_of(recording, {1, 3}), LoadStatus::NotMeasurement);
  EXPECT_EQ(status_of(recording, {0}), LoadStatus::NotMeasurement);
  EXPECT_EQ(status_of(recording, {}), LoadStatus::NotMeasurement);
  EXPECT_EQ(status_of(time_of_doubles(3).build(), {1}), LoadStatus::NotMeasurement);
  EXPECT_EQ(status_of(FileBuilder().i16_field(5012).zeros(500), {1}), LoadStatus::NotMeasurement);
  RecorderBuilder far = counting_recording(2, 1);
  far.row_count = std::numeric_limits<i32>::max();
  EXPECT_EQ(status_of(far.build(), {1}), run_time_error(kOutOfMemory));
  EXPECT_EQ(PassRecorderColumns("/", std::vector<i16>{1}, {}), LoadStatus::NotOpened);
}

TEST_F(RecorderValuesTest, RangesGiveWhatTheWholeGives) {
  for (const i32 format : {1253, 1255, 1257}) {
    RecorderBuilder recording{.row_count = 1203, .sample_format = format};
    recording.entries = {{.channel = 1}, {.channel = 17, .offset = 3}, {.channel = 18}};
    for (i32 row = 0; row < 1203 * 3; ++row)
      if (format == 1255)
        recording.data.i16_field(static_cast<i16>(row * 13));
      else if (format == 1253)
        recording.data.i32_field(static_cast<i32>(static_cast<u32>(row) * 130007U));
      else
        recording.data.f32_field(static_cast<f32>(row) / 3);
    for (i16 channel = 1; channel <= 3; ++channel) {
      const auto all = load_values(recording, channel);
      const std::pair<i64, i64> rows[] = {{0, 1203},   {0, 1},    {499, 2}, {1202, 1},
                                          {700, 5000}, {1203, 1}, {5000, 2}};
      for (const auto& [first, count] : rows) {
        const i64 begin = std::min<i64>(first, 1203);
        const i64 end = std::min<i64>(first + count, 1203);
        EXPECT_EQ(range(channel, first, count), std::vector<f64>(all.begin() + begin, all.begin() + end));
      }
      EXPECT_TRUE(range(channel, -1, 3).empty());
      EXPECT_TRUE(range(channel, 0, -3).empty());
    }
  }
}

}  // namespace
}  // namespace trendaro
