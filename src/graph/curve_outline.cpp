#include "graph/curve_outline.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

#include "graph/line_clip.h"
#include "graph/outline_builder.h"
#include "graph/run_extremes.h"
#include "graph/wandering_outline.h"

namespace trendaro {
namespace {

// Columns for which memory is asked ahead of the one at work.
constexpr std::size_t kAhead = 16;

struct OutlineTask {
  const CurveSamples& samples;
  const AxisScale& x_scale;
  const AxisScale& y_scale;
  const OutlineDetail& detail;

  [[nodiscard]] PixelPoint pixel(std::size_t index) const {
    return {pixel_of(x_scale, samples.x(index)), height(samples.y[index])};
  }
  [[nodiscard]] f64 height(f32 y) const { return pixel_of(y_scale, static_cast<f64>(y)); }
};

// Samples as they are, one after the other.
void add_each(const OutlineTask& task, std::size_t first, std::size_t last, OutlineBuilder& builder) {
  for (std::size_t i = first; i < last; ++i) {
    if (task.samples.drawn(i))
      builder.add(task.pixel(i));
    else
      builder.end_piece();
  }
}

// Whether a run will be a bar whatever the order of its extremes, so that nobody sees where they lie.
bool becomes_bar(const OutlineTask& task, const PixelRectangle& area, const RunExtremes& run) {
  const auto [top, bottom] = std::minmax({task.height(run.y.low), task.height(run.y.high)});
  if (!(bottom - top >= task.detail.bar_height && top >= area.y && bottom <= area.bottom())) return false;
  const PixelPoint first = task.pixel(run.first);
  const PixelPoint last = task.pixel(run.last);
  const bool one_way = std::min(first.y, last.y) == top && std::max(first.y, last.y) == bottom;
  const f64 width = task.detail.column_width;
  return !one_way && std::floor(first.x / width) == std::floor(last.x / width);
}

// The extremes stand above the first sample.
void add_bar(const OutlineTask& task, const RunExtremes& run, OutlineBuilder& builder) {
  const PixelPoint first = task.pixel(run.first);
  builder.add(first);
  builder.add({first.x, task.height(run.y.low)});
  builder.add({first.x, task.height(run.y.high)});
  builder.add(task.pixel(run.last));
}

void add_samples(const OutlineTask& task, const RunExtremes& run, OutlineBuilder& builder) {
  const std::size_t order[] = {run.first, std::min(run.lowest, run.highest),
                               std::max(run.lowest, run.highest), run.last};
  std::size_t former = run.last + 1;
  for (const std::size_t index : order) {
    if (index != former) builder.add(task.pixel(index));
    former = index;
  }
}

// What stands for the samples `first` to `last` - 1 of one column.
void add_extremes(const OutlineTask& task, std::size_t first, std::size_t last,
                  const std::optional<RunExtremes>& run, OutlineBuilder& builder) {
  if (!run || run->first != first) builder.end_piece();
  if (!run) return;
  if (run->has_places)
    add_samples(task, *run, builder);
  else
    add_bar(task, *run, builder);
  if (run->last != last - 1) builder.end_piece();
}

// Where the samples of the columns begin and end, without columns that have none.
std::vector<std::size_t> column_stops(const OutlineTask& task, const PixelRectangle& area) {
  const CurveSamples& samples = task.samples;
  const std::vector<f64> limits = column_edges(task.x_scale, area, task.detail.column_width, samples.falling);
  for (std::size_t column = 0; column < std::min(kAhead + 1, limits.size()); ++column)
    ask_for_limit(samples, limits[column]);
  std::vector<std::size_t> stops = {first_reaching(samples, 0, limits.front())};
  stops.reserve(limits.size());
  for (std::size_t column = 1; column < limits.size() && stops.back() < samples.count; ++column) {
    if (column + kAhead < limits.size()) ask_for_limit(samples, limits[column + kAhead]);
    const std::size_t stop = first_reaching(samples, stops.back(), limits[column]);
    if (stop > stops.back()) stops.push_back(stop);
  }
  return stops;
}

// Of a curve whose x goes one way.
CurveOutline ordered_outline(const OutlineTask& task, const PixelRectangle& area) {
  const OutlineDetail& detail = task.detail;
  const std::vector<std::size_t> stops = column_stops(task, area);
  OutlineBuilder builder;
  add_each(task, stops.front() - std::min(stops.front(), detail.neighbours), stops.front(), builder);
  walk_runs(task.samples, stops,
            {.wants_places = [&](const RunExtremes& run) { return !becomes_bar(task, area, run); },
             .use =
                 [&](std::size_t run, const std::optional<RunExtremes>& found) {
                   if (stops[run + 1] - stops[run] <= detail.most_per_column)
                     add_each(task, stops[run], stops[run + 1], builder);
                   else
                     add_extremes(task, stops[run], stops[run + 1], found, builder);
                 }});
  add_each(task, stops.back(), std::min(task.samples.count, stops.back() + detail.neighbours), builder);
  return builder.take();
}

}  // namespace

std::vector<f64> column_edges(const AxisScale& x_scale, const PixelRectangle& area, f64 column_width,
                              bool falling) {
  const bool leftwards = (x_scale.last < x_scale.first) != falling;
  const auto columns = static_cast<std::size_t>(std::ceil(area.width / column_width));
  std::vector<f64> edges = {falling ? x_scale.maximum : x_scale.minimum};
  edges.reserve(columns + 1);
  for (std::size_t column = 0; column < columns; ++column) {
    const f64 edge = (static_cast<f64>(column) + 1) * column_width;
    edges.push_back(value_of(x_scale, leftwards ? area.right() - edge : area.x + edge));
  }
  return edges;
}

CurveOutline curve_outline(const CurveSamples& samples, const AxisScale& x_scale, const AxisScale& y_scale,
                           const PixelRectangle& area, const OutlineDetail& detail) {
  if (samples.count == 0) return {};
  if (!samples.rising && !samples.falling) return wandering_outline(samples, x_scale, y_scale, area);
  return ordered_outline({samples, x_scale, y_scale, detail}, area);
}

CurveOutline clipped(const CurveOutline& outline, const PixelRectangle& box) {
  OutlineBuilder builder;
  for (std::size_t piece = 0; piece < outline.starts.size(); ++piece) {
    const std::size_t first = outline.starts[piece];
    const std::size_t last =
        piece + 1 < outline.starts.size() ? outline.starts[piece + 1] : outline.points.size();
    builder.end_piece();
    bool joined = false;
    for (std::size_t i = first; i < last; ++i) {
      PixelPoint from = i > first ? outline.points[i - 1] : outline.points[i];
      PixelPoint to = outline.points[i];
      if (last - first > 1 && i == first) continue;
      const PixelPoint whole = to;
      if (!clip_line(box, from, to)) {
        builder.end_piece();
        joined = false;
        continue;
      }
      if (!joined && last - first > 1) builder.add(from);
      builder.add(to);
      joined = to.x == whole.x && to.y == whole.y;
      if (!joined) builder.end_piece();
    }
  }
  return builder.take();
}

}  // namespace trendaro
