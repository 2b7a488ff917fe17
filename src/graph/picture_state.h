#pragma once

#include <memory>

#include "graph/graph_properties.h"

namespace trendaro {

// What a kept picture of a graph was painted from, without holding its curves in memory.
struct PictureState {
  GraphProperties settings;
  std::weak_ptr<const CurveIndex> data;
};

// The properties of a graph without what is drawn over the kept picture, because it moves with the pointer:
// the place of the cursor and, where they can be gripped, the vertical lines.
GraphProperties without_moving_parts(const GraphProperties& shown, bool with_limit_lines);

PictureState picture_state(const GraphProperties& painted);

// Whether a picture painted from `painted` still holds for other properties.
bool same_picture(const PictureState& painted, const GraphProperties& properties);

}  // namespace trendaro
