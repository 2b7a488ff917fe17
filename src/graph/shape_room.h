#pragma once

#include <cstddef>

#include "graph/axis_layout.h"

namespace trendaro {

// Widen an axis that scales itself so far that bars, bubbles, bands and symbols at the ends of its data lie
// inside its pixels whole. What the padding leaves free counts. Manual limits and those of a zoom stay, and
// so do the limits in the graph's properties: how far a shape reaches is known in pixels only.
void make_room_for_shapes_in_x(const GraphProperties& shown, const GraphLayout& layout, AxisSettings& axis);
void make_room_for_shapes_in_y(const GraphProperties& shown, const GraphLayout& layout, std::size_t slot,
                               AxisSettings& axis);

}  // namespace trendaro
