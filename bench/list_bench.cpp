// The channel list at two sizes: what one more file, a click on a mark and a scroll step cost with 2000 files
// above them and with 100. The window is drawn off screen. The first argument is a folder for the file.
#include <QApplication>
#include <QScrollBar>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "app/main_window.h"
#include "app/memory_host.h"
#include "app/model.h"
#include "app/startup.h"
#include "app/window_shell.h"
#include "datasource/channel_grid.h"
#include "datasource/file_list.h"
#include "datasource/grid_handlers.h"
#include "support/reducible_files.h"
#include "support/silent_shell.h"
#include "timing.h"

namespace trendaro::bench {
namespace {

constexpr int kChannels = 64;
constexpr int kRuns = 41;

std::string write_list_file(const std::string& folder) {
  StandardFile file;
  for (int channel = 1; channel <= kChannels; ++channel)
    file.channels.push_back({.name = "Kanal " + std::to_string(channel), .samples = {1, 2, 3, 4}});
  write_file(folder + "/liste.BIN", file.build().bytes());
  return folder + "/liste.BIN";
}

// What a user waits for, the painting included.
struct Figures {
  std::vector<f64> add;
  std::vector<f64> mark;
  std::vector<f64> scroll;
};

class ListBench {
 public:
  ListBench(std::string path, int files) : path_(std::move(path)) {
    model_.Host = &host_;
    load_main_window(model_);
    window_ = std::make_unique<Kelmira>(model_, window_shell_);
    window_->show();
    for (int file = 0; file < files; ++file) AddFileToGrid(model_, path_, false);
    window_->mirror();
    settle();
  }

  // One more file, a mark set or taken away, three rows up or down.
  void measure(int run) {
    auto* grid = window_->findChild<ChannelGrid*>();
    figures_.add.push_back(
        timed(*grid->viewport(), [&] { window_->run([&] { open_file(model_, path_); }); }));
    figures_.mark.push_back(timed(*window_, [&] {
      window_->run([&] { click_check_cell(model_, model_.Grid.MaxRows(), run % 2 == 0 ? 1 : 0); });
    }));
    figures_.scroll.push_back(timed(*grid->viewport(), [&] {
      QScrollBar* bar = grid->verticalScrollBar();
      bar->setValue(bar->value() + (run % 2 == 0 ? -3 : 3));
    }));
  }
  [[nodiscard]] const Figures& figures() const { return figures_; }

 private:
  static void settle() {
    for (int round = 0; round < 3; ++round) QApplication::processEvents();
  }
  // Updates wait for a timer of the platform, so what has changed is painted by hand.
  static f64 timed(QWidget& painted, const std::function<void()>& work) {
    const f64 time = milliseconds([&] {
      work();
      painted.repaint();
    });
    settle();
    return time;
  }

  std::string path_;
  SilentShell shell_;
  WindowShell window_shell_;
  MemoryHost host_{shell_, 96, 1000};
  Model model_{shell_};
  std::unique_ptr<Kelmira> window_;
  Figures figures_;
};

void print_row(const char* work, const std::vector<f64>& small, const std::vector<f64>& large) {
  std::printf("%-32s%10.3f%10.3f%8.2f%9.2f\n", work, median(large), median(small),
              median(large) / median(small), 1.2);
}

// The two lists take turns, so that a busy machine slows both.
void run(const std::string& folder) {
  const std::string path = write_list_file(folder);
  ListBench small(path, 100);
  ListBench large(path, 2000);
  for (int run = 0; run < kRuns; ++run)
    for (ListBench* list : {&small, &large}) list->measure(run);
  std::printf("%-32s%10s%10s%8s%9s\n", "list of files of 64 channels", "2000, ms", "100, ms", "ratio",
              "at most");
  print_row("one more file", small.figures().add, large.figures().add);
  print_row("click on a mark", small.figures().mark, large.figures().mark);
  print_row("scroll step", small.figures().scroll, large.figures().scroll);
}

}  // namespace
}  // namespace trendaro::bench

int main(int argument_count, char** arguments) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argument_count, arguments);
  if (argument_count < 2) return 2;
  trendaro::bench::run(arguments[1]);
  return 0;
}
