#pragma once

#include "app/types.h"

namespace trendaro {

// Values of GridLineControl.
inline constexpr i32 kGridBoth = 0;
inline constexpr i32 kGridOfYAxes = 1;  // level lines only
inline constexpr i32 kGridOfXAxis = 2;  // upright lines only
inline constexpr i32 kGridNone = 3;

// Values of GridStyle, and of TickSetting for the minor grid, which has values of its own for no lines and
// for solid ones.
inline constexpr i32 kGridSolid = 0;
inline constexpr i32 kGridBold = 1;
inline constexpr i32 kGridDotted = 2;
inline constexpr i32 kGridDashed = 3;
inline constexpr i32 kGridPixel = 4;
inline constexpr i32 kMinorNone = 0;
inline constexpr i32 kMinorSolid = 5;

}  // namespace trendaro
