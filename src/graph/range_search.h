#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <span>
#include <vector>

#include "graph/ask_for_memory.h"
#include "graph/lanes.h"
#include "graph/range_levels.h"

namespace trendaro {

// Looks for the extremes of a run of values: by the longest blocks that lie in it, and by single values at
// its ends only where their block may hold something better. `Values` gives `count()` of all values,
// `range(first, last)` of those that count among a few, `first_with(first, last, value)`, the index of the
// first of them that counts and has the value, which one does, and `data()`, what lies where their places are
// looked for, to be asked for ahead.
template <typename T, typename Values>
class RangeSearch {
 public:
  // Of the values `first` to `last` - 1, at least one.
  RangeSearch(const RangeLevels<T>& levels, const Values& values, std::size_t first, std::size_t last)
      : levels_(&levels), values_(&values) {
    if (last - first < 2 * kIndexBlock) {
      look_at_values(first, last);
      return;
    }
    const std::size_t from = (first + kIndexBlock - 1) / kIndexBlock;
    const std::size_t to = entries_before(last, values.count(), kIndexBlock);
    look_at_blocks(from, to);
    if (to * kIndexBlock < last) look_at_end(to, to * kIndexBlock, last);
    if (from * kIndexBlock > first) look_at_end(from - 1, first, from * kIndexBlock);
  }

  // Empty when none of the values counts; there are no places then.
  [[nodiscard]] ValueRange<T> range() const { return {low_.value, high_.value}; }

  // The first of the values with that extreme.
  [[nodiscard]] std::size_t lowest() const { return place_of(values_of_lowest(), low_.value); }
  [[nodiscard]] std::size_t highest() const { return place_of(values_of_highest(), high_.value); }

  // Has the memory brought near that the places are found in.
  void ask() const {
    if (range().empty()) return;
    for (const Stretch& values : {values_of_lowest(), values_of_highest()})
      ask_for_memory(values_->data() + values.first, values.last - values.first);
  }

 private:
  static constexpr std::size_t kNoLevel = std::numeric_limits<std::size_t>::max();

  // The entries, or the values, `first` to `last` - 1.
  struct Stretch {
    std::size_t first = 0, last = 0;
  };

  // The best value so far is that of the first such one of a stretch of a level, or of the values themselves.
  struct Best {
    T value;
    std::size_t level = kNoLevel;
    Stretch stretch = {};
    std::size_t start = 0;  // the value that the stretch begins with
  };

  // How many of the entries of `length` end before `last`; the last one of all may be shorter.
  static std::size_t entries_before(std::size_t last, std::size_t count, std::size_t length) {
    return last == count ? (count + length - 1) / length : last / length;
  }

  // The entries of the finest level from `from` to `to` - 1, by way of coarser ones.
  void look_at_blocks(std::size_t from, std::size_t to) {
    std::size_t length = kIndexBlock;
    for (std::size_t level = 0; from < to; ++level, length *= kIndexFan) {
      const std::size_t above = (from + kIndexFan - 1) / kIndexFan;
      const std::size_t end_above = entries_before(to, (*levels_)[level].size(), kIndexFan);
      if (level + 1 == levels_->size() || above >= end_above) return look_at_entries(level, length, from, to);
      look_at_entries(level, length, from, above * kIndexFan);
      look_at_entries(level, length, end_above * kIndexFan, to);
      from = above;
      to = end_above;
    }
  }

  void look_at_entries(std::size_t level, std::size_t length, std::size_t from, std::size_t to) {
    while (from < to) {
      const std::size_t end = std::min(to, (from / kIndexFan + 1) * kIndexFan);
      take((*levels_)[level].range(from, end), level, {from, end}, from * length);
      from = end;
    }
  }

  // Values of one block.
  void look_at_end(std::size_t block, std::size_t first, std::size_t last) {
    const ValueRange<T> range = levels_->front().at(block);
    if (may_be_lower(range, first) || may_be_higher(range, first)) look_at_values(first, last);
  }

  void look_at_values(std::size_t first, std::size_t last) {
    take(values_->range(first, last), kNoLevel, {first, last}, first);
  }

  void take(const ValueRange<T>& range, std::size_t level, Stretch stretch, std::size_t start) {
    if (may_be_lower(range, start)) low_ = {range.low, level, stretch, start};
    if (may_be_higher(range, start)) high_ = {range.high, level, stretch, start};
  }

  // Of equal values the first one is the best.
  [[nodiscard]] bool may_be_lower(const ValueRange<T>& range, std::size_t start) const {
    return range.low < low_.value || (range.low == low_.value && start < low_.start);
  }
  [[nodiscard]] bool may_be_higher(const ValueRange<T>& range, std::size_t start) const {
    return range.high > high_.value || (range.high == high_.value && start < high_.start);
  }

  // The values that the first lowest one is among.
  [[nodiscard]] Stretch values_of_lowest() const {
    if (low_.level == kNoLevel) return low_.stretch;
    const auto& level = (*levels_)[low_.level];
    const auto [first, last] = low_.stretch;
    return values_of_block(
        level.lowest_at(first + first_equal_of(level.low_from(first), last - first, low_.value)));
  }
  [[nodiscard]] Stretch values_of_highest() const {
    if (high_.level == kNoLevel) return high_.stretch;
    const auto& level = (*levels_)[high_.level];
    const auto [first, last] = high_.stretch;
    return values_of_block(
        level.highest_at(first + first_equal_of(level.high_from(first), last - first, high_.value)));
  }

  [[nodiscard]] Stretch values_of_block(std::size_t block) const {
    return {block * kIndexBlock, std::min(values_->count(), (block + 1) * kIndexBlock)};
  }

  [[nodiscard]] std::size_t place_of(const Stretch& values, T value) const {
    return values_->first_with(values.first, values.last, value);
  }

  const RangeLevels<T>* levels_;
  const Values* values_;
  Best low_{.value = std::numeric_limits<T>::infinity()};
  Best high_{.value = -std::numeric_limits<T>::infinity()};
};

// Asks for what a search for the end of a run reads of the levels.
template <typename T>
void ask_for_entries(const RangeLevels<T>& levels, std::size_t place) {
  constexpr std::size_t kLevels = 3;  // the coarser ones are small
  std::size_t entry = std::min(place / kIndexBlock, levels.front().size() - 1);
  for (std::size_t level = 0; level < std::min(levels.size(), kLevels); ++level, entry /= kIndexFan) {
    const std::size_t first = entry / kIndexFan * kIndexFan;
    const std::size_t count = std::min(kIndexFan, levels[level].size() - first);
    reach_for_memory(levels[level].low_from(first), count);
    ask_for_memory(levels[level].high_from(first), count);
  }
}

}  // namespace trendaro
