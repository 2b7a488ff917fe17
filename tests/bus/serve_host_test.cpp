#include <QDBusMessage>
#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/bus_host.h"
#include "bus/robot_program.h"
#include "support/file_builder.h"

namespace trendaro {
namespace {

using testing::HasSubstr;

// The program that serves the embedded host, with a user before its window.
class ServeHostTest : public testing::Test {
 protected:
  void start() {
    server.start();
    bus.wait_for(kHostService);
  }
  void ask_dialog(i16 dialog, i16 argument) {
    QDBusMessage message = QDBusMessage::createMethodCall(
        QLatin1String(kHostService), QLatin1String(kHostPath) + QStringLiteral("/DB"),
        QLatin1String(kHostInterface) + QStringLiteral(".DB"), QStringLiteral("ShowDialog"));
    message.setArguments({QVariant::fromValue(dialog), QVariant::fromValue(argument)});
    bus.connection().asyncCall(message, kPatience);  // answered when the dialog is closed
  }

  PrivateBus bus;
  Robot server{&bus,
               {QStringLiteral("--channels"), QStringLiteral("2"), QStringLiteral("--samples"),
                QStringLiteral("2500000")},
               ROBOT_HOST};
  BusHost host{bus.connection(), {QLatin1String(kHostService), QLatin1String(kHostPath)}};
};

TEST_F(ServeHostTest, WindowTellsTheSizeOfTheDatabase) {
  start();
  EXPECT_TRUE(server.shows("HostWindow"));
  EXPECT_EQ(server.tell("text DatabaseSize"), "2 Kanäle zu je 2500000 Werten");
  ask_dialog(kDatabaseConfiguration, 0);
  ASSERT_TRUE(server.shows("HostWindow frmDatabase"));
  server.tell("type ChannelsBox 7");
  server.tell("press OKButton");
  ASSERT_TRUE(server.shows("HostWindow"));
  EXPECT_EQ(server.tell("text DatabaseSize"), "7 Kanäle zu je 2500000 Werten");
  EXPECT_EQ(host.MaxChannels(), 7);
}

TEST_F(ServeHostTest, LongImportShowsItsProgressAndAShortOneDoesNot) {
  constexpr i32 kPoints = 2500000;
  FileBuilder header;
  header.i16_field(5004).i16_field(1).i32_field(kPoints);
  for (const char* text : {"lang", "V", "", "", ""}) header.counted_text(text);
  const TemporaryFile recording(header);
  std::filesystem::resize_file(recording.path(), header.size() + kPoints * sizeof(f64));
  start();
  host.SetImportProperty(kImportPath, recording.path());
  host.SetImportProperty(kImportTarget, i16{1});
  host.SetImportProperty(kImportSourceChannel, i16{1});
  host.SetImportProperty(kImportFirstSample, i32{0});
  host.SetImportProperty(kImportSampleCount, i32{1000});
  host.ExecuteImport();
  EXPECT_EQ(server.tell("shown Progress"), "0 away");
  host.SetImportProperty(kImportSampleCount, kPoints);
  host.ExecuteImport();
  EXPECT_EQ(host.GetChannelLength(1), kPoints);
  EXPECT_EQ(server.tell("shown Progress"), "1 away");
}

TEST_F(ServeHostTest, HostEndsWithItsWindow) {
  start();
  ASSERT_TRUE(server.shows("HostWindow"));
  server.tell("close");
  EXPECT_EQ(server.wait_for_end(), 0);
}

TEST_F(ServeHostTest, SizeThatNoDatabaseHasIsAWrongCall) {
  for (const char* samples : {"0", "-1", "100000001", "many", ""}) {
    Program wrong(&bus, ROBOT_HOST, {QStringLiteral("--samples"), QLatin1String(samples)});
    wrong.start();
    EXPECT_EQ(wrong.wait_for_end(), 2) << samples;
    EXPECT_THAT(wrong.process.readAllStandardError().toStdString(), HasSubstr("kein gültiger Wert"));
  }
}

}  // namespace
}  // namespace trendaro
