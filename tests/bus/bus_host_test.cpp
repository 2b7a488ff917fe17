#include "app/bus_host.h"

#include <QDir>
#include <QFile>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/run_time_error.h"
#include "bus/private_bus.h"
#include "support/file_builder.h"
#include "support/reducible_files.h"

namespace trendaro {
namespace {

using testing::ElementsAre;

BusAddress usual_address() {
  return {QLatin1String(kHostService), QLatin1String(kHostPath)};
}

template <typename Call>
i16 failure_of(Call&& call) {
  try {
    call();
  } catch (const RunTimeError& failure) {
    return failure.number;
  }
  return 0;
}

// Resident memory of a process in KiB, and its open files.
i64 resident(i64 process) {
  QFile file(QStringLiteral("/proc/%1/statm").arg(process));
  EXPECT_TRUE(file.open(QIODevice::ReadOnly));
  return file.readAll().split(' ').at(1).toLongLong() * 4;
}
qsizetype open_files(i64 process) {
  return QDir(QStringLiteral("/proc/%1/fd").arg(process)).entryList(QDir::AllEntries | QDir::System).size();
}

// A viewer's side of the bus, with the embedded host served by a program of its own.
class BusHostTest : public testing::Test {
 protected:
  BusHostTest() {
    server.start();
    bus.wait_for(kHostService);
  }

  void import(const std::string& path, i16 target, i32 first, i32 count) {
    host.SetImportProperty(kImportPath, path);
    host.SetImportProperty(kImportFixedWord, i16{0});
    host.SetImportProperty(kImportAppend, false);
    host.SetImportProperty(kImportTarget, target);
    host.SetImportProperty(kImportSourceChannel, i16{1});
    host.SetImportProperty(kImportFirstSample, first);
    host.SetImportProperty(kImportSampleCount, count);
    host.ExecuteImport();
    host.ProgressControl(2);
  }

