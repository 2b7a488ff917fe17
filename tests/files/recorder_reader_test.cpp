#include "files/recorder_reader.h"

#include <algorithm>
#include <filesystem>

#include "support/load_fixture.h"
#include "support/recorder_builder.h"

namespace trendaro {
namespace {

class RecorderReaderTest : public LoadTest {};

// Two hardware channels, the first with two signals; 2 rows of i16.
RecorderBuilder small_recording() {
  RecorderBuilder recording{.row_count = 2};
  RecorderEntry force{.channel = 3, .unit = "N", .mask = 0x050003, .name_field = quoted_name("Kraft;links")};
  force.settings.patch<u8>(48, 1).patch<f32>(107, 1.25F);
  RecorderEntry way{.channel = 7, .unit = "mm", .mask = 0b1000, .name_field = quoted_name("Weg")};
  way.settings.patch<u8>(48, 4).patch<f32>(107, 2.5F);
  recording.entries = {force, way};
  for (const int raw : {1, 2, 3, 4, 5, 6}) recording.data.i16_field(static_cast<i16>(raw));
  return recording;
}

void expect_same_description(const Model& one, const Model& other) {
  EXPECT_EQ(one.FileChannelCount, other.FileChannelCount);
  EXPECT_EQ(one.FileReduceFactor, other.FileReduceFactor);
  EXPECT_EQ(one.FileChannelNames, other.FileChannelNames);
  EXPECT_EQ(one.FileChannelUnits, other.FileChannelUnits);
  EXPECT_EQ(one.FileChannelRates, other.FileChannelRates);
  EXPECT_EQ(one.FileChannelPoints, other.FileChannelPoints);
  EXPECT_EQ(one.FileDateText, other.FileDateText);
  EXPECT_EQ(one.FileCommentText, other.FileCommentText);
  EXPECT_EQ(one.FileChannelComment, other.FileChannelComment);
  EXPECT_EQ(one.ChannelParams.at(0), other.ChannelParams.at(0));
}

TEST_F(RecorderReaderTest, DescribesEveryColumn) {
  model.FileId = 77;
  ASSERT_EQ(load(small_recording().build(), 0, 0), LoadStatus::Done);
  EXPECT_EQ(model.FileChannelCount, 2);
  ASSERT_EQ(model.FileChannelNames.size(), 3u);
  EXPECT_EQ(model.FileChannelNames[1], "Kraft");
  EXPECT_EQ(model.FileChannelNames[2], "Kraft");
  EXPECT_EQ(model.FileChannelNames[3], "Weg");
  EXPECT_EQ(model.FileChannelUnits[2], "N");
  EXPECT_EQ(model.FileChannelUnits[3], "mm");
  EXPECT_EQ(model.FileChannelRates[1], 10.0F);
  EXPECT_EQ(model.FileChannelPoints, (std::vector<i32>{2, 2, 2, 0}));
  EXPECT_EQ(model.FileReduceFactor, 0);
  EXPECT_EQ(model.FileReduceBlock, 0);
  EXPECT_EQ(model.FileId, 77);
  EXPECT_EQ(model.FileDateText, "Fri Mar 05 12:34:56 2021");
  EXPECT_EQ(model.FileCommentText.substr(0, 11), std::string(2, '\0') + "Kommentar");
  EXPECT_EQ(model.FileCommentText.size(), 80u);
}

TEST_F(RecorderReaderTest, EachLoadReplacesTheOneBefore) {
  ASSERT_EQ(load(small_recording().build(), 0, 0), LoadStatus::Done);
  RecorderBuilder other{.id = 6012, .row_count = 9, .rate_code = 6300, .reduce_factor = 40};
  other.entries = {{.channel = 1}};
  ASSERT_EQ(load(other.build(), 0, 0), LoadStatus::Done);
  EXPECT_EQ(model.FileChannelNames.size(), 1u);
  EXPECT_EQ(model.FileChannelPoints, (std::vector<i32>{9, 0}));
  EXPECT_EQ(model.FileChannelRates[1], 1000.0F);
  EXPECT_EQ(model.FileReduceFactor, 40);
}

TEST_F(RecorderReaderTest, NothingOfTheFileBeforeShowsThrough) {
  RecorderBuilder time_only;
  time_only.entries = {{.channel = 17}, {.channel = 18}};
  RecorderBuilder hardware;
  hardware.entries = {{.channel = 5, .mask = 2}};
  for (const i32 id : {6001, 6002, 6011, 6012})
    for (const i16 channel : {i16{0}, i16{1}})
      for (RecorderBuilder* recording : {&time_only, &hardware}) {
        SCOPED_TRACE(std::to_string(id) + ", channel " + std::to_string(channel));
        recording->id = id;
        for (const std::string& bytes :
             {recording->build().bytes(), recording->build().bytes().substr(0, 60)}) {
          ASSERT_EQ(load(small_recording().build(), 0, 2), LoadStatus::Done);
          ASSERT_EQ(model.ChannelParams[0].AmplifierType, 5000);
          file.rewrite(bytes);
          ASSERT_EQ(LoadRecorderFile(model, 0, file.path(), channel, 0), LoadStatus::Done);
          Model fresh(shell);
          ASSERT_EQ(LoadRecorderFile(fresh, 0, file.path(), channel, 0), LoadStatus::Done);
          expect_same_description(model, fresh);
          EXPECT_EQ(model.ChannelParams[0].AmplifierType, 0);
          EXPECT_EQ(model.ChannelParams[0].MeasuredSignal, recording == &hardware ? 215 : 0);
        }
      }
}

TEST_F(RecorderReaderTest, HeaderThatFailsLeavesNothingOfTheFileBefore) {
  for (const i32 count : {-5, 0x7FFFFFFF}) {
    ASSERT_EQ(load(small_recording().build(), 0, 2), LoadStatus::Done);
    file.rewrite(small_recording().build().patch<i32>(4, count).bytes());
    ASSERT_GT(static_cast<i16>(LoadRecorderFile(model, 0, file.path(), 2, 0)), 0);
    EXPECT_EQ(model.FileChannelCount, 0);
    EXPECT_TRUE(model.FileChannelNames.empty());
    EXPECT_EQ(model.FileDateText, "");
    EXPECT_EQ(model.ChannelParams[0], ChannelParamRecord{});
  }
}

TEST_F(RecorderReaderTest, KeepsTheParametersOfTheRequestedColumn) {
  ASSERT_EQ(load(small_recording().build(), 0, 2), LoadStatus::Done);
  EXPECT_EQ(model.ChannelParams[0].AmplifierType, 5000);
  EXPECT_EQ(model.ChannelParams[0].ZeroValue, 1.25F);
  EXPECT_EQ(model.ChannelParams[0].HardwareChannel, 3);
  EXPECT_EQ(model.ChannelParams[0].HardwareSubChannel, 5);
  EXPECT_EQ(model.ChannelParams[0].SampleInterval, 10.0);
  ASSERT_EQ(load(small_recording().build(), 0, 3), LoadStatus::Done);
  EXPECT_EQ(model.ChannelParams[0].AmplifierType, 5003);
  EXPECT_EQ(model.ChannelParams[0].HardwareChannel, 7);
  EXPECT_EQ(model.ChannelParams[0].HardwareSubChannel, 5);
}

TEST_F(RecorderReaderTest, LastHardwareColumnDecidesTheMeasuredSignal) {
  for (i16 channel = 0; channel <= 4; ++channel) {
    model.ChannelParams.clear();
    ASSERT_EQ(load(small_recording().build(), 0, channel), LoadStatus::Done);
    EXPECT_EQ(model.ChannelParams[0].MeasuredSignal, 205) << channel;
  }
}

TEST_F(RecorderReaderTest, EverySignalBitHasItsParameter) {
  const i16 expected[] = {214, 215, 204, 205, 217, 289};
  for (int bit = 0; bit < 6; ++bit) {
    RecorderBuilder recording;
    recording.entries = {{.mask = 1 << bit}};
    ASSERT_EQ(load(recording.build(), 0, 1), LoadStatus::Done);
    EXPECT_EQ(model.ChannelParams[0].MeasuredSignal, expected[bit]);
  }
}

TEST_F(RecorderReaderTest, TimeChannelHasNoSettings) {
  RecorderBuilder recording = small_recording();
  recording.entries.push_back({.channel = 17});
  recording.entries.push_back({.channel = 18});
  ASSERT_EQ(load(recording.build(), 0, 4), LoadStatus::Done);
  EXPECT_EQ(model.FileChannelCount, 3);
  EXPECT_EQ(model.FileChannelNames.size(), 5u);
  EXPECT_EQ(model.FileChannelNames[4], "TLQ 17 (Zeitkanal)");
  EXPECT_EQ(model.ChannelParams[0].HardwareChannel, 17);
  EXPECT_EQ(model.ChannelParams[0].ZeroValue, 0.0F);
  EXPECT_EQ(model.ChannelParams[0].MeasuredSignal, 205);
}

TEST_F(RecorderReaderTest, RatesBelowOneHertzCountAsOne) {
  RecorderBuilder recording = small_recording();
  recording.rate_code = 6350;
  ASSERT_EQ(load(recording.build(), 0, 1), LoadStatus::Done);
  EXPECT_EQ(model.FileChannelRates[1], 1000.0F);
  EXPECT_EQ(model.ChannelParams[0].SampleInterval, 1000.0);
  recording.rate_code = 6306;
  ASSERT_EQ(load(recording.build(), 0, 1), LoadStatus::Done);
  EXPECT_EQ(model.FileChannelRates[1], static_cast<f32>(1000.0 / 60.0));
  EXPECT_EQ(model.ChannelParams[0].SampleInterval, 1000.0 / 60.0);
}

TEST_F(RecorderReaderTest, ReducedRecordingCountsTwoColumnsASignal) {
  RecorderBuilder recording{.id = 6002, .row_count = 2, .reduce_factor = 100};
  recording.entries = {{.channel = 1, .mask = 3, .name_field = quoted_name("Kraft")},
                       {.channel = 2, .mask = 3, .name_field = quoted_name("Weg")}};
  for (const int raw : {1, 9, -4, 4, 2, 8, -3, 3}) recording.data.i16_field(static_cast<i16>(raw));
  ASSERT_EQ(load(recording.build(), 1, 4), LoadStatus::Done);
  EXPECT_EQ(model.FileChannelCount, 4);
  EXPECT_EQ(model.FileReduceFactor, 100);
  EXPECT_EQ(model.FileChannelNames[1], "Kraft");
  EXPECT_EQ(model.FileChannelNames[3], "Weg");
  ASSERT_EQ(values().size(), 2u);
  EXPECT_FLOAT_EQ(static_cast<f32>(values()[0]), 4.0F);
  EXPECT_FLOAT_EQ(static_cast<f32>(values()[1]), 3.0F);
}

TEST_F(RecorderReaderTest, ChannelsThatAreNotThereSelectNothing) {
  ASSERT_EQ(load(small_recording().build(), 1, 3), LoadStatus::Done);
  const auto kept = values();
  for (const i16 channel : std::initializer_list<i16>{0, 4, -1, 32767, -32768})
    for (i16 mode = 0; mode <= 2; ++mode) {
      EXPECT_EQ(load(small_recording().build(), mode, channel), LoadStatus::Done);
      EXPECT_EQ(values(), kept);
      EXPECT_TRUE(range(channel, 0, 2).empty());
      EXPECT_EQ(range_status, LoadStatus::Done);
    }
  EXPECT_TRUE(kernel.calls.empty());
}

TEST_F(RecorderReaderTest, ArraysHaveASlotForEachColumnWhateverTheCount) {
  RecorderBuilder recording{.id = 6002};
  recording.entries = {{.mask = 1}, {.mask = 0}, {.mask = 0b111}};
  ASSERT_EQ(load(recording.build(), 0, 5), LoadStatus::Done);
  EXPECT_EQ(model.FileChannelCount, 6);
  EXPECT_EQ(model.FileChannelNames.size(), 4u);
  EXPECT_EQ(model.FileChannelUnits.size(), 4u);
  EXPECT_EQ(model.FileChannelRates.size(), 4u);
  EXPECT_EQ(model.FileChannelPoints.size(), 5u);
  EXPECT_EQ(model.ChannelParams[0].HardwareChannel, 0);
  EXPECT_TRUE(range(5, 0, 1).empty());
}

TEST_F(RecorderReaderTest, DatabaseTakesValuesInBlocksOf500) {
  RecorderBuilder recording = small_recording();
  recording.row_count = 1001;
  recording.data = FileBuilder();
  for (i32 row = 0; row < 1001 * 3; ++row) recording.data.i16_field(static_cast<i16>(row == 3000 ? 1 : 0));
  file.rewrite(recording.build().bytes());
  model.ChannelParams[7].ZeroValue = 9;
  ASSERT_EQ(LoadRecorderFile(model, 2, file.path(), 1, 7), LoadStatus::Done);
  std::string zeros = "write 7 (append -1):";
  for (int i = 0; i < 500; ++i) zeros += " 0";
  EXPECT_EQ(kernel.calls,
            (std::vector<std::string>{zeros, zeros, "write 7 (append -1): 1", "text 7 0: Kraft",
                                      "text 7 1: N", "text 7 2: \"Kraft;links\"" + std::string(34, ' ')}));
  EXPECT_EQ(model.LastDatabaseStatus, 2);
  EXPECT_EQ(model.ChannelParams[7], model.ChannelParams[0]);
  EXPECT_EQ(model.ChannelParams[7].ZeroValue, 1.25F);
}

// How many values each call handed to the database, for one channel or for the scratch channel.
std::vector<i64> written_lengths(const std::vector<std::string>& calls, const std::string& channel) {
  std::vector<i64> lengths;
  for (const std::string& call : calls)
    if (call.starts_with("write " + channel + " ")) {
      const std::string values = call.substr(call.find(':') + 1);
      lengths.push_back(std::count(values.begin(), values.end(), ' '));
    }
  return lengths;
}

TEST_F(RecorderReaderTest, WholeBlocksHaveNoRestBlock) {
  const std::pair<i32, std::vector<i64>> rows_and_writes[] = {
      {499, {499}}, {500, {500}}, {501, {500, 1}}, {1000, {500, 500}}, {128000, std::vector<i64>(256, 500)}};
  model.XScratchChannel = 40;
  for (const auto& [rows, writes] : rows_and_writes) {
    RecorderBuilder recording{.row_count = rows};
    recording.entries = {{.channel = 1}};
    recording.data.zeros(static_cast<std::size_t>(rows) * 2);
    file.rewrite(recording.build().bytes());
    kernel.calls.clear();
    ASSERT_EQ(LoadRecorderFile(model, 2, file.path(), 1, 7), LoadStatus::Done);
    EXPECT_EQ(written_lengths(kernel.calls, "7"), writes);

    recording = {.id = 6011, .row_count = rows};
    recording.entries = {{.channel = 17}, {.channel = 18}};
    recording.data.zeros(static_cast<std::size_t>(rows) * 16);
    file.rewrite(recording.build().bytes());
    kernel.calls.clear();
    ASSERT_EQ(LoadRecorderFile(model, 2, file.path(), 1, 7), LoadStatus::Done);
    EXPECT_EQ(written_lengths(kernel.calls, "7"), writes);
    EXPECT_EQ(written_lengths(kernel.calls, "40"), writes);
  }
}

TEST_F(RecorderReaderTest, LoaderHandsOnDatabaseChannelZero) {
  ASSERT_EQ(load(small_recording().build(), 2, 3, 12), LoadStatus::Done);
  ASSERT_EQ(kernel.calls.size(), 4u);
  EXPECT_TRUE(kernel.calls[0].starts_with("write 0 (append -1): 3.0000002"));
  EXPECT_EQ(kernel.calls[1], "text 0 0: Weg");
}

TEST_F(RecorderReaderTest, KernelSumsATimeOfDoublesThroughTheScratchChannel) {
  RecorderBuilder recording{.id = 6011, .row_count = 502};
  recording.entries = {{.channel = 17, .unit = "ms"}, {.channel = 18}};
  recording.data.values(std::vector<f64>(502, 1)).values(std::vector<f64>(502, 2));
  file.rewrite(recording.build().bytes());
  model.XScratchChannel = 40;
  ASSERT_EQ(LoadRecorderFile(model, 2, file.path(), 1, 5), LoadStatus::Done);
  ASSERT_EQ(kernel.calls.size(), 9u);
  EXPECT_EQ(kernel.calls[1], "write 5 (append -1): 1 1");
  EXPECT_EQ(kernel.calls[2].substr(0, 25), "write 40 (append 0): 2 2 ");
  EXPECT_EQ(kernel.calls[3], "write 40 (append -1): 2 2");
  EXPECT_EQ(kernel.calls[4], "add 5 40");
  EXPECT_EQ(kernel.calls[5], "length 40: 0");
  EXPECT_EQ(kernel.calls[6], "text 5 0: TLQ 17 (Zeitkanal)");
  EXPECT_EQ(kernel.calls[7], "text 5 1: ms");
  EXPECT_EQ(kernel.calls[8], "text 5 2: ");
}

TEST_F(RecorderReaderTest, ATimeOfDoublesWithoutRowsAddsNothing) {
  RecorderBuilder recording{.id = 6011};
  recording.entries = {{.channel = 17, .unit = "ms"}, {.channel = 18}};
  file.rewrite(recording.build().bytes());
  ASSERT_EQ(LoadRecorderFile(model, 2, file.path(), 1, 5), LoadStatus::Done);
  EXPECT_EQ(kernel.calls,
            (std::vector<std::string>{"text 5 0: TLQ 17 (Zeitkanal)", "text 5 1: ms", "text 5 2: "}));
}

TEST_F(RecorderReaderTest, HardwareChannelsThatNoFieldHoldsAreAnErrorWhereTheyAreAskedFor) {
  for (const i32 number : {70000, -40000}) {
    RecorderBuilder recording;
    recording.entries = {{.channel = number}, {.channel = 2}};
    if (number > 0) recording.entries[0].settings = FileBuilder();
    EXPECT_EQ(load(recording.build(), 0, 1), run_time_error(kOverflow)) << number;
    EXPECT_EQ(load(recording.build(), 0, 2), LoadStatus::Done) << number;
    EXPECT_EQ(model.ChannelParams[0].HardwareChannel, 2);
    EXPECT_EQ(model.FileChannelNames[1], "TLQ CH " + std::to_string(number) + ".0");
  }
}

TEST_F(RecorderReaderTest, WithoutAKernelModeTwoFails) {
  model.Kernel = nullptr;
  EXPECT_EQ(load(small_recording().build(), 2, 1), run_time_error(kHostMemberMissing));
}

TEST_F(RecorderReaderTest, FilesThatCannotBeReadHaveTheirStatus) {
  model.FileReduceFactor = 5;
  EXPECT_EQ(LoadRecorderFile(model, 0, file.path() + ".fehlt", 1, 0), LoadStatus::NotOpened);
  EXPECT_EQ(model.FileReduceFactor, 0);
  EXPECT_EQ(LoadRecorderFile(model, 0, "/", 1, 0), LoadStatus::NotOpened);
  file.rewrite("");
  EXPECT_EQ(LoadRecorderFile(model, 0, file.path(), 1, 0), LoadStatus::NotMeasurement);
  // The loader looks at the low word of the id and leaves the file to this reader, which looks at all of it.
  model.FileId = 77;
  EXPECT_EQ(load(FileBuilder().i32_field(6001 + 65536).zeros(100), 0, 1), LoadStatus::NotMeasurement);
  EXPECT_EQ(model.FileId, 77);
}

TEST_F(RecorderReaderTest, BadCountsEndWithTheirNumber) {
  EXPECT_EQ(load(small_recording().build().patch<i32>(4, -5), 0, 1), run_time_error(kIndexOutOfRange));
  EXPECT_EQ(load(small_recording().build().patch<i32>(4, 0x7FFFFFFF), 0, 1), run_time_error(kOverflow));
}

TEST_F(RecorderReaderTest, EveryCutIsHarmlessInEveryMode) {
  for (const i32 id : {6001, 6002, 6011, 6012}) {
    RecorderBuilder recording = small_recording();
    recording.id = id;
    const std::string bytes = recording.build().bytes();
    file.rewrite(bytes);
    for (std::size_t size = bytes.size() + 1; size-- > 0;) {
      std::filesystem::resize_file(file.path(), size);
      for (i16 mode = 0; mode <= 2; ++mode) {
        SCOPED_TRACE(std::to_string(id) + " cut at " + std::to_string(size));
        const LoadStatus status = LoadMeasurementFile(model, mode, file.path(), 3, 0);
        ASSERT_EQ(status, size < 4 ? LoadStatus::NotMeasurement : LoadStatus::Done);
        if (size < 4) continue;
        const bool has_channel = size >= 32 + 2 * 20;
        ASSERT_EQ(model.FileChannelCount, size < 8 ? 0 : id == 6002 ? 4 : 2);
        ASSERT_EQ(model.FileChannelNames.size(), has_channel ? 3u : size >= 32 + 20 ? 2u : 0u);
        ASSERT_EQ(model.FileChannelPoints.size(), model.FileChannelNames.size() + 1);
        if (mode == 1 && has_channel) {
          ASSERT_EQ(values().size(), 2u);
        }
      }
    }
  }
}

TEST_F(RecorderReaderTest, RandomDamageIsHarmless) {
  const std::string whole = small_recording().build().bytes();
  u32 state = 1;
  for (int round = 0; round < 500; ++round) {
    std::string bytes = whole;
    for (int hit = 0; hit < 3; ++hit) {
      state = state * 1664525 + 1013904223;
      bytes[(state >> 8) % 120] = static_cast<char>(state >> 24);
    }
    static_cast<void>(load(bytes, 1, 2));
    ASSERT_LE(model.FileChannelValues.size(), 2000000u);
    static_cast<void>(LoadMeasurementFile(model, 0, file.path(), 2, 0));
  }
}

}  // namespace
}  // namespace trendaro
