#include "graph/painters/fill_painter.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "graph/curve_strokes.h"
#include "graph/painters/curve_painter.h"
#include "graph/painters/cut_shapes.h"
#include "graph/painters/graph_colors.h"
#include "graph/painters/sharp_lines.h"
#include "graph/pressed_outline.h"
#include "graph/shape_sizes.h"
#include "graph/stacked_curves.h"

namespace trendaro {
namespace {

constexpr f64 kAreaShare = 0.25;   // opacity under an area's line
constexpr f64 kStackShare = 0.55;  // of the colour, over the background
constexpr f64 kNarrowestBar = 2;   // below it, bars of several curves stand at the same place
constexpr f64 kPalestBand = 0.3;   // of the colour
constexpr f64 kBubbleShare = 0.3;

// The bar curves on the same layer share the room of a bar.
struct BarShare {
  std::size_t index = 0, count = 0;
};

BarShare bar_share(const PaintTask& task) {
  BarShare share;
  for (const CurvePlace& place : task.layout.curves) {
    if (place.slot != task.place.slot || method_parts(place.method).body != MethodBody::Bars) continue;
    if (place.subset < task.place.subset) ++share.index;
    ++share.count;
  }
  return share;
}

f64 bar_room(const CurveOutline& outline) {
  f64 distance = kWidestBarDistance;
  for_each_piece(outline, [&](std::size_t first, std::size_t last) {
    for (std::size_t i = first + 1; i < last; ++i) {
      const f64 step = std::abs(outline.points[i].x - outline.points[i - 1].x);
      if (step > 0) distance = std::min(distance, step);
    }
  });
  return bar_group_width(distance);
}

// The levels of the major ticks and the edges, from top to bottom.
std::vector<f64> band_levels(const PaintTask& task) {
  const LayerLayout& layer = task.layout.layers[task.place.slot];
  std::vector<f64> levels = task.place.right ? layer.right.major : layer.left.major;
  levels.push_back(task.area.y);
  levels.push_back(task.area.bottom());
  for (f64& level : levels) level = std::clamp(level, task.area.y, task.area.bottom());
  std::sort(levels.begin(), levels.end());
  levels.erase(std::unique(levels.begin(), levels.end()), levels.end());
  return levels;
}

// Draws the same thing once for each band between two levels, cut to it, in a colour that gains from bottom
// to top.
template <typename Draw>
void draw_in_bands(const PaintTask& task, Draw draw) {
  const std::vector<f64> levels = band_levels(task);
  const QColor back = graph_color(task.shown.GraphBackColor);
  const auto bands = static_cast<f64>(levels.size() - 1);
  for (std::size_t i = 0; i + 1 < levels.size(); ++i) {
    const f64 height = bands > 1 ? 1 - static_cast<f64>(i) / (bands - 1) : 1;
    const PixelRectangle band{task.area.x, levels[i], task.area.width, levels[i + 1] - levels[i]};
    task.painter.save();
    task.painter.setClipRect(QRectF(band.x, band.y, band.width, band.height), Qt::IntersectClip);
    draw(PaintTask{task.painter, task.shown, task.layout, task.place,
                   cuts_at_clip(task.painter) ? task.area : band, task.x_scale, task.y_scale,
                   blended(task.color, back, kPalestBand + (1 - kPalestBand) * height)});
    task.painter.restore();
  }
}

// The outline in values of its axes.
CurveOutline in_values(const PaintTask& task, CurveOutline outline) {
  for (PixelPoint& point : outline.points)
    point = {value_of(task.x_scale, point.x), value_of(task.y_scale, point.y)};
  return outline;
}

// The way back, in one piece; a value without a pixel lies on the base.
CurveOutline in_pixels(const PaintTask& task, const std::vector<f64>& x, const std::vector<f64>& y) {
  CurveOutline outline;
  for (std::size_t i = 0; i < x.size(); ++i) {
    const PixelPoint point{pixel_of(task.x_scale, x[i]), pixel_of(task.y_scale, y[i])};
    if (!std::isfinite(point.x)) continue;
    outline.points.push_back({point.x, std::isfinite(point.y) ? point.y : base_line(task.y_scale)});
  }
  if (!outline.points.empty()) outline.starts.push_back(0);
  return outline;
}

std::vector<PaintTask> stack_of(const PaintTask& task) {
  std::vector<PaintTask> tasks;
  for (const CurvePlace& place : task.layout.curves)
    if (place.slot == task.place.slot && place.right == task.place.right &&
        method_parts(place.method).body == MethodBody::Stack)
      tasks.push_back(curve_task(task.painter, task.shown, task.layout, place));
  return tasks;
}

void draw_band(const PaintTask& task, const StackedBand& band) {
  const CurveOutline top = in_pixels(task, band.x, band.high);
  std::vector<PixelPoint> outline =
      pressed_into(visible_area(task), in_pixels(task, band.x, band.low)).points;
  std::ranges::reverse(outline);
  std::ranges::copy(pressed_into(visible_area(task), top).points, std::back_inserter(outline));
  QPolygonF polygon;
  for (const PixelPoint& point : outline) polygon.append({point.x, point.y});
  task.painter.setPen(Qt::NoPen);
  task.painter.setBrush(blended(task.color, graph_color(task.shown.GraphBackColor), kStackShare));
  task.painter.drawPolygon(polygon);
  draw_lines(task, top);
}

}  // namespace

void fill_to_base(const PaintTask& task, const CurveOutline& outline, const QColor& fill) {
  const PixelRectangle visible = visible_area(task);
  const f64 base = std::clamp(base_line(task.y_scale), visible.y, visible.bottom());
  const CurveOutline inside = pressed_into(visible, outline);
  task.painter.setPen(Qt::NoPen);
  task.painter.setBrush(fill);
  for_each_piece(inside, [&](std::size_t first, std::size_t last) {
    QPolygonF polygon;
    polygon.append({inside.points[first].x, base});
    for (std::size_t i = first; i < last; ++i) polygon.append({inside.points[i].x, inside.points[i].y});
    polygon.append({inside.points[last - 1].x, base});
    task.painter.drawPolygon(polygon);
  });
}

void draw_bars(const PaintTask& task, const CurveOutline& outline) {
  const DeviceGrid grid(task.painter);
  const f64 base = base_line(task.y_scale);
  const BarShare share = bar_share(task);
  const f64 room = bar_room(outline);
  const f64 part = room / static_cast<f64>(std::max<std::size_t>(1, share.count));
  const bool side_by_side = share.count > 1 && part >= kNarrowestBar;
  const f64 width = side_by_side ? part : room;
  const f64 offset = side_by_side ? static_cast<f64>(share.index) * part - room / 2 : -width / 2;
  const PixelRectangle visible = visible_area(task);
  for (const PixelPoint& point : outline.points) {
    if (point.x + room < visible.x || point.x - room > visible.right()) continue;
    const f64 y = std::clamp(point.y, visible.y, visible.bottom());
    QRectF bar = grid.aligned(QRectF(point.x + offset, std::min(y, base), width, std::abs(y - base)));
    bar.setWidth(std::max(bar.width(), 1 / grid.ratio()));
    task.painter.fillRect(bar & QRectF(visible.x, visible.y, visible.width, visible.height), task.color);
  }
}

void draw_area(const PaintTask& task, const CurveOutline& outline) {
  QColor fill = task.color;
  fill.setAlphaF(static_cast<float>(kAreaShare));
  fill_to_base(task, outline, fill);
  draw_lines(task, outline);
}

void draw_ribbon(const PaintTask& task, const CurveOutline& outline) {
  const CurveOutline inside = clipped(outline, grown(task.area, kRibbonDepth + 1));
  const QColor back = graph_color(task.shown.GraphBackColor);
  const QColor face = blended(task.color, back, 0.55);
  const QColor shade = blended(task.color, QColor(Qt::black), 0.75);
  const QPointF depth(kRibbonDepth, -kRibbonDepth);
  task.painter.setPen(Qt::NoPen);
  for_each_piece(inside, [&](std::size_t first, std::size_t last) {
    for (std::size_t i = first + 1; i < last; ++i) {
      const QPointF from(inside.points[i - 1].x, inside.points[i - 1].y);
      const QPointF to(inside.points[i].x, inside.points[i].y);
      QPainterPath strip;
      strip.addPolygon(QPolygonF{from, to, to + depth, from + depth});
      // The eye sees the back of a strip that rises to the right more steeply than it lies.
      const f64 rise = to.x() < from.x() ? to.y() - from.y() : from.y() - to.y();
      const bool turned = rise > std::abs(to.x() - from.x());
      task.painter.setBrush(turned ? shade : face);
      draw_path_inside(task.painter, task.area, strip);
    }
  });
  draw_lines(task, inside);
}

void draw_contour_lines(const PaintTask& task, const CurveOutline& outline) {
  const i32 line_type = line_type_of(task.shown, task.place.subset);
  draw_in_bands(task, [&](const PaintTask& band) { draw_lines(band, outline, line_type, band.color); });
}

void draw_contour_areas(const PaintTask& task, const CurveOutline& outline) {
  draw_in_bands(task, [&](const PaintTask& band) { fill_to_base(band, outline, band.color); });
}

void draw_bubbles(const PaintTask& task, const CurveOutline& outline) {
  const PointExtent& whole = curve_samples(task.shown, task.place.subset).extents->whole;
  const f64 largest =
      std::max(std::abs(static_cast<f64>(whole.y_low)), std::abs(static_cast<f64>(whole.y_high)));
  QColor fill = task.color;
  fill.setAlphaF(static_cast<float>(kBubbleShare));
  task.painter.setPen(QPen(task.color, 1));
  task.painter.setBrush(fill);
  const PixelRectangle visible = grown(task.area, kLargestBubble);
  for (const PixelPoint& point : outline.points) {
    if (point.x < visible.x || point.x > visible.right() || point.y < visible.y || point.y > visible.bottom())
      continue;
    const f64 radius = bubble_radius(value_of(task.y_scale, point.y), largest);
    QPainterPath bubble;
    bubble.addEllipse(QPointF(point.x, point.y), radius, radius);
    draw_path_inside(task.painter, task.area, bubble);
  }
}

void draw_stack(const PaintTask& task) {
  const std::vector<PaintTask> tasks = stack_of(task);
  if (tasks.empty() || tasks.front().place.subset != task.place.subset) return;
  const f64 column_width = 1 / DeviceGrid(task.painter).ratio();
  std::vector<CurveOutline> outlines;
  for (const PaintTask& each : tasks) {
    const CurveSamples samples = curve_samples(each.shown, each.place.subset);
    const bool ordered = samples.rising || samples.falling;
    outlines.push_back(ordered ? in_values(each, curve_outline(samples, each.x_scale, each.y_scale, each.area,
                                                               {.column_width = column_width}))
                               : CurveOutline{});
  }
  const std::vector<StackedBand> bands = stack_curves(outlines);
  for (std::size_t i = 0; i < tasks.size(); ++i) draw_band(tasks[i], bands[i]);
}

}  // namespace trendaro
