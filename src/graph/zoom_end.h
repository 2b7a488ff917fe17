#pragma once

namespace trendaro {

struct Model;

// A rubber band in the main graph has ended; its extents stand in the zoom limits of the graph, the layers
// that it touched in ZoomAxisTop and ZoomAxisBottom.
void end_main_zoom(Model& model);

// The user took the zoom of the main graph back in the graph itself.
void undo_main_zoom(Model& model);

// A rubber band in the survey graph has ended: the section in the main graph follows into the narrower range.
void end_survey_zoom(Model& model);

}  // namespace trendaro
