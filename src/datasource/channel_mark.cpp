#include "datasource/channel_mark.h"

#include <cmath>

#include "app/commands.h"
#include "app/kept.h"
#include "app/model.h"
#include "app/numbers.h"
#include "app/toolbar.h"
#include "datasource/plot_list.h"
#include "datasource/survey_presence.h"
#include "datasource/zoom_readout.h"
#include "graph/compressed_section.h"
#include "graph/data_zoom.h"
#include "graph/main_redraw.h"
#include "graph/survey_redraw.h"
#include "graph/unzoomed_scale.h"
#include "graph/zoom_arithmetic.h"

namespace trendaro {
namespace {

// What was on show ahead of a mark.
struct FormerView {
  bool originals = false;  // a zoom's original samples
  bool plain = false;      // a plain signal
  bool all_of_x = false;   // a section, if any, that nobody narrowed in x
};

FormerView view_of(const Model& model) {
  const GraphProperties& graph = model.PESG.pending;
  return {.originals = model.OriginalDataMode,
          .plain = model.HasFullDataPlot,
          .all_of_x = graph.ZoomMinX <= graph.ManualMinX && graph.ZoomMaxX >= graph.ManualMaxX};
}

// Data of the survey, zoomed or not.
XWindow whole_survey(const Model& model) {
  const GraphProperties& survey = model.PESGSurvey.pending;
  return {survey.ManualMinX + model.SurveyMarginX, survey.ManualMaxX - model.SurveyMarginX};
}

bool section_lies_behind_data(const Model& model) {
  const XWindow data = whole_survey(model);
  if (model.ZoomXMin >= data.high || model.ZoomXMax <= data.low) return true;
  // Along a channel as x no step tells how many samples the survey's range holds.
  if (model.xSrc.ListIndex == kChannelAsX) return false;
  const auto points = section_points(model, data.low, data.high);
  return !points || std::nearbyint(ParseNumber(model.controls["ZoomPointsBox"].text)) > *points;
}

void show_section(Model& model) {
  GraphProperties& graph = model.PESG.pending;
  graph.ZoomActive = true;
  graph.ZoomMinX = model.ZoomXMin;
  graph.ZoomMaxX = model.ZoomXMax;
}

// A zoom that has come to lie behind the end of the data is left; another one keeps its section.
void zoom_again(Model& model) {
  if (section_lies_behind_data(model)) return reset_zoom(model);
  show_section(model);
  DataZoom(model);
}

// Beside a plain signal the readout need not have counted the section.
void show_points(Model& model, bool was_beside_plain) {
  if (const auto points = window_points(model)) model.MaxViewPoints = *points;
  if (model.Zoomed && model.NofPlots == 0) return;
  if (!model.Zoomed || was_beside_plain)
    model.controls["ZoomPointsBox"].text = std::to_string(model.MaxViewPoints);
  if (model.Zoomed) zoom_again(model);
}

bool graph_has_section(const Model& model) {
  const GraphProperties& graph = model.PESG.pending;
  return model.Zoomed && !zoom_taken_back(model) && graph.ZoomMinX < graph.ZoomMaxX;
}

// To a point of the display, and with the padding of an axis; along a channel as x there are no such points.
bool holds_all(const Model& model, XWindow section, XWindow data) {
  const f64 point = model.CompressedDXMax;
  return model.xSrc.ListIndex != kChannelAsX && section.low < data.low + point &&
         section.high > data.high - point;
}

// Behind the last plain signal the reduced files have the section of the graph: bands, scroll bars and units
// of full data import nothing, and so leave the section of before in the model.
void take_section_of_graph(Model& model) {
  if (!model.Zoomed || model.NofPlots == 0) return;
  if (!graph_has_section(model)) return reset_zoom(model);
  const XWindow section{model.PESG.pending.ZoomMinX, model.PESG.pending.ZoomMaxX};
  const XWindow data = whole_survey(model);
  const XWindow taken = holds_all(model, section, data) ? data : section;
  model.ZoomXMin = taken.low;
  model.ZoomXMax = taken.high;
}

// A released mode has taken the zoom of the graph back, and the section stands behind it, unless it holds
// nothing of the curves that are left.
void show_plain_section(Model& model, const FormerView& former) {
  GraphProperties& graph = model.PESG.pending;
  if (graph.ZoomActive || compresses_curves(model) || !graph_has_section(model)) return;
  if (former.all_of_x || graph.ZoomMinX >= graph.ManualMaxX || graph.ZoomMaxX <= graph.ManualMinX) return;
  graph.ZoomActive = true;
  PEactions(model.PESG, kRedrawFromSettings);
}

void redraw_survey(Model& model) {
  if (!model.controls["mnuShowSurvGraph"].enabled) bring_survey_back(model);
  RedrawSurvGraph(model, false);
  ReducFormatGUI(model, false);
}

// A compressed section is redrawn in x alone: its y limits, where a band gave it some, are the graph's
// already.
void redraw_section(Model& model) {
  const Kept mode(model.PESG.pending.AllowZooming);
  model.PESG.pending.AllowZooming = 1;
  RedrawKMGraph(model, false);
}

// A zoom of the graph itself acts on y again.
void show_zoom_in_y(Model& model) {
  const GraphProperties& graph = model.PESG.pending;
  if (graph.ZoomActive && graph.AllowZooming > 1) PEactions(model.PESG, kRedrawFromSettings);
}

void redraw_main(Model& model) {
  if (model.NofPlots == 0) return redraw_in_unzoomed_scale(model);
  if (!model.Zoomed) return RedrawKMGraph(model, false);
  redraw_section(model);
}

void redraw_after_mark(Model& model, const FormerView& former) {
  // The new plots stand on their reduced files; the zoom brings the samples in again.
  model.OriginalDataMode = false;
  settle_readout_colour(model);
  // Original samples that come back leave the panels alone.
  if (former.plain && !model.HasFullDataPlot) model.shell.show_status(2, "");
  if (model.Zoomed && model.ActiveLayersChanged) reset_zoom(model);
  // Original samples filled the graph; the reduced curves have their section zoomed.
  if (model.Zoomed && former.originals) show_section(model);
  redraw_main(model);
  if (model.HasFullDataPlot)
    hide_survey(model);
  else
    redraw_survey(model);
  if (model.NofPlots == 0) release_tools_without_plots(model);
  if (model.HasFullDataPlot) {
    show_plain_section(model, former);
    return follow_longest_plain_signal(model);
  }
  if (former.plain) take_section_of_graph(model);
  show_points(model, former.plain);
}

}  // namespace

void mark_channel(Model& model, i32 row) {
  const FormerView former = view_of(model);
  const i16 index = mark_index(model.Grid.rows[row].mark);
  model.LastClickedRow = row;
  set_mark(model.Grid, row, {index, model.CurrentLayer, model.CurrentSide});
  model.CurveCache.resize(static_cast<std::size_t>(model.NofPlots) + 1);
  // In a section the redraw zooms in x alone, for as long as it lasts. The mode of before comes back even
  // when the redraw has left the section.
  {
    const Kept mode(model.PESG.pending.AllowZooming);
    if (model.Zoomed) model.PESG.pending.AllowZooming = 1;
    RebuildPlotList(model);
    redraw_after_mark(model, former);
  }
  show_zoom_in_y(model);
}

void unmark_channel(Model& model, i32 row) {
  const FormerView former = view_of(model);
  clear_mark(model.Grid, row);
  RebuildPlotList(model);
  model.MaxViewPoints = 0;
  redraw_after_mark(model, former);
  show_zoom_in_y(model);
}

}  // namespace trendaro
