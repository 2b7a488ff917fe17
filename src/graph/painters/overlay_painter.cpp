#include "graph/painters/overlay_painter.h"

#include <QGuiApplication>
#include <QPalette>

#include "graph/painters/graph_colors.h"
#include "graph/painters/sharp_lines.h"

namespace trendaro {
namespace {

constexpr f64 kSquare = 9;        // edge of the square around a data point, in logical pixels
constexpr int kBandOpacity = 50;  // of 255

QPen flat_pen(const QColor& color) {
  QPen pen(color);
  pen.setCapStyle(Qt::FlatCap);
  return pen;
}

void paint_frame(QPainter& painter, const QRectF& box, f64 width, const QPen& pen) {
  draw_level_line(painter, box.left(), box.right(), box.top(), width, pen);
  draw_level_line(painter, box.left(), box.right(), box.bottom(), width, pen);
  draw_upright_line(painter, box.left(), box.top(), box.bottom(), width, pen);
  draw_upright_line(painter, box.right(), box.top(), box.bottom(), width, pen);
}

}  // namespace

void paint_cursor(QPainter& painter, const GraphProperties& properties, const CursorMark& mark) {
  const QPen pen = flat_pen(graph_color(properties.GraphForeColor));
  if (mark.vertical)
    draw_upright_line(painter, mark.vertical->x, mark.vertical->y, mark.vertical->bottom(), 1, pen);
  if (mark.horizontal)
    draw_level_line(painter, mark.horizontal->x, mark.horizontal->right(), mark.horizontal->y, 1, pen);
  if (mark.square) {
    const QRectF box(mark.square->x - kSquare / 2, mark.square->y - kSquare / 2, kSquare, kSquare);
    paint_frame(painter, box, 2, pen);
  }
}

void paint_rubber_band(QPainter& painter, const PixelRectangle& band) {
  if (!(band.width > 0) || !(band.height > 0)) return;
  const QColor edge = QGuiApplication::palette().color(QPalette::Highlight);
  QColor inside = edge;
  inside.setAlpha(kBandOpacity);
  const DeviceGrid grid(painter);
  const QRectF box = grid.aligned(QRectF(band.x, band.y, band.width, band.height));
  painter.fillRect(box, inside);
  paint_frame(painter, box, 1, flat_pen(edge));
}

}  // namespace trendaro
