#include "app/window_program.h"

#include <QApplication>
#include <QTimer>
#include <cstdio>
#include <memory>

#include "app/bus_host.h"
#include "app/bus_names.h"
#include "app/memory_host.h"
#include "app/paths.h"
#include "app/program_folder.h"
#include "app/program_window.h"
#include "app/splash_window.h"
#include "app/window_place.h"
#include "app/window_toolkit_notes.h"

namespace trendaro {
namespace {

constexpr int kSplashTime = 500;  // milliseconds

// The host of a program that was started by itself; throws when it cannot be created.
struct CreatedHost {
  CreatedHost(const OpenWindow& call, ProgramWindow& program) {
    if (call.bus_host) {
      over_bus = std::make_unique<BusHost>(QDBusConnection::sessionBus(),
                                           BusAddress{QLatin1String(kHostService), QLatin1String(kHostPath)});
      over_bus->create();
      program.model.Host = over_bus.get();
      program.model.Kernel = over_bus.get();
    } else if (!call.without_host) {
      const std::string kept = join_path(template_folder(), "DATABASE.$$$");
      const DatabaseSize size = read_database_size(kept);
      embedded = std::make_unique<MemoryHost>(program.shell, size.channels, size.samples);
      embedded->keep_size_with([kept](const DatabaseSize& chosen) { keep_database_size(kept, chosen); });
      program.model.Host = embedded.get();
      program.model.Kernel = embedded.get();
    }
  }

  std::unique_ptr<BusHost> over_bus;
  std::unique_ptr<MemoryHost> embedded;
};

// Draws the window into the file that was asked for and ends the program.
void draw_and_end(Kelmira& window, const QString& file) {
  const bool saved = window.grab().save(file);
  if (!saved) std::fprintf(stderr, "%s: nicht geschrieben\n", qPrintable(file));
  QApplication::exit(saved ? 0 : 1);
}

}  // namespace

int run_window(const OpenWindow& call, int argument_count, char** arguments) {
  say_failures_only();
  QApplication application(argument_count, arguments);
  prepare_application(application);

  std::unique_ptr<AboutWindow> splash = show_splash();
  ProgramWindow program;
  const CreatedHost host(call, program);
  wait_with_painting(kSplashTime);
  program.load();
  splash.reset();
  const QString picture = qEnvironmentVariable("TRENDARO_PICTURE");
  if (picture.isEmpty())
    show_at_first(*program.window);
  else
    program.window->show();
  QTimer::singleShot(0, program.window.get(), [&] {
    program.open(call.files);
    if (!picture.isEmpty())
      QTimer::singleShot(0, program.window.get(), [&] { draw_and_end(*program.window, picture); });
  });
  const int status = QApplication::exec();
  program.window.reset();  // ahead of the host that its handlers use
  return status;
}

}  // namespace trendaro
