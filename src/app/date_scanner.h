#pragma once

#include <optional>
#include <string_view>

#include "app/types.h"

namespace trendaro {

// A date as its text names it; whether the day exists is not looked at.
struct DateFields {
  int year = 0;
  int month = 0;  // from 1
  int day = 0;
  f64 time = 0;  // time of day as a fraction of a day
};

// "12:34" or "12:34:56", also with decimals of a second, as a fraction of a day; nothing when the text holds
// anything else.
std::optional<f64> read_whole_time(std::string_view text);

// A date in one of the forms that day_number_from_text knows, with a time behind it or without.
std::optional<DateFields> read_date_and_time(std::string_view text);

}  // namespace trendaro
