#pragma once

#include "app/types.h"
#include "datasource/plot_record.h"

namespace trendaro {

struct Model;

// Whether the layer of a plot is on show in the main graph.
bool on_show(const Model& model, const PlotRecord& plot);

// Looks at every plot on show and sets ViewPoints, LongestOriginalPoints, LongestPlot, LongestFullPoints and
// what belongs to compression. Returns the number of curves.
i32 size_main_graph(Model& model);

// Sizes the view again for a plain plot whose length turned out only with its values, when it is the longest
// one: the samples of a pair follow from ViewPoints and not from the plot, on purpose.
void size_again(Model& model, i32 points);

// Points of the longest plain plot, in a layer on show or not. Lengths that only a read tells count from then
// on.
i32 longest_plain_plot(const Model& model);

// A count of points that the file can hold. What a header merely claims is bounded by the bytes of the file
// before it sizes memory; small counts stand.
i32 plausible_points(i32 points, const std::string& path);

}  // namespace trendaro
