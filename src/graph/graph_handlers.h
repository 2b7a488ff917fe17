#pragma once

#include "graph/graph_event.h"
#include "graph/graph_surface.h"

namespace trendaro {

struct Model;

// Does what follows from what the user did with one of the two graphs of the model.
void handle_graph_event(Model& model, const GraphSurface& graph, const GraphEvent& event);

// Whether an event comes with every step of the pointer, and leaves only the graph and the text fields of the
// toolbar changed.
bool is_pointer_step(const GraphEvent& event);

}  // namespace trendaro
