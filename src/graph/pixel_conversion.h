#pragma once

#include <cstddef>

#include "graph/graph_layout.h"

namespace trendaro {

// A place on a graph in its own units.
struct GraphPlace {
  f64 x = 0, y = 0;
  i16 layer = 0;       // y layer of the graph, from 0
  bool right = false;  // y counts on the layer's right axis
};

// The slot of the layer at a height, or of the nearest one in a gap or outside.
std::size_t slot_at(const GraphLayout& layout, f64 y);

// The place in graph units under a pixel. The layer is the one at or nearest to the pixel; `right` chooses
// the axis that y is told for. Places outside of the areas continue the axes.
GraphPlace PEconvpixeltograph(const GraphLayout& layout, PixelPoint pixel, bool right = false);

// The way back. A layer that is not on show counts as the first one. Not finite where an axis has no pixel
// for the value.
PixelPoint PEconvpixeltograph(const GraphLayout& layout, const GraphPlace& place);

}  // namespace trendaro
