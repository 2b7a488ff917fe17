// Serves the embedded host on the session bus, for viewers that take their host from there. A small window
// tells of the database and of the progress of imports; with it ends the host.

#include <QApplication>
#include <QCommandLineParser>
#include <QDBusConnection>
#include <QLabel>
#include <QMainWindow>
#include <cstdio>

#include "app/bus_names.h"
#include "app/bus_service.h"
#include "app/memory_host.h"
#include "app/program_window.h"
#include "app/status_bar.h"
#include "app/window_shell.h"
#include "app/window_toolkit_notes.h"

namespace trendaro {
namespace {

constexpr int kFailed = 1;
constexpr int kWrongCall = 2;

// The user behind the host. Dialogs stand alone, so that the keyboard goes back from them to the viewer.
class HostWindow : public QMainWindow {
 public:
  explicit HostWindow(const DatabaseSize& size) {
    setObjectName(QStringLiteral("HostWindow"));
    setWindowTitle(QStringLiteral("Mervan-Datenbasis"));
    setCentralWidget(size_);
    setStatusBar(status_bar_);
    size_->setObjectName(QStringLiteral("DatabaseSize"));
    size_->setMargin(12);
    show_size(size);
    shell.attach(nullptr, status_bar_);
  }
  ~HostWindow() override { shell.attach(nullptr, nullptr); }

  void show_size(const DatabaseSize& size) {
    size_->setText(QStringLiteral("%1 Kanäle zu je %2 Werten").arg(size.channels).arg(size.samples));
  }

  WindowShell shell;

 private:
  QLabel* size_ = new QLabel(this);
  StatusBar* status_bar_ = new StatusBar(this);
};

bool read_size(const QCommandLineParser& call, DatabaseSize& size) {
  bool channels_read = false;
  bool samples_read = false;
  size.channels = call.value(QStringLiteral("channels")).toShort(&channels_read);
  size.samples = call.value(QStringLiteral("samples")).toInt(&samples_read);
  return channels_read && samples_read && size == possible_size(size);
}

int serve(const DatabaseSize& size) {
  HostWindow window(size);
  MemoryHost host(window.shell, size.channels, size.samples);
  host.keep_size_with([&](const DatabaseSize& chosen) { window.show_size(chosen); });
  BusService service(host, host);
  QDBusConnection bus = QDBusConnection::sessionBus();
  if (!service.serve(bus, QLatin1String(kHostPath)) || !bus.registerService(QLatin1String(kHostService))) {
    std::fprintf(stderr, "%s: auf dem Sitzungsbus nicht anzumelden\n", kHostService);
    return kFailed;
  }
  bus.connect({}, QStringLiteral("/org/freedesktop/DBus/Local"), QStringLiteral("org.freedesktop.DBus.Local"),
              QStringLiteral("Disconnected"), QCoreApplication::instance(), SLOT(quit()));
  window.show();
  return QApplication::exec();
}

}  // namespace
}  // namespace trendaro

int main(int argument_count, char** arguments) {
  trendaro::say_failures_only();
  QApplication application(argument_count, arguments);
  trendaro::prepare_application(application);
  QApplication::setApplicationName(QStringLiteral("serve_host"));
  QCommandLineParser call;
  call.setApplicationDescription(
      QStringLiteral("Stellt die eingebaute Datenbasis auf dem Sitzungsbus bereit"));
  call.addHelpOption();
  const trendaro::DatabaseSize usual;
  call.addOption({QStringLiteral("channels"), QStringLiteral("Anzahl Datenbasiskanäle"),
                  QStringLiteral("ANZAHL"), QString::number(usual.channels)});
  call.addOption({QStringLiteral("samples"), QStringLiteral("Werte, die ein Kanal aufnimmt"),
                  QStringLiteral("ANZAHL"), QString::number(usual.samples)});
  call.process(application);
  trendaro::DatabaseSize size;
  if (!trendaro::read_size(call, size)) {
    std::fprintf(stderr, "--channels, --samples: kein gültiger Wert\n");
    return trendaro::kWrongCall;
  }
  return trendaro::serve(size);
}
