#pragma once

#include <span>

#include "app/types.h"
#include "files/recorder_header.h"

namespace trendaro {

// Raw samples to physical values. Scale and Offset are f32 as in the file; products are formed in f64, but
// for i16 samples outside of time channels in f32.
f64 physical_i32(i32 raw, f32 scale, f32 offset);
f64 physical_i16(i16 raw, f32 scale, f32 offset);
f64 physical_time_word(u16 raw, f32 scale, f32 offset);  // i16 samples of time channels count without a sign

// Where the samples of a channel stand in a row of raw samples.
struct RawColumn {
  i32 sample_format;  // kSamplesI32, kSamplesI16 or kSamplesF32
  i64 offset;         // of the sample, in bytes from the start of the row
  i64 needed;         // bytes from there that a value is made of
  const RecorderColumn* column;
  const RecorderColumn* carry;  // the column behind it in time channels, null in others
};

// True when the header tells where raw samples stand and what they are.
bool has_raw_values(const RecorderHeader& header);

// Bytes of a row of samples; of a recording of doubles, which has no rows, the bytes of one sample each.
i64 row_bytes(const RecorderHeader& header);

// The column of output channel `channel` (from 1, one that the header has). It points into the header. Throws
// RunTimeError{kIndexOutOfRange} for a time channel without a column behind it.
RawColumn find_raw_column(const RecorderHeader& header, i32 channel);

// The rows of which `bytes` bytes, beginning with the sample of the first row, hold all that a value needs.
// `stride` is the distance of rows in bytes.
i64 whole_rows(const RawColumn& column, i64 stride, i64 bytes);

// One value from each row; `sample` is that of the first row, and all that is needed is there. Touches no
// byte before the first sample or behind the last one.
void decode_column(const RawColumn& column, const u8* sample, i64 stride, std::span<f64> values);

// The same values one after the other; what decode_column falls back to where the processor offers nothing
// better.
void decode_column_plainly(const RawColumn& column, const u8* sample, i64 stride, std::span<f64> values);

}  // namespace trendaro
