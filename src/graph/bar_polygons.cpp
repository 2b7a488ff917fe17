#include "graph/bar_polygons.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace trendaro {
namespace {

// Bars of neighbouring columns, from left to right.
using BarRun = std::vector<PixelRectangle>;

bool touches(const PixelRectangle& bar, const PixelRectangle& other) {
  return bar.y <= other.bottom() && other.y <= bar.bottom();
}

// Columns from one bar to the next: 1 or -1 for a neighbour, else 0.
i32 step_between(const PixelRectangle& bar, const PixelRectangle& next, f64 column_width) {
  const f64 columns = (next.x - bar.x) / column_width;
  if (std::abs(std::abs(columns) - 1) >= 0.5) return 0;
  return columns > 0 ? 1 : -1;
}

// Bars that follow each other to one side; a curve that turns back begins another run.
std::vector<BarRun> runs_of(const std::vector<PixelRectangle>& bars, f64 column_width) {
  std::vector<BarRun> runs;
  i32 direction = 0;
  const auto close_run = [&] {
    if (direction < 0) std::reverse(runs.back().begin(), runs.back().end());
    direction = 0;
  };
  for (const PixelRectangle& bar : bars) {
    const i32 step = runs.empty() ? 0 : step_between(runs.back().back(), bar, column_width);
    const bool goes_on =
        step != 0 && (direction == 0 || step == direction) && touches(runs.back().back(), bar);
    if (!goes_on) {
      if (!runs.empty()) close_run();
      runs.emplace_back();
    } else {
      direction = step;
    }
    runs.back().push_back(bar);
  }
  if (!runs.empty()) close_run();
  return runs;
}

// A level edge between two x, the corners of which are added where the height changes.
void add_step(std::vector<PixelPoint>& edge, f64 from, f64 to, f64 y) {
  if (edge.size() >= 2 && edge.back().y == y) {
    edge.back().x = to;
    return;
  }
  edge.push_back({from, y});
  edge.push_back({to, y});
}

// What the bars of a run cover, column by column: bars wider than a column lie over each other.
std::vector<PixelPoint> covered(const BarRun& run, f64 column_width) {
  const auto columns_of_bar =
      std::max<std::size_t>(1, static_cast<std::size_t>(std::lround(run.front().width / column_width)));
  const f64 part = run.front().width / static_cast<f64>(columns_of_bar);
  const std::size_t columns = run.size() + columns_of_bar - 1;
  std::vector<PixelPoint> polygon;
  std::vector<PixelPoint> lower;
  for (std::size_t column = 0; column < columns; ++column) {
    const std::size_t first = column < columns_of_bar ? 0 : column - columns_of_bar + 1;
    const std::size_t last = std::min(column, run.size() - 1);
    f64 top = run[first].y;
    f64 bottom = run[first].bottom();
    for (std::size_t bar = first + 1; bar <= last; ++bar) {
      top = std::min(top, run[bar].y);
      bottom = std::max(bottom, run[bar].bottom());
    }
    const f64 left = run.front().x + static_cast<f64>(column) * part;
    add_step(polygon, left, left + part, top);
    add_step(lower, left, left + part, bottom);
  }
  polygon.insert(polygon.end(), lower.rbegin(), lower.rend());
  return polygon;
}

}  // namespace

std::vector<std::vector<PixelPoint>> joined_bars(const std::vector<PixelRectangle>& bars, f64 column_width) {
  std::vector<std::vector<PixelPoint>> polygons;
  for (const BarRun& run : runs_of(bars, column_width)) polygons.push_back(covered(run, column_width));
  return polygons;
}

}  // namespace trendaro
