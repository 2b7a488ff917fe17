#include "datasource/x_range.h"

#include "graph/graph_surface.h"

namespace trendaro {

void clear_x_range(GraphSurface& graph) {
  graph.pending.ManualScaleControlX = 0;
  graph.pending.ManualMinX = 0;
  graph.pending.ManualMaxX = 0;
}

}  // namespace trendaro
