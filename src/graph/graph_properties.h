#pragma once

#include <array>
#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "app/types.h"
#include "files/sample_array.h"

namespace trendaro {

struct CurveFits;
struct CurveIndex;

// Layers that a graph has room for; three of them are on show at most.
inline constexpr std::size_t kGraphLayers = 6;

// Properties of one y layer. Limits are in graph units, colours 0x00BBGGRR, scale kinds 0 automatic, 1
// linear, 2 logarithmic.
struct LayerProperties {
#define LAYER_PROPERTY(number, type, name, initial) type name = initial;
#define LAYER_LIST(number, type, name) std::vector<type> name;
#include "graph/graph_properties.def"

  friend bool operator==(const LayerProperties&, const LayerProperties&) = default;
};

// Tables that a graph can show, index from 0.
inline constexpr std::size_t kGraphTables = 6;

struct TableCell {
  std::string text;  // one line
  i32 color = -1;    // 0x00BBGGRR; -1: that of the table

  friend bool operator==(const TableCell&, const TableCell&) = default;
};

// A table of texts. TableLocation is 6 for the right of the graph, 100 + n for the inside of layer n, from 0.
struct TableProperties {
#define TABLE_PROPERTY(number, type, name, initial) type name = initial;
#include "graph/graph_properties.def"

  std::map<i32, i32> column_widths;                // by column from 0, in characters
  std::map<std::pair<i32, i32>, TableCell> cells;  // by row and column from 0

  friend bool operator==(const TableProperties&, const TableProperties&) = default;
};

// All settings of a graph. The curves' samples are shared and never written after they were handed over.
struct GraphProperties {
#define GRAPH_PROPERTY(number, type, name, initial) type name = initial;
#define GRAPH_LIST(number, type, name) std::vector<type> name;
#include "graph/graph_properties.def"

  std::array<LayerProperties, kGraphLayers> layers;
  std::array<TableProperties, kGraphTables> tables;

  // SubsetCount x PointCount values, curve after curve. Null where nothing was handed over.
#define GRAPH_SAMPLES(number, type, name) std::shared_ptr<const type> name;
#include "graph/graph_properties.def"

  // Extremes of these data, made when they are taken over. Null before.
  std::shared_ptr<const CurveIndex> curve_index;
  // Best fits of the curves whose method draws one. Null where there is none.
  std::shared_ptr<const CurveFits> curve_fits;

  // Curves are the same when they are the same arrays.
  friend bool operator==(const GraphProperties&, const GraphProperties&) = default;
};

// A curve whose plotting method carries this summand belongs to the right y axis of its layer.
inline constexpr i32 kRightAxisMethod = 1000;

// Layer of a curve, both from 0: curves fill the layers in their order by the counts in MultiAxesSubsets;
// without counts all are in layer 0, and curves beyond the counts are in the last layer that has one.
std::size_t layer_of_curve(const GraphProperties& properties, std::size_t curve);

// Whether a curve, from 0, belongs to the right y axis.
bool on_right_axis(const GraphProperties& properties, std::size_t curve);

}  // namespace trendaro
