#include "graph/run_extremes.h"

#include <algorithm>
#include <array>
#include <vector>

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

// Goes over many runs at a time, so that what they wait for comes at the same time.
template <typename Heights>
class RunWalker {
 public:
  RunWalker(const CurveSamples& samples, const Heights& heights, std::span<const std::size_t> stops,
            const RunWalk& walk)
      : samples_(samples), heights_(heights), stops_(stops), walk_(walk) {}

  void go() {
    ask_for_stops(0);
    for (std::size_t first = 0; first + 1 < stops_.size(); first += kTogether) {
      const std::size_t last = std::min(first + kTogether, stops_.size() - 1);
      ask_for_stops(last);
      wanted_.clear();
      for (std::size_t run = first; run < last; ++run) look_at(run);
      for (const Wanted& wanted : wanted_) find_places(wanted);
      for (std::size_t run = first; run < last; ++run) walk_.use(run, found_[run % kTogether]);
    }
  }

 private:
  static constexpr std::size_t kTogether = 16;
  using Search = RangeSearch<f32, Heights>;

  struct Wanted {
    std::size_t run;
    Search search;
  };

  void ask_for_stops(std::size_t first) const {
    for (const std::size_t stop : stops_.subspan(first, std::min(kTogether, stops_.size() - first))) {
      ask_for_entries(samples_.extents->y_levels, stop);
      ask_for_sample(samples_, std::min(stop, samples_.count - 1));
    }
  }

  void look_at(std::size_t run) {
    std::size_t first = stops_[run];
    std::size_t last = stops_[run + 1];
    std::optional<RunExtremes>& found = found_[run % kTogether];
    found.reset();
    const Search search(samples_.extents->y_levels, heights_, first, last);
    if (!shrink(samples_, first, last)) return;
    found = RunExtremes{.first = first, .last = last - 1, .y = search.range()};
    if (!walk_.wants_places(*found)) return;
    search.ask();
    wanted_.push_back({run, search});
  }

  void find_places(const Wanted& wanted) {
    RunExtremes& found = *found_[wanted.run % kTogether];
    found.has_places = true;
    found.lowest = wanted.search.lowest();
    found.highest = wanted.search.highest();
    ask_for_sample(samples_, found.lowest);
    ask_for_sample(samples_, found.highest);
  }

  const CurveSamples& samples_;
  const Heights& heights_;
  std::span<const std::size_t> stops_;
  const RunWalk& walk_;
  std::array<std::optional<RunExtremes>, kTogether> found_;
  std::vector<Wanted> wanted_;
};

}  // namespace

bool find_extremes(const CurveSamples& samples, std::size_t first, std::size_t last, RunExtremes& found) {
  if (!shrink(samples, first, last)) return false;
  found = with_heights(samples, [&](const auto& heights) {
    const RangeSearch search(samples.extents->y_levels, heights, first, last);
    return RunExtremes{first, last - 1, search.range(), true, search.lowest(), search.highest()};
  });
  return true;
}

void walk_runs(const CurveSamples& samples, std::span<const std::size_t> stops, const RunWalk& walk) {
  if (stops.size() < 2) return;
  with_heights(samples, [&](const auto& heights) { RunWalker(samples, heights, stops, walk).go(); });
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
