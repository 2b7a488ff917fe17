#include "datasource/survey_presence.h"

#include "app/commands.h"
#include "app/model.h"
#include "app/panes.h"
#include "app/toolbar.h"

namespace trendaro {

void hide_survey(Model& model) {
  if (model.controls["mnuShowSurvGraph"].ticked) mnuShowSurvGraph(model);
  ReducFormatGUI(model, true);
}

void bring_survey_back(Model& model) {
  enable_control(model, "mnuShowSurvGraph", true);
  if (!model.controls["mnuShowSurvGraph"].ticked) mnuShowSurvGraph(model);
  model.PESG.pending.ScrollingHorzZoom = false;
  model.PESG.pending.ScrollingVertZoom = false;
}

}  // namespace trendaro
