#pragma once

#include <optional>

#include "app/types.h"
#include "files/block_header.h"
#include "files/byte_cursor.h"
#include "files/loader_result.h"

namespace trendaro {

// The most values that a block may have.
inline constexpr i32 kLongestBlock = 2049;

// Values of a block of kUnprefixedBlockId.
inline constexpr i32 kUnprefixedBlock = 100;

// Slots beyond the estimate that the values of a channel get at first.
inline constexpr i64 kReservedSlots = 100;

// Throws RunTimeError{kIndexOutOfRange} for an estimate so far below 0 that it gives no slots. A channel that
// the file lacks has none.
void expect_estimate_to_give_slots(const LoaderResult& result, i16 channel);

// One block of a channel, found but not read.
struct Block {
  i16 channel;   // from 1
  i64 position;  // of the first value
  i64 bytes;     // that the file holds of it
  i32 values;    // whole values in these bytes, rounded to the nearest, ties to even
};

// Finds the blocks of a file with variable blocks one after the other, round by round, up to the end of the
// file. Empty blocks are passed over.
class BlockWalk {
 public:
  BlockWalk(ByteCursor& cursor, const BlockHeader& header, i16 channel_count);

  // The next block, with the cursor on its first value; wherever the cursor goes meanwhile, the walk goes on
  // behind the block. Nothing at the end of the file. Throws RunTimeError{kIndexOutOfRange} for a block
  // longer than kLongestBlock.
  std::optional<Block> next();

  // Passes whole rounds of unprefixed blocks without looking at them.
  void pass_unprefixed_rounds(i64 rounds);

 private:
  ByteCursor& cursor_;
  bool prefixed_;
  i16 channel_count_;
  i16 channel_ = 0;  // of the block found last
  i64 next_position_;
};

}  // namespace trendaro
