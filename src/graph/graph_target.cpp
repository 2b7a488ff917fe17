#include "graph/graph_target.h"

#include <algorithm>
#include <cmath>

#include "graph/annotation_target.h"
#include "graph/curve_samples.h"
#include "graph/nearest_sample.h"
#include "graph/rubber_band.h"

namespace trendaro {
namespace {

// Pixels between the pointer and what it still means.
constexpr f64 kPointReach = 6;
constexpr f64 kCurveReach = 4;
constexpr f64 kGripReach = 5;

constexpr std::size_t kNeighbours = 4;  // pieces of line looked at on either side of the nearest sample

bool contains(const PixelRectangle& box, PixelPoint place) {
  return place.x >= box.x && place.x <= box.right() && place.y >= box.y && place.y <= box.bottom();
}

GraphTarget data_point_at(const GraphProperties& shown, const GraphLayout& layout, PixelPoint place) {
  const auto near = nearest_sample_in_layer(shown, layout, place, kPointReach);
  if (!near) return {};
  return {TargetKind::DataPoint, -1, static_cast<i32>(near->subset), static_cast<i32>(near->point)};
}

// How far the pieces of line around a sample are from the place.
f64 distance_of_line(const GraphProperties& shown, const GraphLayout& layout, const CurvePlace& curve,
                     std::size_t sample, PixelPoint place) {
  f64 least = kCurveReach + 1;
  const std::size_t first = sample > kNeighbours ? sample - kNeighbours : 0;
  for (std::size_t point = first; point < sample + kNeighbours; ++point) {
    const auto from = place_of_sample(shown, layout, curve, point);
    const auto to = place_of_sample(shown, layout, curve, point + 1);
    if (from && to) least = std::min(least, distance_to_line(place, *from, *to));
  }
  return least;
}

// Curves that lines are drawn for lie between their samples too.
GraphTarget curve_at(const GraphProperties& shown, const GraphLayout& layout, PixelPoint place) {
  for (const CurvePlace& curve : layout.curves) {
    if (!contains(layout.layers[curve.slot].area, place)) continue;
    const CurveSamples samples = curve_samples(shown, curve.subset);
    const bool one_way = samples.rising || samples.falling;
    const auto near = nearest_sample(shown, layout, curve, place, layout.width + layout.height,
                                     one_way ? Nearness::AlongX : Nearness::InBothDirections);
    if (near && distance_of_line(shown, layout, curve, near->point, place) <= kCurveReach)
      return {TargetKind::Curve, -1, static_cast<i32>(near->subset), static_cast<i32>(near->point)};
  }
  return {};
}

GraphTarget legend_at(const GraphLayout& layout, PixelPoint place) {
  for (const LegendEntry& entry : layout.legend) {
    PixelRectangle row = entry.sample;
    row.y = std::min(entry.sample.y, entry.name.box.y);
    row.height = std::max(entry.sample.bottom(), entry.name.box.bottom()) - row.y;
    row.width = entry.name.box.right() - row.x;
    if (contains(row, place)) return {TargetKind::LegendEntry, -1, static_cast<i32>(entry.subset)};
  }
  return {};
}

GraphTarget title_at(const GraphLayout& layout, PixelPoint place) {
  for (const PlacedText& title : layout.titles)
    if (contains(title.box, place))
      return {title.role == TextRole::MainTitle ? TargetKind::MainTitle : TargetKind::SubTitle};
  return {};
}

PixelRectangle united(const PixelRectangle& a, const PixelRectangle& b) {
  const f64 x = std::min(a.x, b.x);
  const f64 y = std::min(a.y, b.y);
  return {x, y, std::max(a.right(), b.right()) - x, std::max(a.bottom(), b.bottom()) - y};
}

// The axis line with all its labels and the title.
PixelRectangle axis_box(const AxisLayout& axis, const PixelRectangle& area) {
  PixelRectangle box{area.x, area.bottom(), area.width, 0};
  if (axis.side == AxisSide::Left) box = {area.x, area.y, 0, area.height};
  if (axis.side == AxisSide::Right) box = {area.right(), area.y, 0, area.height};
  for (const PlacedText& label : axis.labels) box = united(box, label.box);
  if (!axis.title.text.empty()) box = united(box, axis.title.box);
  return box;
}

GraphTarget axis_at(const GraphLayout& layout, PixelPoint place) {
  if (!layout.has_axes) return {};
  for (const LayerLayout& layer : layout.layers) {
    if (layer.has_left && contains(axis_box(layer.left, layer.area), place)) return {TargetKind::LeftAxis};
    if (layer.shows_right && contains(axis_box(layer.right, layer.area), place))
      return {TargetKind::RightAxis};
  }
  if (contains(axis_box(layout.x_axis, layout.layers.back().area), place)) return {TargetKind::XAxis};
  return {};
}

GraphTarget inside_layers(const GraphProperties& shown, const GraphLayout& layout, PixelPoint place,
                          TargetOrder order, const TextMeasure* measure) {
  const GraphTarget point = data_point_at(shown, layout, place);
  const GraphTarget annotation = annotation_at(shown, layout, measure, place);
  const GraphTarget& first = order == TargetOrder::DataFirst ? point : annotation;
  const GraphTarget& second = order == TargetOrder::DataFirst ? annotation : point;
  if (first.kind != TargetKind::None) return first;
  return second.kind != TargetKind::None ? second : curve_at(shown, layout, place);
}

}  // namespace

GraphTarget target_at(const GraphProperties& shown, const GraphLayout& layout, PixelPoint place,
                      TargetOrder order, const TextMeasure* measure) {
  if (const GraphTarget entry = legend_at(layout, place); entry.kind != TargetKind::None) return entry;
  // Beside the layers there are the texts of annotations that stand in the margins.
  const bool inside = layout.has_axes && contains(layers_rectangle(layout), place);
  const GraphTarget target = inside ? inside_layers(shown, layout, place, order, measure)
                                    : annotation_at(shown, layout, measure, place);
  if (target.kind != TargetKind::None) return target;
  const GraphTarget title = title_at(layout, place);
  return title.kind != TargetKind::None ? title : axis_at(layout, place);
}

i32 gripped_line(const GraphProperties& properties, const GraphLayout& layout, PixelPoint place) {
  const PixelRectangle all = layers_rectangle(layout);
  if (!properties.ShowAnnotations || !layout.has_axes || place.y < all.y || place.y > all.bottom()) return -1;
  i32 nearest = -1;
  f64 least = kGripReach;
  for (std::size_t line = 0; line < properties.VertLineAnnotation.size(); ++line) {
    const f64 x = pixel_of(layout.x_axis.scale, properties.VertLineAnnotation[line]);
    if (!(x >= all.x - 1 && x <= all.right() + 1)) continue;
    const f64 distance = std::abs(place.x - x);
    const bool nearer = distance < least || (distance == least && (nearest < 0 || place.x >= x));
    if (!nearer) continue;
    nearest = static_cast<i32>(line);
    least = distance;
  }
  return nearest;
}

}  // namespace trendaro
