#include "graph/limit_lines.h"

#include <string>

#include "app/attempt.h"
#include "app/model.h"
#include "app/numbers.h"
#include "app/run_time_error.h"
#include "app/toolbar.h"
#include "graph/data_zoom.h"
#include "graph/full_range.h"
#include "graph/main_redraw.h"
#include "graph/section_import.h"
#include "graph/zoom_arithmetic.h"

namespace trendaro {
namespace {

constexpr i16 kHorizontal = 1;
constexpr i16 kBoth = 3;
constexpr i32 kLimitLineType = 6;
constexpr i32 kBlack = 0;

void place_lines(GraphSurface& survey, XWindow section) {
  set_element(survey.pending.VertLineAnnotation, 0, section.low);
  set_element(survey.pending.VertLineAnnotation, 1, section.high);
}

// Empty while no redraw of the survey has placed the lines.
XWindow lines_of(const Model& model) {
  const auto& lines = model.PESGSurvey.pending.VertLineAnnotation;
  return lines.size() < 2 ? XWindow{model.ZoomXMin, model.ZoomXMax} : XWindow{lines[0], lines[1]};
}

// A line stops at the end of the data on its side, and ahead of the other line.
XWindow one_line_moved(const Model& model) {
  const XWindow ends = survey_data_range(model);
  XWindow lines = lines_of(model);
  const f64 x = model.XPos;
  if (model.StartAnnoDrag == 0) {
    if (x < ends.low)
      lines.low = ends.low;
    else if (x <= lines.high)
      lines.low = x;
  } else {
    if (x > ends.high)
      lines.high = ends.high;
    else if (x >= lines.low)
      lines.high = x;
  }
  return lines;
}

void show_width(Model& model, XWindow lines) {
  if (model.xSrc.ListIndex == kChannelAsX) return;
  const i64 first = round_to_i32(display_points(model, lines.low));
  const i64 last = round_to_i32(display_points(model, lines.high));
  const f64 block = model.ActiveReduceFactor / 2.0;
  const i32 points = round_to_i32(static_cast<f64>(last - first) * block);
  model.controls["ZoomPointsBox"].text = number_text(i64{points == 0 ? round_to_i32(block) : points});
}

void show_lines(Model& model) {
  write_show_annotations(model.PESGSurvey, true);
}

// The bound was lowered since: the samples no longer fit.
bool too_many_for_bound(const Model& model) {
  return ParseNumber(model.controls["ZoomPointsBox"].text) > ParseNumber(model.controls["PointsBox"].text);
}

void move_original_section(Model& model) {
  const XWindow lines = lines_of(model);
  GraphProperties& graph = model.PESG.pending;
  graph.ZoomActive = true;
  graph.ZoomMinX = lines.low;
  graph.ZoomMaxX = lines.high;
  model.OriginalDataMode = false;
  model.KeepOriginalChannels = true;
  DataZoom(model);
  model.AnnoDrag = false;
  model.KeepOriginalChannels = false;
  model.OriginalDataMode = any_on_original(model);
}

void press_horizontal_mode(Model& model) {
  press_tool(model, "TB_ZOOMHORZ", true);
  press_tool(model, "TB_ZOOMVERT", false);
  press_tool(model, "TB_ZOOMRECT", false);
  model.PESG.pending.AllowZooming = kHorizontal;
}

// From the pointer to the other limit. A pointer beyond the other limit or the data has left its line behind:
// the lines count then as they stand.
XWindow dropped_section(const Model& model) {
  const XWindow ends = survey_data_range(model);
  const XWindow section =
      model.StartAnnoDrag == 0 ? XWindow{model.XPos, model.ZoomXMax} : XWindow{model.ZoomXMin, model.XPos};
  const bool held = model.StartAnnoDrag == 0 ? model.XPos < ends.low : model.XPos > ends.high;
  return held || section.width() < 0 ? lines_of(model) : section;
}

void zoom_compressed_section(Model& model) {
  GraphProperties& graph = model.PESG.pending;
  if (!graph.ZoomActive) press_horizontal_mode(model);
  graph.ZoomActive = true;
  model.PESGSurvey.pending.AllowZooming = kBoth;
  const XWindow section = dropped_section(model);
  graph.ZoomMinX = section.low;
  graph.ZoomMaxX = section.high;
  if (!model.gMultiLayer) {
    LayerProperties& layer = zoomed_layer(model, model.PESG);
    layer.ZoomMinY = model.ZoomYMin;
    layer.ZoomMaxY = model.ZoomYMax;
  }
  model.AnnoDrag = false;
  DataZoom(model);
}

}  // namespace

void RedrawSurvAnnotation(Model& model) {
  if (!model.Zoomed) set_full_x_range(model);
  GraphProperties& survey = model.PESGSurvey.pending;
  place_lines(model.PESGSurvey, {model.ZoomXMin, model.ZoomXMax});
  for (const i32 line : {0, 1}) {
    set_element(survey.VertLineAnnotationType, line, kLimitLineType);
    set_element(survey.VertLineAnnotationColor, line, kBlack);
  }
  survey.ShowAnnotations =
      !model.HasFullDataPlot && model.NofPlots > 0 && model.xSrc.ListIndex != kChannelAsX;
  PEactions(model.PESGSurvey, kRedrawFromSettings);
}

void grip_limit_line(Model& model, i16 line) {
  if (model.NofPlots == 0) return;
  model.AnnoDrag = true;
  model.SurveyMouseMoved = false;
  model.StartAnnoDrag = line;
}

void drag_limit_line(Model& model, f64 x, f64 y) {
  if (!model.AnnoDrag || model.HasFullDataPlot) return;
  model.XPos = x;
  model.YPos = y;
  model.SurveyMouseMoved = true;
  if (model.OriginalDataMode) {
    place_lines(model.PESGSurvey, pulled_section({model.ZoomXMin, model.ZoomXMax}, x, model.StartAnnoDrag,
                                                 survey_data_range(model)));
    return show_lines(model);
  }
  const XWindow lines = one_line_moved(model);
  place_lines(model.PESGSurvey, lines);
  show_lines(model);
  attempt([&] { show_width(model, lines); });
}

void drop_limit_line(Model& model) {
  if (!model.SurveyMouseMoved || !model.AnnoDrag || model.HasFullDataPlot) return;
  model.SurveyMouseMoved = false;
  if (model.OriginalDataMode && too_many_for_bound(model)) {
    model.OriginalDataMode = false;
    return_to_reduced(model);
    RedrawKMGraph(model, false);
  }
  if (model.OriginalDataMode)
    move_original_section(model);
  else
    zoom_compressed_section(model);
}

void release_limit_line(Model& model) {
  model.AnnoDrag = false;
  if (!model.SurveyMouseMoved) return;
  model.SurveyMouseMoved = false;
  RedrawSurvAnnotation(model);
  if (!model.OriginalDataMode) attempt([&] { show_width(model, lines_of(model)); });
}

}  // namespace trendaro
