#pragma once

namespace trendaro {

struct Model;

// Turns the marks of the channel list into Plots and SurveyPlots, in the order layer, side, row. What the
// user set on a curve is carried over from the former list by signal and file. The caller redraws.
void RebuildPlotList(Model& model);

// Empties both graphs and keeps the list.
void RemovePlots(Model& model);

// Unmarks everything, frees the caches and redraws both graphs empty.
void ClearGraph(Model& model);

}  // namespace trendaro
