#pragma once

#include <QPainter>
#include <QPainterPath>
#include <QPen>

#include "app/types.h"

namespace trendaro {

// A symbol around the origin.
struct Symbol {
  QPainterPath path;    // in logical pixels
  bool filled = false;  // with the curve's colour; else its outline alone is drawn
};

// The symbol of a stored point type: 0 plus, 1 x, 2 circle, 4 square, 6 diamond, 8 triangle up, 10 triangle
// down, each but the first two with its filled form at the next number, 72 dash, 73 dot. Unknown numbers give
// a dot. `size` is the width in logical pixels.
Symbol make_symbol(i32 point_type, f64 size);

// Of symbols that are not filled.
QPen symbol_pen(const QColor& color);

// Paints it around `place`, in the painter's logical pixels.
void paint_symbol(QPainter& painter, const Symbol& symbol, QPointF place, const QColor& color);

}  // namespace trendaro
