#include "graph/graph_properties.h"

#include <algorithm>

namespace trendaro {

std::size_t layer_of_curve(const GraphProperties& properties, std::size_t curve) {
  const auto& counts = properties.MultiAxesSubsets;
  std::size_t last_filled = 0;
  std::size_t behind = 0;
  for (std::size_t layer = 0; layer < std::min(counts.size(), kGraphLayers); ++layer) {
    if (counts[layer] <= 0) continue;
    last_filled = layer;
    behind += static_cast<std::size_t>(counts[layer]);
    if (curve < behind) return layer;
  }
  return last_filled;
}

bool on_right_axis(const GraphProperties& properties, std::size_t curve) {
  return curve < properties.SubsetPlotMethods.size() &&
         properties.SubsetPlotMethods[curve] >= kRightAxisMethod;
}

}  // namespace trendaro
