#pragma once

namespace trendaro {

struct Model;

// Moves the zoomed section by the points of StepBox; it keeps its width and stops at the ends of the data. In
// the display of original samples the host imports the section anew. Nothing without plots, without a zoom
// and for full data. Throws RunTimeError when the host fails.
void scroll_section(Model& model, bool right);

// The left or right cursor key, where no pane of the window has taken it: scrolls while the detail graph is
// zoomed and its cursor is off.
void press_cursor_key(Model& model, bool right);

}  // namespace trendaro
