#pragma once

#include <optional>

#include "app/types.h"

namespace trendaro {

struct Model;

// Original samples in the section from `first` to `last` in x units; nothing while no curve has given the
// display a step.
std::optional<i32> section_points(const Model& model, f64 first, f64 last);

// The same for the section that the detail graph shows.
std::optional<i32> window_points(const Model& model);

// Green counts original samples and yellow those of a plain signal: behind a new plot list, whose plots stand
// on their files, the readout gives up the colour of what is no longer on show.
void settle_readout_colour(Model& model);

// A yellow readout tells of the longest plain signal that the last redraw has found.
void follow_longest_plain_signal(Model& model);

// An empty list has nothing to zoom: the modes are released, the readout is white, and what a zoom locks is
// free again.
void release_tools_without_plots(Model& model);

}  // namespace trendaro
