#include "files/variable_blocks.h"

#include <algorithm>
#include <array>
#include <limits>

#include "app/run_time_error.h"
#include "files/block_walk.h"
#include "files/sample_reading.h"

namespace trendaro {
namespace {

constexpr i64 kGrowth = 8000;

// Reads blocks of a file. A last value of which the file holds only some bytes keeps, in the others, what the
// block buffer held there from the block before that reached so far.
class BlockSource {
 public:
  BlockSource(ByteCursor& cursor, const BlockHeader& header, i16 channel_count)
      : cursor_(cursor), header_(header), channel_count_(channel_count) {}

  // Reads block.values values to `destination`.
  void read(const Block& block, f64* destination) {
    const i64 whole = std::min<i64>(block.values, block.bytes / kSampleBytes);
    cursor_.seek(block.position);
    read_or_zero(cursor_, destination, whole * kSampleBytes);
    if (whole == block.values) return;
    f64 value = value_held_before(block, whole);
    cursor_.seek(block.position + whole * kSampleBytes);
    cursor_.read_into(&value, block.bytes % kSampleBytes);
    destination[whole] = value;
  }

 private:
  f64 value_held_before(const Block& last, i64 index) {
    BlockWalk walk(cursor_, header_, channel_count_);
    i64 place = -1;
    for (auto block = walk.next(); block && block->position < last.position; block = walk.next())
      if (block->values > index) place = block->position + index * kSampleBytes;
    if (place < 0) return 0;
    cursor_.seek(place);
    return cursor_.read_f64();
  }

  ByteCursor& cursor_;
  const BlockHeader& header_;
  i16 channel_count_;
};

// Room for what is known to come: the estimate, but never more than the bytes that are there.
void reserve_estimate(LoaderResult& result, const ByteCursor& cursor, i16 channel) {
  const i64 estimate = i64{result.FileChannelPointsEstimate[channel]} + kReservedSlots;
  make_room(result.FileChannelValues, std::min(estimate, cursor.size() / kSampleBytes + 1));
  result.FileChannelValues.clear();
}

// Extends `values` by `count` elements. Grows by halves, as steps of one size would copy a long recording
// over and over.
f64* extend(SampleArray& values, i32 count) {
  const std::size_t old_size = values.size();
  const std::size_t wanted = old_size + static_cast<std::size_t>(count);
  if (wanted > values.capacity()) values.reserve(wanted + std::max<std::size_t>(kGrowth, old_size / 2));
  values.resize(wanted);
  return values.data() + old_size;
}

void count_points(LoaderResult& result, const Block& block) {
  i32& points = result.FileChannelPoints[static_cast<std::size_t>(block.channel)];
  if (points > std::numeric_limits<i32>::max() - block.values) throw RunTimeError{kOverflow};
  points += block.values;
}

// Counts the blocks of all channels and hands those of `channel` to `take`.
template <typename Take>
void for_blocks_of(LoaderResult& result, ByteCursor& cursor, const BlockHeader& header, i16 channel,
                   Take take) {
  std::fill(result.FileChannelPoints.begin() + 1, result.FileChannelPoints.end(), 0);
  BlockWalk walk(cursor, header, result.FileChannelCount);
  while (const auto block = walk.next()) {
    count_points(result, *block);
    if (block->channel == channel) take(*block);
  }
}

}  // namespace

void load_variable_blocks(LoaderResult& result, ByteCursor& cursor, const BlockHeader& header, i16 channel) {
  expect_estimate_to_give_slots(result, channel);
  if (result.FileChannelPointsEstimate.has(channel)) reserve_estimate(result, cursor, channel);
  BlockSource source(cursor, header, result.FileChannelCount);
  for_blocks_of(result, cursor, header, channel, [&](const Block& block) {
    source.read(block, extend(result.FileChannelValues, block.values));
  });
}

void pass_on_variable_blocks(LoaderResult& result, ByteCursor& cursor, const BlockHeader& header, i16 channel,
                             const BlockSink& sink) {
  BlockSource source(cursor, header, result.FileChannelCount);
  std::array<f64, kLongestBlock> buffer{};
  for_blocks_of(result, cursor, header, channel, [&](const Block& block) {
    source.read(block, buffer.data());
    sink({buffer.data(), static_cast<std::size_t>(block.values)});
  });
}

void pass_variable_blocks(LoaderResult& result, ByteCursor& cursor, const BlockHeader& header, i16 channel,
                          const BlockSink& sink) {
  expect_estimate_to_give_slots(result, channel);
  pass_on_variable_blocks(result, cursor, header, channel, sink);
}

void read_variable_range(const LoaderResult& result, ByteCursor& cursor, const BlockHeader& header,
                         i16 channel, i64 first, i64 count, SampleArray& destination) {
  BlockSource source(cursor, header, result.FileChannelCount);
  BlockWalk walk(cursor, header, result.FileChannelCount);
  i64 passed = 0;
  if (header.id == kUnprefixedBlockId) {
    walk.pass_unprefixed_rounds(first / kUnprefixedBlock);
    passed = first / kUnprefixedBlock * kUnprefixedBlock;
  }
  std::array<f64, kLongestBlock> buffer{};
  auto wanted = count;
  while (wanted > 0) {
    const auto block = walk.next();
    if (!block) return;
    if (block->channel != channel) continue;
    const i64 from = std::max<i64>(first - passed, 0);
    const i64 taken = std::min(block->values - from, wanted);
    passed += block->values;
    if (taken <= 0) continue;
    source.read(*block, buffer.data());
    std::copy_n(buffer.begin() + from, taken, extend(destination, static_cast<i32>(taken)));
    wanted -= taken;
  }
}

}  // namespace trendaro
