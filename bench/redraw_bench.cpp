// What it costs to bring curves of files on screen, each figure against what the machine can do in the same
// run. The first argument is the folder of the data, the second the program; a third one chooses one part:
// memory, render, plotter, zoom or signals.
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "app/model.h"
#include "bench_files.h"
#include "files/loader.h"
#include "graph/graph_painter.h"
#include "graph/main_redraw.h"
#include "limits.h"
#include "support/silent_shell.h"
#include "timing.h"

namespace trendaro::bench {
namespace {

constexpr i32 kShort = 1'000'000;
constexpr QSize kFrame(1600, 900);

// Work and limit take turns, so that the machine's moods fall on both; the medians are compared.
void compare(const char* words, f64 most, int runs, const std::function<void()>& work,
             const std::function<void()>& limit) {
  std::vector<f64> works, limits;
  for (int run = 0; run < runs; ++run) {
    works.push_back(milliseconds(work));
    limits.push_back(milliseconds(limit));
  }
  const f64 own = median(works);
  const f64 best = median(limits);
  std::printf("%-52s%10.2f%10.2f%8.2f%9.2f\n", words, own, best, own / best, most);
}

struct Data {
  std::string folder;
  std::string program;
  [[nodiscard]] std::string channel() const { return folder + "/kanal.BIN"; }
  [[nodiscard]] std::string short_channel() const { return folder + "/kurz.BIN"; }
  [[nodiscard]] std::string empty() const { return folder + "/leer.BIN"; }
  [[nodiscard]] std::string reduced() const { return folder + "/lauf.STO"; }
  [[nodiscard]] std::string picture() const { return folder + "/bild.png"; }
};

// Runs a program to its end; gives the most memory that it held at once, in KiB. That counts what this
// process held when it started the other.
i64 run_process(std::vector<std::string> words) {
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  pid_t process = 0;
  if (posix_spawn(&process, arguments[0], nullptr, nullptr, arguments.data(), environ) != 0)
    throw std::runtime_error("cannot start " + words[0]);
  int status = 0;
  rusage usage{};
  if (wait4(process, &status, 0, &usage) != process || status != 0)
    throw std::runtime_error("failed: " + words[0]);
  return usage.ru_maxrss;
}

i64 render(const Data& data, const std::string& path, const std::vector<std::string>& section = {}) {
  std::vector<std::string> words = {data.program,   "render", path,      "--output",
                                    data.picture(), "--size", "1600x900"};
  words.insert(words.end(), section.begin(), section.end());
  return run_process(std::move(words));
}

void print_picture_memory(const char* words, i64 kibibytes) {
  std::printf("%-52s%10.1f%10s%8s%9.1f\n", words, static_cast<f64>(kibibytes) / 1024, "", "", 200.0);
}

// Plots of the channels of one file, as marks in the list would make them.
struct Drawing {
  SilentShell shell;
  Model model{shell};

