#pragma once

#include <QPainter>

#include "graph/graph_layout.h"
#include "graph/plot_methods.h"

namespace trendaro {

// Symbol and line type of a curve; 0 where none is set.
i32 point_type_of(const GraphProperties& shown, std::size_t subset);
i32 line_type_of(const GraphProperties& shown, std::size_t subset);

// Every curve in its layer, in curve order, cut at the layer's edges. Stacked curves of one axis are drawn
// together, where the first of them stands.
void paint_curves(QPainter& painter, const GraphProperties& shown, const GraphLayout& layout);

}  // namespace trendaro
