#pragma once

#include <QPen>
#include <vector>

#include "app/types.h"

namespace trendaro {

// A solid pen in the width of a curve by its stored line type: 0 to 4 thin in five patterns, 5 medium, 6
// bold, 9 medium thin, 10 medium strong, 11 extra bold. Unknown numbers are thin.
QPen line_pen(i32 line_type, const QColor& color);

// Lengths of dash and gap of a line type in logical pixels; empty for solid lines.
std::vector<f64> dash_pattern(i32 line_type);

}  // namespace trendaro
