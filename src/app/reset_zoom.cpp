#include <algorithm>
#include <cmath>
#include <string>

#include "app/attempt.h"
#include "app/commands.h"
#include "app/model.h"
#include "app/numbers.h"
#include "app/toolbar.h"
#include "datasource/grid_handlers.h"
#include "graph/full_range.h"
#include "graph/limit_lines.h"
#include "graph/main_redraw.h"
#include "graph/saved_axes.h"
#include "graph/section_import.h"
#include "graph/unzoomed_scale.h"

namespace trendaro {
namespace {

void leave_graph_zoom(Model& model) {
  PEactions(model.PESG, kLeaveZoom);
  model.PESGSurvey.pending.AllowZooming = 0;
  model.PESGSurvey.pending.ZoomActive = false;
  PEactions(model.PESGSurvey, kLeaveZoom);
  model.SurveyZoom = false;
}

void set_window_to_full_range(Model& model) {
  set_full_x_range(model);
  model.ZoomPoints = model.MaxViewPoints;
}

void show_all_layers(Model& model) {
  bring_layers_back(model);
  model.LastZoomLayer = model.LastLayer = 2;
  model.FirstZoomLayer = model.FirstLayer = 0;
  model.LayerShift = 0;
  model.CurveOffset = 0;
  for (int axis = 1; axis <= 6; ++axis)
    enable_control(model, "mnuConfigAxis(" + std::to_string(axis) + ")", true);
}

void show_points(Model& model) {
  ControlState& box = model.controls["ZoomPointsBox"];
  box.back_color = model.HasFullDataPlot ? kYellow : kWhite;
  if (model.HasFullDataPlot) return;
  const f64 points = (model.ZoomXMax - model.ZoomXMin) / model.CompressedDXMax * model.ActiveReduceFactor / 2;
  if (std::isfinite(points)) box.text = count_text(std::nearbyint(points));  // x is of single precision
}

// The redraw finds the longest plain signal, and it has emptied the status panel.
void tell_of_full_data(Model& model) {
  if (!model.HasFullDataPlot) return;
  model.controls["ZoomPointsBox"].text = number_text(i64{model.MaxPlotPoints});
  show_plot_status(model);
}

void set_graphs_to_full_range(Model& model) {
  model.Zoomed = false;
  for (GraphSurface* graph : {&model.PESG, &model.PESGSurvey}) {
    graph->pending.ZoomMaxX = graph->pending.ManualMaxX;
    graph->pending.ZoomMinX = graph->pending.ManualMinX;
  }
  model.PESGSurvey.pending.SubTitle.clear();
}

// What is on show: the longest plot from its first sample on. The redraw has found its length.
void take_whole_recording(Model& model) {
  std::ranges::fill(model.PlotOffsetPoints, 0);
  const i16 longest = model.LongestPlot;
  if (!model.PlotReduceFactor.has(longest) || model.PlotReduceFactor[longest] == 0) return;
  const f64 block = model.PlotReduceFactor[longest] / 2.0;
  attempt([&] { model.ZoomPoints = round_to_i32(model.LongestOriginalPoints / block); });
}

}  // namespace

void reset_zoom(Model& model) {
  if (model.NofPlots == 0) return;
  ReleaseZoomButtons(model);
  leave_graph_zoom(model);
  set_window_to_full_range(model);
  show_all_layers(model);
  // A bound beyond all counts has ended a zoom with the samples still on show.
  if (model.OriginalDataMode || (model.Zoomed && any_on_original(model))) {
    model.OriginalDataMode = false;
    return_to_reduced(model);
  }
  model.MaxViewPoints = 0;
  RedrawSurvAnnotation(model);
  show_points(model);
  set_graphs_to_full_range(model);
  PEactions(model.PESGSurvey, kRedrawFromSettings);
  end_unzoomed_scale(model);
  RedrawKMGraph(model, false);
  tell_of_full_data(model);
  model.saved_axes = {};
  for (const char* entry : {"mnuDBOffset", "mnuXUnit", "mnuNullValues"}) enable_control(model, entry, true);
  take_whole_recording(model);
}

}  // namespace trendaro
