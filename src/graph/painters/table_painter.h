#pragma once

#include <QPainter>

#include "graph/painters/graph_fonts.h"
#include "graph/table_layout.h"

namespace trendaro {

// Tables of texts beside the graph or inside its layers.
void paint_tables(QPainter& painter, const std::vector<PlacedTable>& tables, const GraphFonts& fonts);

}  // namespace trendaro
