#pragma once

#include <span>

#include "app/types.h"
#include "files/input_file.h"
#include "files/recorder_header.h"
#include "files/value_run.h"

namespace trendaro {

// True when a number of rows may be believed where `there` rows are: up to a million, and beyond them up to
// eight times those.
bool is_credible_row_count(i64 claimed, i64 there);

// The number of rows, for which memory may be taken: a recording may lack the end of its data part, but one
// that claims far more than eight times what is there (and more than a million rows) throws
// RunTimeError{kOutOfMemory}. Throws RunTimeError{kIndexOutOfRange} for a negative number.
i64 row_count_to_hold(const InputFile& file, const RecorderHeader& header);

// The values of output channel `channel` (from 1, one that the header has) from row `first` (0 or more) on,
// one for each element of `destination`. A time channel comes with its carry, the column behind it. What the
// file does not hold is 0, and so is all of an unknown sample format. Throws RunTimeError{kIndexOutOfRange}
// for a time channel of raw samples without a column behind it, RunTimeError{kDeviceError} for an error of
// the device, behind which all is 0.
void read_recorder_values(const InputFile& file, const RecorderHeader& header, i32 channel, i64 first,
                          std::span<f64> destination);

// Hands the values of `channels` on in runs, a stretch of rows for each of them in turn, so that the rows are
// read but once: the values that read_recorder_values gives. Not for recordings of doubles. Throws
// RunTimeError as that and row_count_to_hold do.
void pass_raw_columns(const InputFile& file, const RecorderHeader& header, std::span<const i16> channels,
                      const TakeColumn& take);

// One column of a recording of doubles alone, without a carry; the channel may be one too many, and then
// nothing is there.
void read_double_column(const InputFile& file, const RecorderHeader& header, i32 channel, i64 first,
                        std::span<f64> destination);

}  // namespace trendaro
