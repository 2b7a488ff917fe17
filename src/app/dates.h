#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "app/types.h"

namespace trendaro {

// Day numbers count days from 30 December 1899, with the time of day as fraction. The fraction of a negative
// number counts away from zero: -1.25 is 29 December 1899, 06:00. Times are local and rounded to whole
// seconds. A number outside of the years 100 to 9999 has no text: the result is empty.
std::string date_text(f64 day_number);             // "05.03.2021"
std::string time_text(f64 day_number);             // "12:34", seconds cut off
std::string date_time_text(f64 day_number);        // "05.03.2021 12:34:56"
std::string short_year_date_text(f64 day_number);  // "05.03.21 12:34:56"

// Days without the time of day; the time of day as a fraction, never negative.
f64 whole_days(f64 day_number);
f64 time_of_day(f64 day_number);

// Reads a date, a time or both: "5.3.2021 12:34:56" (two-digit years lie between 1930 and 2029),
// "2021-03-05T12:34:56", "Mar 05 2021 12:34:56" with English or German month names of three letters, "12:34"
// as a time of day alone, and a plain number as the day number itself. Nothing for any other text.
std::optional<f64> day_number_from_text(std::string_view text);

}  // namespace trendaro
