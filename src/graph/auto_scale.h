#pragma once

#include <optional>

#include "app/types.h"

namespace trendaro {

struct GraphProperties;

// Limits of an axis in graph units.
struct AxisLimits {
  f64 low, high;

  friend bool operator==(const AxisLimits&, const AxisLimits&) = default;
};

// To both sides of a single date: a minute, in days.
inline constexpr f64 kDateHalfWidth = 1.0 / 1440;

// The range of the data extended by `percent` at both ends; on a logarithmic axis the decades are extended,
// of data that reach down to 0 or below it those that the axis shows, at the top alone. Data without a width
// get one: `flat_half_width` to both sides of their value. Nothing for a range that is none (low above high).
std::optional<AxisLimits> padded_limits(f64 low, f64 high, i16 percent, bool logarithmic,
                                        f64 flat_half_width);

// Writes the limits of every axis whose manual scale control is 0 from the curve index of `properties`. An
// axis without a point keeps its limits.
void scale_to_data(GraphProperties& properties);

}  // namespace trendaro
