#pragma once

#include <QPainter>

#include "graph/graph_cursor.h"
#include "graph/graph_layout.h"
#include "graph/graph_properties.h"

namespace trendaro {

// What moves with the pointer and is drawn over all else of a graph.

void paint_cursor(QPainter& painter, const GraphProperties& properties, const CursorMark& mark);

// Nothing for an empty rectangle.
void paint_rubber_band(QPainter& painter, const PixelRectangle& band);

}  // namespace trendaro
