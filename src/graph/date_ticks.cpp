#include <algorithm>
#include <array>
#include <cmath>

#include "graph/axis_ticks.h"
#include "graph/calendar_steps.h"
#include "graph/tick_spacing.h"

namespace trendaro {
namespace {

constexpr f64 kFarthestDay = 3e6;  // beyond the years that a calendar names

// From parts of a second, told apart by decimals, to centuries.
constexpr std::array kSteps = {
    CalendarStep{CalendarUnit::Seconds, 1e-6, 0},
    CalendarStep{CalendarUnit::Seconds, 1e-5, 0},
    CalendarStep{CalendarUnit::Seconds, 1e-4, 0},
    CalendarStep{CalendarUnit::Seconds, 1e-3, 0},
    CalendarStep{CalendarUnit::Seconds, 2e-3, 1e-3},
    CalendarStep{CalendarUnit::Seconds, 5e-3, 1e-3},
    CalendarStep{CalendarUnit::Seconds, 1e-2, 2e-3},
    CalendarStep{CalendarUnit::Seconds, 2e-2, 5e-3},
    CalendarStep{CalendarUnit::Seconds, 5e-2, 1e-2},
    CalendarStep{CalendarUnit::Seconds, 0.1, 2e-2},
    CalendarStep{CalendarUnit::Seconds, 0.2, 5e-2},
    CalendarStep{CalendarUnit::Seconds, 0.5, 0.1},
    CalendarStep{CalendarUnit::Seconds, 1, 0.2},
    CalendarStep{CalendarUnit::Seconds, 2, 0.5},
    CalendarStep{CalendarUnit::Seconds, 5, 1},
    CalendarStep{CalendarUnit::Seconds, 10, 2},
    CalendarStep{CalendarUnit::Seconds, 15, 5},
    CalendarStep{CalendarUnit::Seconds, 30, 5},
    CalendarStep{CalendarUnit::Seconds, 60, 10},
    CalendarStep{CalendarUnit::Seconds, 120, 30},
    CalendarStep{CalendarUnit::Seconds, 300, 60},
    CalendarStep{CalendarUnit::Seconds, 600, 120},
    CalendarStep{CalendarUnit::Seconds, 900, 300},
    CalendarStep{CalendarUnit::Seconds, 1800, 300},
    CalendarStep{CalendarUnit::Seconds, 3600, 900},
    CalendarStep{CalendarUnit::Seconds, 7200, 1800},
    CalendarStep{CalendarUnit::Seconds, 10800, 3600},
    CalendarStep{CalendarUnit::Seconds, 21600, 3600},
    CalendarStep{CalendarUnit::Seconds, 43200, 10800},
    CalendarStep{CalendarUnit::Days, 1, 0},
    CalendarStep{CalendarUnit::Days, 2, 1},
    CalendarStep{CalendarUnit::Weeks, 1, 0},
    CalendarStep{CalendarUnit::Weeks, 2, 1},
    CalendarStep{CalendarUnit::Months, 1, 0},
    CalendarStep{CalendarUnit::Months, 3, 1},
    CalendarStep{CalendarUnit::Months, 6, 1},
    CalendarStep{CalendarUnit::Months, 12, 3},
    CalendarStep{CalendarUnit::Months, 24, 12},
    CalendarStep{CalendarUnit::Months, 60, 12},
    CalendarStep{CalendarUnit::Months, 120, 24},
    CalendarStep{CalendarUnit::Months, 240, 60},
    CalendarStep{CalendarUnit::Months, 600, 120},
    CalendarStep{CalendarUnit::Months, 1200, 240},
    CalendarStep{CalendarUnit::Months, 6000, 1200},
};

void leave_out_repeated_days(std::vector<Tick>& ticks) {
  std::string former;
  for (Tick& tick : ticks) {
    if (tick.day.empty()) continue;
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
  const f64 spacing = seconds_of(step) / span * axis_length(request);
  const Moment widest{std::floor(request.scale.minimum), 0};
  return spacing >= measure.width(TextRole::Axis, dated_tick(widest, step, request.format).label) +
                        measure.height(TextRole::Axis) * 0.9;
}

AxisTicks calendar_ticks(const TickRequest& request, const CalendarStep& step) {
  const AxisScale& scale = request.scale;
  AxisTicks ticks;
  for (const Moment& moment : moments_between(scale.minimum, scale.maximum, step.unit, step.count))
    ticks.major.push_back(dated_tick(moment, step, request.format));
  const f64 span_seconds = (scale.maximum - scale.minimum) * kDaySeconds;
  const CalendarStep minor{step.unit, step.minor_count, 0};
  if (minor.count > 0 && seconds_of(minor) / span_seconds * axis_length(request) >= kMinorSpacing)
    for (const Moment& moment : moments_between(scale.minimum, scale.maximum, minor.unit, minor.count))
      ticks.minor.push_back(moment.value());
  return ticks;
}

// A distance in days as that of days or of seconds.
CalendarStep step_of(f64 days) {
  if (days >= 1 && days == std::floor(days)) return {CalendarUnit::Days, days, 0};
  return {CalendarUnit::Seconds, days * kDaySeconds, 0};
}

// Minor ticks that fall on a line are left out.
std::vector<f64> manual_minors(const TickRequest& request) {
  const AxisScale& scale = request.scale;
  std::vector<f64> values;
  if (least_distance(request, request.manual_tick) < kMinorSpacing) return values;
  for (const Moment& moment :
       multiples_from_day_zero(scale.minimum, scale.maximum, step_of(request.manual_tick)))
    values.push_back(moment.value());
  std::erase_if(values, [&](f64 value) {
    const f64 lines = value / request.manual_line;
    return std::abs(lines - std::round(lines)) < 1e-5;
  });
  return values;
}

AxisTicks manual_ticks(const TickRequest& request, const TextMeasure& measure) {
  const CalendarStep step = step_of(request.manual_line);
  AxisTicks ticks;
  for (const Moment& moment : multiples_from_day_zero(request.scale.minimum, request.scale.maximum, step))
    ticks.major.push_back(dated_tick(moment, step, request.format));
  thin_out_labels(request, measure, ticks.major);
  if (request.manual_tick > 0) ticks.minor = manual_minors(request);
  return ticks;
}

}  // namespace

AxisTicks date_ticks(const TickRequest& request, const TextMeasure& measure) {
  const AxisScale& scale = request.scale;
  const bool calendar = scale.minimum > -600000 && scale.maximum < kFarthestDay && !scale.logarithmic;
  const auto step = std::find_if(kSteps.begin(), kSteps.end(),
                                 [&](const CalendarStep& each) { return fits(request, measure, each); });
  if (!calendar || step == kSteps.end()) return number_ticks(request, measure);
  AxisTicks ticks =
      manual_is_usable(request) ? manual_ticks(request, measure) : calendar_ticks(request, *step);
  leave_out_repeated_days(ticks.major);
  drop_colliding_days(request, measure, ticks.major);
  return ticks;
}

}  // namespace trendaro
