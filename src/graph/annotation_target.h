#pragma once

#include "graph/graph_event.h"
#include "graph/graph_layout.h"
#include "graph/graph_properties.h"

namespace trendaro {

// The annotation that is drawn at a pixel, the last one written first; of a line or a shape the entry that
// completes it. Points come before whole lines.
GraphTarget annotation_at(const GraphProperties& shown, const GraphLayout& layout, PixelPoint place);

// Pixels between a place and the nearest place of the line between two points.
f64 distance_to_line(PixelPoint place, PixelPoint from, PixelPoint to);

}  // namespace trendaro
