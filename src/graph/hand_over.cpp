#include "graph/hand_over.h"

#include <utility>

#include "app/model.h"

namespace trendaro {
namespace {

constexpr i32 kGraphStyleNumber = 0xC20;
constexpr i16 kMethodsOfSubsets = 4;

}  // namespace

void describe_curve(GraphSurface& graph, const PlotRecord& plot, i32 curve) {
  GraphProperties& pending = graph.pending;
  set_element(pending.SubsetLabels, curve, plot_signal(plot));
  set_element(pending.SubsetColors, curve, plot.Color);
  set_element(pending.SubsetPlotMethods, curve,
              plot.PlotMethod + (plot.RightAxis != 0 ? kRightAxisMethod : 0));
  set_element(pending.SubsetLineTypes, curve, plot.LineType);
  set_element(pending.SubsetPointTypes, curve, plot.PointType);
  set_element(pending.SubsetsToLegend, curve, curve);
  if (plot.DisplayStyle == 1) ++pending.SpecialSubsetCount;
}

void switch_legend(const Model& model, GraphSurface& graph) {
  if (!model.NoLegend) return;
  set_element(graph.pending.SubsetsToLegend, -1, 0);
  set_element(graph.pending.SubsetsToLegend, 0, -1);
}

void write_graph_style(Model& model, GraphSurface& graph) {
  graph.pending.PlottingMethod = kMethodsOfSubsets;
  model.LastDatabaseStatus = PEnset(graph, kGraphStyleNumber, model.GraphStyleValue);
}

void hand_over(Model& model, GraphSurface& graph, DrawArrays arrays, bool time_axis_resets_dates) {
  fill_rest(arrays);
  GraphProperties& pending = graph.pending;
  pending.PointCount = static_cast<i32>(arrays.slot_length);
  if (model.DateAxis) {
    pending.UsingXDataII = true;
    pending.DateTimeMode = 1;
    model.LastDatabaseStatus = PEvset(graph, kXDataII, std::move(arrays.DrawXII));
  } else {
    if (time_axis_resets_dates) pending.DateTimeMode = 0;
    model.LastDatabaseStatus = PEvset(graph, kXData, std::move(arrays.DrawX));
  }
  FlatArray& values = arrays.DrawYDatabase.empty() ? arrays.DrawY : arrays.DrawYDatabase;
  model.LastDatabaseStatus = PEvset(graph, kYData, std::move(values));
}

void show_graph(Model& model, GraphSurface& graph, const char* words) {
  model.shell.show_status(1, words);
  PEactions(graph, kTakeOverAndRedraw);
}

}  // namespace trendaro
