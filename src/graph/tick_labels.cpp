#include "graph/tick_labels.h"

#include <algorithm>
#include <cmath>

#include "app/numbers.h"

namespace trendaro {
namespace {

constexpr int kMostDecimals = 15;
constexpr std::size_t kLongPlainNumber = 7;
constexpr f64 kLargestPlain = 1e15;
// Powers of ten whose plain numbers are not longer than that.
constexpr int kLeastPlainDecade = -5, kLargestPlainDecade = 6;

std::size_t longest(const std::vector<std::string>& texts) {
  std::size_t length = 0;
  for (const std::string& text : texts) length = std::max(length, text.size() - (text[0] == '-' ? 1 : 0));
  return length;
}

// A negative number that rounds to zero loses its sign.
std::string fixed_number(f64 value, int decimals) {
  std::string text = fixed_text(value, decimals);
  if (text[0] == '-' && text.find_first_not_of("-0.") == std::string::npos) text.erase(0, 1);
  return text;
}

std::vector<std::string> plain_numbers(const std::vector<f64>& values, int decimals) {
  std::vector<std::string> texts;
  for (const f64 value : values) texts.push_back(fixed_number(value, decimals));
  return texts;
}

std::vector<std::string> exponent_numbers(const std::vector<f64>& values, f64 size, f64 step) {
  const int exponent = 3 * static_cast<int>(std::floor(std::log10(size) / 3 + 1e-9));
  const f64 unit = std::pow(10.0, exponent);
  const int decimals = decimals_of_step(step / unit);
  std::vector<std::string> texts;
  for (const f64 value : values) {
    std::string mantissa = fixed_number(value / unit, decimals);
    texts.push_back(value == 0 ? "0" : mantissa + "e" + std::to_string(exponent));
  }
  return texts;
}

}  // namespace

NumberFormat parse_number_format(std::string_view text) {
  if (text.empty()) return {};
  const auto first = text.find('|');
  if (first == std::string_view::npos) return {};
  const auto second = text.find('|', first + 1);
  const std::string_view digits = text.substr(first + 1, second - first - 1);
  NumberFormat format;
  format.prefix = text.substr(0, first);
  if (second != std::string_view::npos) format.suffix = text.substr(second + 1);
  const auto point = digits.find('.');
  const auto places = point == std::string_view::npos ? 0 : digits.size() - point - 1;
  format.decimals = static_cast<int>(std::min<std::size_t>(places, kMostDecimals));
  return format;
}

int decimals_of_step(f64 step) {
  f64 scaled = std::abs(step);
  for (int decimals = 0; decimals < kMostDecimals; ++decimals, scaled *= 10)
    if (scaled >= 0.5 && std::abs(scaled - std::round(scaled)) < 1e-6 * scaled) return decimals;
  return kMostDecimals;
}

std::vector<std::string> tick_labels(const std::vector<f64>& values, f64 step, const NumberFormat& format,
                                     int power) {
  const f64 unit = std::pow(10.0, power);
  std::vector<f64> shown;
  f64 size = 0;
  for (const f64 value : values) {
    shown.push_back(value / unit);
    size = std::max(size, std::abs(shown.back()));
  }
  const f64 shown_step = step / unit;
  std::vector<std::string> texts;
  if (size < kLargestPlain)
    texts = plain_numbers(shown, format.decimals.value_or(decimals_of_step(shown_step)));
  const bool too_fine = shown_step < 1e-14;
  if (!format.decimals && size > 0 && (texts.empty() || too_fine || longest(texts) > kLongPlainNumber)) {
    auto exponents = exponent_numbers(shown, size, shown_step);
    if (texts.empty() || too_fine || longest(exponents) < longest(texts)) texts = std::move(exponents);
  }
  if (texts.empty())
    for (const f64 value : shown) texts.push_back(number_text(value));
  for (std::string& text : texts) text = format.prefix + text + format.suffix;
  return texts;
}

f64 decade_value(const DecadePart& value) {
  const f64 power = std::pow(10.0, std::abs(value.exponent));
  return value.exponent < 0 ? value.part / power : value.part * power;
}

std::vector<std::string> decade_labels(const std::vector<DecadePart>& values, const NumberFormat& format,
                                       int power) {
  const bool plain = std::all_of(values.begin(), values.end(), [power](const DecadePart& value) {
    const int exponent = value.exponent - power;
    return exponent >= kLeastPlainDecade && exponent <= kLargestPlainDecade;
  });
  std::vector<std::string> texts;
  for (const DecadePart& value : values) {
    const DecadePart shown{value.exponent - power, value.part};
    if (plain || format.decimals)
      texts.push_back(tick_labels({decade_value(shown)}, decade_value(shown), format, 0)[0]);
    else
      texts.push_back(format.prefix + std::to_string(shown.part) + "e" + std::to_string(shown.exponent) +
                      format.suffix);
  }
  return texts;
}

}  // namespace trendaro
