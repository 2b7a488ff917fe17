#pragma once

#include <cstddef>
#include <vector>

#include "app/types.h"

namespace trendaro {

// The part of the curves that a picture shows, where nothing else is wanted of them.
struct PictureWindow {
  // x of the edges of the picture, and in a second reading of those of its pixel columns; they rise. Without
  // any all samples are kept.
  std::vector<f64> edges;
  // That are all kept between two edges; of more the first, the lowest, the highest and the last.
  std::size_t most_samples = 0;
  bool thinned = false;  // a redraw came upon more
};

// Samples of one pixel column that are drawn as they are; of more, extremes are as good.
inline constexpr std::size_t kMostOfColumn = 4;

}  // namespace trendaro
