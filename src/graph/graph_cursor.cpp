#include "graph/graph_cursor.h"

#include <algorithm>
#include <limits>

#include "graph/curve_samples.h"
#include "graph/nearest_sample.h"
#include "graph/rubber_band.h"

namespace trendaro {
namespace {

constexpr f64 kAnyDistance = std::numeric_limits<f64>::max();
constexpr f64 kJump = 25;  // pixels

const CurvePlace* curve_of_cursor(const GraphSurface& graph, const GraphLayout& layout) {
  const auto found = std::find_if(layout.curves.begin(), layout.curves.end(), [&](const CurvePlace& curve) {
    return static_cast<i32>(curve.subset) == graph.pending.CursorSubset;
  });
  return found == layout.curves.end() ? nullptr : &*found;
}

// The cursor's curve, or the first one where that has gone.
const CurvePlace* curve_to_move_on(const GraphSurface& graph, const GraphLayout& layout) {
  const CurvePlace* curve = curve_of_cursor(graph, layout);
  return curve == nullptr && !layout.curves.empty() ? layout.curves.data() : curve;
}

std::optional<PixelPoint> place_of_cursor(const GraphSurface& graph, const GraphLayout& layout) {
  const CurvePlace* curve = curve_of_cursor(graph, layout);
  if (curve == nullptr || graph.pending.CursorPoint < 0) return std::nullopt;
  return place_of_sample(graph.shown(), layout, *curve, static_cast<std::size_t>(graph.pending.CursorPoint));
}

bool lies_between(f64 value, f64 low, f64 high) {
  return value >= low - 0.5 && value <= high + 0.5;
}

bool set_cursor(GraphSurface& graph, std::size_t subset, std::size_t point) {
  const auto new_subset = static_cast<i32>(subset);
  const auto new_point = static_cast<i32>(point);
  if (graph.pending.CursorSubset == new_subset && graph.pending.CursorPoint == new_point) return false;
  graph.pending.CursorSubset = new_subset;
  graph.pending.CursorPoint = new_point;
  return true;
}

bool snap_along_x(GraphSurface& graph, const GraphLayout& layout, PixelPoint pointer) {
  const CurvePlace* curve = curve_to_move_on(graph, layout);
  if (curve == nullptr) return false;
  const auto found = nearest_sample(graph.shown(), layout, *curve, pointer, kAnyDistance, Nearness::AlongX);
  return found && set_cursor(graph, found->subset, found->point);
}

// Moves a place to the side where x rises, or to the other one.
f64 beside(const GraphLayout& layout, f64 x, bool forward, f64 distance) {
  const bool rises = layout.x_axis.scale.last > layout.x_axis.scale.first;
  const PixelRectangle all = layers_rectangle(layout);
  return std::clamp(x + (rises == forward ? distance : -distance), all.x, all.right());
}

// Where x falls, forward is towards the start of the curve.
bool step_point(GraphSurface& graph, const GraphLayout& layout, const CurvePlace& curve, bool forward) {
  const auto point = static_cast<std::size_t>(graph.pending.CursorPoint);
  const CurveSamples samples = curve_samples(graph.shown(), curve.subset);
  const auto next = next_sample(graph.shown(), curve.subset, point, forward != samples.falling);
  if (!next) return false;
  // A curve that runs to and fro may leave the picture and come back.
  const PixelRectangle all = layers_rectangle(layout);
  const auto place = place_of_sample(graph.shown(), layout, curve, *next);
  const bool on_show = place && lies_between(place->x, all.x, all.right());
  if ((samples.rising || samples.falling) && !on_show) return false;
  return set_cursor(graph, curve.subset, *next);
}

// Where x rises the samples nearest to a place at the edge may lie outside.
bool jump_to(GraphSurface& graph, const GraphLayout& layout, f64 x) {
  const PixelRectangle all = layers_rectangle(layout);
  const i32 former_subset = graph.pending.CursorSubset;
  const i32 former_point = graph.pending.CursorPoint;
  if (!snap_along_x(graph, layout, {x, all.y})) return false;
  const auto place = place_of_cursor(graph, layout);
  if (place && lies_between(place->x, all.x, all.right())) return true;
  const bool forward = place && (place->x < all.x) == (layout.x_axis.scale.last > layout.x_axis.scale.first);
  if (const CurvePlace* curve = curve_of_cursor(graph, layout); curve != nullptr) {
    if (step_point(graph, layout, *curve, forward)) return true;
  }
  graph.pending.CursorSubset = former_subset;
  graph.pending.CursorPoint = former_point;
  return false;
}

bool step_curve(GraphSurface& graph, const GraphLayout& layout, const CurvePlace& curve, bool above) {
  const auto index = static_cast<std::size_t>(&curve - layout.curves.data());
  if (above ? index == 0 : index + 1 >= layout.curves.size()) return false;
  const CurvePlace& other = layout.curves[above ? index - 1 : index + 1];
  const auto point = static_cast<std::size_t>(graph.pending.CursorPoint);
  if (place_of_sample(graph.shown(), layout, other, point)) return set_cursor(graph, other.subset, point);
  auto near = next_sample(graph.shown(), other.subset, point, true);
  if (!near) near = next_sample(graph.shown(), other.subset, point, false);
  return near && set_cursor(graph, other.subset, *near);
}

}  // namespace

CursorMark cursor_mark(const GraphSurface& graph, const GraphLayout& layout) {
  CursorMark mark;
  const i16 mode = graph.pending.CursorMode;
  const CurvePlace* curve = curve_of_cursor(graph, layout);
  const auto place = place_of_cursor(graph, layout);
  if (mode < kCursorLine || mode > kCursorSquare || !place) return mark;
  const PixelRectangle& area = layout.layers[curve->slot].area;
  const PixelRectangle all = layers_rectangle(layout);
  const bool inside_x = lies_between(place->x, area.x, area.right());
  const bool inside_y = lies_between(place->y, area.y, area.bottom());
  mark.slot = curve->slot;
  if (mode != kCursorSquare && inside_x) mark.vertical = PixelRectangle{place->x, all.y, 0, all.height};
  if (mode == kCursorCross && inside_x && inside_y)
    mark.horizontal = PixelRectangle{area.x, place->y, area.width, 0};
  if (mode == kCursorSquare && inside_x && inside_y) mark.square = place;
  return mark;
}

bool snap_cursor(GraphSurface& graph, const GraphLayout& layout, PixelPoint pointer) {
  if (!layout.has_axes) return false;
  if (graph.pending.CursorMode == kCursorLine) return snap_along_x(graph, layout, pointer);
  const auto found = nearest_sample_in_layer(graph.shown(), layout, pointer, kAnyDistance);
  return found && set_cursor(graph, found->subset, found->point);
}

bool step_cursor(GraphSurface& graph, const GraphLayout& layout, CursorStep step) {
  const CurvePlace* curve = curve_to_move_on(graph, layout);
  if (!layout.has_axes || curve == nullptr) return false;
  const PixelRectangle all = layers_rectangle(layout);
  const auto place = place_of_cursor(graph, layout);
  if (!place || !lies_between(place->x, all.x, all.right()))
    return jump_to(graph, layout, all.x + all.width / 2);
  switch (step) {
    case CursorStep::Back:
    case CursorStep::Forward:
      return step_point(graph, layout, *curve, step == CursorStep::Forward);
    case CursorStep::JumpBack:
    case CursorStep::JumpForward:
      return jump_to(graph, layout, beside(layout, place->x, step == CursorStep::JumpForward, kJump));
    case CursorStep::First:
    case CursorStep::Last:
      return jump_to(graph, layout, beside(layout, place->x, step == CursorStep::Last, all.width));
    case CursorStep::CurveAbove:
    case CursorStep::CurveBelow:
      return step_curve(graph, layout, *curve, step == CursorStep::CurveAbove);
  }
  return false;
}

}  // namespace trendaro
