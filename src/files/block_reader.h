#pragma once

#include "app/types.h"
#include "files/block_header.h"
#include "files/byte_cursor.h"
#include "files/load_status.h"
#include "files/loader_result.h"
#include "files/sample_array.h"
#include "files/value_run.h"

namespace trendaro {

struct Model;

// The value pass of modes 1 and 2 behind `header`, whose channels stand in the model's result area. A short
// file just ends the values. FileChannelPoints takes the true counts, of variable blocks for every channel,
// of fixed blocks for the requested one, at index n for channel n. Throws RunTimeError.
LoadStatus load_block_values(Model& model, ByteCursor& cursor, const BlockHeader& header, i16 mode,
                             i16 channel, i32 database_channel);

// Mode 1 without an array: `take` gets the values of each block that has some.
LoadStatus pass_block_values(LoaderResult& result, ByteCursor& cursor, const BlockHeader& header, i16 channel,
                             const TakeValues& take);

// The samples `first` to `first + count - 1` of a channel, as far as the file goes. Of blocks that hold none
// of them only the length is read. Throws RunTimeError.
LoadStatus load_block_range(const LoaderResult& result, ByteCursor& cursor, const BlockHeader& header,
                            i16 channel, i64 first, i64 count, SampleArray& destination);

}  // namespace trendaro
