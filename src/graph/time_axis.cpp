#include "graph/time_axis.h"

#include "app/dates.h"
#include "files/file_conversions.h"

namespace trendaro {

TimeFactor time_factor(i16 time_unit) {
  switch (time_unit) {
    case 0:
      return {1, "ms"};
    case 2:
      return {1.0 / 60000, "min"};
    case 3:
      return {1.0 / 3600000, "h"};
    case kDateAndTime:
      return {1.0 / (1000.0 * 86400), ""};
    default:
      return {1.0 / 1000, "s"};
  }
}

std::string time_title(i16 time_unit, const std::string& unit) {
  return time_unit == kDateAndTime ? "Zeit" : "Zeit/" + unit;
}

TimeLine time_line(f64 step, f64 start, f64 factor, bool date_axis, const std::string& date_text) {
  TimeLine line{.step = (step == 0 ? 1 : step) * factor, .start = start * factor};
  if (date_axis)
    if (const auto date = day_number_from_text(date_text)) line.start += *date;
  return line;
}

std::string readable_date(const std::string& file_date_text) {
  return day_number_from_text(file_date_text) ? file_date_text : RecorderDateToText(file_date_text);
}

}  // namespace trendaro
