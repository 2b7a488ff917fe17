#pragma once

#include "app/types.h"

namespace trendaro {

struct Model;

// Keeps the settings of the y axes that leave the main graph, those of the layers `first_hidden` to
// FirstZoomLayer - 1. `first_hidden` is the layer that the graph shows first at the moment.
void StoreAxesSettings(Model& model, i16 first_hidden);

// The next set-up of the main graph shows the layers from FirstZoomLayer on, each with the axes and the zoom
// limits that it had. `hidden` layers leave.
void shift_layers_down(Model& model, i16 hidden);

// The next set-up of the main graph brings the layers back that had left, with the axes that were kept.
void bring_layers_back(Model& model);

}  // namespace trendaro
