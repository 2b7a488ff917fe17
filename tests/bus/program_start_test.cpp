#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "bus/robot_program.h"
#include "support/file_builder.h"

namespace trendaro {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

constexpr uid_t kNobody = 65534;

void end_with_yes(Robot& viewer) {
  viewer.tell("close");
  ASSERT_TRUE(viewer.shows("Kelmira MsgBox"));
  viewer.tell("press Ja");
  EXPECT_EQ(viewer.wait_for_end(), 0);
}

TEST(ProgramStartTest, HostOfTheBusIsTaken) {
  const PrivateBus bus;
  Program server(&bus, SERVE_HOST, {});
  server.start();
  bus.wait_for(kHostService);
  Robot viewer(&bus, {QStringLiteral("--host=bus")});
  viewer.start();
  EXPECT_TRUE(viewer.shows("Kelmira"));
  end_with_yes(viewer);
}

TEST(ProgramStartTest, HostThatCannotBeCreatedEndsTheProcess) {
  const PrivateBus bus;
  Robot viewer(&bus, {QStringLiteral("--host=bus")});
  viewer.start();
  EXPECT_EQ(viewer.wait_for_end(), 1);
  EXPECT_THAT(viewer.errors(), HasSubstr("Laufzeitfehler 429"));
}

TEST(ProgramStartTest, HostThatFailsTheLoadEndsTheProcess) {
  const PrivateBus bus;
  for (const auto& [fault, words] :
       {std::pair("lacks", "Laufzeitfehler 438"), std::pair("wrong", "Laufzeitfehler 13"),
        std::pair("dies", "Laufzeitfehler 440")}) {
    Program odd(&bus, ODD_HOST, {QLatin1String(fault), QStringLiteral("MaxChannels")});
    odd.start();
    bus.wait_for(kHostService);
    Robot other(&bus, {QStringLiteral("--host=bus")});
    other.start();
    EXPECT_EQ(other.wait_for_end(), 1);
    EXPECT_THAT(other.errors(), HasSubstr(words));
  }
}

TEST(ProgramStartTest, WithoutABusThereIsNoHostOfTheBus) {
  Robot viewer(nullptr, {QStringLiteral("--host=bus")});
  viewer.start();
  EXPECT_EQ(viewer.wait_for_end(), 1);
  EXPECT_THAT(viewer.errors(), HasSubstr("Laufzeitfehler 429"));
}

TEST(ProgramStartTest, WithoutABusThereIsNoAutomationServer) {
  Robot viewer(nullptr, {QStringLiteral("--automation")});
  viewer.start();
  EXPECT_EQ(viewer.wait_for_end(), 1);
  EXPECT_THAT(viewer.errors(), HasSubstr("trendaro.WrapperClass"));
}

TEST(ProgramStartTest, SplashShowsAheadOfTheWindowAndGoes) {
  Robot viewer(nullptr, {});
  viewer.start();
  EXPECT_EQ(viewer.windows(), "About");
  EXPECT_TRUE(viewer.shows("Kelmira"));
}

TEST(ProgramStartTest, SplashStandsHalfASecondAheadOfTheLoad) {
  Robot viewer(nullptr, {});
  viewer.start();
  EXPECT_TRUE(viewer.shows("Kelmira"));
  EXPECT_EQ(viewer.tell("splash"), "About");
}

// The embedded host keeps its size beside the program; the viewer has to start again for a new one.
TEST(ProgramStartTest, ChosenSizeOfTheDatabaseHoldsInTheNextRun) {
  const TemporaryFolder folder;
  const std::string program = folder.file("viewer");
  fs::copy_file(ROBOT_VIEWER, program);
  for (const int channels : {120, 7}) {
    Robot viewer(nullptr, {}, program.c_str());
    viewer.start();
    ASSERT_TRUE(viewer.shows("Kelmira"));
    viewer.tell("choose mnuDBConfig");
    ASSERT_TRUE(viewer.shows("Kelmira frmDatabase"));
    viewer.tell("type ChannelsBox " + std::to_string(channels));
    viewer.tell("press OKButton");
    ASSERT_TRUE(viewer.shows("Kelmira MsgBox"));
    EXPECT_EQ(viewer.message(), "Die Datenbasisrekonfiguration erfordert, dass Trendaro neu gestartet wird!");
    viewer.tell("press OK");
    ASSERT_TRUE(QTest::qWaitFor([&] { return viewer.message() == "Trendaro beenden?"; }, kPatience));
    viewer.tell("press Ja");
    EXPECT_EQ(viewer.wait_for_end(), 0);
  }
  EXPECT_EQ(read_file(folder.file("DATABASE.$$$")), "channels 7\nsamples 100000\n");
}

TEST(ProgramStartTest, SizeOfTheDatabaseThatStaysNeedsNoNewStart) {
  Robot viewer(nullptr, {});
  viewer.start();
  ASSERT_TRUE(viewer.shows("Kelmira"));
  viewer.tell("choose mnuDBConfig");
  ASSERT_TRUE(viewer.shows("Kelmira frmDatabase"));
  viewer.tell("press CancelButton");
  EXPECT_TRUE(viewer.shows("Kelmira"));
}

// Two runs of a program whose folder cannot be written.
TEST(ProgramStartTest, LookIsKeptWhereTheProgramFolderCannotBeWritten) {
  const TemporaryFolder folder;
  const std::string program = folder.file("program/viewer");
  fs::create_directory(folder.file("program"));
  fs::create_directory(folder.file("state"));
  fs::copy_file(ROBOT_VIEWER, program);
  fs::permissions(folder.path(), fs::perms::all);
  fs::permissions(folder.file("state"), fs::perms::all);
  fs::permissions(folder.file("program"), fs::perms(0555));
  for (int start = 0; start < 2; ++start) {
    Robot viewer(nullptr, {}, program.c_str());
    QProcessEnvironment environment = viewer.process.processEnvironment();
    environment.insert(QStringLiteral("XDG_STATE_HOME"), QString::fromStdString(folder.file("state")));
    viewer.process.setProcessEnvironment(environment);
    viewer.process.setWorkingDirectory(QString::fromStdString(folder.path()));
    if (::geteuid() == 0)  // who may write everywhere
      viewer.process.setChildProcessModifier([] {
        if (::setgid(kNobody) != 0 || ::setuid(kNobody) != 0) ::_exit(3);
      });
    viewer.start();
    ASSERT_TRUE(viewer.shows("Kelmira"));
    end_with_yes(viewer);
    for (const char* name : {"KM_TEMPLATE.$$$", "KMSurv_TEMPLATE.$$$"}) {
      EXPECT_TRUE(fs::exists(folder.file("state/trendaro/") + name)) << name;
      EXPECT_FALSE(fs::exists(folder.file("program/") + name)) << name;
    }
  }
}

}  // namespace
}  // namespace trendaro
