#include "graph/curve_samples.h"

#include <algorithm>
#include <cmath>

namespace trendaro {
namespace {

// A stretch of samples that has one entry in the index.
struct Block {
  const PointExtent* extent = nullptr;  // null: none begins or ends there
  std::size_t level = 0;
  std::size_t length = 0;
};

// The longest block that begins at `first` and ends by `last`.
Block block_from(const CurveSamples& samples, std::size_t first, std::size_t last) {
  Block found;
  std::size_t length = kIndexBlock;
  for (std::size_t level = 0; level < samples.extents->levels.size(); ++level, length *= kIndexFan) {
    if (first % length != 0 || length > last - first) break;
    found = {&samples.extents->levels[level][first / length], level, length};
  }
  return found;
}

// The longest block that ends at `last` and begins at `first` or later.
Block block_before(const CurveSamples& samples, std::size_t first, std::size_t last) {
  Block found;
  std::size_t length = kIndexBlock;
  for (std::size_t level = 0; level < samples.extents->levels.size(); ++level, length *= kIndexFan) {
    if (last % length != 0 || length > last - first) break;
    found = {&samples.extents->levels[level][last / length - 1], level, length};
  }
  return found;
}

std::size_t first_drawn(const CurveSamples& samples, std::size_t first, std::size_t last) {
  while (first < last && !samples.drawn(first)) {
    const Block block = block_from(samples, first, last);
    first += block.extent != nullptr && block.extent->empty() ? block.length : 1;
  }
  return first;
}

// The end of what is drawn: one behind the last such sample.
std::size_t drawn_end(const CurveSamples& samples, std::size_t first, std::size_t last) {
  while (first < last && !samples.drawn(last - 1)) {
    const Block block = block_before(samples, first, last);
    last -= block.extent != nullptr && block.extent->empty() ? block.length : 1;
  }
  return last;
}

f32 low(const PointExtent& extent) {
  return extent.y_low;
}
f32 high(const PointExtent& extent) {
  return extent.y_high;
}

// The first sample of a block that has the value, by way of ever finer blocks.
template <typename Get>
std::size_t place_in_block(const CurveSamples& samples, std::size_t first, std::size_t level, f32 value,
                           Get get) {
  std::size_t length = kIndexBlock;
  for (std::size_t i = 0; i < level; ++i) length *= kIndexFan;
  for (; level > 0; --level) {
    length /= kIndexFan;
    const auto& finer = samples.extents->levels[level - 1];
    while (get(finer[first / length]) != value) first += length;
  }
  const std::size_t end = std::min(samples.count, first + kIndexBlock);
  for (std::size_t i = first; i < end; ++i)
    if (samples.y[i] == value && samples.drawn(i)) return i;
  return first;
}

// Where the best value of a run was met: a sample, or a block that is looked into once the run is done.
struct Best {
  f32 value = 0;
  std::size_t place = 0;
  std::size_t level = 0;
  bool in_block = false;
};

template <typename Get>
std::size_t place_of(const CurveSamples& samples, const Best& best, Get get) {
  return best.in_block ? place_in_block(samples, best.place, best.level, best.value, get) : best.place;
}

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

bool find_extremes(const CurveSamples& samples, std::size_t first, std::size_t last, RunExtremes& found) {
  first = first_drawn(samples, first, last);
  last = drawn_end(samples, first, last);
  if (first == last) return false;
  Best lowest{samples.y[first], first};
  Best highest = lowest;
  for (std::size_t i = first; i < last;) {
    const Block block = block_from(samples, i, last);
    if (block.extent == nullptr) {
      if (samples.drawn(i)) {
        if (samples.y[i] < lowest.value) lowest = {samples.y[i], i};
        if (samples.y[i] > highest.value) highest = {samples.y[i], i};
      }
      ++i;
      continue;
    }
    if (block.extent->y_low < lowest.value) lowest = {block.extent->y_low, i, block.level, true};
    if (block.extent->y_high > highest.value) highest = {block.extent->y_high, i, block.level, true};
    i += block.length;
  }
  found = {first, place_of(samples, lowest, low), place_of(samples, highest, high), last - 1};
  return true;
}

std::size_t first_reaching(const CurveSamples& samples, std::size_t from, f64 limit) {
  const auto reached = [&](f64 x) { return samples.falling ? x <= limit : x >= limit; };
  const auto scan = [&](std::size_t first, std::size_t last) {
    while (first < last && !(reached(samples.x(first)) && samples.drawn(first))) ++first;
    return first;
  };
  const std::size_t block_end = std::min(samples.count, (from / kIndexBlock + 1) * kIndexBlock);
  from = scan(from, block_end);
  if (from < block_end || from >= samples.count) return from;
  // Blocks that end before the limit are stepped over, in ever longer steps; then ever shorter ones.
  const auto& levels = samples.extents->levels;
  std::size_t level = 0;
  std::size_t entry = from / kIndexBlock;
  while (entry < levels[level].size()) {
    const PointExtent& extent = levels[level][entry];
    if (!extent.empty() && reached(samples.falling ? extent.x_low : extent.x_high)) {
      if (level == 0) return scan(entry * kIndexBlock, std::min(samples.count, (entry + 1) * kIndexBlock));
      --level;
      entry *= kIndexFan;
      continue;
    }
    ++entry;
    while (entry % kIndexFan == 0 && level + 1 < levels.size()) {
      entry /= kIndexFan;
      ++level;
    }
  }
  return samples.count;
}

}  // namespace trendaro
