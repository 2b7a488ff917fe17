#include "app/attempt.h"
#include "app/model.h"
#include "app/raised.h"
#include "app/toolbar.h"
#include "datasource/grid_handlers.h"
#include "datasource/plot_list.h"
#include "datasource/survey_presence.h"
#include "datasource/x_range.h"
#include "datasource/zoom_readout.h"
#include "graph/curve_cache.h"
#include "graph/main_redraw.h"
#include "graph/survey_redraw.h"
#include "graph/unzoomed_scale.h"

namespace trendaro {
namespace {

void redraw_both(Model& model) {
  RedrawKMGraph(model, false);
  RedrawSurvGraph(model, false);
}

void unmark_all(Model& model) {
  const Raised lock(model.ButtonLock);
  while (!model.Grid.marked.empty()) clear_mark(model.Grid, *model.Grid.marked.begin());
}

void forget_plots(Model& model) {
  clear_plot_list(model);
  follow_plots(model);
  model.ActiveLayers = 0;
  model.gMultiLayer = false;
}

void forget_zoom(Model& model) {
  release_tools_without_plots(model);
  model.controls["ZoomPointsBox"].text = "0";
}

// A survey that a plain curve had hidden cannot be asked for by the user.
void show_hidden_survey(Model& model) {
  if (model.controls["mnuShowSurvGraph"].enabled) return;
  bring_survey_back(model);
  ReducFormatGUI(model, false);
}

}  // namespace

void RemovePlots(Model& model) {
  const i16 count = model.NofPlots;
  model.NofPlots = 0;
  attempt([&] { redraw_both(model); });
  model.NofPlots = count;
  clear_x_range(model.PESG);
  clear_x_range(model.PESGSurvey);
}

void ClearGraph(Model& model) {
  if (model.Zoomed) reset_zoom(model);
  forget_plots(model);
  free_curve_caches(model);
  unmark_all(model);
  forget_zoom(model);
  show_hidden_survey(model);
  redraw_in_unzoomed_scale(model);
  RedrawSurvGraph(model, false);
  show_plot_status(model);
}

}  // namespace trendaro
