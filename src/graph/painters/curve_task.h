#pragma once

#include <QColor>
#include <QPainter>

#include "graph/curve_outline.h"
#include "graph/graph_layout.h"

namespace trendaro {

// One curve on its way to the paper.
struct PaintTask {
  QPainter& painter;
  const GraphProperties& shown;
  const GraphLayout& layout;
  const CurvePlace& place;
  const PixelRectangle& area;
  const AxisScale& x_scale;
  const AxisScale& y_scale;
  QColor color;
};

// The task for a curve of the layout.
PaintTask curve_task(QPainter& painter, const GraphProperties& shown, const GraphLayout& layout,
                     const CurvePlace& place);

// The level from which bars and areas grow: zero, or the edge of the axis nearest to it.
f64 base_line(const AxisScale& scale);

// What of a curve is drawn: the area and a margin, so that no cut shows, or the bare area where nothing would
// cut the margin off.
PixelRectangle visible_area(const PaintTask& task);

// The outline in the line type of the curve, and in a type of the caller's choice.
void draw_lines(const PaintTask& task, const CurveOutline& outline);
void draw_lines(const PaintTask& task, const CurveOutline& outline, i32 line_type, const QColor& color);

// What lies between an outline and the base line, filled.
void fill_to_base(const PaintTask& task, const CurveOutline& outline, const QColor& fill);

}  // namespace trendaro
