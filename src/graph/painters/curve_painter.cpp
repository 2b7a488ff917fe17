#include "graph/painters/curve_painter.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>

#include "graph/curve_fits.h"
#include "graph/curve_spline.h"
#include "graph/curve_strokes.h"
#include "graph/painters/curve_task.h"
#include "graph/painters/cut_shapes.h"
#include "graph/painters/fill_painter.h"
#include "graph/painters/graph_colors.h"
#include "graph/painters/line_style.h"
#include "graph/painters/sharp_lines.h"
#include "graph/painters/symbol_painter.h"
#include "graph/shape_sizes.h"

namespace trendaro {
namespace {

constexpr f64 kMargin = 8;                     // pixels beyond the area
constexpr std::size_t kSymbolsPerColumn = 48;  // of more samples in a column, the extremes
constexpr f64 kFitPiece = 2;                   // pixels
constexpr f64 kFitShade = 0.6;                 // of the colour, over black
constexpr i32 kFitLineType = 9;                // a little stronger than the curve
constexpr f64 kMarkedDistance = 6;             // pixels between samples from which each is marked
constexpr f64 kMarkSize = 4;

void draw_points(const PaintTask& task, const CurveOutline& outline) {
  const Symbol symbol =
      make_symbol(point_type_of(task.shown, task.place.subset), symbol_size(task.shown.DataPointSize));
  const PixelRectangle visible = grown(task.area, kMargin);
  // Where many samples fall on one pixel the symbol is drawn once.
  std::set<std::pair<i32, i32>> taken;
  f64 former_x = -1e9;
  for (const PixelPoint& point : outline.points) {
    if (point.x < visible.x || point.x > visible.right() || point.y < visible.y || point.y > visible.bottom())
      continue;
    if (std::abs(point.x - former_x) > 2) taken.clear();
    former_x = point.x;
    if (!taken.emplace(static_cast<i32>(std::lround(point.x * 2)), static_cast<i32>(std::lround(point.y * 2)))
             .second)
      continue;
    draw_symbol_inside(task.painter, task.area, symbol, {point.x, point.y}, task.color);
  }
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

CurveOutline outline_of(const PaintTask& task, std::size_t most_per_column, std::size_t neighbours) {
  return curve_outline(curve_samples(task.shown, task.place.subset), task.x_scale, task.y_scale, task.area,
                       {.column_width = 1 / DeviceGrid(task.painter).ratio(),
                        .most_per_column = most_per_column,
                        .neighbours = neighbours});
}

// The fit over the part of the picture in which the curve has points.
CurveOutline fit_outline(const PaintTask& task, const Polynomial& fit) {
  const PointExtent& whole = curve_samples(task.shown, task.place.subset).extents->whole;
  const f64 ends[] = {pixel_of(task.x_scale, whole.x_low), pixel_of(task.x_scale, whole.x_high)};
  const auto edge = [&](f64 pixel, f64 otherwise) {
    return std::isfinite(pixel) ? std::clamp(pixel, task.area.x - kMargin, task.area.right() + kMargin)
                                : otherwise;
  };
  const f64 left = edge(std::min(ends[0], ends[1]), task.area.x);
  const f64 right = edge(std::max(ends[0], ends[1]), task.area.right());
  CurveOutline outline;
  bool joined = false;
  const f64 pieces = std::max(1.0, std::ceil((right - left) / kFitPiece));
  for (f64 piece = 0; piece <= pieces; ++piece) {
    const f64 x = left + (right - left) * piece / pieces;
    const f64 y = pixel_of(task.y_scale, fit.at(value_of(task.x_scale, x)));
    if (std::isfinite(y) && !joined) outline.starts.push_back(outline.points.size());
    joined = std::isfinite(y);
    if (joined) outline.points.push_back({x, y});
  }
  return outline;
}

void draw_fit(const PaintTask& task, MethodOverlay overlay) {
  const auto& fits = task.shown.curve_fits;
  if (!fits || task.place.subset >= fits->curves.size() || !fits->curves[task.place.subset]) return;
  const CurveFit& fit = *fits->curves[task.place.subset];
  draw_lines(task, fit_outline(task, overlay == MethodOverlay::FitLine ? fit.line : fit.curve), kFitLineType,
             blended(task.color, QColor(Qt::black), kFitShade));
}

// For a line of its own type: where dashes end depends on each sample.
CurveOutline line_outline(const PaintTask& task) {
  const bool bars = dash_pattern(line_type_of(task.shown, task.place.subset)).empty();
  return curve_outline(curve_samples(task.shown, task.place.subset), task.x_scale, task.y_scale, task.area,
                       {.column_width = 1 / DeviceGrid(task.painter).ratio(),
                        .bar_height = bars ? kLeastBar : std::numeric_limits<f64>::infinity()});
}

void draw_body(const PaintTask& task, MethodBody body) {
  if (body == MethodBody::Line) return draw_lines(task, line_outline(task));
  const CurveOutline outline = outline_of(task, kMostOfColumn, 1);
  switch (body) {
    case MethodBody::None:
    case MethodBody::Line:
      break;
    case MethodBody::Steps:
      draw_lines(task, stepped(outline));
      break;
    case MethodBody::Bars:
      draw_bars(task, outline);
      break;
    case MethodBody::Area:
      draw_area(task, outline);
      break;
    case MethodBody::Stack:
      draw_stack(task);
      break;
    case MethodBody::Ribbon:
      draw_ribbon(task, outline);
      break;
    case MethodBody::ContourLines:
      draw_contour_lines(task, outline);
      break;
    case MethodBody::ContourAreas:
      draw_contour_areas(task, outline);
      break;
    case MethodBody::Bubbles:
      draw_bubbles(task, outline);
      break;
  }
}

void draw_overlay(const PaintTask& task, const MethodParts& parts) {
  if (parts.overlay == MethodOverlay::None) return;
  if (parts.overlay != MethodOverlay::Spline) {
    draw_fit(task, parts.overlay);
    return;
  }
  const CurveOutline spline = smoothed(outline_of(task, kMostOfColumn, 3));
  if (parts.body == MethodBody::Line)
    draw_lines(task, spline, kFitLineType, blended(task.color, QColor(Qt::black), kFitShade));
  else
    draw_lines(task, spline);
}

// While a cursor is on, the samples of a line show where it can stand, as far as there is room for them.
void mark_samples(const PaintTask& task) {
  const CurveOutline outline = outline_of(task, kMostOfColumn, 1);
  if (static_cast<f64>(outline.points.size()) * kMarkedDistance > task.area.width) return;
  const Symbol symbol = make_symbol(5, kMarkSize);
  for (const PixelPoint& point : outline.points)
    if (point.y >= task.area.y && point.y <= task.area.bottom())
      draw_symbol_inside(task.painter, task.area, symbol, {point.x, point.y}, task.color);
}

void draw_curve(const PaintTask& task) {
  const MethodParts parts = method_parts(task.place.method);
  if (curve_samples(task.shown, task.place.subset).count == 0) return;
  if (parts.body != MethodBody::None) draw_body(task, parts.body);
  if (parts.symbols) draw_points(task, outline_of(task, kSymbolsPerColumn, 1));
  draw_overlay(task, parts);
  if (task.shown.MarkDataPoints && task.shown.CursorMode != 0 && !parts.symbols) mark_samples(task);
}

}  // namespace

PaintTask curve_task(QPainter& painter, const GraphProperties& shown, const GraphLayout& layout,
                     const CurvePlace& place) {
  const LayerLayout& layer = layout.layers[place.slot];
  return {painter,
          shown,
          layout,
          place,
          layer.area,
          layout.x_axis.scale,
          place.right ? layer.right.scale : layer.left.scale,
          curve_color(shown, place.subset)};
}

f64 base_line(const AxisScale& scale) {
  return pixel_of(scale, std::clamp(scale.logarithmic ? scale.minimum : 0.0, scale.minimum, scale.maximum));
}

PixelRectangle visible_area(const PaintTask& task) {
  return cuts_at_clip(task.painter) ? grown(task.area, kMargin) : task.area;
}

i32 point_type_of(const GraphProperties& shown, std::size_t subset) {
  return subset < shown.SubsetPointTypes.size() ? shown.SubsetPointTypes[subset] : 0;
}

i32 line_type_of(const GraphProperties& shown, std::size_t subset) {
  return subset < shown.SubsetLineTypes.size() ? shown.SubsetLineTypes[subset] : 0;
}

void paint_curves(QPainter& painter, const GraphProperties& shown, const GraphLayout& layout) {
  if (!layout.has_axes) return;
  for (const CurvePlace& place : layout.curves) {
    const PixelRectangle& area = layout.layers[place.slot].area;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setClipRect(QRectF(area.x, area.y, area.width, area.height), Qt::IntersectClip);
    draw_curve(curve_task(painter, shown, layout, place));
    painter.restore();
  }
}

}  // namespace trendaro
