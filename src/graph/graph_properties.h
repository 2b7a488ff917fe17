#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "app/types.h"
#include "files/sample_array.h"

namespace trendaro {

// Layers that a graph has room for; three of them are on show at most.
inline constexpr std::size_t kGraphLayers = 6;

// Properties of one y layer. Limits are in graph units, colours 0x00BBGGRR, scale kinds 0 automatic, 1
// linear, 2 logarithmic.
struct LayerProperties {
#define LAYER_PROPERTY(number, type, name, initial) type name = initial;
#include "graph/graph_properties.def"
};

// All settings of a graph. The curves' samples are shared and never written after they were handed over.
struct GraphProperties {
#define GRAPH_PROPERTY(number, type, name, initial) type name = initial;
#define GRAPH_LIST(number, type, name) std::vector<type> name;
#include "graph/graph_properties.def"

  std::array<LayerProperties, kGraphLayers> layers;

  // SubsetCount x PointCount values, curve after curve. Null where nothing was handed over.
  std::shared_ptr<const FlatArray> XData;
  std::shared_ptr<const FlatArray> YData;
  std::shared_ptr<const SampleArray> XDataII;  // in place of XData while UsingXDataII
};

}  // namespace trendaro
