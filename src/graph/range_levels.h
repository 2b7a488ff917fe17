#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <vector>

#include "app/types.h"
#include "files/sample_array.h"
#include "graph/lanes.h"

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

// Ranges of blocks of values of one length; the last one may stand for fewer values. Those that one entry of
// the next level stands for lie together, for whoever looks at the one end of a few of them looks at the
// other as well, and far memory costs by the page.
template <typename T>
class RangeLevel {
 public:
  [[nodiscard]] std::size_t size() const { return size_; }
  [[nodiscard]] ValueRange<T> at(std::size_t entry) const { return {*low_from(entry), *high_from(entry)}; }
  // The low and the high ends from an entry on, up to the next multiple of kIndexFan.
  [[nodiscard]] const T* low_from(std::size_t entry) const {
    return &groups_[entry / kIndexFan].low[entry % kIndexFan];
  }
  [[nodiscard]] const T* high_from(std::size_t entry) const {
    return &groups_[entry / kIndexFan].high[entry % kIndexFan];
  }
  // The first entry of the finest level with the low, or the high, end of an entry.
  [[nodiscard]] std::size_t lowest_at(std::size_t entry) const {
    return lowest_.empty() ? entry : lowest_[entry];
  }
  [[nodiscard]] std::size_t highest_at(std::size_t entry) const {
    return highest_.empty() ? entry : highest_[entry];
  }

  // Of the entries `first` to `last` - 1, which one entry of the next level stands for. Looks at all of that
  // entry's in the same steps, for a loop that ends now here, now there costs more.
  [[nodiscard]] ValueRange<T> range(std::size_t first, std::size_t last) const {
    using std::experimental::max;
    using std::experimental::min;
    const Group& group = groups_[first / kIndexFan];
    const Lanes<T> begin(static_cast<T>(first % kIndexFan));
    const Lanes<T> end = begin + static_cast<T>(last - first);
    Lanes<T> index([](std::size_t lane) { return static_cast<T>(lane); });
    Lanes<T> low(ValueRange<T>{}.low), high(ValueRange<T>{}.high);
    for (std::size_t i = 0; i < kIndexFan; i += Lanes<T>::size()) {
      const auto inside = index >= begin && index < end;
      where(inside, low) = min(low, load_lanes(&group.low[i]));
      where(inside, high) = max(high, load_lanes(&group.high[i]));
      index += static_cast<T>(Lanes<T>::size());
    }
    return {hmin(low), hmax(high)};
  }

  void reserve(std::size_t count) { groups_.reserve((count + kIndexFan - 1) / kIndexFan); }
  // Adds an entry of the finest level.
  void push_back(const ValueRange<T>& range) {
    if (size_ % kIndexFan == 0) groups_.emplace_back();
    groups_.back().low[size_ % kIndexFan] = range.low;
    groups_.back().high[size_ % kIndexFan] = range.high;
    ++size_;
  }
  // Adds an entry of another level, whose ends are those of these entries of the finest one.
  void push_back(const ValueRange<T>& range, std::size_t lowest, std::size_t highest) {
    push_back(range);
    lowest_.push_back(static_cast<u32>(lowest));
    highest_.push_back(static_cast<u32>(highest));
  }

 private:
  struct Group {
    std::array<T, kIndexFan> low, high;
  };

  std::vector<Group, SampleAllocator<Group>> groups_;
  std::size_t size_ = 0;
  std::vector<u32> lowest_, highest_;  // none for the finest level
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
    if (finer.at(i).low < finer.at(lowest).low) lowest = i;
    if (finer.at(i).high > finer.at(highest).high) highest = i;
  }
  level.push_back({finer.at(lowest).low, finer.at(highest).high}, finer.lowest_at(lowest),
                  finer.highest_at(highest));
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
