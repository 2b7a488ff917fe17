#pragma once

#include "bus/private_bus.h"

namespace trendaro {

// The viewer as a process of its own, with a user who does what the test says.
class Robot : public Program {
 public:
  Robot(const PrivateBus* bus, const QStringList& arguments, const char* path = ROBOT_VIEWER)
      : Program(bus, path, arguments) {}

  // What came of an order to the user; the viewer answers when it is done with what it does.
  std::string tell(const std::string& order) {
    process.write(QByteArray::fromStdString(order + "\n"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return process.canReadLine() || !is_running(); }, kPatience)) << order;
    return QString::fromUtf8(process.readLine()).trimmed().toStdString();
  }
  std::string windows() { return tell("windows"); }
  std::string message() { return tell("message"); }
  // Waits until these windows are on screen, and no other.
  bool shows(const std::string& names) {
    return QTest::qWaitFor([&] { return windows() == names; }, kPatience);
  }
  std::string errors() { return process.readAllStandardError().toStdString(); }
};

}  // namespace trendaro
