#pragma once

#include "app/types.h"

namespace trendaro {

struct Model;

// Entry `index` of the menu "Legende", for both graphs: 0 to 3 above, below, left, right; 4 in the layers;
// 5 none; 7 turns the one-line form on or off. Every entry but 5 brings the legend back.
void choose_legend(Model& model, i16 index);

// Ticks the entry that the detail graph is in; the one-line entry has a tick of its own and keeps it.
void tick_legend(Model& model);

// The entry "mnuLegendPos(Index)".
template <i16 Index>
void mnuLegendPos(Model& model) {
  choose_legend(model, Index);
}

}  // namespace trendaro
