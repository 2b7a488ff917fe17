#include <algorithm>
#include <array>
#include <cmath>

#include "graph/axis_ticks.h"
#include "graph/calendar_steps.h"
#include "graph/day_labels.h"
#include "graph/tick_spacing.h"

namespace trendaro {
namespace {

constexpr f64 kFarthestDay = 3e6;  // beyond the years that a calendar names

// Of seconds and longer, up to centuries.
constexpr std::array kWholeSteps = {
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
    CalendarStep{CalendarUnit::Days, 1, 0.25},
    CalendarStep{CalendarUnit::Days, 2, 1},
    CalendarStep{CalendarUnit::Weeks, 1, 1.0 / 7},
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

constexpr std::size_t kSecondDecimals = 12;  // of the finest step

// Ahead of them 1, 2 and 5 times the powers of ten of a second. Divided, a part is the number nearest to it.
constexpr auto kSteps = [] {
  std::array<CalendarStep, 3 * kSecondDecimals + kWholeSteps.size()> steps{};
  f64 parts = 1;
  for (std::size_t decimal = 1; decimal <= kSecondDecimals; ++decimal) {
    parts *= 10;
    CalendarStep* decade = &steps[3 * (kSecondDecimals - decimal)];
    decade[0] = {CalendarUnit::Seconds, 1 / parts, 0.2 / parts};
    decade[1] = {CalendarUnit::Seconds, 2 / parts, 0.5 / parts};
    decade[2] = {CalendarUnit::Seconds, 5 / parts, 1 / parts};
  }
  std::copy(kWholeSteps.begin(), kWholeSteps.end(), steps.begin() + 3 * kSecondDecimals);
  return steps;
}();

// A moment is rounded twice, as seconds and as days.
bool too_fine(const AxisScale& scale, const CalendarStep& step) {
  return seconds_of(step) / kDaySeconds < 2 * finest_step(scale);
}

// Most steps are told by their distance alone; a text is measured only where there may be room for it.
bool fits(const TickRequest& request, const TextMeasure& measure, const CalendarStep& step) {
  if (too_fine(request.scale, step)) return false;
  const f64 span = (request.scale.maximum - request.scale.minimum) * kDaySeconds;
  const f64 spacing = seconds_of(step) / span * axis_length(request);
  const f64 gap = measure.height(TextRole::Axis) * 0.9;
  if (spacing <= gap) return false;
  const Moment widest{std::floor(request.scale.minimum), 0};
  return spacing >= measure.width(TextRole::Axis, dated_tick(widest, step, request.format).label) + gap;
}

// A limit that misses the moment by its last digit has it.
Tick inside(const AxisScale& scale, Tick tick) {
  tick.value = std::clamp(tick.value, scale.minimum, scale.maximum);
  return tick;
}

AxisTicks calendar_ticks(const TickRequest& request, const CalendarStep& step) {
  const AxisScale& scale = request.scale;
  AxisTicks ticks;
  for (const Moment& moment : moments_between(scale.minimum, scale.maximum, step.unit, step.count))
    ticks.major.push_back(inside(scale, dated_tick(moment, step, request.format)));
  const f64 span_seconds = (scale.maximum - scale.minimum) * kDaySeconds;
  const CalendarStep minor{step.unit, step.minor_count, 0};
  if (minor.count > 0 && seconds_of(minor) / span_seconds * axis_length(request) >= kMinorSpacing)
    for (const Moment& moment : moments_between(scale.minimum, scale.maximum, minor.unit, minor.count))
      ticks.minor.push_back(moment.value());
  return ticks;
}

// The finest step whose labels keep apart. Where fewer than two of them come to stand, the ticks of a finer
// one with a part of its labels.
AxisTicks automatic_ticks(const TickRequest& request, const TextMeasure& measure) {
  auto step = std::find_if(kSteps.begin(), kSteps.end(),
                           [&](const CalendarStep& each) { return fits(request, measure, each); });
  if (step == kSteps.end()) --step;
  AxisTicks ticks = calendar_ticks(request, *step);
  if (!fits(request, measure, *step)) thin_out_labels(request, measure, ticks.major);
  drop_crowded_ends(request, measure, ticks.major);
  for (int tries = 0; tries < kFinerTries && step != kSteps.begin() && label_count(ticks.major) < 2;
       ++tries) {
    --step;
    if (too_fine(request.scale, *step)) break;
    AxisTicks finer = calendar_ticks(request, *step);
    thin_out_labels(request, measure, finer.major);
    drop_crowded_ends(request, measure, finer.major);
    if (label_count(finer.major) > label_count(ticks.major)) ticks = std::move(finer);
  }
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
  drop_crowded_ends(request, measure, ticks.major);
  if (request.manual_tick > 0) ticks.minor = manual_minors(request);
  return ticks;
}

}  // namespace

AxisTicks date_ticks(const TickRequest& request, const TextMeasure& measure) {
  const AxisScale& scale = request.scale;
  const bool calendar = scale.minimum > -600000 && scale.maximum < kFarthestDay && !scale.logarithmic;
  if (!calendar) return number_ticks(request, measure);
  AxisTicks ticks =
      manual_is_usable(request) ? manual_ticks(request, measure) : automatic_ticks(request, measure);
  settle_days(request, measure, ticks.major);
  return ticks;
}

}  // namespace trendaro
