#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/bus_service.h"
#include "app/bus_wrapper_object.h"
#include "app/memory_host.h"
#include "app/quiet_shell.h"
#include "bus/robot_program.h"

namespace trendaro {
namespace {

using testing::HasSubstr;

constexpr char kNoHost[] = "Mervan ActiveX-Server nicht vorhanden. Trendaro kann nicht gestartet werden!";

// The host's side: it creates WrapperClass, which starts the viewer, and calls its members.
class AutomationTest : public testing::Test {
 protected:
  explicit AutomationTest(const QStringList& arguments = {QStringLiteral("--automation")})
      : viewer(&bus, arguments) {
    qDBusRegisterMetaType<ObjectReference>();
    viewer.start();
    bus.wait_for(kWrapperService);
  }

  QDBusMessage call(const char* interface, const char* member, const QVariantList& arguments) {
    QDBusMessage message =
        QDBusMessage::createMethodCall(QLatin1String(kWrapperService), QLatin1String(kWrapperPath),
                                       QLatin1String(interface), QLatin1String(member));
    message.setArguments(arguments);
    return bus.connection().call(message, QDBus::Block, kPatience);
  }
  void run() { EXPECT_EQ(call(kWrapperService, "Run", {}).type(), QDBusMessage::ReplyMessage); }
  void add_interface(const QString& service = QLatin1String(kHostService),
                     const QString& path = QLatin1String(kHostPath)) {
    const QVariant reference = QVariant::fromValue(ObjectReference{service, QDBusObjectPath(path)});
    EXPECT_EQ(call(kWrapperService, "AddmrvInterface", {reference}).type(), QDBusMessage::ReplyMessage);
  }
  bool can_unload() {
    const QDBusMessage answer = call("org.freedesktop.DBus.Properties", "Get",
                                     {QLatin1String(kWrapperService), QStringLiteral("CanUnload")});
    EXPECT_EQ(answer.type(), QDBusMessage::ReplyMessage) << answer.errorMessage().toStdString();
    return answer.arguments().value(0).value<QDBusVariant>().variant().toBool();
  }
  void set_can_unload(bool value) {
    call("org.freedesktop.DBus.Properties", "Set",
         {QLatin1String(kWrapperService), QStringLiteral("CanUnload"),
          QVariant::fromValue(QDBusVariant(value))});
  }
  void start(Program& host) {
    host.start();
    bus.wait_for(kHostService);
  }
  void close_with_yes() {
    EXPECT_EQ(viewer.tell("close"), "done");
    ASSERT_TRUE(viewer.shows("Kelmira MsgBox"));
    EXPECT_EQ(viewer.message(), "Trendaro beenden?");
    EXPECT_EQ(viewer.tell("press Ja"), "done");
    EXPECT_TRUE(viewer.shows(""));
  }

