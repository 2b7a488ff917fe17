#pragma once

#include <vector>

#include "app/types.h"

namespace trendaro {

// One channel of a block file while its values flow by.
struct ReducedChannel {
  i16 points_at = 0;         // place in the target of the number of values
  std::vector<f64> window;   // values that wait for their pair
  std::vector<f64> results;  // pairs found so far, one value after the other
};

// Appends the pair of a window that has reached `block` values to the results; the window starts empty again.
void ReduceBlockWindow(ReducedChannel& channel, i32 block);

}  // namespace trendaro
