#include "graph/saved_axes.h"

#include <algorithm>
#include <array>

#include "app/model.h"

namespace trendaro {

void StoreAxesSettings(Model& model, i16 first_hidden) {
  SavedAxes& saved = model.saved_axes;
  const auto layers = static_cast<std::size_t>(std::max<i16>(model.FirstZoomLayer, 0));
  saved.left.resize(layers);
  saved.right.resize(layers);
  for (i16 layer = first_hidden; layer < model.FirstZoomLayer; ++layer) {
    model.PESG.pending.WorkingAxis = static_cast<i16>(layer - first_hidden);
    const LayerProperties& axes = model.PESG.layer();
    saved.left[static_cast<std::size_t>(layer)] = left_axis(axes);
    saved.right[static_cast<std::size_t>(layer)] = right_axis(axes);
  }
}

void shift_layers_down(Model& model, i16 hidden) {
  if (hidden <= 0) return;
  GraphProperties& graph = model.PESG.pending;
  for (std::size_t axis = 0; axis + static_cast<std::size_t>(hidden) < kGraphLayers; ++axis) {
    const LayerProperties& from = graph.layers[axis + static_cast<std::size_t>(hidden)];
    LayerProperties& to = graph.layers[axis];
    to.ZoomMinY = from.ZoomMinY;
    to.ZoomMaxY = from.ZoomMaxY;
    to.ZoomMinRY = from.ZoomMinRY;
    to.ZoomMaxRY = from.ZoomMaxRY;
  }
  graph.FirstVisibleAxis = hidden;
  model.saved_axes.StoredAxisCount = 0;
  model.saved_axes.AxesStored = true;
}

void bring_layers_back(Model& model) {
  SavedAxes& saved = model.saved_axes;
  model.PESG.pending.FirstVisibleAxis = 0;
  saved.StoredAxisCount = static_cast<i16>(saved.left.size());
  saved.AxesStored = !saved.left.empty();
}

}  // namespace trendaro
