#pragma once

#include <optional>

#include "app/types.h"

namespace trendaro {

struct Model;

// Marks the channel in `row` with the layer and side of the toolbar, or takes its mark away; the plots and
// both graphs follow.
void mark_channel(Model& model, i32 row);
void unmark_channel(Model& model, i32 row);

// Original samples in the section that the detail graph shows; nothing while no curve has given the display a
// step.
std::optional<i32> window_points(const Model& model);

}  // namespace trendaro
