#include "graph/titles.h"

#include <cstddef>

#include "app/model.h"

namespace trendaro {
namespace {

constexpr i16 kLayers = 3;

bool is_main(const Model& model, const GraphSurface& graph) {
  return graph.Handle == model.PESG.Handle;
}

// Title of the y axis `index`: 0 to 2 left axes of the layers, 3 to 5 right ones.
std::string y_title(const Model& model, bool main_graph, std::size_t index) {
  if (model.NoYTitle) return {};
  if (model.AxisAutoTitle) return model.AxisUnits[index];
  return main_graph ? model.MainAxisTitles[index] : model.SurveyAxisTitles[index];
}

// Calls `use(layer)` with the working axis on each layer on show. The detail graph counts its axes from the
// first layer on show, the survey graph shows all layers.
template <typename Use>
void for_layers_on_show(const Model& model, GraphSurface& graph, Use&& use) {
  const bool main_graph = is_main(model, graph);
  i16 axis = 0;
  for (i16 layer = 0; layer < kLayers; ++layer) {
    if (main_graph && (layer < model.FirstLayer || layer > model.LastLayer)) continue;
    graph.pending.WorkingAxis = main_graph ? axis : layer;
    use(static_cast<std::size_t>(layer));
    ++axis;
  }
}

void write_left_titles(const Model& model, GraphSurface& graph) {
  const bool main_graph = is_main(model, graph);
  if (model.LayerPlotCount[2] < 1 && model.LayerPlotCount[3] < 1) {
    graph.pending.WorkingAxis = 0;
    graph.layer().YAxisLabel = y_title(model, main_graph, 0);
    return;
  }
  for_layers_on_show(model, graph, [&](std::size_t layer) {
    if (model.LayerPlotCount[layer + 1] < 1) return;
    set_element(graph.pending.MultiAxesSubsets, graph.pending.WorkingAxis, model.LayerPlotCount[layer + 1]);
    graph.layer().YAxisLabel = y_title(model, main_graph, layer);
  });
}

void write_right_titles(const Model& model, GraphSurface& graph) {
  const bool main_graph = is_main(model, graph);
  for_layers_on_show(model, graph, [&](std::size_t layer) {
    const bool used = model.LayerRightPlotCount[layer + 1] >= 1;
    graph.layer().ShowRYAxis = used;
    if (used) graph.layer().RYAxisLabel = y_title(model, main_graph, layer + 3);
  });
}

const char* kind_of_data(const Model& model) {
  if (model.HasFullDataPlot) return "unkomprimierte Daten";
  return model.OriginalDataMode ? "originale Daten" : "komprimierte Daten";
}

// A line framed by bars is centred; one that has bars already is divided as its writer wanted.
void write_line(std::string& stored, std::vector<std::string>& lines, i32 index) {
  if (stored.empty()) return;
  if (stored.find('|') == std::string::npos) stored = "|" + stored + "|";
  set_element(lines, index, stored);
}

}  // namespace

void SetAxisTitles(Model& model, GraphSurface& graph) {
  if (model.AxisAutoTitle) graph.pending.XAxisLabel = model.XTitle;
  write_left_titles(model, graph);
  write_right_titles(model, graph);
  PEactions(graph, kRedrawFromSettings);
}

void SetGraphTitles(Model& model, GraphSurface& graph) {
  GraphProperties& pending = graph.pending;
  const bool main_graph = is_main(model, graph);
  auto& titles = main_graph ? model.MainTitles : model.SurveyTitles;
  set_element(pending.MultiSubTitles, -1, "0");
  set_element(pending.MultiBottomTitles, -1, "0");
  if (main_graph) titles[1] = kind_of_data(model);
  pending.MainTitle = titles[0];
  pending.SubTitle = !main_graph && model.SurveyZoom ? "Zoom" : titles[1];
  for (std::size_t line = 0; line < 10; ++line) {
    write_line(titles[line + 2], pending.MultiSubTitles, static_cast<i32>(line));
    write_line(titles[line + 12], pending.MultiBottomTitles, static_cast<i32>(line));
  }
}

}  // namespace trendaro
