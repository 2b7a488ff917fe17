#pragma once

#include <cstddef>
#include <span>

#include "app/types.h"
#include "graph/range_levels.h"

namespace trendaro {

// Where a run of samples is lowest and highest; of equal samples the first. A sample that is not a number is
// passed over, but as the first of the run it is both.
struct SampleExtremes {
  std::size_t least = 0, greatest = 0;  // indices of samples
  f64 least_value = 0, greatest_value = 0;
};

// The extremes of one sample.
inline SampleExtremes extremes_of(f64 value, std::size_t index) {
  return {.least = index, .greatest = index, .least_value = value, .greatest_value = value};
}

// The extremes where no sample from `place` on is a number.
inline SampleExtremes no_extremes(std::size_t place) {
  constexpr ValueRange<f64> kEmpty;
  return {.least = place, .greatest = place, .least_value = kEmpty.low, .greatest_value = kEmpty.high};
}

// Widens `extremes` by those of samples that follow, or that go ahead. None of the values is NaN. Without
// branches, for these comparisons go either way.
inline void add_following(SampleExtremes& extremes, const SampleExtremes& other) {
  const bool lower = other.least_value < extremes.least_value;
  const bool higher = other.greatest_value > extremes.greatest_value;
  extremes.least = lower ? other.least : extremes.least;
  extremes.least_value = lower ? other.least_value : extremes.least_value;
  extremes.greatest = higher ? other.greatest : extremes.greatest;
  extremes.greatest_value = higher ? other.greatest_value : extremes.greatest_value;
}
inline void add_preceding(SampleExtremes& extremes, const SampleExtremes& other) {
  SampleExtremes all = other;
  add_following(all, extremes);
  extremes = all;
}

// Widens `extremes` by a sample that follows.
inline void add_sample(SampleExtremes& extremes, f64 value, std::size_t index) {
  if (value > extremes.greatest_value) {
    extremes.greatest_value = value;
    extremes.greatest = index;
  }
  if (value < extremes.least_value) {
    extremes.least_value = value;
    extremes.least = index;
  }
}

// Widens `extremes` by the samples that follow; the first of `samples` has the index `first`.
void add_samples(SampleExtremes& extremes, std::span<const f64> samples, std::size_t first);

// Of the samples that are a number.
ValueRange<f64> range_of(std::span<const f64> samples);

// Index of the first sample that equals `value`, which one of them does.
std::size_t first_equal(std::span<const f64> samples, f64 value);

}  // namespace trendaro
