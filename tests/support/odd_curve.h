#pragma once

#include <algorithm>
#include <limits>
#include <random>
#include <vector>

#include "app/types.h"

namespace trendaro {

// Curves of at least one sample with what makes extremes hard to find: equal values, plateaus, spikes, gaps
// and infinities.
inline std::vector<f64> odd_curve(std::mt19937& random, std::size_t count) {
  std::vector<f64> samples(count);
  const std::size_t levels = 1 + random() % 40;
  for (f64& sample : samples) sample = static_cast<f64>(random() % levels) - 3;
  const auto some_place = [&] { return samples.begin() + static_cast<std::ptrdiff_t>(random() % count); };
  for (auto plateau = random() % 4; plateau > 0; --plateau) {
    const auto begin = some_place();
    const auto length = std::min(samples.end() - begin, static_cast<std::ptrdiff_t>(random() % 3000));
    std::fill(begin, begin + length, static_cast<f64>(random() % levels));
  }
  for (auto spike = random() % 4; spike > 0; --spike) *some_place() = random() % 2 == 0 ? 1e6 : -1e6;
  for (auto gap = random() % 4; gap > 0; --gap) {
    const auto begin = some_place();
    const auto length = std::min(samples.end() - begin, static_cast<std::ptrdiff_t>(random() % 200));
    constexpr f64 kInfinity = std::numeric_limits<f64>::infinity();
    constexpr f64 kValues[] = {std::numeric_limits<f64>::quiet_NaN(), kInfinity, -kInfinity, -0.0};
    std::fill(begin, begin + length, kValues[random() % 4]);
  }
  return samples;
}

}  // namespace trendaro
