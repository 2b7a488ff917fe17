// Zooming with the window drawn off screen: into the samples of a long and of a short recording, and a scroll
// step against reading and painting the same samples once. The first argument is a folder for the
// recordings; they are sparse.
#include <QApplication>
#include <QPainter>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

#include "app/main_window.h"
#include "app/memory_host.h"
#include "app/model.h"
#include "app/startup.h"
#include "app/toolbar.h"
#include "app/window_shell.h"
#include "datasource/file_list.h"
#include "datasource/grid_handlers.h"
#include "graph/graph_painter.h"
#include "graph/graph_widget.h"
#include "graph/zoom_end.h"
#include "support/recorder_builder.h"
#include "support/silent_shell.h"
#include "timing.h"

namespace trendaro::bench {
namespace {

constexpr i16 kChannels = 8;
constexpr i32 kPair = 1000;         // samples
constexpr i32 kSection = 10'000;    // samples a curve on show
constexpr i32 kFirstRow = 200'000;  // of the rows that hold a signal; the others are holes
constexpr i32 kSignalRows = 20 * kSection;
constexpr f64 kSecond = 100;            // samples
constexpr i32 kShortRows = 625'000;     // 10 MB
constexpr i32 kLongRows = 625'000'000;  // 10 GB
constexpr int kRuns = 31;

RecorderBuilder recording(i32 id, i32 rows, i32 mask) {
  RecorderBuilder file{.id = id, .row_count = rows};
  for (i16 channel = 1; channel <= kChannels; ++channel)
    file.entries.push_back(
        {.channel = channel, .mask = mask, .name_field = quoted_name("Kanal " + std::to_string(channel))});
  return file;
}

void write_sparse(const std::string& path, const RecorderBuilder& header, i64 row_bytes) {
  write_file(path, header.build().bytes());
  std::filesystem::resize_file(
      path, static_cast<std::uintmax_t>(header.data_offset() + i64{header.row_count} * row_bytes));
}

std::vector<i16> signal() {
  std::vector<i16> samples(std::size_t{kSignalRows} * kChannels);
  u32 noise = 1;
  for (i16& sample : samples) {
    noise = noise * 1664525 + 1013904223;
    sample = static_cast<i16>(noise >> 18);
  }
  return samples;
}

struct RecordingPair {
  std::string original, envelope;
  i64 data_offset = 0;
};

RecordingPair write_pair(const std::string& folder, const std::string& name, i32 rows) {
  RecordingPair pair{folder + "/" + name + ".ME1", folder + "/" + name + ".ST1", 0};
  const RecorderBuilder original = recording(6001, rows, 1);
  RecorderBuilder envelope = recording(6002, rows / kPair, 3);
  envelope.reduce_factor = kPair;
  write_sparse(pair.original, original, 2 * kChannels);
  write_sparse(pair.envelope, envelope, 4 * kChannels);
  pair.data_offset = original.data_offset();
  const std::vector<i16> samples = signal();
  const int file = ::open(pair.original.c_str(), O_WRONLY);
  const auto bytes = static_cast<ssize_t>(samples.size() * sizeof(i16));
  if (::pwrite(file, samples.data(), static_cast<std::size_t>(bytes),
               pair.data_offset + i64{kFirstRow} * 2 * kChannels) != bytes)
    std::abort();
  ::close(file);
  return pair;
}

// The window with all channels of a recording.
class ZoomBench {
 public:
  explicit ZoomBench(const RecordingPair& pair) : pair_(pair) {
    model_.Host = &host_;
    model_.Kernel = &host_;
    load_main_window(model_);
    window_ = std::make_unique<Kelmira>(model_, window_shell_);
    window_->show();
    AddFileToGrid(model_, pair.envelope, false);
    for (i32 row = 2; row < 2 + kChannels; ++row) click_check_cell(model_, row, 1);
    click_tool(model_, "TB_ZOOMHORZ");
    model_.controls["PointsBox"].text = std::to_string(kSection);
    model_.controls["StepBox"].text = std::to_string(kSection / 10);
    window_->mirror();
    settle();
    graph_ = window_->findChild<GraphWidget*>(QStringLiteral("PESG"));
  }

