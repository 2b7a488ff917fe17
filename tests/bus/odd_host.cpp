// A database on the session bus with one fault:  odd_host FAULT MEMBER
// FAULT is lacks (the member is unknown), dies (the process ends inside of it), wrong (it answers a text) or
// none.

#include <QCoreApplication>
#include <QDBusMessage>
#include <csignal>

#include "app/bus_names.h"
#include "app/bus_service.h"
#include "app/memory_host.h"
#include "app/quiet_shell.h"

namespace trendaro {
namespace {

class OddService : public BusService {
 public:
  OddService(MemoryHost& host, QString fault, QString member)
      : BusService(host, host), fault_(std::move(fault)), member_(std::move(member)) {}

  bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
    if (message.member() != member_) return BusService::handleMessage(message, bus);
    if (fault_ == QLatin1String("dies")) std::raise(SIGKILL);
    if (fault_ == QLatin1String("lacks"))
      bus.send(message.createErrorReply(QDBusError::UnknownMethod, member_));
    else if (fault_ == QLatin1String("wrong"))
      bus.send(message.createReply(QStringLiteral("no such type")));
    else
      return BusService::handleMessage(message, bus);
    return true;
  }

 private:
  QString fault_, member_;
};

}  // namespace
}  // namespace trendaro

int main(int argument_count, char** arguments) {
  using namespace trendaro;
  const QCoreApplication application(argument_count, arguments);
  QuietShell shell;
  MemoryHost host(shell, 8, 1000);
  const QStringList words = QCoreApplication::arguments();
  OddService service(host, words.value(1), words.value(2));
  QDBusConnection bus = QDBusConnection::sessionBus();
  if (!service.serve(bus, QLatin1String(kHostPath)) || !bus.registerService(QLatin1String(kHostService)))
    return 1;
  return QCoreApplication::exec();
}
