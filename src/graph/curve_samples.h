#pragma once

#include <cstddef>

#include "app/types.h"
#include "graph/curve_index.h"
#include "graph/graph_properties.h"

namespace trendaro {

// The samples of one curve where they lie in the graph's flat arrays, with the index of their extremes.
// Exactly one of the x pointers is set, unless the curve is empty.
struct CurveSamples {
  const f32* y = nullptr;
  const f32* x_single = nullptr;
  const f64* x_double = nullptr;
  std::size_t count = 0;  // up to the last sample that is drawn
  f64 null_x = 0;         // values that are not drawn
  f32 null_y = 0;
  bool rising = true;    // x never falls
  bool falling = false;  // x never rises, and falls somewhere
  const CurveExtents* extents = nullptr;

  [[nodiscard]] f64 x(std::size_t index) const {
    return x_single != nullptr ? static_cast<f64>(x_single[index]) : x_double[index];
  }
  // A sample that is drawn: neither coordinate is a null value, NaN or infinite.
  [[nodiscard]] bool drawn(std::size_t index) const;
};

// The samples of a curve of the graph; empty where none were taken over for it.
CurveSamples curve_samples(const GraphProperties& shown, std::size_t subset);

// What stands for a run of samples.
struct RunExtremes {
  std::size_t first = 0, lowest = 0, highest = 0, last = 0;  // indices of samples that are drawn
};

// The extremes of the samples `first` to `last` - 1; of equal ones the first. False where none is drawn.
// Takes time that grows with the logarithm of the run.
bool find_extremes(const CurveSamples& samples, std::size_t first, std::size_t last, RunExtremes& found);

// The first drawn sample from `from` on whose x has reached `limit`: is not below it, or not above it where x
// falls. `count` where there is none. x must rise or fall. Takes time that grows with the logarithm of the
// distance.
std::size_t first_reaching(const CurveSamples& samples, std::size_t from, f64 limit);

}  // namespace trendaro
