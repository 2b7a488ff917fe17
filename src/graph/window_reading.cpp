#include "graph/window_reading.h"

#include <algorithm>
#include <limits>
#include <optional>

#include "app/model.h"
#include "files/loader.h"
#include "graph/main_sizing.h"
#include "graph/window_points.h"

namespace trendaro {
namespace {

bool is_plain_over_time(const PlotRecord& plot) {
  const bool plain = plot.FileKind != kKindDatabase && plot.FileKind != kKindDatabaseFromBlock &&
                     plot.FileKind != kKindReducedPairs && plot.FileKind != kKindReducedBlock;
  return plain && plot.Cached == 0 && plot.XSource == 0 && plot.TimeFromRate == 1;
}

void write_points(CurveTask& task, const std::vector<WindowPoints::Point>& points, const TimeLine& line) {
  if (points.size() > task.slot.DrawY.size() && task.widen_slot)
    task.widen_slot(task, static_cast<i32>(points.size()));
  const PointRoom room(task.slot, points.size());
  for (std::size_t place = 0; place < points.size(); ++place)
    room.write(place, line.at(points[place].sample), points[place].y);
}

// Hands display values on as long as the curve goes on.
class HeightTaker {
 public:
  explicit HeightTaker(const CurveTask& task) : scale_(task.scale()) {
    if (task.points >= 0) left_ = static_cast<std::size_t>(task.points);
  }

  void pass(std::span<const f64> run, WindowPoints& points) {
    run = run.first(std::min(run.size(), left_));
    left_ -= run.size();
    heights_.resize(run.size());
    write_values(heights_, run, scale_);
    points.add(heights_);
  }

 private:
  DisplayScale scale_;
  std::size_t left_ = std::numeric_limits<std::size_t>::max();
  FlatArray heights_;
};

}  // namespace

bool reads_window(const Model& model) {
  if (!model.picture_window || !model.CurveCacheOff || model.DisplayCompression || model.Zoomed) return false;
  for (i16 number = 1; number <= model.NofPlots; ++number)
    if (on_show(model, model.Plots[number]) && !is_plain_over_time(model.Plots[number])) return false;
  return true;
}

void read_window_samples(CurveTask& task, const std::function<TimeLine()>& line_of) {
  Model& model = task.model;
  const GraphProperties& graph = model.PESG.pending;
  const PointKind kind{.single_x = !model.DateAxis,
                       .null_x = graph.NullDataValueX,
                       .null_y = static_cast<f32>(graph.NullDataValue)};
  std::optional<WindowPoints> points;
  HeightTaker heights(task);
  TimeLine line;
  const LoadStatus status =
      PassMeasurementValues(model, task.path, task.plot.ChannelIndex, [&](std::span<const f64> run) {
        if (!points) points.emplace(*model.picture_window, line = line_of(), kind);
        heights.pass(run, *points);
      });
  model.LastDatabaseStatus = static_cast<i32>(status);
  report_status(model, task.path, status);
  if (!points) return;
  constexpr auto kMost = static_cast<std::size_t>(std::numeric_limits<i32>::max());
  if (task.points == -1) task.plot.Points = static_cast<i32>(std::min(points->samples(), kMost));
  write_points(task, points->finish(), line);
  if (points->thinned()) model.picture_window->thinned = true;
}

}  // namespace trendaro
