#include "graph/zoom_end.h"

#include <algorithm>
#include <string>

#include "app/commands.h"
#include "app/model.h"
#include "datasource/grid_handlers.h"
#include "graph/curve_index.h"
#include "graph/data_zoom.h"
#include "graph/main_redraw.h"
#include "graph/main_sizing.h"
#include "graph/original_file.h"
#include "graph/saved_axes.h"
#include "graph/unzoomed_scale.h"
#include "graph/zoom_arithmetic.h"

namespace trendaro {
namespace {

constexpr i16 kHorizontal = 1;
constexpr i16 kVertical = 2;
constexpr i16 kBoth = 3;
constexpr i16 kLastLayer = 2;
constexpr i16 kManualRange = 3;

void take_y_limits(Model& model) {
  const LayerProperties& layer = zoomed_layer(model, model.PESG);
  model.ZoomYMin = layer.ZoomMinY;
  model.ZoomYMax = layer.ZoomMaxY;
  model.ZoomRYMin = layer.ZoomMinRY;
  model.ZoomRYMax = layer.ZoomMaxRY;
}

// The layers that the rubber band touched stay on show; the graph counts them from the first one that it
// shows. True when other layers are on show from now on.
bool take_layer_range(Model& model) {
  const GraphProperties& graph = model.PESG.pending;
  const i16 base = model.FirstLayer;
  const i16 last_before = model.LastLayer;
  model.LastZoomLayer = static_cast<i16>(std::clamp<int>(base + graph.ZoomAxisTop, base, kLastLayer));
  model.FirstZoomLayer =
      static_cast<i16>(std::clamp<int>(base + graph.ZoomAxisBottom, base, model.LastZoomLayer));
  for (int layer = 0; layer < model.FirstZoomLayer; ++layer)
    for (const int axis : {layer + 1, layer + 4})
      enable_control(model, "mnuConfigAxis(" + std::to_string(axis) + ")", false);
  StoreAxesSettings(model, base);
  shift_layers_down(model, static_cast<i16>(model.FirstZoomLayer - base));
  model.FirstLayer = model.FirstZoomLayer;
  model.LastLayer = model.LastZoomLayer;
  return model.FirstLayer != base || model.LastLayer != last_before;
}

// The limits that a compressed view is computed for.
void keep_limits(Model& model) {
  const GraphProperties& graph = model.PESG.pending;
  model.ZoomScaleLimits[0] = {graph.ZoomMinX, graph.ZoomMaxX, 0, 0};
  for (int axis = 0; axis <= model.LastZoomLayer - model.FirstZoomLayer; ++axis) {
    const auto index = static_cast<std::size_t>(axis);
    const LayerProperties& layer = graph.layers[index];
    model.ZoomScaleLimits[index + 1] = {layer.ZoomMinY, layer.ZoomMaxY, layer.ZoomMinRY, layer.ZoomMaxRY};
  }
}

void redraw_section(Model& model) {
  GraphProperties& graph = model.PESG.pending;
  const i16 mode = graph.AllowZooming;
  if (mode == kBoth) graph.AllowZooming = kHorizontal;
  RedrawKMGraph(model, false);
  model.PESG.pending.AllowZooming = mode;
  PEactions(model.PESG, kRedrawFromSettings);
}

bool curve_on_show(const Model& model, bool plain) {
  return std::ranges::any_of(model.Plots, [&](const PlotRecord& plot) {
    return (plot.FileKind == kKindPlain) == plain && on_show(model, plot);
  });
}

void hold_automatic_x(Model& model) {
  GraphProperties& graph = model.PESG.pending;
  if (graph.ManualScaleControlX != 0) return;
  graph.ManualScaleControlX = kManualRange;
  model.unzoomed_scale.x_held = true;
}

// Whether the samples on show reach over half of the section at least.
bool samples_fill_section(const Model& model) {
  const auto& [low, high, unused, unused_too] = model.ZoomScaleLimits[0];
  PointExtent all;
  if (const auto& index = model.PESG.shown().curve_index)
    for (const CurveExtents& curve : index->curves) all.add(curve.whole);
  return all.x_high - all.x_low >= (high - low) / 2;
}

// An automatic x axis scales to the samples of the section. A reduced curve beside them would widen it to its
// own length, and few samples would move it away from what the user wants to see.
void redraw_compressed_section(Model& model) {
  if (curve_on_show(model, false)) hold_automatic_x(model);
  RedrawKMGraph(model, false);
  if (samples_fill_section(model)) return;
  hold_automatic_x(model);
  RedrawKMGraph(model, false);
}

void count_hidden_plots(Model& model) {
  model.CurveOffset = 0;
  for (i16 layer = 1; layer <= model.FirstZoomLayer; ++layer)
    model.CurveOffset = static_cast<i16>(model.CurveOffset + model.LayerPlotCount[layer]);
}

// What the main graph shows at the moment, as its zoom limits.
void take_shown_section(Model& model) {
  GraphProperties& graph = model.PESG.pending;
  graph.ZoomActive = true;
  if (model.Zoomed) return;
  graph.ZoomMinX = graph.ManualMinX;
  graph.ZoomMaxX = graph.ManualMaxX;
}

void bring_section_inside(Model& model, XWindow range) {
  GraphProperties& graph = model.PESG.pending;
  const GraphProperties& survey = model.PESGSurvey.pending;
  if (graph.ZoomMinX < survey.ZoomMinX) graph.ZoomMinX = range.low;
  if (graph.ZoomMaxX > survey.ZoomMaxX) graph.ZoomMaxX = range.high;
  if (graph.ZoomMinX < range.high && graph.ZoomMaxX > range.low) return;
  if (!model.OriginalDataMode) {
    graph.ZoomMinX = range.low;
    graph.ZoomMaxX = range.high;
    return;
  }
  const f64 width = model.ZoomXMax - model.ZoomXMin;
  graph.ZoomMinX = range.low;
  graph.ZoomMaxX = range.width() >= width ? range.low + width : range.high;
  model.OriginalDataMode = false;
}

// Whatever the graph shows is the section. In y it has no limits, so that the axes stay with their scale.
void zoom_to_whole(Model& model) {
  GraphProperties& graph = model.PESG.pending;
  graph.ZoomMinX = graph.ManualMinX;
  graph.ZoomMaxX = graph.ManualMaxX;
  for (LayerProperties& layer : graph.layers) {
    layer.ZoomMinY = layer.ManualMinY;
    layer.ZoomMaxY = layer.ManualMaxY;
    layer.ZoomMinRY = layer.ManualMinRY;
    layer.ZoomMaxRY = layer.ManualMaxRY;
  }
  model.ZoomScaleLimits = {};
  model.ZoomScaleLimits[0] = {graph.ZoomMinX, graph.ZoomMaxX, 0, 0};
}

void copy_y_limits(Model& model) {
  const LayerProperties from = zoomed_layer(model, model.PESGSurvey);
  LayerProperties& to = zoomed_layer(model, model.PESG);
  to.ZoomMinY = from.ZoomMinY;
  to.ZoomMaxY = from.ZoomMaxY;
}

}  // namespace

void end_main_zoom(Model& model) {
  GraphProperties& graph = model.PESG.pending;
  const bool vertical = graph.AllowZooming == kVertical;
  // A zoom that began without a rubber band has kept nothing.
  if (!model.Zoomed || !model.unzoomed_scale.held) hold_unzoomed_scale(model);
  if (vertical) take_y_limits(model);
  const bool other_layers = take_layer_range(model);
  keep_limits(model);
  if (!vertical) {
    model.OriginalDataMode = false;
    DataZoom(model);
  }
  model.Zoomed = true;
  if (model.DisplayCompression && curve_on_show(model, true)) {
    graph.ZoomActive = false;
    redraw_compressed_section(model);
    model.PESG.curves_of_section = true;
  } else if (!vertical) {
    redraw_section(model);
  } else if (other_layers) {
    RedrawKMGraph(model, false);
  }
  count_hidden_plots(model);
  // The redraw has emptied the panel.
  if (model.HasFullDataPlot) show_plot_status(model);
  show_missing_original(model);
}

void undo_main_zoom(Model& model) {
  if (!model.HasFullDataPlot || !model.DisplayCompression) return;
  // Axes that scale themselves follow the whole curves, whose ends nobody has noted: the redraw finds them.
  show_unzoomed_scale(model);
  model.Zoomed = false;
  RedrawKMGraph(model, false);
  zoom_to_whole(model);
  DataZoom(model);
  show_plot_status(model);
}

void end_survey_zoom(Model& model) {
  GraphProperties& survey = model.PESGSurvey.pending;
  model.SurveyZoom = true;
  model.SurveyZoomMarginX = edge_margin({survey.ZoomMinX, survey.ZoomMaxX}, survey.AutoPadPercent);
  if (!model.PESG.pending.ZoomActive) take_shown_section(model);
  bring_section_inside(model, survey_data_range(model));
  if (!model.gMultiLayer) copy_y_limits(model);
  survey.SubTitle = "Zoom";
  PEactions(model.PESGSurvey, kRedrawFromSettings);
  if (survey.ZoomMaxX == survey.ZoomMinX) model.OriginalDataMode = false;
  DataZoom(model);
}

}  // namespace trendaro
