#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "graph/curve_samples.h"

namespace trendaro {

// What stands for a run of samples.
struct RunExtremes {
  std::size_t first = 0, lowest = 0, highest = 0, last = 0;  // indices of samples that are drawn
};

// The extremes of the samples `first` to `last` - 1; of equal ones the first. False where none is drawn.
// Takes time that grows with the logarithm of the curve.
bool find_extremes(const CurveSamples& samples, std::size_t first, std::size_t last, RunExtremes& found);

// The same of each run between neighbouring `stops`, none of which is empty; nothing where no sample is
// drawn.
std::vector<std::optional<RunExtremes>> extremes_of_runs(const CurveSamples& samples,
                                                         std::span<const std::size_t> stops);

// What the drawn samples from `first` to `last` - 1 extend over, in the same time.
PointExtent extent_of_run(const CurveSamples& samples, std::size_t first, std::size_t last);

}  // namespace trendaro
