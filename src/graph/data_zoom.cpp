#include "graph/data_zoom.h"

#include <algorithm>
#include <optional>

#include "app/attempt.h"
#include "app/commands.h"
#include "app/model.h"
#include "app/numbers.h"
#include "app/panel_note.h"
#include "app/run_time_error.h"
#include "graph/compressed_section.h"
#include "graph/limit_lines.h"
#include "graph/main_redraw.h"
#include "graph/original_file.h"
#include "graph/section_import.h"
#include "graph/x_scale_zoom.h"
#include "graph/zoom_arithmetic.h"

namespace trendaro {
namespace {

// What the imports of all plots have met.
struct ImportOutcome {
  OriginalSearch search = {};
  bool raised = false;            // the section held no point and was made one point long
  std::optional<i32> short_room;  // a database channel took so many samples only
};

void take_limits(Model& model) {
  const GraphProperties& graph = model.PESG.pending;
  const LayerProperties& layer = zoomed_layer(model, model.PESG);
  model.ZoomXMin = graph.ZoomMinX;
  model.ZoomXMax = graph.ZoomMaxX;
  model.ZoomYMin = layer.ZoomMinY;
  model.ZoomYMax = layer.ZoomMaxY;
  model.ZoomRYMin = layer.ZoomMinRY;
  model.ZoomRYMax = layer.ZoomMaxRY;
}

void take_reduction(Model& model) {
  model.ReductionXmin = display_points(model, model.PESG.pending.ZoomMinX);
  model.ReductionXmax = display_points(model, model.PESG.pending.ZoomMaxX);
  model.ZoomPoints = round_to_i32(model.ReductionXmax - model.ReductionXmin);
}

bool originals_fit(const Model& model) {
  return model.ActiveReduceFactor / 2.0 * model.ZoomPoints <= model.MaxZoomPoints;
}

// The samples of the plot in the section; nothing when the section lies outside of the plot.
std::optional<PlotSection> section_of(Model& model, i16 number) {
  const auto scaling = plot_scaling(model, number);
  if (!scaling) return std::nullopt;
  PlotSection section{.first = first_sample(*scaling, model.ReductionXmin),
                      .length = round_to_i32(scaling->ratio * model.ZoomPoints * scaling->block)};
  // What lies ahead of the file's first sample is not imported.
  model.PlotOffsetPoints[number] = std::max(section.first, 0);
  const f64 limit = original_length(model, number, *scaling);
  if (limit <= section.first || model.ReductionXmax <= 0) return std::nullopt;
  if (limit < f64{1} * section.first + section.length) section.length = round_to_i32(limit - section.first);
  return section;
}

void import_plot(Model& model, i16 number, PlotSection section, ImportOutcome& outcome) {
  const PlotRecord& plot = model.Plots[number];
  HostDatabase& database = host_database(model);
  database.SetImportProperty(kImportPath, model.OriginalFileNames[number]);
  database.SetImportProperty(kImportFixedWord, i16{0});
  database.SetImportProperty(kImportAppend, false);
  database.SetImportProperty(kImportTarget, plot.DatabaseChannel);
  database.SetImportProperty(kImportSourceChannel, source_channel(model, plot));
  section = cut_to_file(model, number, section);
  set_section(database, section);
  const i32 capacity = host_integer(database.GetChannelProperty(plot.DatabaseChannel, kChannelCapacity));
  execute_import(model);
  // The import gives the channel the name that the file has.
  database.SetChannelProperty(plot.DatabaseChannel, kChannelName, outcome.search.signal);
  if (section.length > capacity) outcome.short_room = capacity;
}

void zoom_plot(Model& model, i16 number, ImportOutcome& outcome) {
  PlotRecord& plot = model.Plots[number];
  find_original(model, number, outcome.search);
  if (model.ZoomPoints < 1) {
    model.ZoomPoints = 1;
    outcome.raised = true;
  }
  if (const auto section = section_of(model, number))
    import_plot(model, number, *section, outcome);
  else
    host_database(model).ClearChannel(plot.DatabaseChannel);
  if (!model.KeepOriginalChannels) move_to_original(plot);
}

void go_into_originals(Model& model, ImportOutcome& outcome) {
  const WaitPointer wait(model.shell);
  model.OriginalDataMode = true;
  enable_control(model, "mnuDBOffset", false);
  const PanelNote note(model.shell, "Zoom in Originaldaten!");
  size_import_companions(model);
  for (i16 number = 1; number <= model.NofPlots; ++number)
    if (model.Plots[number].FileKind != kKindPlain) zoom_plot(model, number, outcome);
  model.PESG.pending.ZoomActive = false;
  RedrawKMGraph(model, false);
  if (outcome.raised) {
    model.ZoomXMin = model.PESG.pending.ManualMinX;
    model.ZoomXMax = model.PESG.pending.ManualMaxX;
  }
}

void report_short_channel(Model& model, i32 capacity) {
  if (model.ActiveReduceFactor == 0) throw RunTimeError{kDivisionByZero};
  ControlState& box = model.controls["ZoomPointsBox"];
  box.text = number_text(i64{capacity});
  box.back_color = kGreen;
  model.ZoomXMax =
      model.PESG.pending.ZoomMinX + capacity * (model.CompressedDXMax / (model.ActiveReduceFactor / 2.0));
  model.shell.show_message(
      "Datenbasiskanal zu kurz, um alle Zoomwerte zu importieren. Es wurden nur Werte bis zum Kanalende "
      "importiert.",
      kProgramTitle, MessageIcon::Stop);
}

void zoom_reduced_plots(Model& model) {
  take_reduction(model);
  take_max_zoom_points(model);
  enable_control(model, "mnuXUnit", false);
  enable_control(model, "mnuNullValues", false);
  ImportOutcome outcome;
  if (originals_fit(model) && !model.OriginalDataMode)
    go_into_originals(model, outcome);
  else
    stay_in_display(model);
  if (!model.OriginalDataMode) note_first_samples(model, model.ReductionXmin);
  if (outcome.short_room)
    report_short_channel(model, *outcome.short_room);
  else
    show_section_points(model);
  RedrawSurvAnnotation(model);
  report_missing_original(model, outcome.search.block_name_met);
  show_missing_original(model);
}

void zoom_into_data(Model& model) {
  if (!model.HasFullDataPlot) model.PESG.pending.ScrollingHorzZoom = false;
  model.Zoomed = true;
  take_limits(model);
  if (model.HasFullDataPlot) return;  // full data have nothing behind them
  if (model.PESG.pending.ZoomActive) begin_section(model);
  if (model.xSrc.ListIndex == kChannelAsX)
    XScaleZoom(model);
  else
    zoom_reduced_plots(model);
}

}  // namespace

void DataZoom(Model& model) {
  if (attempt([&] { zoom_into_data(model); })) return;
  model.shell.show_message("Mervan-ActiveX-Server nicht mehr vorhanden. Trendaro muss beendet werden!",
                           kProgramTitle, MessageIcon::Stop);
}

void stay_in_display(Model& model) {
  if (!model.OriginalDataMode && any_on_original(model)) {
    return_to_reduced(model);
    RedrawKMGraph(model, false);
  }
  PEactions(model.PESG, kRedrawFromSettings);
}

void show_section_points(Model& model) {
  ControlState& box = model.controls["ZoomPointsBox"];
  box.text = count_text(f64{1} * model.ZoomPoints * model.ActiveReduceFactor / 2);
  box.back_color = model.OriginalDataMode ? kGreen : kWhite;
}

void take_max_zoom_points(Model& model) {
  model.MaxZoomPoints = round_to_i32(ParseNumber(model.controls["PointsBox"].text));
}

}  // namespace trendaro
