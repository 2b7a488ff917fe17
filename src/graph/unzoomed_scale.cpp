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
  if (scale.x_held) model.PESG.pending.ManualScaleControlX = 0;
  scale.held = scale.overwritten = scale.x_held = false;
}

void redraw_in_unzoomed_scale(Model& model) {
  bring_layers_back(model);
  end_unzoomed_scale(model);
  RedrawKMGraph(model, false);
  model.saved_axes = {};
}

bool zoom_to_unzoomed_scale(Model& model) {
  const UnzoomedScale& scale = model.unzoomed_scale;
  if (!scale.held) return false;
  GraphProperties& graph = model.PESG.pending;
  graph.ZoomMinX = scale.low_x;
  graph.ZoomMaxX = scale.high_x;
  graph.ZoomAxisBottom = 0;
  graph.ZoomAxisTop = static_cast<i16>(model.LastLayer - model.FirstLayer);
  for (i16 axis = 0; axis <= graph.ZoomAxisTop; ++axis) {
    const auto layer_index = static_cast<std::size_t>(model.FirstLayer + axis);
    LayerProperties& layer = graph.layers[static_cast<std::size_t>(axis)];
    layer.ZoomMinY = scale.left[layer_index].low;
    layer.ZoomMaxY = scale.left[layer_index].high;
    layer.ZoomMinRY = scale.right[layer_index].low;
    layer.ZoomMaxRY = scale.right[layer_index].high;
  }
  return true;
}

}  // namespace trendaro
