#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include "app/types.h"
#include "files/sample_array.h"
#include "graph/sample_extremes.h"

namespace trendaro {

// Ranges of stretches of one curve's samples, at several levels: an entry of level k covers 64 * 16^k
// samples, the last one maybe fewer. Takes a thirtieth of the samples' memory.
struct SampleIndex {
  std::vector<std::vector<ValueRange>> levels;
};

std::shared_ptr<const SampleIndex> build_sample_index(std::span<const f64> samples);

// The extremes of the samples `first` to `last` - 1, at least one, as one comparison after the other finds
// them. `index` is that of `samples`. Takes time that grows with the logarithm of their number.
SampleExtremes find_sample_extremes(std::span<const f64> samples, const SampleIndex& index, std::size_t first,
                                    std::size_t last);

// The kept samples of a plot. The index goes where they go and is made when it is first of use; who changes
// samples drops it.
struct CurveBlock : SampleArray {
  using SampleArray::SampleArray;
  std::shared_ptr<const SampleIndex> index;
};

}  // namespace trendaro
