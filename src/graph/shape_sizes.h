#pragma once

#include "app/types.h"

namespace trendaro {

// Sizes of what stands at a sample, in logical pixels.

inline constexpr f64 kWidestBarDistance = 40;  // samples further apart get no wider bars
inline constexpr f64 kLargestBubble = 16;      // radius
inline constexpr f64 kRibbonDepth = 7;         // to the right and up

// Width of all bars at one sample; `distance` is the least one between two samples.
f64 bar_group_width(f64 distance);

// Radius of the bubble for a value of a curve whose values reach from `-largest` to `largest` at most.
f64 bubble_radius(f64 value, f64 largest);

// Width of symbols by the stored setting: 0 small, 1 medium, 2 large, 3 tiny.
f64 symbol_size(i32 setting);

}  // namespace trendaro
