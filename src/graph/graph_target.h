#pragma once

#include "graph/graph_event.h"
#include "graph/graph_layout.h"
#include "graph/graph_surface.h"

namespace trendaro {

// Who wins where a data point and an annotation lie at one place.
enum class TargetOrder : u8 { DataFirst, AnnotationsFirst };

// What of the graph lies under a pixel, with a few pixels of tolerance. Without `measure` the texts of
// annotations are no targets.
GraphTarget target_at(const GraphProperties& shown, const GraphLayout& layout, PixelPoint place,
                      TargetOrder order, const TextMeasure* measure = nullptr);

// The vertical line of a graph that a pointer at `place` grips, index from 0; -1 for none. Of two lines at
// one place the left one is gripped from its left and the right one from its right, so that both can be
// moved.
i32 gripped_line(const GraphProperties& properties, const GraphLayout& layout, PixelPoint place);

}  // namespace trendaro
