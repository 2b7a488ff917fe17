#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>

#include "graph/axis_ticks.h"

namespace trendaro {
namespace {

constexpr f64 kDaySeconds = 86400;
constexpr f64 kFarthestDay = 3e6;  // beyond the years that a calendar names
constexpr std::size_t kMostTicks = 1000;
constexpr f64 kMinorSpacing = 5;

enum class Unit { Seconds, Days, Weeks, Months };

struct CalendarStep {
  Unit unit;
  f64 count;        // of the unit
  f64 minor_count;  // of the unit; 0 for none
};

// From parts of a second, told apart by decimals, to centuries.
constexpr std::array kSteps = {
    CalendarStep{Unit::Seconds, 1e-6, 0},
    CalendarStep{Unit::Seconds, 1e-5, 0},
    CalendarStep{Unit::Seconds, 1e-4, 0},
    CalendarStep{Unit::Seconds, 1e-3, 0},
    CalendarStep{Unit::Seconds, 2e-3, 1e-3},
    CalendarStep{Unit::Seconds, 5e-3, 1e-3},
    CalendarStep{Unit::Seconds, 1e-2, 2e-3},
    CalendarStep{Unit::Seconds, 2e-2, 5e-3},
    CalendarStep{Unit::Seconds, 5e-2, 1e-2},
    CalendarStep{Unit::Seconds, 0.1, 2e-2},
    CalendarStep{Unit::Seconds, 0.2, 5e-2},
    CalendarStep{Unit::Seconds, 0.5, 0.1},
    CalendarStep{Unit::Seconds, 1, 0.2},
    CalendarStep{Unit::Seconds, 2, 0.5},
    CalendarStep{Unit::Seconds, 5, 1},
    CalendarStep{Unit::Seconds, 10, 2},
    CalendarStep{Unit::Seconds, 15, 5},
    CalendarStep{Unit::Seconds, 30, 5},
    CalendarStep{Unit::Seconds, 60, 10},
    CalendarStep{Unit::Seconds, 120, 30},
    CalendarStep{Unit::Seconds, 300, 60},
    CalendarStep{Unit::Seconds, 600, 120},
    CalendarStep{Unit::Seconds, 900, 300},
    CalendarStep{Unit::Seconds, 1800, 300},
    CalendarStep{Unit::Seconds, 3600, 900},
    CalendarStep{Unit::Seconds, 7200, 1800},
    CalendarStep{Unit::Seconds, 10800, 3600},
    CalendarStep{Unit::Seconds, 21600, 3600},
    CalendarStep{Unit::Seconds, 43200, 10800},
    CalendarStep{Unit::Days, 1, 0},
    CalendarStep{Unit::Days, 2, 1},
    CalendarStep{Unit::Weeks, 1, 0},
    CalendarStep{Unit::Weeks, 2, 1},
    CalendarStep{Unit::Months, 1, 0},
    CalendarStep{Unit::Months, 3, 1},
    CalendarStep{Unit::Months, 6, 1},
    CalendarStep{Unit::Months, 12, 3},
    CalendarStep{Unit::Months, 24, 12},
    CalendarStep{Unit::Months, 60, 12},
    CalendarStep{Unit::Months, 120, 24},
    CalendarStep{Unit::Months, 240, 60},
    CalendarStep{Unit::Months, 600, 120},
    CalendarStep{Unit::Months, 1200, 240},
    CalendarStep{Unit::Months, 6000, 1200},
};

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

f64 seconds_of(const CalendarStep& step) {
  switch (step.unit) {
    case Unit::Seconds:
      return step.count;
    case Unit::Days:
      return step.count * kDaySeconds;
    case Unit::Weeks:
      return step.count * 7 * kDaySeconds;
    case Unit::Months:
      break;
  }
  return step.count * 30.4 * kDaySeconds;
}

// A moment as whole days and the seconds behind them, so that fine steps far from day 0 stay exact.
struct Moment {
  f64 day = 0;
  f64 seconds = 0;  // 0 to below 86400

  [[nodiscard]] f64 value() const { return day + seconds / kDaySeconds; }
};

Moment moment_at(f64 base_day, f64 seconds) {
  const f64 whole = std::floor(seconds / kDaySeconds + 1e-12);
  return {base_day + whole, std::max(0.0, seconds - whole * kDaySeconds)};
}

std::vector<Moment> moments_between(f64 first, f64 last, Unit unit, f64 count) {
  std::vector<Moment> moments;
  const f64 tolerance = (last - first) * 1e-9;
  const auto take = [&](const Moment& moment) {
    if (moment.value() >= first - tolerance && moment.value() <= last + tolerance) moments.push_back(moment);
  };
  if (unit == Unit::Months) {
    const int stride = static_cast<int>(count);
    const int start = month_number(calendar_day(first)) / stride * stride - stride;
    for (int number = start; moments.size() < kMostTicks && first_of_month(number) <= last; number += stride)
      take({first_of_month(number), 0});
    return moments;
  }
  if (unit == Unit::Seconds) {
    const f64 base = std::floor(first);
    const f64 start = std::floor((first - base) * kDaySeconds / count);
    for (f64 step = start; moments.size() < kMostTicks; ++step) {
      const Moment moment = moment_at(base, step * count);
      if (moment.value() > last + tolerance) break;
      take(moment);
    }
    return moments;
  }
  // Weeks begin on Monday: day 2 is the first one after day 0, a Saturday.
  const f64 stride = unit == Unit::Weeks ? 7 * count : count;
  const f64 anchor = unit == Unit::Weeks ? 2 : 0;
  for (f64 number = std::floor((first - anchor) / stride) * stride + anchor;
       moments.size() < kMostTicks && number <= last + tolerance; number += stride)
    take({number, 0});
  return moments;
}

template <typename... Numbers>
std::string formatted(const char* pattern, Numbers... numbers) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), pattern, numbers...);
  return text.data();
}

