#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "app/types.h"
#include "graph/sample_index.h"

namespace trendaro {

// The extremes of the samples `first` to `last` - 1, at least one, as one comparison after the other finds
// them. `index` is that of `samples`. Takes time that grows with the logarithm of their number.
SampleExtremes find_sample_extremes(std::span<const f64> samples, const SampleIndex& index, std::size_t first,
                                    std::size_t last);

// The same of each run between neighbouring `stops`, none of which is empty. Far quicker than run after run,
// since many of them wait for memory at the same time.
std::vector<SampleExtremes> sample_extremes_of_runs(std::span<const f64> samples, const SampleIndex& index,
                                                    std::span<const std::size_t> stops);

}  // namespace trendaro
