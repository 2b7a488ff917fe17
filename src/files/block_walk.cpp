#include "files/block_walk.h"

#include <algorithm>

#include "app/run_time_error.h"
#include "files/sample_reading.h"

namespace trendaro {

void expect_estimate_to_give_slots(const LoaderResult& result, i16 channel) {
  if (!result.FileChannelPointsEstimate.has(channel)) return;
  if (result.FileChannelPointsEstimate[channel] + kReservedSlots < 0) throw RunTimeError{kIndexOutOfRange};
}

BlockWalk::BlockWalk(ByteCursor& cursor, const BlockHeader& header, i16 channel_count)
    : cursor_(cursor), prefixed_(header.id != kUnprefixedBlockId), channel_count_(channel_count) {
  cursor_.seek(header.header_end);
  if (header.id == kNewestBlockId) cursor_.seek(header.data_offset);
  next_position_ = cursor_.position();
}

std::optional<Block> BlockWalk::next() {
  cursor_.seek(next_position_);
  while (cursor_.left() > 0) {
    channel_ = static_cast<i16>(channel_ % channel_count_ + 1);
    const i32 length = prefixed_ ? cursor_.read_i32() : kUnprefixedBlock;
    if (length <= 0) continue;
    if (length > kLongestBlock) throw RunTimeError{kIndexOutOfRange};
    const i64 bytes = std::min(length * kSampleBytes, cursor_.left());
    next_position_ = cursor_.position() + length * kSampleBytes;
    return Block{channel_, cursor_.position(), bytes, static_cast<i32>(rounded_values(bytes))};
  }
  next_position_ = cursor_.position();
  return std::nullopt;
}

void BlockWalk::pass_unprefixed_rounds(i64 rounds) {
  const i64 round_bytes = i64{kUnprefixedBlock} * kSampleBytes * channel_count_;
  next_position_ += std::min(rounds, cursor_.size() / round_bytes + 1) * round_bytes;
}

}  // namespace trendaro
