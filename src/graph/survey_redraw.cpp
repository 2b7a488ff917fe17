#include "graph/survey_redraw.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "app/attempt.h"
#include "app/model.h"
#include "app/numbers.h"
#include "graph/curve_readers.h"
#include "graph/graph_setup.h"
#include "graph/hand_over.h"
#include "graph/limit_lines.h"
#include "graph/main_sizing.h"
#include "graph/pair_reading.h"
#include "graph/titles.h"

namespace trendaro {
namespace {

// While a zoom shows original samples the kinds of the two plot arrays differ. Which array is asked is laid
// down for each kind: pairs stay readable during a zoom, block-reduced plots are then left out.
enum class SurveyKind { Pairs, Plain, Block, Database, None };

SurveyKind kind_to_size(const Model& model, i16 number) {
  const i16 survey = model.SurveyPlots[number].FileKind;
  if (survey == kKindDatabase || survey == kKindDatabaseFromBlock) return SurveyKind::Database;
  if (survey == kKindReducedPairs) return SurveyKind::Pairs;
  const i16 main = model.Plots[number].FileKind;
  if (main == kKindPlain) return SurveyKind::Plain;
  return main == kKindReducedBlock ? SurveyKind::Block : SurveyKind::None;
}

SurveyKind kind_to_read(const Model& model, i16 number) {
  const i16 survey = model.SurveyPlots[number].FileKind;
  if (survey == kKindReducedPairs) return SurveyKind::Pairs;
  if (survey == kKindPlain) return SurveyKind::Plain;
  return model.Plots[number].FileKind == kKindReducedBlock ? SurveyKind::Block : SurveyKind::None;
}

i32 database_length(Model& model, const PlotRecord& plot) {
  if (plot.ChannelIndex <= 0 || model.Kernel == nullptr) return 0;
  model.LastDatabaseStatus = model.Kernel->KSD_GetDatabaseChanCurrLen(plot.ChannelIndex);
  return model.LastDatabaseStatus;
}

i32 pair_length(Model& model, const PlotRecord& plot) {
  if (plot.Points != -1) return plot.Points;
  load_description(model, plot_path(plot), plot.ChannelIndex);
  if (!model.FileChannelPointsEstimate.has(plot.ChannelIndex)) return 0;
  const i64 points = i64{model.FileChannelPointsEstimate[plot.ChannelIndex]} * 2;
  return round_to_i32(static_cast<f64>(points));
}

i32 slot_length_of(Model& model, i16 number) {
  const PlotRecord& plot = model.SurveyPlots[number];
  i32 length = 0;
  switch (kind_to_size(model, number)) {
    case SurveyKind::Database:
      return database_length(model, plot);
    case SurveyKind::Pairs:
      length = pair_length(model, plot);
      break;
    case SurveyKind::Plain:
    case SurveyKind::Block:
      length = model.Plots[number].Points;
      break;
    case SurveyKind::None:
      break;
  }
  return plausible_points(length, plot_path(plot));
}

i32 longest_slot(Model& model) {
  i32 longest = 0;
  for (i16 number = 1; number <= model.NofPlots; ++number)
    attempt([&] { longest = std::max(longest, slot_length_of(model, number)); });
  return longest;
}

// The curves of the survey while they are read. The slots grow when a length turns out only now.
struct SurveyReading {
  TimeFactor time;
  DrawArrays arrays;
  i32 curves = 0;
};

std::size_t points_of(const CurveTask& task) {
  return static_cast<std::size_t>(std::max(task.points, 0));
}

// Points are counted where the plot was not made for a time axis.
void write_counted_points(const CurveTask& task) {
  write_line(task.slot, points_of(task), {.step = 1, .start = 0});
}

void read_pairs(CurveTask& task, const SurveyReading& reading) {
  Model& model = task.model;
  read_pair_values(task);
  if (task.plot.XSource > 0)
    read_pair_x(task);
  else if (task.plot.TimeFromRate == 1)
    write_line(task.slot, points_of(task), reduced_time_line(task, reading.time.factor));
  else
    write_counted_points(task);
  take_file_unit(model, task.plot, model.SurveyAxisTitles);
  // On purpose one element too far: the last sample of a reduced curve is not drawn.
  if (task.points > 0) pad_y(task.slot.DrawY, points_of(task) - 1, model.PESGSurvey.pending.NullDataValue);
}

void read_block(CurveTask& task, const SurveyReading& reading) {
  Model& model = task.model;
  read_block_values(task);
  if (task.plot.XSource > 0)
    read_x_channel(task);
  else if (task.plot.TimeFromRate == 1)
    write_line(task.slot, points_of(task), reduced_time_line(task, reading.time.factor));
  else
    write_counted_points(task);
  take_file_unit(model, task.plot, model.SurveyAxisTitles);
  // On purpose one element too far, as with the pairs.
  if (task.points > 0) pad_y(task.slot.DrawY, points_of(task) - 1, model.PESG.pending.NullDataValue);
}

void write_plain_line(CurveTask& task, const SurveyReading& reading) {
  Model& model = task.model;
  const std::string date =
      model.PlotDateTexts.has(task.number) ? model.PlotDateTexts[task.number] : std::string();
  TimeLine line =
      time_line(sample_step(model, 0), sample_start(model, 0), reading.time.factor, model.DateAxis, date);
  if (!model.DateAxis) line.start = 0;
  write_line(task.slot, points_of(task), line);
}

void read_plain(CurveTask& task, const SurveyReading& reading) {
  Model& model = task.model;
  load_values(model, task.path, task.plot.ChannelIndex, true);
  find_length(task, model.FileChannelValues.size(), static_cast<LoadStatus>(model.LastDatabaseStatus));
  take_plain_date(task);
  const std::span<const f64> values = model.FileChannelValues;
  write_y(task.slot.DrawY, values.first(std::min(values.size(), points_of(task))), task.scale());
  pad_y(task.slot.DrawY, points_of(task), model.PESG.pending.NullDataValue);
  take_file_unit(model, task.plot, model.SurveyAxisTitles);
  if (task.plot.XSource > 0)
    read_x_channel(task);
  else if (task.plot.TimeFromRate == 1)
    write_plain_line(task, reading);
  else
    write_counted_points(task);
}

void read_survey_curve(CurveTask& task, const SurveyReading& reading, bool settings_only) {
  Model& model = task.model;
  const SurveyKind kind = kind_to_read(model, task.number);
  if (kind == SurveyKind::None) return;
  if (task.points <= 0 && task.points != -1) {
    load_description(model, task.path, task.plot.ChannelIndex);
    return take_file_unit(model, task.plot, model.SurveyAxisTitles);
  }
  if (settings_only) return;
  if (kind == SurveyKind::Plain) return read_plain(task, reading);
  if (kind == SurveyKind::Block) return read_block(task, reading);
  if (task.points == -1) task.points = pair_length(model, task.plot);
  read_pairs(task, reading);
}

CurveTask task_of(Model& model, i16 number, SurveyReading& reading) {
  const auto curve = static_cast<std::size_t>(number - 1);
  PlotRecord& plot = model.SurveyPlots[number];
  return {.model = model,
          .plot = plot,
          .number = number,
          .path = plot_path(plot),
          .points = plot.Points,
          .slot = slot_of(reading.arrays, curve),
          .make_room = [&model, &reading, curve](CurveTask& longer) {
            // Only of a plain plot is it kept: the next sizing asks the main plots, and finds it there.
            if (longer.plot.FileKind == kKindPlain)
              model.Plots[longer.number].Points = longer.points;
            else
              longer.plot.Points = -1;
            grow_slots(reading.arrays, longer.points);
            longer.slot = slot_of(reading.arrays, curve);
          }};
}

std::vector<CurveTask> pair_tasks(Model& model, SurveyReading& reading) {
  std::vector<CurveTask> tasks;
  for (i16 number = 1; number <= model.NofPlots; ++number)
    if (kind_to_read(model, number) == SurveyKind::Pairs) tasks.push_back(task_of(model, number, reading));
  return tasks;
}

void read_plots(Model& model, SurveyReading& reading, bool settings_only) {
  PairReading pairs([&] { return pair_tasks(model, reading); });
  for (i16 number = 1; number <= model.NofPlots; ++number) {
    model.shell.show_status(1, "Einlesen der Daten für Kurve " + std::to_string(number) + ".......");
    attempt([&] { describe_curve(model.PESGSurvey, model.SurveyPlots[number], number - 1); });
    CurveTask task = task_of(model, number, reading);
    task.together = &pairs;
    attempt([&] { read_survey_curve(task, reading, settings_only); });
    attempt([&] { erase_file_values(model); });
  }
}

// The layer whose y axis a single-layer survey shows.
const LayerProperties& shown_layer(const Model& model) {
  const auto used = std::ranges::find_if(model.LayerPlotCount, [](i16 plots) { return plots > 0; });
  const auto layer = used == model.LayerPlotCount.end() ? 0 : used - model.LayerPlotCount.begin();
  return model.PESGSurvey.pending.layers[static_cast<std::size_t>(layer)];
}

// The limits of the zoom box. Without padding there is no margin to work out and the old ones stand.
void take_zoom_box_limits(Model& model) {
  const GraphProperties& graph = model.PESGSurvey.pending;
  const LayerProperties& layer = shown_layer(model);
  if (const f64 p = graph.AutoPadPercent; p != 0) {
    model.SurveyMarginX = (graph.ManualMaxX - graph.ManualMinX) / ((2 * p + 100) / p);
    model.SurveyMarginY = (layer.ManualMaxY - layer.ManualMinY) / ((2 * p + 100) / p);
  }
  if (!model.gMultiLayer) {
    model.ZoomYMin = layer.ManualMinY - model.SurveyMarginY;
    model.ZoomYMax = layer.ManualMaxY + model.SurveyMarginY;
  }
  if (model.xSrc.ListIndex != 0) return;
  const f64 span = graph.ManualMaxX - graph.ManualMinX - 2 * model.SurveyMarginX;
  attempt([&] {
    // The product with the step, and not a division by it, is what the zoom box goes by.
    model.SurveySpanPoints = round_to_i32(span * model.CompressedDXMax * model.ActiveReduceFactor);
  });
}

void size_graph(Model& model, SurveyReading& reading) {
  FormerArrays former = former_arrays(model.PESGSurvey);
  attempt([&] { InitSurvGraph(model); });
  model.PESGSurvey.pending.SubsetCount = reading.curves;
  if (reading.curves == 0) model.AxisUnits.fill({});
  const i32 length = longest_slot(model);
  attempt([&] {
    reading.arrays =
        make_draw_arrays(reading.curves, length, {.database = false, .date_axis = model.DateAxis},
                         model.PESGSurvey.pending.NullDataValue, std::move(former));
  });
}

}  // namespace

void RedrawSurvGraph(Model& model, bool settings_only) {
  const WaitPointer wait(model.shell);
  SurveyReading reading{.time = time_factor(model.TimeUnit), .arrays = {}, .curves = model.NofPlots};
  if (!settings_only) size_graph(model, reading);
  model.PESGSurvey.pending.SpecialSubsetCount = 0;
  read_plots(model, reading, settings_only);
  attempt([&] { SetAxisTitles(model, model.PESGSurvey); });
  attempt([&] { write_graph_style(model, model.PESGSurvey); });
  if (!settings_only && !model.IsRealTime)
    attempt([&] { hand_over(model, model.PESGSurvey, std::move(reading.arrays), false); });
  attempt([&] { SetGraphTitles(model, model.PESGSurvey); });
  attempt([&] { switch_legend(model, model.PESGSurvey); });
  attempt([&] { show_graph(model, model.PESGSurvey, "Übersichtsgraphik wird aktualisiert..."); });
  attempt([&] { take_zoom_box_limits(model); });
  attempt([&] { RedrawSurvAnnotation(model); });
  model.shell.show_status(1, "");
}

}  // namespace trendaro
