#include "interact/cursor_format.h"

#include <array>
#include <charconv>
#include <cmath>

#include "app/numbers.h"

namespace trendaro {
namespace {

struct Digits {
  f64 from;      // magnitude
  int decimals;  // behind the point
};

constexpr Digits kDigits[] = {{1000, 0}, {100, 1}, {10, 2}, {1, 3}, {0.1, 4}, {0.001, 5}, {0.00001, 7}};
constexpr f64 kLarge = 1'000'000;
constexpr int kExponentDecimals = 2;

std::string exponent_text(f64 value) {
  std::array<char, 32> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                 std::chars_format::scientific, kExponentDecimals);
  return {buffer.data(), end.ptr};
}

}  // namespace

std::string FormatCursorValue(f64 value) {
  const f64 magnitude = std::abs(value);
  if (magnitude == 0) return "0";
  if (!std::isfinite(value)) return number_text(value);
  if (magnitude >= kLarge) return exponent_text(value);
  for (const Digits& digits : kDigits)
    if (magnitude >= digits.from) return fixed_text(value, digits.decimals);
  return exponent_text(value);
}

}  // namespace trendaro
