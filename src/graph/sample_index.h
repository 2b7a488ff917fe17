#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include "app/types.h"
#include "files/sample_array.h"
#include "graph/range_levels.h"
#include "graph/sample_extremes.h"

namespace trendaro {

// Samples behind one block, and behind one group of blocks.
inline constexpr std::size_t kSampleBlock = 64;
inline constexpr std::size_t kSampleGroup = kSampleBlock * kIndexFan;

// Stretches of a group of samples as one of its blocks sees them: itself, the blocks ahead of it, and those
// behind it.
enum class Stretch : u8 { Block, Ahead, Behind };

// What is read of a block of samples by the search of a run that begins or ends in it: one cache line, with
// the extremes of each stretch. Places count from the first sample of the group.
struct SampleBlock {
  std::array<f64, 3> least_value, greatest_value;
  std::array<u16, 3> least, greatest;
  bool all_finite;  // none of its samples is infinite or no number

  // The extremes of a stretch. Where no sample of it is a number they are kNoExtremes but for the places.
  [[nodiscard]] SampleExtremes at(Stretch stretch, std::size_t group_start) const {
    const auto i = static_cast<std::size_t>(stretch);
    return {.least = group_start + least[i],
            .greatest = group_start + greatest[i],
            .least_value = least_value[i],
            .greatest_value = greatest_value[i]};
  }
  void keep(Stretch stretch, std::size_t group_start, const SampleExtremes& extremes) {
    const auto i = static_cast<std::size_t>(stretch);
    least[i] = static_cast<u16>(extremes.least - group_start);
    greatest[i] = static_cast<u16>(extremes.greatest - group_start);
    least_value[i] = extremes.least_value;
    greatest_value[i] = extremes.greatest_value;
  }
};
static_assert(sizeof(SampleBlock) == 64);

template <typename T>
using IndexArray = std::vector<T, SampleAllocator<T>>;

// Where blocks of one curve's samples are lowest and highest. Takes an eighth of the samples' memory.
struct SampleIndex {
  IndexArray<SampleBlock> blocks;
  // Of groups of blocks, and then of kIndexFan entries of the level before; the last one has at most that
  // many. The last entry of a level may stand for fewer samples.
  std::vector<IndexArray<SampleExtremes>> levels;
};

std::shared_ptr<const SampleIndex> build_sample_index(std::span<const f64> samples);

// The kept samples of a plot. The index goes where they go and is made when it is first of use; who changes
// samples drops it.
struct CurveBlock : SampleArray {
  using SampleArray::SampleArray;
  std::shared_ptr<const SampleIndex> index;
};

}  // namespace trendaro
