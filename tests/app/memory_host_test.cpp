#include "app/memory_host.h"

#include <filesystem>
#include <functional>
#include <limits>
#include <numeric>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/model.h"
#include "app/run_time_error.h"
#include "files/loader.h"
#include "support/file_builder.h"
#include "support/recording_shell.h"
#include "support/standard_builder.h"

namespace trendaro {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A user who remembers the progress that was shown.
class ProgressShell : public RecordingShell {
 public:
  std::vector<f64> progress;
  std::function<void()> during_progress = [] {};
  void show_progress(f64 fraction) override {
    progress.push_back(fraction);
    if (fraction > 0) during_progress();
  }
};

class MemoryHostTest : public testing::Test {
 protected:
  ProgressShell shell;
  MemoryHost host{shell, 4, 10};

  std::vector<f64> samples(i16 channel) {
    std::vector<f64> values(static_cast<std::size_t>(host.GetChannelLength(channel)));
    host.ReadData64(channel, values);
    return values;
  }
  void write(i16 channel, std::vector<f64> values) {
    EXPECT_EQ(host.KSD_WriteToDatabaseEx(1, channel, values, 0), 1);
  }
  void ask_import(const std::string& path, i16 source, i32 first, i32 count, i16 target = 2,
                  bool append = false) {
    host.SetImportProperty(kImportPath, path);
    host.SetImportProperty(kImportFixedWord, i16{0});
    host.SetImportProperty(kImportAppend, append);
    host.SetImportProperty(kImportTarget, target);
    host.SetImportProperty(kImportSourceChannel, source);
    host.SetImportProperty(kImportFirstSample, first);
    host.SetImportProperty(kImportSampleCount, count);
    host.ExecuteImport();
  }
};

i16 error_of(const std::function<void()>& call) {
  try {
    call();
  } catch (const RunTimeError& error) {
    return error.number;
  }
  return 0;
}

TEST_F(MemoryHostTest, ChannelsStartFreeWithTheirCapacity) {
  EXPECT_EQ(host.MaxChannels(), 4);
  EXPECT_EQ(host.GetChannelProperty(1, kChannelName), HostValue(std::string()));
  EXPECT_EQ(host.GetChannelProperty(1, kChannelUnit), HostValue(std::string()));
  EXPECT_EQ(host.GetChannelProperty(1, kChannelLength), HostValue(i32{0}));
  EXPECT_EQ(host.GetChannelProperty(4, kChannelCapacity), HostValue(i32{10}));
  EXPECT_EQ(host.GetChannelProperty(4, kChannelExportSelected), HostValue(i16{0}));
}

TEST_F(MemoryHostTest, DefaultSizeTakesNoMemoryBeforeUse) {
  MemoryHost large(shell);
  EXPECT_EQ(large.MaxChannels(), 96);
  EXPECT_EQ(large.GetChannelProperty(96, kChannelCapacity), HostValue(i32{100000}));
}

TEST_F(MemoryHostTest, PropertiesAreKeptByChannel) {
  host.SetChannelProperty(2, kChannelName, std::string("Drehzahl"));
  host.SetChannelProperty(2, kChannelUnit, std::string("1/min"));
  host.SetChannelProperty(3, kChannelExportSelected, i16{1});
  EXPECT_EQ(host_text(host.GetChannelProperty(2, kChannelName)), "Drehzahl");
  EXPECT_EQ(host_text(host.GetChannelProperty(2, kChannelUnit)), "1/min");
  EXPECT_EQ(host_text(host.GetChannelProperty(3, kChannelName)), "");
  EXPECT_EQ(host_integer(host.GetChannelProperty(3, kChannelExportSelected)), 1);
  EXPECT_EQ(host_integer(host.GetChannelProperty(2, kChannelExportSelected)), 0);
}

TEST_F(MemoryHostTest, LengthCanBeWrittenWithinTheCapacity) {
  write(1, {1, 2, 3});
  host.SetChannelProperty(1, kChannelLength, i32{2});
  EXPECT_THAT(samples(1), ElementsAre(1, 2));
  host.SetChannelProperty(1, kChannelLength, i32{4});
  EXPECT_THAT(samples(1), ElementsAre(1, 2, 0, 0));
  EXPECT_EQ(error_of([&] { host.SetChannelProperty(1, kChannelLength, i32{11}); }), kInvalidArgument);
}

TEST_F(MemoryHostTest, UnknownChannelsPropertiesAndKeysAreRefused) {
  for (const i16 channel : {i16{0}, i16{5}, i16{-1}}) {
    EXPECT_EQ(error_of([&] { host.GetChannelProperty(channel, kChannelName); }), kIndexOutOfRange);
    EXPECT_EQ(error_of([&] { host.SetChannelProperty(channel, kChannelName, i16{0}); }), kIndexOutOfRange);
    EXPECT_EQ(error_of([&] { host.GetChannelLength(channel); }), kIndexOutOfRange);
    EXPECT_EQ(error_of([&] { host.ReadData64(channel, {}); }), kIndexOutOfRange);
    EXPECT_EQ(error_of([&] { host.ClearChannel(channel); }), kIndexOutOfRange);
  }
  EXPECT_EQ(error_of([&] { host.GetChannelProperty(1, 3); }), kInvalidArgument);
  EXPECT_EQ(error_of([&] { host.SetChannelProperty(1, kChannelCapacity, i32{5}); }), kInvalidArgument);
  EXPECT_EQ(error_of([&] { host.SetImportProperty(0, i16{0}); }), kInvalidArgument);
  EXPECT_EQ(error_of([&] { host.SetImportProperty(8, i16{0}); }), kInvalidArgument);
  EXPECT_EQ(error_of([&] { host.SetImportProperty(kImportPath, i16{0}); }), kTypeMismatch);
  EXPECT_EQ(error_of([&] { host.SetImportProperty(kImportTarget, std::string("1")); }), kTypeMismatch);
  EXPECT_EQ(error_of([&] { host.GetDataFileInfo("x", 2, 1); }), kInvalidArgument);
  EXPECT_EQ(error_of([&] { host.ExecuteImport(); }), kInvalidArgument);
}

TEST_F(MemoryHostTest, ReadingTakesWhatTheCallerHasRoomFor) {
  write(1, {1, 2, 3});
  std::vector<f64> two(2);
  host.ReadData64(1, two);
  EXPECT_THAT(two, ElementsAre(1, 2));
  std::vector<f64> four(4, 9.0);
  host.ReadData64(1, four);
  EXPECT_THAT(four, ElementsAre(1, 2, 3, 9));
}

TEST_F(MemoryHostTest, ClearingEmptiesValuesAndTexts) {
  write(1, {1});
  write(2, {2});
  host.SetChannelProperty(1, kChannelName, std::string("weg"));
  host.ClearChannel(1);
  EXPECT_EQ(host.GetChannelLength(1), 0);
  EXPECT_EQ(host_text(host.GetChannelProperty(1, kChannelName)), "");
  EXPECT_EQ(host.GetChannelLength(2), 1);
  host.ClearAllChannels();
  EXPECT_EQ(host.GetChannelLength(2), 0);
}

TEST_F(MemoryHostTest, KernelWorksOnTheSameChannels) {
  EXPECT_EQ(host.KSD_WriteToDatabaseEx(1, 3, std::vector<f64>{1, 2}, 0), 1);
  EXPECT_EQ(host.KSD_WriteToDatabaseEx(1, 3, std::vector<f64>{3}, -1), 1);
  EXPECT_THAT(samples(3), ElementsAre(1, 2, 3));
  EXPECT_EQ(host.KSD_WriteToDatabaseEx(1, 3, std::vector<f64>{7}, 0), 1);
  EXPECT_THAT(samples(3), ElementsAre(7));
  EXPECT_EQ(host.KSD_GetDatabaseChanCurrLen(3), 1);
  EXPECT_EQ(host.KSD_SetDatabaseChanText(3, kChanName, "N"), 1);
  EXPECT_EQ(host.KSD_SetDatabaseChanText(3, kChanUnit, "U"), 1);
  EXPECT_EQ(host.KSD_SetDatabaseChanText(3, kChanComment, "K"), 1);
  EXPECT_EQ(host.KSD_SetDatabaseChanText(3, 3, "?"), 0);
  EXPECT_EQ(host_text(host.GetChannelProperty(3, kChannelName)), "N");
  EXPECT_EQ(host_text(host.GetChannelProperty(3, kChannelUnit)), "U");
  EXPECT_EQ(host.KSD_SetDatabaseChanModified(3, 44000.5), 1);
  EXPECT_EQ(host.KSD_SetDatabaseChanCurrLen(3, 3), 1);
  EXPECT_THAT(samples(3), ElementsAre(7, 0, 0));
  EXPECT_EQ(host.KSD_SetDatabaseChanCurrLen(3, -1), 0);
}

TEST_F(MemoryHostTest, KernelWritesUpToTheCapacityAndSaysSo) {
  std::vector<f64> twelve(12);
  std::iota(twelve.begin(), twelve.end(), 0.0);
  EXPECT_EQ(host.KSD_WriteToDatabaseEx(1, 1, twelve, 0), 0);
  EXPECT_THAT(samples(1), ElementsAre(0, 1, 2, 3, 4, 5, 6, 7, 8, 9));
}

TEST_F(MemoryHostTest, KernelRefusesChannelsThatDoNotExist) {
  EXPECT_EQ(host.KSD_WriteToDatabaseEx(1, 0, std::vector<f64>{1}, 0), 0);
  EXPECT_EQ(host.KSD_SetDatabaseChanText(5, kChanName, "N"), 0);
  EXPECT_EQ(host.KSD_SetDatabaseChanModified(-1, 1), 0);
  EXPECT_EQ(host.KSD_SetDatabaseChanCurrLen(70000, 1), 0);
  EXPECT_EQ(host.KSD_GetDatabaseChanCurrLen(70000), 0);
  EXPECT_EQ(host.DB_QuickMath(1, 5), 0);
}

TEST_F(MemoryHostTest, SumGoesAsFarAsBothChannels) {
  write(1, {1, 2, 3});
  write(2, {10, 20});
  EXPECT_EQ(host.DB_QuickMath(1, 2), 1);
  EXPECT_THAT(samples(1), ElementsAre(11, 22, 3));
  EXPECT_THAT(samples(2), ElementsAre(10, 20));
}

TEST_F(MemoryHostTest, ParameterIsShownByItsNumber) {
  std::string buffer(128, ' ');
  EXPECT_EQ(host.KSD_ACQTranslateParID(-1203, buffer), 1);
  EXPECT_EQ(buffer.substr(0, buffer.find('\0')), "-1203");
  EXPECT_EQ(buffer.size(), 128U);
}

TEST_F(MemoryHostTest, ProgressDisplayIsClosedByTheCommand) {
  host.ProgressControl(1);
  EXPECT_THAT(shell.progress, IsEmpty());
  host.ProgressControl(2);
  EXPECT_THAT(shell.progress, ElementsAre(-1));
}

TEST_F(MemoryHostTest, ConfiguredSizeHoldsAtOnceAndIsKept) {
  std::vector<DatabaseSize> kept;
  host.keep_size_with([&](const DatabaseSize& size) { kept.push_back(size); });
  write(1, {1, 2, 3});
  write(4, {4});
  shell.sizes = {DatabaseSize{4, 10}, std::nullopt, DatabaseSize{3, 2}};
  shell.yes_no = {true};
  for (int i = 0; i < 3; ++i) host.ShowDialog(kDatabaseConfiguration, 0);
  EXPECT_EQ(host.MaxChannels(), 3);
  EXPECT_EQ(host.GetChannelProperty(3, kChannelCapacity), HostValue(i32{2}));
  EXPECT_THAT(samples(1), ElementsAre(1, 2));
  EXPECT_EQ(error_of([&] { host.GetChannelLength(4); }), kIndexOutOfRange);
  EXPECT_THAT(kept, ElementsAre(DatabaseSize{3, 2}));
}

TEST_F(MemoryHostTest, LargerDatabaseKeepsItsSamples) {
  write(4, {4, 5});
  shell.sizes = {DatabaseSize{6, 20}};
  host.ShowDialog(kDatabaseConfiguration, 0);
  EXPECT_EQ(host.MaxChannels(), 6);
  EXPECT_THAT(samples(4), ElementsAre(4, 5));
  EXPECT_EQ(host.GetChannelLength(6), 0);
}

TEST_F(MemoryHostTest, DialogsThatAreNoneAreRefused) {
  EXPECT_EQ(error_of([&] { host.ShowDialog(7, 0); }), kHostMemberMissing);
  EXPECT_EQ(error_of([&] { host.ShowDialog(kExportDialog, 2); }), kInvalidArgument);
  EXPECT_THAT(shell.calls, IsEmpty());
}

// A standard file of the oldest kind: each channel holds the numbers from `start` on.
FileBuilder recording(i32 points) {
  FileBuilder file;
  file.i16_field(5004).i16_field(2);
  for (const auto& [name, unit] : {std::pair("Drehzahl", "1/min"), std::pair("Druck", "bar")})
    file.i32_field(points)
        .counted_text(name)
        .counted_text(unit)
        .counted_text("")
        .counted_text("")
        .counted_text("");
  for (const i32 start : {0, 1000})
    for (i32 i = 0; i < points; ++i) file.f64_field(start + i);
  return file;
}

class ImportTest : public MemoryHostTest {
 protected:
  TemporaryFile file{recording(20)};
};

TEST_F(ImportTest, FileTellsTheSamplesOfAChannel) {
  EXPECT_EQ(host.GetDataFileInfo(file.path(), 3, 1), 20);
  EXPECT_EQ(host.GetDataFileInfo(file.path(), 3, 2), 20);
  EXPECT_EQ(host.GetDataFileInfo(file.path(), 3, 3), 0);
  EXPECT_EQ(host.GetDataFileInfo(file.path(), 3, 0), 0);
  EXPECT_EQ(host.GetDataFileInfo(file.path() + ".none", 3, 1), 0);
}

TEST_F(ImportTest, AskedRangeArrivesWithNameAndUnit) {
  ask_import(file.path(), 2, 3, 4);
  EXPECT_THAT(samples(2), ElementsAre(1003, 1004, 1005, 1006));
  EXPECT_EQ(host_text(host.GetChannelProperty(2, kChannelName)), "Druck");
  EXPECT_EQ(host_text(host.GetChannelProperty(2, kChannelUnit)), "bar");
  EXPECT_EQ(host.GetChannelLength(1), 0);
  EXPECT_THAT(shell.progress, IsEmpty());
}

TEST_F(ImportTest, TimeBaseOfTheSignalIsKeptForTheExport) {
  StandardChannel channel;
  channel.values = {1, 2};
  channel.record.SampleInterval = 2.5;
  StandardFileLayout layout;
  layout.channels.push_back(channel);
  const TemporaryFile timed(layout.build());
  const TemporaryFolder folder;
  ask_import(timed.path(), 1, 0, 2);
  host.SetChannelProperty(2, kChannelExportSelected, i16{1});
  shell.files = {folder.file("werte.BIN")};
  host.ShowDialog(kExportDialog, 1);
  Model model{shell};
  ASSERT_EQ(LoadMeasurementFile(model, 0, folder.file("werte.BIN"), 1, 0), LoadStatus::Done);
  EXPECT_EQ(model.FileChannelRates[1], 2.5F);
}

TEST_F(ImportTest, SourceChannelMayBeAReal) {
  ask_import(file.path(), 2, 0, 1);
  host.SetImportProperty(kImportSourceChannel, 1.0);
  host.ExecuteImport();
  EXPECT_THAT(samples(2), ElementsAre(0));
}

TEST_F(ImportTest, ImportReplacesUnlessItIsToAppend) {
  ask_import(file.path(), 1, 0, 3);
  ask_import(file.path(), 1, 5, 2);
  EXPECT_THAT(samples(2), ElementsAre(5, 6));
  ask_import(file.path(), 1, 8, 2, 2, true);
  EXPECT_THAT(samples(2), ElementsAre(5, 6, 8, 9));
}

TEST_F(ImportTest, ImportStopsAtTheEndOfTheChannelAndOfTheFile) {
  ask_import(file.path(), 1, 0, 15);
  EXPECT_EQ(host.GetChannelLength(2), 10);  // the capacity
  ask_import(file.path(), 1, 8, 5, 2, true);
  EXPECT_EQ(host.GetChannelLength(2), 10);
  ask_import(file.path(), 1, 18, 5);
  EXPECT_THAT(samples(2), ElementsAre(18, 19));
  ask_import(file.path(), 1, 20, 5);
  EXPECT_THAT(samples(2), IsEmpty());
}

TEST_F(ImportTest, SamplesAheadOfTheFileDoNotExist) {
  ask_import(file.path(), 1, -2, 4);
  EXPECT_THAT(samples(2), ElementsAre(0, 1));
  ask_import(file.path(), 1, -9, 4);
  EXPECT_THAT(samples(2), IsEmpty());
  ask_import(file.path(), 1, std::numeric_limits<i32>::min(), std::numeric_limits<i32>::min());
  EXPECT_THAT(samples(2), IsEmpty());
}

TEST_F(ImportTest, MissingFileLeavesTheChannelEmptyAndIsNoFailure) {
  write(2, {1, 2});
  ask_import(file.path() + ".none", 1, 0, 4);
  EXPECT_EQ(host.GetChannelLength(2), 0);
  EXPECT_THAT(shell.calls, IsEmpty());
}

TEST_F(ImportTest, ChannelThatTheFileLacksImportsNothing) {
  ask_import(file.path(), 3, 0, 4);
  EXPECT_EQ(host.GetChannelLength(2), 0);
  EXPECT_EQ(error_of([&] { ask_import(file.path(), 1, 0, 4, 5); }), kIndexOutOfRange);
}

// A recording of zeros that is imported in three reads.
class LongImportTest : public MemoryHostTest {
 protected:
  static constexpr i32 kPoints = 2500000;

