#pragma once

#include "graph/curve_outline.h"

namespace trendaro {

// The outline with all that lies beyond the box moved to its nearest edge, and with corners where lines cross
// an edge: inside the box nothing moves, so that a filled shape keeps its slopes. Points must be finite.
CurveOutline pressed_into(const PixelRectangle& box, const CurveOutline& outline);

}  // namespace trendaro
