#pragma once

#include <string_view>

namespace trendaro {

struct Model;

// Enter in a text field of the toolbar. PointsBox shows its number as an integer and the zoom jumps to that
// width; nothing without plots. StepBox sets the scroll step and shows it as an integer; a number
// that is too large for a step leaves the old one.
void enter_tool_box(Model& model, std::string_view name);

}  // namespace trendaro
