#include "config/look_settings.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "app/model.h"
#include "graph/grid_styles.h"

namespace trendaro {
namespace {

constexpr i16 kLayers = 3;
constexpr i16 kFontSizes = 3;
constexpr i16 kSymbolSizes = 4;
constexpr i16 kNoGrid = 0;

// By entry, the first of which draws no grid.
constexpr std::array<i32, 6> kGridStyles = {-1, kGridSolid, kGridDashed, kGridDotted, kGridPixel, kGridBold};
constexpr std::array<i32, 5> kMinorStyles = {-1, kMinorSolid, kGridDashed, kGridDotted, kGridPixel};

// The class 0 has the largest letters, the entry 0 the smallest.
i32 mirrored_size(i32 size) {
  return kFontSizes - 1 - size;
}

// The entry of a style; below 0 for a style that no entry has.
template <std::size_t Count>
i16 entry_of(const std::array<i32, Count>& styles, i32 style) {
  const auto found = std::find(styles.begin() + 1, styles.end(), style);
  return found == styles.end() ? i16{-1} : static_cast<i16>(std::distance(styles.begin(), found));
}

// A graph without minor lines may still have its minor ticks, as at the start.
i16 minor_grid_entry(const GraphProperties& graph) {
  const bool has_grid = graph.TicksOn && graph.TickSetting != kMinorNone;
  return has_grid ? entry_of(kMinorStyles, graph.TickSetting) : kNoGrid;
}

template <typename Write>
void change_both(Model& model, Write write) {
  for (GraphSurface* graph : {&model.PESG, &model.PESGSurvey}) {
    write(*graph);
    PEactions(*graph, kRedrawFromSettings);
  }
  tick_look(model);
}

}  // namespace

void choose_font_size(Model& model, i16 index) {
  change_both(model, [&](GraphSurface& graph) { graph.pending.FontSizeClass = mirrored_size(index); });
}

void choose_symbol_size(Model& model, i16 index) {
  change_both(model, [&](GraphSurface& graph) { graph.pending.DataPointSize = index; });
}

void choose_grid(Model& model, i16 index) {
  change_both(model, [&](GraphSurface& graph) {
    graph.pending.GridLineControl = index == kNoGrid ? kGridNone : kGridBoth;
    if (index != kNoGrid) graph.pending.GridStyle = kGridStyles[static_cast<std::size_t>(index)];
  });
}

void choose_minor_grid(Model& model, i16 index) {
  const bool on = index != kNoGrid;
  change_both(model, [&](GraphSurface& graph) {
    graph.pending.TicksOn = on;
    for (i16 layer = 0; layer < kLayers; ++layer) {
      graph.pending.WorkingAxis = layer;
      graph.layer().AxisTicksOn = on;
    }
    if (on) graph.pending.TickSetting = kMinorStyles[static_cast<std::size_t>(index)];
  });
}

void tick_look(Model& model) {
  const GraphProperties& graph = model.PESG.pending;
  const bool has_grid = graph.GridLineControl != kGridNone;
  tick_only(model.controls, "mnuFSize", kFontSizes, mirrored_size(graph.FontSizeClass));
  tick_only(model.controls, "mnuSym", kSymbolSizes, graph.DataPointSize);
  tick_only(model.controls, "mnuGridStyle", static_cast<i32>(kGridStyles.size()),
            has_grid ? entry_of(kGridStyles, graph.GridStyle) : kNoGrid);
  tick_only(model.controls, "mnuTicks", static_cast<i32>(kMinorStyles.size()), minor_grid_entry(graph));
}

}  // namespace trendaro
