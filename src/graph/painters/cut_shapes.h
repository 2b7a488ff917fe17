#pragma once

#include <QPainter>
#include <QPainterPath>

#include "graph/graph_layout.h"
#include "graph/painters/symbol_painter.h"

namespace trendaro {

// Whether the device cuts off what lies beyond a clip. An SVG file has it all.
bool cuts_at_clip(const QPainter& painter);

PixelRectangle grown(const PixelRectangle& area, f64 margin);

// Draw with the pen and the brush of the painter, whose clip is the area, and a symbol in its colour. Where
// the device has no clip, only the parts inside the area are drawn.
void draw_path_inside(QPainter& painter, const PixelRectangle& area, const QPainterPath& path);
void draw_symbol_inside(QPainter& painter, const PixelRectangle& area, const Symbol& symbol, QPointF place,
                        const QColor& color);

}  // namespace trendaro
