#pragma once

#include "graph/graph_event.h"
#include "graph/graph_layout.h"
#include "graph/graph_properties.h"

namespace trendaro {

// The annotation that is drawn at a pixel, the last one written first: its stroke, the inside of a filled
// shape, or its text where `measure` can tell how long it is. Of a line or a shape the entry that completes
// it. Points come before whole lines; marks at axes are no targets.
GraphTarget annotation_at(const GraphProperties& shown, const GraphLayout& layout, const TextMeasure* measure,
                          PixelPoint place);

// Pixels between a place and the nearest place of the line between two points.
f64 distance_to_line(PixelPoint place, PixelPoint from, PixelPoint to);

}  // namespace trendaro
