// The channel list at two sizes: what one more file, a click on a mark and a scroll step cost with 100 files
// above them and with 2000. The window is drawn off screen. The first argument is a folder for the file.
#include <QApplication>
#include <QScrollBar>
#include <algorithm>
#include <chrono>
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

f64 milliseconds(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<f64, std::milli>(std::chrono::steady_clock::now() - start).count();
}

// Medians of what the user waits for, the painting included.
struct Figures {
  f64 add = 0;
  f64 mark = 0;
  f64 scroll = 0;
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

  Figures measure() {
    auto* grid = window_->findChild<ChannelGrid*>();
    Figures figures;
    figures.add = median([&](int) { window_->run([&] { open_file(model_, path_); }); });
    figures.mark = median([&](int run) {
      window_->run([&] { click_check_cell(model_, model_.Grid.MaxRows(), run % 2 == 0 ? 1 : 0); });
    });
    figures.scroll = median([&](int run) {
      QScrollBar* bar = grid->verticalScrollBar();
      bar->setValue(bar->value() + (run % 2 == 0 ? -3 : 3));
    });
    return figures;
  }

 private:
  static void settle() {
    for (int round = 0; round < 3; ++round) QApplication::processEvents();
  }
  static f64 median(const std::function<void(int)>& work) {
    std::vector<f64> times;
    for (int run = 0; run < kRuns; ++run)
      times.push_back(milliseconds([&] {
        work(run);
        settle();
      }));
    std::ranges::nth_element(times, times.begin() + kRuns / 2);
    return times[kRuns / 2];
  }

  std::string path_;
  SilentShell shell_;
  WindowShell window_shell_;
  MemoryHost host_{shell_, 96, 1000};
  Model model_{shell_};
  std::unique_ptr<Kelmira> window_;
};

void print_row(const char* work, f64 small, f64 large) {
  std::printf("%-24s%12.3f%12.3f%8.2f\n", work, small, large, large / small);
}

void run(const std::string& folder) {
  const std::string path = write_list_file(folder);
  const Figures small = ListBench(path, 100).measure();
  const Figures large = ListBench(path, 2000).measure();
  std::printf("%-24s%12s%12s%8s\n", "list of 64 channels each", "ms, 100", "ms, 2000", "ratio");
  print_row("one more file", small.add, large.add);
  print_row("click on a mark", small.mark, large.mark);
  print_row("scroll step", small.scroll, large.scroll);
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