  // From all of the recording to the painted samples; the way back does not count.
  f64 zoom() {
    click_tool(model_, "TB_ZOOMFIX");
    click_tool(model_, "TB_ZOOMHORZ");
    settle();
    GraphProperties& graph = model_.PESG.pending;
    graph.ZoomActive = true;
    graph.ZoomMinX = kFirstRow / kSecond;
    graph.ZoomMaxX = (kFirstRow + kSection) / kSecond;
    return timed(*graph_, [&] { end_main_zoom(model_); });
  }
  [[nodiscard]] bool on_originals() const { return model_.OriginalDataMode; }

  f64 scroll(bool right) {
    return timed(*graph_, [&] { click_tool(model_, right ? "TB_SCROLLRIGHT" : "TB_SCROLLLEFT"); });
  }
  // The same samples read once and painted once.
  f64 read_and_paint() {
    const int file = ::open(pair_.original.c_str(), O_RDONLY);
    std::vector<i16> samples(std::size_t{kSection} * kChannels);
    const f64 time = milliseconds([&] {
      if (::pread(file, samples.data(), samples.size() * sizeof(i16),
                  pair_.data_offset + i64{kFirstRow} * 2 * kChannels) < 0)
        std::abort();
      QPainter painter(&canvas_of(*graph_));
      paint_graph(painter, model_.PESG.shown(), graph_->size());
    });
    ::close(file);
    return time;
  }

 private:
  static void settle() {
    for (int round = 0; round < 3; ++round) QApplication::processEvents();
  }
  // Updates wait for a timer of the platform, so what has changed is painted by hand.
  f64 timed(QWidget& painted, const std::function<void()>& work) {
    const f64 time = milliseconds([&] {
      window_->run(work);
      painted.repaint();
    });
    settle();
    return time;
  }
  QImage& canvas_of(const QWidget& widget) {
    if (canvas_.size() != widget.size()) canvas_ = QImage(widget.size(), QImage::Format_RGB32);
    return canvas_;
  }

  RecordingPair pair_;
  SilentShell shell_;
  WindowShell window_shell_;
  MemoryHost host_{shell_, 96, 100'000};
  Model model_{shell_};
  std::unique_ptr<Kelmira> window_;
  GraphWidget* graph_ = nullptr;
  QImage canvas_;
};

struct Figures {
  std::vector<f64> work, limit;

  void print(const char* words, f64 most) const {
    std::printf("%-44s%10.3f%10.3f%8.2f%9.2f\n", words, median(work), median(limit),
                median(work) / median(limit), most);
  }
};

// Work and limit take turns, so that a busy machine slows both.
int run(const std::string& folder) {
  ZoomBench small(write_pair(folder, "kurz", kShortRows));
  ZoomBench large(write_pair(folder, "lang", kLongRows));
  Figures zoom, scroll;
  for (int run = 0; run < kRuns; ++run) {
    zoom.limit.push_back(small.zoom());
    zoom.work.push_back(large.zoom());
  }
  if (!small.on_originals() || !large.on_originals()) return 1;
  for (int run = 0; run < kRuns; ++run) {
    scroll.work.push_back(large.scroll(run % 2 == 0));
    scroll.limit.push_back(large.read_and_paint());
  }
  std::printf("%-44s%10s%10s%8s%9s\n", "8 curves of 10000 original samples", "ms", "limit ms", "ratio",
              "at most");
  zoom.print("zoom in 10 GB / in 10 MB", 1.2);
  scroll.print("scroll step / pread and painting once", 1.5);
  return 0;
}

}  // namespace
}  // namespace trendaro::bench

int main(int argument_count, char** arguments) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argument_count, arguments);
  if (argument_count < 2) return 2;
  return trendaro::bench::run(arguments[1]);
}
