#pragma once

namespace trendaro {

struct Model;

// Keeps the manual scale of the main graph from before a zoom: a compressed view writes over it.
void hold_unzoomed_scale(Model& model);

// The zoom has been left: the main graph has the scale back that a compressed view has written over, also in
// layers that the next set-up brings back; an x axis that the zoom has held scales itself again. Nothing is
// kept any more, limits of the zoom neither.
void end_unzoomed_scale(Model& model);

// The same behind the last curve, where no reset leaves the zoom: layers that had left come back, too. Then
// redraws the main graph.
void redraw_in_unzoomed_scale(Model& model);

// Gives the axes on show the scale back that was kept. It stays kept, for layers that have left come back
// with the end of the zoom only. Nothing changes where none was kept.
void show_unzoomed_scale(Model& model);

}  // namespace trendaro
