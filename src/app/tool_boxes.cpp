#include "app/tool_boxes.h"

#include <string>

#include "app/attempt.h"
#include "app/model.h"
#include "app/numbers.h"

namespace trendaro {

void enter_tool_box(Model& model, std::string_view name) {
  if (name != "StepBox") return;
  ControlState& box = model.controls["StepBox"];
  attempt([&] { model.ScrollInterval = round_to_i32(ParseNumber(box.text)); });
  box.text = std::to_string(model.ScrollInterval);
}

}  // namespace trendaro
