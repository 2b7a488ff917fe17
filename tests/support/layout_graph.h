#pragma once

#include <string>
#include <vector>

#include "graph/graph_layout.h"
#include "graph/graph_surface.h"
#include "support/fixed_measure.h"

namespace trendaro {

// A graph with curves of two points from (0, 0) to (10, 10).
inline GraphSurface graph_with(i32 curves) {
  GraphSurface graph(1);
  graph.pending.SubsetCount = curves;
  graph.pending.PointCount = 2;
  graph.pending.AutoPadPercent = 0;
  FlatArray values;
  for (i32 i = 0; i < curves; ++i) {
    values.insert(values.end(), {0, 10});
    set_element(graph.pending.SubsetLabels, i, "Kurve " + std::to_string(i + 1));
    set_element(graph.pending.SubsetsToLegend, i, i);
    set_element(graph.pending.SubsetPlotMethods, i, 0);
  }
  PEvset(graph, kXData, FlatArray(values));
  PEvset(graph, kYData, FlatArray(values));
  PEactions(graph, kTakeOverAndRedraw);
  return graph;
}

inline GraphLayout layout_of(const GraphSurface& graph, f64 width = 700, f64 height = 400) {
  return graph_layout(graph.shown(), width, height, FixedMeasure());
}

inline bool overlap(const PixelRectangle& one, const PixelRectangle& other) {
  return one.x < other.right() - 0.5 && other.x < one.right() - 0.5 && one.y < other.bottom() - 0.5 &&
         other.y < one.bottom() - 0.5;
}

}  // namespace trendaro
