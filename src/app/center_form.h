#pragma once

#include "app/types.h"

namespace trendaro {

// Left and top edge of a dialog, in the unit of the sizes given (pixels).
struct FormPosition {
  i32 left = 0;
  i32 top = 0;
};

// The place of a dialog in the middle of the screen. A dialog larger than the screen gets negative edges.
FormPosition CenterForm(i32 screen_width, i32 screen_height, i32 form_width, i32 form_height);

}  // namespace trendaro
