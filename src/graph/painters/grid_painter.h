#pragma once

#include <QPainter>

#include "graph/graph_layout.h"

namespace trendaro {

// Values of GridLineControl.
inline constexpr i32 kGridBoth = 0;
inline constexpr i32 kGridOfYAxes = 1;  // level lines only
inline constexpr i32 kGridOfXAxis = 2;  // upright lines only
inline constexpr i32 kGridNone = 3;

// Values of GridStyle, and of TickSetting for the minor grid, which has kMinorSolid for its solid lines and
// shows none with 0.
inline constexpr i32 kGridSolid = 0;
inline constexpr i32 kGridBold = 1;
inline constexpr i32 kGridDotted = 2;
inline constexpr i32 kGridDashed = 3;
inline constexpr i32 kGridPixel = 4;
inline constexpr i32 kMinorSolid = 5;

// The layers' backgrounds.
void paint_backgrounds(QPainter& painter, const GraphProperties& shown, const GraphLayout& layout);

// Minor and major grid lines of all layers, under the curves.
void paint_grid(QPainter& painter, const GraphProperties& shown, const GraphLayout& layout);

}  // namespace trendaro
