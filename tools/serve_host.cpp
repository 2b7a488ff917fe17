// Serves the embedded host on the session bus, for viewers that take their host from there.

#include <QApplication>
#include <QCommandLineParser>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <cstdio>
#include <limits>

#include "app/bus_names.h"
#include "app/bus_service.h"
#include "app/memory_host.h"
#include "app/window_shell.h"

namespace trendaro {
namespace {

constexpr int kFailed = 1;
constexpr int kWrongCall = 2;

struct HostSize {
  i16 channels = 96;
  i32 samples = 100000;
};

bool read_size(const QCommandLineParser& call, HostSize& size) {
  bool channels_read = false;
  bool samples_read = false;
  size.channels = call.value(QStringLiteral("channels")).toShort(&channels_read);
  size.samples = call.value(QStringLiteral("samples")).toInt(&samples_read);
  return channels_read && samples_read && size.channels > 0 && size.samples > 0;
}

int serve(const HostSize& size) {
  WindowShell shell;
  MemoryHost host(shell, size.channels, size.samples);
  BusService service(host, host);
  QDBusConnection bus = QDBusConnection::sessionBus();
  if (!service.serve(bus, QLatin1String(kHostPath)) || !bus.registerService(QLatin1String(kHostService))) {
    std::fprintf(stderr, "%s: auf dem Sitzungsbus nicht anzumelden\n", kHostService);
    return kFailed;
  }
  bus.connect({}, QStringLiteral("/org/freedesktop/DBus/Local"), QStringLiteral("org.freedesktop.DBus.Local"),
              QStringLiteral("Disconnected"), QCoreApplication::instance(), SLOT(quit()));
  return QApplication::exec();
}

}  // namespace
}  // namespace trendaro

int main(int argument_count, char** arguments) {
  QApplication application(argument_count, arguments);
  QApplication::setApplicationName(QStringLiteral("serve_host"));
  QApplication::setQuitOnLastWindowClosed(false);
  QCommandLineParser call;
  call.setApplicationDescription(
      QStringLiteral("Stellt die eingebaute Datenbasis auf dem Sitzungsbus bereit"));
  call.addHelpOption();
  call.addOption({QStringLiteral("channels"), QStringLiteral("Anzahl Datenbasiskanäle"),
                  QStringLiteral("ANZAHL"), QStringLiteral("96")});
  call.addOption({QStringLiteral("samples"), QStringLiteral("Werte, die ein Kanal aufnimmt"),
                  QStringLiteral("ANZAHL"), QStringLiteral("100000")});
  call.process(application);
  trendaro::HostSize size;
  if (!trendaro::read_size(call, size)) {
    std::fprintf(stderr, "--channels, --samples: kein gültiger Wert\n");
    return trendaro::kWrongCall;
  }
  return trendaro::serve(size);
}
