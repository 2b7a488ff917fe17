#include "graph/bar_notches.h"

#include <algorithm>
#include <cmath>

namespace trendaro {

std::vector<PixelRectangle> without_notches(const std::vector<PixelRectangle>& bars, f64 column_width) {
  std::vector<PixelRectangle> closed = bars;
  const auto is_next = [&](const PixelRectangle& bar, const PixelRectangle& other) {
    return std::abs(std::abs(other.x - bar.x) - column_width) < column_width / 2;
  };
  for (std::size_t i = 1; i + 1 < bars.size(); ++i) {
    const PixelRectangle& former = bars[i - 1];
    const PixelRectangle& next = bars[i + 1];
    if (!is_next(bars[i], former) || !is_next(bars[i], next)) continue;
    const f64 top = std::min(bars[i].y, std::max(former.y, next.y));
    const f64 bottom = std::max(bars[i].bottom(), std::min(former.bottom(), next.bottom()));
    closed[i].y = top;
    closed[i].height = bottom - top;
  }
  return closed;
}

}  // namespace trendaro
