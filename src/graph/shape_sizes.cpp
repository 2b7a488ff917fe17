#include "graph/shape_sizes.h"

#include <algorithm>
#include <cmath>

namespace trendaro {
namespace {

constexpr f64 kBarPart = 0.7;  // of the distance between bars
constexpr f64 kSmallestBubble = 2;

}  // namespace

f64 bar_group_width(f64 distance) {
  return std::max(1.0, std::min(distance, kWidestBarDistance) * kBarPart);
}

f64 bubble_radius(f64 value, f64 largest) {
  const f64 part = largest > 0 ? std::min(1.0, std::abs(value) / largest) : 0;
  return kSmallestBubble + (kLargestBubble - kSmallestBubble) * std::sqrt(part);
}

f64 symbol_size(i32 setting) {
  switch (setting) {
    case 1:
      return 8;
    case 2:
      return 11;
    case 3:
      return 3.5;
    default:
      return 6;
  }
}

}  // namespace trendaro
