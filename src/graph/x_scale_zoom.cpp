#include "graph/x_scale_zoom.h"

#include <algorithm>
#include <vector>

#include "app/commands.h"
#include "app/model.h"
#include "app/numbers.h"
#include "app/panel_note.h"
#include "app/run_time_error.h"
#include "graph/curve_readers.h"
#include "graph/data_zoom.h"
#include "graph/main_redraw.h"
#include "graph/original_file.h"
#include "graph/section_import.h"

namespace trendaro {
namespace {

// Minima and maxima of the x channel in turn: two bounds a pair.
std::vector<f32> read_bounds(Model& model) {
  const PlotRecord& plot = model.Plots[1];
  const std::string path = plot_path(plot);
  load_description(model, path, plot.ChannelIndex);
  std::vector<f32> bounds;
  for (const i16 side : {i16{0}, i16{1}}) {
    load_values(model, path, static_cast<i16>(plot.XSource + side), false);
    const auto pairs =
        std::min(model.FileChannelValues.size(), static_cast<std::size_t>(std::max(plot.Points, 0) / 2));
    if (side == 0) bounds.resize(2 * pairs);
    for (std::size_t pair = 0; pair < std::min(pairs, bounds.size() / 2); ++pair)
      bounds[2 * pair + static_cast<std::size_t>(side)] = static_cast<f32>(model.FileChannelValues[pair]);
  }
  erase_file_values(model);
  return bounds;
}

// Places of the bounds that lie in the section, from 0.
std::vector<i32> bounds_in_section(const Model& model, const std::vector<f32>& bounds) {
  const auto low = static_cast<f32>(model.PESG.pending.ZoomMinX);
  const auto high = static_cast<f32>(model.PESG.pending.ZoomMaxX);
  std::vector<i32> inside;
  for (std::size_t j = 0; j < bounds.size(); ++j)
    if (low <= bounds[j] && bounds[j] <= high) inside.push_back(static_cast<i32>(j));
  return inside;
}

// Without a time axis no redraw has told the factor of the display.
void take_reduce_factor(Model& model) {
  if (model.ActiveReduceFactor == 0 && model.PlotReduceFactor.has(model.LongestPlot))
    model.ActiveReduceFactor = model.PlotReduceFactor[model.LongestPlot];
}

// On purpose strictly below the bound, unlike a zoom along the time axis.
bool originals_fit(const Model& model) {
  return model.ActiveReduceFactor / 2.0 * model.ZoomPoints < model.MaxZoomPoints;
}

void import_block(Model& model, i16 target, const HostValue& source, PlotSection section) {
  HostDatabase& database = host_database(model);
  database.SetImportProperty(kImportTarget, target);
  database.SetImportProperty(kImportSourceChannel, source);
  set_section(database, section);
  database.ExecuteImport();
}

void import_plot(Model& model, i16 number, const std::vector<i32>& inside) {
  const PlotRecord& plot = model.Plots[number];
  HostDatabase& database = host_database(model);
  database.SetImportProperty(kImportPath, model.OriginalFileNames[number]);
  database.SetImportProperty(kImportFixedWord, i16{0});
  database.SetImportProperty(kImportAppend, true);  // the blocks add up
  database.ClearChannel(model.XScratchChannel);
  database.ClearChannel(plot.DatabaseChannel);
  const f64 block = model.PlotReduceFactor.has(number) ? model.PlotReduceFactor[number] / 2.0 : 0;
  const HostValue y_source = source_channel(model, plot);
  for (const i32 bound : inside) {
    const PlotSection section{.first = round_to_i32(block * (bound - 1) + 1), .length = round_to_i32(block)};
    import_block(model, model.XScratchChannel, (plot.XSource + 1) / 2.0, section);
    import_block(model, plot.DatabaseChannel, y_source, section);
  }
}

// The samples are there in any case; the channel number may be that of the original already.
void show_originals(const Model& model, PlotRecord& plot) {
  if (model.KeepOriginalChannels && plot.FileKind == kKindReducedPairs)
    plot.FileKind = kKindDatabase;
  else
    move_to_original(plot);
}

void go_into_originals(Model& model, const std::vector<i32>& inside) {
  const WaitPointer wait(model.shell);
  model.OriginalDataMode = true;
  for (const char* entry : {"mnuDBOffset", "mnuXUnit", "mnuNullValues"}) enable_control(model, entry, false);
  const PanelNote note(model.shell, "Zoom in Originaldaten!");
  size_import_companions(model);
  OriginalSearch search{.signal = {}, .file = {}, .block_names = false};
  for (i16 number = 1; number <= model.NofPlots; ++number) {
    find_original(model, number, search);
    model.ZoomPoints = std::max(model.ZoomPoints, 1);
    import_plot(model, number, inside);
    show_originals(model, model.Plots[number]);
  }
  RedrawKMGraph(model, false);
}

}  // namespace

void XScaleZoom(Model& model) {
  if (model.HasFullDataPlot || model.NofPlots < 1) return;
  const std::vector<i32> inside = bounds_in_section(model, read_bounds(model));
  model.ZoomPoints = static_cast<i32>(inside.size());
  take_max_zoom_points(model);
  take_reduce_factor(model);
  if (originals_fit(model) && !model.OriginalDataMode)
    go_into_originals(model, inside);
  else
    stay_in_display(model);
  show_section_points(model);
}

}  // namespace trendaro