  LongImportTest() {
    FileBuilder header;
    header.i16_field(5004).i16_field(1).i32_field(kPoints);
    for (const char* text : {"lang", "V", "", "", ""}) header.counted_text(text);
    write_file(folder.file("lang.bin"), header.bytes());
    std::filesystem::resize_file(folder.file("lang.bin"), header.size() + kPoints * sizeof(f64));
    large.SetImportProperty(kImportPath, folder.file("lang.bin"));
    large.SetImportProperty(kImportTarget, i16{1});
    large.SetImportProperty(kImportSourceChannel, i16{1});
    large.SetImportProperty(kImportFirstSample, i32{0});
    large.SetImportProperty(kImportSampleCount, kPoints);
  }

  TemporaryFolder folder;
  MemoryHost large{shell, 1, kPoints};
};

TEST_F(LongImportTest, ProgressShowsAndGoesAtTheEnd) {
  large.ExecuteImport();
  EXPECT_EQ(large.GetChannelLength(1), kPoints);
  ASSERT_EQ(shell.progress.size(), 4U);
  EXPECT_EQ(shell.progress.front(), 0);
  EXPECT_GT(shell.progress[2], shell.progress[1]);
  EXPECT_LT(shell.progress[2], 1);
  EXPECT_LT(shell.progress[3], 0);  // the display is away
}

TEST_F(LongImportTest, ProgressGoesWithAFailureToo) {
  shell.during_progress = [] { throw std::bad_alloc(); };
  EXPECT_THROW(large.ExecuteImport(), std::bad_alloc);
  ASSERT_EQ(shell.progress.size(), 3U);
  EXPECT_GT(shell.progress[1], 0);
  EXPECT_LT(shell.progress[2], 0);
}

}  // namespace
}  // namespace trendaro
