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
// first of them that counts and has the value, which one does, and `data()`, where they lie.
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
  [[nodiscard]] std::size_t lowest() const { return place_of(low_); }
  [[nodiscard]] std::size_t highest() const { return place_of(high_); }

  // Has the memory brought near that the places are found in.
  void ask() const {
    if (range().empty()) return;
    ask_for_memory(values_->data() + low_.first, low_.last - low_.first);
    ask_for_memory(values_->data() + high_.first, high_.last - high_.first);
  }

 private:
  // The best value so far is the first such one from `first` to `last` - 1.
  struct Best {
    T value;
    std::size_t first = std::numeric_limits<std::size_t>::max();
    std::size_t last = std::numeric_limits<std::size_t>::max();
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
    if (from >= to) return;
    const RangeLevel<T>& entries = (*levels_)[level];
    const std::size_t count = to - from;
    const ValueRange<T> range{least_of(&entries.low[from], count), greatest_of(&entries.high[from], count)};
    if (range.empty()) return;
    if (may_be_lower(range, from * length))
      take_block(entries.lowest_at(from + first_equal_of(&entries.low[from], count, range.low)), range.low,
                 low_);
    if (may_be_higher(range, from * length))
      take_block(entries.highest_at(from + first_equal_of(&entries.high[from], count, range.high)),
                 range.high, high_);
  }

  void take_block(std::size_t block, T value, Best& best) const {
    best = {.value = value,
            .first = block * kIndexBlock,
            .last = std::min(values_->count(), (block + 1) * kIndexBlock)};
  }

  // Values of one block.
  void look_at_end(std::size_t block, std::size_t first, std::size_t last) {
    const ValueRange<T> range = levels_->front().at(block);
    if (may_be_lower(range, first) || may_be_higher(range, first)) look_at_values(first, last);
  }

  void look_at_values(std::size_t first, std::size_t last) {
    const ValueRange<T> range = values_->range(first, last);
    if (range.empty()) return;
    if (may_be_lower(range, first)) low_ = {.value = range.low, .first = first, .last = last};
    if (may_be_higher(range, first)) high_ = {.value = range.high, .first = first, .last = last};
  }

  // Of equal values the first one is the best.
  [[nodiscard]] bool may_be_lower(const ValueRange<T>& range, std::size_t from) const {
    return range.low < low_.value || (range.low == low_.value && from < low_.first);
  }
  [[nodiscard]] bool may_be_higher(const ValueRange<T>& range, std::size_t from) const {
    return range.high > high_.value || (range.high == high_.value && from < high_.first);
  }

  [[nodiscard]] std::size_t place_of(const Best& best) const {
    return values_->first_with(best.first, best.last, best.value);
  }

  const RangeLevels<T>* levels_;
  const Values* values_;
  Best low_{.value = std::numeric_limits<T>::infinity()};
  Best high_{.value = -std::numeric_limits<T>::infinity()};
};

// Asks for what a search for the end of a run reads.
template <typename T, typename Values>
void ask_for_end(const RangeLevels<T>& levels, const Values& values, std::size_t place) {
  constexpr std::size_t kLevels = 3;  // the coarser ones are small
  place = std::min(place, values.count() - 1);
  std::size_t entry = place / kIndexBlock;
  ask_for_memory(values.data() + entry * kIndexBlock,
                 std::min(kIndexBlock, values.count() - entry * kIndexBlock));
  for (std::size_t level = 0; level < std::min(levels.size(), kLevels); ++level, entry /= kIndexFan) {
    const std::size_t first = entry / kIndexFan * kIndexFan;
    const std::size_t count = std::min(kIndexFan, levels[level].size() - first);
    ask_for_memory(&levels[level].low[first], count);
    ask_for_memory(&levels[level].high[first], count);
  }
}

// Searches the runs between neighbouring `stops`, none of them empty, and calls `use(run, search)` for each,
// in their order. Quick where the runs are long, since many of them wait for memory at the same time.
template <typename T, typename Values, typename Use>
void search_runs(const RangeLevels<T>& levels, const Values& values, std::span<const std::size_t> stops,
                 Use use) {
  constexpr std::size_t kTogether = 16;
  std::vector<RangeSearch<T, Values>> searches;
  searches.reserve(kTogether);
  const auto ask_for_ends = [&](std::size_t first) {
    for (const std::size_t stop : stops.subspan(first, std::min(kTogether, stops.size() - first)))
      ask_for_end(levels, values, stop);
  };
  ask_for_ends(0);
  for (std::size_t first = 0; first + 1 < stops.size(); first += kTogether) {
    const std::size_t last = std::min(first + kTogether, stops.size() - 1);
    ask_for_ends(last);
    searches.clear();
    for (std::size_t run = first; run < last; ++run)
      searches.emplace_back(levels, values, stops[run], stops[run + 1]).ask();
    for (std::size_t run = first; run < last; ++run) use(run, searches[run - first]);
  }
}

}  // namespace trendaro
