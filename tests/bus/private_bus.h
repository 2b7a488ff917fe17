#pragma once

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusReply>
#include <QProcess>
#include <QTest>

#include <gtest/gtest.h>

#include "app/bus_names.h"

namespace trendaro {

constexpr int kPatience = 20000;  // milliseconds until a test gives up

// A bus of the test's own, and the test's connection to it. Programs that are started here find it as their
// session bus.
class PrivateBus {
 public:
  PrivateBus() {
    daemon_.start(QStringLiteral("dbus-daemon"), {QStringLiteral("--session"), QStringLiteral("--nofork"),
                                                  QStringLiteral("--print-address=1")});
    while (!daemon_.canReadLine() && daemon_.waitForReadyRead(kPatience)) {
    }
    address_ = QString::fromUtf8(daemon_.readLine()).trimmed();
    name_ = QStringLiteral("test %1").arg(reinterpret_cast<quintptr>(this));
    connect_again();
  }
  ~PrivateBus() {
    disconnect();
    stop();
  }
  PrivateBus(const PrivateBus&) = delete;
  PrivateBus& operator=(const PrivateBus&) = delete;

  [[nodiscard]] QDBusConnection connection() const { return QDBusConnection(name_); }
  [[nodiscard]] QString address() const { return address_; }
  void connect_again() { EXPECT_TRUE(QDBusConnection::connectToBus(address_, name_).isConnected()); }
  void disconnect() { QDBusConnection::disconnectFromBus(name_); }
  void stop() {
    daemon_.kill();
    daemon_.waitForFinished(kPatience);
  }

  [[nodiscard]] bool has(const char* service) const {
    return connection().interface()->isServiceRegistered(QLatin1String(service)).value();
  }
  void wait_for(const char* service) const {
    EXPECT_TRUE(QTest::qWaitFor([&] { return has(service); }, kPatience)) << service;
  }

 private:
  QProcess daemon_;
  QString address_, name_;
};

// Another program on the private bus; it ends with the object.
class Program {
 public:
  Program(const PrivateBus* bus, const char* path, const QStringList& arguments) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"),
                       bus == nullptr ? QStringLiteral("unix:path=/nowhere") : bus->address());
    process.setProcessEnvironment(environment);
    process.setProgram(QString::fromUtf8(path));
    process.setArguments(arguments);
  }
  ~Program() {
    process.kill();
    process.waitForFinished(kPatience);
  }
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  void start() {
    process.start();
    EXPECT_TRUE(process.waitForStarted(kPatience));
  }
  // Waits for its own end. Returns the exit status, -1 for a crash.
  int wait_for_end() {
    EXPECT_TRUE(QTest::qWaitFor([&] { return process.state() == QProcess::NotRunning; }, kPatience));
    return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
  }
  [[nodiscard]] bool is_running() const { return process.state() == QProcess::Running; }

  QProcess process;
};

}  // namespace trendaro
