#pragma once

#include <string>
#include <string_view>

#include "app/types.h"

namespace trendaro {

// The number a user typed. The first "," counts as "."; behind an "x" or "X" the text is hexadecimal. The
// longest number at the start is taken; a text without one gives 0. Beyond the range it is the largest f64.
f64 ParseNumber(std::string_view text);

// The f64 nearest to a decimal number that is too large or too small for one: the largest of its sign, or 0.
f64 nearest_bound(const std::string& number);

// The nearest integer, ties to even. Throws RunTimeError{kOverflow} when it does not fit, and for a NaN.
i16 round_to_i16(f64 value);
i32 round_to_i32(f64 value);

// The shortest text that reads back to the same value, "." as decimal sign; "nan", "inf", "-inf". From
// 0.00001 up to 16 (f64) or 7 (f32) digits ahead of the point it is written without an exponent.
std::string number_text(f64 value);
std::string number_text(f32 value);
std::string number_text(i64 value);

// A count in plain digits up to 15 of them: what arithmetic leaves behind the last whole point is hidden.
std::string count_text(f64 count);

// Fixed notation with `decimals` digits behind the ".".
std::string fixed_text(f64 value, int decimals);

}  // namespace trendaro
