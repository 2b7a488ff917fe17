#pragma once

#include <QPainter>

#include "graph/graph_layout.h"
#include "graph/grid_styles.h"

namespace trendaro {

// The layers' backgrounds.
void paint_backgrounds(QPainter& painter, const GraphProperties& shown, const GraphLayout& layout);

// Minor and major grid lines of all layers, under the curves.
void paint_grid(QPainter& painter, const GraphProperties& shown, const GraphLayout& layout);

}  // namespace trendaro
