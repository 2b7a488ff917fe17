#include "graph/former_arrays.h"

#include <utility>

#include "graph/graph_surface.h"

namespace trendaro {
namespace {

// Not far more than is needed, for a short curve would keep the memory of a long one.
template <typename Array>
bool has_room(const Array& array, std::size_t elements) {
  return elements <= array.capacity() && array.capacity() / 2 <= elements;
}

template <typename Array>
Array array_in(std::shared_ptr<const Array>& former, std::size_t elements) {
  Array array;
  // A graph makes its arrays to be changed and only hands them on as constants.
  if (former && former.use_count() == 1 && has_room(*former, elements))
    array = std::move(*std::const_pointer_cast<Array>(former));
  former = nullptr;
  array.clear();
  array.resize(elements);
  return array;
}

}  // namespace

FormerArrays former_arrays(const GraphSurface& graph) {
  const GraphProperties& pending = graph.pending;
  return {.x = pending.XData, .y = pending.YData, .x_of_dates = pending.XDataII};
}

FlatArray array_in_place_of(std::shared_ptr<const FlatArray>& former, std::size_t elements) {
  return array_in(former, elements);
}

SampleArray array_in_place_of(std::shared_ptr<const SampleArray>& former, std::size_t elements) {
  return array_in(former, elements);
}

}  // namespace trendaro
