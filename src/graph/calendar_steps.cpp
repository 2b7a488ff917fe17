#include "graph/calendar_steps.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <limits>

namespace trendaro {
namespace {

constexpr std::size_t kMostTicks = 10000;
constexpr int kMostDecimals = 14;  // so that a day in such parts of a second is a number of 64 bits

using std::chrono::day;
using std::chrono::days;
using std::chrono::month;
using std::chrono::sys_days;
using std::chrono::year;
using std::chrono::year_month_day;

constexpr sys_days kDayZero = sys_days(year(1899) / 12 / 30);

year_month_day calendar_day(f64 day_number) {
  return year_month_day(kDayZero + days(static_cast<int>(std::floor(day_number))));
}

// Months counted from January of the year 0.
int month_number(const year_month_day& date) {
  return static_cast<int>(date.year()) * 12 + static_cast<int>(static_cast<unsigned>(date.month())) - 1;
}

f64 first_of_month(int number) {
  const int of_year = ((number % 12) + 12) % 12;
  const auto date = year((number - of_year) / 12) / month(static_cast<unsigned>(of_year) + 1) / day(1);
  return static_cast<f64>((sys_days(date) - kDayZero).count());
}

Moment moment_at(f64 base_day, f64 seconds) {
  // The product of a count and a part of a second may miss midnight by its last digit.
  const f64 whole = std::floor(seconds / kDaySeconds + 4e-16);
  return {base_day + whole, std::max(0.0, seconds - whole * kDaySeconds)};
}

bool is_multiple(f64 value, f64 of) {
  return std::abs(std::remainder(value, of)) < 1e-6 * of;
}

template <typename... Numbers>
std::string formatted(const char* pattern, Numbers... numbers) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), pattern, numbers...);
  return text.data();
}

// A moment to the part of a second that tells the ticks of a step apart.
Moment rounded(const Moment& moment, int decimals) {
  const f64 unit = std::pow(10.0, decimals);
  const f64 seconds = std::round(moment.seconds * unit) / unit;
  return seconds < kDaySeconds ? Moment{moment.day, seconds} : Moment{moment.day + 1, 0};
}

std::string time_label(f64 seconds, f64 step, int decimals) {
  const i64 unit = std::llround(std::pow(10.0, decimals));
  const i64 parts = std::llround(seconds * static_cast<f64>(unit));
  const auto whole = static_cast<int>(parts / unit);
  if (step >= 60 && is_multiple(step, 60)) return formatted("%02d:%02d", whole / 3600, whole / 60 % 60);
  std::string text = formatted("%02d:%02d:%02d", whole / 3600, whole / 60 % 60, whole % 60);
  if (decimals == 0) return text;
  return text + formatted(".%0*lld", decimals, static_cast<long long>(parts % unit));
}

std::string day_label(const Moment& moment) {
  const year_month_day date = calendar_day(moment.day);
  return formatted("%02u.%02u.%04d", static_cast<unsigned>(date.day()), static_cast<unsigned>(date.month()),
                   static_cast<int>(date.year()));
}

std::string month_name(unsigned number) {
  constexpr std::array names = {"Jan", "Feb", "Mär", "Apr", "Mai", "Jun",
                                "Jul", "Aug", "Sep", "Okt", "Nov", "Dez"};
  return names[number - 1];
}

// The label and its second line.
Tick labelled(const Moment& moment, const CalendarStep& step) {
  if (step.unit == CalendarUnit::Seconds) {
    const int decimals = std::min(decimals_of_step(step.count), kMostDecimals);
    const Moment named = rounded(moment, decimals);
    return {moment.value(), time_label(named.seconds, step.count, decimals), day_label(named)};
  }
  const year_month_day date = calendar_day(moment.day);
  const auto month_of_year = static_cast<unsigned>(date.month());
  const std::string in_year = formatted("%d", static_cast<int>(date.year()));
  if (step.unit != CalendarUnit::Months)
    return {moment.value(), formatted("%02u.%02u.", static_cast<unsigned>(date.day()), month_of_year),
            in_year};
  if (step.count < 12) return {moment.value(), month_name(month_of_year), in_year};
  return {moment.value(), in_year, {}};
}

}  // namespace

f64 seconds_of(const CalendarStep& step) {
  switch (step.unit) {
    case CalendarUnit::Seconds:
      return step.count;
    case CalendarUnit::Days:
      return step.count * kDaySeconds;
    case CalendarUnit::Weeks:
      return step.count * 7 * kDaySeconds;
    case CalendarUnit::Months:
      break;
  }
  return step.count * 30.4 * kDaySeconds;
}

std::vector<Moment> moments_between(f64 first, f64 last, CalendarUnit unit, f64 count) {
  std::vector<Moment> moments;
  const f64 last_digit = std::max(std::abs(first), std::abs(last)) * std::numeric_limits<f64>::epsilon();
  const f64 tolerance = std::max((last - first) * 1e-9, last_digit);
  const auto take = [&](const Moment& moment) {
    if (moment.value() >= first - tolerance && moment.value() <= last + tolerance) moments.push_back(moment);
  };
  if (unit == CalendarUnit::Months) {
    const int stride = static_cast<int>(count);
    const int start = month_number(calendar_day(first)) / stride * stride - stride;
    for (int number = start; moments.size() < kMostTicks && first_of_month(number) <= last; number += stride)
      take({first_of_month(number), 0});
    return moments;
  }
  if (unit == CalendarUnit::Seconds) {
    const f64 base = std::floor(first);
    const f64 start = std::floor((first - base) * kDaySeconds / count);
    for (std::size_t step = 0; step < kMostTicks; ++step) {
      const Moment moment = moment_at(base, (start + static_cast<f64>(step)) * count);
      if (moment.value() > last + tolerance) break;
      take(moment);
    }
    return moments;
  }
  // Weeks begin on Monday: day 2 is the first one after day 0, a Saturday.
  const f64 stride = unit == CalendarUnit::Weeks ? 7 * count : count;
  const f64 anchor = unit == CalendarUnit::Weeks ? 2 : 0;
  for (f64 number = std::floor((first - anchor) / stride) * stride + anchor;
       moments.size() < kMostTicks && number <= last + tolerance; number += stride)
    take({number, 0});
  return moments;
}

std::vector<Moment> multiples_from_day_zero(f64 first, f64 last, const CalendarStep& step) {
  if (step.unit != CalendarUnit::Seconds || is_multiple(kDaySeconds, step.count))
    return moments_between(first, last, step.unit, step.count);
  std::vector<Moment> moments;
  const f64 days_of_step = step.count / kDaySeconds;
  const f64 from = std::ceil(first / days_of_step - 1e-6);
  const f64 to = std::floor(last / days_of_step + 1e-6);
  for (f64 number = from; moments.size() < kMostTicks && number <= to; ++number) {
    const f64 day = std::floor(number * days_of_step);
    moments.push_back(moment_at(day, (number * days_of_step - day) * kDaySeconds));
  }
  return moments;
}

Tick dated_tick(const Moment& moment, const CalendarStep& step, const NumberFormat& format) {
  Tick tick = labelled(moment, step);
  tick.label = format.prefix + tick.label + format.suffix;
  return tick;
}

}  // namespace trendaro
