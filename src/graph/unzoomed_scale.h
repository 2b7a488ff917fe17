#pragma once

namespace trendaro {

struct Model;

// Keeps the manual scale of the main graph from before a zoom: a compressed view writes over it.
void hold_unzoomed_scale(Model& model);

// Gives the main graph the scale back that was kept, also to layers that the next set-up brings back; nothing
// where none was kept.
void restore_unzoomed_scale(Model& model);

// The zoom has been left: nothing is kept any more, and an x axis that the zoom has held scales itself again.
void forget_unzoomed_scale(Model& model);

// Writes the scale that was kept as the zoom limits of all layers on show, as a rubber band around the whole
// would leave them. False where none was kept.
bool zoom_to_unzoomed_scale(Model& model);

}  // namespace trendaro
