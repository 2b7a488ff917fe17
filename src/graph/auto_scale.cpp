#include "graph/auto_scale.h"

#include <array>
#include <cmath>

#include "graph/curve_index.h"
#include "graph/graph_properties.h"

namespace trendaro {
namespace {

constexpr i32 kLogarithmic = 2;
constexpr f64 kMinuteInDays = 1.0 / 1440;

f64 half_width_around(f64 value) {
  return value == 0 ? 1 : std::abs(value) / 10;
}

// Extents of the curves by axis, gathered over all curves.
struct AxisExtents {
  PointExtent x;
  std::array<PointExtent, kGraphLayers> left, right;
};

AxisExtents gather_extents(const GraphProperties& properties) {
  AxisExtents extents;
  const auto& curves = properties.curve_index->curves;
  for (std::size_t curve = 0; curve < curves.size(); ++curve) {
    auto& side = on_right_axis(properties, curve) ? extents.right : extents.left;
    side[layer_of_curve(properties, curve)].add(curves[curve].whole);
    extents.x.add(curves[curve].whole);
  }
  return extents;
}

void assign(const std::optional<AxisLimits>& limits, f64& low, f64& high) {
  if (!limits) return;
  low = limits->low;
  high = limits->high;
}

std::optional<AxisLimits> y_limits(const PointExtent& extent, i16 percent, i32 scale_kind) {
  return padded_limits(extent.y_low, extent.y_high, percent, scale_kind == kLogarithmic,
                       half_width_around(extent.y_low));
}

}  // namespace

std::optional<AxisLimits> padded_limits(f64 low, f64 high, i16 percent, bool logarithmic,
                                        f64 flat_half_width) {
  if (!(low <= high)) return std::nullopt;
  const f64 share = percent > 0 ? percent / 100.0 : 0;
  if (low == high) return AxisLimits{low - flat_half_width, high + flat_half_width};
  if (logarithmic && low > 0) {
    const f64 factor = std::pow(high / low, share);
    return AxisLimits{low / factor, high * factor};
  }
  // Halves, because the width of a range may be beyond the largest number.
  const f64 padding = (high / 2 - low / 2) * share * 2;
  return AxisLimits{low - padding, high + padding};
}

void scale_to_data(GraphProperties& properties) {
  if (!properties.curve_index) return;
  const AxisExtents extents = gather_extents(properties);
  const i16 percent = properties.AutoPadPercent;
  if (properties.ManualScaleControlX == 0) {
    const f64 half_width = properties.DateTimeMode == 1 ? kMinuteInDays : half_width_around(extents.x.x_low);
    assign(padded_limits(extents.x.x_low, extents.x.x_high, percent,
                         properties.XAxisScaleControl == kLogarithmic, half_width),
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
