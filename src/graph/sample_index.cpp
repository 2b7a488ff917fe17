#include "graph/sample_index.h"

#include <algorithm>

namespace trendaro {
namespace {

constexpr std::size_t kStretch = 64;  // samples behind one entry of the finest level
constexpr std::size_t kFan = 16;      // entries behind one entry of the next level

std::size_t pieces(std::size_t count, std::size_t length) {
  return (count + length - 1) / length;
}

std::vector<ValueRange> finest_level(std::span<const f64> samples) {
  std::vector<ValueRange> level(pieces(samples.size(), kStretch));
  for (std::size_t i = 0; i < level.size(); ++i) {
    const std::size_t first = i * kStretch;
    level[i] = range_of(samples.subspan(first, std::min(kStretch, samples.size() - first)));
  }
  return level;
}

std::vector<ValueRange> next_level(const std::vector<ValueRange>& finer) {
  std::vector<ValueRange> level(pieces(finer.size(), kFan));
  for (std::size_t i = 0; i < level.size(); ++i) {
    level[i] = finer[i * kFan];
    for (std::size_t j = i * kFan + 1; j < std::min(finer.size(), (i + 1) * kFan); ++j) {
      level[i].low = std::min(level[i].low, finer[j].low);
      level[i].high = std::max(level[i].high, finer[j].high);
    }
  }
  return level;
}

// An entry of the index in which an extreme lies; looked into once the extreme is certain.
struct Entry {
  std::size_t level = 0, place = 0;
  bool holds = false;
};

// The first sample of an entry whose lower (`value_of` gives low) or upper end is `value`.
template <typename ValueOf>
std::size_t first_in(std::span<const f64> samples, const SampleIndex& index, const Entry& entry, f64 value,
                     ValueOf value_of) {
  std::size_t place = entry.place;
  for (std::size_t level = entry.level; level > 0; --level) {
    const auto& finer = index.levels[level - 1];
    place *= kFan;
    while (place + 1 < finer.size() && value_of(finer[place]) != value) ++place;
  }
  const std::size_t first = place * kStretch;
  return first + first_equal(samples.subspan(first, std::min(kStretch, samples.size() - first)), value);
}

// The coarsest entry that begins with sample `first` and ends by `last`.
Entry entry_from(const SampleIndex& index, std::size_t first, std::size_t last) {
  Entry entry;
  std::size_t length = kStretch;
  if (first % length != 0 || last - first < length) return entry;
  entry = {.level = 0, .place = first / length, .holds = true};
  while (entry.level + 1 < index.levels.size() && entry.place % kFan == 0 && last - first >= length * kFan) {
    entry.place /= kFan;
    length *= kFan;
    ++entry.level;
  }
  return entry;
}

std::size_t length_of(const Entry& entry) {
  std::size_t length = kStretch;
  for (std::size_t level = 0; level < entry.level; ++level) length *= kFan;
  return length;
}

}  // namespace

std::shared_ptr<const SampleIndex> build_sample_index(std::span<const f64> samples) {
  auto index = std::make_shared<SampleIndex>();
  index->levels.push_back(finest_level(samples));
  while (index->levels.back().size() > kFan) index->levels.push_back(next_level(index->levels.back()));
  return index;
}

SampleExtremes find_sample_extremes(std::span<const f64> samples, const SampleIndex& index, std::size_t first,
                                    std::size_t last) {
  SampleExtremes found = extremes_of(samples[first], first);
  Entry least, greatest;
  // From left to right and with strict comparisons, so that the first of equal samples stays.
  for (std::size_t i = first; i < last;) {
    const Entry entry = entry_from(index, i, last);
    if (!entry.holds) {
      const std::size_t end = std::min(last, (i / kStretch + 1) * kStretch);
      const SampleExtremes before = found;
      add_samples(found, samples.subspan(i, end - i), i);
      if (found.least_value < before.least_value) least.holds = false;
      if (found.greatest_value > before.greatest_value) greatest.holds = false;
      i = end;
      continue;
    }
    const ValueRange& range = index.levels[entry.level][entry.place];
    if (range.low < found.least_value) {
      found.least_value = range.low;
      least = entry;
    }
    if (range.high > found.greatest_value) {
      found.greatest_value = range.high;
      greatest = entry;
    }
    i += length_of(entry);
  }
  if (least.holds)
    found.least =
        first_in(samples, index, least, found.least_value, [](const ValueRange& r) { return r.low; });
  if (greatest.holds)
    found.greatest =
        first_in(samples, index, greatest, found.greatest_value, [](const ValueRange& r) { return r.high; });
  return found;
}

}  // namespace trendaro
