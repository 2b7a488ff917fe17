#pragma once

#include "app/types.h"
#include "files/block_header.h"
#include "files/byte_cursor.h"
#include "files/loader_result.h"
#include "files/sample_array.h"
#include "files/variable_blocks.h"

namespace trendaro {

// Block files whose blocks all have the length of the first, which stands ahead of it. `channel` is one of
// the file's. All functions throw RunTimeError{kOverflow} when the bytes ahead of the channel's first block
// do not fit into 16 bits.

// Reads the channel's values into FileChannelValues and their number into FileChannelPoints, at index n for
// channel n. Throws RunTimeError{kIndexOutOfRange} for a number that no file can hold.
void load_fixed_blocks(LoaderResult& result, ByteCursor& cursor, const BlockHeader& header, i16 channel);

// Does the same without an array, block by block.
void pass_fixed_blocks(LoaderResult& result, ByteCursor& cursor, const BlockHeader& header, i16 channel,
                       const BlockSink& sink);

// Counts in the same way and hands the channel's blocks to `sink`, whatever was estimated.
void pass_on_fixed_blocks(LoaderResult& result, ByteCursor& cursor, const BlockHeader& header, i16 channel,
                          const BlockSink& sink);

// The channel's samples `first` to `first + count - 1`, as far as the file goes.
void read_fixed_range(const LoaderResult& result, ByteCursor& cursor, const BlockHeader& header, i16 channel,
                      i64 first, i64 count, SampleArray& destination);

}  // namespace trendaro
