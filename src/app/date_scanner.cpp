#include "app/date_scanner.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "app/paths.h"

namespace trendaro {
namespace {

struct MonthName {
  std::string_view name;
  int month;
};
constexpr auto kMonthNames = std::to_array<MonthName>({{"JAN", 1},
                                                       {"FEB", 2},
                                                       {"MAR", 3},
                                                       {"MÄR", 3},
                                                       {"MäR", 3},
                                                       {"MRZ", 3},
                                                       {"APR", 4},
                                                       {"MAY", 5},
                                                       {"MAI", 5},
                                                       {"JUN", 6},
                                                       {"JUL", 7},
                                                       {"AUG", 8},
                                                       {"SEP", 9},
                                                       {"OCT", 10},
                                                       {"OKT", 10},
                                                       {"NOV", 11},
                                                       {"DEC", 12},
                                                       {"DEZ", 12}});

bool is_digit(char character) {
  return character >= '0' && character <= '9';
}

// Takes pieces from the front of a text; a piece that is not there takes nothing.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : text_(text) {}

  [[nodiscard]] bool at_end() const { return text_.empty(); }
  bool take(char character) {
    if (text_.empty() || text_.front() != character) return false;
    text_.remove_prefix(1);
    return true;
  }
  bool take_blanks() {
    const std::size_t before = text_.size();
    text_.remove_prefix(std::min(text_.find_first_not_of(" \t"), text_.size()));
    return text_.size() < before;
  }
  // A number of up to `most` digits; nothing when it has fewer than `least` or more digits follow.
  std::optional<int> number(std::size_t least, std::size_t most) {
    const auto end = std::find_if_not(text_.begin(), text_.end(), is_digit);
    const auto digits = static_cast<std::size_t>(end - text_.begin());
    if (digits < least || digits > most) return std::nullopt;
    int value = 0;
    std::from_chars(text_.data(), text_.data() + digits, value);
    text_.remove_prefix(digits);
    return value;
  }
  // Digits behind a decimal sign, as a fraction.
  f64 decimals() {
    f64 value = 0;
    for (f64 weight = 0.1; !text_.empty() && is_digit(text_.front()); weight /= 10) {
      value += weight * (text_.front() - '0');
      text_.remove_prefix(1);
    }
    return value;
  }
  std::optional<int> month_name() {
    const std::string_view word = text_.substr(0, text_.find_first_of(" .\t"));
    const std::string upper_word = upper(word);
    for (const MonthName& known : kMonthNames)
      if (upper_word == known.name) {
        text_.remove_prefix(word.size());
        take('.');
        return known.month;
      }
    return std::nullopt;
  }

 private:
  std::string_view text_;
};

std::optional<f64> read_time(Scanner& scanner) {
  const auto hour = scanner.number(1, 2);
  if (!hour || *hour > 23 || !scanner.take(':')) return std::nullopt;
  const auto minute = scanner.number(1, 2);
  if (!minute || *minute > 59) return std::nullopt;
  f64 second = 0;
  if (scanner.take(':')) {
    const auto whole = scanner.number(1, 2);
    if (!whole || *whole > 59) return std::nullopt;
    second = *whole;
    if (scanner.take('.') || scanner.take(',')) second += scanner.decimals();
  }
  return (*hour * 3600 + *minute * 60 + second) / 86400;
}

int full_year(int year, bool two_digits) {
  if (!two_digits) return year;
  return year < 30 ? 2000 + year : 1900 + year;
}

// "5.3.2021" or "5.3.21".
std::optional<DateFields> read_german_date(Scanner& scanner) {
  DateFields date;
  const auto day = scanner.number(1, 2);
  if (!day || !scanner.take('.')) return std::nullopt;
  const auto month = scanner.number(1, 2);
  if (!month || !scanner.take('.')) return std::nullopt;
  if (const auto short_year = scanner.number(1, 2))
    date.year = full_year(*short_year, true);
  else if (const auto year = scanner.number(3, 4))
    date.year = *year;
  else
    return std::nullopt;
  date.day = *day;
  date.month = *month;
  return date;
}

// "2021-03-05".
std::optional<DateFields> read_iso_date(Scanner& scanner) {
  const auto year = scanner.number(4, 4);
  if (!year || !scanner.take('-')) return std::nullopt;
  const auto month = scanner.number(1, 2);
  if (!month || !scanner.take('-')) return std::nullopt;
  const auto day = scanner.number(1, 2);
  if (!day) return std::nullopt;
  return DateFields{*year, *month, *day};
}

// "Mar 05 2021".
std::optional<DateFields> read_recorder_date(Scanner& scanner) {
  const auto month = scanner.month_name();
  if (!month || !scanner.take_blanks()) return std::nullopt;
  const auto day = scanner.number(1, 2);
  if (!day || !scanner.take_blanks()) return std::nullopt;
  const auto year = scanner.number(4, 4);
  if (!year) return std::nullopt;
  return DateFields{*year, *month, *day};
}

// A date in the form that `read_date` knows, and the time behind it if there is one.
template <typename ReadDate>
std::optional<DateFields> with_time(std::string_view text, ReadDate read_date) {
  Scanner scanner(text);
  auto date = read_date(scanner);
  if (!date || scanner.at_end()) return date;
  if (!scanner.take('T') && !scanner.take_blanks()) return std::nullopt;
  const auto time = read_time(scanner);
  if (!time || !scanner.at_end()) return std::nullopt;
  date->time = *time;
  return date;
}

}  // namespace

std::optional<f64> read_whole_time(std::string_view text) {
  Scanner scanner(text);
  const auto time = read_time(scanner);
  return scanner.at_end() ? time : std::nullopt;
}

std::optional<DateFields> read_date_and_time(std::string_view text) {
  if (const auto date = with_time(text, read_german_date)) return date;
  if (const auto date = with_time(text, read_iso_date)) return date;
  return with_time(text, read_recorder_date);
}

}  // namespace trendaro
