#pragma once

namespace trendaro {

struct Model;

// Builds the readout of the cursor, in one column right of the main graph or in a table inside each layer,
// and shows it; with `hide` it is switched off.
void ShowCursorDisplay(Model& model, bool hide);

// Fills the readout for the point under the cursor: x, and y of every curve in the curve's colour. Nothing in
// the cursor modes 4 and 5.
void UpdateCursorDisplay(Model& model);

// The readout as a redraw leaves it: on show while a cursor is on.
void refresh_cursor_display(Model& model);

}  // namespace trendaro
