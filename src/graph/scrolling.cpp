#include "graph/scrolling.h"

#include <algorithm>
#include <optional>

#include "app/attempt.h"
#include "app/model.h"
#include "app/numbers.h"
#include "app/raised.h"
#include "graph/compressed_section.h"
#include "graph/limit_lines.h"
#include "graph/main_redraw.h"
#include "graph/original_file.h"
#include "graph/section_import.h"
#include "graph/x_scale_zoom.h"
#include "graph/zoom_arithmetic.h"

namespace trendaro {
namespace {

// The step in x units; nothing while no curve has given the display a step.
std::optional<f64> scroll_step(Model& model) {
  attempt([&] { model.ScrollInterval = round_to_i32(ParseNumber(model.controls["StepBox"].text)); });
  if (model.ActiveReduceFactor == 0) return std::nullopt;
  return model.ScrollInterval / (model.ActiveReduceFactor / 2.0) * model.CompressedDXMax;
}

void write_x_limits(Model& model) {
  model.PESG.pending.ZoomMinX = model.ZoomXMin;
  model.PESG.pending.ZoomMaxX = model.ZoomXMax;
}

void write_y_limits(Model& model) {
  if (model.gMultiLayer) return;
  LayerProperties& layer = zoomed_layer(model, model.PESG);
  layer.ZoomMinY = model.ZoomYMin;
  layer.ZoomMaxY = model.ZoomYMax;
  layer.ZoomMinRY = model.ZoomRYMin;
  layer.ZoomMaxRY = model.ZoomRYMax;
}

void zoom_shown_curves(Model& model) {
  write_y_limits(model);
  model.PESG.pending.ZoomActive = true;
  PEactions(model.PESG, kRedrawFromSettings);
}

void scroll_compressed(Model& model) {
  write_x_limits(model);
  zoom_shown_curves(model);
  if (model.xSrc.ListIndex != kChannelAsX) note_first_samples(model, display_points(model, model.ZoomXMin));
  RedrawSurvAnnotation(model);
}

// The samples of the plot in the section; nothing when it lies behind the plot's end.
std::optional<PlotSection> section_of(const Model& model, i16 number) {
  const auto scaling = plot_scaling(model, number);
  if (!scaling) return std::nullopt;
  PlotSection section{.first = std::max(1, first_sample(*scaling, model.ReductionXmin)),
                      .length = round_to_i32(scaling->block * model.ZoomPoints * scaling->ratio)};
  const f64 limit = original_length(model, number, *scaling);
  if (limit <= section.first) return std::nullopt;
  if (limit < f64{1} * section.first + section.length) section.length = round_to_i32(limit - section.first);
  return section;
}

void import_plot(Model& model, i16 number) {
  const PlotRecord& plot = model.Plots[number];
  HostDatabase& database = host_database(model);
  auto section = section_of(model, number);
  if (!section) return database.ClearChannel(plot.DatabaseChannel);
  database.SetImportProperty(kImportPath, model.OriginalFileNames[number]);
  database.SetImportProperty(kImportTarget, plot.DatabaseChannel);
  database.SetImportProperty(kImportSourceChannel, plot.ChannelIndex);
  section = cut_to_file(model, number, *section);
  set_section(database, *section);
  execute_import(model);
  model.PlotOffsetPoints[number] = section->first;
}

void import_plots(Model& model) {
  model.ReductionXmin = display_points(model, model.ZoomXMin);
  model.ReductionXmax = display_points(model, model.ZoomXMax);
  size_import_companions(model);
  for (i16 number = 1; number <= model.NofPlots; ++number) import_plot(model, number);
}

void scroll_originals(Model& model) {
  write_x_limits(model);
  import_plots(model);
  if (model.gMultiLayer) model.PESG.pending.ZoomActive = false;
  RedrawKMGraph(model, false);
  RedrawSurvAnnotation(model);
  if (!model.gMultiLayer) zoom_shown_curves(model);
  show_missing_original(model);
}

// Of the section, wherever they are kept.
struct SectionLimits {
  XWindow section, graph, reduction;
};

SectionLimits section_limits(const Model& model) {
  const GraphProperties& graph = model.PESG.pending;
  return {.section = {model.ZoomXMin, model.ZoomXMax},
          .graph = {graph.ZoomMinX, graph.ZoomMaxX},
          .reduction = {model.ReductionXmin, model.ReductionXmax}};
}

void restore(Model& model, const SectionLimits& limits) {
  model.ZoomXMin = limits.section.low;
  model.ZoomXMax = limits.section.high;
  model.PESG.pending.ZoomMinX = limits.graph.low;
  model.PESG.pending.ZoomMaxX = limits.graph.high;
  model.ReductionXmin = limits.reduction.low;
  model.ReductionXmax = limits.reduction.high;
}

// Samples along a channel are not evenly spaced; the section is searched anew.
void scroll_along_channel(Model& model) {
  write_x_limits(model);
  model.OriginalDataMode = false;
  const Raised keep(model.KeepOriginalChannels);
  XScaleZoom(model);
  model.PESG.pending.ZoomActive = true;
  PEactions(model.PESG, kRedrawFromSettings);
}

void scroll(Model& model) {
  if (!model.OriginalDataMode)
    scroll_compressed(model);
  else if (model.xSrc.ListIndex == kChannelAsX)
    scroll_along_channel(model);
  else
    scroll_originals(model);
}

}  // namespace

void scroll_section(Model& model, bool right) {
  if (model.NofPlots == 0 || !model.Zoomed || model.HasFullDataPlot) return;
  const auto step = scroll_step(model);
  if (!step) return;
  const XWindow section = moved_section({model.ZoomXMin, model.ZoomXMax}, *step, scroll_bounds(model), right);
  const SectionLimits former = section_limits(model);
  model.ZoomXMin = section.low;
  model.ZoomXMax = section.high;
  try {
    scroll(model);
    begin_section(model);
  } catch (...) {
    restore(model, former);  // the former section is still on show
    model.OriginalDataMode = any_on_original(model);
    throw;
  }
}

}  // namespace trendaro
