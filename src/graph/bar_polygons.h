#pragma once

#include <vector>

#include "graph/curve_strokes.h"

namespace trendaro {

// Bars as few closed polygons: bars of neighbouring columns that touch are one, along their upper ends there
// and along their lower ends back. Devices that are scaled later would show the edges between single bars.
// `column_width` is the distance of neighbouring bars; a bar may be several columns wide.
std::vector<std::vector<PixelPoint>> joined_bars(const std::vector<PixelRectangle>& bars, f64 column_width);

}  // namespace trendaro
