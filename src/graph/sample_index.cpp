#include "graph/sample_index.h"

#include <algorithm>
#include <cmath>

#include "graph/lanes.h"
#include "graph/range_search.h"

namespace trendaro {
namespace {

// Samples that are no number do not count.
struct Numbers {
  static constexpr std::size_t kBlock = 16;
  std::span<const f64> samples;

  [[nodiscard]] std::size_t count() const { return samples.size(); }
  [[nodiscard]] const f64* data() const { return samples.data(); }
  [[nodiscard]] ValueRange<f64> range(std::size_t first, std::size_t last) const {
    return range_of(samples.subspan(first, last - first));
  }
  [[nodiscard]] std::size_t first_with(std::size_t first, std::size_t last, f64 value) const {
    return first + first_equal(samples.subspan(first, last - first), value);
  }
};

// A first sample that is no number is both extremes.
SampleExtremes extremes_found(std::span<const f64> samples, std::size_t first,
                              RangeSearch<f64, Numbers>& search) {
  if (std::isnan(samples[first])) return extremes_of(samples[first], first);
  const ValueRange<f64> range = search.range();
  return {.least = search.lowest(),
          .greatest = search.highest(),
          .least_value = range.low,
          .greatest_value = range.high};
}

// Of one block. A comparison with a sample that is no number keeps the lane.
ValueRange<f64> range_of_block(std::span<const f64> samples) {
  if (samples.size() < Numbers::kBlock) return range_of(samples);
  Lanes<f64> low(ValueRange<f64>{}.low);
  Lanes<f64> high(ValueRange<f64>{}.high);
  for (std::size_t i = 0; i < Numbers::kBlock; i += Lanes<f64>::size()) {
    const Lanes<f64> values = load_lanes(&samples[i]);
    where(values < low, low) = values;
    where(values > high, high) = values;
  }
  return {hmin(low), hmax(high)};
}

}  // namespace

std::shared_ptr<const SampleIndex> build_sample_index(std::span<const f64> samples) {
  constexpr std::size_t kBlock = Numbers::kBlock;
  auto index = std::make_shared<SampleIndex>();
  auto& finest = index->levels.emplace_back();
  finest.reserve((samples.size() + kBlock - 1) / kBlock);
  for (std::size_t first = 0; first < samples.size(); first += kBlock)
    finest.push_back(range_of_block(samples.subspan(first, std::min(kBlock, samples.size() - first))));
  add_coarser_levels(index->levels);
  return index;
}

SampleExtremes find_sample_extremes(std::span<const f64> samples, const SampleIndex& index, std::size_t first,
                                    std::size_t last) {
  const Numbers numbers{samples};
  RangeSearch search(index.levels, numbers, first, last);
  return extremes_found(samples, first, search);
}

std::vector<SampleExtremes> sample_extremes_of_runs(std::span<const f64> samples, const SampleIndex& index,
                                                    std::span<const std::size_t> stops) {
  std::vector<SampleExtremes> found;
  found.reserve(stops.size());
  const Numbers numbers{samples};
  search_runs(index.levels, numbers, stops, [&](std::size_t run, auto& search) {
    found.push_back(extremes_found(samples, stops[run], search));
  });
  return found;
}

}  // namespace trendaro
