#include "graph/zoom_end.h"

#include <algorithm>
#include <string>

#include "app/commands.h"
#include "app/model.h"
#include "datasource/grid_handlers.h"
#include "datasource/plot_list.h"
#include "graph/compressed_section.h"
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

// Whatever the graph shows is the section. Compressed curves have no limits, so that axes keep their scale
// and a longer signal shows whole.
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
  forget_section(model);
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
  count_hidden_plots(model);  // a redraw fills the cursor's readout by it
  keep_limits(model);
  if (!vertical) {
    model.OriginalDataMode = false;
    DataZoom(model);
  }
  model.Zoomed = true;
  if (compresses_curves(model)) {
    graph.ZoomActive = false;
    model.PESG.curves_of_section = true;
    RedrawKMGraph(model, false);
    hold_sparse_section(model);
  } else if (!vertical) {
    redraw_section(model);
  } else if (other_layers) {
    RedrawKMGraph(model, false);
  }
  // The redraw has emptied the panel.
  if (model.HasFullDataPlot) show_plot_status(model);
  show_missing_original(model);
}

void undo_main_zoom(Model& model) {
  if (!model.HasFullDataPlot || !model.DisplayCompression) return forget_section(model);
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
