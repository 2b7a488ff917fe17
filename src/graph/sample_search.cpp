#include "graph/sample_search.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "graph/ask_for_memory.h"

namespace trendaro {
namespace {

// A run of samples and what is known of it without a look at them. Its head and its tail are the parts of it
// in the blocks in which it begins and ends.
struct RunSearch {
  std::size_t first, last;
  SampleExtremes found;
  bool head_left = false, tail_left = false;  // to be looked at
};

std::size_t end_of_head(std::size_t first) {
  return (first / kSampleBlock + 1) * kSampleBlock;
}

std::size_t start_of_tail(std::size_t last) {
  return (last - 1) / kSampleBlock * kSampleBlock;
}

// The entries `from` to `to` - 1 of a level, by way of coarser ones.
void add_entries(const SampleIndex& index, std::size_t level, std::size_t from, std::size_t to,
                 SampleExtremes& found) {
  const IndexArray<SampleExtremes>& entries = index.levels[level];
  std::size_t stop = to;
  std::size_t resume = to;
  if (to - from >= 2 * kIndexFan && level + 1 < index.levels.size()) {
    stop = (from + kIndexFan - 1) / kIndexFan * kIndexFan;
    resume = to / kIndexFan * kIndexFan;
  }
  for (std::size_t i = from; i < stop; ++i) add_following(found, entries[i]);
  if (stop < resume) add_entries(index, level + 1, stop / kIndexFan, resume / kIndexFan, found);
  for (std::size_t i = resume; i < to; ++i) add_following(found, entries[i]);
}

// What lies between the blocks in which a run begins and ends.
void add_middle(const SampleIndex& index, std::size_t first_block, std::size_t last_block,
                SampleExtremes& found) {
  const std::size_t first_group = first_block / kIndexFan;
  const std::size_t last_group = last_block / kIndexFan;
  const std::size_t start = first_group * kSampleGroup;
  if (first_group == last_group) {
    for (std::size_t block = first_block + 1; block < last_block; ++block)
      add_following(found, index.blocks[block].at(Stretch::Block, start));
    return;
  }
  add_following(found, index.blocks[first_block].at(Stretch::Behind, start));
  if (first_group + 1 < last_group) add_entries(index, 0, first_group + 1, last_group, found);
  add_following(found, index.blocks[last_block].at(Stretch::Ahead, last_group * kSampleGroup));
}

// The tail by the extremes of its block; whether they leave it open since they lie behind the run.
bool tail_stays_open(const SampleExtremes& block, RunSearch& run) {
  const bool lower = block.least_value < run.found.least_value;
  const bool higher = block.greatest_value > run.found.greatest_value;
  if ((lower && block.least >= run.last) || (higher && block.greatest >= run.last)) return true;
  if (lower || higher) add_following(run.found, block);
  return false;
}

// The same of the head. Of equal samples the one ahead counts.
bool head_stays_open(const SampleExtremes& block, RunSearch& run) {
  const bool lower = block.least_value <= run.found.least_value;
  const bool higher = block.greatest_value >= run.found.greatest_value;
  if ((lower && block.least < run.first) || (higher && block.greatest < run.first)) return true;
  if (lower || higher) add_preceding(run.found, block);
  return false;
}

// Of a run whose first sample is a number and which does not end in the block in which it begins.
RunSearch search_index(const SampleIndex& index, std::size_t first, std::size_t last) {
  RunSearch run{.first = first, .last = last, .found = no_extremes(first)};
  const std::size_t first_block = first / kSampleBlock;
  const std::size_t last_block = (last - 1) / kSampleBlock;
  add_middle(index, first_block, last_block, run.found);
  const auto own = [&](std::size_t block) {
    return index.blocks[block].at(Stretch::Block, block / kIndexFan * kSampleGroup);
  };
  run.tail_left = tail_stays_open(own(last_block), run);
  run.head_left = head_stays_open(own(first_block), run);
  return run;
}

SampleExtremes extremes_of_samples(std::span<const f64> samples, std::size_t first, std::size_t last) {
  SampleExtremes extremes = extremes_of(samples[first], first);
  add_samples(extremes, samples.subspan(first, last - first), first);
  return extremes;
}

bool begins_with_number(std::span<const f64> samples, const SampleIndex& index, std::size_t first) {
  return index.blocks[first / kSampleBlock].all_finite || !std::isnan(samples[first]);
}

// All that the index tells.
RunSearch begin_search(std::span<const f64> samples, const SampleIndex& index, std::size_t first,
                       std::size_t last) {
  if (last - first < 2 * kSampleBlock || !begins_with_number(samples, index, first))
    return {.first = first, .last = last, .found = extremes_of_samples(samples, first, last)};
  return search_index(index, first, last);
}

// What is left of it.
const SampleExtremes& end_search(std::span<const f64> samples, RunSearch& run) {
  if (run.head_left)
    add_preceding(run.found, extremes_of_samples(samples, run.first, end_of_head(run.first)));
  if (run.tail_left) {
    const std::size_t start = start_of_tail(run.last);
    add_samples(run.found, samples.subspan(start, run.last - start), start);
  }
  return run.found;
}

// Asks for what is read of the index for a run that begins or ends at `stop`.
void ask_for_stop(const SampleIndex& index, std::size_t stop) {
  const std::size_t block = std::min(stop / kSampleBlock, index.blocks.size() - 1);
  ask_for_memory(&index.blocks[block], 1);
  const IndexArray<SampleExtremes>& groups = index.levels.front();
  const std::size_t first = block / kIndexFan / kIndexFan * kIndexFan;
  ask_for_memory(&groups[first], std::min(kIndexFan, groups.size() - first));
}

void ask_for_samples(std::span<const f64> samples, const RunSearch& run) {
  if (run.head_left) ask_for_memory(&samples[run.first], end_of_head(run.first) - run.first);
  if (run.tail_left) {
    const std::size_t start = start_of_tail(run.last);
    ask_for_memory(&samples[start], run.last - start);
  }
}

}  // namespace

SampleExtremes find_sample_extremes(std::span<const f64> samples, const SampleIndex& index, std::size_t first,
                                    std::size_t last) {
  RunSearch run = begin_search(samples, index, first, last);
  return end_search(samples, run);
}

std::vector<SampleExtremes> sample_extremes_of_runs(std::span<const f64> samples, const SampleIndex& index,
                                                    std::span<const std::size_t> stops) {
  constexpr std::size_t kTogether = 32;
  std::vector<SampleExtremes> found;
  if (stops.size() < 2) return found;
  found.reserve(stops.size() - 1);
  std::array<RunSearch, kTogether> runs;
  const auto ask_for_stops = [&](std::size_t first) {
    for (const std::size_t stop : stops.subspan(first, std::min(kTogether, stops.size() - first)))
      ask_for_stop(index, stop);
  };
  ask_for_stops(0);
  for (std::size_t first = 0; first + 1 < stops.size(); first += kTogether) {
    const std::size_t count = std::min(kTogether, stops.size() - 1 - first);
    ask_for_stops(first + count);
    for (std::size_t i = 0; i < count; ++i) {
      runs[i] = begin_search(samples, index, stops[first + i], stops[first + i + 1]);
      ask_for_samples(samples, runs[i]);
    }
    for (std::size_t i = 0; i < count; ++i) found.push_back(end_search(samples, runs[i]));
  }
  return found;
}

}  // namespace trendaro
