#pragma once

#include "app/types.h"

namespace trendaro {

// Where the readout of the cursor stands.
inline constexpr i16 kRightOfGraph = 0;
inline constexpr i16 kInsideLayers = 1;

struct CursorDisplay {
  i16 CursorDisplayPos = kRightOfGraph;
};

}  // namespace trendaro
