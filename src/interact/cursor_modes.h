#pragma once

namespace trendaro {

struct Model;

void mnuCursorOff(Model& model);
void mnuVertCursor(Model& model);
void mnuCrossCursor(Model& model);
void mnuSquareCursor(Model& model);

// The toolbar's button: switches the cursor off, or the cross on.
void click_cursor_button(Model& model);

// Where the readout stands; one on show moves there at once.
void mnuCursorPosRight(Model& model);
void mnuCursorPosInAxis(Model& model);

// Brings the button and the entries in line with the mode of the graph and the place of the readout.
void show_cursor_mode(Model& model);

}  // namespace trendaro
