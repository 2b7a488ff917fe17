#pragma once

#include <vector>

#include "graph/curve_strokes.h"

namespace trendaro {

// Bars without notches of one column: each reaches at least as far as both bars beside it do. A bar fills its
// column alone, though the line that it stands for is wider: a swing of about two columns would come out in
// bands, light where its columns miss each other, while the line leaves nothing free between two bars.
std::vector<PixelRectangle> without_notches(const std::vector<PixelRectangle>& bars, f64 column_width);

}  // namespace trendaro
