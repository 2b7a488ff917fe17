#include "graph/main_redraw.h"

#include <algorithm>
#include <utility>

#include "app/attempt.h"
#include "app/model.h"
#include "graph/compressed_section.h"
#include "graph/graph_setup.h"
#include "graph/hand_over.h"
#include "graph/main_curves.h"
#include "graph/main_sizing.h"
#include "graph/pair_reading.h"
#include "graph/titles.h"
#include "interact/annotation_tables.h"
#include "interact/cursor_readout.h"

namespace trendaro {
namespace {

void size_companions(Model& model) {
  const std::size_t count = model.Plots.size();
  if (model.PlotReduceFactor.size() < count) model.PlotReduceFactor.resize(count);
  if (model.PlotOffsetPoints.size() < count) model.PlotOffsetPoints.resize(count);
  if (model.PlotStep.size() < count) model.PlotStep.resize(count);
  if (model.PlotDateTexts.size() < count) model.PlotDateTexts.resize(count);
}

void take_no_curves(Model& model, MainReading& reading) {
  reading.unit_text.clear();
  for (std::string& unit : model.AxisUnits) unit.clear();
  model.ActiveReduceFactor = 0;
  model.ViewPoints = 0;
}

// Brings the graph back to a known state and finds out how much it will hold.
void size_graph(Model& model, MainReading& reading) {
  attempt([&] { InitMainGraph(model); });
  model.PESG.pending.SubsetCount = size_main_graph(model);
  if (model.PESG.pending.SubsetCount == 0) take_no_curves(model, reading);
  if (!model.OriginalDataMode) model.MaxViewPoints = model.ViewPoints;
}

void read_curve(CurveTask& task, MainReading& reading) {
  switch (task.plot.FileKind) {
    case kKindDatabase:
    case kKindDatabaseFromBlock:
      return read_database_curve(task, reading);
    case kKindReducedPairs:
      return read_pair_curve(task, reading);
    case kKindReducedBlock:
      return read_block_curve(task, reading);
    default:
      return read_plain_curve(task, reading);
  }
}

DrawArrays arrays_of_graph(const Model& model, FormerArrays former) {
  return make_draw_arrays(model.PESG.pending.SubsetCount, model.ViewPoints,
                          {.database = model.OriginalDataMode, .date_axis = model.DateAxis},
                          model.PESG.pending.NullDataValue, std::move(former));
}

// The slots never shrink while curves are read.
void widen_slots(CurveTask& task, i32 points, DrawArrays& arrays, std::size_t curve) {
  Model& model = task.model;
  model.ViewPoints = std::max(points, static_cast<i32>(arrays.slot_length));
  grow_slots(arrays, model.ViewPoints);
  task.slot = slot_of(arrays, curve);
}

// A length that turned out with the values may need larger slots.
void make_room(CurveTask& task, DrawArrays& arrays, std::size_t curve) {
  Model& model = task.model;
  if (task.plot.FileKind == kKindReducedBlock)
    model.ViewPoints = std::max(model.ViewPoints, task.points);
  else
    size_again(model, task.points);
  widen_slots(task, model.ViewPoints, arrays, curve);
}

CurveTask task_of(Model& model, i16 number, DrawArrays& arrays, std::size_t curve) {
  PlotRecord& plot = model.Plots[number];
  return {.model = model,
          .plot = plot,
          .number = number,
          .path = plot_path(plot),
          .points = plot.Points,
          .slot = slot_of(arrays, curve),
          .make_room = [&arrays, curve](CurveTask& longer) { make_room(longer, arrays, curve); },
          .widen_slot = [&arrays, curve](CurveTask& wider,
                                         i32 points) { widen_slots(wider, points, arrays, curve); }};
}

// Calls `use(number, curve)` for each plot on show; curves count from 0.
template <typename Use>
void for_plots_on_show(Model& model, Use use) {
  std::size_t curve = 0;
  for (i16 number = 1; number <= model.NofPlots; ++number)
    if (on_show(model, model.Plots[number])) use(number, curve++);
}

std::vector<CurveTask> pair_tasks(Model& model, DrawArrays& arrays) {
  std::vector<CurveTask> tasks;
  for_plots_on_show(model, [&](i16 number, std::size_t curve) {
    if (model.Plots[number].FileKind == kKindReducedPairs)
      tasks.push_back(task_of(model, number, arrays, curve));
  });
  return tasks;
}

void read_curves(Model& model, DrawArrays& arrays, MainReading& reading) {
  model.PESG.pending.SpecialSubsetCount = 0;
  PairReading pairs([&] { return pair_tasks(model, arrays); });
  for_plots_on_show(model, [&](i16 number, std::size_t curve) {
    model.shell.show_status(1, "Einlesen der Daten für Kurve " + std::to_string(number) + ".......");
    attempt([&] { describe_curve(model.PESG, model.Plots[number], static_cast<i32>(curve)); });
    CurveTask task = task_of(model, number, arrays, curve);
    task.together = &pairs;
    attempt([&] { read_curve(task, reading); });
    attempt([&] { erase_file_values(model); });
  });
}

}  // namespace

void RedrawKMGraph(Model& model, bool settings_only) {
  const WaitPointer wait(model.shell);
  MainReading reading{
      .time = time_factor(model.TimeUnit), .unit_text = {}, .line = {}, .settings_only = settings_only};
  reading.unit_text = settings_only ? model.XUnit : reading.time.unit;
  DrawArrays arrays;
  size_companions(model);
  if (!settings_only) {
    FormerArrays former = former_arrays(model.PESG);
    size_graph(model, reading);
    settle_section(model);
    attempt([&] { arrays = arrays_of_graph(model, std::move(former)); });
  }
  read_curves(model, arrays, reading);
  if (!settings_only) model.MaxPlotPoints = longest_plain_plot(model);
  attempt([&] { SetAxisTitles(model, model.PESG); });
  model.XUnit = reading.unit_text;
  attempt([&] { write_graph_style(model, model.PESG); });
  if (!settings_only && !model.IsRealTime)
    attempt([&] { hand_over(model, model.PESG, std::move(arrays), true); });
  attempt([&] { RebuildAnnotations(model, model.PESG); });
  attempt([&] { SetGraphTitles(model, model.PESG); });
  model.LayerShift = std::max(model.LayerShift, model.FirstLayer);
  attempt([&] { switch_legend(model, model.PESG); });
  attempt([&] { show_graph(model, model.PESG, "Hauptgraphik wird aktualisiert..."); });
  model.shell.show_status(1, "");
  attempt([&] { refresh_cursor_display(model); });
}

}  // namespace trendaro
