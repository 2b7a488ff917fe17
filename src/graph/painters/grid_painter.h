#pragma once

#include <QPainter>
#include <QPen>

#include "graph/graph_layout.h"
#include "graph/grid_styles.h"

namespace trendaro {

// How grid lines are drawn: colour and dashes, in widths of the line, and the width in logical pixels.
struct GridPen {
  QPen pen;
  f64 width = 1;
};

// By GridStyle, and by TickSetting for the minor lines.
GridPen major_grid_pen(const GraphProperties& shown);
GridPen minor_grid_pen(const GraphProperties& shown);

// The layers' backgrounds.
void paint_backgrounds(QPainter& painter, const GraphProperties& shown, const GraphLayout& layout);

// Minor and major grid lines of all layers, under the curves.
void paint_grid(QPainter& painter, const GraphProperties& shown, const GraphLayout& layout);

}  // namespace trendaro
