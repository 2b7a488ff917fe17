#pragma once

#include <QPainter>

#include "graph/graph_layout.h"
#include "graph/painters/graph_fonts.h"

namespace trendaro {

// Curve names, each behind a piece of the curve's line or its symbol.
void paint_legend(QPainter& painter, const GraphProperties& shown, const GraphLayout& layout,
                  const GraphFonts& fonts);

}  // namespace trendaro
