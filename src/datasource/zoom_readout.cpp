#include "datasource/zoom_readout.h"

#include "app/attempt.h"
#include "app/commands.h"
#include "app/model.h"
#include "app/numbers.h"
#include "app/toolbar.h"

namespace trendaro {

std::optional<i32> section_points(const Model& model, f64 first, f64 last) {
  std::optional<i32> points;
  if (model.CompressedDXMax == 0) return points;
  attempt(
      [&] { points = round_to_i32((last - first) * model.ActiveReduceFactor / 2 / model.CompressedDXMax); });
  return points;
}

std::optional<i32> window_points(const Model& model) {
  return section_points(model, model.ZoomXMin, model.ZoomXMax);
}

void settle_readout_colour(Model& model) {
  ControlState& box = model.controls["ZoomPointsBox"];
  if (box.back_color == kGreen || (box.back_color == kYellow && !model.HasFullDataPlot))
    box.back_color = kWhite;
}

void follow_longest_plain_signal(Model& model) {
  ControlState& box = model.controls["ZoomPointsBox"];
  if (box.back_color == kYellow) box.text = number_text(i64{model.MaxPlotPoints});
}

void release_tools_without_plots(Model& model) {
  ReleaseZoomButtons(model);
  model.controls["ZoomPointsBox"].back_color = kWhite;
  for (const char* entry : {"mnuDBOffset", "mnuXUnit", "mnuNullValues"}) enable_control(model, entry, true);
}

}  // namespace trendaro
