#pragma once

#include <QPainter>
#include <QPen>

#include "app/types.h"

namespace trendaro {

// Places lines and edges on whole pixels of the device, so that they are sharp at every scale.
class DeviceGrid {
 public:
  explicit DeviceGrid(const QPainter& painter);

  // Pixels of the device in one logical pixel.
  [[nodiscard]] f64 ratio() const { return ratio_; }
  // The logical width of a line of about `width` logical pixels, at least one pixel of the device.
  [[nodiscard]] f64 line_width(f64 width) const;
  // The nearest edge between two pixels of the device.
  [[nodiscard]] f64 edge_x(f64 x) const;
  [[nodiscard]] f64 edge_y(f64 y) const;
  [[nodiscard]] QRectF aligned(const QRectF& rectangle) const;

 private:
  QTransform to_device_;
  f64 ratio_ = 1;
};

// Level and upright lines of about `width` logical pixels, centred on the given pixel.
void draw_level_line(QPainter& painter, f64 left, f64 right, f64 y, f64 width, const QPen& pen);
void draw_upright_line(QPainter& painter, f64 x, f64 top, f64 bottom, f64 width, const QPen& pen);

}  // namespace trendaro
