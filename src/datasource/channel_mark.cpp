#include "datasource/channel_mark.h"

#include <cmath>

#include "app/attempt.h"
#include "app/commands.h"
#include "app/model.h"
#include "app/numbers.h"
#include "app/toolbar.h"
#include "datasource/plot_list.h"
#include "datasource/survey_presence.h"
#include "graph/data_zoom.h"
#include "graph/main_redraw.h"
#include "graph/survey_redraw.h"

namespace trendaro {
namespace {

// The samples of the section from `first` to `last` in x units; nothing while no curve has given the display
// a step.
std::optional<i32> section_points(const Model& model, f64 first, f64 last) {
  std::optional<i32> points;
  if (model.CompressedDXMax == 0) return points;
  attempt(
      [&] { points = round_to_i32((last - first) * model.ActiveReduceFactor / 2 / model.CompressedDXMax); });
  return points;
}

// A zoom that has come to lie behind the end of the data is left; another one keeps its section.
void zoom_again(Model& model) {
  if (model.NofPlots == 0) return;
  const GraphProperties& survey = model.PESGSurvey.pending;
  const auto points =
      section_points(model, survey.ManualMinX + model.SurveyMarginX, survey.ManualMaxX - model.SurveyMarginX);
  if (!points || std::nearbyint(ParseNumber(model.controls["ZoomPointsBox"].text)) > *points)
    return reset_zoom(model);
  GraphProperties& graph = model.PESG.pending;
  graph.ZoomActive = true;
  graph.ZoomMinX = model.ZoomXMin;
  graph.ZoomMaxX = model.ZoomXMax;
  DataZoom(model);
}

void show_points(Model& model) {
  if (const auto points = window_points(model)) model.MaxViewPoints = *points;
  if (model.Zoomed)
    zoom_again(model);
  else
    model.controls["ZoomPointsBox"].text = std::to_string(model.MaxViewPoints);
}

void redraw_survey(Model& model) {
  if (!model.controls["mnuShowSurvGraph"].enabled) bring_survey_back(model);
  RedrawSurvGraph(model, false);
  ReducFormatGUI(model, false);
}

void release_tools_without_plots(Model& model) {
  for (const char* tool : {"TB_ZOOMHORZ", "TB_ZOOMVERT", "TB_ZOOMRECT"}) press_tool(model, tool, false);
  model.controls["ZoomPointsBox"].back_color = kWhite;
  for (const char* entry : {"mnuDBOffset", "mnuXUnit", "mnuNullValues"}) enable_control(model, entry, true);
}

// A plain curve beside the envelopes of a zoom ends their original samples: the box counts those of the
// curve.
void show_plain_points(Model& model) {
  model.controls["ZoomPointsBox"].back_color = kYellow;
  model.controls["ZoomPointsBox"].text = number_text(i64{model.MaxPlotPoints});
}

void redraw_after_mark(Model& model) {
  // The new plots stand on their reduced files; the zoom brings the samples in again.
  model.OriginalDataMode = false;
  const bool counted_originals = model.controls["ZoomPointsBox"].back_color == kGreen;
  if (model.Zoomed && model.ActiveLayersChanged) reset_zoom(model);
  RedrawKMGraph(model, false);
  if (model.HasFullDataPlot)
    hide_survey(model);
  else
    redraw_survey(model);
  if (model.NofPlots == 0) release_tools_without_plots(model);
  if (!model.HasFullDataPlot)
    show_points(model);
  else if (counted_originals)
    show_plain_points(model);
}

}  // namespace

std::optional<i32> window_points(const Model& model) {
  return section_points(model, model.ZoomXMin, model.ZoomXMax);
}

void mark_channel(Model& model, i32 row) {
  const i16 index = mark_index(model.Grid.rows[row].mark);
  model.LastClickedRow = row;
  set_mark(model.Grid, row, {index, model.CurrentLayer, model.CurrentSide});
  model.CurveCache.resize(static_cast<std::size_t>(model.NofPlots) + 1);
  // In a section the redraw zooms in x alone, for as long as it lasts. The mode of before comes back even
  // when the redraw has left the section.
  const i16 zooming = model.PESG.pending.AllowZooming;
  const bool was_zoomed = model.Zoomed;
  if (was_zoomed) model.PESG.pending.AllowZooming = 1;
  RebuildPlotList(model);
  redraw_after_mark(model);
  if (was_zoomed) model.PESG.pending.AllowZooming = zooming;
}

void unmark_channel(Model& model, i32 row) {
  clear_mark(model.Grid, row);
  RebuildPlotList(model);
  model.MaxViewPoints = 0;
  redraw_after_mark(model);
}

}  // namespace trendaro
