#pragma once

#include <QPainter>

#include "graph/graph_layout.h"

namespace trendaro {

// Plotting methods.
inline constexpr i32 kMethodLine = 0;
inline constexpr i32 kMethodPoints = 1;
inline constexpr i32 kMethodLineAndPoints = 2;
inline constexpr i32 kMethodBars = 3;
inline constexpr i32 kMethodArea = 4;
inline constexpr i32 kMethodSteps = 10;

// Symbol and line type of a curve; 0 where none is set.
i32 point_type_of(const GraphProperties& shown, std::size_t subset);
i32 line_type_of(const GraphProperties& shown, std::size_t subset);

// Every curve in its layer, in curve order, cut at the layer's edges. What is not known as a method is drawn
// as a line.
void paint_curves(QPainter& painter, const GraphProperties& shown, const GraphLayout& layout);

}  // namespace trendaro
