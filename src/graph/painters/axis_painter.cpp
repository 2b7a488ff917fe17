#include "graph/painters/axis_painter.h"

#include <cmath>

#include "graph/axis_layout.h"
#include "graph/painters/graph_colors.h"
#include "graph/painters/sharp_lines.h"
#include "graph/painters/title_painter.h"

namespace trendaro {
namespace {

constexpr f64 kFrameShare = 0.45;  // of the shadow colour over the desk
constexpr f64 kTickShare = 0.7;    // of the axis colour
constexpr f64 kMinorTickPart = 0.6;

struct AxisPens {
  QPen line, tick;
};

AxisPens axis_pens(const GraphProperties& shown, const AxisLayout& axis) {
  const QColor color = graph_color(axis.color);
  return {QPen(color), QPen(blended(color, graph_color(shown.DeskColor), kTickShare))};
}

// The edge of a layer that has no axis of its own.
void paint_frame(QPainter& painter, const GraphProperties& shown, const PixelRectangle& area) {
  const QPen pen(blended(graph_color(shown.ShadowColor), graph_color(shown.DeskColor), kFrameShare));
  draw_level_line(painter, area.x, area.right(), area.y, 1, pen);
  draw_level_line(painter, area.x, area.right(), area.bottom(), 1, pen);
  draw_upright_line(painter, area.x, area.y, area.bottom(), 1, pen);
  draw_upright_line(painter, area.right(), area.y, area.bottom(), 1, pen);
}

void paint_tick(QPainter& painter, const AxisLayout& axis, const PixelRectangle& area, f64 pixel, f64 length,
                const QPen& pen) {
  switch (axis.side) {
    case AxisSide::Bottom:
      draw_upright_line(painter, pixel, area.bottom(), area.bottom() + length, 1, pen);
      break;
    case AxisSide::Left:
      draw_level_line(painter, area.x - length, area.x, pixel, 1, pen);
      break;
    case AxisSide::Right:
      draw_level_line(painter, area.right(), area.right() + length, pixel, 1, pen);
      break;
  }
}

void paint_axis_line(QPainter& painter, const AxisLayout& axis, const PixelRectangle& area, const QPen& pen) {
  switch (axis.side) {
    case AxisSide::Bottom:
      draw_level_line(painter, area.x, area.right(), area.bottom(), 1, pen);
      break;
    case AxisSide::Left:
      draw_upright_line(painter, area.x, area.y, area.bottom(), 1, pen);
      break;
    case AxisSide::Right:
      draw_upright_line(painter, area.right(), area.y, area.bottom(), 1, pen);
      break;
  }
}

void paint_axis(QPainter& painter, const GraphProperties& shown, const AxisLayout& axis,
                const PixelRectangle& area, bool minor_ticks, const GraphFonts& fonts) {
  const AxisPens pens = axis_pens(shown, axis);
  painter.setRenderHint(QPainter::Antialiasing, false);
  const f64 length = tick_length(fonts);
  if (minor_ticks)
    for (const f64 pixel : axis.minor)
      paint_tick(painter, axis, area, pixel, std::round(length * kMinorTickPart), pens.tick);
  for (const f64 pixel : axis.major) paint_tick(painter, axis, area, pixel, length, pens.tick);
  paint_axis_line(painter, axis, area, pens.line);
  for (const PlacedText& label : axis.labels) paint_text(painter, label, fonts);
  paint_text(painter, axis.title, fonts);
}

}  // namespace

void paint_axes(QPainter& painter, const GraphProperties& shown, const GraphLayout& layout,
                const GraphFonts& fonts) {
  painter.setRenderHint(QPainter::Antialiasing, false);
  for (const LayerLayout& layer : layout.layers) paint_frame(painter, shown, layer.area);
  if (!layout.has_axes) return;
  for (const LayerLayout& layer : layout.layers) {
    const bool minor_ticks = shown.layers[layer.layer].AxisTicksOn;
    if (layer.has_left) paint_axis(painter, shown, layer.left, layer.area, minor_ticks, fonts);
    if (layer.shows_right) paint_axis(painter, shown, layer.right, layer.area, minor_ticks, fonts);
  }
  paint_axis(painter, shown, layout.x_axis, layout.layers.back().area, shown.TicksOn, fonts);
}

}  // namespace trendaro
