#include "graph/sample_index.h"

#include <algorithm>
#include <cmath>

#include "graph/lanes.h"

namespace trendaro {
namespace {

// Of a full block.
struct BlockRange {
  ValueRange<f64> range;  // of the samples that are a number
  bool all_finite;
};

BlockRange range_of_full_block(const f64* block) {
  constexpr std::size_t kStep = Lanes<f64>::size();
  Lanes<f64> low(ValueRange<f64>{}.low), high(ValueRange<f64>{}.high);
  Lanes<f64> sum(0), other_sum(0);
  for (std::size_t i = 0; i < kSampleBlock; i += 2 * kStep) {
    const Lanes<f64> values = load_lanes(block + i);
    const Lanes<f64> others = load_lanes(block + i + kStep);
    // A comparison with a sample that is no number keeps the lane.
    where(values < low, low) = values;
    where(values > high, high) = values;
    where(others < low, low) = others;
    where(others > high, high) = others;
    sum += values;
    other_sum += others;
  }
  // What is infinite or no number stays so in the sum.
  return {{hmin(low), hmax(high)}, std::isfinite(reduce(sum + other_sum))};
}

BlockRange range_of_block(std::span<const f64> block) {
  if (block.size() == kSampleBlock) return range_of_full_block(block.data());
  return {range_of(block), false};
}

// Of a block whose first sample has the index `first`.
SampleExtremes extremes_of_block(std::span<const f64> block, std::size_t first, bool& all_finite) {
  const BlockRange found = range_of_block(block);
  all_finite = found.all_finite;
  SampleExtremes extremes = no_extremes(first);
  if (found.range.empty()) return extremes;
  const std::size_t least = first_equal_of(block.data(), block.size(), found.range.low);
  const std::size_t greatest = first_equal_of(block.data(), block.size(), found.range.high);
  return {.least = first + least,
          .greatest = first + greatest,
          .least_value = block[least],
          .greatest_value = block[greatest]};
}

// Adds the blocks of one group, whose first sample has the index `start`; the extremes of the group.
SampleExtremes add_group(std::span<const f64> group, std::size_t start, IndexArray<SampleBlock>& blocks) {
  SampleExtremes ahead = no_extremes(start);
  const std::size_t first_block = blocks.size();
  for (std::size_t first = 0; first < group.size(); first += kSampleBlock) {
    SampleBlock& block = blocks.emplace_back();
    const auto samples = group.subspan(first, std::min(kSampleBlock, group.size() - first));
    const SampleExtremes own = extremes_of_block(samples, start + first, block.all_finite);
    block.keep(Stretch::Block, start, own);
    block.keep(Stretch::Ahead, start, ahead);
    add_following(ahead, own);
  }
  SampleExtremes behind = no_extremes(start);
  for (std::size_t block = blocks.size(); block-- > first_block;) {
    blocks[block].keep(Stretch::Behind, start, behind);
    add_preceding(behind, blocks[block].at(Stretch::Block, start));
  }
  return ahead;
}

IndexArray<SampleExtremes> coarser_level(const IndexArray<SampleExtremes>& finer) {
  IndexArray<SampleExtremes> level;
  level.reserve((finer.size() + kIndexFan - 1) / kIndexFan);
  for (std::size_t first = 0; first < finer.size(); first += kIndexFan) {
    SampleExtremes extremes = finer[first];
    for (std::size_t i = first + 1; i < std::min(finer.size(), first + kIndexFan); ++i)
      add_following(extremes, finer[i]);
    level.push_back(extremes);
  }
  return level;
}

}  // namespace

std::shared_ptr<const SampleIndex> build_sample_index(std::span<const f64> samples) {
  auto index = std::make_shared<SampleIndex>();
  index->blocks.reserve((samples.size() + kSampleBlock - 1) / kSampleBlock);
  auto& groups = index->levels.emplace_back();
  groups.reserve((samples.size() + kSampleGroup - 1) / kSampleGroup);
  for (std::size_t start = 0; start < samples.size(); start += kSampleGroup) {
    const auto group = samples.subspan(start, std::min(kSampleGroup, samples.size() - start));
    groups.push_back(add_group(group, start, index->blocks));
  }
  while (index->levels.back().size() > kIndexFan)
    index->levels.push_back(coarser_level(index->levels.back()));
  return index;
}

}  // namespace trendaro
