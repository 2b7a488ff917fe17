#include "app/automation_program.h"

#include <QApplication>
#include <QTimer>
#include <cstdio>
#include <memory>
#include <utility>

#include "app/bus_host.h"
#include "app/first_place.h"
#include "app/program_window.h"
#include "app/run_time_error.h"
#include "app/toolkit_notes.h"
#include "app/wrapper_object.h"

namespace trendaro {
namespace {

constexpr int kFailed = 1;  // exit status

// A viewer that nobody holds when its window goes stays this long, in milliseconds, so that CanUnload can
// still be asked by programs that connect for a single call.
constexpr int kTimeToAsk = 10000;

// A load that fails ends the process.
bool load(ProgramWindow& program) {
  try {
    program.load();
    return true;
  } catch (const RunTimeError& failure) {
    std::fprintf(stderr, "Laufzeitfehler %d\n", failure.number);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "Fehler: %s\n", failure.what());
  }
  return false;
}

// The server while it runs.
class Automation {
 public:
  explicit Automation(const OpenWindow& call)
      : call_(call),
        bus_(QDBusConnection::sessionBus()),
        host_(bus_, {}),
        wrapper_(host_, [this] { show_main_window(); }),
        object_(wrapper_, host_, bus_) {
    QObject::connect(&object_, &WrapperObject::released, &object_, [this] { end_when_released(0); });
    bus_.connect({}, QStringLiteral("/org/freedesktop/DBus/Local"),
                 QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"),
                 QCoreApplication::instance(), SLOT(quit()));
  }

  bool serve() { return object_.serve(); }

 private:
  void show_main_window();
  void window_unloaded();
  void end_when_released(int delay);

  const OpenWindow& call_;
  QDBusConnection bus_;
  BusHost host_;
  WrapperClass wrapper_;
  std::unique_ptr<ProgramWindow> shown_, going_;
  bool unloaded_ = false;
  WrapperObject object_;
};

void Automation::show_main_window() {
  if (shown_ != nullptr) {
    shown_->window->raise();
    shown_->window->activateWindow();
    return;
  }
  unloaded_ = false;
  auto program = std::make_unique<ProgramWindow>();
  wrapper_.hand_link_to(program->model);
  if (!load(*program)) {
    wrapper_.release_link();
    QApplication::exit(kFailed);
    return;
  }
  shown_ = std::move(program);
  QObject::connect(shown_->window.get(), &Kelmira::unloaded, &object_, [this] { window_unloaded(); });
  show_at_first(*shown_->window);
  shown_->open(call_.files);
}

// The window is still at work; it is taken down behind its event.
void Automation::window_unloaded() {
  wrapper_.release_link();
  unloaded_ = true;
  going_ = std::move(shown_);
  QTimer::singleShot(0, &object_, [this] { going_.reset(); });
  if (!object_.is_held()) end_when_released(kTimeToAsk);
}

void Automation::end_when_released(int delay) {
  QTimer::singleShot(delay, &object_, [this] {
    if (unloaded_ && !object_.is_held()) QApplication::quit();
  });
}

}  // namespace

int run_automation(const OpenWindow& call, int argument_count, char** arguments) {
  say_failures_only();
  QApplication application(argument_count, arguments);
  prepare_application(application);
  QApplication::setQuitOnLastWindowClosed(false);
  Automation automation(call);
  if (!automation.serve()) {
    std::fprintf(stderr, "trendaro.WrapperClass: auf dem Sitzungsbus nicht anzumelden\n");
    return kFailed;
  }
  return QApplication::exec();
}

}  // namespace trendaro
