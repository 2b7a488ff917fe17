#pragma once

#include "graph/graph_surface.h"

namespace trendaro {

// Where a zoomed section lies in the whole, as a scroll bar shows it.
struct ScrollSpan {
  bool needed = false;  // a section is on show, scrolling is allowed, and there is something to scroll to
  f64 position = 0;     // 0 at the start of the whole to 1 where the section ends with it
  f64 part = 1;         // length of the section over that of the whole
};

// Along x; position 0 is the left end of the picture.
ScrollSpan horizontal_scroll(const GraphSurface& graph);
// Along y, for all layers together; position 0 is the upper end of the picture. The first zoomed layer tells
// position and part.
ScrollSpan vertical_scroll(const GraphSurface& graph);

// Moves the section to a position and shows it. Lengths stay; logarithmic axes keep their ratio.
void scroll_horizontally(GraphSurface& graph, f64 position);
void scroll_vertically(GraphSurface& graph, f64 position);

}  // namespace trendaro
