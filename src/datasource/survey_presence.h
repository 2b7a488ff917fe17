#pragma once

namespace trendaro {

struct Model;

// Plots of full data have no survey: it is hidden, and what belongs to it is taken away.
void hide_survey(Model& model);

// Reduced plots alone: the survey shows again, and the detail graph has no scroll bars of its own, since
// every move passes through the original data.
void bring_survey_back(Model& model);

}  // namespace trendaro
