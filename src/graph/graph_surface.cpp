#include "graph/graph_surface.h"

#include "app/run_time_error.h"

namespace trendaro {

LayerProperties& GraphSurface::layer() {
  const auto index = static_cast<std::size_t>(pending.WorkingAxis);
  if (pending.WorkingAxis < 0 || index >= kGraphLayers) throw RunTimeError{kIndexOutOfRange};
  return pending.layers[index];
}

}  // namespace trendaro
