#pragma once

#include "files/byte_cursor.h"
#include "files/byte_writer.h"
#include "files/input_file.h"
#include "files/reducer.h"

namespace trendaro {

// What the reducer's two ways work on: both files open, the source's id read.
struct ReduceJob {
  const InputFile& file;  // the same file as `source`, for reads past the cursor
  ByteCursor& source;     // behind the id
  ByteWriter& target;     // at its start
  i32 block;              // values behind one pair
  const Progress& progress;
};

// Each writes the whole target and gives Done or Failed; a failure may also be thrown. The target's late
// failures are the caller's to ask for.
ReduceStatus reduce_standard_form(ReduceJob& job, i16 id);
ReduceStatus reduce_block_form(ReduceJob& job);

}  // namespace trendaro
