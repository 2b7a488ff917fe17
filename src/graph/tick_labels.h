#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/types.h"

namespace trendaro {

// How an axis writes its numbers: from the text prefix "|" digits "|" suffix.
struct NumberFormat {
  std::string prefix, suffix;   // ahead of and behind each number
  std::optional<int> decimals;  // empty: as many as the step needs
};

// An empty text leaves the digits to the axis. The digits piece names the decimals by the places behind its
// "."; without a "." it stands for whole numbers.
NumberFormat parse_number_format(std::string_view text);

// Decimals that a multiple of `step` needs, 0 to 15.
int decimals_of_step(f64 step);

// The labels of ticks that lie `step` apart: one number of decimals for all, so that neighbours differ. Very
// large and very small numbers take an exponent that is a multiple of three, common to all, where the plain
// form would be long and the exponent makes it shorter. Values are divided by 10^`power` first.
std::vector<std::string> tick_labels(const std::vector<f64>& values, f64 step, const NumberFormat& format,
                                     int power);

// A number of a logarithmic axis: `part`, 1 to 9, times 10^`exponent`.
struct DecadePart {
  int exponent = 0;  // of ten
  int part = 1;      // 1 to 9
};

// The labels of a logarithmic axis, all in one spelling: plain numbers ("0.02") or, where one of them would
// be long, a digit and its exponent ("2e-7"). Own decimals make plain numbers. Values are divided by
// 10^`power` first.
std::vector<std::string> decade_labels(const std::vector<DecadePart>& values, const NumberFormat& format,
                                       int power);

// The number itself, exact for powers of ten.
f64 decade_value(const DecadePart& value);

}  // namespace trendaro
