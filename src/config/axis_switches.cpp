#include "config/axis_switches.h"

#include "app/model.h"
#include "graph/titles.h"

namespace trendaro {
namespace {

// Turns the tick of an entry over; whether it is on now.
bool turn(Model& model, const char* entry) {
  bool& ticked = model.controls[entry].ticked;
  ticked = !ticked;
  return ticked;
}

// The units of the last redraw are known, so that no data are read for a title.
void write_titles(Model& model) {
  SetAxisTitles(model, model.PESG);
  SetAxisTitles(model, model.PESGSurvey);
}

}  // namespace

void mnuAxAutoTitle(Model& model) {
  model.AxisAutoTitle = turn(model, "mnuAxAutoTitle");
  write_titles(model);
}

void mnuNoYTitle(Model& model) {
  model.NoYTitle = turn(model, "mnuNoYTitle");
  write_titles(model);
}

void mnuAutoScaleData(Model& model) {
  const bool on = turn(model, "mnuAutoScaleData");
  for (GraphSurface* graph : {&model.PESG, &model.PESGSurvey}) {
    graph->pending.AutoScaleData = on;
    PEactions(*graph, kRedrawFromSettings);
  }
}

}  // namespace trendaro
