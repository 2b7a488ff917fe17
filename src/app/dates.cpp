#include "app/dates.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>

#include "app/date_scanner.h"
#include "app/paths.h"

namespace trendaro {
namespace {

constexpr i64 kSecondsPerDay = 86400;
constexpr std::chrono::sys_days kDayZero = std::chrono::year(1899) / 12 / 30;
constexpr int kFirstYear = 100;
constexpr int kLastYear = 9999;

struct CivilTime {
  int year, month, day, hour, minute, second;
};

// Numbers beyond every date are held off before they are turned into integers.
bool is_plausible(f64 day_number) {
  return std::abs(day_number) < 4e6;
}

std::optional<CivilTime> civil_time(f64 day_number) {
  if (!is_plausible(day_number)) return std::nullopt;
  auto days = static_cast<i64>(whole_days(day_number));
  auto seconds = static_cast<i64>(std::nearbyint(time_of_day(day_number) * kSecondsPerDay));
  if (seconds == kSecondsPerDay) {
    ++days;
    seconds = 0;
  }
  const std::chrono::year_month_day date(kDayZero + std::chrono::days(days));
  const int year = static_cast<int>(date.year());
  if (year < kFirstYear || year > kLastYear) return std::nullopt;
  return CivilTime{year,
                   static_cast<int>(static_cast<unsigned>(date.month())),
                   static_cast<int>(static_cast<unsigned>(date.day())),
                   static_cast<int>(seconds / 3600),
                   static_cast<int>(seconds / 60 % 60),
                   static_cast<int>(seconds % 60)};
}

template <typename... Numbers>
std::string printed(const char* format, Numbers... numbers) {
  std::array<char, 40> buffer;
  const int length = std::snprintf(buffer.data(), buffer.size(), format, numbers...);
  return {buffer.data(), static_cast<std::size_t>(length)};
}

std::optional<f64> day_number(const DateFields& date) {
  using namespace std::chrono;
  const year_month_day fields(year(date.year), month(static_cast<unsigned>(date.month)),
                              day(static_cast<unsigned>(date.day)));
  if (!fields.ok() || date.year < kFirstYear || date.year > kLastYear) return std::nullopt;
  return static_cast<f64>((sys_days(fields) - kDayZero).count());
}

std::optional<f64> plain_number(std::string_view text) {
  f64 number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || !is_plausible(number)) return std::nullopt;
  return number;
}

}  // namespace

std::string date_text(f64 day_number) {
  const auto time = civil_time(day_number);
  return time ? printed("%02d.%02d.%04d", time->day, time->month, time->year) : std::string();
}

std::string time_text(f64 day_number) {
  const auto time = civil_time(day_number);
  return time ? printed("%02d:%02d", time->hour, time->minute) : std::string();
}

std::string date_time_text(f64 day_number) {
  const auto time = civil_time(day_number);
  return time ? printed("%02d.%02d.%04d %02d:%02d:%02d", time->day, time->month, time->year, time->hour,
                        time->minute, time->second)
              : std::string();
}

std::string short_year_date_text(f64 day_number) {
  const auto time = civil_time(day_number);
  return time ? printed("%02d.%02d.%02d %02d:%02d:%02d", time->day, time->month, time->year % 100, time->hour,
                        time->minute, time->second)
              : std::string();
}

f64 whole_days(f64 day_number) {
  return std::trunc(day_number);
}

f64 time_of_day(f64 day_number) {
  return std::abs(day_number - std::trunc(day_number));
}

std::optional<f64> day_number_from_text(std::string_view text) {
  const std::string_view bare = trimmed(text);
  if (const auto number = plain_number(bare)) return number;
  if (const auto time = read_whole_time(bare)) return time;
  const auto fields = read_date_and_time(bare);
  if (!fields) return std::nullopt;
  const auto days = day_number(*fields);
  if (!days) return std::nullopt;
  return *days < 0 ? *days - fields->time : *days + fields->time;
}

}  // namespace trendaro
