// From the start of the process to its first painted frame: the program's window with the embedded host and
// no file, beside an empty main window with the same menus and the same toolbar. The time that the splash
// window stands is left out. Each start is a process of its own.
#include <QApplication>
#include <QMainWindow>
#include <QProcess>
#include <QTimer>
#include <cstdio>
#include <stdexcept>
#include <string_view>
#include <vector>

#include <unistd.h>

#include "app/memory_host.h"
#include "app/menu_bar.h"
#include "app/program_window.h"
#include "app/splash_window.h"
#include "app/tool_bar.h"
#include "app/window_place.h"
#include "timing.h"

namespace trendaro::bench {
namespace {

constexpr int kRuns = 21;

// Ends the program when the window has been painted for the first time.
class FirstFrame : public QObject {
 public:
  explicit FirstFrame(QWidget& window) {
    window.installEventFilter(this);
    QTimer::singleShot(0, this, [&window] { window.repaint(); });  // a frame need not wait for a timer
  }

  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) QTimer::singleShot(0, qApp, &QApplication::quit);
    return false;
  }
};

int show_until_painted(QWidget& window) {
  const FirstFrame first_frame(window);
  show_at_first(window);
  QApplication::exec();
  const bool told = ::write(STDOUT_FILENO, "p", 1) == 1;
  ::_exit(told ? 0 : 1);  // what comes behind is not measured
}

int show_program(QApplication& application) {
  prepare_application(application);
  std::unique_ptr<AboutWindow> splash = show_splash();
  ProgramWindow program;
  MemoryHost host(program.shell);
  program.model.Host = &host;
  program.model.Kernel = &host;
  wait_with_painting(0);
  program.load();
  splash.reset();
  return show_until_painted(*program.window);
}

int show_empty(QApplication& application) {
  prepare_application(application);
  QMainWindow window;
  window.setMenuBar(new MenuBar(&window));
  window.addToolBar(new ToolBar(&window));
  return show_until_painted(window);
}

f64 start(const QString& mode) {
  QProcess process;
  const f64 time = milliseconds([&] {
    process.start(QCoreApplication::applicationFilePath(), {mode});
    if (!process.waitForReadyRead()) throw std::runtime_error("no frame was painted");
  });
  process.waitForFinished();
  return time;
}

void measure() {
  std::vector<f64> program;
  std::vector<f64> empty;
  for (int run = 0; run < kRuns; ++run) {
    program.push_back(start(QStringLiteral("--program")));
    empty.push_back(start(QStringLiteral("--empty")));
  }
  std::printf("%-32s%10s%10s%8s%9s\n", "start to the first frame", "ms", "empty, ms", "ratio", "at most");
  std::printf("%-32s%10.1f%10.1f%8.2f%9.2f\n", "window of the program", median(program), median(empty),
              median(program) / median(empty), 1.5);
}

}  // namespace
}  // namespace trendaro::bench

int main(int argument_count, char** arguments) {
  using namespace trendaro::bench;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const std::string_view mode = argument_count > 1 ? arguments[1] : "";
  if (mode.empty()) {
    const QCoreApplication application(argument_count, arguments);
    measure();
    return 0;
  }
  QApplication application(argument_count, arguments);
  return mode == "--program" ? show_program(application) : show_empty(application);
}
