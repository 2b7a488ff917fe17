#include "app/model.h"
#include "app/toolbar.h"
#include "graph/main_redraw.h"
#include "graph/survey_redraw.h"

// Redraws that say no more than that they ran.
namespace trendaro {

void RedrawKMGraph(Model& model, bool) {
  model.shell.show_status(1, "Hauptgraphik wird aktualisiert...");
}

void RedrawSurvGraph(Model& model, bool) {
  model.shell.show_status(1, "Übersichtsgraphik wird aktualisiert...");
}

void reset_zoom(Model& model) {
  if (model.NofPlots > 0) model.Zoomed = false;
}

}  // namespace trendaro
