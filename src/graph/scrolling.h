#pragma once

namespace trendaro {

struct Model;

// Moves the zoomed section by the points of StepBox; it keeps its width and stops at the ends of the data. In
// the display of original samples the host imports the section anew. Nothing without plots, without a zoom
// and for full data. Throws RunTimeError when the host fails.
void scroll_section(Model& model, bool right);

}  // namespace trendaro
