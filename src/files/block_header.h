#pragma once

#include "app/types.h"
#include "files/byte_cursor.h"
#include "files/kept_texts.h"
#include "files/loader_result.h"

namespace trendaro {

inline constexpr i16 kOldestBlockId = 5003;
inline constexpr i16 kUnprefixedBlockId = 5055;  // blocks of 100 values without a length ahead
inline constexpr i16 kNewestBlockId = 5056;      // with data offset, header comment and dates as numbers

// What the value pass needs of a block file beyond the result area.
struct BlockHeader {
  i16 id = 0;
  i32 data_offset = 0;        // position of the first block, in kNewestBlockId alone
  i64 header_end = 0;         // position behind the last channel header
  bool fixed_blocks = false;  // FixedBlockFlag of the last channel
  KeptTexts kept;
};

// Reads the header of a block file into `result`; the cursor stands behind the id. `channel` (from 1) chooses
// whose texts, date and record are kept. A truncated header gives zeros and empty texts. Throws RunTimeError
// for a channel count that is 0, negative or beyond i16, and for a negative text length.
BlockHeader read_block_header(ByteCursor& cursor, i16 id, i16 channel, LoaderResult& result);

}  // namespace trendaro
