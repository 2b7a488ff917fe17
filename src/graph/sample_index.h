#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include "app/types.h"
#include "files/sample_array.h"
#include "graph/range_levels.h"
#include "graph/sample_extremes.h"

namespace trendaro {

// Ranges of blocks of one curve's samples, 16 in the finest ones. Takes an eighth of the samples' memory.
struct SampleIndex {
  RangeLevels<f64> levels;
};

std::shared_ptr<const SampleIndex> build_sample_index(std::span<const f64> samples);

// The extremes of the samples `first` to `last` - 1, at least one, as one comparison after the other finds
// them. `index` is that of `samples`. Takes time that grows with the logarithm of their number.
SampleExtremes find_sample_extremes(std::span<const f64> samples, const SampleIndex& index, std::size_t first,
                                    std::size_t last);

// The same of each run between neighbouring `stops`, none of which is empty. Far quicker than run after run.
std::vector<SampleExtremes> sample_extremes_of_runs(std::span<const f64> samples, const SampleIndex& index,
                                                    std::span<const std::size_t> stops);

// The kept samples of a plot. The index goes where they go and is made when it is first of use; who changes
// samples drops it.
struct CurveBlock : SampleArray {
  using SampleArray::SampleArray;
  std::shared_ptr<const SampleIndex> index;
};

}  // namespace trendaro
