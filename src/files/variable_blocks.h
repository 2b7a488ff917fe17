#pragma once

#include <functional>
#include <span>

#include "app/types.h"
#include "files/block_header.h"
#include "files/byte_cursor.h"
#include "files/loader_result.h"
#include "files/sample_array.h"

namespace trendaro {

// Takes the values of one block.
using BlockSink = std::function<void(std::span<const f64>)>;

// Block files in which every block tells its own length, or has the one that their id tells. All functions
// throw RunTimeError{kIndexOutOfRange} for a block that is too long.

// Reads the channel's values into FileChannelValues, which stays when the file lacks the channel, and counts
// FileChannelPoints of every channel, with index n for channel n.
void load_variable_blocks(LoaderResult& result, ByteCursor& cursor, const BlockHeader& header, i16 channel);

// Does the same without an array, block by block.
void pass_variable_blocks(LoaderResult& result, ByteCursor& cursor, const BlockHeader& header, i16 channel,
                          const BlockSink& sink);

// Counts in the same way and hands the channel's blocks to `sink`, whatever was estimated.
void pass_on_variable_blocks(LoaderResult& result, ByteCursor& cursor, const BlockHeader& header, i16 channel,
                             const BlockSink& sink);

// The channel's samples `first` to `first + count - 1`, as far as the file goes.
void read_variable_range(const LoaderResult& result, ByteCursor& cursor, const BlockHeader& header,
                         i16 channel, i64 first, i64 count, SampleArray& destination);

}  // namespace trendaro
