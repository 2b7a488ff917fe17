#include "graph/rubber_band.h"

#include <algorithm>

namespace trendaro {
namespace {

constexpr f64 kLeastBand = 4;  // pixels; a smaller one was a click with an unsteady hand

struct Range {
  f64 low = 0, high = 0;
};

Range range_between(const AxisScale& scale, f64 first_pixel, f64 last_pixel) {
  const f64 a = value_of(scale, first_pixel);
  const f64 b = value_of(scale, last_pixel);
  return {std::min(a, b), std::max(a, b)};
}

Range whole_range(const AxisScale& scale) {
  return {scale.minimum, scale.maximum};
}

// The part of the layer's height that the band covers; low above high where it covers none.
Range covered_height(const LayerLayout& layer, const PixelRectangle& band) {
  return {std::max(layer.area.y, band.y), std::min(layer.area.bottom(), band.bottom())};
}

bool touches(const LayerLayout& layer, const PixelRectangle& band) {
  const Range covered = covered_height(layer, band);
  return covered.high - covered.low >= std::min(kLeastBand, layer.area.height);
}

bool is_meant(i16 mode, const PixelRectangle& band) {
  const bool wide = mode == kZoomVertical || band.width >= kLeastBand;
  const bool high = mode == kZoomHorizontal || band.height >= kLeastBand;
  return wide && high;
}

void write_layer(LayerProperties& properties, const LayerLayout& layer, const PixelRectangle& band) {
  Range left = whole_range(layer.left.scale);
  Range right = whole_range(layer.right.scale);
  if (touches(layer, band)) {
    const Range covered = covered_height(layer, band);
    left = range_between(layer.left.scale, covered.low, covered.high);
    right = range_between(layer.right.scale, covered.low, covered.high);
  }
  properties.ZoomMinY = left.low;
  properties.ZoomMaxY = left.high;
  properties.ZoomMinRY = right.low;
  properties.ZoomMaxRY = right.high;
}

// The lowest and the highest number of the layers that the band touches; false where it touches none.
bool touched_layers(const GraphLayout& layout, const PixelRectangle& band, i16& lowest, i16& highest) {
  bool any = false;
  for (const LayerLayout& layer : layout.layers) {
    if (!touches(layer, band)) continue;
    const auto number = static_cast<i16>(layer.layer);
    lowest = any ? std::min(lowest, number) : number;
    highest = any ? std::max(highest, number) : number;
    any = true;
  }
  return any;
}

}  // namespace

PixelRectangle layers_rectangle(const GraphLayout& layout) {
  if (layout.layers.empty()) return {};
  PixelRectangle all = layout.layers.front().area;
  all.height = layout.layers.back().area.bottom() - all.y;
  return all;
}

PixelRectangle rubber_band(const GraphLayout& layout, i16 mode, PixelPoint start, PixelPoint now) {
  PixelRectangle band = layers_rectangle(layout);
  const PixelRectangle all = band;
  if (mode != kZoomVertical) {
    band.x = std::clamp(std::min(start.x, now.x), all.x, all.right());
    band.width = std::clamp(std::max(start.x, now.x), all.x, all.right()) - band.x;
  }
  if (mode != kZoomHorizontal) {
    band.y = std::clamp(std::min(start.y, now.y), all.y, all.bottom());
    band.height = std::clamp(std::max(start.y, now.y), all.y, all.bottom()) - band.y;
  }
  return band;
}

bool zoom_into(GraphSurface& graph, const GraphLayout& layout, i16 mode, const PixelRectangle& band) {
  i16 lowest = 0;
  i16 highest = 0;
  if (!layout.has_axes || !is_meant(mode, band) || !touched_layers(layout, band, lowest, highest))
    return false;
  const AxisScale& x_scale = layout.x_axis.scale;
  const Range x = mode == kZoomVertical ? whole_range(x_scale) : range_between(x_scale, band.x, band.right());
  if (!(x.high > x.low)) return false;
  graph.pending.ZoomMinX = x.low;
  graph.pending.ZoomMaxX = x.high;
  for (const LayerLayout& layer : layout.layers) write_layer(graph.pending.layers[layer.layer], layer, band);
  graph.pending.ZoomAxisBottom = lowest;
  graph.pending.ZoomAxisTop = highest;
  graph.pending.ZoomActive = true;
  PEactions(graph, kRedrawFromSettings);
  return true;
}

bool undo_zoom(GraphSurface& graph) {
  const bool zoomed = graph.pending.ZoomActive || graph.curves_of_section;
  if (!zoomed || graph.pending.AllowZooming == kZoomOff) return false;
  PEactions(graph, kLeaveZoom);
  return true;
}

}  // namespace trendaro
