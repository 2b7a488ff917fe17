#pragma once

#include "app/types.h"

namespace trendaro {

struct Model;
class GraphSurface;
struct LayerProperties;

// A stretch of an x axis, in its units.
struct XWindow {
  f64 low = 0, high = 0;

  [[nodiscard]] f64 width() const { return high - low; }
};

// Where x begins: the day number of the recording's start on a date axis, otherwise 0.
f64 x_origin(const Model& model);

// An x value in points of the compressed display, counted from the start of the recording. Throws
// RunTimeError{kDivisionByZero} while no curve has given the display a step.
f64 display_points(const Model& model, f64 x);

// The padding at each end of a range that auto-scaling extended by `percent` at both ends.
f64 edge_margin(XWindow range, i16 percent);

// The x range of the data in the survey graph as it is zoomed: without its margins.
XWindow survey_data_range(const Model& model);

// Where a moved section may lie: as above, but from the start of the recording where the survey is not
// zoomed.
XWindow scroll_bounds(const Model& model);

// The section moved by `step`, its width kept; it stops at the ends of `bounds`.
XWindow moved_section(XWindow section, f64 step, XWindow bounds, bool right);

// The section whose end `line` (0 left, 1 right) is pulled to `x`, its width kept; it stops at the ends.
XWindow pulled_section(XWindow section, f64 x, i16 line, XWindow bounds);

// Points of the compressed display whose originals fit into `most` samples, `block` samples a point. The
// nearest number; one less when the rest is above half a block. Throws RunTimeError for a block of no
// samples.
i32 points_within(f64 most, f64 block);

// The y layer whose zoom limits the shared y limits stand for: the first one on show that holds plots.
LayerProperties& zoomed_layer(Model& model, GraphSurface& graph);

}  // namespace trendaro
