#pragma once

#include <deque>

#include "graph/graph_surface.h"

namespace trendaro {

// Graphs that have taken over their curves and show, each with its title, what a graph can look like.
using SampleGraphs = std::deque<GraphSurface>;

// Every plotting method, line type and symbol.
SampleGraphs sample_methods();
// Layers, dates, logarithmic and inverted axes, very small and very fine steps, grids.
SampleGraphs sample_axes();
// Titles, legends at every place, annotations and a table, a graph without curves.
SampleGraphs sample_texts();
// Sizes of symbols, further settings of axes, shapes, and more names and lines than there is room for.
SampleGraphs sample_settings();

}  // namespace trendaro
