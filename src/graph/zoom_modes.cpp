#include "graph/zoom_modes.h"

#include <array>

#include "app/model.h"
#include "app/numbers.h"
#include "app/toolbar.h"
#include "graph/data_zoom.h"
#include "graph/zoom_arithmetic.h"

namespace trendaro {
namespace {

struct ModeProperties {
  ZoomMode mode;
  std::string_view tool;
  i16 allow_zooming;
  bool scrolls_horizontally, scrolls_vertically;
  bool reaches_survey;  // the vertical mode leaves x, and so the survey, as it was
};

constexpr std::array<ModeProperties, 3> kModes = {
    {{ZoomMode::Horizontal, "TB_ZOOMHORZ", 1, true, false, true},
     {ZoomMode::Vertical, "TB_ZOOMVERT", 2, false, true, false},
     {ZoomMode::Rectangle, "TB_ZOOMRECT", 3, true, true, true}}};

const ModeProperties& properties_of(ZoomMode mode) {
  return kModes[static_cast<std::size_t>(mode)];
}

}  // namespace

std::string_view zoom_tool(ZoomMode mode) {
  return properties_of(mode).tool;
}

void press_zoom_mode(Model& model, ZoomMode mode) {
  if (model.NofPlots == 0) return;
  const ModeProperties& pressed = properties_of(mode);
  if (model.controls[pressed.tool].tag == "1") return ReleaseZoomButtons(model);
  for (const ModeProperties& other : kModes) press_tool(model, other.tool, other.mode == mode);
  model.PESG.pending.AllowZooming = pressed.allow_zooming;
  if (model.HasFullDataPlot) {
    model.PESG.pending.ScrollingHorzZoom = pressed.scrolls_horizontally;
    model.PESG.pending.ScrollingVertZoom = pressed.scrolls_vertically;
  }
  if (pressed.reaches_survey) model.PESGSurvey.pending.AllowZooming = 1;
}

void SpringToMaxZoom(Model& model) {
  if (model.HasFullDataPlot || model.ActiveReduceFactor == 0) return;
  // A bound beyond all counts ends here, with the section as it is.
  const f64 most = ParseNumber(model.controls["PointsBox"].text);
  const i32 points = points_within(most, model.ActiveReduceFactor / 2.0);
  model.OriginalDataMode = false;
  GraphProperties& graph = model.PESG.pending;
  graph.ZoomActive = true;
  graph.ZoomMinX = model.ZoomXMin;
  graph.ZoomMaxX = graph.ZoomMinX + points * model.CompressedDXMax;
  const f64 right_end = survey_data_range(model).high;
  if (right_end < graph.ZoomMaxX) graph.ZoomMaxX = right_end;
  DataZoom(model);
  ReleaseZoomButtons(model);
}

void spring_with_plots(Model& model) {
  if (model.NofPlots > 0) SpringToMaxZoom(model);
}

}  // namespace trendaro
