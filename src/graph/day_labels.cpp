#include "graph/day_labels.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <string>

#include "graph/tick_spacing.h"

namespace trendaro {
namespace {

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

enum class DayForm { Whole, ShortYear, WithoutYear, DayAlone };

// "31.12.2023", "31.12.23", "31.12." and "31."; a year alone has one form.
std::string in_form(const std::string& day, DayForm form) {
  const auto last_point = day.rfind('.');
  const auto first_point = day.find('.');
  if (first_point == last_point || day.size() - last_point != 5 || form == DayForm::Whole) return day;
  if (form == DayForm::DayAlone) return day.substr(0, first_point + 1);
  const std::string day_and_month = day.substr(0, last_point + 1);
  return form == DayForm::WithoutYear ? day_and_month : day_and_month + day.substr(day.size() - 2);
}

// The last day keeps its year, for it tells those of the others.
struct DayForms {
  DayForm others, last;
  f64 longest = std::numeric_limits<f64>::infinity();  // days from first to last that it tells apart
};

constexpr f64 kMonth = 27, kYear = 364;
constexpr DayForms kForms[] = {{DayForm::Whole, DayForm::Whole},
                               {DayForm::WithoutYear, DayForm::Whole, kYear},
                               {DayForm::WithoutYear, DayForm::ShortYear, kYear},
                               {DayForm::DayAlone, DayForm::Whole, kMonth},
                               {DayForm::DayAlone, DayForm::ShortYear, kMonth}};

std::vector<Tick> days_in(const std::vector<Tick>& named, const DayForms& forms) {
  std::vector<Tick> ticks = named;
  for (Tick& tick : ticks) tick.day = in_form(tick.day, &tick == &ticks.back() ? forms.last : forms.others);
  return ticks;
}

bool days_fit(const TickRequest& request, const TextMeasure& measure, const std::vector<Tick>& ticks) {
  for (std::size_t i = 1; i < ticks.size(); ++i)
    if (days_collide(request, measure, ticks[i - 1], ticks[i])) return false;
  return true;
}

void drop_colliding_days(const TickRequest& request, const TextMeasure& measure, std::vector<Tick>& ticks) {
  const Tick* next = nullptr;
  for (auto tick = ticks.rbegin(); tick != ticks.rend(); ++tick) {
    if (next != nullptr && days_collide(request, measure, *tick, *next))
      tick->day.clear();
    else
      next = &*tick;
  }
}

// The same ticks with days that keep apart.
std::vector<Tick> settled(const TickRequest& request, const TextMeasure& measure,
                          const std::vector<Tick>& named) {
  const f64 days = named.empty() ? 0 : named.back().value - named.front().value;
  std::vector<Tick> ticks = named;
  for (const DayForms& forms : kForms) {
    if (days > forms.longest) continue;
    ticks = days_in(named, forms);
    if (days_fit(request, measure, ticks)) return ticks;
  }
  drop_colliding_days(request, measure, ticks);
  return ticks;
}

}  // namespace

void settle_days(const TickRequest& request, const TextMeasure& measure, std::vector<Tick>& ticks) {
  leave_out_repeated_days(ticks);
  std::vector<Tick> named;
  std::copy_if(ticks.begin(), ticks.end(), std::back_inserter(named),
               [](const Tick& tick) { return !tick.day.empty(); });
  std::vector<Tick> days = settled(request, measure, named);
  auto day = days.begin();
  for (Tick& tick : ticks)
    if (!tick.day.empty()) tick.day = (day++)->day;
}

}  // namespace trendaro
