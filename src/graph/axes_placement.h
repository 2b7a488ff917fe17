#pragma once

#include "graph/graph_layout.h"
#include "graph/title_layout.h"

namespace trendaro {

// What stands around the curves of a graph. Where the room is short, parts are given up.
struct Surroundings {
  bool legend = true, table = true;
  f64 title_share = kTitleShare;
  bool x_title = true, y_titles = true;
  bool x_labels = true, y_labels = true;
};

// Direction in which the curves lack room beside what is still around them; of two the height is told first.
struct RoomShortage {
  bool width = false, height = false;
};

// Puts layers and axes into the room of the layout, whose layers know their number and their sides. What is
// placed is of use only where nothing is short.
RoomShortage place_axes(const GraphProperties& shown, const TextMeasure& measure,
                        const Surroundings& surroundings, GraphLayout& layout);

}  // namespace trendaro
