#pragma once

#include "app/types.h"

namespace trendaro {

struct Model;

// Puts the two limit lines of the survey graph on the limits of the section on show; of no section, on those
// of the recording. They are hidden for full data, without plots, and with a channel as x axis.
void RedrawSurvAnnotation(Model& model);

// The left button went down on limit line `line`, 0 left and 1 right; nothing without plots.
void grip_limit_line(Model& model, i16 line);

// The pointer moved with a gripped line to `x`, `y` in graph units of the survey. In the compressed display
// the line follows, in that of original samples both lines; they stop at the ends of the data.
void drag_limit_line(Model& model, f64 x, f64 y);

// The left button went up: after a drag the section moves to the lines.
void drop_limit_line(Model& model);

// The drag was given up: the lines go back to the section.
void release_limit_line(Model& model);

}  // namespace trendaro
