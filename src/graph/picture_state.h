#pragma once

#include <memory>

#include "graph/graph_properties.h"
#include "graph/table_layout.h"

namespace trendaro {

// What a kept picture of a graph's curves was painted from, without holding the curves in memory. What is
// drawn over the picture does not count: the place of the cursor, annotations, limit lines, the contents of
// tables.
struct PictureState {
  GraphProperties settings;              // without samples, and without what is drawn over the picture
  TableExtents tables;                   // that take room from curves or legend
  std::weak_ptr<const CurveIndex> data;  // expired or another one behind a new hand-over
};

// The state of a picture painted from these properties.
PictureState picture_state(const GraphProperties& painted);

// Whether a picture painted from `painted` still holds for other properties.
bool same_picture(const PictureState& painted, const GraphProperties& properties);

}  // namespace trendaro
