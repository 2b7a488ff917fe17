#pragma once

#include <QPainter>

#include "graph/graph_layout.h"
#include "graph/painters/graph_fonts.h"

namespace trendaro {

// Frames of the layers, axis lines, tick marks, labels and axis titles.
void paint_axes(QPainter& painter, const GraphProperties& shown, const GraphLayout& layout,
                const GraphFonts& fonts);

}  // namespace trendaro
