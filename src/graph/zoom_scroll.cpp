#include "graph/zoom_scroll.h"

#include <algorithm>
#include <cmath>

#include "graph/graph_scale.h"

namespace trendaro {
namespace {

constexpr f64 kWhole = 1 - 1e-9;  // a section of this part has nothing to scroll to

// A section of an axis inside its whole, measured along the axis as it is drawn: 0 to 1.
struct Section {
  AxisScale whole;
  f64 start = 0, length = 1;
  bool turned = false;  // values fall in the direction of the scroll bar
};

// The whole range with pixels 0 to 1, so that places along it are parts of it.
AxisScale unit_scale(f64 minimum, f64 maximum, i32 kind) {
  AxisScale scale = make_scale(minimum, maximum, kind);
  scale.first = 0;
  scale.last = 1;
  return scale;
}

Section section_of(const AxisScale& whole, f64 low, f64 high, bool turned) {
  Section section{whole, 0, 1, turned};
  const f64 start = pixel_of(whole, low);
  const f64 end = pixel_of(whole, high);
  if (!std::isfinite(start) || !std::isfinite(end) || !(end > start)) return section;
  section.start = start;
  section.length = end - start;
  return section;
}

ScrollSpan span_of(const Section& section) {
  if (!(section.length < kWhole)) return {};
  const f64 position = std::clamp(section.start / (1 - section.length), 0.0, 1.0);
  return {true, section.turned ? 1 - position : position, section.length};
}

void move_section(const Section& section, f64 position, f64& low, f64& high) {
  if (!(section.length < kWhole)) return;
  const f64 place = std::clamp(section.turned ? 1 - position : position, 0.0, 1.0);
  const f64 start = place * (1 - section.length);
  low = value_of(section.whole, start);
  high = value_of(section.whole, start + section.length);
}

Section x_section(const GraphProperties& shown) {
  return section_of(unit_scale(shown.ManualMinX, shown.ManualMaxX, shown.XAxisScaleControl), shown.ZoomMinX,
                    shown.ZoomMaxX, shown.InvertedXAxis);
}

// A scroll bar counts downwards, an axis upwards.
Section left_section(const LayerProperties& layer) {
  return section_of(unit_scale(layer.ManualMinY, layer.ManualMaxY, layer.YAxisScaleControl), layer.ZoomMinY,
                    layer.ZoomMaxY, !layer.InvertedYAxis);
}

Section right_section(const LayerProperties& layer) {
  return section_of(unit_scale(layer.ManualMinRY, layer.ManualMaxRY, layer.RYAxisScaleControl),
                    layer.ZoomMinRY, layer.ZoomMaxRY, !layer.InvertedRYAxis);
}

// Whether the zoom of the graph narrows y.
bool narrows_y(const GraphProperties& shown) {
  return shown.ZoomActive && shown.AllowZooming > 1;
}

std::vector<std::size_t> layers_on_show(const GraphProperties& shown) {
  std::vector<std::size_t> layers;
  for (std::size_t layer = 0; layer < kGraphLayers; ++layer)
    if (layer < shown.MultiAxesSubsets.size() && shown.MultiAxesSubsets[layer] > 0) layers.push_back(layer);
  if (layers.empty()) layers.push_back(0);
  return layers;
}

}  // namespace

ScrollSpan horizontal_scroll(const GraphSurface& graph) {
  const GraphProperties& shown = graph.shown();
  if (!graph.pending.ScrollingHorzZoom || !shown.ZoomActive || !(shown.ZoomMaxX > shown.ZoomMinX)) return {};
  if (graph.curves_of_section) return {};  // there is nothing beyond
  return span_of(x_section(shown));
}

ScrollSpan vertical_scroll(const GraphSurface& graph) {
  const GraphProperties& shown = graph.shown();
  if (!graph.pending.ScrollingVertZoom || !narrows_y(shown)) return {};
  for (const std::size_t layer : layers_on_show(shown)) {
    const LayerProperties& settings = shown.layers[layer];
    if (const ScrollSpan span = span_of(left_section(settings)); span.needed) return span;
    if (const ScrollSpan span = span_of(right_section(settings)); span.needed) return span;
  }
  return {};
}

void scroll_horizontally(GraphSurface& graph, f64 position) {
  move_section(x_section(graph.shown()), position, graph.pending.ZoomMinX, graph.pending.ZoomMaxX);
  PEactions(graph, kRedrawFromSettings);
}

void scroll_vertically(GraphSurface& graph, f64 position) {
  for (const std::size_t layer : layers_on_show(graph.shown())) {
    const LayerProperties& shown = graph.shown().layers[layer];
    LayerProperties& pending = graph.pending.layers[layer];
    move_section(left_section(shown), position, pending.ZoomMinY, pending.ZoomMaxY);
    move_section(right_section(shown), position, pending.ZoomMinRY, pending.ZoomMaxRY);
  }
  PEactions(graph, kRedrawFromSettings);
}

}  // namespace trendaro
