// What painting costs, each figure against what the machine can do in the same run. Drawn off screen. An
// argument chooses one part: cursor, curves, frames or hand-over.
#include <QGuiApplication>
#include <QImage>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "graph/curve_strokes.h"
#include "graph/graph_painter.h"
#include "graph/graph_surface.h"
#include "graph/painters/sharp_lines.h"
#include "graph/run_extremes.h"
#include "timing.h"

namespace trendaro::bench {
namespace {

constexpr std::size_t kLong = 100'000'000;
constexpr std::size_t kShort = 100'000;
constexpr QSize kFrame(1600, 900);
constexpr QSize kLargeFrame(3840, 2160);
constexpr int kRuns = 15;
constexpr int kFrameRuns = 61;

// Work and limit take turns, so that the machine's moods fall on both; the medians are compared.
void compare(const char* words, f64 most, int runs, const std::function<void()>& work,
             const std::function<void()>& limit, f64 factor = 1) {
  std::vector<f64> works, limits;
  for (int run = 0; run < runs; ++run) {
    works.push_back(milliseconds(work));
    limits.push_back(milliseconds(limit));
  }
  const f64 own = median(works);
  const f64 best = median(limits) * factor;
  std::printf("%-52s%10.2f%10.2f%8.2f%9.2f\n", words, own, best, own / best, most);
}

f64 short_course(std::size_t place) {
  const u32 noise = static_cast<u32>(place) * 2654435761U;
  return std::sin(static_cast<f64>(place) / kShort * 1000) * 100 + (noise >> 24) * 0.1;
}

// The course of the short curve. Of more points those between two of its points lie anywhere between their
// heights, so that the pictures are the same. `points` is a multiple of its count.
f32 signal(std::size_t index, std::size_t points) {
  const std::size_t fold = points / kShort;
  const std::size_t place = index % points;
  const f64 from = short_course(place / fold);
  if (place % fold == 0) return static_cast<f32>(from);
  const u32 share = static_cast<u32>(place) * 2654435761U;
  return static_cast<f32>(from + (short_course(place / fold + 1) - from) * share / 0x1p32);
}

void give_curves(GraphSurface& graph, std::size_t points, i32 curves) {
  FlatArray x(points * static_cast<std::size_t>(curves));
  FlatArray y(x.size());
  for (std::size_t i = 0; i < x.size(); ++i) {
    x[i] = static_cast<f32>(i % points);
    y[i] = signal(i, points);
  }
  graph.pending.SubsetCount = curves;
  graph.pending.PointCount = static_cast<i32>(points);
  for (i32 i = 0; i < curves; ++i) {
    set_element(graph.pending.SubsetLabels, i, "Kanal " + std::to_string(i + 1));
    set_element(graph.pending.SubsetsToLegend, i, i);
    set_element(graph.pending.SubsetColors, i, 0x303030 * (i % 5) + 0x40 * (i % 3));
  }
  PEvset(graph, kXData, std::move(x));
  PEvset(graph, kYData, std::move(y));
}

QImage& canvas(QSize size) {
  static QImage image;
  if (image.size() != size) image = QImage(size, QImage::Format_RGB32);
  return image;
}

void paint(const GraphSurface& graph, QSize size) {
  QPainter painter(&canvas(size));
  paint_graph(painter, graph.shown(), size);
}

// The samples of a window of the long curve, as minimum and maximum for each column.
GraphSurface ready_columns(const GraphSurface& graph, f64 first, f64 last, int columns) {
  GraphSurface ready(1);
  FlatArray x, y;
  for (int column = 0; column < columns; ++column) {
    const auto from = static_cast<std::size_t>(first + (last - first) * column / columns);
    const auto to =
        std::max(from + 1, static_cast<std::size_t>(first + (last - first) * (column + 1) / columns));
    const PointExtent extent = extent_of_run(curve_samples(graph.shown(), 0), from, to);
    x.insert(x.end(), {static_cast<f32>(from), static_cast<f32>(from)});
    y.insert(y.end(), {extent.y_low, extent.y_high});
  }
  ready.pending.SubsetCount = 1;
  ready.pending.PointCount = static_cast<i32>(x.size());
  ready.pending.SubsetLabels = {"Kanal 1"};
  ready.pending.SubsetsToLegend = {0};
  PEvset(ready, kXData, std::move(x));
  PEvset(ready, kYData, std::move(y));
  PEactions(ready, kTakeOverAndRedraw);
  ready.pending.ZoomActive = true;
  ready.pending.ZoomMinX = first;
  ready.pending.ZoomMaxX = last;
  PEactions(ready, kRedrawFromSettings);
  return ready;
}

void show_window(GraphSurface& graph, f64 first, f64 last) {
  graph.pending.ZoomActive = true;
  graph.pending.ZoomMinX = first;
  graph.pending.ZoomMaxX = last;
  PEactions(graph, kRedrawFromSettings);
}

// One look at x and y with vectors, for their extremes.
__attribute__((optimize("O3"))) f32 scan(const FlatArray& values) {
  constexpr std::size_t kLanes = 32;
  f32 least[kLanes];
  f32 greatest[kLanes];
  std::fill_n(least, kLanes, values[0]);
  std::fill_n(greatest, kLanes, values[0]);
  for (std::size_t i = 0; i + kLanes <= values.size(); i += kLanes)
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
      const f32 value = values[i + lane];
      least[lane] = value < least[lane] ? value : least[lane];
      greatest[lane] = value > greatest[lane] ? value : greatest[lane];
    }
  return *std::max_element(greatest, greatest + kLanes) - *std::min_element(least, least + kLanes);
}

volatile f32 kept_from_the_optimiser = 0;

void compare_hand_over() {
  GraphSurface graph(1);
  give_curves(graph, kLong, 1);
  compare(
      "hand-over of 100 M points / scan of x and y", 2.5, kRuns,
      [&] {
        graph.pending.curve_index = nullptr;
        PEactions(graph, kTakeOverAndRedraw);
      },
      [&] { kept_from_the_optimiser = scan(*graph.pending.XData) + scan(*graph.pending.YData); });
}

void compare_frames() {
  GraphSurface graph(1);
  give_curves(graph, kLong, 1);
  PEactions(graph, kTakeOverAndRedraw);
  GraphSurface small(1);
  give_curves(small, kShort, 1);
  PEactions(small, kTakeOverAndRedraw);
  compare(
      "frame of 100 M / frame of 100 k", 1.2, kFrameRuns, [&] { paint(graph, kFrame); },
      [&] { paint(small, kFrame); });
  for (const f64 share : {1.0, 0.1, 0.001, 0.00001}) {
    const f64 first = kLong * 0.3 * (1 - share);
    const f64 last = first + kLong * share;
    show_window(graph, first, last);
    const GraphSurface ready = ready_columns(graph, first, last, kFrame.width());
    const std::string words =
        "window of " + std::to_string(static_cast<i64>(last - first)) + " / ready columns";
    compare(
        words.c_str(), 1.5, kFrameRuns, [&] { paint(graph, kFrame); }, [&] { paint(ready, kFrame); });
  }
}

void compare_many_curves() {
  GraphSurface many(1);
  many.pending.MultiAxesSubsets = {8, 8, 8};
  many.pending.MainTitle = "Prüflauf";
  many.pending.SubTitle = "unkomprimierte Daten";
  give_curves(many, 1'000'000, 24);
  PEactions(many, kTakeOverAndRedraw);
  GraphSurface one(1);
  one.pending.MainTitle = "Prüflauf";
  one.pending.SubTitle = "unkomprimierte Daten";
  give_curves(one, 1'000'000, 1);
  PEactions(one, kTakeOverAndRedraw);
  compare(
      "24 curves, 3 layers, 3840x2160 / 24 x one curve", 0.6, 9, [&] { paint(many, kLargeFrame); },
      [&] { paint(one, kLargeFrame); }, 24);
}

void compare_cursor_step() {
  GraphSurface graph(1);
  give_curves(graph, 1'000'000, 4);
  graph.pending.TablesEnabled = true;
  TableProperties& table = graph.pending.tables[0];
  table.TableVisible = true;
  table.TableLocation = 6;
  table.TableRows = 8;
  table.TableColumns = 1;
  table.column_widths[0] = 10;
  PEactions(graph, kTakeOverAndRedraw);
  const QImage picture = [&] {
    paint(graph, kFrame);
    return canvas(kFrame).copy();
  }();
  QImage window(kFrame, QImage::Format_RGB32);
  const GraphSheet sheet(graph.shown(), kFrame);
  i32 step = 0;
  compare(
      "cursor step with readout / blit of the graph", 3, 101,
      [&] {
        ++step;
        for (i32 row = 0; row < 5; ++row) {
          f64 value = 0;
          PEvgetcellEx(graph, kYData, row % 4, step, value);
          set_cell_text(table, row, 0, std::to_string(static_cast<int>(value)) + " bar");
        }
        TableRefresh(graph, 1);
        QPainter painter(&window);
        painter.drawImage(0, 0, picture);
        paint_graph_overlay(painter, sheet);
        draw_upright_line(painter, 100 + step % 1000, 20, 800, 1, QPen(Qt::red));
      },
      [&] {
        QPainter painter(&window);
        painter.drawImage(0, 0, picture);
      });
}

void run(const std::string& wanted) {
  const struct {
    const char* name;
    void (*compare)();
  } parts[] = {{"cursor", compare_cursor_step},
               {"curves", compare_many_curves},
               {"frames", compare_frames},
               {"hand-over", compare_hand_over}};
  std::printf("%-52s%10s%10s%8s%9s\n", "work / limit", "ms", "limit ms", "ratio", "at most");
  for (const auto& part : parts)
    if (wanted.empty() || wanted == part.name) part.compare();
}

}  // namespace
}  // namespace trendaro::bench

int main(int argument_count, char** arguments) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argument_count, arguments);
  trendaro::bench::run(argument_count > 1 ? arguments[1] : "");
  return 0;
}
