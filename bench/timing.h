#pragma once

#include <algorithm>
#include <chrono>
#include <functional>
#include <vector>

#include "app/types.h"

namespace trendaro::bench {

// How long `work` takes, in milliseconds.
inline f64 milliseconds(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<f64, std::milli>(std::chrono::steady_clock::now() - start).count();
}

// The middle one of at least one time.
inline f64 median(std::vector<f64> times) {
  const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
  std::ranges::nth_element(times, middle);
  return *middle;
}

}  // namespace trendaro::bench
