#pragma once

#include <QPainter>

#include "graph/graph_layout.h"
#include "graph/painters/graph_fonts.h"

namespace trendaro {

// One line of text where the layout put it.
void paint_text(QPainter& painter, const PlacedText& text, const GraphFonts& fonts);

// The titles above and below.
void paint_titles(QPainter& painter, const GraphLayout& layout, const GraphFonts& fonts);

}  // namespace trendaro
