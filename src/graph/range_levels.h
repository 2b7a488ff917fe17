#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <vector>

#include "app/types.h"
#include "files/sample_array.h"

namespace trendaro {

// Minimum and maximum of a run of values. Without a value, low is above high.
template <typename T>
struct ValueRange {
  T low = std::numeric_limits<T>::infinity();
  T high = -std::numeric_limits<T>::infinity();

  [[nodiscard]] bool empty() const { return low > high; }
  // Widens this range to hold `other` as well.
  void add(const ValueRange& other) {
    low = std::min(low, other.low);
    high = std::max(high, other.high);
  }

  friend bool operator==(const ValueRange&, const ValueRange&) = default;
};

// Points behind one entry of the finest level of a curve, and entries behind one entry of the next level.
inline constexpr std::size_t kIndexBlock = 64;
inline constexpr std::size_t kIndexFan = 16;

// Ranges of blocks of values of one length; the last one may stand for fewer values.
template <typename T>
struct RangeLevel {
  std::vector<T, SampleAllocator<T>> low, high;
  // The first entries of the finest level with that low and that high. The finest level itself has none.
  std::vector<u32> lowest, highest;

  [[nodiscard]] std::size_t size() const { return low.size(); }
  [[nodiscard]] ValueRange<T> at(std::size_t entry) const { return {low[entry], high[entry]}; }
  [[nodiscard]] std::size_t lowest_at(std::size_t entry) const {
    return lowest.empty() ? entry : lowest[entry];
  }
  [[nodiscard]] std::size_t highest_at(std::size_t entry) const {
    return highest.empty() ? entry : highest[entry];
  }
  void reserve(std::size_t count) {
    low.reserve(count);
    high.reserve(count);
  }
  void push_back(const ValueRange<T>& range) {
    low.push_back(range.low);
    high.push_back(range.high);
  }
};

// The finest level first; the coarsest one has at most kIndexFan entries.
template <typename T>
using RangeLevels = std::vector<RangeLevel<T>>;

// Adds what stands for the entries `first` to `last` - 1 of the next finer level.
template <typename T>
void add_coarser_entry(const RangeLevel<T>& finer, std::size_t first, std::size_t last,
                       RangeLevel<T>& level) {
  std::size_t lowest = first;
  std::size_t highest = first;
  for (std::size_t i = first + 1; i < last; ++i) {
    if (finer.low[i] < finer.low[lowest]) lowest = i;
    if (finer.high[i] > finer.high[highest]) highest = i;
  }
  level.push_back({finer.low[lowest], finer.high[highest]});
  level.lowest.push_back(static_cast<u32>(finer.lowest_at(lowest)));
  level.highest.push_back(static_cast<u32>(finer.highest_at(highest)));
}

// Adds the coarser levels to the finest one, which has fewer than 2^32 entries.
template <typename T>
void add_coarser_levels(RangeLevels<T>& levels) {
  while (levels.back().size() > kIndexFan) {
    const RangeLevel<T>& finer = levels.back();
    RangeLevel<T> level;
    level.reserve((finer.size() + kIndexFan - 1) / kIndexFan);
    for (std::size_t first = 0; first < finer.size(); first += kIndexFan)
      add_coarser_entry(finer, first, std::min(finer.size(), first + kIndexFan), level);
    levels.push_back(std::move(level));
  }
}

}  // namespace trendaro