  PrivateBus bus;
  Program server{&bus,
                 SERVE_HOST,
                 {QStringLiteral("--channels"), QStringLiteral("12"), QStringLiteral("--samples"),
                  QStringLiteral("200000")}};
  BusHost host{bus.connection(), usual_address()};
};

TEST_F(BusHostTest, ServiceThatIsThereIsCreated) {
  EXPECT_EQ(failure_of([&] { host.create(); }), 0);
}

TEST_F(BusHostTest, PropertiesComeWithTheirTypes) {
  EXPECT_EQ(host.DB().MaxChannels(), 12);
  EXPECT_EQ(host.GetChannelProperty(12, kChannelCapacity), HostValue(i32{200000}));
  host.SetChannelProperty(3, kChannelName, std::string("Öldruck µ"));
  host.SetChannelProperty(3, kChannelExportSelected, i16{1});
  EXPECT_EQ(host.GetChannelProperty(3, kChannelName), HostValue(std::string("Öldruck µ")));
  EXPECT_EQ(host.GetChannelProperty(3, kChannelUnit), HostValue(std::string()));
  EXPECT_EQ(host.GetChannelProperty(3, kChannelExportSelected), HostValue(i16{1}));
  EXPECT_EQ(host.GetChannelProperty(3, kChannelLength), HostValue(i32{0}));
}

TEST_F(BusHostTest, SamplesGoBothWays) {
  std::vector<f64> values(150000);
  for (std::size_t i = 0; i < values.size(); ++i) values[i] = 0.1 * static_cast<f64>(i);
  EXPECT_EQ(host.KSD_WriteToDatabaseEx(1, 2, values, 0), 1);
  EXPECT_EQ(host.GetChannelLength(2), 150000);
  std::vector<f64> read(150000);
  host.ReadData64(2, read);
  EXPECT_EQ(read, values);
  std::vector<f64> first(3);
  host.ReadData64(2, first);
  EXPECT_THAT(first, ElementsAre(values[0], values[1], values[2]));
}

TEST_F(BusHostTest, KernelWorksOnTheSameChannels) {
  EXPECT_EQ(host.KSD_WriteToDatabaseEx(1, 1, std::vector<f64>{1, 2}, 0), 1);
  EXPECT_EQ(host.KSD_WriteToDatabaseEx(1, 1, std::vector<f64>{3}, -1), 1);
  EXPECT_EQ(host.KSD_WriteToDatabaseEx(1, 4, std::vector<f64>{10, 20, 30}, 0), 1);
  EXPECT_EQ(host.DB_QuickMath(1, 4), 1);
  std::vector<f64> sum(3);
  host.ReadData64(1, sum);
  EXPECT_THAT(sum, ElementsAre(11, 22, 33));
  EXPECT_EQ(host.KSD_SetDatabaseChanCurrLen(1, 2), 1);
  EXPECT_EQ(host.KSD_GetDatabaseChanCurrLen(1), 2);
  EXPECT_EQ(host.KSD_SetDatabaseChanText(1, kChanUnit, "°C"), 1);
  EXPECT_EQ(host.GetChannelProperty(1, kChannelUnit), HostValue(std::string("°C")));
  EXPECT_EQ(host.KSD_SetDatabaseChanModified(1, 44260.5), 1);
  EXPECT_EQ(host.KSD_WriteToDatabaseEx(1, 13, std::vector<f64>{1}, 0), 0);
  std::string word(128, ' ');
  EXPECT_EQ(host.KSD_ACQTranslateParID(321, word), 1);
  EXPECT_EQ(word.substr(0, 4), std::string("321\0", 4));
  EXPECT_EQ(word.size(), 128U);
}

TEST_F(BusHostTest, ClearedChannelsAreFree) {
  for (const i32 channel : {1, 2, 3}) host.KSD_WriteToDatabaseEx(1, channel, std::vector<f64>{1}, 0);
  host.ClearChannel(2);
  EXPECT_EQ(host.GetChannelLength(1), 1);
  EXPECT_EQ(host.GetChannelLength(2), 0);
  host.ClearAllChannels();
  EXPECT_EQ(host.GetChannelLength(3), 0);
}

TEST_F(BusHostTest, RefusalKeepsItsNumber) {
  EXPECT_EQ(failure_of([&] { host.GetChannelProperty(13, kChannelLength); }), kIndexOutOfRange);
  EXPECT_EQ(failure_of([&] { host.GetChannelProperty(1, 77); }), kInvalidArgument);
  EXPECT_EQ(failure_of([&] { host.SetImportProperty(kImportTarget, std::string("1")); }), kTypeMismatch);
  EXPECT_EQ(failure_of([&] { host.ShowDialog(99, 0); }), kHostMemberMissing);
}

TEST_F(BusHostTest, PathThatIsNoTextIsRefusedHere) {
  const std::string path = "/tmp/\xff.bin";
  EXPECT_EQ(failure_of([&] { host.SetImportProperty(kImportPath, path); }), kInvalidArgument);
  EXPECT_EQ(failure_of([&] { host.GetDataFileInfo(path, 3, 1); }), kInvalidArgument);
}

TEST_F(BusHostTest, SectionOfAFileIsImported) {
  const TemporaryFolder folder;
  StandardFile file;
  file.channels.push_back({.name = "Weg", .unit = "mm", .samples = {5, 6, 7, 8, 9}});
  const std::string path = folder.file("Läufe 1.bin");
  write_file(path, file.build().bytes());
  EXPECT_EQ(host.GetDataFileInfo(path, 3, 1), 5);
  import(path, 7, 1, 3);
  std::vector<f64> read(3);
  host.ReadData64(7, read);
  EXPECT_THAT(read, ElementsAre(6, 7, 8));
  EXPECT_EQ(host.GetChannelProperty(7, kChannelName), HostValue(std::string("Weg")));
}

TEST_F(BusHostTest, ThousandImportsTakeNoMoreMemoryThanAFew) {
  const TemporaryFolder folder;
  StandardFile file;
  file.channels.push_back({.name = "Weg", .unit = "mm", .samples = std::vector<f64>(20000, 1.5)});
  const std::string path = folder.file("lauf.bin");
  write_file(path, file.build().bytes());
  std::vector<f64> read(20000);
  const auto round = [&] {
    import(path, 3, 0, 20000);
    host.ReadData64(3, read);
  };
  for (int i = 0; i < 100; ++i) round();
  const i64 server_id = server.process.processId();
  const i64 own_id = QCoreApplication::applicationPid();
  const i64 server_before = resident(server_id);
  const i64 own_before = resident(own_id);
  const auto server_files = open_files(server_id);
  const auto own_files = open_files(own_id);
  for (int i = 0; i < 1000; ++i) round();
  EXPECT_LT(resident(server_id) - server_before, 4096);
  EXPECT_LT(resident(own_id) - own_before, 4096);
  EXPECT_LE(open_files(server_id), server_files + 2);
  EXPECT_LE(open_files(own_id), own_files + 2);
}

TEST_F(BusHostTest, HostThatEndedFailsEveryCall) {
  server.process.kill();
  EXPECT_EQ(server.wait_for_end(), -1);
  EXPECT_EQ(failure_of([&] { host.MaxChannels(); }), kHostCallFailed);
  EXPECT_EQ(failure_of([&] { host.ProgressControl(2); }), kHostCallFailed);
  EXPECT_EQ(failure_of([&] { host.create(); }), kHostNotCreated);
}

TEST_F(BusHostTest, BusThatEndedFailsEveryCall) {
  bus.stop();
  EXPECT_EQ(failure_of([&] { host.MaxChannels(); }), kHostCallFailed);
  EXPECT_EQ(server.wait_for_end(), 0);
}

TEST_F(BusHostTest, SecondServerFindsTheNameTaken) {
  Program second(&bus, SERVE_HOST, {});
  second.start();
  EXPECT_EQ(second.wait_for_end(), 1);
  EXPECT_EQ(host.MaxChannels(), 12);
}

}  // namespace
}  // namespace trendaro
