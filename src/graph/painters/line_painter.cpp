#include <QPaintEngine>
#include <algorithm>
#include <cmath>

#include "graph/bar_notches.h"
#include "graph/bar_polygons.h"
#include "graph/curve_strokes.h"
#include "graph/painters/curve_painter.h"
#include "graph/painters/curve_task.h"
#include "graph/painters/line_style.h"
#include "graph/painters/sharp_lines.h"

namespace trendaro {
namespace {

constexpr f64 kLeastDot = 4;        // pixels
constexpr f64 kChunkTravel = 60;    // pixels up and down that the rasteriser takes at once
constexpr f64 kShapeFineness = 10;  // places in a pixel; shapes with longer numbers are longer files

QPointF at(const CurveOutline& outline, std::size_t index) {
  return {outline.points[index].x, outline.points[index].y};
}

// A sample without neighbours has no line; a dot wider than a line keeps it visible.
void draw_lone_point(QPainter& painter, const QPen& pen, QPointF point) {
  const f64 radius = std::max(kLeastDot / 2, pen.widthF() * 0.75);
  painter.setPen(Qt::NoPen);
  painter.setBrush(pen.color());
  painter.drawEllipse(point, radius, radius);
}

// Connected lines in parts: the rasteriser slows down by the square of the lines that cross one row.
void draw_connected(QPainter& painter, const CurveOutline& outline, std::size_t first, std::size_t last) {
  std::vector<QPointF> points;
  f64 travel = 0;
  for (std::size_t i = first; i < last; ++i) {
    if (points.size() > 1 && travel + std::abs(outline.points[i].y - points.back().y()) > kChunkTravel) {
      painter.drawPolyline(points.data(), static_cast<int>(points.size()));
      points = {points.back()};
      travel = 0;
    }
    if (!points.empty()) travel += std::abs(outline.points[i].y - points.back().y());
    points.push_back(at(outline, i));
  }
  if (points.size() == 2)
    painter.drawLine(points[0], points[1]);
  else
    painter.drawPolyline(points.data(), static_cast<int>(points.size()));
}

// Whether the device keeps shapes, to be shown at any scale, instead of pixels.
bool keeps_shapes(const QPainter& painter) {
  switch (painter.paintEngine()->type()) {
    case QPaintEngine::SVG:
    case QPaintEngine::Pdf:
    case QPaintEngine::Picture:
      return true;
    default:
      return false;
  }
}

void draw_joined_bars(QPainter& painter, const std::vector<PixelRectangle>& bars, f64 column_width,
                      const QColor& color) {
  std::vector<PixelRectangle> rounded;
  for (const PixelRectangle& bar : bars) {
    const f64 top = std::round(bar.y * kShapeFineness) / kShapeFineness;
    const f64 bottom = std::round(bar.bottom() * kShapeFineness) / kShapeFineness;
    rounded.push_back({bar.x, top, bar.width, bottom - top});
  }
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  for (const std::vector<PixelPoint>& corners : joined_bars(rounded, column_width)) {
    QPolygonF polygon;
    for (const PixelPoint& corner : corners) polygon.append({corner.x, corner.y});
    painter.drawPolygon(polygon, Qt::WindingFill);
  }
}

void draw_bars_of_columns(QPainter& painter, const std::vector<PixelRectangle>& bars, const QColor& color) {
  const DeviceGrid grid(painter);
  if (keeps_shapes(painter)) {
    draw_joined_bars(painter, without_notches(bars, 1 / grid.ratio()), 1 / grid.ratio(), color);
    return;
  }
  for (const PixelRectangle& bar : without_notches(bars, 1 / grid.ratio()))
    painter.fillRect(grid.aligned(QRectF(bar.x, bar.y, bar.width, bar.height)), color);
}

}  // namespace

void draw_lines(const PaintTask& task, const CurveOutline& outline) {
  draw_lines(task, outline, line_type_of(task.shown, task.place.subset), task.color);
}

void draw_lines(const PaintTask& task, const CurveOutline& outline, i32 line_type, const QColor& color) {
  QPainter& painter = task.painter;
  const QPen pen = line_pen(line_type, color);
  const std::vector<f64> pattern = dash_pattern(line_type);
  const CurveOutline inside = clipped(outline, visible_area(task));
  const CurveOutline cut =
      pattern.empty() ? inside : dashed(inside, pattern, task.area.width + task.area.height);
  const CurveStrokes strokes = curve_strokes(cut, 1 / DeviceGrid(painter).ratio(), pen.widthF());
  draw_bars_of_columns(painter, strokes.bars, color);
  for_each_piece(strokes.lines, [&](std::size_t first, std::size_t last) {
    if (last - first == 1) {
      draw_lone_point(painter, pen, at(strokes.lines, first));
      return;
    }
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    draw_connected(painter, strokes.lines, first, last);
  });
}

}  // namespace trendaro
