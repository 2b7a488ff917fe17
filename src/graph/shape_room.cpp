#include "graph/shape_room.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "graph/curve_samples.h"
#include "graph/plot_methods.h"
#include "graph/shape_sizes.h"

namespace trendaro {
namespace {

constexpr std::size_t kMostBars = 4000;  // of more samples the bars are too narrow to need room
constexpr f64 kMostOfAxis = 0.25;        // what shapes get of an axis at the most
constexpr f64 kSymbolLine = 1;           // pixels

// Pixels that shapes take beyond the lowest and the highest of the values that they stand for.
struct ShapeReach {
  f64 low = std::numeric_limits<f64>::infinity(), high = -std::numeric_limits<f64>::infinity();
  f64 below = 0, above = 0;

  [[nodiscard]] bool takes_room() const { return below > 0 || above > 0; }
};

// Pixels between the two nearest samples.
f64 least_distance(const CurveSamples& samples, const AxisScale& scale) {
  f64 least = std::numeric_limits<f64>::infinity();
  f64 former = std::numeric_limits<f64>::quiet_NaN();
  for (std::size_t i = 0; i < samples.count; ++i) {
    const f64 pixel = samples.drawn(i) ? pixel_of(scale, samples.x(i)) : former;
    const f64 distance = std::abs(pixel - former);
    if (distance > 0) least = std::min(least, distance);
    former = pixel;
  }
  return least;
}

f64 symbol_reach(const GraphProperties& shown, const MethodParts& parts) {
  return parts.symbols ? (symbol_size(shown.DataPointSize) + kSymbolLine) / 2 : 0;
}

// A ribbon goes to the right and up whichever way its axis runs.
void add_ribbon(bool upwards, ShapeReach& reach) {
  (upwards ? reach.above : reach.below) = kRibbonDepth;
}

ShapeReach reach_in_x(const GraphProperties& shown, const CurvePlace& place, const AxisScale& scale) {
  const CurveSamples samples = curve_samples(shown, place.subset);
  if (samples.count == 0) return {};
  const MethodParts parts = method_parts(place.method);
  ShapeReach reach{samples.extents->whole.x_low, samples.extents->whole.x_high};
  reach.below = reach.above = symbol_reach(shown, parts);
  if (parts.body == MethodBody::Bars && samples.count <= kMostBars)
    reach.below = reach.above = bar_group_width(least_distance(samples, scale)) / 2;
  if (parts.body == MethodBody::Bubbles) reach.below = reach.above = kLargestBubble;
  if (parts.body == MethodBody::Ribbon) add_ribbon(scale.last > scale.first, reach);
  return reach.takes_room() ? reach : ShapeReach{};
}

ShapeReach reach_in_y(const GraphProperties& shown, const CurvePlace& place, const AxisScale& scale) {
  const CurveSamples samples = curve_samples(shown, place.subset);
  if (samples.count == 0) return {};
  const MethodParts parts = method_parts(place.method);
  ShapeReach reach{samples.extents->whole.y_low, samples.extents->whole.y_high};
  reach.below = reach.above = symbol_reach(shown, parts);
  if (parts.body == MethodBody::Bubbles) {
    const f64 largest = std::max(std::abs(reach.low), std::abs(reach.high));
    reach.below = bubble_radius(reach.low, largest);
    reach.above = bubble_radius(reach.high, largest);
  }
  if (parts.body == MethodBody::Ribbon) add_ribbon(scale.last < scale.first, reach);
  return reach.takes_room() ? reach : ShapeReach{};
}

// Values along the axis as it runs: their logarithms on a logarithmic one.
f64 along(const AxisScale& scale, f64 value) {
  return scale.logarithmic ? std::log(value) : value;
}

// Widens the end or the ends at which the values leave less than the reach. `from` and `to` are the ends of
// the axis along it, `low` and `high` those of the values, between them.
void widen(f64 low, f64 high, const ShapeReach& reach, f64 pixels, f64& from, f64& to) {
  const f64 now = pixels / (to - from);
  if ((low - from) * now >= reach.below && (to - high) * now >= reach.above) return;
  const f64 upper_alone = (pixels - reach.above) / (high - from);
  const f64 lower_alone = (pixels - reach.below) / (to - low);
  if ((low - from) * upper_alone >= reach.below) {
    to = high + reach.above / upper_alone;
  } else if ((to - high) * lower_alone >= reach.above) {
    from = low - reach.below / lower_alone;
  } else {
    const f64 both = (pixels - reach.below - reach.above) / (high - low);
    from = low - reach.below / both;
    to = high + reach.above / both;
  }
}

void widen(AxisScale& scale, ShapeReach reach) {
  const f64 pixels = std::abs(scale.last - scale.first);
  if (!reach.takes_room()) return;
  const f64 share = std::min(1.0, pixels * kMostOfAxis / (reach.below + reach.above));
  reach.below *= share;
  reach.above *= share;
  f64 from = along(scale, scale.minimum);
  f64 to = along(scale, scale.maximum);
  // Where the values go on below a logarithmic axis none of them stands at its end.
  if (scale.logarithmic && reach.low < scale.minimum) {
    reach.low = scale.minimum;
    reach.below = 0;
  }
  const f64 low = along(scale, reach.low);
  const f64 high = along(scale, reach.high);
  // Values beyond the axis are not those that it was scaled to.
  if (!(low >= from && high <= to && low <= high)) return;
  widen(low, high, reach, pixels, from, to);
  from = scale.logarithmic ? std::exp(from) : from;
  to = scale.logarithmic ? std::exp(to) : to;
  if (!(std::isfinite(from) && std::isfinite(to) && from < to) || (scale.logarithmic && from <= 0)) return;
  scale.minimum = std::min(scale.minimum, from);
  scale.maximum = std::max(scale.maximum, to);
}

// For each curve, as one may reach out in the middle of what another spans. What an end gets takes pixels
// from the other, so that they are looked at twice.
void widen(AxisScale& scale, const std::vector<ShapeReach>& reaches) {
  for (int round = 0; round < 2; ++round)
    for (const ShapeReach& reach : reaches) widen(scale, reach);
}

}  // namespace

void make_room_for_shapes_in_x(const GraphProperties& shown, const GraphLayout& layout, AxisSettings& axis) {
  if (!axis.automatic) return;
  std::vector<ShapeReach> reaches;
  for (const CurvePlace& place : layout.curves) reaches.push_back(reach_in_x(shown, place, axis.scale));
  widen(axis.scale, reaches);
}

void make_room_for_shapes_in_y(const GraphProperties& shown, const GraphLayout& layout, std::size_t slot,
                               AxisSettings& axis) {
  if (!axis.automatic) return;
  std::vector<ShapeReach> reaches;
  for (const CurvePlace& place : layout.curves)
    if (place.slot == slot && place.right == (axis.side == AxisSide::Right))
      reaches.push_back(reach_in_y(shown, place, axis.scale));
  widen(axis.scale, reaches);
}

}  // namespace trendaro