std::string time_label(f64 seconds, const CalendarStep& step) {
  const int decimals = step.count < 1 ? decimals_of_step(step.count) : 0;
  const f64 unit = std::pow(10.0, decimals);
  const f64 rounded = std::round(seconds * unit) / unit;
  const int whole = static_cast<int>(std::floor(rounded + 1e-9));
  if (step.count >= 60) return formatted("%02d:%02d", whole / 3600, whole / 60 % 60);
  std::string text = formatted("%02d:%02d:%02d", whole / 3600, whole / 60 % 60, whole % 60);
  if (decimals == 0) return text;
  const auto parts = static_cast<long>(std::llround((rounded - whole) * unit));
  return text + formatted(".%0*ld", decimals, parts);
}

std::string month_name(unsigned number) {
  constexpr std::array names = {"Jan", "Feb", "Mär", "Apr", "Mai", "Jun",
                                "Jul", "Aug", "Sep", "Okt", "Nov", "Dez"};
  return names[number - 1];
}

// The label and what stands in its second line; the caller leaves a second line out that does not change.
Tick labelled(const Moment& moment, const CalendarStep& step) {
  const year_month_day date = calendar_day(moment.day);
  const auto day_of_month = static_cast<unsigned>(date.day());
  const auto month_of_year = static_cast<unsigned>(date.month());
  const int in_year = static_cast<int>(date.year());
  if (step.unit == Unit::Seconds)
    return {moment.value(), time_label(moment.seconds, step),
            formatted("%02u.%02u.%04d", day_of_month, month_of_year, in_year)};
  if (step.unit != Unit::Months)
    return {moment.value(), formatted("%02u.%02u.", day_of_month, month_of_year), formatted("%d", in_year)};
  if (step.count < 12) return {moment.value(), month_name(month_of_year), formatted("%d", in_year)};
  return {moment.value(), formatted("%d", in_year), {}};
}

void leave_out_repeated_days(std::vector<Tick>& ticks) {
  std::string former;
  for (Tick& tick : ticks) {
    if (tick.day == former)
      tick.day.clear();
    else
      former = tick.day;
  }
}

// A second line is wider than its label and may run into the next one; the later of two that collide stays,
// because it tells the longer part of the axis.
void drop_colliding_days(const TickRequest& request, const TextMeasure& measure, std::vector<Tick>& ticks) {
  Tick* former = nullptr;
  for (Tick& tick : ticks) {
    if (tick.day.empty()) continue;
    if (former != nullptr) {
      const f64 distance =
          std::abs(pixel_of(request.scale, tick.value) - pixel_of(request.scale, former->value));
      const f64 needed =
          (measure.width(TextRole::Axis, tick.day) + measure.width(TextRole::Axis, former->day)) / 2;
      if (distance < needed + measure.height(TextRole::Axis) / 2) former->day.clear();
    }
    former = &tick;
  }
}

bool fits(const TickRequest& request, const TextMeasure& measure, const CalendarStep& step) {
  const f64 span = (request.scale.maximum - request.scale.minimum) * kDaySeconds;
  const f64 spacing = seconds_of(step) / span * std::abs(request.scale.last - request.scale.first);
  const Moment widest{std::floor(request.scale.minimum), 0};
  return spacing >=
         measure.width(TextRole::Axis, labelled(widest, step).label) + measure.height(TextRole::Axis) * 0.9;
}

}  // namespace

AxisTicks date_ticks(const TickRequest& request, const TextMeasure& measure) {
  const AxisScale& scale = request.scale;
  const bool calendar = scale.minimum > -600000 && scale.maximum < kFarthestDay && !scale.logarithmic;
  if (!calendar) return number_ticks(request, measure);
  const auto step = std::find_if(kSteps.begin(), kSteps.end(),
                                 [&](const CalendarStep& each) { return fits(request, measure, each); });
  if (step == kSteps.end()) return number_ticks(request, measure);
  AxisTicks ticks;
  for (const Moment& moment : moments_between(scale.minimum, scale.maximum, step->unit, step->count))
    ticks.major.push_back(labelled(moment, *step));
  leave_out_repeated_days(ticks.major);
  drop_colliding_days(request, measure, ticks.major);
  const f64 span_seconds = (scale.maximum - scale.minimum) * kDaySeconds;
  const CalendarStep minor{step->unit, step->minor_count, 0};
  if (minor.count > 0 &&
      seconds_of(minor) / span_seconds * std::abs(scale.last - scale.first) >= kMinorSpacing)
    for (const Moment& moment : moments_between(scale.minimum, scale.maximum, minor.unit, minor.count))
      ticks.minor.push_back(moment.value());
  return ticks;
}

}  // namespace trendaro
