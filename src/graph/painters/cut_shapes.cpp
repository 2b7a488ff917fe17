#include "graph/painters/cut_shapes.h"

#include <QPaintEngine>
#include <QPainterPathStroker>
#include <algorithm>

namespace trendaro {
namespace {

// How far a pen draws beyond its path, pointed corners included.
f64 pen_reach(const QPen& pen) {
  return pen.style() == Qt::NoPen ? 0 : std::max(1.0, pen.widthF()) * std::max(1.0, pen.miterLimit());
}

void fill_inside(QPainter& painter, const QPainterPath& path, const QPainterPath& box, const QBrush& brush) {
  QPainterPath inside = path.intersected(box);
  inside.setFillRule(path.fillRule());
  if (!inside.isEmpty()) painter.fillPath(inside, brush);
}

QPainterPath stroke_of(const QPainterPath& path, QPen pen) {
  if (!(pen.widthF() > 0)) pen.setWidthF(1);
  QPainterPath stroke = QPainterPathStroker(pen).createStroke(path);
  stroke.setFillRule(Qt::WindingFill);
  return stroke;
}

}  // namespace

bool cuts_at_clip(const QPainter& painter) {
  return painter.paintEngine()->type() != QPaintEngine::SVG;
}

PixelRectangle grown(const PixelRectangle& area, f64 margin) {
  return {area.x - margin, area.y - margin, area.width + 2 * margin, area.height + 2 * margin};
}

void draw_path_inside(QPainter& painter, const PixelRectangle& area, const QPainterPath& path) {
  const QRectF frame(area.x, area.y, area.width, area.height);
  const f64 reach = pen_reach(painter.pen());
  if (cuts_at_clip(painter) || frame.contains(path.boundingRect().adjusted(-reach, -reach, reach, reach))) {
    painter.drawPath(path);
    return;
  }
  QPainterPath box;
  box.addRect(frame);
  if (painter.brush().style() != Qt::NoBrush) fill_inside(painter, path, box, painter.brush());
  if (painter.pen().style() != Qt::NoPen)
    fill_inside(painter, stroke_of(path, painter.pen()), box, painter.pen().brush());
}

void draw_symbol_inside(QPainter& painter, const PixelRectangle& area, const Symbol& symbol, QPointF place,
                        const QColor& color) {
  if (cuts_at_clip(painter)) {
    paint_symbol(painter, symbol, place, color);
    return;
  }
  painter.setPen(symbol.filled ? QPen(Qt::NoPen) : symbol_pen(color));
  painter.setBrush(symbol.filled ? QBrush(color) : QBrush(Qt::NoBrush));
  draw_path_inside(painter, area, symbol.path.translated(place));
}

}  // namespace trendaro
