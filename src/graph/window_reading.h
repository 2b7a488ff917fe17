#pragma once

#include "graph/curve_readers.h"
#include "graph/time_axis.h"

namespace trendaro {

// Whether the redraw keeps those samples alone that the window of a picture needs. Then nothing but plain
// curves over time is on show, uncompressed and without a cache, so that no other slot has to be sized.
bool reads_window(const Model& model);

// Fills the slot of a plain plot with the samples that the window needs; the slot grows with them. The length
// of a plot that had none (-1) is taken over from its values. The picture's window is told where samples
// between two of its edges were left out. `line_of` gives the line of the curve, as soon as its file has been
// described.
void read_window_samples(CurveTask& task, const std::function<TimeLine()>& line_of);

}  // namespace trendaro
