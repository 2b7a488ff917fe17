#include "app/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <locale>
#include <sstream>

#include "app/run_time_error.h"

namespace trendaro {
namespace {

// The nearest value in `Integer`; the default rounding mode is to the nearest, ties to even.
template <typename Integer>
Integer rounded(f64 value) {
  const f64 nearest = std::nearbyint(value);
  if (!(nearest >= static_cast<f64>(std::numeric_limits<Integer>::min()) &&
        nearest <= static_cast<f64>(std::numeric_limits<Integer>::max())))
    throw RunTimeError{kOverflow};
  return static_cast<Integer>(nearest);
}

f64 hexadecimal(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
  // Behind its digits a hexadecimal number could go on with a fraction, an exponent or a word.
  const std::string_view digits = text.substr(0, text.find_first_not_of("0123456789ABCDEFabcdef"));
  f64 value = 0;
  const auto [end, error] =
      std::from_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::hex);
  return error == std::errc::result_out_of_range ? std::numeric_limits<f64>::max() : value;
}

f64 leading_number(std::string_view text) {
  const auto start = text.find_first_not_of(" \t");
  if (start == std::string_view::npos) return 0;
  text.remove_prefix(start);
  // from_chars knows no "+", and would also read "inf" and "nan", which are no numbers that a user types.
  const bool has_plus = text.front() == '+';
  if (has_plus) text.remove_prefix(1);
  const auto first = text.find_first_not_of(has_plus ? "" : "-");
  if (first == std::string_view::npos || (text[first] != '.' && (text[first] < '0' || text[first] > '9')))
    return 0;
  f64 value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc::result_out_of_range) return value;
  return nearest_bound({text.data(), static_cast<std::size_t>(end - text.data())});
}

// Plain digits where a reader would write them so: an exponent from -5 up to what the type holds exactly.
template <typename Real>
std::string shortest_text(Real value) {
  const Real size = std::abs(value);
  const auto plain_end = std::pow(Real{10}, static_cast<Real>(std::numeric_limits<Real>::digits10 + 1));
  const bool plain = size == 0 || (size >= Real(1e-5) && size < plain_end);
  std::array<char, 32> buffer;
  char* const end = buffer.data() + buffer.size();
  const auto result = plain ? std::to_chars(buffer.data(), end, value, std::chars_format::fixed)
                            : std::to_chars(buffer.data(), end, value);
  return {buffer.data(), result.ptr};
}

}  // namespace

f64 ParseNumber(std::string_view text) {
  if (const auto x = text.find_first_of("xX"); x != std::string_view::npos)
    return hexadecimal(text.substr(x + 1));
  std::string with_point(text);
  if (const auto comma = with_point.find(','); comma != std::string::npos) with_point[comma] = '.';
  return leading_number(with_point);
}

f64 nearest_bound(const std::string& number) {
  std::istringstream stream(number);
  stream.imbue(std::locale::classic());
  f64 value = 0;
  stream >> value;
  return value;
}

i16 round_to_i16(f64 value) {
  return rounded<i16>(value);
}
i32 round_to_i32(f64 value) {
  return rounded<i32>(value);
}

std::string number_text(f64 value) {
  return shortest_text(value);
}

std::string number_text(f32 value) {
  return shortest_text(value);
}

std::string number_text(i64 value) {
  return std::to_string(value);
}

std::string count_text(f64 count) {
  constexpr int kDigits = 15;
  std::array<char, 32> buffer;
  const auto result =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), count, std::chars_format::general, kDigits);
  return {buffer.data(), result.ptr};
}

std::string fixed_text(f64 value, int decimals) {
  std::array<char, 400> buffer;  // the largest f64 has 309 digits ahead of the point
  const auto result =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed, decimals);
  return {buffer.data(), result.ptr};
}

}  // namespace trendaro
