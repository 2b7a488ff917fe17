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

// The first drawn sample from `first` on; `last` where none is before it. Blocks of gaps are stepped over.
std::size_t first_drawn(const CurveSamples& samples, std::size_t first, std::size_t last);

// One behind the last drawn sample before `last`; `first` where none is from there on.
std::size_t drawn_end(const CurveSamples& samples, std::size_t first, std::size_t last);

// Has the coordinates of a sample of the curve brought near, without waiting for them.
void ask_for_sample(const CurveSamples& samples, std::size_t index);

// Has brought near what `first_reaching` looks at first.
void ask_for_limit(const CurveSamples& samples, f64 limit);

// The first drawn sample from `from` on whose x has reached `limit`: is not below it, or not above it where x
// falls. `count` where there is none. x must rise or fall. Takes few looks where x is evenly spaced,
// elsewhere time that grows with the logarithm of the curve.
std::size_t first_reaching(const CurveSamples& samples, std::size_t from, f64 limit);

}  // namespace trendaro
