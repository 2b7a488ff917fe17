#include "graph/graph_scale.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace trendaro {
namespace {

constexpr f64 kLargest = 1e300;
constexpr f64 kAutomaticRatio = 1000;
constexpr f64 kSubstituteRatio = 1e-6;

f64 usable(f64 value) {
  return std::isfinite(value) ? std::clamp(value, -kLargest, kLargest) : 0;
}

// Limits that fall together, or so close that no pixel lies between them, are moved apart: limits that differ
// no further than that takes.
void move_apart(f64& minimum, f64& maximum) {
  const f64 size = std::max(std::abs(minimum), std::abs(maximum));
  const f64 least = std::max(size * 64 * std::numeric_limits<f64>::epsilon(), 1e-300);
  if (maximum - minimum >= least) return;
  f64 half = least / 2;
  if (minimum == maximum) half = size > 0 ? std::max(least, size * 0.01) : 1;
  minimum -= half;
  maximum += half;
}

// The logarithm of a ratio that may itself lie beyond the largest number, or be lost below the smallest.
f64 log_ratio(f64 value, f64 to) {
  const f64 ratio = value / to;
  return ratio > 0 && std::isfinite(ratio) ? std::log(ratio) : std::log(value) - std::log(to);
}

}  // namespace

AxisScale make_scale(f64 minimum, f64 maximum, i32 kind) {
  minimum = usable(minimum);
  maximum = usable(maximum);
  if (minimum > maximum) std::swap(minimum, maximum);
  move_apart(minimum, maximum);
  AxisScale scale{minimum, maximum};
  if (kind == 2 && maximum > 0) {
    if (minimum <= 0) scale.minimum = maximum * kSubstituteRatio;
    scale.logarithmic = scale.minimum > 0;
  } else if (kind == 0) {
    scale.logarithmic = spans_decades(minimum, maximum);
  }
  return scale;
}

bool spans_decades(f64 minimum, f64 maximum) {
  return minimum > 0 && maximum / minimum > kAutomaticRatio;
}

f64 pixel_of(const AxisScale& scale, f64 value) {
  const f64 part = scale.logarithmic
                       ? log_ratio(value, scale.minimum) / log_ratio(scale.maximum, scale.minimum)
                       : (value - scale.minimum) / (scale.maximum - scale.minimum);
  return scale.first + part * (scale.last - scale.first);
}

f64 value_of(const AxisScale& scale, f64 pixel) {
  const f64 part = (pixel - scale.first) / (scale.last - scale.first);
  if (scale.logarithmic) {
    const f64 ratio = scale.maximum / scale.minimum;
    return std::isfinite(ratio)
               ? scale.minimum * std::pow(ratio, part)
               : std::exp(std::log(scale.minimum) + part * log_ratio(scale.maximum, scale.minimum));
  }
  return scale.minimum + part * (scale.maximum - scale.minimum);
}

}  // namespace trendaro
