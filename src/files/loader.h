#pragma once

#include <string>

#include "app/types.h"
#include "files/load_status.h"
#include "files/sample_array.h"
#include "files/value_run.h"

namespace trendaro {

struct Model;

// The one way to a measurement file: recognises it by its first word and fills the model's LoaderResult.
//
// `mode` 0 description only; 1 also the values of `channel` into FileChannelValues; 2 those values into
// database channel `databaseChannel` through the model's DatabaseKernel. `channel` is 1-based; a number that
// the file does not have selects nothing and is no error. `databaseChannel` is 0 outside of mode 2.
//
// A read failure in the values of a standard file shows its message through the model's Shell. The file is
// closed on every way out, and nothing is thrown.
LoadStatus LoadMeasurementFile(Model& model, i16 mode, const std::string& path, i16 channel,
                               i32 databaseChannel);

// Mode 1 without an array: `take` gets the values of `channel` in runs, the very values that mode 1 would
// leave in FileChannelValues, which ends empty. Status, messages and the rest of the result area are those of
// mode 1; the description of the file stands there from the first run on. What `take` throws ends the load as
// an error of the reader does.
LoadStatus PassMeasurementValues(Model& model, const std::string& path, i16 channel, const TakeValues& take);

// The samples `first` (from 0) to `first + count - 1` of one channel, as mode 1 would give them at those
// indices; fewer where the channel or the file ends earlier. Reads the header and the bytes of those samples
// alone, so that the cost does not grow with the recording. The result area then describes the file as after
// mode 0, and FileChannelValues stays. A channel that the file lacks, a text channel and a range outside give
// an empty `destination` and no error; no message is shown. Nothing is thrown.
LoadStatus LoadSampleRange(Model& model, const std::string& path, i16 channel, i64 first, i64 count,
                           SampleArray& destination);

}  // namespace trendaro
