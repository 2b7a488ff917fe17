#pragma once

#include <vector>

#include "graph/graph_layout.h"

namespace trendaro {

// Places of the legend.
inline constexpr i16 kLegendTop = 0;
inline constexpr i16 kLegendBottom = 1;
inline constexpr i16 kLegendLeft = 2;
inline constexpr i16 kLegendRight = 3;

// Forms of the legend.
inline constexpr i16 kLegendList = 0;      // as many lines as it takes and as there is room for
inline constexpr i16 kLegendOneLine = 1;   // names are cut until one line holds them
inline constexpr i16 kLegendInLayers = 2;  // at the top of each layer, with the layer's curves

// The curves that the legend lists, in order, up to the list's end marker -1.
std::vector<std::size_t> legend_subsets(const GraphProperties& shown);

// Whether the legend takes from the width of the graph.
bool stands_beside(const GraphProperties& shown);

// Places the legend at its side of `room` and takes that room away. Long names are cut in their middle, so
// that there are as many columns as it takes to list all curves; a note tells of those left out. Nothing for
// a legend inside the layers.
void place_legend(const GraphProperties& shown, const TextMeasure& measure, PixelRectangle& room,
                  GraphLayout& layout);

// Lists the curves of each layer in the upper left corner of its area, in the order of the legend. Where it
// does not find room beside the tables inside of the layer, it sends these to the lower corner, cuts its
// names or, in a low layer, leaves the room to them.
void place_legend_in_layers(const GraphProperties& shown, const TextMeasure& measure, GraphLayout& layout);

}  // namespace trendaro
