#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <vector>

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

  [[nodiscard]] std::size_t size() const { return low.size(); }
  [[nodiscard]] ValueRange<T> at(std::size_t entry) const { return {low[entry], high[entry]}; }
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

// Adds the coarser levels to the finest one.
template <typename T>
void add_coarser_levels(RangeLevels<T>& levels) {
  while (levels.back().size() > kIndexFan) {
    const RangeLevel<T>& finer = levels.back();
    RangeLevel<T> level;
    level.reserve((finer.size() + kIndexFan - 1) / kIndexFan);
    for (std::size_t first = 0; first < finer.size(); first += kIndexFan) {
      ValueRange<T> range;
      for (std::size_t i = first; i < std::min(finer.size(), first + kIndexFan); ++i) range.add(finer.at(i));
      level.push_back(range);
    }
    levels.push_back(std::move(level));
  }
}

}  // namespace trendaro
