#include "graph/run_extremes.h"

#include <algorithm>

#include "graph/range_search.h"

namespace trendaro {
namespace {

// The y of samples all of which are drawn.
struct AllHeights {
  const CurveSamples& samples;

  [[nodiscard]] std::size_t count() const { return samples.count; }
  [[nodiscard]] const f32* data() const { return samples.y; }

  [[nodiscard]] ValueRange<f32> range(std::size_t first, std::size_t last) const {
    return {least_of(samples.y + first, last - first), greatest_of(samples.y + first, last - first)};
  }
  [[nodiscard]] std::size_t first_with(std::size_t first, std::size_t last, f32 value) const {
    return first + first_equal_of(samples.y + first, last - first, value);
  }
};

// One coordinate of the samples that are drawn.
template <typename T, typename Coordinate>
struct DrawnValues {
  const CurveSamples& samples;
  Coordinate coordinate;

  [[nodiscard]] std::size_t count() const { return samples.count; }
  [[nodiscard]] const f32* data() const { return samples.y; }

  [[nodiscard]] ValueRange<T> range(std::size_t first, std::size_t last) const {
    ValueRange<T> range;
    for (; first < last; ++first)
      if (samples.drawn(first)) range.add({coordinate(first), coordinate(first)});
    return range;
  }

  [[nodiscard]] std::size_t first_with(std::size_t first, std::size_t last, T value) const {
    while (first + 1 < last && !(coordinate(first) == value && samples.drawn(first))) ++first;
    return first;
  }
};

template <typename T, typename Coordinate>
DrawnValues<T, Coordinate> drawn_values(const CurveSamples& samples, Coordinate coordinate) {
  return {samples, coordinate};
}

// Calls `use` with the y of the samples that are drawn.
template <typename Use>
auto with_heights(const CurveSamples& samples, Use use) {
  if (samples.extents->gapless) return use(AllHeights{samples});
  return use(drawn_values<f32>(samples, [&](std::size_t i) { return samples.y[i]; }));
}

ValueRange<f64> x_range(const CurveSamples& samples, std::size_t first, std::size_t last) {
  if (samples.rising) return {samples.x(first), samples.x(last - 1)};
  if (samples.falling) return {samples.x(last - 1), samples.x(first)};
  const auto values = drawn_values<f64>(samples, [&](std::size_t i) { return samples.x(i); });
  return RangeSearch(samples.extents->x_levels, values, first, last).range();
}

// Takes the gaps off both ends of a run; false where nothing is left.
bool shrink(const CurveSamples& samples, std::size_t& first, std::size_t& last) {
  last = std::min(last, samples.count);
  if (first >= last) return false;
  first = first_drawn(samples, first, last);
  last = drawn_end(samples, first, last);
  return first < last;
}

}  // namespace

bool find_extremes(const CurveSamples& samples, std::size_t first, std::size_t last, RunExtremes& found) {
  if (!shrink(samples, first, last)) return false;
  found = with_heights(samples, [&](const auto& heights) {
    RangeSearch search(samples.extents->y_levels, heights, first, last);
    return RunExtremes{first, search.lowest(), search.highest(), last - 1};
  });
  return true;
}

std::vector<std::optional<RunExtremes>> extremes_of_runs(const CurveSamples& samples,
                                                         std::span<const std::size_t> stops) {
  std::vector<std::optional<RunExtremes>> found;
  found.reserve(stops.size());
  with_heights(samples, [&](const auto& heights) {
    search_runs(samples.extents->y_levels, heights, stops, [&](std::size_t run, auto& search) {
      std::size_t first = stops[run];
      std::size_t last = stops[run + 1];
      if (shrink(samples, first, last))
        found.push_back(RunExtremes{first, search.lowest(), search.highest(), last - 1});
      else
        found.push_back(std::nullopt);
    });
  });
  return found;
}

PointExtent extent_of_run(const CurveSamples& samples, std::size_t first, std::size_t last) {
  if (!shrink(samples, first, last)) return {};
  const auto x = x_range(samples, first, last);
  const auto y = with_heights(samples, [&](const auto& heights) {
    return RangeSearch(samples.extents->y_levels, heights, first, last).range();
  });
  return {x.low, x.high, y.low, y.high};
}

}  // namespace trendaro
