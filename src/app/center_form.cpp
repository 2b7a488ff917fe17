#include "app/center_form.h"

#include "app/numbers.h"

namespace trendaro {

FormPosition CenterForm(i32 screen_width, i32 screen_height, i32 form_width, i32 form_height) {
  return {round_to_i32((f64{1} * screen_width - form_width) / 2),
          round_to_i32((f64{1} * screen_height - form_height) / 2)};
}

}  // namespace trendaro