  PrivateBus bus;
  Program server{&bus, SERVE_HOST, {}};
  Robot viewer;
};

// Opening the file of the call fails with a message.
class AutomationWithAFileTest : public AutomationTest {
 protected:
  AutomationWithAFileTest()
      : AutomationTest({QStringLiteral("--automation"), QStringLiteral("/nowhere/lauf.REB")}) {}
};

TEST_F(AutomationWithAFileTest, NothingIsOpenedWithoutAHost) {
  run();
  ASSERT_TRUE(viewer.shows("Kelmira MsgBox"));
  EXPECT_EQ(viewer.message(), kNoHost);
  viewer.tell("press OK");
  EXPECT_TRUE(viewer.shows(""));
  EXPECT_TRUE(can_unload());
  bus.disconnect();
  EXPECT_EQ(viewer.wait_for_end(), 0);
}

TEST_F(AutomationWithAFileTest, RefusalWaitsForTheMessageOnTheFile) {
  start(server);
  add_interface();
  run();
  ASSERT_TRUE(viewer.shows("Kelmira MsgBox"));
  EXPECT_NE(viewer.message(), kNoHost);
  add_interface(QString(), QStringLiteral("/"));
  EXPECT_TRUE(viewer.shows("Kelmira MsgBox"));
  viewer.tell("press OK");
  ASSERT_TRUE(viewer.shows("Kelmira MsgBox"));
  EXPECT_EQ(viewer.message(), kNoHost);
  viewer.tell("press OK");
  EXPECT_TRUE(viewer.shows(""));
  EXPECT_TRUE(can_unload());
}

TEST_F(AutomationTest, NothingShowsBeforeRun) {
  EXPECT_EQ(viewer.windows(), "");
  EXPECT_FALSE(can_unload());
}

TEST_F(AutomationTest, AddmrvInterfaceAloneShowsNoWindow) {
  start(server);
  add_interface();
  EXPECT_EQ(viewer.windows(), "");
  EXPECT_FALSE(can_unload());
}

TEST_F(AutomationTest, ToldOrderFromCreationToRelease) {
  start(server);
  add_interface();
  run();
  EXPECT_TRUE(viewer.shows("Kelmira"));
  EXPECT_FALSE(can_unload());
  close_with_yes();
  EXPECT_TRUE(can_unload());
  bus.disconnect();
  EXPECT_TRUE(viewer.is_running());  // the process that gave the host still holds it
  server.process.terminate();
  EXPECT_EQ(viewer.wait_for_end(), 0);
}

TEST_F(AutomationTest, CloseThatIsDeniedLeavesTheWindow) {
  start(server);
  add_interface();
  run();
  ASSERT_TRUE(viewer.shows("Kelmira"));
  viewer.tell("close");
  ASSERT_TRUE(viewer.shows("Kelmira MsgBox"));
  viewer.tell("press Nein");
  EXPECT_TRUE(viewer.shows("Kelmira"));
  EXPECT_FALSE(can_unload());
}

TEST_F(AutomationTest, RunWithoutAHostRefusesAndUnloads) {
  run();
  ASSERT_TRUE(viewer.shows("Kelmira MsgBox"));
  EXPECT_EQ(viewer.message(), kNoHost);
  EXPECT_FALSE(can_unload());
  viewer.tell("press OK");
  EXPECT_TRUE(viewer.shows(""));
  EXPECT_TRUE(can_unload());
  bus.disconnect();
  EXPECT_EQ(viewer.wait_for_end(), 0);
}

TEST_F(AutomationTest, HostThatComesWhileTheRefusalIsOnScreenServesTheNextWindow) {
  run();
  ASSERT_TRUE(viewer.shows("Kelmira MsgBox"));
  start(server);
  add_interface();
  viewer.tell("press OK");
  EXPECT_TRUE(viewer.shows(""));
  EXPECT_TRUE(can_unload());
  run();
  EXPECT_TRUE(viewer.shows("Kelmira"));
  close_with_yes();
}

TEST_F(AutomationTest, HostThatIsTakenAwayAgainIsNone) {
  start(server);
  add_interface();
  add_interface(QString(), QStringLiteral("/"));
  run();
  ASSERT_TRUE(viewer.shows("Kelmira MsgBox"));
  EXPECT_EQ(viewer.message(), kNoHost);
}

TEST_F(AutomationTest, CallerThatIsTheHostItselfNeedNotServeWhileItCallsRun) {
  QuietShell shell;
  MemoryHost own(shell, 24, 5000);
  BusService service(own, own);
  ASSERT_TRUE(service.serve(bus.connection(), QStringLiteral("/my/host")));
  add_interface(QString(), QStringLiteral("/my/host"));
  run();
  EXPECT_TRUE(viewer.shows("Kelmira"));
  close_with_yes();
  EXPECT_TRUE(can_unload());
}

TEST_F(AutomationTest, SecondRunShowsNoSecondWindow) {
  start(server);
  add_interface();
  run();
  run();
  EXPECT_TRUE(viewer.shows("Kelmira"));
}

TEST_F(AutomationTest, RunAfterTheUnloadShowsTheWindowAgain) {
  start(server);
  add_interface();
  run();
  ASSERT_TRUE(viewer.shows("Kelmira"));
  close_with_yes();
  run();
  EXPECT_TRUE(viewer.shows("Kelmira"));
}

TEST_F(AutomationTest, HostMaySetCanUnloadItself) {
  set_can_unload(true);
  EXPECT_TRUE(can_unload());
  start(server);
  add_interface();
  run();
  ASSERT_TRUE(viewer.shows("Kelmira"));
  EXPECT_TRUE(can_unload());
  set_can_unload(false);
  EXPECT_FALSE(can_unload());
  close_with_yes();
  EXPECT_TRUE(can_unload());
}

TEST_F(AutomationTest, HostThatIsNotThereFailsTheLoad) {
  start(server);
  add_interface(QStringLiteral("no.such.host"));
  run();
  EXPECT_EQ(viewer.wait_for_end(), 1);  // the load asks the host and has no trap
  EXPECT_THAT(viewer.errors(), HasSubstr("Laufzeitfehler 440"));
}

TEST_F(AutomationTest, ArgumentOfAnotherTypeStoresNothing) {
  EXPECT_EQ(call(kWrapperService, "AddmrvInterface", {QStringLiteral("host")}).type(),
            QDBusMessage::ErrorMessage);
  EXPECT_EQ(call(kWrapperService, "Stop", {}).type(), QDBusMessage::ErrorMessage);
  run();
  ASSERT_TRUE(viewer.shows("Kelmira MsgBox"));
  EXPECT_EQ(viewer.message(), kNoHost);
}

TEST_F(AutomationTest, HostThatDiesLeavesAWindowThatSaysSoAndCloses) {
  start(server);
  add_interface();
  run();
  ASSERT_TRUE(viewer.shows("Kelmira"));
  server.process.kill();
  server.wait_for_end();
  viewer.tell("choose mnuDBConfig");
  ASSERT_TRUE(viewer.shows("Kelmira MsgBox"));
  EXPECT_EQ(viewer.message(), "Laufzeitfehler 440");
  viewer.tell("press OK");
  ASSERT_TRUE(viewer.shows("Kelmira"));
  close_with_yes();
  EXPECT_TRUE(can_unload());
}

TEST_F(AutomationTest, ViewerWithoutAWindowEndsWithTheHostThatItWasGiven) {
  start(server);
  add_interface();
  server.process.kill();
  server.wait_for_end();
  EXPECT_FALSE(can_unload());  // the process that gave it is still there
  bus.disconnect();
  EXPECT_EQ(viewer.wait_for_end(), 0);
}

TEST_F(AutomationTest, ViewerWithoutAHostGoesOnWaiting) {
  add_interface(QString(), QStringLiteral("/"));
  bus.disconnect();
  bus.connect_again();
  EXPECT_FALSE(can_unload());
  EXPECT_FALSE(can_unload());  // behind whatever the first call met
  EXPECT_TRUE(viewer.is_running());
}

TEST_F(AutomationTest, SecondViewerFindsTheNameTaken) {
  Robot second(&bus, {QStringLiteral("--automation")});
  second.start();
  EXPECT_EQ(second.wait_for_end(), 1);
  EXPECT_THAT(second.errors(), HasSubstr("trendaro.WrapperClass"));
  EXPECT_FALSE(can_unload());
}

TEST_F(AutomationTest, EndOfTheBusEndsTheServer) {
  bus.stop();
  EXPECT_EQ(viewer.wait_for_end(), 0);
}

TEST_F(AutomationTest, WindowOutlivesTheBusAndEndsTheServerWhenItIsClosed) {
  start(server);
  add_interface();
  run();
  ASSERT_TRUE(viewer.shows("Kelmira"));
  bus.stop();
  server.wait_for_end();
  viewer.tell("close");
  ASSERT_TRUE(viewer.shows("Kelmira MsgBox"));
  EXPECT_EQ(viewer.message(), "Trendaro beenden?");
  viewer.tell("press Nein");
  ASSERT_TRUE(viewer.shows("Kelmira"));
  viewer.tell("close");
  ASSERT_TRUE(viewer.shows("Kelmira MsgBox"));
  viewer.tell("press Ja");
  EXPECT_EQ(viewer.wait_for_end(), 0);
}

}  // namespace
}  // namespace trendaro
