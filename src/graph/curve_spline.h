#pragma once

#include "graph/curve_outline.h"

namespace trendaro {

// The outline with its corners rounded: a smooth line through the same points. Where x goes one way only, y
// stays a function of x. Points closer than three pixels are joined straight, so a dense curve stays as it
// is.
CurveOutline smoothed(const CurveOutline& outline);

}  // namespace trendaro
