#pragma once

#include <QPen>

#include "app/types.h"

namespace trendaro {

// The pen of a curve by its stored line type: 0 to 4 thin in five patterns, 5 medium, 6 bold, 9 medium thin,
// 10 medium strong, 11 extra bold. Unknown numbers are thin and solid.
QPen line_pen(i32 line_type, const QColor& color);

}  // namespace trendaro
