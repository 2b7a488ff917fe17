#pragma once

namespace trendaro {

struct Model;

// Sets the section on show in x (ZoomXMin, ZoomXMax) to the whole recording as the survey graph shows it.
void set_full_x_range(Model& model);

}  // namespace trendaro
