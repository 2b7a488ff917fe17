#include "graph/unzoomed_scale.h"

#include "app/model.h"

namespace trendaro {

void hold_unzoomed_scale(Model& model) {
  UnzoomedScale& scale = model.unzoomed_scale;
  const GraphProperties& graph = model.PESG.pending;
  scale.held = true;
  scale.low_x = graph.ManualMinX;
  scale.high_x = graph.ManualMaxX;
  for (std::size_t i = 0; i < scale.left.size(); ++i) {
    const LayerProperties& layer = graph.layers[i];
    scale.left[i] = {layer.ManualScaleControlY, layer.ManualMinY, layer.ManualMaxY};
    scale.right[i] = {layer.ManualScaleControlRY, layer.ManualMinRY, layer.ManualMaxRY};
  }
}

void restore_unzoomed_scale(Model& model) {
  UnzoomedScale& scale = model.unzoomed_scale;
  if (!scale.held) return;
  scale.held = false;
  GraphProperties& graph = model.PESG.pending;
  graph.ManualMinX = scale.low_x;
  graph.ManualMaxX = scale.high_x;
  for (std::size_t i = 0; i < scale.left.size(); ++i) {
    LayerProperties& layer = graph.layers[i];
    layer.ManualScaleControlY = scale.left[i].control;
    layer.ManualMinY = scale.left[i].low;
    layer.ManualMaxY = scale.left[i].high;
    layer.ManualScaleControlRY = scale.right[i].control;
    layer.ManualMinRY = scale.right[i].low;
    layer.ManualMaxRY = scale.right[i].high;
  }
}

}  // namespace trendaro
