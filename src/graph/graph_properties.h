#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "app/types.h"
#include "files/sample_array.h"

namespace trendaro {

struct CurveIndex;

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

  // Extremes of these data, made when they are taken over. Null before.
  std::shared_ptr<const CurveIndex> curve_index;
};

// A curve whose plotting method carries this summand belongs to the right y axis of its layer.
inline constexpr i32 kRightAxisMethod = 1000;

// Layer of a curve, both from 0: curves fill the layers in their order by the counts in MultiAxesSubsets;
// without counts all are in layer 0, and curves beyond the counts are in the last layer that has one.
std::size_t layer_of_curve(const GraphProperties& properties, std::size_t curve);

// Whether a curve, from 0, belongs to the right y axis.
bool on_right_axis(const GraphProperties& properties, std::size_t curve);

}  // namespace trendaro
