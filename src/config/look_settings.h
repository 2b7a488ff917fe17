#pragma once

#include "app/types.h"

namespace trendaro {

struct Model;

// Menu entries that change the look of both graphs, redraw them from their settings and tick themselves.

void choose_font_size(Model& model, i16 index);    // 0 small, 1 medium, 2 large
void choose_symbol_size(Model& model, i16 index);  // 0 small, 1 medium, 2 large, 3 tiny
// 0 none, which leaves the style as it is; 1 solid, 2 dashed, 3 dotted, 4 pixels, 5 bold.
void choose_grid(Model& model, i16 index);
// 0 none, together with the ticks between the labels; 1 solid, 2 dashed, 3 dotted, 4 pixels.
void choose_minor_grid(Model& model, i16 index);

// Ticks the entries that the detail graph is in.
void tick_look(Model& model);

// The entries of those names.
template <i16 Index>
void mnuFSize(Model& model) {
  choose_font_size(model, Index);
}
template <i16 Index>
void mnuSym(Model& model) {
  choose_symbol_size(model, Index);
}
template <i16 Index>
void mnuGridStyle(Model& model) {
  choose_grid(model, Index);
}
template <i16 Index>
void mnuTicks(Model& model) {
  choose_minor_grid(model, Index);
}

}  // namespace trendaro
