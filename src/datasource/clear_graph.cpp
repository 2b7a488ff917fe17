#include "app/attempt.h"
#include "app/model.h"
#include "app/raised.h"
#include "app/toolbar.h"
#include "datasource/plot_list.h"
#include "datasource/x_range.h"
#include "graph/curve_cache.h"
#include "graph/main_redraw.h"
#include "graph/survey_redraw.h"

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
  model.Plots.clear();
  model.SurveyPlots.clear();
  model.NofPlots = 0;
  free_curve_caches(model);
  unmark_all(model);
  redraw_both(model);
  model.shell.show_status(2, "");
}

}  // namespace trendaro
