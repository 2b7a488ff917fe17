#include "app/center_form.h"

namespace trendaro {

FormPosition CenterForm(i32 screen_width, i32 screen_height, i32 form_width, i32 form_height) {
  return {(screen_width - form_width) / 2, (screen_height - form_height) / 2};
}

}  // namespace trendaro
