#pragma once

#include "app/types.h"

namespace trendaro {

struct Model;

// Marks the channel in `row` with the layer and side of the toolbar, or takes its mark away; the plots and
// both graphs follow.
void mark_channel(Model& model, i32 row);
void unmark_channel(Model& model, i32 row);

}  // namespace trendaro
