#pragma once

namespace trendaro {

struct Model;

// Brings the whole recording of every plot into the survey graph and works out the limits of the zoom box.
void RedrawSurvGraph(Model& model, bool settings_only);

}  // namespace trendaro
