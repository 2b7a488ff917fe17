#include "config/time_unit.h"

#include <array>
#include <cstddef>
#include <initializer_list>

#include "app/dates.h"
#include "app/model.h"
#include "datasource/grid_handlers.h"
#include "graph/data_zoom.h"
#include "graph/main_redraw.h"
#include "graph/survey_redraw.h"
#include "graph/time_axis.h"
#include "graph/zoom_arithmetic.h"

namespace trendaro {
namespace {

constexpr i16 kUnits = 5;

f64 units_in_a_second(i16 unit) {
  constexpr std::array<f64, kUnits> kUnitsInASecond = {1000, 1, 1.0 / 60, 1.0 / 3600, 1.0 / 86400};
  return kUnitsInASecond[static_cast<std::size_t>(unit)];
}

f64 seconds_in_a_unit(i16 unit) {
  constexpr std::array<f64, kUnits> kSecondsInAUnit = {0.001, 1, 60, 3600, 86400};
  return kSecondsInAUnit[static_cast<std::size_t>(unit)];
}

void carry_over(Model& model, i16 old_unit, std::initializer_list<f64*> limits) {
  const f64 date = day_number_from_text(model.FirstDateText).value_or(0);
  for (f64* limit : limits) *limit = limit_in_unit(*limit, old_unit, model.TimeUnit, date);
}

void carry_zoom_of(GraphSurface& graph, Model& model, i16 old_unit) {
  carry_over(model, old_unit, {&graph.pending.ZoomMinX, &graph.pending.ZoomMaxX});
}

// A compressed curve is worked out for these limits by the redraw.
void carry_compressed_section_over(Model& model, i16 old_unit) {
  auto& section = model.ZoomScaleLimits[0];
  UnzoomedScale& whole = model.unzoomed_scale;
  carry_over(model, old_unit, {&section[0], &section[1], &whole.low_x, &whole.high_x});
  if (model.HasFullDataPlot) carry_zoom_of(model.PESG, model, old_unit);
}

void carry_zoom_over(Model& model, i16 old_unit) {
  if (!model.HasFullDataPlot) carry_zoom_of(model.PESG, model, old_unit);
  carry_zoom_of(model.PESGSurvey, model, old_unit);
  const GraphProperties& survey = model.PESGSurvey.pending;
  if (model.SurveyZoom)
    model.SurveyZoomMarginX = edge_margin({survey.ZoomMinX, survey.ZoomMaxX}, survey.AutoPadPercent);
}

}  // namespace

f64 limit_in_unit(f64 limit, i16 old_unit, i16 new_unit, f64 date) {
  const f64 from_start = old_unit == kDateAndTime ? limit - date : limit;
  const f64 converted = from_start / units_in_a_second(old_unit) / seconds_in_a_unit(new_unit);
  return new_unit == kDateAndTime ? date + converted : converted;
}

void choose_time_unit(Model& model, i16 index) {
  if (index == model.TimeUnit || index < 0 || index >= kUnits) return;
  const i16 old_unit = model.TimeUnit;
  model.TimeUnit = index;
  model.DateAxis = index == kDateAndTime;
  tick_only(model.controls, "mnuTUnit", kUnits, index);
  if (model.IsRealTime) return;
  const bool in_units = model.xSrc.ListIndex != kChannelAsX && old_unit >= 0 && old_unit < kUnits;
  const bool zoomed = model.Zoomed && !model.OriginalDataMode;
  if (zoomed && in_units) carry_compressed_section_over(model, old_unit);
  RedrawKMGraph(model, false);
  if (!model.HasFullDataPlot) RedrawSurvGraph(model, false);
  if (zoomed && in_units) {
    carry_zoom_over(model, old_unit);
    DataZoom(model);
  }
  show_plot_status(model);
}

}  // namespace trendaro
