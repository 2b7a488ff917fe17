#pragma once

#include <cstddef>
#include <memory>

#include "files/sample_array.h"

namespace trendaro {

class GraphSurface;

// The arrays that a graph held before it was set up anew. The next ones stand in their memory, for the first
// touch of fresh memory costs more than the writing.
struct FormerArrays {
  std::shared_ptr<const FlatArray> x, y;
  std::shared_ptr<const SampleArray> x_of_dates;
};

// Those that the graph holds now. They stay its own until it lets them go.
FormerArrays former_arrays(const GraphSurface& graph);

// Elements without a value, or with any. They stand in the memory of `former` when nobody else holds that
// and it has about the size; otherwise it is let go first. Throws std::bad_alloc.
FlatArray array_in_place_of(std::shared_ptr<const FlatArray>& former, std::size_t elements);
SampleArray array_in_place_of(std::shared_ptr<const SampleArray>& former, std::size_t elements);

}  // namespace trendaro
