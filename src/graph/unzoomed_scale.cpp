#include "graph/unzoomed_scale.h"

#include "app/model.h"
#include "graph/main_redraw.h"
#include "graph/saved_axes.h"

namespace trendaro {
namespace {

void restore_axis(YAxisSettings& axis, const UnzoomedScale::Axis& scale) {
  axis.manual_scale = scale.control;
  axis.low = scale.low;
  axis.high = scale.high;
}

void restore_left(LayerProperties& layer, const UnzoomedScale::Axis& scale) {
  layer.ManualScaleControlY = scale.control;
  layer.ManualMinY = scale.low;
  layer.ManualMaxY = scale.high;
}

void restore_right(LayerProperties& layer, const UnzoomedScale::Axis& scale) {
  layer.ManualScaleControlRY = scale.control;
  layer.ManualMinRY = scale.low;
  layer.ManualMaxRY = scale.high;
}

void restore(Model& model) {
  const UnzoomedScale& scale = model.unzoomed_scale;
  GraphProperties& graph = model.PESG.pending;
  graph.ManualMinX = scale.low_x;
  graph.ManualMaxX = scale.high_x;
  // Layers that had left come back from their saved settings; the graph counts the others from 0 until then.
  SavedAxes& saved = model.saved_axes;
  const std::size_t stored = saved.AxesStored ? static_cast<std::size_t>(saved.StoredAxisCount) : 0;
  for (std::size_t i = 0; i < scale.left.size(); ++i) {
    if (i < stored) {
      restore_axis(saved.left[i], scale.left[i]);
      restore_axis(saved.right[i], scale.right[i]);
    } else {
      restore_left(graph.layers[i - stored], scale.left[i]);
      restore_right(graph.layers[i - stored], scale.right[i]);
    }
  }
}

void release_held_x(Model& model) {
  if (model.unzoomed_scale.x_held) model.PESG.pending.ManualScaleControlX = 0;
  model.unzoomed_scale.x_held = false;
}

}  // namespace

void hold_unzoomed_scale(Model& model) {
  UnzoomedScale& scale = model.unzoomed_scale;
  const GraphProperties& graph = model.PESG.pending;
  scale.held = true;
  scale.overwritten = scale.x_held = false;
  scale.low_x = graph.ManualMinX;
  scale.high_x = graph.ManualMaxX;
  for (std::size_t i = 0; i < scale.left.size(); ++i) {
    const LayerProperties& layer = graph.layers[i];
    scale.left[i] = {layer.ManualScaleControlY, layer.ManualMinY, layer.ManualMaxY};
    scale.right[i] = {layer.ManualScaleControlRY, layer.ManualMinRY, layer.ManualMaxRY};
  }
}

void end_unzoomed_scale(Model& model) {
  UnzoomedScale& scale = model.unzoomed_scale;
  if (scale.held && (model.DisplayCompression || scale.overwritten)) restore(model);
  release_held_x(model);
  scale.held = scale.overwritten = false;
  model.ZoomScaleLimits = {};
}

void redraw_in_unzoomed_scale(Model& model) {
  bring_layers_back(model);
  end_unzoomed_scale(model);
  RedrawKMGraph(model, false);
  model.saved_axes = {};
}

void show_unzoomed_scale(Model& model) {
  UnzoomedScale& scale = model.unzoomed_scale;
  if (!scale.held) return;
  GraphProperties& graph = model.PESG.pending;
  graph.ManualMinX = scale.low_x;
  graph.ManualMaxX = scale.high_x;
  release_held_x(model);
  for (i16 layer = model.FirstLayer; layer <= model.LastLayer; ++layer) {
    LayerProperties& axes = graph.layers[static_cast<std::size_t>(layer - model.FirstLayer)];
    restore_left(axes, scale.left[static_cast<std::size_t>(layer)]);
    restore_right(axes, scale.right[static_cast<std::size_t>(layer)]);
  }
}

}  // namespace trendaro
