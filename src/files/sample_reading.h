#pragma once

#include "app/types.h"
#include "files/byte_cursor.h"
#include "files/sample_array.h"
#include "files/value_run.h"

namespace trendaro {

inline constexpr i64 kSampleBytes = 8;

// Whole values in a number of bytes, rounded to the nearest, ties to even: a last value counts when more than
// half of it is there, or half of it behind an odd number of whole ones.
i64 rounded_values(i64 bytes);

// Reads bytes to `destination`; what the file no longer delivers is zero.
void read_or_zero(ByteCursor& cursor, void* destination, i64 bytes);

// Gives `values` room for `count` elements without a value. Old contents are not copied, memory that fits is
// used again, and memory far larger than needed is given back. Throws std::bad_alloc.
void make_room(SampleArray& values, i64 count);

// Reads up to `count` samples straight into `values`, which holds the whole samples that arrived. Never sizes
// it beyond the bytes that the file has left. True when all of them arrived.
bool read_samples(ByteCursor& cursor, i64 count, SampleArray& values);

// Hands `count` samples on in runs of at most 1 MiB, as far as the file has them. True when all of them
// arrived.
bool pass_samples(ByteCursor& cursor, i64 count, const TakeValues& take);

}  // namespace trendaro
