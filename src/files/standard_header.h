#pragma once

#include "app/types.h"
#include "files/byte_cursor.h"
#include "files/kept_texts.h"
#include "files/loader_result.h"

namespace trendaro {

// What the value pass needs of a standard file beyond the result area.
struct StandardHeader {
  i32 padded_length = 0;  // samples reserved per channel; 0 where each takes exactly its own
  i64 values_begin = 0;   // position behind the last channel header
  KeptTexts kept;
};

// Reads the header of a standard file into `result`; the cursor stands behind the id. `channel` (from 1)
// chooses whose texts, date and records are kept. A truncated header gives zeros and empty texts. Throws
// RunTimeError for a negative channel count or text length.
StandardHeader read_standard_header(ByteCursor& cursor, i16 id, i16 channel, LoaderResult& result);

}  // namespace trendaro
