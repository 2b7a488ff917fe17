#include "graph/auto_scale.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "graph/curve_index.h"
#include "graph/graph_properties.h"
#include "graph/graph_scale.h"
#include "graph/plot_methods.h"

namespace trendaro {
namespace {

constexpr i32 kAutomatic = 0;
constexpr i32 kLogarithmic = 2;

f64 half_width_around(f64 value) {
  return value == 0 ? 1 : std::abs(value) / 10;
}

// Extents of the curves by axis, gathered over all curves.
struct AxisExtents {
  PointExtent x;
  std::array<PointExtent, kGraphLayers> left, right;
};

// Curves that stand upon each other reach from 0 to the sums of their extremes.
struct StackExtent {
  f64 low = 0, high = 0;
  PointExtent of_all;

  void add(const PointExtent& curve) {
    if (curve.empty()) return;
    low += std::min(0.0, static_cast<f64>(curve.y_low));
    high += std::max(0.0, static_cast<f64>(curve.y_high));
    of_all.add(curve);
  }
  void widen(PointExtent& extent) const {
    if (of_all.empty()) return;
    PointExtent whole = of_all;
    whole.y_low = single(low);
    whole.y_high = single(high);
    extent.add(whole);
  }

 private:
  static f32 single(f64 value) {
    constexpr f64 kLargest = std::numeric_limits<f32>::max();
    return static_cast<f32>(std::clamp(value, -kLargest, kLargest));
  }
};

bool is_stacked(const GraphProperties& properties, std::size_t curve) {
  return curve < properties.SubsetPlotMethods.size() &&
         method_without_side(properties.SubsetPlotMethods[curve]) == kMethodStacked;
}

AxisExtents gather_extents(const GraphProperties& properties) {
  AxisExtents extents;
  std::array<StackExtent, kGraphLayers> left_stack, right_stack;
  const auto& curves = properties.curve_index->curves;
  for (std::size_t curve = 0; curve < curves.size(); ++curve) {
    auto& side = on_right_axis(properties, curve) ? extents.right : extents.left;
    auto& stack = on_right_axis(properties, curve) ? right_stack : left_stack;
    const std::size_t layer = layer_of_curve(properties, curve);
    if (is_stacked(properties, curve))
      stack[layer].add(curves[curve].whole);
    else
      side[layer].add(curves[curve].whole);
    extents.x.add(curves[curve].whole);
  }
  for (std::size_t layer = 0; layer < kGraphLayers; ++layer) {
    left_stack[layer].widen(extents.left[layer]);
    right_stack[layer].widen(extents.right[layer]);
  }
  return extents;
}

void assign(const std::optional<AxisLimits>& limits, f64& low, f64& high) {
  if (!limits) return;
  low = limits->low;
  high = limits->high;
}

// An automatic axis is padded the way it will be scaled. What was found linear stays so: a padding that all
// but reaches 0 takes the 0 in.
std::optional<AxisLimits> axis_limits(f64 low, f64 high, i16 percent, i32 scale_kind, f64 flat_half_width) {
  if (scale_kind != kAutomatic)
    return padded_limits(low, high, percent, scale_kind == kLogarithmic, flat_half_width);
  const bool logarithmic = spans_decades(low, high);
  auto limits = padded_limits(low, high, percent, logarithmic, flat_half_width);
  if (limits && !logarithmic && spans_decades(limits->low, limits->high)) limits->low = 0;
  return limits;
}

std::optional<AxisLimits> y_limits(const PointExtent& extent, i16 percent, i32 scale_kind) {
  return axis_limits(extent.y_low, extent.y_high, percent, scale_kind, half_width_around(extent.y_low));
}

}  // namespace

std::optional<AxisLimits> padded_limits(f64 low, f64 high, i16 percent, bool logarithmic,
                                        f64 flat_half_width) {
  if (!(low <= high)) return std::nullopt;
  const f64 share = percent > 0 ? percent / 100.0 : 0;
  if (low == high) return AxisLimits{low - flat_half_width, high + flat_half_width};
  if (logarithmic && low > 0) {
    // More decades than a number holds have no ratio.
    const f64 factor = std::isfinite(high / low) ? std::pow(high / low, share)
                                                 : std::exp((std::log(high) - std::log(low)) * share);
    return AxisLimits{std::max(low / factor, std::numeric_limits<f64>::min()),
                      std::min(high * factor, std::numeric_limits<f64>::max())};
  }
  // Halves, because the width of a range may be beyond the largest number.
  const f64 padding = (high / 2 - low / 2) * share * 2;
  if (!logarithmic || high <= 0) return AxisLimits{low - padding, high + padding};
  // Such data reach down to where the axis begins; a part of them in their own unit is nothing at the top.
  const AxisScale shown = make_scale(low, high, kLogarithmic);
  return AxisLimits{low - padding, high * std::pow(shown.maximum / shown.minimum, share)};
}

void scale_to_data(GraphProperties& properties) {
  if (!properties.curve_index) return;
  const AxisExtents extents = gather_extents(properties);
  const i16 percent = properties.AutoPadPercent;
  if (properties.ManualScaleControlX == 0) {
    const f64 half_width = properties.DateTimeMode == 1 ? kDateHalfWidth : half_width_around(extents.x.x_low);
    assign(axis_limits(extents.x.x_low, extents.x.x_high, percent, properties.XAxisScaleControl, half_width),
           properties.ManualMinX, properties.ManualMaxX);
  }
  for (std::size_t i = 0; i < kGraphLayers; ++i) {
    LayerProperties& layer = properties.layers[i];
    if (layer.ManualScaleControlY == 0)
      assign(y_limits(extents.left[i], percent, layer.YAxisScaleControl), layer.ManualMinY, layer.ManualMaxY);
    if (layer.ManualScaleControlRY == 0)
      assign(y_limits(extents.right[i], percent, layer.RYAxisScaleControl), layer.ManualMinRY,
             layer.ManualMaxRY);
  }
}

}  // namespace trendaro
