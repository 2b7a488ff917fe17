#include "graph/curve_samples.h"

#include <algorithm>
#include <cmath>

#include "graph/ask_for_memory.h"

namespace trendaro {
namespace {

// The length of the longest block without a drawn sample that begins at `first` and ends by `last`; 0 where
// none does.
std::size_t gap_from(const CurveSamples& samples, std::size_t first, std::size_t last) {
  std::size_t found = 0;
  std::size_t length = kIndexBlock;
  for (const auto& level : samples.extents->y_levels) {
    if (first % length != 0 || length > last - first || !level.at(first / length).empty()) break;
    found = length;
    length *= kIndexFan;
  }
  return found;
}

// The same of a block that ends at `last` and begins at `first` or later.
std::size_t gap_before(const CurveSamples& samples, std::size_t first, std::size_t last) {
  std::size_t found = 0;
  std::size_t length = kIndexBlock;
  for (const auto& level : samples.extents->y_levels) {
    if (last % length != 0 || length > last - first || !level.at(last / length - 1).empty()) break;
    found = length;
    length *= kIndexFan;
  }
  return found;
}

// The sample at which an evenly spaced curve would reach the limit.
std::size_t even_guess(const CurveSamples& samples, f64 limit) {
  const PointExtent& whole = samples.extents->whole;
  const f64 start = samples.falling ? whole.x_high : whole.x_low;
  const f64 end = samples.falling ? whole.x_low : whole.x_high;
  const f64 place = (limit - start) / (end - start) * static_cast<f64>(samples.count - 1);
  if (!(place > 0)) return 0;
  return place < static_cast<f64>(samples.count) ? static_cast<std::size_t>(place) : samples.count - 1;
}

// Closes in on the first drawn sample that has reached a limit.
class LimitSearch {
 public:
  LimitSearch(const CurveSamples& samples, std::size_t from, f64 limit)
      : samples_(samples), limit_(limit), low_(from), high_(samples.count), found_(samples.count) {}

  // Steps away from a place that is near, ever longer ones, until the limit lies between two of them.
  void close_in_from(std::size_t near) {
    near = std::clamp(near, low_, high_ - 1);
    const bool backwards = probe(near);
    for (std::size_t step = 1; low_ < high_; step *= 2) {
      const bool beyond = backwards ? near < low_ + step : near + step >= high_;
      if (beyond || probe(backwards ? near - step : near + step) != backwards) return;
    }
  }

  std::size_t halve() {
    while (low_ < high_) probe(low_ + (high_ - low_) / 2);
    return found_;
  }

 private:
  // Whether the first drawn sample from `place` on has reached the limit; nothing behind it has to be looked
  // at then, and nothing before it otherwise.
  bool probe(std::size_t place) {
    const std::size_t drawn = first_drawn(samples_, place, high_);
    if (drawn < high_ && !reached(samples_.x(drawn))) {
      low_ = std::max(low_, drawn + 1);
      return false;
    }
    if (drawn < high_) found_ = drawn;
    high_ = place;
    return true;
  }

  [[nodiscard]] bool reached(f64 x) const { return samples_.falling ? x <= limit_ : x >= limit_; }

  const CurveSamples& samples_;
  f64 limit_;
  std::size_t low_, high_;  // what is left to look at: from low_ to high_ - 1
  std::size_t found_;       // a drawn sample that has reached the limit
};

}  // namespace

bool CurveSamples::drawn(std::size_t index) const {
  if (!std::isfinite(y[index]) || y[index] == null_y) return false;
  if (x_single != nullptr)
    return std::isfinite(x_single[index]) && x_single[index] != static_cast<f32>(null_x);
  return std::isfinite(x_double[index]) && x_double[index] != null_x;
}

CurveSamples curve_samples(const GraphProperties& shown, std::size_t subset) {
  const auto points = static_cast<std::size_t>(std::max(0, shown.PointCount));
  if (!shown.curve_index || shown.curve_index->points != points) return {};
  if (subset >= shown.curve_index->curves.size() || !shown.YData) return {};
  const std::size_t base = subset * points;
  const std::size_t end = base + points;
  const std::size_t x_values = shown.UsingXDataII ? (shown.XDataII ? shown.XDataII->size() : 0)
                                                  : (shown.XData ? shown.XData->size() : 0);
  if (shown.YData->size() < end || x_values < end) return {};
  CurveSamples samples;
  samples.extents = &shown.curve_index->curves[subset];
  samples.y = shown.YData->data() + base;
  if (shown.UsingXDataII)
    samples.x_double = shown.XDataII->data() + base;
  else
    samples.x_single = shown.XData->data() + base;
  samples.count = std::min(points, samples.extents->used);
  samples.null_x = shown.NullDataValueX;
  samples.null_y = static_cast<f32>(shown.NullDataValue);
  samples.rising = samples.extents->x_rises;
  samples.falling = samples.extents->x_falls && !samples.rising;
  return samples;
}

std::size_t first_drawn(const CurveSamples& samples, std::size_t first, std::size_t last) {
  if (samples.extents->gapless) return first;
  while (first < last && !samples.drawn(first))
    first += std::max<std::size_t>(1, gap_from(samples, first, last));
  return first;
}

std::size_t drawn_end(const CurveSamples& samples, std::size_t first, std::size_t last) {
  if (samples.extents->gapless) return last;
  while (first < last && !samples.drawn(last - 1))
    last -= std::max<std::size_t>(1, gap_before(samples, first, last));
  return last;
}

void ask_for_sample(const CurveSamples& samples, std::size_t index) {
  reach_for_memory(samples.y + index, 1);
  if (samples.x_single != nullptr)
    reach_for_memory(samples.x_single + index, 1);
  else
    reach_for_memory(samples.x_double + index, 1);
}

void ask_for_limit(const CurveSamples& samples, f64 limit) {
  if (samples.count > 0) ask_for_sample(samples, even_guess(samples, limit));
}

std::size_t first_reaching(const CurveSamples& samples, std::size_t from, f64 limit) {
  if (from >= samples.count) return from;
  LimitSearch search(samples, from, limit);
  search.close_in_from(even_guess(samples, limit));
  return search.halve();
}

}  // namespace trendaro
