#pragma once

#include <vector>

#include "graph/axis_ticks.h"

namespace trendaro {

inline constexpr f64 kDaySeconds = 86400;

enum class CalendarUnit { Seconds, Days, Weeks, Months };

// A distance between the ticks of an axis in days.
struct CalendarStep {
  CalendarUnit unit;
  f64 count;        // of the unit
  f64 minor_count;  // between those ticks, of the unit; 0 for none
};

// About how long a step is; months differ.
f64 seconds_of(const CalendarStep& step);

// A moment as whole days and the seconds behind them, so that fine steps far from day 0 stay exact.
struct Moment {
  f64 day = 0;
  f64 seconds = 0;  // 0 to below 86400

  [[nodiscard]] f64 value() const { return day + seconds / kDaySeconds; }
};

// The moments at whole steps between two day numbers: months from January, weeks from Monday, days from day
// 0, seconds from the midnight ahead of `first`.
std::vector<Moment> moments_between(f64 first, f64 last, CalendarUnit unit, f64 count);

// The moments at whole multiples of `step` between two day numbers, counted from day 0.
std::vector<Moment> multiples_from_day_zero(f64 first, f64 last, const CalendarStep& step);

// The tick of a moment with its second line. Prefix and suffix of the format stand around the label; its
// decimals are for numbers and do not count.
Tick dated_tick(const Moment& moment, const CalendarStep& step, const NumberFormat& format);

}  // namespace trendaro
