#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "app/types.h"

namespace trendaro {

// TimeUnit of an axis that shows date and time.
inline constexpr i16 kDateAndTime = 4;

// What a time in milliseconds is multiplied by, and the unit of the product; no unit for dates.
struct TimeFactor {
  f64 factor = 1;
  std::string unit;
};

// The factor of a TimeUnit; a number that is none counts as seconds.
TimeFactor time_factor(i16 time_unit);

// Title of an x axis that shows time.
std::string time_title(i16 time_unit, const std::string& unit);

// x of evenly spaced points: point k, from 0, lies at k * step + start.
struct TimeLine {
  f64 step = 0;
  f64 start = 0;

  [[nodiscard]] f64 at(std::size_t point) const {
    return static_cast<f64>(static_cast<i64>(point)) * step + start;
  }
};

// The line of a recording in the unit of the axis. `step` and `start` are milliseconds; a step of 0 becomes
// 1, so that the points are counted. On a date axis `date_text` adds its day number to the start; a text that
// is no date adds nothing.
TimeLine time_line(f64 step, f64 start, f64 factor, bool date_axis, const std::string& date_text);

// The date text of a file, reordered when it is no date as it stands.
std::string readable_date(const std::string& file_date_text);

}  // namespace trendaro
