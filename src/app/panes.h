#pragma once

#include "app/pane_layout.h"

namespace trendaro {

struct Model;

// Adds a state for every pane to the model's controls; AnnoGrid starts hidden.
void add_pane_controls(Model& model);

// Shows or hides the channel list with what belongs to it, and moves the tick of the entry along.
void mnuShowDatasourceGrid(Model& model);

// Shows or hides the survey graph with its separator, and moves the tick of the entry along.
void mnuShowSurvGraph(Model& model);

// The places of all panes for what is visible at the moment. Of `frame` the sizes are read, its flags are
// taken from the controls.
PaneLayout pane_layout(const Model& model, WindowFrame frame, const PaneSplit& split);

// `frame` with its flags brought in line with the controls.
WindowFrame with_visible_panes(const Model& model, WindowFrame frame);

}  // namespace trendaro
