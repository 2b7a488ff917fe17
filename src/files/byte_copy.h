#pragma once

#include "app/types.h"
#include "files/byte_cursor.h"
#include "files/byte_writer.h"

namespace trendaro {

// Copies `count` bytes from the cursor's position to the writer's; a count of 0 or less copies nothing. Bytes
// that the source lacks leave source.ok() false.
void copy_bytes(ByteCursor& source, ByteWriter& target, i64 count);

// Copies a counted text whose length of 0 or less means that no bytes follow; the length stays as it is.
void copy_optional_text(ByteCursor& source, ByteWriter& target);

}  // namespace trendaro
