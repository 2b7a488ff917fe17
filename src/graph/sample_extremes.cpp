#include "graph/sample_extremes.h"

#include <algorithm>
#include <array>
#include <limits>

namespace trendaro {
namespace {

constexpr f64 kInfinity = std::numeric_limits<f64>::infinity();
// Fewer samples are looked at one by one.
constexpr std::size_t kFew = 16;
// Samples that are looked through once more for the place of a new extreme.
constexpr std::size_t kStretch = 1024;

}  // namespace

ValueRange<f64> range_of(std::span<const f64> samples) {
  // Lanes that do not depend on each other, so that the compiler uses vector instructions. Written like this,
  // a comparison with a sample that is no number keeps the lane.
  constexpr std::size_t kLanes = 16;
  std::array<f64, kLanes> low, high;
  low.fill(kInfinity);
  high.fill(-kInfinity);
  const f64* sample = samples.data();
  std::size_t i = 0;
  for (; i + kLanes <= samples.size(); i += kLanes)
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
      const f64 value = sample[i + lane];
      low[lane] = value < low[lane] ? value : low[lane];
      high[lane] = value > high[lane] ? value : high[lane];
    }
  for (; i < samples.size(); ++i) {
    low[0] = sample[i] < low[0] ? sample[i] : low[0];
    high[0] = sample[i] > high[0] ? sample[i] : high[0];
  }
  return {*std::ranges::min_element(low), *std::ranges::max_element(high)};
}

std::size_t first_equal(std::span<const f64> samples, f64 value) {
  constexpr std::size_t kLanes = 16;
  std::size_t i = 0;
  for (; i + kLanes <= samples.size(); i += kLanes) {
    i32 hits = 0;
    for (std::size_t lane = 0; lane < kLanes; ++lane) hits |= samples[i + lane] == value ? 1 : 0;
    if (hits != 0) break;
  }
  while (i + 1 < samples.size() && samples[i] != value) ++i;
  return i;
}

void add_samples(SampleExtremes& extremes, std::span<const f64> samples, std::size_t first) {
  if (samples.size() < kFew) {
    for (std::size_t i = 0; i < samples.size(); ++i) add_sample(extremes, samples[i], first + i);
    return;
  }
  for (std::size_t begin = 0; begin < samples.size(); begin += kStretch) {
    const auto stretch = samples.subspan(begin, std::min(kStretch, samples.size() - begin));
    const ValueRange<f64> range = range_of(stretch);
    if (range.low < extremes.least_value) {
      extremes.least = first + begin + first_equal(stretch, range.low);
      extremes.least_value = stretch[extremes.least - first - begin];
    }
    if (range.high > extremes.greatest_value) {
      extremes.greatest = first + begin + first_equal(stretch, range.high);
      extremes.greatest_value = stretch[extremes.greatest - first - begin];
    }
  }
}

}  // namespace trendaro
