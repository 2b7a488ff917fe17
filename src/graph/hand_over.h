#pragma once

#include <cstddef>

#include "app/types.h"
#include "datasource/plot_record.h"
#include "graph/draw_arrays.h"

namespace trendaro {

struct Model;
class GraphSurface;

// Name, colour, method, line, symbol and place in the legend of curve `curve`, from 0.
void describe_curve(GraphSurface& graph, const PlotRecord& plot, i32 curve);

// Empties the legend while it is switched off.
void switch_legend(const Model& model, GraphSurface& graph);

// Gives the curves their plotting methods and the graph its style.
void write_graph_style(Model& model, GraphSurface& graph);

// Hands the flat arrays over and leaves them empty. A date axis is switched on here; `time_axis_resets_dates`
// switches it off as well when x is no date.
void hand_over(Model& model, GraphSurface& graph, DrawArrays arrays, bool time_axis_resets_dates);

// Brings what is pending on show and leaves the words for it in the first panel of the status bar.
void show_graph(Model& model, GraphSurface& graph, const char* words);

}  // namespace trendaro
