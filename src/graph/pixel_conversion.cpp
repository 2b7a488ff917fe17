#include "graph/pixel_conversion.h"

#include <algorithm>

namespace trendaro {
namespace {

const AxisScale& y_scale(const LayerLayout& layer, bool right) {
  return right ? layer.right.scale : layer.left.scale;
}

f64 distance_to(const PixelRectangle& area, f64 y) {
  return std::max({area.y - y, y - area.bottom(), 0.0});
}

}  // namespace

std::size_t slot_at(const GraphLayout& layout, f64 y) {
  std::size_t nearest = 0;
  for (std::size_t slot = 1; slot < layout.layers.size(); ++slot)
    if (distance_to(layout.layers[slot].area, y) < distance_to(layout.layers[nearest].area, y))
      nearest = slot;
  return nearest;
}

GraphPlace PEconvpixeltograph(const GraphLayout& layout, PixelPoint pixel, bool right) {
  if (layout.layers.empty()) return {};
  const LayerLayout& layer = layout.layers[slot_at(layout, pixel.y)];
  return {value_of(layout.x_axis.scale, pixel.x), value_of(y_scale(layer, right), pixel.y),
          static_cast<i16>(layer.layer), right};
}

PixelPoint PEconvpixeltograph(const GraphLayout& layout, const GraphPlace& place) {
  if (layout.layers.empty()) return {};
  const auto found = std::find_if(layout.layers.begin(), layout.layers.end(), [&](const LayerLayout& layer) {
    return static_cast<i16>(layer.layer) == place.layer;
  });
  const LayerLayout& layer = found == layout.layers.end() ? layout.layers.front() : *found;
  return {pixel_of(layout.x_axis.scale, place.x), pixel_of(y_scale(layer, place.right), place.y)};
}

}  // namespace trendaro
