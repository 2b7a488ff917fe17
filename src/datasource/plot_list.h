#pragma once

#include <vector>

#include "app/types.h"
#include "datasource/mark.h"

namespace trendaro {

struct ChannelRows;
struct Model;

struct MarkedRow {
  i32 row;
  Mark mark;
};

// Turns the marks of the channel list into Plots and SurveyPlots, in the order layer, side, row. What the
// user set on a curve is carried over from the former list by signal and file. The caller redraws.
void RebuildPlotList(Model& model);

// Empties both plot arrays and what is counted of them. ActiveLayers and the caches stay, for a rebuild
// compares with the former ones.
void clear_plot_list(Model& model);

// CurveOffset: the plots of the layers below the first one that a zoom shows.
void count_hidden_plots(Model& model);

// Annotations of plots that have gone go with them, without a question; the others take the colour of theirs.
void follow_plots(Model& model);

// The marked rows of the list in the order of the plots: layer, side, row.
std::vector<MarkedRow> marks_in_plot_order(const ChannelRows& list);

// Empties both graphs and keeps the list.
void RemovePlots(Model& model);

// Unmarks everything, frees the caches and redraws both graphs empty, without zoom and annotations.
void ClearGraph(Model& model);

}  // namespace trendaro
