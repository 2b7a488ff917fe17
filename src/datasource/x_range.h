#pragma once

namespace trendaro {

class GraphSurface;

// Gives the x axis of a graph back to auto-scaling and forgets its manual limits.
void clear_x_range(GraphSurface& graph);

}  // namespace trendaro
