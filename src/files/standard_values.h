#pragma once

#include <string>

#include "app/types.h"
#include "files/byte_cursor.h"
#include "files/load_status.h"
#include "files/sample_array.h"
#include "files/standard_header.h"
#include "files/value_run.h"

namespace trendaro {

struct Model;

// The value pass of modes 1 and 2 behind `header`, whose channels stand in the model's result area. Values
// beyond the bytes of the file, a device error and a refused write into the database give ReadFailed, with
// its message shown; FileChannelValues then holds what was read. Throws RunTimeError.
LoadStatus load_standard_values(Model& model, ByteCursor& cursor, const StandardHeader& header, i16 mode,
                                i16 channel, i32 database_channel);

// The value pass of mode 1 with the same statuses and messages, but `take` gets the values in runs and
// FileChannelValues stays empty. Throws RunTimeError.
LoadStatus pass_standard_values(Model& model, ByteCursor& cursor, const StandardHeader& header, i16 channel,
                                const TakeValues& take);

// The samples `first` to `first + count - 1` of a numeric channel, as far as channel and file go. Empty for a
// text channel or one that the file lacks. Throws RunTimeError.
LoadStatus load_standard_range(const LoaderResult& result, ByteCursor& cursor, const StandardHeader& header,
                               i16 channel, i64 first, i64 count, SampleArray& destination);

}  // namespace trendaro
