#pragma once

#include <memory>
#include <vector>

#include "graph/graph_properties.h"

namespace trendaro {

// Hands curves to properties: `x` and `y` hold curve after curve, `points` each.
inline void set_curves(GraphProperties& properties, i32 points, const std::vector<f32>& x,
                       const std::vector<f32>& y) {
  properties.PointCount = points;
  properties.SubsetCount = points == 0 ? 0 : static_cast<i32>(y.size()) / points;
  properties.XData = std::make_shared<const FlatArray>(x.begin(), x.end());
  properties.YData = std::make_shared<const FlatArray>(y.begin(), y.end());
}

}  // namespace trendaro