  void add(const std::string& path, i16 channel, i16 kind, i32 points) {
    PlotRecord plot;
    plot.Title = "Signal@" + path;
    plot.ChannelIndex = channel;
    plot.FileKind = kind;
    plot.Points = points;
    plot.TimeFromRate = 1;
    plot.DatabaseChannel = static_cast<i16>(++model.NofPlots);
    plot.Color = 0x404040 * (channel % 4);
    model.Plots.push_back(plot);
    model.PlotReduceFactor.resize(model.Plots.size());
    model.PlotDateTexts.resize(model.Plots.size());
    ++model.LayerPlotCount[1];
    model.HasFullDataPlot = kind == kKindPlain;
    model.controls["mnuUseCompression"].ticked = true;
  }
  void redraw() { RedrawKMGraph(model, false); }
  // Windows of equal share and changing place.
  void redraw_window(f64 milliseconds_in_all, int step) {
    const f64 first = milliseconds_in_all * (0.1 + 0.05 * (step % 10));
    model.Zoomed = true;
    model.ZoomScaleLimits[0] = {first, first + milliseconds_in_all * 0.2, 0, 0};
    redraw();
  }
};

void paint(const GraphSurface& graph) {
  static QImage image(kFrame, QImage::Format_RGB32);
  QPainter painter(&image);
  paint_graph(painter, graph.shown(), kFrame);
}

void compare_render(const Data& data) {
  // Ahead of the long array, which would count among the memory of the other process.
  print_picture_memory("most memory of a picture of 100 M f64, MiB", render(data, data.channel()));
  print_picture_memory("most memory of a picture of a section of them, MiB",
                       render(data, data.channel(), {"--from", "10", "--to", "90000"}));
  SilentShell shell;
  Model model(shell);
  if (LoadMeasurementFile(model, 1, data.channel(), 1, 0) != LoadStatus::Done)
    throw std::runtime_error("cannot load the channel");
  compare(
      "picture of 100 M f64 / read, scan, empty picture", 1.3, 7,
      [&] { static_cast<void>(render(data, data.channel())); },
      [&] {
        read_and_scan(data.channel(), model.FileChannelValues);
        static_cast<void>(render(data, data.empty()));
      });
}

// gnuplot keeps all points in memory, 6 GB of them, and takes its time; once is enough.
void compare_plotter(const Data& data) {
  constexpr char kPlotter[] = "/usr/bin/gnuplot";
  if (access(kPlotter, X_OK) != 0) {
    std::printf("%-52s%s\n", "picture of 100 M f64 / the same by gnuplot",
                "  left out, gnuplot-nox is missing");
    return;
  }
  const auto header = std::filesystem::file_size(data.channel()) - u64{kChannelSamples} * sizeof(f64);
  const std::string script = "set terminal png size 1600,900; set output '" + data.picture() + "'; plot '" +
                             data.channel() + "' binary skip=" + std::to_string(header) +
                             " format='%float64' using 0:1 with lines";
  compare(
      "picture of 100 M f64 / the same by gnuplot", 0.1, 1,
      [&] { static_cast<void>(render(data, data.channel())); },
      [&] {
        static_cast<void>(run_process({kPlotter, "-e", script}));
      });
}

void compare_zoom(const Data& data) {
  Drawing large, small;
  large.add(data.channel(), 1, kKindPlain, kChannelSamples);
  small.add(data.short_channel(), 1, kKindPlain, kShort);
  large.redraw();
  small.redraw();
  const f64 interval = large.model.ChannelParams[0].SampleInterval;
  const f64 factor = interval > 0 ? interval / 1000 : 0.001;
  int step = 0;
  compare(
      "redraw of a window of 100 M kept / of 1 M", 1.5, 51,
      [&] { large.redraw_window(kChannelSamples * factor, ++step); },
      [&] { small.redraw_window(kShort * factor, step); });
}

void compare_signals(const Data& data) {
  Drawing drawing;
  for (i16 signal = 0; signal < kReducedSignals; ++signal)
    drawing.add(data.reduced(), static_cast<i16>(2 * signal + 1), kKindReducedPairs, 2 * kReducedRows);
  drawing.redraw();
  compare(
      "redraw of 16 signals / read once, paint", 2.5, 15,
      [&] {
        drawing.redraw();
        paint(drawing.model.PESG);
      },
      [&] {
        read_through_buffer(data.reduced());
        paint(drawing.model.PESG);
      });
}

int redraw_as_child(const std::string& path) {
  Drawing drawing;
  drawing.add(path, 1, kKindPlain, kChannelSamples);
  drawing.redraw();
  return drawing.model.PESG.shown().PointCount > 0 ? 0 : 1;
}

void print_memory(const Data& data) {
  const f64 peak = static_cast<f64>(run_process({"/proc/self/exe", "--redraw", data.channel()})) * 1024;
  const f64 samples = f64{kChannelSamples} * sizeof(f64);
  std::printf("%-52s%10.1f%10.1f%8.2f%9.2f\n", "memory of a redraw of 100 M / its samples, MiB",
              peak / (1 << 20), samples / (1 << 20), peak / samples, 1.3);
}

void run(const Data& data, const std::string& wanted) {
  const struct {
    const char* name;
    void (*measure)(const Data&);
  } parts[] = {{"memory", print_memory},
               {"render", compare_render},
               {"plotter", compare_plotter},
               {"zoom", compare_zoom},
               {"signals", compare_signals}};
  write_channel_file(data.channel());
  write_channel_file(data.short_channel(), kShort);
  write_channel_file(data.empty(), 2);
  write_reduced_recording(data.reduced());
  std::printf("%-52s%10s%10s%8s%9s\n", "work / limit", "ms", "limit ms", "ratio", "at most");
  for (const auto& part : parts)
    if (wanted.empty() || wanted == part.name) part.measure(data);
}

}  // namespace
}  // namespace trendaro::bench

int main(int argument_count, char** arguments) {
  if (argument_count == 3 && std::strcmp(arguments[1], "--redraw") == 0)
    return trendaro::bench::redraw_as_child(arguments[2]);
  if (argument_count < 3) return 2;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const trendaro::bench::Data data{arguments[1], arguments[2]};
  const QGuiApplication application(argument_count, arguments);
  trendaro::bench::run(data, argument_count > 3 ? arguments[3] : "");
  return 0;
}
