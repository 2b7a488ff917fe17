#include "graph/zoom_arithmetic.h"

#include <cmath>

#include "app/dates.h"
#include "app/model.h"
#include "app/numbers.h"
#include "app/run_time_error.h"

namespace trendaro {

f64 x_origin(const Model& model) {
  return model.DateAxis ? day_number_from_text(model.FirstDateText).value_or(0) : 0;
}

f64 display_points(const Model& model, f64 x) {
  if (model.CompressedDXMax == 0) throw RunTimeError{kDivisionByZero};
  return (x - x_origin(model)) / model.CompressedDXMax;
}

f64 edge_margin(XWindow range, i16 percent) {
  return range.width() * percent / (2.0 * percent + 100);
}

XWindow survey_data_range(const Model& model) {
  const GraphProperties& survey = model.PESGSurvey.pending;
  if (model.SurveyZoom)
    return {survey.ZoomMinX + model.SurveyZoomMarginX, survey.ZoomMaxX - model.SurveyZoomMarginX};
  return {survey.ManualMinX + model.SurveyMarginX, survey.ManualMaxX - model.SurveyMarginX};
}

XWindow scroll_bounds(const Model& model) {
  XWindow bounds = survey_data_range(model);
  if (!model.SurveyZoom) bounds.low = x_origin(model);
  return bounds;
}

XWindow moved_section(XWindow section, f64 step, XWindow bounds, bool right) {
  if (right) {
    if (section.high + step < bounds.high) return {section.low + step, section.high + step};
    return {bounds.high - section.width(), bounds.high};
  }
  if (section.low - step > bounds.low) return {section.low - step, section.high - step};
  return {bounds.low, bounds.low + section.width()};
}

XWindow pulled_section(XWindow section, f64 x, i16 line, XWindow bounds) {
  const f64 width = section.width();
  const f64 low = line == 0 ? x : x - width;
  if (low < bounds.low) return {bounds.low, bounds.low + width};
  if (low + width >= bounds.high) return {bounds.high - width, bounds.high};
  return {low, low + width};
}

i32 points_within(f64 most, f64 block) {
  const i32 whole_block = round_to_i32(block);
  if (block == 0 || whole_block == 0) throw RunTimeError{kDivisionByZero};
  const i32 points = round_to_i32(most / block);
  return block / 2 < round_to_i32(most) % whole_block ? points - 1 : points;
}

LayerProperties& zoomed_layer(Model& model, GraphSurface& graph) {
  const bool main_graph = graph.Handle == model.PESG.Handle;
  const i16 first = main_graph ? model.FirstLayer : i16{0};
  const i16 last = main_graph ? model.LastLayer : i16{2};
  i16 found = first;
  for (i16 layer = last; layer >= first; --layer)
    if (model.LayerPlotCount.has(layer + 1) && model.LayerPlotCount[layer + 1] > 0) found = layer;
  graph.pending.WorkingAxis = static_cast<i16>(found - first);
  return graph.layer();
}

}  // namespace trendaro
