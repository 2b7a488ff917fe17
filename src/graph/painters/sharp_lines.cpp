#include "graph/painters/sharp_lines.h"

#include <algorithm>
#include <cmath>

namespace trendaro {

DeviceGrid::DeviceGrid(const QPainter& painter) : to_device_(painter.deviceTransform()) {
  const f64 scale = std::abs(to_device_.m22());
  if (scale > 0 && std::isfinite(scale)) ratio_ = scale;
}

f64 DeviceGrid::line_width(f64 width) const {
  return std::max(1.0, std::round(width * ratio_)) / ratio_;
}

f64 DeviceGrid::edge_x(f64 x) const {
  return (std::round(x * ratio_ + to_device_.dx()) - to_device_.dx()) / ratio_;
}

f64 DeviceGrid::edge_y(f64 y) const {
  return (std::round(y * ratio_ + to_device_.dy()) - to_device_.dy()) / ratio_;
}

QRectF DeviceGrid::aligned(const QRectF& rectangle) const {
  return QRectF(QPointF(edge_x(rectangle.left()), edge_y(rectangle.top())),
                QPointF(edge_x(rectangle.right()), edge_y(rectangle.bottom())));
}

void draw_level_line(QPainter& painter, f64 left, f64 right, f64 y, f64 width, const QPen& pen) {
  const DeviceGrid grid(painter);
  const f64 thickness = grid.line_width(width);
  const f64 top = grid.edge_y(y - thickness / 2);
  left = grid.edge_x(left);
  right = grid.edge_x(right);
  if (pen.style() == Qt::SolidLine) {
    painter.fillRect(QRectF(left, top, right - left, thickness), pen.color());
    return;
  }
  QPen sharp(pen);
  sharp.setWidthF(thickness);
  sharp.setCapStyle(Qt::FlatCap);
  painter.setPen(sharp);
  painter.drawLine(QPointF(left, top + thickness / 2), QPointF(right, top + thickness / 2));
}

void draw_upright_line(QPainter& painter, f64 x, f64 top, f64 bottom, f64 width, const QPen& pen) {
  const DeviceGrid grid(painter);
  const f64 thickness = grid.line_width(width);
  const f64 left = grid.edge_x(x - thickness / 2);
  top = grid.edge_y(top);
  bottom = grid.edge_y(bottom);
  if (pen.style() == Qt::SolidLine) {
    painter.fillRect(QRectF(left, top, thickness, bottom - top), pen.color());
    return;
  }
  QPen sharp(pen);
  sharp.setWidthF(thickness);
  sharp.setCapStyle(Qt::FlatCap);
  painter.setPen(sharp);
  painter.drawLine(QPointF(left + thickness / 2, top), QPointF(left + thickness / 2, bottom));
}

}  // namespace trendaro
