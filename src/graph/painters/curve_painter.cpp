#include "graph/painters/curve_painter.h"

#include <algorithm>
#include <cmath>

#include "graph/curve_strokes.h"
#include "graph/painters/graph_colors.h"
#include "graph/painters/line_style.h"
#include "graph/painters/sharp_lines.h"
#include "graph/painters/symbol_painter.h"

namespace trendaro {
namespace {

constexpr f64 kLineMargin = 8;    // pixels beyond the area, so that no cut shows
constexpr f64 kChunkTravel = 60;  // pixels up and down that the rasteriser takes at once
constexpr f64 kAreaShare = 0.25;  // opacity under an area's line
constexpr f64 kBarPart = 0.7;     // of the distance between bars
constexpr f64 kWidestBar = 40;

struct CurveTask {
  QPainter& painter;
  const GraphProperties& shown;
  const CurvePlace& place;
  const PixelRectangle& area;
  const AxisScale& x_scale;
  const AxisScale& y_scale;
  QColor color;
};

QPointF at(const CurveOutline& outline, std::size_t index) {
  return {outline.points[index].x, outline.points[index].y};
}

// The level from which bars and areas grow: zero, or the edge of the axis nearest to it.
f64 base_line(const AxisScale& scale) {
  return pixel_of(scale, std::clamp(scale.logarithmic ? scale.minimum : 0.0, scale.minimum, scale.maximum));
}

PixelRectangle widened(const PixelRectangle& area) {
  return {area.x - kLineMargin, area.y - kLineMargin, area.width + 2 * kLineMargin,
          area.height + 2 * kLineMargin};
}

// A sample without neighbours has no line; a dot keeps it visible.
void draw_lone_point(const CurveTask& task, const QPen& pen, QPointF point) {
  const f64 radius = std::max(1.0, pen.widthF() * 0.75);
  task.painter.setPen(Qt::NoPen);
  task.painter.setBrush(task.color);
  task.painter.drawEllipse(point, radius, radius);
}

// Connected lines in parts: the rasteriser slows down by the square of the lines that cross one row.
void draw_connected(const CurveTask& task, const CurveOutline& outline, std::size_t first, std::size_t last) {
  std::vector<QPointF> points;
  f64 travel = 0;
  for (std::size_t i = first; i < last; ++i) {
    if (points.size() > 1 && travel + std::abs(outline.points[i].y - points.back().y()) > kChunkTravel) {
      task.painter.drawPolyline(points.data(), static_cast<int>(points.size()));
      points = {points.back()};
      travel = 0;
    }
    if (!points.empty()) travel += std::abs(outline.points[i].y - points.back().y());
    points.push_back(at(outline, i));
  }
  if (points.size() == 2)
    task.painter.drawLine(points[0], points[1]);
  else
    task.painter.drawPolyline(points.data(), static_cast<int>(points.size()));
}

void draw_bars_of_columns(const CurveTask& task, const std::vector<PixelRectangle>& bars) {
  const DeviceGrid grid(task.painter);
  for (const PixelRectangle& bar : bars)
    task.painter.fillRect(grid.aligned(QRectF(bar.x, bar.y, bar.width, bar.height)), task.color);
}

void draw_lines(const CurveTask& task, const CurveOutline& outline) {
  const i32 line_type = line_type_of(task.shown, task.place.subset);
  const QPen pen = line_pen(line_type, task.color);
  const std::vector<f64> pattern = dash_pattern(line_type);
  const CurveOutline cut =
      pattern.empty() ? outline : dashed(outline, pattern, task.area.width + task.area.height);
  const CurveStrokes strokes = curve_strokes(cut, 1 / DeviceGrid(task.painter).ratio(), pen.widthF());
  draw_bars_of_columns(task, strokes.bars);
  for_each_piece(strokes.lines, [&](std::size_t first, std::size_t last) {
    if (last - first == 1) {
      draw_lone_point(task, pen, at(strokes.lines, first));
      return;
    }
    task.painter.setPen(pen);
    task.painter.setBrush(Qt::NoBrush);
    draw_connected(task, strokes.lines, first, last);
  });
}

void draw_points(const CurveTask& task, const CurveOutline& outline) {
  const Symbol symbol =
      make_symbol(point_type_of(task.shown, task.place.subset), symbol_size(task.shown.DataPointSize));
  const PixelRectangle visible = widened(task.area);
  for (const PixelPoint& point : outline.points)
    if (point.x >= visible.x && point.x <= visible.right() && point.y >= visible.y &&
        point.y <= visible.bottom())
      paint_symbol(task.painter, symbol, {point.x, point.y}, task.color);
}

f64 bar_width(const CurveOutline& outline) {
  f64 distance = kWidestBar;
  for (std::size_t i = 1; i < outline.points.size(); ++i) {
    const f64 step = std::abs(outline.points[i].x - outline.points[i - 1].x);
    if (step > 0) distance = std::min(distance, step);
  }
  return std::max(1.0, distance * kBarPart);
}

void draw_bars(const CurveTask& task, const CurveOutline& outline) {
  const DeviceGrid grid(task.painter);
  const f64 base = base_line(task.y_scale);
  const f64 width = bar_width(outline);
  const PixelRectangle visible = widened(task.area);
  for (const PixelPoint& point : outline.points) {
    const f64 y = std::clamp(point.y, visible.y, visible.bottom());
    const QRectF bar(point.x - width / 2, std::min(y, base), width, std::abs(y - base));
    task.painter.fillRect(grid.aligned(bar), task.color);
  }
}

void draw_area(const CurveTask& task, const CurveOutline& outline) {
  const f64 base = base_line(task.y_scale);
  const PixelRectangle visible = widened(task.area);
  QColor fill = task.color;
  fill.setAlphaF(static_cast<float>(kAreaShare));
  for_each_piece(outline, [&](std::size_t first, std::size_t last) {
    QPolygonF polygon;
    polygon.append({outline.points[first].x, base});
    for (std::size_t i = first; i < last; ++i)
      polygon.append({outline.points[i].x, std::clamp(outline.points[i].y, visible.y, visible.bottom())});
    polygon.append({outline.points[last - 1].x, base});
    task.painter.setPen(Qt::NoPen);
    task.painter.setBrush(fill);
    task.painter.drawPolygon(polygon);
  });
}

// Each value is held until the next one.
CurveOutline stepped(const CurveOutline& outline) {
  CurveOutline steps;
  for_each_piece(outline, [&](std::size_t first, std::size_t last) {
    steps.starts.push_back(steps.points.size());
    for (std::size_t i = first; i < last; ++i) {
      if (i > first) steps.points.push_back({outline.points[i].x, outline.points[i - 1].y});
      steps.points.push_back(outline.points[i]);
    }
  });
  return steps;
}

void draw_curve(const CurveTask& task) {
  const CurveSamples samples = curve_samples(task.shown, task.place.subset);
  const CurveOutline outline =
      curve_outline(samples, task.x_scale, task.y_scale, task.area, 1 / DeviceGrid(task.painter).ratio());
  const PixelRectangle visible = widened(task.area);
  switch (task.place.method) {
    case kMethodPoints:
      draw_points(task, outline);
      break;
    case kMethodLineAndPoints:
      draw_lines(task, clipped(outline, visible));
      draw_points(task, outline);
      break;
    case kMethodBars:
      draw_bars(task, outline);
      break;
    case kMethodArea:
      draw_area(task, outline);
      draw_lines(task, clipped(outline, visible));
      break;
    case kMethodSteps:
      draw_lines(task, clipped(stepped(outline), visible));
      break;
    default:
      draw_lines(task, clipped(outline, visible));
  }
}

}  // namespace

i32 point_type_of(const GraphProperties& shown, std::size_t subset) {
  return subset < shown.SubsetPointTypes.size() ? shown.SubsetPointTypes[subset] : 0;
}

i32 line_type_of(const GraphProperties& shown, std::size_t subset) {
  return subset < shown.SubsetLineTypes.size() ? shown.SubsetLineTypes[subset] : 0;
}

void paint_curves(QPainter& painter, const GraphProperties& shown, const GraphLayout& layout) {
  if (!layout.has_axes) return;
  for (const CurvePlace& place : layout.curves) {
    const LayerLayout& layer = layout.layers[place.slot];
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setClipRect(QRectF(layer.area.x, layer.area.y, layer.area.width, layer.area.height),
                        Qt::IntersectClip);
    draw_curve({painter, shown, place, layer.area, layout.x_axis.scale,
                place.right ? layer.right.scale : layer.left.scale, curve_color(shown, place.subset)});
    painter.restore();
  }
}

}  // namespace trendaro
