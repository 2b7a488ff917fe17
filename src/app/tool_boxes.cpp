#include "app/tool_boxes.h"

#include <string>

#include "app/attempt.h"
#include "app/model.h"
#include "app/numbers.h"
#include "graph/zoom_modes.h"

namespace trendaro {

namespace {

void enter_points(Model& model) {
  if (model.NofPlots == 0) return;
  ControlState& box = model.controls["PointsBox"];
  attempt([&] { box.text = number_text(i64{round_to_i32(ParseNumber(box.text))}); });
  SpringToMaxZoom(model);
}

}  // namespace

void enter_tool_box(Model& model, std::string_view name) {
  if (name == "PointsBox") return enter_points(model);
  if (name != "StepBox") return;
  ControlState& box = model.controls["StepBox"];
  attempt([&] { model.ScrollInterval = round_to_i32(ParseNumber(box.text)); });
  box.text = std::to_string(model.ScrollInterval);
}

}  // namespace trendaro
