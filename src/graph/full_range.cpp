#include "graph/full_range.h"

#include "app/dates.h"
#include "app/model.h"

namespace trendaro {

void set_full_x_range(Model& model) {
  model.ZoomXMin = model.DateAxis ? day_number_from_text(model.FirstDateText).value_or(0) : 0;
  model.ZoomXMax = model.PESGSurvey.pending.ManualMaxX - model.SurveyMarginX;
}

}  // namespace trendaro
