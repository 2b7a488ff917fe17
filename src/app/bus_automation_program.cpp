#include "app/bus_automation_program.h"

#include <QApplication>
#include <QTimer>
#include <cstdio>
#include <memory>
#include <utility>

#include "app/bus_host.h"
#include "app/bus_wrapper_object.h"
#include "app/program_window.h"
#include "app/run_time_error.h"
#include "app/window_place.h"
#include "app/window_toolkit_notes.h"

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
  }

  bool serve() { return object_.serve(); }

 private:
  void show_main_window();
  void window_unloaded();
  void end_when_released(int delay);
  [[nodiscard]] bool is_released() const;

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
  if (!object_.is_held()) end_when_released(object_.is_on_bus() ? kTimeToAsk : 0);
}

void Automation::end_when_released(int delay) {
  QTimer::singleShot(delay, &object_, [this] {
    if (is_released()) QApplication::quit();
  });
}

// A window on screen stays until its user closes it. A viewer that was given no host yet goes on waiting, for
// who starts it by hand may call it by programs that connect for a single call.
bool Automation::is_released() const {
  if (shown_ != nullptr || object_.is_held()) return false;
  return unloaded_ || wrapper_.has_host() || !object_.is_on_bus();
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
