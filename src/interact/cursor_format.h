#pragma once

#include <string>

#include "app/types.h"

namespace trendaro {

// A number with digits that follow its size: about four of them, with an exponent from a million on and below
// 0.00001. "0" for zero, "nan", "inf" and "-inf" for what is no finite number.
std::string FormatCursorValue(f64 value);

}  // namespace trendaro
