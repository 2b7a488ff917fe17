#include "graph/painters/symbol_painter.h"

#include <numbers>

namespace trendaro {
namespace {

constexpr f64 kOutlineWidth = 1.2;

void add_line(QPainterPath& path, QPointF from, QPointF to) {
  path.moveTo(from);
  path.lineTo(to);
}

void add_triangle(QPainterPath& path, f64 half, f64 direction) {
  const f64 height = half * std::numbers::sqrt3;
  path.moveTo(0, -direction * height * 2 / 3);
  path.lineTo(half, direction * height / 3);
  path.lineTo(-half, direction * height / 3);
  path.closeSubpath();
}

void add_diamond(QPainterPath& path, f64 half) {
  path.moveTo(0, -half);
  path.lineTo(half, 0);
  path.lineTo(0, half);
  path.lineTo(-half, 0);
  path.closeSubpath();
}

}  // namespace

Symbol make_symbol(i32 point_type, f64 size) {
  const f64 half = size / 2;
  Symbol symbol;
  QPainterPath& path = symbol.path;
  symbol.filled = point_type >= 2 && point_type <= 11 && point_type % 2 == 1;
  switch (point_type) {
    case 0:
      add_line(path, {-half, 0}, {half, 0});
      add_line(path, {0, -half}, {0, half});
      break;
    case 1:
      add_line(path, {-half * 0.8, -half * 0.8}, {half * 0.8, half * 0.8});
      add_line(path, {-half * 0.8, half * 0.8}, {half * 0.8, -half * 0.8});
      break;
    case 2:
    case 3:
      path.addEllipse(QPointF(), half, half);
      break;
    case 4:
    case 5:
      path.addRect(-half * 0.88, -half * 0.88, half * 1.76, half * 1.76);
      break;
    case 6:
    case 7:
      add_diamond(path, half * 1.2);
      break;
    case 8:
    case 9:
      add_triangle(path, half * 1.15, 1);
      break;
    case 10:
    case 11:
      add_triangle(path, half * 1.15, -1);
      break;
    case 72:
      add_line(path, {-half, 0}, {half, 0});
      break;
    default:
      path.addEllipse(QPointF(), size / 4, size / 4);
      symbol.filled = true;
  }
  return symbol;
}

QPen symbol_pen(const QColor& color) {
  return {color, kOutlineWidth, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin};
}

void paint_symbol(QPainter& painter, const Symbol& symbol, QPointF place, const QColor& color) {
  painter.translate(place);
  if (symbol.filled)
    painter.fillPath(symbol.path, color);
  else
    painter.strokePath(symbol.path, symbol_pen(color));
  painter.translate(-place);
}

}  // namespace trendaro
