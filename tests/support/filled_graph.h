#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

#include "graph/graph_properties.h"
#include "output/template_text.h"

namespace trendaro {

// A value that no property starts with, different for each `seed`.
template <typename T>
T sample_value(int seed) {
  if constexpr (std::is_same_v<T, std::string>)
    return "Größe \"" + std::to_string(seed) + "\"\\x41 = a\nb\r\t" + std::string("\0z\x7F|end\n", 7);
  else if constexpr (std::is_same_v<T, bool>)
    return seed % 2 == 0;
  else if constexpr (std::is_floating_point_v<T>)
    return static_cast<T>(seed * 0.1 + 1.0 / 3);
  else
    return static_cast<T>(-seed - 7);
}

// Every property gets a value of its own; flags alternate, or are all `flags`. Layer and table numbers stay
// within the layers and tables.
inline GraphProperties filled_graph(int seed, std::optional<bool> flags = {}) {
  const auto fill = [&]<typename T>(T& place) {
    place = sample_value<T>(seed++);
    if constexpr (std::is_same_v<T, bool>) place = flags.value_or(place);
  };
  GraphProperties all;
#define GRAPH_PROPERTY(number, type, name, initial) fill(all.name);
#define GRAPH_LIST(number, type, name) \
  all.name = {sample_value<type>(seed), sample_value<type>(seed + 1), sample_value<type>(seed + 2)};
#include "graph/graph_properties.def"
  for (LayerProperties& layer : all.layers) {
#define LAYER_PROPERTY(number, type, name, initial) fill(layer.name);
#define LAYER_LIST(number, type, name) layer.name = {sample_value<type>(seed), sample_value<type>(seed + 1)};
#include "graph/graph_properties.def"
  }
  for (TableProperties& table : all.tables) {
#define TABLE_PROPERTY(number, type, name, initial) fill(table.name);
#include "graph/graph_properties.def"
  }
  all.WorkingAxis = 2;
  all.FirstVisibleAxis = 1;
  all.WorkingTable = 4;
  return all;
}

using PropertyTexts = std::map<std::string, std::string>;

// All properties by name, as texts. Names of a layer begin with "layer 0 " and so on, those of a table with
// "table 0 ".
inline PropertyTexts property_texts(const GraphProperties& graph) {
  PropertyTexts texts;
  const auto take = [&](const std::string& name, const auto& value) { append_value(texts[name], value); };
#define GRAPH_PROPERTY(number, type, name, initial) take(#name, graph.name);
#define GRAPH_LIST(number, type, name) take(#name, graph.name);
#include "graph/graph_properties.def"
  for (std::size_t i = 0; i < kGraphLayers; ++i) {
    const std::string prefix = "layer " + std::to_string(i) + " ";
#define LAYER_PROPERTY(number, type, name, initial) take(prefix + #name, graph.layers[i].name);
#define LAYER_LIST(number, type, name) take(prefix + #name, graph.layers[i].name);
#include "graph/graph_properties.def"
  }
  for (std::size_t i = 0; i < kGraphTables; ++i) {
    const std::string prefix = "table " + std::to_string(i) + " ";
#define TABLE_PROPERTY(number, type, name, initial) take(prefix + #name, graph.tables[i].name);
#include "graph/graph_properties.def"
  }
  return texts;
}

}  // namespace trendaro
