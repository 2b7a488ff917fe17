#pragma once

#include <vector>

#include "graph/curve_outline.h"

namespace trendaro {

// One curve of a stack: at each x, rising, the values between which it is drawn.
struct StackedBand {
  std::vector<f64> x, low, high;
};

// Lays curves upon each other in their order: the first stands on 0, each next one on the sum of those before
// it. The outlines hold values, not pixels, with x rising or falling throughout. Between its points a curve
// is straight; where it has none it adds nothing.
std::vector<StackedBand> stack_curves(const std::vector<CurveOutline>& curves);

}  // namespace trendaro
