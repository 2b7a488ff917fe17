#include "graph/painters/grid_painter.h"

#include <cmath>

#include "graph/painters/graph_colors.h"
#include "graph/painters/sharp_lines.h"

namespace trendaro {
namespace {

constexpr f64 kGridShare = 0.13;  // of the foreground colour over the background
constexpr f64 kBoldGridShare = 0.22;
constexpr f64 kMinorGridShare = 0.35;  // of the minor grid's own colour
constexpr f64 kLeastEdgeDistance = 1.5;

QPen styled(const QColor& color, i32 style) {
  QPen pen(color);
  if (style == kGridDotted) pen.setDashPattern({1, 3});
  if (style == kGridDashed) pen.setDashPattern({5, 4});
  if (style == kGridPixel) pen.setDashPattern({1, 1});
  return pen;
}

// Broken lines carry less colour, so they take a stronger one.
f64 share_of(i32 style, f64 share) {
  return style == kGridSolid || style == kGridBold || style == kMinorSolid ? share : std::min(1.0, share * 2);
}

void draw_upright_lines(QPainter& painter, const std::vector<f64>& pixels, const PixelRectangle& area,
                        const GridPen& pen) {
  for (const f64 x : pixels)
    if (x > area.x + kLeastEdgeDistance && x < area.right() - kLeastEdgeDistance)
      draw_upright_line(painter, x, area.y, area.bottom(), pen.width, pen.pen);
}

void draw_level_lines(QPainter& painter, const std::vector<f64>& pixels, const PixelRectangle& area,
                      const GridPen& pen) {
  for (const f64 y : pixels)
    if (y > area.y + kLeastEdgeDistance && y < area.bottom() - kLeastEdgeDistance)
      draw_level_line(painter, area.x, area.right(), y, pen.width, pen.pen);
}

// The axis whose ticks carry the level lines: the left one, unless only the right one has curves.
const AxisLayout& grid_axis(const LayerLayout& layer) {
  return layer.has_left ? layer.left : layer.right;
}

void paint_minor_grid(QPainter& painter, const GraphProperties& shown, const GraphLayout& layout,
                      const LayerLayout& layer) {
  const bool drawable = shown.TickSetting >= kGridDotted && shown.TickSetting <= kMinorSolid;
  if (!drawable) return;
  const GridPen pen = minor_grid_pen(shown);
  if (shown.TicksOn) draw_upright_lines(painter, layout.x_axis.minor, layer.area, pen);
  if (shown.layers[layer.layer].AxisTicksOn)
    draw_level_lines(painter, grid_axis(layer).minor, layer.area, pen);
}

void paint_major_grid(QPainter& painter, const GraphProperties& shown, const GraphLayout& layout,
                      const LayerLayout& layer) {
  const GridPen pen = major_grid_pen(shown);
  const i32 control = shown.GridLineControl;
  if (control == kGridBoth || control == kGridOfXAxis)
    draw_upright_lines(painter, layout.x_axis.major, layer.area, pen);
  if (control == kGridBoth || control == kGridOfYAxes)
    draw_level_lines(painter, grid_axis(layer).major, layer.area, pen);
}

}  // namespace

GridPen major_grid_pen(const GraphProperties& shown) {
  const bool bold = shown.GridStyle == kGridBold;
  const f64 share = share_of(shown.GridStyle, bold ? kBoldGridShare : kGridShare);
  const QColor color = blended(graph_color(shown.GraphForeColor), graph_color(shown.GraphBackColor), share);
  return {styled(color, shown.GridStyle), bold ? 2.0 : 1.0};
}

GridPen minor_grid_pen(const GraphProperties& shown) {
  const QColor color = blended(graph_color(shown.MinorGridColor), graph_color(shown.GraphBackColor),
                               share_of(shown.TickSetting, kMinorGridShare));
  return {styled(color, shown.TickSetting), 1};
}

void paint_backgrounds(QPainter& painter, const GraphProperties& shown, const GraphLayout& layout) {
  const DeviceGrid grid(painter);
  const QColor color = graph_color(shown.GraphBackColor);
  for (const LayerLayout& layer : layout.layers)
    painter.fillRect(grid.aligned(QRectF(layer.area.x, layer.area.y, layer.area.width, layer.area.height)),
                     color);
}

void paint_grid(QPainter& painter, const GraphProperties& shown, const GraphLayout& layout) {
  if (!layout.has_axes) return;
  painter.setRenderHint(QPainter::Antialiasing, false);
  for (const LayerLayout& layer : layout.layers) paint_minor_grid(painter, shown, layout, layer);
  for (const LayerLayout& layer : layout.layers) paint_major_grid(painter, shown, layout, layer);
}

}  // namespace trendaro
