#pragma once

#include "graph/graph_layout.h"

namespace trendaro {

// Cuts a line down to its piece inside the box; false where none of it is.
bool clip_line(const PixelRectangle& box, PixelPoint& from, PixelPoint& to);

}  // namespace trendaro
