#pragma once

#include <string>

#include "graph/text_measure.h"

namespace trendaro {

// The text cut to a width with an ellipsis in its middle, so that start and end tell it from others; empty
// where not even the ellipsis fits.
std::string elided_in_middle(const std::string& text, f64 width, TextRole role, const TextMeasure& measure);

}  // namespace trendaro
