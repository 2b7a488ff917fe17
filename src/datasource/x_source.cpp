#include "app/model.h"
#include "app/raised.h"
#include "app/toolbar.h"
#include "datasource/grid_handlers.h"
#include "datasource/plot_list.h"
#include "datasource/zoom_readout.h"
#include "graph/curve_cache.h"
#include "graph/main_redraw.h"
#include "graph/survey_redraw.h"

namespace trendaro {
namespace {

void choose_active_row(Model& model) {
  const Raised lock(model.ButtonLock);
  const ChannelRow& row = model.Grid.rows[model.Grid.active_row];
  model.XChannel = mark_index(row.mark);
  model.xSrc.entries[1] = {row.name, model.XChannel};
  model.xSrc.ListIndex = kChannelAsX;
}

void redraw_curves(Model& model) {
  RedrawKMGraph(model, false);
  if (!model.HasFullDataPlot) RedrawSurvGraph(model, false);
}

void refuse_without_channel(Model& model) {
  model.shell.show_message(
      "Sie haben noch keinen x-Kanal ausgewählt. Klicken Sie mit der rechten Maustaste auf einen Kanal und "
      "wählen Sie 'Als x-Datensatz verwenden'.",
      kProgramTitle, MessageIcon::None);
  const Raised lock(model.ButtonLock);
  model.xSrc.ListIndex = model.PreviousSource;
}

}  // namespace

void mnuSetX(Model& model) {
  const ChannelRows& list = model.Grid;
  if (!list.rows.has(list.active_row) || !is_channel(list.rows[list.active_row].kind)) return;
  choose_active_row(model);
  if (model.Zoomed) reset_zoom(model);
  free_x_cache(model);
  RebuildPlotList(model);
  redraw_curves(model);
  model.PreviousSource = model.xSrc.ListIndex;
  show_plot_status(model);
}

void click_xSrc(Model& model, i16 index) {
  if (model.ButtonLock || index < kTimeBase || index > kChannelAsX) return;
  model.xSrc.ListIndex = index;
  if (index == kChannelAsX && model.xSrc.entries[1].item_data == 0) return refuse_without_channel(model);
  if (index == model.PreviousSource) return;
  RebuildPlotList(model);
  if ((index == kChannelAsX || model.PreviousSource == kChannelAsX) && model.Zoomed) reset_zoom(model);
  redraw_curves(model);
  if (index == kTimeBase && model.PreviousSource == kChannelAsX)
    if (const auto points = window_points(model))
      model.controls["ZoomPointsBox"].text = std::to_string(*points);
  model.PreviousSource = index;
  show_plot_status(model);
}

}  // namespace trendaro
